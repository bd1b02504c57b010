#!/usr/bin/env bash
# Searches with each fuzzer for WRT_FUZZ_SECONDS (60 without it), under AddressSanitizer and UBSan, from the committed
# inputs on. What is new lies in build/linux-fuzz/fuzz/new afterwards, and an input that ends a fuzzer beside it, for
# tests/fuzz/corpus.
# Usage: run.sh [NAME...]
set -euo pipefail
cd "$(dirname "$0")/../.."

corpora=$PWD/tests/fuzz/corpus
names=("$@")
[[ ${#names[@]} -gt 0 ]] || mapfile -t names < <(ls "$corpora")
seconds=${WRT_FUZZ_SECONDS:-60}
for name in "${names[@]}"; do
  if [[ ! -d $corpora/$name ]]; then
    printf 'fuzz: there is no fuzzer "%s", but: %s\n' "$name" "$(ls "$corpora" | tr '\n' ' ')" >&2
    exit 2
  fi
done
if [[ ! $seconds =~ ^[1-9][0-9]*$ ]]; then
  printf 'fuzz: WRT_FUZZ_SECONDS is "%s", not a number of seconds\n' "$seconds" >&2
  exit 2
fi
cmake/build.sh linux-fuzz "${names[@]/#/fuzz_}"
# As the tests have it: what is not ours is not looked at.
mapfile -t environment < build/linux-fuzz/test-environment
export "${environment[@]}"
cd build/linux-fuzz/fuzz
for name in "${names[@]}"; do
  mkdir -p "new/$name"
  if ! ./"$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -verbosity=0 -print_final_stats=1 \
      "new/$name" "$corpora/$name" > "$name.log" 2>&1; then
    cat "$name.log"
    printf 'fuzz: %s has found something: %s\n' "$name" "$(sed -n 's/.*Test unit written to //p' "$name.log")" >&2
    exit 1
  fi
  printf '%s: %s inputs in %s s, nothing found\n' "$name" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "$name.log")" "$seconds"
done
