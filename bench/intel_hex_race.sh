#!/usr/bin/env bash
# Whole processes on 8 MiB: our reader and writer against objcopy and srec_cat, in turn, 15 rounds on
# the same files in memory; the median of each. Usage: bench/intel_hex_race.sh [BUILD_FOLDER]
set -eu
tool=$(readlink -f "${1:-build/release}")/bench/intel_hex_tool
folder=$(mktemp -d -p "$([ -d /dev/shm ] && echo /dev/shm || echo /tmp)")
trap 'rm -r "$folder"' EXIT
cd "$folder"

head -c 8388608 /dev/urandom >image.bin
"$tool" encode image.bin image.hex >peak.txt

# Usage: race NAME COMMAND... Notes the time of one run.
race() {
  local name=$1 start
  shift
  start=$(date +%s%N)
  "$@" >/dev/null
  echo $((($(date +%s%N) - start) / 1000)) >>"$name.times"
}

for _ in {1..15}; do
  race decode-ours "$tool" decode image.hex ours.bin
  race decode-objcopy objcopy -I ihex -O binary image.hex objcopy.bin
  race decode-srec_cat srec_cat image.hex -intel -o srec.bin -binary
  race encode-ours "$tool" encode image.bin ours.hex
  race encode-objcopy objcopy -I binary -O ihex image.bin objcopy.hex
  race encode-srec_cat srec_cat image.bin -binary -o srec.hex -intel
done
for result in ours.bin objcopy.bin srec.bin; do cmp "$result" image.bin; done
for times in *.times; do
  printf '%-16s %6.1f ms\n' "${times%.times}" "$(sort -n "$times" | sed -n 8p)e-3"
done
echo "memory of a decode: $("$tool" decode image.hex ours.bin);" \
  "text $(($(wc -c <image.hex) / 1024)) KiB, image 8192 KiB"
