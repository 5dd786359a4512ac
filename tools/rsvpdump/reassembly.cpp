#include "reassembly.hpp"

#include <algorithm>
#include <cstring>

namespace rsvpdump {

namespace {

bool same_addresses(const IpInfo &a, const IpInfo &b) {
    return a.version == b.version && std::memcmp(a.src, b.src, sizeof a.src) == 0 &&
           std::memcmp(a.dst, b.dst, sizeof a.dst) == 0;
}

}  // namespace

Reassembler::Pending *Reassembler::find(const IpInfo &ip, uint32_t id, uint8_t protocol) {
    for (Pending &p : pending_)
        if (p.used && p.id == id && p.protocol == protocol && same_addresses(p.ip, ip)) return &p;
    return nullptr;
}

Reassembler::Pending *Reassembler::oldest() {
    Pending *oldest = nullptr;
    for (size_t k = 0; k < kMaxPending; ++k)
        if (pending_[k].used && (!oldest || order_[k] < order_[oldest - pending_]))
            oldest = &pending_[k];
    return oldest;
}

// A free slot, after giving up on datagrams that waited too long; when every slot is taken,
// the oldest datagram's. Datagrams given up are reported in the order they came.
Reassembler::Pending *Reassembler::slot(const Origin &origin) {
    for (Pending *p; (p = oldest()) && origin.has_time && p->origin.has_time &&
                     origin.sec - p->origin.sec > kTimeoutSec;)
        give_up(*p);
    for (Pending &p : pending_)
        if (!p.used) return &p;
    Pending *p = oldest();
    give_up(*p);
    return p;
}

void Reassembler::give_up(Pending &p) {
    p.used = false;
    IpInfo ip = p.ip;
    ip.fragments = p.fragments;
    // Every block but a last, partial one is whole.
    const size_t last = p.total ? (p.total - 1) / kBlock : 0;
    const size_t received =
        p.blocks * kBlock - (p.total && p.have[last] ? last * kBlock + kBlock - p.total : 0);
    dumper_.report_incomplete(ip, p.origin, p.id, p.protocol, received, p.total,
                              p.have[0] ? p.data.data() : nullptr, p.have[0] ? p.data.size() : 0);
}

void Reassembler::add(const IpInfo &ip, const Origin &origin, uint32_t id, uint8_t protocol,
                      size_t offset, bool more, bool cut, const uint8_t *data, size_t n) {
    // Of a fragment cut short by the capture, only its whole blocks are of use, and it cannot
    // tell where the datagram ends: the datagram stays incomplete unless a whole copy comes.
    if (cut) {
        more = true;
        n -= n % kBlock;
    }
    // A fragment other than the last must fill whole blocks; none may reach past the largest
    // datagram. Such a fragment is dropped, and its datagram stays incomplete.
    if (offset + n > kMaxDatagram || (more && n % kBlock != 0)) return;
    Pending *p = find(ip, id, protocol);
    if (!p) {
        p = slot(origin);
        p->used = true;
        p->ip = ip;
        p->origin = origin;
        p->id = id;
        p->protocol = protocol;
        p->fragments = 0;
        p->total = p->end = p->blocks = 0;
        p->have.reset();
        p->data.clear();
        order_[p - pending_] = ++arrivals_;
    }
    const size_t end = offset + n;
    if (!more) {
        if ((p->total && p->total != end) || end < p->end) return;  // contradicts the others
        p->total = end;
    } else if (p->total && end > p->total) {
        return;
    }
    if (p->data.size() < end) p->data.resize(end);
    if (n) std::memcpy(p->data.data() + offset, data, n);
    p->end = std::max(p->end, end);
    ++p->fragments;
    for (size_t b = offset / kBlock; b < (end + kBlock - 1) / kBlock; ++b) {
        if (!p->have[b]) ++p->blocks;
        p->have[b] = true;
    }
    if (!p->total || p->blocks != (p->total + kBlock - 1) / kBlock) return;

    p->used = false;
    IpInfo whole = p->ip;
    whole.fragments = p->fragments;
    dumper_.deliver(p->data.data(), p->total, protocol, whole, origin);
}

void Reassembler::flush() {
    while (Pending *p = oldest())
        give_up(*p);
}

}  // namespace rsvpdump
