#!/usr/bin/env bash
# Configures a preset and builds it; prints the build's output only when it fails.
# Usage: cmake/build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
targets=()
[[ $# -gt 0 ]] && targets=(--target "$@")
mkdir -p "build/$preset"
log=build/$preset/build.log
printf 'Building %s ...\n' "$preset" >&2
if ! { cmake --preset "$preset" && cmake --build --preset "$preset" "${targets[@]}"; } > "$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
