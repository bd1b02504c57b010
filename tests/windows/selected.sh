#!/bin/sh
# selected.sh SOURCE BINARY WORK INSPECTIMAGE: builds the product of a few types alone in WORK, with the system headers
# and the tools of BINARY, and compares the image with its own catalogue. What BINARY has of other types is not there.
set -eu
source=$1 binary=$2 work=$3 inspectimage=$4
rm -rf "$work"
cached() { sed -n "s/^$1:[A-Z]*=//p" "$binary/CMakeCache.txt"; }
cmake --preset windows-armv7 -S "$source" -B "$work" -DWRT_ARM_SYSROOT="$binary/sysroot" \
  -DWRT_TOOLS_OF="$(cached WRT_TOOLS_OF)" -DWRT_HOST_TOOLS_OF="$binary" \
  "-DWRT_SELECT=Windows.UI.Popups.MessageDialog;Windows.Foundation.Uri" > "$work.log"
cmake --build "$work" --target WRTObjcBridge >> "$work.log" || { cat "$work.log"; exit 1; }

"$inspectimage" compare "$work/WRTObjcBridge_zorvex.dll" "$work/catalogue.tsv"
"$inspectimage" metadata "$work/WRTObjcBridge_zorvex.dll" > "$work/metadata"
for name in WRTMessageDialogBridge WRTUriBridge WRTIUICommandBridge; do
  grep -q "$name" "$work/metadata" || { echo "selected: $name is missing"; exit 1; }
done
if grep WRTXmlDocumentBridge "$work/metadata"; then
  echo "selected: what nobody selected is there"
  exit 1
fi
