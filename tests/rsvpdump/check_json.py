#!/usr/bin/env python3
"""Checks rsvpdump --json against its text output: every line must parse as JSON with no key
repeated within an object, and every
message must say in JSON what its text says (source and record, time, addresses, header fields,
checksum, each object's header and verdict, each decoded field in order, the bytes of objects
the library does not accept, truncation).

Usage: check_json.py RSVPDUMP INPUT...   (directories are searched for captures and hex)"""

import datetime
import json
import os
import re
import subprocess
import sys

OBJECT = re.compile(r"^  object class (\d+)(?: (\S+))? c-type (\d+)(?: (\S+))? length (\d+): "
                    r"(valid|INVALID|unknown class|malformed)")
DUMP = re.compile(r"^ +0x[0-9a-f]{4}: ((?: +[0-9a-f]{2,4})+)$")


def run(tool, args, path):
    env = dict(os.environ, TZ="UTC")
    return subprocess.run([tool] + args + [path], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          env=env, check=False).stdout.decode("utf-8", "replace")


def records(text):
    out = []
    for line in text.splitlines():
        if line and not line.startswith(" "):
            out.append([line])
        elif out:
            out[-1].append(line)
    return out


def scalars(value):
    """The numbers and strings of a JSON value, depth first, in order."""
    if isinstance(value, dict):
        for v in value.values():
            yield from scalars(v)
    elif isinstance(value, list):
        for v in value:
            yield from scalars(v)
    elif not isinstance(value, bool):
        yield value


def unique_keys(pairs):
    keys = [k for k, _ in pairs]
    dup = {k for k in keys if keys.count(k) > 1}
    if dup:
        raise AssertionError("repeated keys %s in one JSON object" % sorted(dup))
    return dict(pairs)


def find_in_order(block, values, where):
    at = 0
    for v in values:
        if isinstance(v, str):  # the text escapes bytes outside printable ASCII as \xNN
            pattern = re.escape("".join(c if " " <= c < "\x7f" and c != "\\" else
                                        "\\x%02x" % ord(c) for c in v))
        else:
            pattern = r"(?<![0-9a-fx])(?:%d|0x0*%x)(?![0-9])" % (v, v)
        m = re.compile(pattern).search(block, at)
        if not m:
            raise AssertionError("%s: %r not found in order in the text" % (where, v))
        at = m.end()


def check_message(lines, msg, where):
    head = lines[0]
    assert head.startswith("%s:%d: " % (msg["source"], msg["record"])), where + ": source, record"
    if "time" in msg:
        t = datetime.datetime.fromtimestamp(msg["time"], datetime.timezone.utc)
        assert t.strftime("%H:%M:%S.%f") in head, where + ": time"
    if "src" in msg:
        assert " %s > %s " % (msg["src"], msg["dst"]) in head, where + ": addresses"
        assert "ttl %d" % msg["ip_ttl"] in head, where + ": ttl"
    if msg.get("incomplete"):
        assert "IP id %d, %d bytes" % (msg["ip_id"], msg["received"]) in head, where
        return
    if "type" in msg:
        assert "message type %d " % msg["type"] in head, where + ": type"
        assert "ttl %d length %d " % (msg["send_ttl"], msg["length"]) in head, where + ": length"
        assert "%s cksum 0x%04x" % ("[bad", msg["checksum"]) in head \
            if msg["checksum_status"] == "bad" else \
            "checksum 0x%04x %s" % (msg["checksum"], msg["checksum_status"]) in head, where
    if msg.get("truncated"):
        assert "[truncated: %d of " % msg["captured"] in "\n".join(lines), where + ": truncated"
    starts = [i for i, line in enumerate(lines) if OBJECT.match(line)]
    objects = msg.get("objects", [])
    assert len(starts) == len(objects), "%s: %d objects in text, %d in JSON" % (
        where, len(starts), len(objects))
    for n, (i, o) in enumerate(zip(starts, objects)):
        w = "%s object %d" % (where, n + 1)
        m = OBJECT.match(lines[i])
        assert (int(m[1]), m[2], int(m[3]), m[4], int(m[5]), m[6]) == (
            o["class"], o.get("class_name"), o["c_type"], o.get("c_type_name"), o["length"],
            o["verdict"]), w + ": header line"
        end = starts[n + 1] if n + 1 < len(starts) else len(lines)
        block = lines[i + 1:end]
        if "fields" in o:
            find_in_order("\n".join(block), list(scalars(o["fields"])), w)
        if "bytes" in o:
            dumped = "".join(DUMP.match(l)[1].replace(" ", "") for l in block if DUMP.match(l))
            assert dumped == o["bytes"], w + ": bytes"


def inputs(args):
    for a in args:
        if os.path.isdir(a):
            for root, _, files in sorted(os.walk(a)):
                for f in sorted(files):
                    if f.endswith((".pcap", ".pcapng", ".hex")):
                        yield os.path.join(root, f)
        else:
            yield a


def main():
    tool, failures, checked = sys.argv[1], 0, 0
    for path in inputs(sys.argv[2:]):
        text, lines = run(tool, [], path), run(tool, ["--json"], path).splitlines()
        try:
            msgs = [json.loads(l, object_pairs_hook=unique_keys) for l in lines]
            recs = records(text)
            assert len(recs) == len(msgs), "%d records in text, %d in JSON" % (len(recs), len(msgs))
            for rec, msg in zip(recs, msgs):
                check_message(rec, msg, "%s:%d" % (path, msg["record"]))
                checked += 1
        except (AssertionError, ValueError) as e:
            print("FAIL %s: %s" % (path, e))
            failures += 1
    print("%d messages checked, %d inputs failed" % (checked, failures))
    return 1 if failures or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
