#!/usr/bin/env bash
# other-architecture.sh BINARY OBJECTS FOLDER: links the OBJECTS (a file of names, for 64-bit ARM) in FOLDER as the
# product is linked in BINARY, with the tools of that build: imports, the fixup table in two links, its check. The
# image's classes must be the product's, with the same methods.
set -euo pipefail

binary=$1 objects=$2 folder=$3
tools=$binary/host/wrt_image_tools
scripts=$(dirname "$(readlink -f "$0")")/../../platform/windows
mkdir -p "$folder"
cd "$folder"

libraries=()
for definition in "$binary"/imports/*.def; do
  library=$(basename "$definition" .def).lib
  llvm-dlltool-19 -m arm64 -d "$definition" -l "$library"
  libraries+=("$library")
done
"$scripts/imported-data.sh" llvm-nm-19 "$objects" imported-data.rsp

lists=(classlist nlclslist catlist protolist classrefs superrefs selrefs protorefs)
link() {
  "$scripts/link.sh" lld-link-19 -lldmingw -exclude-all-symbols -runtime-pseudo-reloc:no /nologo /dll \
    /machine:arm64 /entry:WRTDllEntry /nodefaultlib /opt:noref /merge:.idata=.idata /merge:.CRT=.rdata \
    "${lists[@]/#/"/merge:.objc_"}" /merge:.objc_imageinfo=.rdata @imported-data.rsp "@$objects" "${libraries[@]}" "$@"
}
lists=("${lists[@]/%/=objclist}")
link /out:Other.dll
"$tools/fixuptable" make Other.dll FixupRecords.s
clang-19 --target=aarch64-pc-windows-gnu -c FixupRecords.s -o FixupRecords.o
link /out:Other.dll FixupRecords.o
table=$("$tools/fixuptable" check Other.dll | tail -1)

# Class and selector of each method; encodings differ, since they have offsets.
methods() {
  "$tools/inspectimage" metadata "$1" |
    awk '$1 == "class" { name = $2 } $1 == "protocol" { name = "" } name && /^  [-+] / { print name, $1, $2 }' | sort
}
methods Other.dll > methods.txt
methods "$binary/WRTObjcBridge_zorvex.dll" | diff - methods.txt
echo "64-bit ARM: $("$tools/inspectimage" metadata Other.dll | grep -c "^class ") classes, $(wc -l < methods.txt) methods as in the product; $table"
[[ $table == [1-9]*' 0 differences' && -s methods.txt ]]
