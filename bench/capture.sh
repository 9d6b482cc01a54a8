#!/usr/bin/env bash
# capture.sh: runs capture_bench of the release build on a virtual display of 2560 x 1440.
set -euo pipefail
root=$(dirname "${BASH_SOURCE[0]}")/..
. "$root/scripts/virtual_display.sh"
export QT_QPA_PLATFORM=xcb DBUS_SESSION_BUS_ADDRESS=disabled:
startVirtualDisplay 2560x1440
"$root/${BUILD:-build/release}/bench/capture_bench"
