#!/usr/bin/env bash
# Runs the command line for Windows under wine beside that of this system, over the same files with
# Japanese names: exit codes, what is told and what is written must be the same bytes.
# Usage: try_batch.sh ZELKOVA_BATCH.EXE ZELKOVA_BATCH DEMO_FOLDER   (WINEPREFIX in force)
set -u
windows_batch=$(realpath "$1") own_batch=$(realpath "$2") demo=$(realpath "$3")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
name=画像

# A car, another state of it, an address map in Shift-JIS, a script.
fill() {
  mkdir -p "$1/結果"
  cp "$demo/demo.bin" "$1/$name.bin"
  cp "$demo/demo.bin" "$1/他.bin"
  printf 'another' | dd of="$1/他.bin" bs=1 seek=4100 conv=notrunc status=none
  cp "$demo/demo_ja.adr" "$1/車.adr"
  printf 'percent HIGH_FUEL 5-8,3-6 -3\nsmooth REG_FUEL *\n' >"$1/薄く.txt"
}
calls=("info $name.bin 他.bin --map 車.adr --json" "show $name.bin --map 車.adr"
  "show $name.bin --map 車.adr HIGH_FUEL --hex --format csv" "diff $name.bin 他.bin --map 車.adr"
  "check 車.adr $name.bin" "convert $name.bin 結果/$name.hex" "convert 結果/$name.hex 結果/$name.srec"
  "convert --into 結果 --to raw $name.bin 結果/$name.srec" "convert 結果/$name.srec - --to raw"
  "apply $name.bin --map 車.adr --script 薄く.txt -o 結果/薄い.bin" "convert 無い.bin 結果/x.hex"
  "take 他.bin $name.bin --map 車.adr HIGH_FUEL -o 結果/取.hex" "split $name.bin 結果/奇.bin 結果/偶.bin"
  "join 結果/奇.bin 結果/偶.bin 結果/全.bin" "convert $name.bin 結果/全.bin")
fill "$scratch/own"
fill "$scratch/windows"

# Usage: all FOLDER PROGRAM... Runs all calls there; what they tell stands beside the folder.
all() {
  local folder=$1 call
  shift
  for call in "${calls[@]}"; do
    echo "== $call"
    # shellcheck disable=SC2086
    (cd "$folder" && "$@" $call </dev/null)
    echo "code $?"
  done >"$folder.out" 2>"$folder.err"
}
all "$scratch/own" "$own_batch"
all "$scratch/windows" /usr/lib/wine/wine64 "$windows_batch"

# Both write a path with the system's own separator.
status=0
for each in out err; do
  diff <(tr '\\' / <"$scratch/own.$each") <(tr '\\' / <"$scratch/windows.$each") || status=1
done
diff -r "$scratch/own" "$scratch/windows" || status=1
grep -q '^code 0' "$scratch/own.out" || status=1
[ "$status" = 0 ] && echo "${#calls[@]} calls: the same under wine"
exit "$status"
