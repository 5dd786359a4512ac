#!/usr/bin/env bash
# Rewrites the expected rsvpdump outputs from a build: tests/rsvpdump/regen.sh BUILD_DIR
here=$(cd "$(dirname "$0")" && pwd)
exec "$here/check_sample.sh" "$(cd "$1" && pwd)/tools/rsvpdump" "$here/../../samples" "$here" --regen
