#!/usr/bin/env bash
# with_xfconf_bus.sh PROGRAM ARGS...: runs a program on a session bus of its own that starts Xfce's
# settings service and no other. What that keeps goes at the end.
set -euo pipefail
support=$(dirname "${BASH_SOURCE[0]}")/../../support
. "$support/own_desktop.sh"

folder=$(mktemp -d)
# The service may write once more when the bus has gone.
trap 'for _ in {1..100}; do rm -rf "$folder" 2>/dev/null && break; sleep 0.1; done' EXIT
mkdir -m 700 "$folder"/{home,config,data,cache,run,services}
export HOME=$folder/home XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data
export XDG_CACHE_HOME=$folder/cache XDG_RUNTIME_DIR=$folder/run
cp /usr/share/dbus-1/services/org.xfce.Xfconf.service "$folder/services"
sed "s|</busconfig>|<servicedir>$folder/services</servicedir>&|" "$support/private_bus.conf" \
    >"$folder/bus.conf"
dbus-run-session --config-file="$folder/bus.conf" -- "$@"
