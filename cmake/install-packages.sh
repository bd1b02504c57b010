#!/usr/bin/env bash
# Installs the Debian packages of a list that are missing: cmake/packages.txt, or the one given.
# Usage: cmake/install-packages.sh [LIST]
set -euo pipefail

list=${1-$(dirname "$0")/packages.txt}
missing=()
while read -r package _; do
  [[ -z $package || $package == \#* ]] && continue
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$package")
done < "$list"
[[ ${#missing[@]} -eq 0 ]] && exit 0

say() { printf 'install-packages: %s\n' "$*" >&2; }
if ! command -v apt-get > /dev/null; then
  say "this needs Debian 12 (apt-get was not found); please install: ${missing[*]}"
  exit 1
fi
as_root=()
if [[ $(id -u) -ne 0 ]]; then
  if ! command -v sudo > /dev/null; then
    say "neither root nor sudo; please install: ${missing[*]}"
    exit 1
  fi
  as_root=(sudo)
fi
say "installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get -q update &&
  "${as_root[@]}" apt-get -q install -y --no-install-recommends "${missing[@]}"; } > "$log" 2>&1; then
  tail -n 20 "$log" >&2
  say "could not install ${missing[*]}; the last lines of apt-get stand above"
  exit 1
fi
