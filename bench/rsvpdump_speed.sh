#!/usr/bin/env bash
# rsvpdump against the common capture printer, whole process, on the 200,000-packet capture
# that ../shared/tools/make_big_pcap.py builds (written into the build directory, never into
# the repository):
#
#   bench/rsvpdump_speed.sh BUILD_DIR [RUNS]
#
# Each program decodes the capture RUNS times (default 7), alternately, output to /dev/null;
# the script prints the median wall time, the median CPU time (user + system) and packets per
# second of each, and their ratio. It also reports rsvpdump's peak resident memory on a
# 1,000,000-packet capture (about 120 MB). Skipped (exit 77) when tcpdump is not installed.
set -euo pipefail
build=$(cd "$1" && pwd)
runs=${2:-7}
root=$(cd "$(dirname "$0")/.." && pwd)
tool=$build/tools/rsvpdump
maker=$root/../shared/tools/make_big_pcap.py
printer=$(command -v tcpdump || true)
[ -n "$printer" ] || { echo "tcpdump is not installed: skipped"; exit 77; }
[ -f "$maker" ] || { echo "no $maker: skipped"; exit 77; }
[ -x /usr/bin/time ] || { echo "no /usr/bin/time: skipped"; exit 77; }
packets=200000
big=$build/bench-rsvp-$packets.pcap
[ -f "$big" ] || python3 "$maker" -n $packets -o "$big" >/dev/null 2>&1

# Prints "WALL CPU" in seconds for one run of a command, output to /dev/null.
measure() {
    /usr/bin/time -f "%e %U %S" "$@" >/dev/null 2>"$build/bench-time.txt" || true
    tail -n 1 "$build/bench-time.txt" | awk '{printf "%s %.3f\n", $1, $2 + $3}'
}
median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }

: >"$build/bench-ours.txt"
: >"$build/bench-theirs.txt"
for _ in $(seq "$runs"); do
    measure "$tool" "$big" >>"$build/bench-ours.txt"
    measure "$printer" -nn -v -r "$big" >>"$build/bench-theirs.txt"
done
ours_wall=$(cut -d' ' -f1 "$build/bench-ours.txt" | median)
ours_cpu=$(cut -d' ' -f2 "$build/bench-ours.txt" | median)
theirs_wall=$(cut -d' ' -f1 "$build/bench-theirs.txt" | median)
theirs_cpu=$(cut -d' ' -f2 "$build/bench-theirs.txt" | median)
awk -v n=$packets -v ow="$ours_wall" -v oc="$ours_cpu" -v tw="$theirs_wall" -v tc="$theirs_cpu" \
    -v runs="$runs" 'BEGIN {
    printf "%d packets, median of %d runs, output to /dev/null\n", n, runs
    printf "rsvpdump         %6.3f s wall %8.0f packets/s   %6.3f s CPU\n", ow, n / ow, oc
    printf "tcpdump -nn -v   %6.3f s wall %8.0f packets/s   %6.3f s CPU\n", tw, n / tw, tc
    printf "ratio            %6.2fx wall                     %6.2fx CPU\n", tw / ow, tc / oc
}'

large=$build/bench-rsvp-1000000.pcap
[ -f "$large" ] || python3 "$maker" -n 1000000 -o "$large" >/dev/null 2>&1
/usr/bin/time -v "$tool" "$large" 2>&1 >/dev/null |
    awk -v size="$(stat -L -c %s "$large")" '/Maximum resident set size/ {
        printf "rsvpdump peak RSS %.1f MiB on a %.0f MB capture\n", $6 / 1024, size / 1e6 }'
