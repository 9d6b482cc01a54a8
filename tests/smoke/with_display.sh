#!/usr/bin/env bash
# with_display.sh PROGRAM ARGS...: runs a program on a virtual display with a window manager.
set -euo pipefail
tests=$(dirname "${BASH_SOURCE[0]}")/..
. "$tests/../scripts/virtual_display.sh"
. "$tests/support/own_desktop.sh"

runtime=$(mktemp -d)
export XDG_RUNTIME_DIR=$runtime
export QT_QPA_PLATFORM=xcb
startVirtualDisplay 1600x1000
trap 'endVirtualDisplay; rm -rf "$runtime"' EXIT
"$@"
