#!/usr/bin/env bash
# with_cups.sh PROGRAM ARGS...: runs a program with a printing service of its own. CUPS_SERVER leads
# to it. Its queues: Desk, the default, which puts what it prints into VISTARA_PRINTED; Stopped,
# which takes jobs and prints none; Closed, which takes no jobs; Lost, which a test may remove.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(mktemp -d "${TMPDIR:-/tmp}/vistara-cups-XXXXXX")
chmod 755 "$root"
mkdir -p "$root"/{bin/backend,etc/ppd,cache,run,spool/tmp,printed,home}
cupsd=

finish() {
    if [ -n "$cupsd" ]; then
        kill "$cupsd" 2>/dev/null || true
        wait "$cupsd" 2>/dev/null || true
    fi
    rm -rf "$root"
}
trap finish EXIT
trap 'exit 1' INT TERM

for part in daemon filter notifier; do
    ln -s "/usr/lib/cups/$part" "$root/bin/$part"
done
# Only a program that nobody else may run runs as root there.
install -m 700 "$here/cups_backend.sh" "$root/bin/backend/capture"

cat > "$root/etc/cups-files.conf" <<CONF
ServerRoot $root/etc
ServerBin $root/bin
CacheDir $root/cache
StateDir $root/run
RequestRoot $root/spool
TempDir $root/spool/tmp
AccessLog $root/access_log
ErrorLog $root/error_log
PageLog $root/page_log
FileDevice Yes
CONF
cat > "$root/etc/cupsd.conf" <<CONF
Listen $root/run/socket
Browsing No
DefaultAuthType None
WebInterface No
LogLevel debug
MaxJobs 0
<Location />
  Order deny,allow
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
CONF

# queue NAME STATE ACCEPTING [Default]
queue() {
    printf '<%sPrinter %s>\nDeviceURI capture:%s\nState %s\nAccepting %s\nErrorPolicy abort-job\n</%sPrinter>\n' \
        "${4:-}" "$1" "$root/printed" "$2" "$3" "${4:-}" >> "$root/etc/printers.conf"
    cp "$here/capture_printer.ppd" "$root/etc/ppd/$1.ppd"
}
queue Desk Idle Yes Default
queue Stopped Stopped Yes
queue Closed Idle No
queue Lost Idle Yes

export CUPS_SERVER=$root/run/socket VISTARA_PRINTED=$root/printed HOME=$root/home
unset CUPS_USER PRINTER LPDEST
/usr/sbin/cupsd -f -c "$root/etc/cupsd.conf" -s "$root/etc/cups-files.conf" &
cupsd=$!
for _ in $(seq 300); do
    if lpstat -r 2>/dev/null | grep -q "is running"; then
        ready=1
        break
    fi
    sleep 0.1
done
if [ -z "${ready:-}" ]; then
    echo "no printing service came up" >&2
    cat "$root/error_log" >&2 || true
    exit 1
fi
status=0
"$@" || status=$?
if [ "$status" -ne 0 ]; then
    tail -n 100 "$root/error_log" >&2 || true
fi
exit "$status"
