#!/usr/bin/env bash
# mail.sh [MEGABYTES [MEGABYTES_A_SECOND]]: sends a mail of that size (25) to a slow server (10) on
# loopback, in the clear, by STARTTLS and by TLS, and tells memory and gaps. No display is needed.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$here/tests/publishing/mail/make_certificates.sh" "$folder" >"$folder/log" 2>&1

for mode in plain starttls tls; do
    coproc server { python3 "$here/bench/slow_mail_server.py" "$mode" "${2:-10}" "$folder/good.pem"; }
    reads=${server[0]} id=$server_PID
    read -r port <&"$reads"
    "$here/build/release/bench/mail_bench" "$mode" "$port" "${1:-25}" "$folder/authority.pem"
    wait "$id"
done
