#!/usr/bin/env bash
# change-slot.sh PRODUCT MAP MEMBER SLOT COPY: copies the product with one byte changed, so that the MEMBER, a
# constant that the linker's map names, calls slot 8 in place of SLOT.
set -euo pipefail
product=$1 map=$2 copy=$5

# The word behind the accessor, in the section of constants.
member=$((16#$(awk -v name="$3" '$NF == name {print $1}' "$map")))
read -r begin offset < <(llvm-readobj-19 --sections "$product" |
  awk '/Name: \.rdata/ {on = 1} on && /VirtualAddress/ {begin = $2} on && /PointerToRawData/ {print begin, $2; exit}')
mkdir -p "${copy%/*}"
cp "$product" "$copy"
printf '\10' | dd of="$copy" bs=1 seek=$((member + 4 - begin + offset)) conv=notrunc status=none
[[ $(cmp -l "$product" "$copy" | awk '{print $2, $3}') == "$(printf '%o' "$4") 10" ]]
