#!/usr/bin/env bash
# Runs rsvpdump over the public RSVP captures kept beside the repository (../shared/captures),
# if they are there. Every capture must be read without a crash (exit 0 or 1); the captures of
# well-formed sessions must be reported without a single malformed message or object.
set -uo pipefail
tool=$1 dir=$2
[ -d "$dir" ] || { echo "no captures at $dir: skipped"; exit 77; }
well_formed="rsvp_session.pcap rsvp.pcap scapy-rsvp-uts-resv.pcap rsvp_cap.pcap"
status=0 n=0
while IFS= read -r f; do
    n=$((n + 1))
    "$tool" "$f" >/dev/null 2>"${TMPDIR:-/tmp}/rsvpdump-capture.err"
    rc=$?
    if [ $rc -gt 1 ]; then
        echo "FAIL $f: exit $rc"; cat "${TMPDIR:-/tmp}/rsvpdump-capture.err"; status=1
    elif [[ " $well_formed " == *" $(basename "$f") "* ]] && [ $rc -ne 0 ]; then
        echo "FAIL $f: a well-formed capture was reported malformed:"
        cat "${TMPDIR:-/tmp}/rsvpdump-capture.err"; status=1
    fi
done < <(find "$dir" -name '*.pcap' -o -name '*.pcapng' | sort)
echo "$n captures read"
exit $status
