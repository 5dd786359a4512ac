// EXCLUDE_ROUTE (class 232, C-Type 1): resources the path computation must avoid.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length, Class-Num 232, C-Type 1)
//   4      ...  subobjects, packed to the object end
//
// Every subobject: byte 0 = L bit (0x80) + 7-bit type, byte 1 = length.
//
//   IPv4 prefix, type 1, length 8        Unnumbered interface, type 6, length 12
//   OFFSET SIZE FIELD                    OFFSET SIZE FIELD
//   2      4    IPv4 address (wire)      2      1    reserved, written 0
//   6      1    prefix length            3      1    attribute
//   7      1    attribute                4      4    router ID (wire order)
//                                        8      4    interface ID (big-endian)
//   SRLG, type 34, length 8
//   2      4    SRLG id (big-endian)     LSP, type 36, length 24
//   6      2    reserved, written 0      2      1    flags
//                                        3      1    attribute
//                                        4      4    tunnel endpoint (wire order)
//                                        8      2    reserved, written 0
//                                        10     2    tunnel ID (big-endian)
//                                        12     4    extended tunnel ID (wire order)
//                                        16     4    sender address (wire order)
//                                        20     2    reserved, written 0
//                                        22     2    LSP ID (big-endian)
//
// Bytes 4-23 of the LSP subobject are an LSP_TUNNEL_IPv4 SESSION body followed by an
// LSP_TUNNEL_IPv4 SENDER_TEMPLATE body. The unnumbered interface is type 6 here, not the 4 of
// EXPLICIT_ROUTE. The extractors trust their caller (who got the subobject from the walker and
// looked at its type) and neither validate nor check the type; every output is optional.
#include "rsvp_route_internal.hpp"

using namespace rsvp;
using namespace rsvp::route;

namespace {

constexpr uint8_t kCType = RSVP_CTYPE_EXCLUDE_ROUTE_SUBOBJECTS;

constexpr uint8_t kXroUnnum = RSVP_XRO_SUBOBJ_UNNUM;
constexpr uint8_t kXroSrlgLen = RSVP_XRO_SUBOBJ_SRLG_LEN;
constexpr uint8_t kLsp = RSVP_XRO_SUBOBJ_LSP;
constexpr uint8_t kLspLen = RSVP_XRO_SUBOBJ_LSP_LEN;

constexpr unsigned kIpv4AttrOffset = 7;
constexpr unsigned kUnnumReservedOffset = 2;
constexpr unsigned kUnnumAttrOffset = 3;
constexpr unsigned kSrlgIdOffset = 2;
constexpr unsigned kSrlgReservedOffset = 6;
constexpr unsigned kLspFlagsOffset = 2;
constexpr unsigned kLspAttrOffset = 3;
constexpr unsigned kLspEndpointOffset = 4;
constexpr unsigned kLspReserved1Offset = 8;
constexpr unsigned kLspTunnelIdOffset = 10;
constexpr unsigned kLspExtTunnelIdOffset = 12;
constexpr unsigned kLspSenderOffset = 16;
constexpr unsigned kLspReserved2Offset = 20;
constexpr unsigned kLspIdOffset = 22;

// byte 0 = L bit x 128 + type, as an 8-bit sum: a caller's L bit of 1 sets 0x80.
uint8_t type_byte(uint8_t l_bit, uint8_t type) {
    return static_cast<uint8_t>(l_bit * kLBit + type);
}

// The append position: behind the last subobject, and only if the subobjects end exactly at
// the object end. The walk stops once no more than a subobject header's worth of bytes is
// left; a remainder of one or two bytes then leaves no position.
uint8_t *append_position(uint8_t *obj) {
    if (!obj || obj_length(obj) < kObjHdrLen) return nullptr;
    const WalkEnd end = walk_trusted(obj_body(obj), body_remaining(obj), kSubHdrLen);
    if (end.stuck || end.remaining != 0) return nullptr;
    return end.pos;
}

void append(uint8_t *obj, uint8_t *sub, uint8_t l_bit, uint8_t type, uint8_t length) {
    put_sub_hdr(sub, type_byte(l_bit, type), length);
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(obj_length(obj) + length));
}

