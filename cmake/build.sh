#!/usr/bin/env bash
# Configures a preset and builds it; prints the build's output only when it fails. On a terminal one
# line shows how far it is. Where the generator is not what is tested, that of the preset linux serves.
# Usage: cmake/build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
options=()
if [[ $preset == windows-armv7 || $preset == linux-tsan ]]; then
  cmake/build.sh linux bridgegen apitable
  options=("-DWRT_TOOLS_OF=$PWD/build/linux")
fi
targets=()
[[ $# -gt 0 ]] && targets=(--target "$@")
log=build/$preset/build.log
if ! { mkdir -p "build/$preset" && : > "$log"; }; then
  printf 'build: cannot write %s/%s\n' "$PWD" "$log" >&2
  exit 1
fi

# Ninja begins its lines with "[steps done/steps]".
show_progress() {
  local line
  while IFS= read -r line; do
    [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] &&
      printf '\r\033[KBuilding %s: %d of %d' "$preset" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}" >&2
  done
  printf '\r\033[K' >&2
}

printf 'Building %s ...' "$preset" >&2
if [[ -t 2 ]]; then
  progress=show_progress
else
  printf '\n' >&2
  progress='cat > /dev/null'
fi
if ! { cmake --preset "$preset" "${options[@]}" && cmake --build --preset "$preset" "${targets[@]}"; } 2>&1 |
  tee "$log" | eval "$progress"; then
  cat "$log" >&2
  printf 'build: %s cannot be built; see above, and %s/%s\n' "$preset" "$PWD" "$log" >&2
  exit 1
fi
