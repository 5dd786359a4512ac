// A small capture reader: enough of pcap and pcapng to find the RSVP messages in the captures
// that operators and bug reports carry around. Every length in the file is checked against the
// bytes actually read.
#include "pcap.hpp"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace rsvpdump {

namespace {

constexpr uint32_t kPcapMagicUsec = 0xa1b2c3d4;
constexpr uint32_t kPcapMagicNsec = 0xa1b23c4d;
constexpr uint32_t kPcapngSectionHeader = 0x0a0d0d0a;
constexpr uint32_t kPcapngByteOrderMagic = 0x1a2b3c4d;
constexpr uint32_t kPcapngInterfaceDescription = 1;
constexpr uint32_t kPcapngEnhancedPacket = 6;
constexpr size_t kPcapHeaderLen = 24;
constexpr size_t kPcapRecordHeaderLen = 16;

constexpr uint32_t kLinkNull = 0;
constexpr uint32_t kLinkEthernet = 1;
constexpr uint32_t kLinkPpp = 9;
constexpr uint32_t kLinkRaw = 101;
constexpr uint32_t kLinkLinuxSll = 113;
constexpr uint32_t kLinkIpv4 = 228;

constexpr uint16_t kEtherTypeIpv4 = 0x0800;
constexpr uint16_t kEtherTypeIpv6 = 0x86dd;
constexpr uint16_t kEtherTypeVlan = 0x8100;
constexpr uint16_t kPppIpv4 = 0x0021;
constexpr uint8_t kIpProtoRsvp = 46;
constexpr size_t kIpv6HeaderLen = 40;

struct Reader {
    const std::vector<uint8_t> *bytes;
    bool swapped;
    uint32_t u32(size_t at) const {
        const uint8_t *p = bytes->data() + at;
        return swapped ? (uint32_t{p[0]} << 24 | uint32_t{p[1]} << 16 | uint32_t{p[2]} << 8 | p[3])
                       : (uint32_t{p[3]} << 24 | uint32_t{p[2]} << 16 | uint32_t{p[1]} << 8 | p[0]);
    }
};

uint16_t be16(const uint8_t *p) {
    return static_cast<uint16_t>(p[0] << 8 | p[1]);
}

// The RSVP message inside one link-layer frame, or false.
bool rsvp_payload(uint32_t link, const uint8_t *f, size_t n, std::vector<uint8_t> &out) {
    size_t off = 0;
    uint16_t ethertype = kEtherTypeIpv4;
    switch (link) {
        case kLinkEthernet:
            if (n < 14) return false;
            ethertype = be16(f + 12);
            off = 14;
            if (ethertype == kEtherTypeVlan && n >= 18) {
                ethertype = be16(f + 16);
                off = 18;
            }
            break;
        case kLinkLinuxSll:
            if (n < 16) return false;
            ethertype = be16(f + 14);
            off = 16;
            break;
        case kLinkPpp:
            if (n >= 4 && f[0] == 0xff && f[1] == 0x03) off = 2;
            if (n < off + 2 || be16(f + off) != kPppIpv4) return false;
            off += 2;
            break;
        case kLinkNull:
            off = 4;
            break;
        case kLinkRaw:
        case kLinkIpv4:
            break;
        default:
            return false;
    }
    if (n <= off) return false;
    const uint8_t *ip = f + off;
    const size_t left = n - off;
    const unsigned version = ip[0] >> 4;
    size_t hdr, total;
    uint8_t proto;
    if (version == 4 && ethertype == kEtherTypeIpv4) {
        hdr = size_t{ip[0] & 0x0fu} * 4;
        if (left < 20 || hdr < 20 || left < hdr) return false;
        total = be16(ip + 2);
        proto = ip[9];
    } else if (version == 6 && (ethertype == kEtherTypeIpv6 || link != kLinkEthernet)) {
        if (left < kIpv6HeaderLen) return false;
        hdr = kIpv6HeaderLen;
        total = kIpv6HeaderLen + be16(ip + 4);
        proto = ip[6];
    } else {
        return false;
    }
    if (proto != kIpProtoRsvp) return false;
    const size_t end = std::min(left, std::max(total, hdr));
    out.assign(ip + hdr, ip + end);
    return true;
}

}  // namespace

bool read_capture(const std::string &path,
                  const std::function<void(unsigned, std::vector<uint8_t> &)> &visit,
                  std::string &why) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        why = "cannot open";
        return false;
    }
    const std::vector<uint8_t> b((std::istreambuf_iterator<char>(in)),
                                 std::istreambuf_iterator<char>());
    if (b.size() < 4) {
        why = "too short for a capture";
        return false;
    }
    Reader le{&b, false};
    std::vector<uint8_t> msg;
    unsigned packet = 0;
    const uint32_t magic = le.u32(0);

    if (magic == kPcapMagicUsec || magic == kPcapMagicNsec ||
        Reader{&b, true}.u32(0) == kPcapMagicUsec || Reader{&b, true}.u32(0) == kPcapMagicNsec) {
        Reader r{&b, !(magic == kPcapMagicUsec || magic == kPcapMagicNsec)};
        if (b.size() < kPcapHeaderLen) {
            why = "truncated pcap header";
            return false;
        }
        const uint32_t link = r.u32(20) & 0xffff;
        for (size_t at = kPcapHeaderLen; at + kPcapRecordHeaderLen <= b.size();) {
            const uint32_t caplen = r.u32(at + 8);
            at += kPcapRecordHeaderLen;
            if (caplen > b.size() - at) break;  // a damaged record ends the file
            ++packet;
            if (rsvp_payload(link, b.data() + at, caplen, msg)) visit(packet, msg);
            at += caplen;
        }
        return true;
    }

    if (magic == kPcapngSectionHeader) {
        std::vector<uint32_t> links;
        bool swapped = false;
        for (size_t at = 0; at + 12 <= b.size();) {
            Reader r{&b, swapped};
            uint32_t type = r.u32(at);
            if (type == kPcapngSectionHeader) {
                swapped = Reader{&b, false}.u32(at + 8) != kPcapngByteOrderMagic;
                r = Reader{&b, swapped};
                links.clear();
            }
            const uint32_t len = r.u32(at + 4);
            if (len < 12 || len % 4 != 0 || len > b.size() - at) break;
            if (type == kPcapngInterfaceDescription && len >= 16) {
                links.push_back(r.u32(at + 8) & 0xffff);
            } else if (type == kPcapngEnhancedPacket && len >= 32) {
                const uint32_t iface = r.u32(at + 8);
                const uint32_t caplen = r.u32(at + 20);
                ++packet;
                if (iface < links.size() && caplen <= len - 32 &&
                    rsvp_payload(links[iface], b.data() + at + 28, caplen, msg))
                    visit(packet, msg);
            }
            at += len;
        }
        return true;
    }
    why = "not a pcap or pcapng file";
    return false;
}

}  // namespace rsvpdump
