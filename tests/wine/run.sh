#!/usr/bin/env bash
# Runs the library of build/linux in Wine: the member matrix against a component in a Windows DLL, and
# Wine's own classes through the bridges. Installs Wine when it is missing; where it cannot be had,
# everything counts as skipped. The last line tells how many tests passed, failed and were skipped.
# Usage: tests/wine/run.sh
set -euo pipefail
cd "$(dirname "$0")/../.."
source platform/linux/wine/environment.sh

here=tests/wine
logs=$wine_folder/logs
passed=0 failed=0 skipped=0

say() { printf 'wine: %s\n' "$*"; }
shout() { printf '\n*** wine: %s\n\n' "$*"; }
finish() {
  printf '%d passed, %d failed, %d skipped\n' "$passed" "$failed" "$skipped"
  [[ $failed -eq 0 ]] || exit 1
  exit 0
}

# The number of lines of the files that are neither empty nor comments.
count_entries() { cat "$@" | grep -c '^[^# ]'; }

# Runs a program of tests in Wine, shows what it said and adds up what its last lines tell. One without such
# lines has failed.
# Usage: run_program NAME SECONDS LIBRARY [ARGUMENT...]
run_program() {
  local name=$1 log=$logs/$1.log status=0 ran right
  shift
  say "$name"
  platform/linux/wine/run-library.sh "$@" --gtest_brief=1 > "$log" 2>&1 || status=$?
  cat "$log"
  ran=$(sed -nE 's/^\[=+\] ([0-9]+) tests? from .* ran\..*/\1/p' "$log")
  right=$(sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?\..*/\1/p' "$log")
  if [[ ${ran:-0} -eq 0 || ($status -ne 0 && $ran -eq $right) ]]; then
    say "$name ended with status $status and without a result"
    ran=1 right=0
  fi
  passed=$((passed + right))
  failed=$((failed + ran - right))
}

if ! { cmake/install-packages.sh platform/linux/wine/packages.txt &&
  cmake/install-packages.sh "$here/packages.txt"; }; then
  shout "NOT TESTED: Wine and its tools cannot be installed here"
  skipped=$(count_entries tests/matrix/cells.txt "$here"/expectations-8.0.txt)
  finish
fi
version=$(wine64 --version | sed -E 's/^wine-([0-9]+\.[0-9]+).*/\1/')

rm -rf "$logs"
mkdir -p "$logs"
trap 'timeout -k 5 10 wineserver -k > /dev/null 2>&1 || true' EXIT
platform/linux/wine/make-prefix.sh &
prefix=$!
cmake/build.sh linux WRTBridge_wine wine_matrix wine_classes
platform/linux/wine/build-host.sh
"$here"/build-component.sh
wait "$prefix"
platform/linux/wine/register-class.sh TestClass "$wine_folder/testcomponent.dll"

# A line of exclusions is a cell and the reason.
filter=-
while read -r cell _ reason; do
  grep -qxF "$cell" tests/matrix/cells.txt || { say "$cell is excluded, but no cell"; failed=$((failed + 1)); }
  printf 'skipped: %s (%s)\n' "$cell" "$reason"
  filter+=$cell:
  skipped=$((skipped + 1))
done < <(grep '^[^#]' "$here/matrix/exclusions.txt")
run_program "matrix" 60 build/linux/libwine_matrix.so "$wine_folder/testcomponent.dll" "--gtest_filter=$filter"

expectations=$here/expectations-$version.txt
if [[ -f $expectations ]]; then
  # A language that is nobody's default: what comes back has gone through Wine.
  export WRT_WINE_LOCALE=de_DE.UTF-8
  run_program "classes" 60 build/linux/libwine_classes.so "$expectations"
else
  shout "CLASSES NOT TESTED: nothing is known about Wine $version; write $expectations"
  skipped=$((skipped + $(count_entries "$here"/expectations-8.0.txt)))
fi
finish
