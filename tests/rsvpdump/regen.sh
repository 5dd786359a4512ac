#!/usr/bin/env bash
# Rewrites the expected rsvpdump outputs from a build: tests/rsvpdump/regen.sh BUILD_DIR
here=$(cd "$(dirname "$0")" && pwd)
tool="$(cd "$1" && pwd)/tools/rsvpdump"
"$here/check_sample.sh" "$tool" "$here/../../samples" "$here" --regen &&
    "$here/check_inputs.sh" "$tool" --regen
