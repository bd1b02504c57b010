#!/usr/bin/env bash
# Shows a program to gdb or lldb in batch mode and looks for what they are to show. Where the debugger
# cannot be had, or may not look at processes, ends with 77, which CTest counts as skipped.
# Usage: tests/debug/debuggers.sh gdb|lldb BUILD
set -euo pipefail
export LC_ALL=C.UTF-8
debugger=$1 build=$2
work=$build/debugger-test/$debugger
rm -rf "$work"
mkdir -p "$work"
skip() { printf 'debuggers: skipped, %s\n' "$1"; exit 77; }

case $debugger in
  gdb)
    start=(gdb -nx -q -batch) option=-ex load=source
    begin=('set debuginfod enabled off' 'set pagination off' 'set breakpoint pending on')
    program='file' break='break' show='print' off='set wrt-ask off' core=$'\ncore-file' ascii='"Gr\\xfc\\xdfe"'
    ;;
  lldb)
    start=(lldb-19 -x -b) option=-o load='command script import'
    begin=('settings set symbols.enable-external-lookup false')
    program='target create' break='breakpoint set -n' show='frame variable' off='wrt-ask off' core=' --core' ascii='"Grüße"'
    ;;
esac
command -v "${start[0]}" > "$work/which" || skip "there is no ${start[0]}"
# look VIEWS COMMAND...: what the debugger prints.
look() {
  local arguments=()
  for each in "${begin[@]}" "$load $1/wrt_$debugger.py" "${@:2}"; do arguments+=("$option" "$each"); done
  "${start[@]}" "${arguments[@]}" 2>&1 || true
}
# look_at_core PROGRAM CORE COMMAND...
look_at_core() {
  mapfile -t opening <<< "$program $1$core $2"
  look "$views" "${opening[@]}" "${@:3}"
}

failed=0
# shows TITLE PATTERN...: each pattern fits a line of $output.
shows() {
  for pattern in "${@:2}"; do
    grep -qE -- "$pattern" <<< "$output" || { printf 'debuggers: %s, %s: no "%s" in\n%s\n' "$debugger" "$1" "$pattern" "$output" >&2; failed=1; }
  done
}

views=$build/wrtobjcbridge
output=$(look "$views" "$program $build/debuggee" "$break look" run "$show bridge" "$show string" \
  "$show identifier" "$show status" "$show plain" "$off" "$show bridge" \
  "$break WRTIUnknownQueryInterface" continue wrt-member bt kill)
grep -qE 'ptrace: Operation not permitted|personality set failed|process launch failed' <<< "$output" && skip "processes may not be looked at: $output"
shows "a process" \
  'WRTIStorageItemBridge 0x[0-9a-f]+ of Windows\.Foundation\.Uri, 2 references to the bridge, 2 to the object$' \
  '"Grüße"' 'IStorageItem \{4207a996-ca2f-42f7-bde8-8b10457a7f30\}' 'E_BOUNDS \(0x8000000B\)' \
  'WRTIStorageItemBridge 0x[0-9a-f]+ of an object 0x[0-9a-f]+ \(vtable for .*Uri.*\), 2 references to the bridge$' \
  '^(\(lldb\) )?Windows\.Storage\.IStorageItem\.get_Name, slot 11 of IStorageItem$'

# Unoptimized, the generated method has a frame of its own.
grep -q '^CMAKE_BUILD_TYPE:.*=Debug$' "$build/CMakeCache.txt" &&
  shows "the frames of linux-debug" '-\[WRTIStorageItemBridge getNameWithError:\]'

# Tables of another version.
cp -R "$views" "$work/views"
printf 'none\n' > "$work/views/identifiers.tsv"
output=$(look "$work/views")
shows "other tables" '^wrt: .*/identifiers.tsv is of another version: line 1 has 1 columns$'
rm "$work/views/identifiers.tsv"
output=$(look "$work/views")
shows "no tables" '^wrt: identifiers.tsv is not in '

# Core files, which gdb writes: with symbols, and of libraries without.
if command -v gdb > "$work/which"; then
  write_core() { # PROGRAM CORE
    gdb -nx -q -batch -ex 'set debuginfod enabled off' -ex 'set breakpoint pending on' -ex "break ${3-look}" -ex run \
      -ex "generate-core-file $2" -ex kill "$1" > "$work/gdb" 2>&1 || cat "$work/gdb" >&2
  }
  write_core "$build/debuggee" "$work/core"
  # On a terminal that knows ASCII alone.
  output=$(LC_ALL=C look_at_core "$build/debuggee" "$work/core" "$show bridge" "$show string")
  shows "a core file" 'WRTIStorageItemBridge 0x[0-9a-f]+ of an object 0x[0-9a-f]+ \(vtable for .*Uri.*\), 2 references to the bridge' "$ascii"

  mkdir "$work/stripped"
  cp "$build"/*.so.1 "$work/stripped/"
  cp "$build/debuggee" "$work/stripped/"
  strip "$work/stripped"/*
  (export LD_LIBRARY_PATH=$work/stripped; write_core "$work/stripped/debuggee" "$work/plain-core" WRTIUnknownQueryInterface)
  output=$(look_at_core "$work/stripped/debuggee" "$work/plain-core" wrt-member)
  shows "a core file without symbols" '^wrt-member: neither this frame nor one that called it is of wrt::call'
else
  printf 'debuggers: core files are left out, there is no gdb to write them\n'
fi

[[ $failed -eq 0 ]] && printf 'debuggers: %s shows what it is to show\n' "$debugger"
exit $failed
