#!/usr/bin/env bash
# Takes the manual's pictures anew from the real windows, on a virtual display of its own.
# The tour's door and the delivered settings stand beside the portable folder.
# Usage: manual_pictures.sh PORTABLE_FOLDER [PICTURES_FOLDER]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/display.sh"

portable=$1
pictures=${2:-$here/../docs/manual/pictures}
fresh=$(mktemp -d)
finish() {
  stop_display
  rm -rf "$fresh"
}
trap finish EXIT
trap 'exit 130' INT TERM

cp -r "$portable" "$fresh/portable"
cp "$(dirname "$portable")/demo/zelkova.ini" "$fresh/portable/"
mkdir -p "$pictures"
use_home "$fresh/home"
start_display
export LC_ALL=C.UTF-8
/usr/bin/python3 "$here/tour/manual_pictures.py" "$fresh/portable" \
  "$(realpath "$(dirname "$portable")")/tour_door" "$pictures"
