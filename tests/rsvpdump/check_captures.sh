#!/usr/bin/env bash
# Runs rsvpdump over the public RSVP captures kept beside the repository (../shared/captures),
# if they are there. Every capture must be read to its end without a crash and with exit
# status 0; the captures of well-formed sessions must pass --strict, and every capture that
# holds RSVP must show its messages.
set -uo pipefail
tool=$1 dir=$2
[ -d "$dir" ] || { echo "no captures at $dir: skipped"; exit 77; }
# (rsvp_cap.pcap is a sound Hello but for its RSVP checksum, which is wrong.)
well_formed="rsvp_session.pcap rsvp.pcap scapy-rsvp-uts-resv.pcap"
no_rsvp="lspping-fec-rsvp.pcap"
err="${TMPDIR:-/tmp}/rsvpdump-capture.$$.err"
trap 'rm -f "$err"' EXIT
status=0 n=0
while IFS= read -r f; do
    n=$((n + 1))
    name=$(basename "$f")
    strict=()
    [[ " $well_formed " == *" $name "* ]] && strict=(--strict)
    lines=$("$tool" "${strict[@]}" "$f" 2>"$err" | wc -l)
    rc=${PIPESTATUS[0]}
    if [ "$rc" -ne 0 ]; then
        echo "FAIL $f: exit $rc"; cat "$err"; status=1
    elif [ "$lines" -eq 0 ] && [[ " $no_rsvp " != *" $name "* ]]; then
        echo "FAIL $f: no message shown"; cat "$err"; status=1
    fi
done < <(find "$dir" -name '*.pcap' -o -name '*.pcapng' | sort)
echo "$n captures read"
exit $status
