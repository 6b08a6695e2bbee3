#!/usr/bin/env bash
# Whole processes of zelkova-batch in turn with objcopy and srec_cat over the same files in memory:
# medians, and medians of the ratios of neighbours. Usage: bench/batch_race.sh [BUILD_FOLDER]
set -eu
build=$(readlink -f "${1:-build/release}")
batch=$build/src/frontend/batch/zelkova-batch
folder=$(mktemp -d -p "$([ -d /dev/shm ] && echo /dev/shm || echo /tmp)")
trap 'rm -r "$folder"' EXIT
cd "$folder"

# Usage: timed COMMAND... Puts the microseconds of a run into `time`.
timed() {
  local start=${EPOCHREALTIME/./}
  "$@" >/dev/null 2>&1 || true
  time=$((${EPOCHREALTIME/./} - start))
}
median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }

# Usage: race NAME ROUNDS OURS THEIRS   (commands as texts without quotes)
race() {
  local i ours
  : >ours.times; : >theirs.times; : >ratios
  for ((i = 0; i < $2; ++i)); do
    timed $3; ours=$time
    timed $4
    echo "$ours" >>ours.times
    echo "$time" >>theirs.times
    echo "$ours $time" | awk '{print $1 / $2}' >>ratios
  done
  printf '%-34s %8.2f ms %8.2f ms  ratio %.2f\n' "$1" "$(median <ours.times)e-3" \
    "$(median <theirs.times)e-3" "$(median <ratios)"
}

cp "$build/demo/demo_en.adr" car.adr
{ cat "$build/demo/demo.bin"; head -c 32768 /dev/urandom; } >a.bin
cp a.bin b.bin
printf 'another' | dd of=b.bin bs=1 seek=4100 conv=notrunc status=none
objcopy -I binary -O ihex a.bin a.hex
to_hex="objcopy -I binary -O ihex a.bin o.hex"
race "convert 64 KiB to Intel HEX" 201 "$batch convert --force a.bin z.hex" "$to_hex"
race "convert 64 KiB from Intel HEX" 201 "$batch convert --force a.hex z.bin" \
  "objcopy -I ihex -O binary a.hex o.bin"
race "show 64 KiB : objcopy to HEX" 201 "$batch show a.bin --map car.adr" "$to_hex"
race "diff 64 KiB : objcopy to HEX" 201 "$batch diff a.bin b.bin --map car.adr" "$to_hex"

head -c 8388608 /dev/urandom >big.bin
objcopy -I binary -O ihex big.bin big.hex
objcopy -I binary -O srec big.bin big.srec
# Usage: large NAME FROM TO OBJCOPY_FORMS SREC_CAT_FORMS
large() {
  race "8 MiB $1 : objcopy" 15 "$batch convert --force big.$2 z.$3" "objcopy $4 big.$2 o.$3"
  race "8 MiB $1 : srec_cat" 5 "$batch convert --force big.$2 z.$3" \
    "srec_cat big.$2 $5 -o s.$3 $6"
}
large "raw to HEX" bin hex "-I binary -O ihex" -binary -intel
large "HEX to raw" hex bin "-I ihex -O binary" -intel -binary
cmp z.bin big.bin
large "raw to S-records" bin srec "-I binary -O srec" -binary -motorola
large "S-records to raw" srec bin "-I srec -O binary" -motorola -binary
cmp z.bin big.bin

# 1000 states of one image, each with 200 other bytes.
mkdir many
/usr/bin/python3 - <<'PYTHON'
import random
image = open("a.bin", "rb").read()
for number in range(1000):
    other = bytearray(image)
    for _ in range(200):
        other[random.randrange(len(other))] ^= random.randrange(1, 256)
    open(f"many/{number}.bin", "wb").write(other)
PYTHON
for _ in {1..9}; do
  timed "$batch" diff a.bin many/*.bin --map car.adr
  echo "$time"
done | median | awk '{printf "diff of 1000 images: %d images a second\n", 1e9 / $1}'
