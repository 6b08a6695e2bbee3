#!/usr/bin/env bash
# Walks of the tireless user under the sanitizers, seed after seed, for so many minutes.
# Usage: tools/tireless_user.sh [MINUTES] [FIRST_SEED] [GESTURES]; a walk has so many gestures. Ends
# at the first seed that finds something; with 0 minutes one seed is walked.
set -eu
cd "$(dirname "$0")/.."
minutes=${1:-60}
seed=${2:-1000}
gestures=${3:-20000}
cmake --preset sanitize >/dev/null
cmake --build build/sanitize --target tireless_user_test
end=$((SECONDS + minutes * 60))
while true; do
  ZELKOVA_SEED=$seed ZELKOVA_GESTURES=$gestures build/sanitize/tests/tireless_user_test \
    --gtest_brief=1 || { echo "seed $seed found something"; exit 1; }
  [ "$SECONDS" -lt "$end" ] || break
  seed=$((seed + 1))
done
echo "all seeds up to $seed found nothing"
