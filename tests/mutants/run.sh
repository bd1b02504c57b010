#!/usr/bin/env bash
# Makes each deliberate change of changes.txt in a copy of the tree, builds what it touches, runs the tests
# that could notice and prints which cell or test fell first. Fails if one survives or no longer applies.
# Usage: tests/mutants/run.sh [PATTERN]   only the changes whose file or description contains PATTERN
set -euo pipefail
cd "$(dirname "$0")/../.."

list=$PWD/tests/mutants/changes.txt
pattern=${1-}
# The copy stays, and so does its build: only what differs from last time is compiled again.
tree=$PWD/build/mutants/tree
build=$PWD/build/mutants/build
log=$PWD/build/mutants/log
changed=$PWD/build/mutants/changed
mkdir -p "$build"
rm -rf "$tree" && mkdir "$tree"
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$tree"
# A run that was ended in the middle has left objects of a change behind.
[[ ! -f $changed ]] || touch -c "$(< "$changed")"

# What is built often and run once is not optimized.
configure=(cmake --preset linux -S "$tree" -B "$build" -DCMAKE_BUILD_TYPE=Quick)
for language in C CXX OBJC OBJCXX; do
  configure+=("-DCMAKE_${language}_FLAGS_QUICK=-O0 -DNDEBUG")
done

# make TEST...: the test NAME is the program NAME_tests, with underscores for dots.
make() {
  local targets=("${@//./_}")
  targets=("${targets[@]%_tests}")
  { "${configure[@]}" && cmake --build "$build" --target "${targets[@]/%/_tests}"; } > "$log" 2>&1
}

# passes TEST...: all of them; otherwise the first that fell is in $fell.
passes() {
  local names
  names=$(IFS='|' && echo "$*")
  (cd "$build" && ctest -R "^(${names//./\\.})\$" --output-on-failure --no-tests=error --timeout 60 --stop-on-failure) \
    > "$log" 2>&1 && return 0
  fell=$(sed -n 's/.*\[  FAILED  \] \([^ ,]*\).*/\1/p' "$log" | grep -m1 '\.' ||
    sed -n 's/.*\[ RUN      \] //p' "$log" | tail -n 1)
  # A program that ended in the middle or has no cells is named itself.
  [[ -n $fell ]] || fell=$(sed -n 's/.*Test *#[0-9]*: \([^ ]*\) .*\(Failed\|Timeout\|Exception\|Abort\).*/\1/p' "$log" | head -n 1)
  return 1
}

count=0 wrong=0

# apply FILE OLD NEW: where the old text stands exactly once.
apply() {
  local text rest
  text=$(cat "$tree/$1" && echo .) || return 1
  rest=${text#*"$2"}
  [[ $rest != "$text" && $rest != *"$2"* ]] || return 1
  echo "$tree/$1" > "$changed"
  text=${text/"$2"/"$3"}
  printf '%s' "${text%.}" > "$tree/$1"
}

# try WHAT FILE TESTS OLD NEW
try() {
  local what=$1 file=$2 outcome tests
  read -ra tests <<< "$3"
  [[ -z $pattern || "$file $what" == *"$pattern"* ]] || return 0
  count=$((count + 1))
  if ! apply "$file" "$4" "$5"; then
    outcome="NO LONGER APPLIES"
  elif ! make "${tests[@]}"; then
    outcome="DOES NOT BUILD: $(grep -m1 -E 'error|FAILED' "$log" || true)"
  elif passes "${tests[@]}"; then
    outcome=SURVIVED
  else
    outcome=$fell
  fi
  case $outcome in
    SURVIVED | "NO LONGER"* | "DOES NOT"*) wrong=$((wrong + 1)) ;;
  esac
  printf '%-34s %-62s %s\n' "$file" "$what" "$outcome"
  # As new, so that its objects are made again.
  cp "$file" "$tree/$file"
}

# Each change is a description, FILE: TESTS, the old text and the new.
what='' file='' tests='' old='' new=''
flush() {
  [[ -z $file ]] || try "$what" "$file" "$tests" "${old%$'\n'}" "${new%$'\n'}"
  what='' file='' tests='' old='' new=''
}

mapfile -t all < <(sed -n 's/^[^#+ -][^ ]*: //p' "$list" | tr ' ' '\n' | sort -u)
if ! make "${all[@]}" || ! passes "${all[@]}"; then
  printf 'mutants: the tree fails without any change:\n' >&2
  cat "$log" >&2
  exit 1
fi
while IFS= read -r line; do
  case "$line" in
    '') flush ;;
    '# '*) what=${line#\# } ;;
    '- '*) old+=${line#- }$'\n' ;;
    '+ '*) new+=${line#+ }$'\n' ;;
    +) ;;
    *': '*) file=${line%%: *} tests=${line#*: } ;;
    *)
      printf 'mutants: %s: cannot read "%s"\n' "$list" "$line" >&2
      exit 2
      ;;
  esac
done < "$list"
flush
printf '%d changes, %d not noticed or not made\n' "$count" "$wrong"
[[ $wrong -eq 0 ]]
