#!/usr/bin/env bash
# Runs clang-tidy with .clang-tidy on every source that a build compiles, or on those named, as many at a
# time as there are processors: those of the linux preset, and what only windows-armv7 has, its tools for
# this machine included. Headers are looked at with the sources that include them.
# Usage: cmake/tidy.sh [FILE...]
set -euo pipefail
cd "$(dirname "$0")/.."

jobs=$(mktemp)
trap 'rm -f "$jobs"' EXIT
declare -A seen wanted
for file in "$@"; do
  wanted[$file]=1
done

# collect FOLDER...: a job for each source of the compilation databases there that no other had.
collect() {
  local folder file
  for folder in "$@"; do
    # Without precompiled headers: those need not be built, and what stands in them would not be looked at.
    mkdir -p "$folder/tidy"
    sed 's| -Winvalid-pch -Xclang -include-pch -Xclang .*cmake_pch[^ ]*||' "$folder/compile_commands.json" \
      > "$folder/tidy/compile_commands.json"
    # What is generated is not looked at, nor what lies outside.
    while IFS= read -r file; do
      [[ -z ${seen[$file]-} && (${#wanted[@]} -eq 0 || -n ${wanted[$file]-}) ]] || continue
      seen[$file]=1
      printf '%s\0%s\0' "$folder/tidy" "$file" >> "$jobs"
    done < <(sed -n 's|^ *"file": "\(.*\)".*|\1|p' "$folder/compile_commands.json" | xargs -r -d '\n' realpath -m |
      sed -n "s|^$PWD/||p" | grep -v '^build/\|\.S$' | sort -u)
  done
}

cmake/build.sh linux bridges # the generated headers
collect build/linux
if [[ $# -eq 0 || ${#seen[@]} -lt ${#wanted[@]} ]]; then
  cmake/build.sh windows-armv7 bridges host_tools
  collect build/windows-armv7 build/windows-armv7/host/*
fi
[[ ${#seen[@]} -gt 0 ]] || exit 0
if ! xargs -0 -P "$(nproc)" -n 2 sh -c 'exec clang-tidy-19 --quiet -p "$0" "$1"' < "$jobs" 2> /dev/null; then
  printf 'tidy: not clean\n' >&2
  exit 1
fi
printf 'tidy: %d sources are clean\n' "${#seen[@]}"
