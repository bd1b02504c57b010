#!/usr/bin/env bash
# planted-slot.sh SWEEP CATALOGUE IDENTIFIERS MAP FOLDER DLL...
#
# Whether the sweep notices one wrong slot: in a copy of the product, the last DLL, IAsyncInfo.Status
# calls slot 8 in place of 7. Sweeps that interface's class before and after.
set -euo pipefail
sweep=$1 catalogue=$2 identifiers=$3 map=$4 folder=$5 images=("${@:6}")
product=${images[-1]}

mkdir -p "$folder"
few=$folder/catalogue.tsv copy=$folder/${product##*/}
grep '^WRTIAsyncInfoBridge' "$catalogue" >"$few"
"$sweep" "$few" "$identifiers" "${images[@]}" | sed 's/^arm: /as it is: /'

"${0%/*}/../change-slot.sh" "$product" "$map" wrt::IAsyncInfo::get_Status 7 "$copy"
images[-1]=$copy
status=0
found=$("$sweep" "$few" "$identifiers" "${images[@]}") || status=$?
sed 's/^arm: /changed: /' <<<"$found"
# Its two outcomes that reach the slot and nothing else, found and no failure of the sweep's own.
[[ $status == 1 && $found == *", 2 wrong" ]]
[[ $(grep -c 'getStatusWithError:.*: slot 8 is called' <<<"$found") == 2 ]]
