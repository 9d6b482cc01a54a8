#!/usr/bin/env bash
# with_private_bus.sh PROGRAM ARGS...: runs a program with a session bus of its own.
exec dbus-run-session --config-file="$(dirname "${BASH_SOURCE[0]}")/private_bus.conf" -- "$@"
