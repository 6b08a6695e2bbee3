#!/usr/bin/env bash
# Median start times and peak memory of the program beside a bare main window, in turn.
# Usage: bench/start_race.sh [BUILD_FOLDER] [RUNS]   (on the display in force)
set -eu
build=${1:-build/release}
runs=${2:-15}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$build/portable/." "$folder"
cp "$build/bench/start_bench" "$folder"
for ((i = 0; i < runs; ++i)); do
  for mode in bare splash form1; do
    "$folder/start_bench" "$mode" 2>/dev/null >>"$folder/$mode.txt"
  done
done
median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }
for mode in bare splash form1; do
  printf '%-7s %8s ms %8s KiB\n' "$mode" "$(cut -d' ' -f1 "$folder/$mode.txt" | median)" \
    "$(cut -d' ' -f2 "$folder/$mode.txt" | median)"
done
