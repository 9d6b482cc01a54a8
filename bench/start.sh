#!/usr/bin/env bash
# start.sh FLOOR_COMMAND...: time until the main window is painted, beside that of another command
# (the smallest window of the toolkit, say), warm, on a virtual display of its own. Shows the folder
# named by FOLDER, or the samples. RUNS is the number of measured turns.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$here/build/release
. "$here/scripts/virtual_display.sh"

home=$(mktemp -d)
cp -r "$build/vistara/Images" "$home"
sed "s#^SpeciFolder=.*#SpeciFolder=${FOLDER:-$build/vistara/Samples}#" \
    "$build/vistara/config.ini" >"$home/config.ini"
startVirtualDisplay 1280x800
VISTARA_HOME=$home "$build/bench/window_time" "${RUNS:-9}" 700 -- "$@" -- "$build/vistara/vistara"
rm -rf "$home"
