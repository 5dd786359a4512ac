// From a captured frame to the RSVP message it carries: the link-layer header, then IPv4 (with
// options) or IPv6 (with extension headers), fragments reassembled, and RSVP directly over IP
// (protocol 46) or over UDP (ports 1698 and 1699, RFC 2205 appendix C).
//
//   LINK TYPE (DLT)      HEADER                                 NETWORK PROTOCOL
//   Ethernet (1)         dst 6, src 6, {TPID 2, TCI 2}..., type 2  the last Ethertype
//   cooked (113)         16 bytes                               Ethertype at 14
//   cooked v2 (276)      20 bytes                               Ethertype at 0
//   loopback (0)         4 bytes                                family, writer's order
//   loopback (108)       4 bytes                                family, network order
//   PPP (9)              [ff 03] protocol 2                     0x0021 IPv4, 0x0057 IPv6
//   C-HDLC (104)         address 1, control 1, protocol 2       Ethertype
//   raw (12, 14, 228, 229)  none                                the version nibble
//
//   IPv4: OFFSET SIZE FIELD              IPv6: OFFSET SIZE FIELD
//         0      1    version, IHL             0      4    version, class, flow
//         2      2    total length             4      2    payload length
//         4      2    identification           6      1    next header
//         6      2    flags, fragment offset   7      1    hop limit
//         8      1    TTL                      8      16   source
//         9      1    protocol                 24     16   destination
//         12     4    source                   40          extension headers, payload
//         16     4    destination
//         20          options, payload
#include <pcap/dlt.h>

#include <cstring>

#include "dump.hpp"
#include "reassembly.hpp"

