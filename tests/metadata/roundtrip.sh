#!/usr/bin/env bash
# The catalogue as Windows metadata and back: declarations -> IL -> ilasm -> import -> declarations,
# which must give the same surface. What metadata cannot say stays as declared: the generic families
# and the test interfaces. Arguments: the repository, the folder of the programs, a folder to work in.
# Exit status 77 without ilasm (Debian's mono-devel).
set -euo pipefail
source=$1 programs=$2 work=$3

if ! command -v ilasm > /dev/null; then
  echo "SKIPPED: the catalogue's round trip through metadata needs ilasm (package mono-devel)"
  exit 77
fi
rm -rf "$work"
mkdir -p "$work/families"
for file in "$source"/generic/*.idl; do
  # The families without the lists of their instances, and without what only those name.
  sed -e '/^\(full\|proxy\|extern\) [A-Z].*;$/d' -e '/^\(full\|proxy\|extern\)\( [A-Z]\|$\)/,/;/d' -e '/^using Windows\.Foundation\(\.Collections\)\?;/b' -e '/^using /d' "$file" > "$work/families/${file##*/}"
done
{
  # The types that the families themselves name.
  echo 'namespace Windows.Foundation;'
  grep -h '^enum AsyncStatus ' "$source"/catalogue/Windows.Foundation/*.idl
  echo 'namespace Windows.Foundation.Collections;'
  grep -h 'interface IVectorChangedEventArgs ' "$source"/catalogue/Windows.Foundation.Collections/*.idl
} > "$work/families/named.idl"

"$programs/metadata_tool" il "$work/catalogue.il" "$work/selection.toml" \
  "$source"/generic/*.idl "$source"/catalogue/*/*.idl
ilasm /quiet /dll "/output:$work/catalogue.dll" "$work/catalogue.il" > "$work/ilasm.log" || {
  cat "$work/ilasm.log"
  exit 1
}
"$programs/metadata_tool" winmd "$work/catalogue.dll" "$work/catalogue.winmd"
started=$(date +%s%N)
"$programs/bridgegen" import "$work/catalogue.winmd" --output "$work/declarations" \
  --known "$work/families" --selection "$work/selection.toml" 2> "$work/notes"
took=$((($(date +%s%N) - started) / 1000000))
tail -n 1 "$work/notes"
"$programs/bridgegen" --output "$work/generated" --hand-written "$source/core/classes.tsv" \
  "$work"/declarations/*.idl "$work"/families/*.idl "$source"/marshal/test/*.idl

sort "$programs/surface.digest" > "$work/expected"
sort "$work/generated/surface.digest" > "$work/found"
differences=$(diff "$work/expected" "$work/found" | grep -c '^[<>]' || true)
echo "$(wc -l < "$work/found") classes, $differences differences, imported in $took ms"
[[ $differences -eq 0 ]] || { diff "$work/expected" "$work/found" | head -n 20; exit 1; }
