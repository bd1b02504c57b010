#!/usr/bin/env bash
# Measures what the build takes and writes it between the marks in docs/performance.md: bridgegen over all
# declarations, a build for Linux from nothing on two cores, and one after a change of one declaration.
# Works in a copy of the sources, so that neither the folder nor its builds are touched.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
  cat << 'USAGE'
Usage: bench/build-times.sh [--dry-run]
  Builds the committed sources anew and writes the times to docs/performance.md.
  --dry-run prints them instead.
USAGE
}

dry=
case "${1-}" in
  "") ;;
  --dry-run) dry=yes ;;
  -h | --help)
    usage
    exit 0
    ;;
  *)
    printf 'build-times: unknown argument "%s"\n' "$1" >&2
    usage >&2
    exit 2
    ;;
esac

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
git archive HEAD | tar -x -C "$copy"
build=$copy/build/linux

# Seconds on the clock and on the processors for a command, as "1.2 s | 2.3 s".
timed() {
  local TIMEFORMAT='%R %U %S'
  local times
  if ! times=$({ time "$@" > "$copy/log" 2>&1; } 2>&1); then
    tail -n 40 "$copy/log" >&2
    return 1
  fi
  awk '{ printf "%.1f s | %.1f s", $1, $2 + $3 }' <<< "$times"
}

load=$(cut -d ' ' -f 1 /proc/loadavg)
(cd "$copy" && cmake --preset linux > "$copy/configure.log" 2>&1) || {
  cat "$copy/configure.log" >&2
  exit 1
}
product=$(timed ninja -C "$build" -j2 WRTObjcBridge)
everything=$(timed ninja -C "$build" -j2)

mapfile -t declarations < <(find "$copy"/{marshal/test,generic,catalogue} -name '*.idl' | sort)
generator=$(timed "$build/bridgegen" --output "$copy/generated" \
  --hand-written "$copy/core/classes.tsv" "${declarations[@]}")

# One member more in one interface.
changed=$copy/catalogue/Windows.UI.Popups/Windows.UI.Popups.idl
sed -i '/full interface IUICommand {/,/^}/ s/^}/    Int32 Added { get; }\n}/' "$changed"
grep -q 'Int32 Added' "$changed" || {
  printf 'build-times: the declaration to change is not there\n' >&2
  exit 1
}
incremental=$(timed ninja -C "$build" -j2 WRTObjcBridge)
recompiled=$(grep -o 'Building [A-Z]* object [^ ]*' "$copy/log" | sed 's|.*/||; s|\.o$||' | sort |
  sed 's/.*/`&`/' | paste -sd ',' | sed 's/,/, /g')

text="On two cores, the load of the machine being $load at the start:

| what | time | processor time |
|---|---|---|
| \`bridgegen\` over all declarations (${#declarations[@]} files) | $generator |
| the library from nothing (\`WRTObjcBridge\`) | $product |
| the rest of the build, tests and benchmarks included | $everything |
| the library after a member was added in \`Windows.UI.Popups\` | $incremental |

Recompiled after that change: ${recompiled:-nothing}."

if [[ -n $dry ]]; then
  printf '%s\n' "$text"
  exit 0
fi
awk -v text="$text" '
  /<!-- build: begin -->/ { print; print text; inside = 1 }
  /<!-- build: end -->/ { inside = 0 }
  !inside && !/<!-- build: begin -->/ { print }' docs/performance.md > "$copy/performance.md"
cp "$copy/performance.md" docs/performance.md
printf 'docs/performance.md is up to date\n'
