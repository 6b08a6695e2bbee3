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

# Usage: walk NAME. One tour over a fresh copy, with a display and a home of its own.
walk() {
  local place=$fresh/$1 status
  shift
  mkdir -p "$place/config" "$place/home"
  cp -r "$portable" "$place/portable" || return 1
  cp "$(dirname "$portable")/demo/zelkova.ini" "$place/portable/" || return 1
  : >"$place/portable/error.log"
  rm -rf "$pictures"
  mkdir -p "$pictures"
  start_display || return 1
  XDG_CONFIG_HOME=$place/config HOME=$place/home \
    "$here/tour.sh" "$place/portable" "$pictures" "$@"
  status=$?
  stop_display
  return "$status"
}

walk first "${@:3}" && exit 0
# A busy machine now and then swallows a key or shows a window late; what is broken fails twice.
echo "The tour stopped; it is walked once more." >&2
walk second "${@:3}"
