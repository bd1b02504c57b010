#!/usr/bin/env bash
# smoke.sh ARMPROGRAM KIT/bin FOLDER MAP DOUBLE...
#
# Runs the kit's smoke program with the kit's image; then without the image, with a copy whose `Uri.Host` calls slot 8
# in place of 11, and with one that lacks a class's export: each must be told.
set -euo pipefail
run=$1 kit=$2 folder=$3 map=$4 doubles=("${@:5}")
program=$kit/wrtsmoke.exe product=$kit/WRTObjcBridge_zorvex.dll
copy=$folder/${product##*/}

# expect STATUS PATTERN DLL...: the program's exit status, and a line of what it prints.
expect() {
  local status=0 output
  output=$("$run" "$program" "${doubles[@]}" "${@:3}") || status=$?
  if [[ $status != "$1" ]] || ! grep -qx -- "$2" <<<"$output"; then
    printf '%s\nexit status %s, not %s, or no line: %s\n' "$output" "$status" "$1" "$2"
    exit 1
  fi
  [[ $1 != 0 ]] || printf '%s\n' "$output"
}

expect 0 '0 of 20 calls wrong' "$product"
expect 100 'load: .* cannot be loaded, error 126'

"${0%/*}/change-slot.sh" "$product" "$map" wrt::IUriRuntimeClass::get_Host 11 "$copy"
expect 1 'WRTUriBridge getHostWithError: fails with 0x80004001: WRONG' "$copy"

LC_ALL=C sed 's/OBJC_CLASS_\$_WRTUriBridge\x00/OBJC_CLASS_$_WRTUriBrigde\x00/g' "$product" >"$copy"
expect 101 'start-up: WRTUriBridge start-up: there is no OBJC_CLASS_\$_WRTUriBridge' "$copy"
