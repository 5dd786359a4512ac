#!/usr/bin/env bash
# Live capture: rsvpdump -i lo, in a network namespace of its own where one can be made,
# while RSVP packets are sent over the loopback with a raw socket (RSVP over IP, and over UDP
# port 1698). The capture must honour the BPF expression given after the options, write each
# message out as soon as it is decoded, and stop after -c messages with exit status 0. Skipped
# (77) without the privileges to capture or to open a raw socket.
set -uo pipefail
tool=$1
if [ "${2:-}" != --inside ]; then
    [ "$(id -u)" -eq 0 ] || { echo "not root: skipped"; exit 77; }
    if unshare -n true 2>/dev/null; then
        exec unshare -n "$0" "$tool" --inside
    fi
fi
ip link set lo up 2>/dev/null
out=$(mktemp)
trap 'rm -f "$out"; kill "$pid" 2>/dev/null' EXIT
"$tool" -i lo -c 3 dst host 127.0.0.2 >"$out" 2>&1 &
pid=$!

send() {  # send KIND ADDRESS: a TIME_VALUES-only message, over IP or UDP
    python3 - "$@" <<'EOF'
import socket, struct, sys
kind, address = sys.argv[1], sys.argv[2]
msg = bytes.fromhex("10050000ff000010" + "0008050100007530")
if kind == "udp":
    socket.socket(socket.AF_INET, socket.SOCK_DGRAM).sendto(msg, (address, 1698))
else:
    socket.socket(socket.AF_INET, socket.SOCK_RAW, 46).sendto(msg, (address, 0))
EOF
}
messages() { grep -c '^lo:' "$out"; }

# Until the capture is up, packets may be missed: send until the first one shows.
for _ in $(seq 50); do
    send ip 127.0.0.1 && send ip 127.0.0.2 || { echo "no raw socket: skipped"; exit 77; }
    sleep 0.2
    [ "$(messages)" -ge 1 ] && break
    kill -0 "$pid" 2>/dev/null || break
done
if ! kill -0 "$pid" 2>/dev/null; then
    wait "$pid"
    grep -q 'cannot capture' "$out" && { cat "$out"; echo "cannot capture: skipped"; exit 77; }
    echo "FAIL: rsvpdump ended early"; cat "$out"; exit 1
fi
send udp 127.0.0.2
sleep 0.5
# Written out as decoded: the messages show while the capture is still running.
shown=$(messages)
kill -0 "$pid" 2>/dev/null || { echo "FAIL: stopped before -c 3 messages"; cat "$out"; exit 1; }
[ "$shown" -ge 2 ] || { echo "FAIL: $shown messages shown while capturing"; cat "$out"; exit 1; }
for _ in $(seq 20); do
    kill -0 "$pid" 2>/dev/null || break
    send ip 127.0.0.2
    sleep 0.2
done
wait "$pid"
status=$?
cat "$out"
[ $status -eq 0 ] || { echo "FAIL: exit $status"; exit 1; }
[ "$(messages)" -eq 3 ] || { echo "FAIL: not 3 messages"; exit 1; }
if grep '^lo:' "$out" | grep -qv '> 127.0.0.2 '; then
    echo "FAIL: the expression was not applied"; exit 1
fi
grep -q '^lo:.* udp 1698: message type 5' "$out" || { echo "FAIL: RSVP over UDP missing"; exit 1; }
exit 0
