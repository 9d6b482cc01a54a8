#!/usr/bin/env bash
# with_display.sh PROGRAM ARGS...: runs a program on a virtual display with a window manager, without
# a bus or a session to talk to.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/virtual_display.sh"

runtime=$(mktemp -d)
export XDG_RUNTIME_DIR=$runtime DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
export QT_QPA_PLATFORM=xcb
startVirtualDisplay 1600x1000
trap 'endVirtualDisplay; rm -rf "$runtime"' EXIT
"$@"
