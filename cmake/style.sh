#!/usr/bin/env bash
# Checks the sources, or those named: clang-format would leave them as they are, and they include nothing
# that the table in docs/architecture.md does not allow; the pictures show what their tables say, and
# documents are wrapped. Changes nothing.
# Usage: cmake/style.sh [FILE...]
set -euo pipefail
cd "$(dirname "$0")/.."

# Everything that belongs here, also where there is no git.
all_files() {
  if [[ -e .git ]]; then
    git ls-files --cached --others --exclude-standard
  else
    find . -path ./build -prune -o -type f -printf '%P\n'
  fi
}

list=$(mktemp)
trap 'rm -f "$list"' EXIT
all_files > "$list"
if [[ $# -eq 0 ]]; then
  mapfile -t files < "$list"
else
  files=("$@")
fi
sources=()
for file in "${files[@]}"; do
  [[ $file =~ \.(h|c|cpp|m|mm)$ && -f $file ]] && sources+=("$file")
done
failed=0
cmake/pictures.sh check || failed=1
cmake/wrap.sh check || failed=1
[[ ${#sources[@]} -gt 0 ]] || exit $failed

printf '%s\0' "${sources[@]}" |
  xargs -0 -P "$(nproc)" -n 40 clang-format-19 --dry-run -Werror || failed=1
[[ $failed -eq 0 ]] || printf 'style: clang-format-19 -i FILE... mends the format\n' >&2
awk -f cmake/rooms.awk -f cmake/arrows.awk docs/architecture.md "$list" "${sources[@]}" >&2 || failed=1
[[ $failed -eq 0 ]] && printf 'style: %d sources, format and arrows as they should be\n' "${#sources[@]}"
exit $failed
