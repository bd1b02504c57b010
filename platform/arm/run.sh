#!/usr/bin/env bash
# Builds the product and runs it on the emulated ARM machine.
set -euo pipefail
cd "$(dirname "$0")/../.."

cmake/install-packages.sh
cmake/build.sh windows-armv7
images=build/windows-armv7
exec $images/host/wrt_arm_calls/armcalls run \
  $images/arm/{crt,zorvex,WRTBridge_zorvex,WRTBridgeUtil_zorvex,CrossPortability_zorvex}.dll \
  $images/WRTObjcBridge_zorvex.dll
