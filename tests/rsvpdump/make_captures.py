#!/usr/bin/env python3
"""Writes the small inputs that the rsvpdump tests decode, one per case, into OUTDIR:
captures of each link type, VLAN stacks, IPv6 extension headers, fragments in and out of
order, RSVP over UDP, a message cut by the snap length, a record cut short, an unknown link
type, pcapng under a misleading name, hex under a misleading name, and files that are no
input at all. They double as the seed corpus of the fuzz target.

Usage: make_captures.py OUTDIR"""

import os
import struct
import sys

RSVP, UDP, HOP_BY_HOP, ROUTING, FRAGMENT, DEST_OPTS = 46, 17, 0, 43, 44, 60


def cksum(data):
    if len(data) % 2:
        data += b"\0"
    s = sum(struct.unpack("!%dH" % (len(data) // 2), data))
    while s >> 16:
        s = (s & 0xFFFF) + (s >> 16)
    return ~s & 0xFFFF


def obj(cls, ctype, body):
    return struct.pack("!HBB", 4 + len(body), cls, ctype) + body


def addr(a):
    return bytes(int(x) for x in a.split("."))


def message(mtype, objects, ttl=255, good_checksum=True):
    body = b"".join(objects)
    hdr = struct.pack("!BBHBBH", 0x10, mtype, 0, ttl, 0, 8 + len(body))
    msg = hdr + body
    c = cksum(msg) if good_checksum else 0x1234
    return msg[:2] + struct.pack("!H", c) + msg[4:]


SESSION = obj(1, 7, addr("10.0.0.3") + struct.pack("!HH", 0, 1) + addr("10.0.0.1"))
HOP = obj(3, 1, addr("10.0.12.1") + struct.pack("!I", 7))
SENDER = obj(11, 7, addr("10.0.0.1") + struct.pack("!HH", 0, 1))
TIME = obj(5, 1, struct.pack("!I", 30000))
PATH_TEAR = message(5, [SESSION, HOP, SENDER])
# A Path long enough to be fragmented: an EXPLICIT_ROUTE of 12 strict hops.
ERO = obj(20, 1, b"".join(b"\x01\x08" + addr("10.0.%d.1" % i) + b"\x20\x00" for i in range(12)))
PATH = message(1, [SESSION, HOP, TIME, ERO, SENDER])
BAD_SUM = message(5, [SESSION, HOP, SENDER], good_checksum=False)
# Broken runs of objects: bytes after the message in its datagram, a last object that runs
# past the message end, two stray bytes after the last object.
TRAILING = PATH_TEAR + b"\0\0\0\0"
PAST_END = message(5, [SESSION, HOP, struct.pack("!H", 16) + SENDER[2:]])
STRAY = message(5, [SESSION, HOP, SENDER + b"\0\0"])


def ipv4(payload, proto=RSVP, src="10.0.12.1", dst="10.0.0.3", ident=1, frag=0,
         options=b""):
    ihl = 5 + len(options) // 4
    hdr = struct.pack("!BBHHHBBH4s4s", 0x40 | ihl, 0xC0, ihl * 4 + len(payload), ident, frag,
                      64, proto, 0, addr(src), addr(dst)) + options
    return hdr[:10] + struct.pack("!H", cksum(hdr)) + hdr[12:] + payload


ROUTER_ALERT = b"\x94\x04\x00\x00"
V6_SRC = bytes.fromhex("20010db8000000000000000000000001")
V6_DST = bytes.fromhex("20010db8000000000000000000000002")


def ipv6(payload, next_header=RSVP):
    return struct.pack("!IHBB", 0x60000000, len(payload), next_header, 64) + V6_SRC + V6_DST + \
        payload


def ext(next_header, body6):
    """An IPv6 extension header of 8 bytes: next header, length 0, six bytes of body."""
    return bytes([next_header, 0]) + body6


def udp(payload, dport=1698):
    return struct.pack("!HHHH", 1698, dport, 8 + len(payload), 0) + payload


def ether(packet, ethertype=0x0800, tags=()):
    head = bytes.fromhex("000000000002000000000001")
    for tpid, vid in tags:
        head += struct.pack("!HH", tpid, vid)
    return head + struct.pack("!H", ethertype) + packet


def pcap(frames, linktype=1, snaplen=65535, cut_last=0, times=None):
    """Frames a quarter of a second apart, or at the given seconds after the first."""
    out = struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, snaplen, linktype)
    for i, frame in enumerate(frames):
        caplen = min(len(frame), snaplen)
        usec = int((times[i] if times else i / 4) * 1000000)
        out += struct.pack("<IIII", 1700000000 + usec // 1000000, usec % 1000000, caplen,
                           len(frame)) + frame[:caplen]
    return out[:len(out) - cut_last]


def pcapng(frames, linktype=1):
    def block(btype, body):
        body += b"\0" * (-len(body) % 4)
        return struct.pack("<II", btype, 12 + len(body)) + body + struct.pack("<I", 12 + len(body))
    out = block(0x0A0D0D0A, struct.pack("<IHHq", 0x1A2B3C4D, 1, 0, -1))
    out += block(1, struct.pack("<HHI", linktype, 0, 65535))
    for i, frame in enumerate(frames):
        ts = (1700000000 + i) * 1000000
        out += block(6, struct.pack("<IIIII", 0, ts >> 32, ts & 0xFFFFFFFF, len(frame),
                                    len(frame)) + frame)
    return out


def fragments4(payload, ident, sizes, order):
    """IPv4 fragments of payload (RSVP), sizes in bytes (multiples of 8 but the last)."""
    pieces, at = [], 0
    for n in sizes:
        more = 0x2000 if at + n < len(payload) else 0
        pieces.append(ipv4(payload[at:at + n], ident=ident, frag=more | at // 8))
        at += n
    return [ether(pieces[i]) for i in order]


def fragments6(payload, ident, sizes, order):
    """IPv6 fragments behind a hop-by-hop header carrying Router Alert."""
    pieces, at = [], 0
    for n in sizes:
        more = 1 if at + n < len(payload) else 0
        frag = struct.pack("!BBHI", RSVP, 0, at | more, ident)
        pieces.append(ipv6(ext(FRAGMENT, b"\x05\x02\x00\x00\x01\x00") + frag + payload[at:at + n],
                           HOP_BY_HOP))
        at += n
    return [ether(pieces[i], 0x86DD) for i in order]


def cases():
    # Hop-by-hop (Router Alert), routing and destination options headers before RSVP.
    v6_chain = ext(ROUTING, b"\x05\x02\x00\x00\x01\x00") + ext(DEST_OPTS, b"\x00" * 6) + \
        ext(RSVP, b"\x01\x04\x00\x00\x00\x00")
    return {
        # Link types, with Router Alert in IPv4 and a bad checksum in the second message.
        "ethernet.pcap": pcap([ether(ipv4(PATH_TEAR, options=ROUTER_ALERT)),
                               ether(ipv4(BAD_SUM))]),
        # Two tags, and link-layer padding behind the IP datagram.
        "qinq.pcap": pcap([ether(ipv4(PATH_TEAR), tags=((0x88A8, 100), (0x8100, 200))) +
                           b"\0" * 6]),
        "sll.pcap": pcap([struct.pack("!HHH8sH", 0, 1, 6, b"\0" * 8, 0x0800) + ipv4(PATH_TEAR)],
                         113),
        "sll2.pcap": pcap([struct.pack("!HHIHBB8s", 0x86DD, 0, 2, 1, 0, 6, b"\0" * 8) +
                           ipv6(PATH_TEAR)], 276),
        "raw.pcap": pcap([ipv4(PATH_TEAR), ipv6(PATH_TEAR)], 101),
        "null.pcap": pcap([struct.pack("<I", 2) + ipv4(PATH_TEAR),
                           struct.pack(">I", 30) + ipv6(PATH_TEAR)], 0),
        "ipv6-ext.pcap": pcap([ether(ipv6(v6_chain + PATH_TEAR, HOP_BY_HOP), 0x86DD)]),
        "udp.pcap": pcap([ether(ipv4(udp(PATH_TEAR), UDP)),
                          ether(ipv4(udp(PATH_TEAR, dport=53), UDP))]),
        # Fragments: in order; out of order; a non-first fragment alone; one never completed.
        "frag4.pcap": pcap(fragments4(PATH, 10, [48, 48, 100], [0, 1, 2]) +
                           fragments4(PATH, 11, [48, 48, 100], [2, 0, 1]) +
                           fragments4(PATH, 12, [48, 148], [1]) +
                           fragments4(PATH, 13, [48, 48, 100], [0, 2]) +
                           # not a whole number of blocks before the last fragment: no use
                           [ether(ipv4(PATH[:50], ident=14, frag=0x2000)),
                            ether(ipv4(PATH[48:], ident=14, frag=6))]),
        "frag6.pcap": pcap(fragments6(PATH, 77, [64, 132], [1, 0])),
        # Bounds: a 17th waiting datagram pushes out the first, whose last fragment then comes
        # too late; a datagram that waited 40 s is given up before its last fragment comes.
        "frag-bounds.pcap": pcap([fragments4(PATH, 100 + i, [48, 148], [0])[0] for i in range(17)]
                                 + fragments4(PATH, 100, [48, 148], [1])),
        "frag-timeout.pcap": pcap(fragments4(PATH, 1, [48, 148], [0]) +
                                  fragments4(PATH, 2, [48, 148], [0, 1]) +
                                  fragments4(PATH, 1, [48, 148], [1]), times=[0, 40, 40.5, 41]),
        # Cut by the snap length inside an object, inside an object header, inside the last
        # fragment of a datagram.
        "snaplen.pcap": pcap([ether(ipv4(PATH))], snaplen=90),
        "snaplen-header.pcap": pcap([ether(ipv4(PATH))], snaplen=80),
        "snaplen-fragment.pcap": pcap(fragments4(PATH, 20, [48, 148], [0, 1]), snaplen=100),
        "cut-record.pcap": pcap([ether(ipv4(PATH_TEAR)), ether(ipv4(PATH))], cut_last=100),
        "unknown-link.pcap": pcap([ipv4(PATH_TEAR)], 147),
        "pcapng-named.txt": pcapng([ether(ipv4(PATH_TEAR))]),
        "hex-named.pcap": b"".join(m.hex().encode() + b"\n"
                                   for m in (PATH_TEAR, TRAILING, PAST_END, STRAY)),
        "empty": b"",
        "garbage.bin": bytes(range(256)),
    }


def main():
    out = sys.argv[1]
    os.makedirs(out, exist_ok=True)
    for name, data in cases().items():
        with open(os.path.join(out, name), "wb") as f:
            f.write(data)
    os.makedirs(os.path.join(out, "dir.pcap"), exist_ok=True)


if __name__ == "__main__":
    main()
