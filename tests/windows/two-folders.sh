#!/usr/bin/env bash
# two-folders.sh SOURCE BINARY FOLDER: builds the product once more in FOLDER, from copies of SOURCE and of what is
# generated in BINARY and by the commands of BINARY's build. Fails where an object or a result differs from BINARY's.
set -euo pipefail

source=$1 binary=$2 folder=$3
copy=$folder/some/where/else mirror=$folder/binary
rm -rf "$folder"
mkdir -p "$copy" "$mirror"/{imports,platform/windows,WRTObjcBridge.link/first}
cp -r "$source"/{core,marshal,platform} "$copy"
cp -r "$binary"/{Classes.mm,abi,classes,include,members} "$mirror"
find "$binary/platform" -maxdepth 1 -type f -exec cp -t "$mirror/platform" {} +
# Tools and system headers are the same, but go by another name.
ln -s "$binary"/{host,sysroot} "$mirror"

# What is replaced may stand in what it is replaced by.
ninja -C "$binary" -t commands WRTObjcBridge |
  sed "s|$binary|@binary@|g; s|$source|@source@|g; s|@binary@|$mirror|g; s|@source@|$copy|g" > "$folder/commands"
mapfile -t objects < <(sed -nE 's/.* -o ([^ ]+) -c [^ ]+(mm|cpp)$/\1/p' "$folder/commands")
results=(WRTObjcBridge_zorvex.{dll,lib,map,pdb})

cd "$mirror"
for object in "${objects[@]}"; do
  mkdir -p "$(dirname "$object")"
done
sed "s|^$binary|$mirror|" "$binary/WRTObjcBridge.link/objects.txt" > WRTObjcBridge.link/objects.txt
# A compiler's cache would answer with what it has from the other folder.
export CCACHE_DISABLE=1
grep -E ' -c [^ ]+(mm|cpp)$' "$folder/commands" | tac | xargs -d '\n' -P 2 -n 1 sh -c
grep dlltool "$folder/commands" | xargs -d '\n' -n 1 sh -c
grep lld-link "$folder/commands" | xargs -d '\n' -n 1 sh -c > "$folder/link.log"

differing=0
for file in "${objects[@]}" "${results[@]}"; do
  cmp "$file" "$binary/$file" || differing=$((differing + 1))
done
printf '%d objects, %d results in two folders, %d differ\n' "${#objects[@]}" "${#results[@]}" "$differing"
[[ ${#objects[@]} -gt 0 && $differing -eq 0 ]] || exit 1
rm -rf "$folder"
