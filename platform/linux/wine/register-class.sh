#!/usr/bin/env bash
# Makes a runtime class of a component's DLL known to Wine's combase.
# Usage: platform/linux/wine/register-class.sh CLASS DLL
set -euo pipefail
source "$(dirname "$0")/environment.sh"

# Drive Z: is the whole file system.
path="Z:$(realpath "$2" | tr / '\\')"
wine_command 30 reg add \
  "HKLM\\Software\\Microsoft\\WindowsRuntime\\ActivatableClassId\\$1" \
  /v DllPath /t REG_SZ /d "$path" /f > /dev/null
