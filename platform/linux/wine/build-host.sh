#!/usr/bin/env bash
# Builds the host program build/wine/host.exe.so, which runs libraries of build/linux inside Wine.
# Usage: platform/linux/wine/build-host.sh (after `cmake/build.sh linux WRTBridge_wine`)
set -euo pipefail
cd "$(dirname "$0")/../../.."
source platform/linux/wine/environment.sh

clang++-19 -std=c++20 -fPIC -g -Wall -Wextra -Werror -DWINE_UNICODE_CHAR16 \
  -isystem /usr/include/wine/wine/windows -I. -Iplatform/include -Ibuild/linux/include \
  -c platform/linux/wine/host/Host.cpp -o "$wine_folder/host.o"
wineg++ -m64 -o "$wine_folder/host" "$wine_folder/host.o" \
  -Lbuild/linux -lWRTBridge_wine -Wl,-rpath,"$PWD/build/linux" -lcombase -lole32
