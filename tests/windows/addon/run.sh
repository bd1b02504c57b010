#!/bin/sh
# The greeter's bridges built with an installed kit, checked and run in the emulated machine beside the
# product. Usage: run.sh SOURCE KIT WORK SYSROOT INSPECTIMAGE RUNEMULATED LIBRARIES IMAGE...
# LIBRARIES are the import libraries of the doubles, separated by semicolons; the images are loaded first.
set -eu
source=$1 kit=$2 work=$3 sysroot=$4 inspectimage=$5 runemulated=$6 libraries=$7
shift 7
rm -rf "$work"
cmake -G Ninja -S "$source/tests/windows/addon" -B "$work" --toolchain "$kit/toolchain/toolchain.cmake" \
  -DCMAKE_PREFIX_PATH="$kit" -DCMAKE_FIND_ROOT_PATH="$kit" -DWRT_ARM_SYSROOT="$sysroot" \
  -DEXAMPLE="$source/examples/greeter" -DSOURCE="$source" "-DDOUBLES=$libraries"
cmake --build "$work"

# Its own classes as bridgegen tells them; the product's, which it completes, are not in it.
image=$work/GreeterBridge.dll
grep -v '^WRTI' "$work/GreeterBridge.bridges/catalogue.tsv" > "$work/own.tsv"
"$inspectimage" compare "$image" "$work/own.tsv"
# Beside its classes it exports delegate factories.
sed -n 's/.*\(ContosoWRT[A-Za-z0-9_]*FromBlock\)(.*/\1/p' \
  "$work"/GreeterBridge.bridges/platform/*.h | sort -u > "$work/functions"
: > "$work/none"
# shellcheck disable=SC2046
"$inspectimage" check "$image" "$source/tests/windows/addon/imports.txt" "$work/none" $(cat "$work/functions")
"$runemulated" "$@" "$kit/bin/WRTObjcBridge_zorvex.dll" "$image" "$work/addontest.dll"

# Another image is another version.
cp -r "$kit" "$work/kit"
printf x >> "$work/kit/bin/WRTObjcBridge_zorvex.dll"
if cmake -G Ninja -S "$source/tests/windows/addon" -B "$work/other" --toolchain "$work/kit/toolchain/toolchain.cmake" \
  -DCMAKE_PREFIX_PATH="$work/kit" -DCMAKE_FIND_ROOT_PATH="$work/kit" -DWRT_ARM_SYSROOT="$sysroot" \
  -DEXAMPLE="$source/examples/greeter" -DSOURCE="$source" > "$work/log" 2>&1 ||
  ! grep -q 'another version' "$work/log"; then
  cat "$work/log"
  exit 1
fi
