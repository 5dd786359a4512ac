#!/usr/bin/env bash
# Runs rsvpdump on every bundled sample (samples/NAME.hex) and compares its output, standard
# error and exit status included, with the reviewed expectation tests/rsvpdump/NAME.expected.
# With --regen as fourth argument it rewrites the expectations instead (review the diff).
set -uo pipefail
tool=$1 samples=$2 expect_dir=$3 mode=${4:-check}
status=0
for hex in "$samples"/*.hex; do
    name=$(basename "$hex" .hex)
    out=$(cd "$samples" && "$tool" "$name.hex" 2>&1; echo "exit $?")
    if [ "$mode" = --regen ]; then
        printf '%s\n' "$out" > "$expect_dir/$name.expected"
    elif ! diff -u "$expect_dir/$name.expected" <(printf '%s\n' "$out"); then
        echo "rsvpdump output for $name.hex differs from $name.expected"
        status=1
    fi
done
exit $status