namespace rsvpdump {

namespace {

constexpr int kDltRawOther = 14;  // DLT_RAW of some systems, which libpcap keeps as is

constexpr size_t kEtherAddrsLen = 12;
constexpr size_t kEtherTypeLen = 2;
constexpr size_t kVlanTagLen = 4;
constexpr uint16_t kEtherTypeIpv4 = 0x0800;
constexpr uint16_t kEtherTypeIpv6 = 0x86dd;
constexpr uint16_t kTpid8021Q = 0x8100;
constexpr uint16_t kTpid8021ad = 0x88a8;
constexpr uint16_t kTpidQinQ = 0x9100;
constexpr size_t kSllLen = 16;
constexpr size_t kSllProtocol = 14;
constexpr size_t kSll2Len = 20;
constexpr size_t kSll2Protocol = 0;
constexpr size_t kLoopbackLen = 4;
constexpr uint32_t kAfInet = 2;
// The value of AF_INET6 differs between the systems that write loopback captures.
constexpr uint32_t kAfInet6Values[] = {10, 24, 28, 30};
constexpr uint8_t kPppAddress = 0xff;
constexpr uint8_t kPppControl = 0x03;
constexpr uint16_t kPppIpv4 = 0x0021;
constexpr uint16_t kPppIpv6 = 0x0057;
constexpr size_t kPppProtocolLen = 2;
constexpr size_t kHdlcLen = 4;
constexpr size_t kHdlcProtocol = 2;

constexpr size_t kIpv4MinHeader = 20;
constexpr size_t kIpv4TotalLength = 2;
constexpr size_t kIpv4Id = 4;
constexpr size_t kIpv4Fragment = 6;
constexpr uint16_t kIpv4MoreFragments = 0x2000;
constexpr uint16_t kIpv4OffsetMask = 0x1fff;
constexpr size_t kIpv4Ttl = 8;
constexpr size_t kIpv4Protocol = 9;
constexpr size_t kIpv4Src = 12;
constexpr size_t kIpv4Dst = 16;
constexpr size_t kIpv4AddrLen = 4;
constexpr unsigned kIhlMask = 0x0f;
constexpr unsigned kIhlWords = 4;
constexpr size_t kIpv4OffsetUnit = 8;

constexpr size_t kIpv6Header = 40;
constexpr size_t kIpv6PayloadLength = 4;
constexpr size_t kIpv6NextHeader = 6;
constexpr size_t kIpv6HopLimit = 7;
constexpr size_t kIpv6Src = 8;
constexpr size_t kIpv6Dst = 24;
constexpr size_t kIpv6AddrLen = 16;
constexpr size_t kIpv6ExtUnit = 8;  // extension header lengths count 8-byte units
constexpr size_t kIpv6FragmentHeader = 8;
constexpr size_t kIpv6FragmentOffset = 2;
constexpr size_t kIpv6FragmentId = 4;
constexpr uint16_t kIpv6OffsetMask = 0xfff8;
constexpr uint16_t kIpv6MoreFragments = 0x0001;

constexpr uint8_t kProtoHopByHop = 0;
constexpr uint8_t kProtoUdp = 17;
constexpr uint8_t kProtoRouting = 43;
constexpr uint8_t kProtoFragment = 44;
constexpr uint8_t kProtoRsvp = 46;
constexpr uint8_t kProtoDestOptions = 60;

constexpr size_t kUdpHeader = 8;
constexpr size_t kUdpDstPort = 2;
constexpr size_t kUdpLength = 4;
constexpr uint16_t kRsvpUdpPort = 1698;           // to routers
constexpr uint16_t kRsvpUdpPortEndSystem = 1699;  // to end systems

// Offset of the network-layer packet in a frame, and the IP version its header announces (0
// when the version nibble alone tells); -1 when the frame carries something else.
struct Network {
    long offset;
    unsigned version;
};
constexpr Network kNotIp = {-1, 0};
constexpr Network kUnsupported = {-2, 0};

Network by_ethertype(uint16_t type, size_t offset) {
    if (type == kEtherTypeIpv4) return {static_cast<long>(offset), 4};
    if (type == kEtherTypeIpv6) return {static_cast<long>(offset), 6};
    return kNotIp;
}

Network by_family(uint32_t family) {
    if (family == kAfInet) return {kLoopbackLen, 4};
    for (const uint32_t inet6 : kAfInet6Values)
        if (family == inet6) return {kLoopbackLen, 6};
    return kNotIp;
}

Network link_layer(int link, const uint8_t *f, size_t n) {
    switch (link) {
        case DLT_EN10MB: {
            size_t at = kEtherAddrsLen;
            // Any number of 802.1Q / 802.1ad tags, each a TPID and a tag control word.
            while (at + kEtherTypeLen <= n) {
                const uint16_t type = load_be16(f + at);
                if (type != kTpid8021Q && type != kTpid8021ad && type != kTpidQinQ)
                    return by_ethertype(type, at + kEtherTypeLen);
                at += kVlanTagLen;
            }
            return kNotIp;
        }
        case DLT_LINUX_SLL:
            return n < kSllLen ? kNotIp : by_ethertype(load_be16(f + kSllProtocol), kSllLen);
        case DLT_LINUX_SLL2:
            return n < kSll2Len ? kNotIp : by_ethertype(load_be16(f + kSll2Protocol), kSll2Len);
        case DLT_NULL: {
            if (n < kLoopbackLen) return kNotIp;
            const uint32_t family = load_be32(f);  // in the byte order of the writer
            const Network net = by_family(family);
            return net.offset >= 0 ? net : by_family(__builtin_bswap32(family));
        }
        case DLT_LOOP:
            return n < kLoopbackLen ? kNotIp : by_family(load_be32(f));
        case DLT_PPP: {
            size_t at = n >= 2 && f[0] == kPppAddress && f[1] == kPppControl ? 2 : 0;
            if (n < at + kPppProtocolLen) return kNotIp;
            const uint16_t protocol = load_be16(f + at);
            at += kPppProtocolLen;
            if (protocol == kPppIpv4) return {static_cast<long>(at), 4};
            if (protocol == kPppIpv6) return {static_cast<long>(at), 6};
            return kNotIp;
        }
        case DLT_C_HDLC:
            return n < kHdlcLen ? kNotIp : by_ethertype(load_be16(f + kHdlcProtocol), kHdlcLen);
        case DLT_RAW:
        case kDltRawOther:
        case DLT_IPV4:
        case DLT_IPV6:
            return {0, 0};
        default:
            return kUnsupported;
    }
}

bool ipv6_extension(uint8_t next) {
    return next == kProtoHopByHop || next == kProtoRouting || next == kProtoDestOptions;
}

// Steps over IPv6 hop-by-hop, routing and destination options headers; false when one of
// them is not all there.
bool skip_ipv6_extensions(const uint8_t *&p, size_t &n, uint8_t &next) {
    while (ipv6_extension(next)) {
        if (n < kIpv6ExtUnit) return false;
        const size_t length = (p[1] + 1u) * kIpv6ExtUnit;
        if (length > n) return false;
        next = p[0];
        p += length;
        n -= length;
    }
    return true;
}

}  // namespace

bool link_type_supported(int link) {
    return link_layer(link, nullptr, 0).offset != kUnsupported.offset;
}

void Dumper::dump_frame(int link, const uint8_t *frame, size_t caplen, const Origin &origin) {
    const Network net = link_layer(link, frame, caplen);
    if (net.offset < 0 || static_cast<size_t>(net.offset) >= caplen) return;
    const uint8_t *packet = frame + net.offset;
    const unsigned version = packet[0] >> 4;
    if (net.version != 0 && net.version != version) return;
    dump_ip(packet, caplen - static_cast<size_t>(net.offset), origin);
}

void Dumper::dump_ip(const uint8_t *p, size_t n, const Origin &origin) {
    IpInfo ip;
    ip.version = p[0] >> 4;
    if (ip.version == 4) {
        const size_t header = (p[0] & kIhlMask) * kIhlWords;
        if (n < kIpv4MinHeader || header < kIpv4MinHeader || header > n) return;
        const size_t total = load_be16(p + kIpv4TotalLength);
        if (total < header) return;
        const uint8_t protocol = p[kIpv4Protocol];
        if (protocol != kProtoRsvp && protocol != kProtoUdp) return;
        ip.ttl = p[kIpv4Ttl];
        std::memcpy(ip.src, p + kIpv4Src, kIpv4AddrLen);
        std::memcpy(ip.dst, p + kIpv4Dst, kIpv4AddrLen);
        const size_t end = std::min(n, total);  // drops link-layer padding
        const uint16_t fragment = load_be16(p + kIpv4Fragment);
        const size_t offset = (fragment & kIpv4OffsetMask) * kIpv4OffsetUnit;
        const bool more = (fragment & kIpv4MoreFragments) != 0;
        if (offset == 0 && !more)
            deliver(p + header, end - header, protocol, ip, origin);
        else
            reassembler_->add(ip, origin, load_be16(p + kIpv4Id), protocol, offset, more,
                              end < total, p + header, end - header);
        return;
    }
    if (ip.version != 6 || n < kIpv6Header) return;
    ip.ttl = p[kIpv6HopLimit];
    std::memcpy(ip.src, p + kIpv6Src, kIpv6AddrLen);
    std::memcpy(ip.dst, p + kIpv6Dst, kIpv6AddrLen);
    const size_t payload_length = load_be16(p + kIpv6PayloadLength);
    // A payload length of 0 announces a jumbogram: its length is in an option; take the frame's.
    const bool whole = payload_length == 0 || kIpv6Header + payload_length <= n;
    size_t left = payload_length == 0 ? n - kIpv6Header : std::min(n - kIpv6Header, payload_length);
    const uint8_t *q = p + kIpv6Header;
    uint8_t next = p[kIpv6NextHeader];
    if (!skip_ipv6_extensions(q, left, next)) return;
    if (next != kProtoFragment) {
        deliver(q, left, next, ip, origin);
        return;
    }
    if (left < kIpv6FragmentHeader) return;
    const uint16_t fragment = load_be16(q + kIpv6FragmentOffset);
    const uint32_t id = load_be32(q + kIpv6FragmentId);
    next = q[0];
    if (ipv6_extension(next) || next == kProtoRsvp || next == kProtoUdp)
        reassembler_->add(ip, origin, id, next, fragment & kIpv6OffsetMask,
                          (fragment & kIpv6MoreFragments) != 0, !whole, q + kIpv6FragmentHeader,
                          left - kIpv6FragmentHeader);
}

void Dumper::deliver(const uint8_t *p, size_t n, uint8_t protocol, const IpInfo &ip,
                     const Origin &origin) {
    // The fragmentable part of an IPv6 datagram may begin with more extension headers.
    if (ip.version == 6 && !skip_ipv6_extensions(p, n, protocol)) return;
    if (protocol == kProtoRsvp) {
        dump_message(p, n, origin, &ip);
        return;
    }
    if (protocol != kProtoUdp || n < kUdpHeader) return;
    const uint16_t port = load_be16(p + kUdpDstPort);
    const size_t length = load_be16(p + kUdpLength);
    if ((port != kRsvpUdpPort && port != kRsvpUdpPortEndSystem) || length < kUdpHeader) return;
    IpInfo over_udp = ip;
    over_udp.udp_port = port;
    dump_message(p + kUdpHeader, std::min(n, length) - kUdpHeader, origin, &over_udp);
}

void Dumper::report_incomplete(const IpInfo &ip, const Origin &origin, uint32_t id,
                               uint8_t protocol, size_t received, size_t total, const uint8_t *head,
                               size_t head_n) {
    // Fragments of UDP datagrams are kept until their ports are known: only those of RSVP
    // matter.
    if (protocol == kProtoUdp) {
        if (!head || head_n < kUdpHeader) return;
        const uint16_t port = load_be16(head + kUdpDstPort);
        if (port != kRsvpUdpPort && port != kRsvpUdpPortEndSystem) return;
    }
    Out &out = sink_;
    ++stats_.incomplete;
    out.begin_record();
    header_prefix(origin, &ip);
    out.flag("incomplete", true).text("incomplete message: IP id ").u("ip_id", id);
    out.text(", ").u("received", received).text(" bytes");
    if (total)
        out.text(" of ").u("total", total);
    else
        out.text(", last fragment missing");
    out.end_record();
    flush_message();
}

}  // namespace rsvpdump
