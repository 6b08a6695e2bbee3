#!/usr/bin/env bash
# Builds the fuzzers and runs all of them side by side. Usage: tools/fuzz.sh [SECONDS_EACH]; an hour
# unless told otherwise. What they learn stays in build/fuzz/corpus, what they find in
# build/fuzz/findings; exits non-zero when there is a finding.
set -u
cd "$(dirname "$0")/.."
seconds=${1:-3600}
folder=build/fuzz
[ -d /dev/shm ] && export TMPDIR=/dev/shm

mkdir -p build
cmake --preset fuzz >build/fuzz-configure.log 2>&1 || { cat build/fuzz-configure.log; exit 1; }
cmake --build "$folder" --target fuzz_intel_hex fuzz_address_map fuzz_settings fuzz_clipboard \
  demo_files || exit 1

# The first inputs: the demo car's own files and a piece of its image.
corpus=$folder/corpus
mkdir -p "$corpus"/{intel_hex,address_map,settings,clipboard} "$folder/findings"
cp "$folder"/demo/*.adr "$corpus/address_map"
cp "$folder"/demo/zelkova.ini "$corpus/settings"
for bytes in 1 30 500; do
  head -c "$bytes" "$folder/demo/demo.bin" >"$folder/piece.bin"
  objcopy -I binary -O ihex "$folder/piece.bin" "$corpus/intel_hex/piece$bytes.hex" || exit 1
done
printf ':03000000010203F7\r\n:01000300417B\r:00000001FF' >"$corpus/intel_hex/rest.hex"
printf '1,2,3,4,5,6,2,1' >"$corpus/clipboard/block.txt"
printf ' 12 ,-3.5e2,&HFF,x,,1,1' >"$corpus/clipboard/odd.txt"

# Usage: start NAME LONGEST_INPUT
start() {
  "$folder/tests/fuzz/fuzz_$1" -max_total_time="$seconds" -max_len="$2" -timeout=20 \
    -rss_limit_mb=2048 -artifact_prefix="$folder/findings/$1-" -print_final_stats=1 \
    "$corpus/$1" </dev/null >"$folder/$1.log" 2>&1 &
  pids[$1]=$!
}

declare -A pids
start intel_hex 4096
start address_map 8192
start settings 2048
start clipboard 2048
status=0
for name in "${!pids[@]}"; do
  if wait "${pids[$name]}"; then
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$folder/$name.log")
    echo "$name: $runs inputs, no finding"
  else
    echo "$name: FINDING, see $folder/$name.log and $folder/findings"
    tail -30 "$folder/$name.log"
    status=1
  fi
done
exit "$status"
