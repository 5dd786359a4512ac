#!/usr/bin/env bash
# Decodes the inputs that make_captures.py writes (each link type, VLAN stacks, IPv6 extension
# headers, fragments, UDP, cut and truncated captures, misnamed and unreadable files, standard
# input) and compares everything rsvpdump says, exit status included, with inputs.expected;
# then checks that messages from a pipe held open come out before it closes.
# With --regen as third argument it rewrites the expectation instead (review the diff).
set -uo pipefail
tool=$1 here=$(cd "$(dirname "$0")" && pwd) mode=${2:-check}
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
python3 "$here/make_captures.py" "$dir" || exit 1
cd "$dir"
export TZ=UTC
run() {  # prints the command line, then what it says and its exit status
    echo "\$ rsvpdump $*"
    "$tool" "$@" 2>&1
    echo "exit $?"
}
{
    for f in ethernet.pcap qinq.pcap sll.pcap sll2.pcap raw.pcap null.pcap ipv6-ext.pcap \
             udp.pcap frag4.pcap frag6.pcap frag-bounds.pcap frag-timeout.pcap snaplen.pcap \
             snaplen-header.pcap snaplen-fragment.pcap cut-record.pcap pcapng-named.txt \
             hex-named.pcap; do
        run "$f"
    done
    run empty unknown-link.pcap dir.pcap garbage.bin missing.pcap udp.pcap
    run --strict ethernet.pcap
    run --strict sll.pcap
    run -c 1 raw.pcap sll.pcap
    run --json -c 1 frag4.pcap
    echo "\$ cat pcapng-named.txt | rsvpdump --strict"
    cat pcapng-named.txt | "$tool" --strict 2>&1
    echo "exit $?"
} > "$dir/out.txt"
if [ "$mode" = --regen ]; then
    cp "$dir/out.txt" "$here/inputs.expected"
elif ! diff -u "$here/inputs.expected" "$dir/out.txt"; then
    echo "rsvpdump output differs from inputs.expected"
    exit 1
fi

# From a pipe that stays open, each message must come out as soon as it is decoded.
mkfifo "$dir/pipe"
"$tool" - <"$dir/pipe" >"$dir/piped.txt" 2>/dev/null &
exec 3>"$dir/pipe"
cat "$dir/ethernet.pcap" >&3
for _ in $(seq 200); do
    [ -s "$dir/piped.txt" ] && break
    sleep 0.1
done
shown=$(wc -l <"$dir/piped.txt")
exec 3>&-
wait
if [ "$shown" -eq 0 ]; then
    echo "nothing shown while the pipe was open"
    exit 1
fi
