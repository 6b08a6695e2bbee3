#!/usr/bin/env bash
# Builds the fuzzers and runs all of them side by side. Usage: tools/fuzz.sh [SECONDS_EACH]; an hour
# unless told otherwise. What they learn stays in build/fuzz/corpus, what they find in
# build/fuzz/findings; exits non-zero when there is a finding.
set -u
cd "$(dirname "$0")/.."
seconds=${1:-3600}
folder=$PWD/build/fuzz
[ -d /dev/shm ] && export TMPDIR=/dev/shm

mkdir -p build
cmake --preset fuzz >build/fuzz-configure.log 2>&1 || { cat build/fuzz-configure.log; exit 1; }
names=(intel_hex address_map settings clipboard batch_call batch_script)
cmake --build "$folder" --target "${names[@]/#/fuzz_}" demo_files || exit 1

# The first inputs: the demo car's own files and a piece of its image.
corpus=$folder/corpus
mkdir -p "${names[@]/#/$corpus/}" "$folder/findings"
cp "$folder"/demo/*.adr "$corpus/address_map"
cp "$folder"/demo/zelkova.ini "$corpus/settings"
for bytes in 1 30 500; do
  head -c "$bytes" "$folder/demo/demo.bin" >"$folder/piece.bin"
  objcopy -I binary -O ihex "$folder/piece.bin" "$corpus/intel_hex/piece$bytes.hex" || exit 1
done
printf ':03000000010203F7\r\n:01000300417B\r:00000001FF' >"$corpus/intel_hex/rest.hex"
printf '1,2,3,4,5,6,2,1' >"$corpus/clipboard/block.txt"
printf ' 12 ,-3.5e2,&HFF,x,,1,1' >"$corpus/clipboard/odd.txt"

printf 'S1130000%s\nS9030000FC\n' 000102030405060708090A0B0C0D0E0F74 >"$corpus/intel_hex/piece.s19"
calls=("info any" "info a.bin a.hex --map a.adr --json" "show a.bin --map a.adr HIGH_FUEL --hex"
  "show any --map a.adr --format csv" "diff a.bin a.hex any --map a.adr" "check any a.bin"
  "diff any a.s19 --base &H8000 --json" "convert any b.srec" "convert any a.hex"
  "split any o e --kbit 64 --to hex" "report a.bin --map a.adr --lang ja -o r.html"
  "convert --into . --to raw any a.s19 --force" "join a.bin any c.bin"
  "apply a.bin --map a.adr --script any -o d.hex" "take a.bin any --map a.adr -o e.bin"
  "apply any --map any --script lean -o - --to srec" "take any a.hex --map any VQ_MAP -o a.bin")
for i in "${!calls[@]}"; do
  { echo "${calls[i]}"; cat "$corpus"/intel_hex/piece30.hex; } >"$corpus/batch_call/call$i"
done
cat >"$corpus/batch_script/lines" <<'SCRIPT'
percent HIGH_FUEL 1-2,3-4 -3 step
set VQ_MAP 1,* 2500
add HIGH_FUEL *,1 -2 below 110
multiply ADD_MAP1 * 0.97
interpolate HIGH_FUEL * both even
smooth HIGH_FUEL 2-3,2-4 below 120  # only those
parameter REV1_LIMIT 7200
parameter K_DATA A1B2C3
shift HIGH_FUEL left scale
copy HIGH_FUEL REG_FUEL
SCRIPT
# The words of calls and scripts, which chance would not find.
for word in info show diff check convert split join apply take report --lang --map --base \
  --format --json --hex --to --into --kbit --output --force --script below across down both even \
  step percent smooth shift copy left right scale \
  interpolate multiply parameter TP_SCALE_FUEL RPM_SCALE_FUEL SPEED1_LIMIT TTP_MAX 65536 \
  4294967296 1e38 -100 '&H7FFFFFFF' ADD_MAP1 any a.bin a.hex a.s19 a.adr lean; do
  printf '"%s "\n' "$word"
done >"$folder/batch.dict"

# Usage: start NAME LONGEST_INPUT [OPTION...]
start() {
  local name=$1 longest=$2
  shift 2
  "$folder/tests/fuzz/fuzz_$name" -max_total_time="$seconds" -max_len="$longest" -timeout=20 \
    -rss_limit_mb=2048 -artifact_prefix="$folder/findings/$name-" -print_final_stats=1 "$@" \
    "$corpus/$name" </dev/null >"$folder/$name.log" 2>&1 &
  pids[$name]=$!
}

declare -A pids
start intel_hex 4096
start address_map 8192
start settings 2048
start clipboard 2048
# What calls tell on their own streams is no one's to read here.
start batch_call 2048 -dict="$folder/batch.dict" -close_fd_mask=3
start batch_script 2048 -dict="$folder/batch.dict"
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
