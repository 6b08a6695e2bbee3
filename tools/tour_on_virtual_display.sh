#!/usr/bin/env bash
# Runs the tour on virtual displays, one for each language, side by side, each over a fresh copy of
# a portable folder with the delivered settings. These and the tour's door stand beside that folder.
# Usage: tour_on_virtual_display.sh PORTABLE_FOLDER PICTURES_FOLDER
# Exits non-zero when a tour's result is not what it must be.
set -u
here=$(cd "$(dirname "$0")" && pwd)
. "$here/display.sh"

portable=$1
pictures=$2
door=$(realpath "$(dirname "$portable")")/tour_door
fresh=$(mktemp -d)
tours=()
finish() {
  local tour
  for tour in "${tours[@]}"; do
    kill "$tour" 2>/dev/null && wait "$tour" 2>/dev/null
  done
  rm -rf "$fresh"
}
trap finish EXIT
trap 'exit 130' INT TERM

# Usage: walk LANGUAGE. One tour over a fresh copy, with a display and a home of its own.
walk() {
  local place=$fresh/$1 status
  use_home "$place/home"
  cp -r "$portable" "$place/portable" || return 1
  cp "$(dirname "$portable")/demo/zelkova.ini" "$place/portable/" || return 1
  : >"$place/portable/error.log"
  start_display || return 1
  "$here/tour.sh" "$place/portable" "$door" "$pictures" "$1" &
  wait $!
  status=$?
  stop_display
  return "$status"
}

rm -rf "$pictures"
mkdir -p "$pictures"
for language in en ja; do
  (
    tours=()
    trap stop_display EXIT
    walk "$language"
  ) &
  tours+=($!)
done
status=0
for each in "${tours[@]}"; do wait "$each" || status=1; done
tours=()
exit "$status"
