#!/usr/bin/env bash
# Makes a fresh Wine prefix in build/wine/prefix, without a display. What was there before goes.
# Usage: platform/linux/wine/make-prefix.sh
set -euo pipefail
source "$(dirname "$0")/environment.sh"

timeout -k 5 10 wineserver -k > /dev/null 2>&1 || true
rm -rf "$WINEPREFIX"
if ! wine_command 90 wineboot -i > "$wine_folder/wineboot.log" 2>&1; then
  cat "$wine_folder/wineboot.log" >&2
  printf 'make-prefix: wineboot failed\n' >&2
  exit 1
fi
