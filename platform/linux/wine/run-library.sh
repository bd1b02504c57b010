#!/usr/bin/env bash
# Runs the `main` of a shared library of this project inside Wine, with a time limit. The prefix and
# the host must have been made.
# Usage: platform/linux/wine/run-library.sh SECONDS LIBRARY [ARGUMENT...]
set -euo pipefail
source "$(dirname "$0")/environment.sh"

seconds=$1
library=$(realpath "$2")
shift 2
wine_command "$seconds" "$wine_folder/host.exe.so" "$library" "$@"
