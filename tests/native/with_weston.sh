#!/usr/bin/env bash
# with_weston.sh headless|x11 SCALE PROGRAM ARGS...: runs a program on Weston. A headless one has no
# pointer and no keyboard; one on x11 takes those of a virtual X display, where xdotool moves them.
set -euo pipefail
tests=$(dirname "${BASH_SOURCE[0]}")/..
. "$tests/../scripts/virtual_display.sh"
. "$tests/support/own_desktop.sh"

host=$1
scale=$2
shift 2
size=1600x1000
runtime=$(mktemp -d)
export XDG_RUNTIME_DIR=$runtime
unset DISPLAY
[ "$host" != x11 ] || startXServer $size
startWeston $size "$host" "$scale"
trap 'endVirtualDisplay; rm -rf "$runtime"' EXIT
export QT_QPA_PLATFORM=wayland
"$@"
