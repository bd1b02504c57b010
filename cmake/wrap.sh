#!/usr/bin/env bash
# Wraps README and the documents at 120 columns. With "check" writes nothing and fails if one would change.
# Usage: cmake/wrap.sh [check]
set -euo pipefail
cd "$(dirname "$0")/.."

wrapped=$(mktemp)
trap 'rm -f "$wrapped"' EXIT
for file in *.md docs/*.md; do
  LC_ALL=C awk -f cmake/wrap.awk "$file" > "$wrapped"
  cmp -s "$wrapped" "$file" && continue
  if [[ ${1-} == check ]]; then
    printf 'wrap: %s is not wrapped at 120 columns; cmake/wrap.sh does it\n' "$file" >&2
    exit 1
  fi
  cat "$wrapped" > "$file"
done
