#!/usr/bin/env bash
# Packs the portable folder as a zip and as an installer. Usage: pack.sh FOLDER VERSION ICON OUT
set -eu
tools=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath "$1") version=$2 icon=$(realpath "$3")
mkdir -p "$4"
out=$(realpath "$4")
rm -f "$out"/zelkova-*-windows.zip "$out"/zelkova-*-setup.exe
(cd "$folder/.." && zip -q -9 -r "$out/zelkova-$version-windows.zip" "$(basename "$folder")")

# What the uninstaller takes away: these files and no others, those for editing only unchanged, and
# folders only when they are empty.
list=$(mktemp)
trap 'rm -f "$list"' EXIT
(cd "$folder" && find . -type f ! -name zelkova.ini ! -name error.log ! -path './demo/*' \
  ! -path './vqmap/*' -printf '%P\n' | sort | sed 's|/|\\|g; s|.*|  Delete "$INSTDIR\\&"|') >"$list"
(cd "$folder" && find demo vqmap -type f -printf '%h %f\n' | sort |
  sed 's|\(.*\) \(.*\)|  !insertmacro DeleteUnchanged "\1/\2" "\1\\\2"|') >>"$list"
(cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | sort -r |
  sed 's|/|\\|g; s|.*|  RMDir "$INSTDIR\\&"|') >>"$list"
makensis -V2 -INPUTCHARSET UTF8 -DSTAGE="$folder" -DVERSION="$version" -DLIST="$list" \
  -DICON="$icon" -DOUT="$out/zelkova-$version-setup.exe" "$tools/../../packaging/windows/zelkova.nsi"
