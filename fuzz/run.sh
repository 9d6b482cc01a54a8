#!/bin/bash
# run.sh SECONDS [NAME...]    runs the fuzz entries (default: all) one after another, each for SECONDS
#
# Build them first (packages clang and libclang-rt-14-dev):
#   cmake --preset fuzz && cmake --build --preset fuzz
# An input that takes more than a second of processor time fails; the limit of wall time is for hangs.
# New inputs are kept under build/fuzz/corpus, and an input that fails stands there as NAME-crash-* or NAME-timeout-*.
set -u
top=$(cd "$(dirname "$0")/.." && pwd)
build=$top/build/fuzz
seconds=$1
shift
failed=0
[ $# -gt 0 ] || set -- pcx tga tiff psd iff dispatch
for name in "$@"; do
    mkdir -p "$build/corpus/$name"
    nice -n 19 "$build/fuzz/fuzz_$name" -max_total_time="$seconds" -max_len=1048576 -timeout=60 \
        -rss_limit_mb=1024 -print_final_stats=1 -artifact_prefix="$build/corpus/$name-" \
        "$build/corpus/$name" "$top"/tests/formats/corpus/{right,refused,odd} || failed=1
done
exit $failed
