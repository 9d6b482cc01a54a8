#!/usr/bin/env bash
# Installs the Debian packages of packages.txt that are missing. As root, or through sudo.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

missing=()
while read -r package; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done < <(grep -v '^ *\(#\|$\)' packages.txt)

[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "These packages are missing, and neither root nor sudo is at hand: ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "Installing ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
