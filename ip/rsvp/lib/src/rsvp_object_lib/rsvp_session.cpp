// SESSION (Class-Num 1): the flow or LSP that every message refers to.
//
//   OFFSET SIZE FIELD               C-Type 1 IPv4     C-Types 7, 9 tunnel, UNI  C-Type 13 P2MP
//   0      4    object header       Length 12         Length 16                 Length 16
//   4      4    address / id        destination       tunnel end point          P2MP ID
//   8      1    Protocol Id         protocol          reserved, 0               reserved, 0
//   9      1    Flags               flags             reserved, 0               reserved, 0
//   10     2    port / Tunnel ID    destination port  Tunnel ID                 Tunnel ID
//   12     4    Extended Tunnel ID  -                 Extended Tunnel ID        Ext. Tunnel ID
//
// The byte order at the interface is not uniform: the addresses and the Extended Tunnel ID
// cross unconverted, as they lie on the wire, while ports, Tunnel IDs and the P2MP ID (a
// number, not an address) cross in host order.
#include <initializer_list>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kAddrOffset = 4;  // destination, tunnel end point or P2MP ID
constexpr unsigned kProtocolOffset = 8;
constexpr unsigned kFlagsOffset = 9;
constexpr unsigned kPortOffset = 10;  // destination port or Tunnel ID
constexpr unsigned kExtIdOffset = 12;
constexpr unsigned kReservedOffset = kProtocolOffset;
constexpr unsigned kAddrLen = 4;
constexpr unsigned kPortLen = 2;
constexpr unsigned kExtIdLen = 4;
constexpr unsigned kByteLen = 1;

constexpr uint16_t kIpv4Len = RSVP_SESSION_IPV4_LEN;
constexpr uint16_t kTunnelLen = RSVP_SESSION_TUNNEL_IPV4_LEN;

constexpr uint8_t kIpv4 = RSVP_CTYPE_SESSION_IPV4;
constexpr uint8_t kIpv6 = RSVP_CTYPE_SESSION_IPV6;
constexpr uint8_t kTunnel4 = RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV4;
constexpr uint8_t kTunnel6 = RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV6;
constexpr uint8_t kUni4 = RSVP_CTYPE_SESSION_UNI_IPV4;
constexpr uint8_t kP2mp4 = RSVP_CTYPE_SESSION_P2MP_LSP_IPV4;
constexpr uint8_t kP2mp6 = RSVP_CTYPE_SESSION_P2MP_LSP_IPV6;

// The three 16-byte kinds share one layout; only the meaning (and byte order at the
// interface) of the word at offset 4 differs.
void put_tunnel_layout(uint8_t *obj, uint8_t c_type, uint16_t tunnel_id, uint32_t ext_id) {
    put_obj_hdr(obj, RSVP_CLASS_SESSION, c_type, kTunnelLen);
    wire::store_be16(obj + kReservedOffset, 0);
    wire::store_be16(obj + kPortOffset, tunnel_id);
    wire::store_raw32(obj + kExtIdOffset, ext_id);
}

// The C-Type of a session, or 0 for a null pointer.
uint8_t ctype_of(const uint8_t *obj) {
    return obj ? obj_ctype(obj) : 0;
}

bool ctype_in(const uint8_t *obj, std::initializer_list<uint8_t> c_types) {
    if (!obj) return false;
    for (uint8_t t : c_types)
        if (t == obj_ctype(obj)) return true;
    return false;
}

// The getters' common test: a SESSION of one of the C-Types whose Length covers the field.
// (The Length guard only keeps a short hostile object from being read past its end.)
bool session_field(const uint8_t *obj, std::initializer_list<uint8_t> c_types, unsigned offset,
                   unsigned width) {
    return ctype_in(obj, c_types) && obj_class(obj) == RSVP_CLASS_SESSION &&
           obj_length(obj) >= offset + width;
}

// The extractors answer only for a valid session of exactly their C-Type.
bool extractable(uint8_t *obj, uint8_t c_type) {
    return obj && obj_ctype(obj) == c_type && rsvp_valid_session_ipv4(obj);
}

void extract_tunnel_layout(const uint8_t *obj, uint16_t *tunnel_id, uint32_t *ext_id) {
    *tunnel_id = wire::load_be16(obj + kPortOffset);
    *ext_id = wire::load_raw32(obj + kExtIdOffset);
}

}  // namespace

