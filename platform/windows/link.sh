#!/bin/sh
# link.sh LINKER ARGUMENT...: runs lld-link and lets no warning pass.
#
# One warning comes with every image: lld merges .idata into .rdata by itself and says so when it is
# told not to. That line is dropped; any other makes the link fail.
set -u

messages=$("$@" 2>&1)
status=$?
rest=$(printf '%s' "$messages" |
  grep -v 'warning: \.idata=\.rdata: already merged into \.idata' || true)
if [ -n "$rest" ]; then
  printf '%s\n' "$rest" >&2
  [ "$status" -ne 0 ] || status=1
fi
exit "$status"
