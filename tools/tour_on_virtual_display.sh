#!/usr/bin/env bash
# Runs the tour on virtual displays, one for each language, side by side, each over a fresh copy of a
# portable folder with the delivered settings.
# Usage: tour_on_virtual_display.sh PORTABLE_FOLDER PICTURES_FOLDER [SCALE]
# Exits non-zero when a tour's result is not what it must be.
set -u
here=$(cd "$(dirname "$0")" && pwd)
. "$here/display.sh"

portable=$1
pictures=$2
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

# Usage: walk PLACE LANGUAGE [SCALE]. One tour over a fresh copy, with a display and a home of its own.
walk() {
  local place=$1 status
  shift
  use_home "$place/home"
  cp -r "$portable" "$place/portable" || return 1
  cp "$(dirname "$portable")/demo/zelkova.ini" "$place/portable/" || return 1
  : >"$place/portable/error.log"
  start_display || return 1
  "$here/tour.sh" "$place/portable" "$pictures" "$@" &
  wait $!
  status=$?
  stop_display
  return "$status"
}

# Usage: tour LANGUAGE [SCALE]
tour() {
  walk "$fresh/$1-first" "$@" && return
  # A busy machine now and then swallows a key or shows a window late; what is broken fails twice.
  echo "The tour in $1 stopped; it is walked once more." >&2
  walk "$fresh/$1-second" "$@"
}

rm -rf "$pictures"
mkdir -p "$pictures"
for language in en ja; do
  (
    tours=()
    trap stop_display EXIT
    tour "$language" "${@:3}"
  ) &
  tours+=($!)
done
status=0
for each in "${tours[@]}"; do wait "$each" || status=1; done
tours=()
exit "$status"