bool known_subobject(const uint8_t *sub) {
    switch (sub_type(sub)) {
        case kIpv4:
            return sub_length(sub) == kIpv4Len;
        case kXroUnnum:
            return sub_length(sub) == kUnnumLen;
        case kSrlg:
            return sub_length(sub) == kXroSrlgLen;
        case kLsp:
            return sub_length(sub) == kLspLen;
        default:
            return false;
    }
}

template <typename T>
void put_out(T *out, T value) {
    if (out) *out = value;
}

}  // namespace

extern "C" {

void rsvp_build_xro(uint8_t *obj) {
    if (obj) put_obj_hdr(obj, RSVP_CLASS_EXCLUDE_ROUTE, kCType, kObjHdrLen);
}

int rsvp_add_xro_ipv4_subobj(uint8_t *obj, uint8_t l_bit, uint32_t addr, uint8_t prefix_len,
                             uint8_t attr) {
    uint8_t *sub = append_position(obj);
    if (!sub) return 0;
    wire::store_raw32(sub + kIpv4AddrOffset, addr);
    sub[kIpv4PrefixLenOffset] = prefix_len;
    sub[kIpv4AttrOffset] = attr;
    append(obj, sub, l_bit, kIpv4, kIpv4Len);
    return 1;
}

int rsvp_add_xro_unnum_ifid_subobj(uint8_t *obj, uint8_t l_bit, uint8_t attr, uint32_t router_id,
                                   uint32_t if_id) {
    uint8_t *sub = append_position(obj);
    if (!sub) return 0;
    sub[kUnnumReservedOffset] = 0;
    sub[kUnnumAttrOffset] = attr;
    wire::store_raw32(sub + kUnnumRouterIdOffset, router_id);
    wire::store_be32(sub + kUnnumIfIdOffset, if_id);
    append(obj, sub, l_bit, kXroUnnum, kUnnumLen);
    return 1;
}

int rsvp_add_xro_srlg_subobj(uint8_t *obj, uint8_t l_bit, uint32_t srlg) {
    uint8_t *sub = append_position(obj);
    if (!sub) return 0;
    wire::store_be32(sub + kSrlgIdOffset, srlg);
    wire::store_be16(sub + kSrlgReservedOffset, 0);
    append(obj, sub, l_bit, kSrlg, kXroSrlgLen);
    return 1;
}

int rsvp_add_xro_lsp_subobj(uint8_t *obj, uint8_t l_bit, uint8_t attr, uint8_t flags,
                            uint16_t tunnel_id, uint16_t lsp_id, uint32_t sender, uint32_t endpoint,
                            uint32_t ext_tunnel_id) {
    uint8_t *sub = append_position(obj);
    if (!sub) return 0;
    sub[kLspFlagsOffset] = flags;
    sub[kLspAttrOffset] = attr;
    wire::store_raw32(sub + kLspEndpointOffset, endpoint);
    wire::store_be16(sub + kLspReserved1Offset, 0);
    wire::store_be16(sub + kLspTunnelIdOffset, tunnel_id);
    wire::store_raw32(sub + kLspExtTunnelIdOffset, ext_tunnel_id);
    wire::store_raw32(sub + kLspSenderOffset, sender);
    wire::store_be16(sub + kLspReserved2Offset, 0);
    wire::store_be16(sub + kLspIdOffset, lsp_id);
    append(obj, sub, l_bit, kLsp, kLspLen);
    return 1;
}

int rsvp_extract_xro_ipv4_subobj(uint8_t *sub, uint8_t *l_bit, uint32_t *addr, uint8_t *prefix_len,
                                 uint8_t *attr) {
    if (!sub) return 0;
    put_out<uint8_t>(l_bit, sub_l_bit(sub));
    put_out(addr, wire::load_raw32(sub + kIpv4AddrOffset));
    put_out(prefix_len, sub[kIpv4PrefixLenOffset]);
    put_out(attr, sub[kIpv4AttrOffset]);
    return 1;
}

int rsvp_extract_xro_unnum_ifid_subobj(uint8_t *sub, uint8_t *l_bit, uint8_t *attr,
                                       uint32_t *router_id, uint32_t *if_id) {
    if (!sub) return 0;
    put_out<uint8_t>(l_bit, sub_l_bit(sub));
    put_out(attr, sub[kUnnumAttrOffset]);
    put_out(router_id, wire::load_raw32(sub + kUnnumRouterIdOffset));
    put_out(if_id, wire::load_be32(sub + kUnnumIfIdOffset));
    return 1;
}

int rsvp_extract_xro_srlg_subobj(uint8_t *sub, uint8_t *l_bit, uint32_t *srlg) {
    if (!sub) return 0;
    put_out<uint8_t>(l_bit, sub_l_bit(sub));
    put_out(srlg, wire::load_be32(sub + kSrlgIdOffset));
    return 1;
}

int rsvp_extract_xro_lsp_subobj(uint8_t *sub, uint8_t *l_bit, uint8_t *attr, uint8_t *flags,
                                uint16_t *tunnel_id, uint16_t *lsp_id, uint32_t *sender,
                                uint32_t *endpoint, uint32_t *ext_tunnel_id) {
    if (!sub) return 0;
    put_out<uint8_t>(l_bit, sub_l_bit(sub));
    put_out(attr, sub[kLspAttrOffset]);
    put_out(flags, sub[kLspFlagsOffset]);
    put_out(tunnel_id, wire::load_be16(sub + kLspTunnelIdOffset));
    put_out(lsp_id, wire::load_be16(sub + kLspIdOffset));
    put_out(sender, wire::load_raw32(sub + kLspSenderOffset));
    put_out(endpoint, wire::load_raw32(sub + kLspEndpointOffset));
    put_out(ext_tunnel_id, wire::load_raw32(sub + kLspExtTunnelIdOffset));
    return 1;
}

uint8_t *rsvp_get_xro_next_sub_hdr(uint8_t *obj, uint8_t *prev) {
    if (!obj) return nullptr;
    uint8_t *cand = prev ? prev + sub_length(prev) : obj_body(obj);
    const long offset = cand - obj;
    const long length = obj_length(obj);
    // Bytes at the end that cannot hold even a subobject header end the walk: the walk never
    // reads behind the object, so a route built in any buffer validates and counts alike.
    if (offset + static_cast<long>(kSubHdrLen) > length) return nullptr;
    // A subobject must end at or before the object end.
    if (offset + sub_length(cand) > length) return nullptr;
    return cand;
}

int rsvp_valid_xro(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_EXCLUDE_ROUTE, kCType)) return 0;
    // Every known subobject has a non-zero length, so the walk advances until it ends.
    for (uint8_t *sub = rsvp_get_xro_next_sub_hdr(obj, nullptr); sub;
         sub = rsvp_get_xro_next_sub_hdr(obj, sub))
        if (!known_subobject(sub)) return 0;
    return 1;
}

uint32_t rsvp_xro_subobj_count(uint8_t *obj) {
    if (!rsvp_valid_xro(obj)) return 0;
    uint32_t count = 0;
    for (uint8_t *sub = rsvp_get_xro_next_sub_hdr(obj, nullptr); sub;
         sub = rsvp_get_xro_next_sub_hdr(obj, sub))
        ++count;
    return count;
}

uint8_t RSVP_XRO_SUB_LEN(uint8_t *sub) {
    return sub ? sub_length(sub) : 0;
}

uint8_t RSVP_XRO_SUB_LBIT(uint8_t *sub) {
    return sub && sub_l_bit(sub) ? 1 : 0;
}

uint8_t RSVP_XRO_SUB_TYPE(uint8_t *sub) {
    return sub ? sub_type(sub) : 0;
}

}  // extern "C"
