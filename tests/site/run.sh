#!/usr/bin/env bash
# Builds the reference and checks it: time, sizes, links, and in headless Chromium what readers do.
# Chromium is installed when it is missing; where it cannot be had the checks in it count as skipped.
# Usage: tests/site/run.sh
set -euo pipefail
cd "$(dirname "$0")/../.."
here=tests/site site=build/site
readonly max_seconds=30 max_site=40000000 max_view=200000 names=300

failed=0
check() { # what, figure, limit
  printf 'site: %s: %s, at most %s\n' "$1" "$2" "$3"
  if [[ $2 -gt $3 ]]; then
    printf 'site: FAILED: %s\n' "$1"
    failed=1
  fi
}

cmake/build.sh linux bridges
cmake/install-packages.sh cmake/site-packages.txt
# Of the processors, since how busy the machine is says nothing of the site.
exec 3>&2
spent=$({ TIMEFORMAT='%U %S' && time ./reference >&3 2>&3; } 2>&1)
check "seconds of processors to build it" "$(awk '{ print int($1 + $2 + 0.5) }' <<< "$spent")" $max_seconds

mapfile -t pages < <(cd $site && find . -name '*.html')
(cd $site && awk -f "$OLDPWD/$here/links.awk" "${pages[@]}") || failed=1

# What a page loads before anybody searches.
shared=$(cat $site/look/* $site/search/search.js | wc -c)
largest=$(cd $site && wc -c "${pages[@]}" | grep -v ' total$' | sort -n | tail -n 1 | awk '{ print $1 }')
check "bytes of the largest page with what it loads" $((largest + shared)) $max_view

# A sample of the public names: methods, classes, WinRT's classes, constants, functions. What begins with a
# dot is the compiler's.
sample=$(mktemp)
trap 'rm -f "$sample"' EXIT
{
  cut -f 1 build/linux/catalogue.tsv
  cut -f 3 build/linux/catalogue.tsv
  awk -F '\t' '$1 == "class" { print $4 }' build/linux/identifiers.tsv
  sed -n 's/^  \(WRT[A-Za-z0-9_]*\) = .*/\1/p' build/linux/include/WRTObjcBridge/types/*.h
  sed -n 's/^[A-Za-z].*[ *]\(WRT[A-Za-z0-9]*\)(.*;.*/\1/p' core/WRT*.h support/WRT*.h
} | grep -v '^\.' | sort -u | awk -v wanted=$names '{ line[NR] = $0 } END {
  for (i = 0; i < wanted; ++i) print line[int(i * NR / wanted) + 1] }' > "$sample"

if cmake/install-packages.sh $here/packages.txt; then
  timeout 300 /usr/bin/python3 $here/site.py $site "$sample" || failed=1
  check "bytes of the site" "$(find $site -type f -printf '%s\n' | awk '{ n += $1 } END { print n }')" $max_site
else
  printf '\n*** site: NOT TESTED in a browser: Chromium cannot be installed here; its checks are skipped\n\n'
fi
exit $failed
