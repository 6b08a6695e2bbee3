#!/usr/bin/env bash
# Walks the tour over the portable folder for Windows in both languages, then through Japanese
# folders, each over a fresh copy, under wine on a virtual display. Usage: walk.sh FOLDER PICTURES
set -eu
tools=$(cd "$(dirname "$0")" && pwd)
. "$tools/../display.sh"
folder=$1 pictures=$2
fresh=$(mktemp -d)
finish() {
  stop_display
  rm -rf "$fresh"
}
trap finish EXIT
trap 'exit 130' INT TERM

rm -rf "$pictures"
mkdir -p "$pictures"
start_display 1920x1200
# The tour's places are those of this font.
x86_64-w64-mingw32-g++-posix -static -municode -O1 -o "$fresh/set_font.exe" "$tools/set_font.cpp"
/usr/lib/wine/wine64 "$fresh/set_font.exe" "DejaVu Sans" 12
for language in en ja; do
  cp -r "$folder" "$fresh/$language"
  /usr/bin/python3 "$tools/tour_under_wine.py" "$fresh/$language" "$pictures" "$language"
done
/usr/bin/python3 "$tools/japanese_folders.py" "$folder" "$pictures" "$fresh"
