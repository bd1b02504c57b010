#!/usr/bin/env bash
# Builds the test component as a Windows DLL, build/wine/testcomponent.dll: the component of
# tests/component and the base classes of the embedded platform's components, over combase.
# Usage: tests/wine/build-component.sh (after `cmake/build.sh linux`)
set -euo pipefail
cd "$(dirname "$0")/../.."

mkdir -p build/wine
# The threads of winpthreads come with the DLL, as does everything else of the compiler's.
x86_64-w64-mingw32-g++-posix -std=c++20 -g -O1 -Wall -Wextra -Werror -fno-exceptions -fno-rtti \
  -I. -Iplatform/include -Ibuild/linux/include -Ibuild/linux \
  platform/linux/activation/ActivationRegistry.cpp platform/linux/implement/Object.cpp \
  tests/component/TestObject.cpp tests/component/Answers.cpp tests/component/Narrow.cpp \
  tests/wine/component/*.cpp \
  -shared -static -o build/wine/testcomponent.dll -lruntimeobject -lole32
