#!/usr/bin/env bash
# Does what README and docs/ say: compiles every sample and builds the application of docs/using.md
# against the installed package, runs every command but ./run, ./test and installing, compares the
# tour's output with what docs/tour.md shows, and looks for every path that is named. Run by CTest.
# Usage: tests/docs/run.sh SOURCE BUILD PREFIX
set -euo pipefail
source=$1 build=$2 prefix=$3
work=$build/docs-test
rm -rf "$work"
mkdir -p "$work/app" "$work/tmp"
unset LD_LIBRARY_PATH
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
cd "$source"

failed=0
fail() {
  printf 'docs: %s\n' "$*" >&2
  failed=1
}

pages=(README.md CONTRIBUTING.md CHANGELOG.md docs/*.md)

# Each fenced block into a file of its own, named after its place and its language. What looks like a
# command or code must stand in such a block.
awk -v work="$work" '
  FNR == 1 { name = FILENAME; gsub(/[\/.]/, "-", name); out = "" }
  /^```/ && out != "" { close(out); out = ""; next }
  /^```/ { out = work "/" name "-" FNR "." (length($0) > 3 ? substr($0, 4) : "text"); printf "" > out; next }
  out != "" { print > out; next }
  /^    +(cmake|clang|cc|gcc|git|ctest|build\/|\.\/)/ && !/^    \.\/(run|test)/ {
    print FILENAME ":" FNR ": a command that is not in a block of sh" > "/dev/stderr"; bad = 1 }
  END { exit bad }' "${pages[@]}" || failed=1

eval "flags=($(pkg-config --cflags wrtobjcbridge))"
samples=0
for sample in "$work"/*.objc; do
  clang-19 -x objective-c -fsyntax-only -Wall -Wextra -Werror -Wno-unused-function "${flags[@]}" \
    "$sample" || fail "$sample does not compile"
  samples=$((samples + 1))
done

# The application that docs/using.md builds: its last sample and its CMakeLists.txt.
cp "$(ls -v "$work"/docs-using-md-*.objc | tail -n 1)" "$work/app/app.m"
cp "$work"/docs-using-md-*.cmake "$work/app/CMakeLists.txt"
commands=0
run() { # FOLDER COMMANDS
  (cd "$1" && PREFIX=$prefix bash -euo pipefail -c "$2") > "$work/log" 2>&1 ||
    { cat "$work/log" >&2; fail "this fails: $2"; }
  commands=$((commands + 1))
}
for block in "$work"/*.sh; do
  case $(head -n 1 "$block") in
    cmake\ --preset*) run "$source" "$(cat "$block")" ;;
    *) run "$work/app" "$(cat "$block")" ;;
  esac
done
# `FILE` stands for a file.
while read -r command; do
  case $command in
    cmake\ --install*) ;;
    *windows-armv7*) printf 'docs: skipped, the stage windows-armv7 does it: %s\n' "$command" ;;
    *wrt_bench*) printf 'docs: skipped, it measures for minutes: %s\n' "$command" ;;
    *tidy.sh*) printf 'docs: skipped, the stage tidy does it: %s\n' "$command" ;;
    *) run "$source" "${command/ FILE/ "$work/tmp/file"}" ;;
  esac
done < <(grep -hoE '`(cmake --|cmake/[a-z]+\.sh |ctest |build/linux/[a-z_]+ )[^`]+`' "${pages[@]}" | tr -d '`' | sort -u)

# The tour, with the times and the folder for temporary files left out.
plain() { sed -E 's/[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}/TIME/; s|is in .*/|is in |'; }
shown=$(grep -lx 'examples/data: 5 files' "$work"/docs-tour-md-*.text)
TMPDIR=$work/tmp "$build/tour" examples/data | plain | diff <(plain < "$shown") - >&2 ||
  fail "the tour prints something else than docs/tour.md shows"

# Paths in backticks, without those that have places to be filled in.
while IFS=: read -r page path; do
  [[ -e $path || $path == build/windows-armv7* || $path == build/wine* || $path == build/site* || $path == build/reference* ]] || compgen -G "$path*" > /dev/null ||
    fail "$page names $path, which there is not"
done < <(grep -oE '`(build|catalogue|cmake|core|docs|examples|generator|generic|marshal|platform|tests|bench)/[A-Za-z0-9_./-]*' \
  "${pages[@]}" | tr -d '`')

printf 'docs: %d samples compiled, %d commands run\n' "$samples" "$commands"
[[ $samples -ge 2 && $commands -ge 3 ]] || fail "where are they?"
exit $failed
