#!/usr/bin/env bash
# Runs rsvpdump on the bundled sample and compares its output, standard error included, with
# the reviewed expectation; the sample holds malformed messages, so the exit status must be 1.
set -uo pipefail
tool=$1 samples=$2 expect_dir=$3
out=$("$tool" "$samples"/messages.hex 2>&1)
status=$?
if [ $status -ne 1 ]; then echo "exit status $status, expected 1"; exit 1; fi
out=${out//"$samples"\//}
diff -u "$expect_dir"/messages.expected <(printf '%s\n' "$out")
