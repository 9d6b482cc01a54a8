#!/usr/bin/env bash
# check.sh PROGRAM PATTERN: the program ends well, and none of the libraries that it needs matches.
set -euo pipefail
"$1"
if ldd "$1" | grep -E "$2"; then
    echo "$1 needs libraries that it shouldn't." >&2
    exit 1
fi
