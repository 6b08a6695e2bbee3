#!/usr/bin/env bash
# Whole processes on 8 MiB: our reader and writer against objcopy and srec_cat, 10 runs each, all on
# the same files in memory. Usage: bench/intel_hex_race.sh [BUILD_FOLDER]
set -eu
tool=$(readlink -f "${1:-build/release}")/bench/intel_hex_tool
folder=$(mktemp -d -p "$([ -d /dev/shm ] && echo /dev/shm || echo /tmp)")
trap 'rm -r "$folder"' EXIT
cd "$folder"

head -c 8388608 /dev/urandom >image.bin
"$tool" encode image.bin image.hex >peak.txt

# Usage: race NAME RESULT COMMAND... Prints the mean time and holds the result against the image.
race() {
  local name=$1 result=$2 start end
  shift 2
  start=$(date +%s%N)
  for _ in {1..10}; do "$@" >/dev/null; done
  end=$(date +%s%N)
  [ -z "$result" ] || cmp -s "$result" image.bin || { echo "$name: wrong bytes"; exit 1; }
  printf '%-24s %6.1f ms\n' "$name" "$(((end - start) / 10000))e-3"
}

race "decode, ours" ours.bin "$tool" decode image.hex ours.bin
race "decode, objcopy" objcopy.bin objcopy -I ihex -O binary image.hex objcopy.bin
race "decode, srec_cat" srec.bin srec_cat image.hex -intel -o srec.bin -binary
race "encode, ours" "" "$tool" encode image.bin ours.hex
race "encode, objcopy" "" objcopy -I binary -O ihex image.bin objcopy.hex
race "encode, srec_cat" "" srec_cat image.bin -binary -o srec.hex -intel
echo "memory of a decode: $("$tool" decode image.hex ours.bin); text $(($(wc -c <image.hex) / 1024)) KiB, image 8192 KiB"