extern "C" {

void rsvp_build_session_ipv4(uint8_t *obj, uint32_t dest_addr, uint8_t protocol, uint8_t flags,
                             uint16_t port) {
    put_obj_hdr(obj, RSVP_CLASS_SESSION, kIpv4, kIpv4Len);
    wire::store_raw32(obj + kAddrOffset, dest_addr);
    obj[kProtocolOffset] = protocol;
    obj[kFlagsOffset] = flags;
    wire::store_be16(obj + kPortOffset, port);
}

void rsvp_build_session_lsp_tunnel_ipv4(uint8_t *obj, uint32_t end_point, uint16_t tunnel_id,
                                        uint32_t ext_tunnel_id) {
    put_tunnel_layout(obj, kTunnel4, tunnel_id, ext_tunnel_id);
    wire::store_raw32(obj + kAddrOffset, end_point);
}

void rsvp_build_session_p2mp_lsp_ipv4(uint8_t *obj, uint32_t p2mp_id, uint16_t tunnel_id,
                                      uint32_t ext_tunnel_id) {
    put_tunnel_layout(obj, kP2mp4, tunnel_id, ext_tunnel_id);
    wire::store_be32(obj + kAddrOffset, p2mp_id);
}

void rsvp_build_session_uni_ipv4(uint8_t *obj, uint32_t dest_addr, uint16_t tunnel_id,
                                 uint32_t ext_tunnel_id) {
    put_tunnel_layout(obj, kUni4, tunnel_id, ext_tunnel_id);
    wire::store_raw32(obj + kAddrOffset, dest_addr);
}

int rsvp_valid_session_ipv4(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_SESSION) return 0;
    const uint16_t length = obj_length(obj);
    switch (obj_ctype(obj)) {
        case kIpv4: {
            if (length != kIpv4Len) return 0;
            const uint8_t protocol = obj[kProtocolOffset];
            if (protocol == RSVP_IP_PROTOCOL_TCP || protocol == RSVP_IP_PROTOCOL_UDP) return 1;
            // Only TCP and UDP have ports; any other protocol must leave the port 0.
            return wire::load_be16(obj + kPortOffset) == 0;
        }
        case kTunnel4:
        case kUni4:
            if (length != kTunnelLen) return 0;
            // An Extended Tunnel ID equal to the end point address is refused; the two words
            // are compared as they lie in the object.
            return wire::load_raw32(obj + kExtIdOffset) != wire::load_raw32(obj + kAddrOffset);
        case kP2mp4:
            return length == kTunnelLen;
        default:
            return 0;
    }
}

int rsvp_extract_session_ipv4(uint8_t *obj, uint32_t *dest_addr, uint8_t *protocol,
                              uint16_t *port) {
    if (!extractable(obj, kIpv4)) return 0;
    *dest_addr = wire::load_raw32(obj + kAddrOffset);
    *protocol = obj[kProtocolOffset];
    *port = wire::load_be16(obj + kPortOffset);
    return 1;
}

int rsvp_extract_session_lsp_tunnel_ipv4(uint8_t *obj, uint32_t *end_point, uint16_t *tunnel_id,
                                         uint32_t *ext_tunnel_id) {
    if (!extractable(obj, kTunnel4)) return 0;
    *end_point = wire::load_raw32(obj + kAddrOffset);
    extract_tunnel_layout(obj, tunnel_id, ext_tunnel_id);
    return 1;
}

int rsvp_extract_session_p2mp_lsp_ipv4(uint8_t *obj, uint32_t *p2mp_id, uint16_t *tunnel_id,
                                       uint32_t *ext_tunnel_id) {
    if (!extractable(obj, kP2mp4)) return 0;
    *p2mp_id = wire::load_be32(obj + kAddrOffset);
    extract_tunnel_layout(obj, tunnel_id, ext_tunnel_id);
    return 1;
}

int rsvp_extract_session_uni_ipv4(uint8_t *obj, uint32_t *dest_addr, uint16_t *tunnel_id,
                                  uint32_t *ext_tunnel_id) {
    if (!extractable(obj, kUni4)) return 0;
    *dest_addr = wire::load_raw32(obj + kAddrOffset);
    extract_tunnel_layout(obj, tunnel_id, ext_tunnel_id);
    return 1;
}

uint32_t rsvp_session_gen_ipv4_dst(uint8_t *obj) {
    if (!session_field(obj, {kIpv4, kTunnel4, kUni4}, kAddrOffset, kAddrLen)) return 0;
    return wire::load_raw32(obj + kAddrOffset);
}

uint16_t rsvp_session_gen_ipv4_port(uint8_t *obj) {
    if (!session_field(obj, {kIpv4, kTunnel4, kUni4, kP2mp4}, kPortOffset, kPortLen)) return 0;
    return wire::load_be16(obj + kPortOffset);
}

uint32_t rsvp_session_gen_ipv4_ext_id(uint8_t *obj) {
    if (!session_field(obj, {kTunnel4, kUni4, kP2mp4}, kExtIdOffset, kExtIdLen)) return 0;
    return wire::load_raw32(obj + kExtIdOffset);
}

uint32_t rsvp_session_gen_p2mp_id(uint8_t *obj) {
    if (!session_field(obj, {kP2mp4}, kAddrOffset, kAddrLen)) return 0;
    return wire::load_be32(obj + kAddrOffset);
}

