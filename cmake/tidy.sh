#!/usr/bin/env bash
# Runs clang-tidy with .clang-tidy on every source of the linux preset, or on those named, as many at a
# time as there are processors. Headers are looked at with the sources that include them.
# Usage: cmake/tidy.sh [FILE...]
set -euo pipefail
cd "$(dirname "$0")/.."

cmake/build.sh linux bridges # the generated headers
# Without precompiled headers: those need not be built, and what stands in them would not be looked at.
mkdir -p build/linux/tidy
commands=build/linux/tidy/compile_commands.json
sed 's| -Winvalid-pch -Xclang -include-pch -Xclang .*cmake_pch[^ ]*||' build/linux/compile_commands.json > "$commands"
# What is compiled and is not generated, by its path in the repository.
mapfile -t sources < <(sed -n 's|^ *"file": "\(.*\)".*|\1|p' "$commands" |
  sed -n "s|^$PWD/||p" | grep -v '^build/\|\.S$' | sort -u)
if [[ $# -gt 0 ]]; then
  mapfile -t sources < <(comm -12 <(printf '%s\n' "${sources[@]}" | sort) \
    <(printf '%s\n' "$@" | sort -u))
fi
[[ ${#sources[@]} -gt 0 ]] || exit 0
if ! printf '%s\0' "${sources[@]}" |
  xargs -0 -P "$(nproc)" -n 1 clang-tidy-19 --quiet -p build/linux/tidy 2> /dev/null; then
  printf 'tidy: not clean\n' >&2
  exit 1
fi
printf 'tidy: %d sources are clean\n' "${#sources[@]}"
