#!/usr/bin/env bash
# with_desktop.sh none|tiling|panel|sway PROGRAM ARGS...: runs a program on a display whose desktop has
# ideas of its own about the place of a window, without a bus or a session to talk to. none is an X
# server alone, panel has a panel at the left side.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/virtual_display.sh"

desktop=$1
shift
size=1600x1000
runtime=$(mktemp -d)
export XDG_RUNTIME_DIR=$runtime DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY
case $desktop in
none) startXServer $size ;;
tiling) startTilingDisplay $size ;;
panel) startWeston $size headless 1 left ;;
sway) startSway $size ;;
esac
trap 'endVirtualDisplay; rm -rf "$runtime"' EXIT
# Qt expects every input method to have a keyboard, so none of the compositor's.
if [ -n "${WAYLAND_DISPLAY:-}" ]; then
    export QT_QPA_PLATFORM=wayland QT_IM_MODULE=compose
else
    export QT_QPA_PLATFORM=xcb
fi
"$@"