uint8_t rsvp_session_gen_ipv4_protocol(uint8_t *obj) {
    if (!session_field(obj, {kIpv4}, kProtocolOffset, kByteLen)) return 0;
    return obj[kProtocolOffset];
}

uint8_t rsvp_session_gen_ipv4_flags(uint8_t *obj) {
    if (!session_field(obj, {kIpv4}, kFlagsOffset, kByteLen)) return 0;
    return obj[kFlagsOffset];
}

uint32_t RSVP_SESSION_DESTINATION(uint8_t *obj) {
    return rsvp_session_gen_ipv4_dst(obj);
}

uint16_t RSVP_SESSION_PORT(uint8_t *obj) {
    return rsvp_session_gen_ipv4_port(obj);
}

uint32_t RSVP_SESSION_EXT_TUNNEL_ID(uint8_t *obj) {
    return rsvp_session_gen_ipv4_ext_id(obj);
}

uint32_t RSVP_SESSION_P2MP_ID(uint8_t *obj) {
    return rsvp_session_gen_p2mp_id(obj);
}

uint8_t RSVP_SESSION_PROTOCOL(uint8_t *obj) {
    return rsvp_session_gen_ipv4_protocol(obj);
}

uint8_t RSVP_SESSION_FLAGS(uint8_t *obj) {
    return rsvp_session_gen_ipv4_flags(obj);
}

int rsvp_ip_ipv4_session(uint8_t *obj) {
    return ctype_in(obj, {kIpv4});
}

int rsvp_tunnel_ipv4_session(uint8_t *obj) {
    return ctype_in(obj, {kTunnel4});
}

int rsvp_uni_ipv4_session(uint8_t *obj) {
    return ctype_in(obj, {kUni4});
}

int rsvp_p2mp_lsp_ipv4_session(uint8_t *obj) {
    return ctype_in(obj, {kP2mp4});
}

int rsvp_session_gen_is_family_ipv4(uint8_t *obj) {
    return ctype_in(obj, {kIpv4, kTunnel4, kUni4, kP2mp4});
}

int rsvp_session_gen_is_family_ipv6(uint8_t *obj) {
    return ctype_in(obj, {kIpv6, kTunnel6, kP2mp6});
}

// The UNI kind shares the tunnel layout but is not a tunnel for these predicates.
int rsvp_session_gen_ipv4_is_tunnel(uint8_t *obj) {
    return ctype_in(obj, {kTunnel4, kP2mp4});
}

int rsvp_session_gen_ipv6_is_tunnel(uint8_t *obj) {
    return ctype_in(obj, {kTunnel6, kP2mp6});
}

int rsvp_session_gen_is_family_tunnel(uint8_t *obj) {
    return ctype_in(obj, {kTunnel4, kP2mp4, kTunnel6, kP2mp6});
}

// Sessions index the path and reservation state, so the order looks at the identifying
// fields only, by C-Type; neither Class-Num nor Length is looked at, and callers compare
// sessions they have validated. A zero port (C-Type 1) or a zero Extended Tunnel ID (the
// other kinds) is a wildcard: once the earlier fields agree, the sessions are the same.
int rsvp_compare_sessions(uint8_t *a, uint8_t *b) {
    if (a == b) return 0;
    const uint8_t c_type = ctype_of(a);
    if (int c = three_way<uint32_t>(c_type, ctype_of(b))) return c;
    // Equal C-Types, so both objects are present unless both C-Types are 0.
    switch (c_type) {
        case kIpv4: {
            if (int c = three_way<uint32_t>(wire::load_be32(a + kAddrOffset),
                                            wire::load_be32(b + kAddrOffset)))
                return c;
            if (int c = three_way<uint32_t>(a[kProtocolOffset], b[kProtocolOffset])) return c;
            const uint16_t port_a = wire::load_be16(a + kPortOffset);
            const uint16_t port_b = wire::load_be16(b + kPortOffset);
            return port_a == 0 || port_b == 0 ? 0 : three_way<uint32_t>(port_a, port_b);
        }
        case kTunnel4:
        case kUni4:
        case kP2mp4: {
            if (int c = three_way<uint32_t>(wire::load_be32(a + kAddrOffset),
                                            wire::load_be32(b + kAddrOffset)))
                return c;
            if (int c = three_way<uint32_t>(wire::load_be16(a + kPortOffset),
                                            wire::load_be16(b + kPortOffset)))
                return c;
            const uint32_t ext_a = wire::load_be32(a + kExtIdOffset);
            const uint32_t ext_b = wire::load_be32(b + kExtIdOffset);
            return ext_a == 0 || ext_b == 0 ? 0 : three_way<uint32_t>(ext_a, ext_b);
        }
        default:
            return 0;
    }
}

}  // extern "C"
