#!/usr/bin/env bash
# Shows what a WinRT that others wrote says of the system: runs the example examples/system in Wine.
# Usage: platform/linux/wine/tour.sh
set -euo pipefail
cd "$(dirname "$0")/../../.."

cmake/install-packages.sh
cmake/install-packages.sh platform/linux/wine/packages.txt
source platform/linux/wine/environment.sh
[[ -d $WINEPREFIX/drive_c ]] || platform/linux/wine/make-prefix.sh
cmake/build.sh linux WRTBridge_wine wine_system
platform/linux/wine/build-host.sh
trap 'timeout -k 5 10 wineserver -k > /dev/null 2>&1 || true' EXIT
printf 'In Wine (%s):\n' "$(wine64 --version)"
platform/linux/wine/run-library.sh 60 build/linux/libwine_system.so
