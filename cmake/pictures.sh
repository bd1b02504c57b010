#!/usr/bin/env bash
# Draws the pictures of docs/images that show tables of the documents: the rooms, and what the product is
# made of. With "check" writes nothing and fails if one would change.
# Usage: cmake/pictures.sh [check]
set -euo pipefail
cd "$(dirname "$0")/.."

drawn=$(mktemp -d)
trap 'rm -rf "$drawn"' EXIT
awk -f cmake/rooms.awk -f cmake/architecture-picture.awk docs/architecture.md > "$drawn/architecture.svg"
awk -f cmake/size-picture.awk docs/size.md > "$drawn/size.svg"
for picture in architecture size; do
  cmp -s "$drawn/$picture.svg" "docs/images/$picture.svg" && continue
  if [[ ${1-} == check ]]; then
    printf 'pictures: docs/images/%s.svg is not what its table says; cmake/pictures.sh draws it\n' "$picture" >&2
    exit 1
  fi
  cp "$drawn/$picture.svg" "docs/images/$picture.svg"
done
