#!/usr/bin/env bash
# Runs the tests of the preset linux-coverage and prints how much of each room they have reached, as a table
# that stands in build/linux-coverage/coverage.txt afterwards. Left out are tests that compile, look from
# outside or run code built otherwise, and the sweep of faults, whose processes end without a count.
# Usage: run.sh
set -euo pipefail
cd "$(dirname "$0")/../.."

build=$PWD/build/linux-coverage
counts=$build/counts
# What is made during the build is of no interest.
LLVM_PROFILE_FILE=/dev/null cmake/build.sh linux-coverage
rm -rf "$counts" && mkdir "$counts"
# One file for each program and library, to which every process adds.
(cd "$build" && LLVM_PROFILE_FILE=$counts/%m.profraw ctest --output-on-failure --no-tests=error \
  -E '^(support_refusals|headers|install|docs|debuggers\..*|faults|windows\.i386|windows\.patcher\.fuzz)$')

llvm-profdata-19 merge -o "$build/coverage.profdata" "$counts"/*.profraw
# Everything that runs and has been counted.
images=()
while IFS= read -r file; do
  # Grep reads all of it, or the pipe would break.
  if llvm-readelf-19 -S "$file" 2> /dev/null | grep '__llvm_covmap' > /dev/null; then
    images+=(-object "$file")
  fi
done < <(find "$build" -path "$counts" -prune -o -type f -perm -u+x -print)
llvm-cov-19 export -format=lcov -summary-only -instr-profile="$build/coverage.profdata" \
  -ignore-filename-regex="^(/usr/|$PWD/(tests|bench|examples)/)" "${images[@]}" \
  > "$build/coverage.lcov" 2> "$build/coverage.log" || { cat "$build/coverage.log" >&2; exit 1; }
awk -v root="$PWD" -f tests/coverage/table.awk "$build/coverage.lcov" > "$build/coverage.txt"
cat "$build/coverage.txt"
