#!/usr/bin/env bash
# with_weston.sh headless|x11 SCALE PROGRAM ARGS...: runs a program on Weston, without a bus or a
# session to talk to. A headless one has no pointer and no keyboard; one on x11 takes those of a
# virtual X display, where xdotool moves them.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/virtual_display.sh"

host=$1
scale=$2
shift 2
size=1600x1000
runtime=$(mktemp -d)
export XDG_RUNTIME_DIR=$runtime DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
unset DISPLAY
[ "$host" != x11 ] || startXServer $size
startWeston $size "$host" "$scale"
trap 'endVirtualDisplay; rm -rf "$runtime"' EXIT
# Qt expects every input method to have a keyboard, so none of the compositor's.
export QT_QPA_PLATFORM=wayland QT_IM_MODULE=compose
"$@"
