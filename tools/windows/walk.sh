#!/usr/bin/env bash
# Walks the tour over the portable folder for Windows in both languages, then through Japanese
# folders, each over a fresh copy, under wine on a virtual display. Usage: walk.sh FOLDER DOOR PICTURES
set -eu
tools=$(cd "$(dirname "$0")" && pwd)
. "$tools/../display.sh"
folder=$1 door=$2 pictures=$3
fresh=$(mktemp -d)
finish() {
  stop_display
  rm -rf "$fresh"
}
trap finish EXIT
trap 'exit 130' INT TERM

rm -rf "$pictures"
mkdir -p "$pictures"
# The desktop that wine keeps from earlier programs is bound to their display.
/usr/lib/wine/wineserver -k || true
start_display 1920x1200
for language in en ja; do
  cp -r "$folder" "$fresh/$language"
  /usr/bin/python3 "$tools/tour_under_wine.py" "$fresh/$language" "$door" "$pictures" "$language"
done
/usr/bin/python3 "$tools/japanese_folders.py" "$folder" "$door" "$pictures" "$fresh"
