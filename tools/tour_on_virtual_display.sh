#!/usr/bin/env bash
# Runs the tour on a virtual display of its own, over a fresh copy of a portable folder with the
# delivered settings. Usage: tour_on_virtual_display.sh PORTABLE_FOLDER PICTURES_FOLDER [SCALE]
# Exits non-zero when the tour's result is not what it must be.
set -u
here=$(cd "$(dirname "$0")" && pwd)
. "$here/display.sh"

portable=$1
pictures=$2
fresh=$(mktemp -d)
finish() {
  stop_display
  rm -rf "$fresh"
}
trap finish EXIT
trap 'exit 130' INT TERM

cp -r "$portable" "$fresh/portable" || exit 1
cp "$(dirname "$portable")/demo/zelkova.ini" "$fresh/portable/" || exit 1
: >"$fresh/portable/error.log"
rm -rf "$pictures"
mkdir -p "$pictures" "$fresh/config" "$fresh/home"

start_display || exit 1
export XDG_CONFIG_HOME=$fresh/config HOME=$fresh/home
"$here/tour.sh" "$fresh/portable" "$pictures" "${@:3}"
