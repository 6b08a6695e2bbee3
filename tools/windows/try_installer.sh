#!/usr/bin/env bash
# Installs, updates over changed files, and removes, under wine without pages, and compares what stands
# there each time. Usage: try_installer.sh FOLDER INSTALLER   (WINEPREFIX in force)
set -eu
tools=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath "$1") installer=$(realpath "$2")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
place=$scratch/zelkova wanted=$scratch/wanted
run() { "$tools/under_wine.sh" "$@"; }
install() { run "$installer" /S "/D=Z:${place//\//\\}"; }
changed=(zelkova.ini error.log demo/demo.bin vqmap/s13_vq_map.bin)
is_listed() { run reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\ZELKOVA'; }
expect() {
  echo "== $1"
  diff -r "$wanted" "$place"
}

cp -r "$folder" "$wanted"
install
cp "$place/uninstall.exe" "$wanted/"
expect "installed"
is_listed

for file in "${changed[@]}"; do
  printf 'mine' | dd of="$place/$file" conv=notrunc status=none
  cp "$place/$file" "$wanted/$file"
done
echo mine | tee "$place/demo/mine.bin" "$wanted/demo/mine.bin" >/dev/null
truncate -s -1 "$place/zelkova.exe" "$place/demo/demo_en.adr"
cp "$place/demo/demo_en.adr" "$wanted/demo/"
install
expect "updated: what the user changed stays, the rest is as brought"

# It goes on from a copy of itself and ends before that one.
run "$place/uninstall.exe" /S
for ((tries = 0; tries < 300; ++tries)); do
  [ -e "$place/uninstall.exe" ] || break
  sleep 0.1
done
sleep 1
rm -r "$wanted"
mkdir -p "$wanted/demo" "$wanted/vqmap"
cp "$place"/{zelkova.ini,error.log} "$wanted/"
for file in "${changed[@]}" demo/demo_en.adr demo/mine.bin; do cp "$place/$file" "$wanted/$file"; done
expect "removed: what the user changed or put there stays"
! is_listed
