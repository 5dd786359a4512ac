// EXPLICIT_ROUTE (class 20, C-Type 1): the abstract nodes a Path message must follow.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length, Class-Num 20, C-Type 1)
//   4      ...  subobjects, packed without padding; an empty route is the bare header
//
// Every subobject: byte 0 = L bit (0x80, loose hop when set) + 7-bit type, byte 1 = length.
//
//   IPv4 prefix, type 1, length 8        Unnumbered interface, type 4, length 12
//   OFFSET SIZE FIELD                    OFFSET SIZE FIELD
//   2      4    IPv4 address (wire)      2      2    reserved, written 0
//   6      1    prefix length (bits)     4      4    router ID (wire order)
//   7      1    reserved, written 0      8      4    interface ID (big-endian)
//
//   AS number, type 32, length 4         IPv6 prefix, type 2, length 20
//   2      2    AS number (big-endian)   accepted by validation; never built or extracted
//
// Received routes are checked subobject by subobject, but a last subobject that runs past the
// object end is accepted as it stands. Appends trust the content already in the object.
#include <cstring>

#include "rsvp_route_internal.hpp"

using namespace rsvp;
using namespace rsvp::route;

namespace {

constexpr uint8_t kCType = RSVP_CTYPE_EXPLICIT_ROUTE_SUBOBJECTS;

constexpr unsigned kIpv4ReservedOffset = 7;
constexpr unsigned kUnnumReservedOffset = 2;
constexpr unsigned kAsNumberOffset = 2;

constexpr uint8_t kAs = RSVP_ERO_SUBOBJ_AS;
constexpr uint8_t kAsLen = RSVP_ERO_SUBOBJ_AS_LEN;

void grow(uint8_t *obj, uint16_t length, uint8_t by) {
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(length + by));
}

// An unnumbered subobject to the same interface, loose or strict alike, whatever its length
// byte says. The subobject starts inside the object, so bytes 4-11 lie at most 11 bytes behind
// the object end, within the 12 bytes of room the caller guarantees for the append.
bool same_unnum(const uint8_t *sub, uint32_t router_id, uint32_t if_id) {
    return sub_type(sub) == kUnnum && wire::load_raw32(sub + kUnnumRouterIdOffset) == router_id &&
           wire::load_be32(sub + kUnnumIfIdOffset) == if_id;
}

constexpr auto count_of =
    route::count_raw_type<rsvp_valid_explicit_route, rsvp_valid_explicit_route_subobject>;

// A valid subobject whose raw type byte has the kind's bit set. Each of the four valid types
// (1, 2, 4, 32) has a bit that no other has, so this accepts exactly that type, loose or not.
bool valid_of_kind(uint8_t *sub, uint8_t kind_bit) {
    return rsvp_valid_explicit_route_subobject(sub) && (sub_raw_type(sub) & kind_bit) != 0;
}

}  // namespace

extern "C" {

void rsvp_build_explicit_route(uint8_t *obj) {
    if (obj) put_obj_hdr(obj, RSVP_CLASS_EXPLICIT_ROUTE, kCType, kObjHdrLen);
}

int rsvp_add_explicit_route_ipv4(uint8_t *obj, int loose, uint32_t addr, uint8_t prefix_len) {
    if (!obj) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return 0;
    const WalkEnd end = walk_trusted(obj_body(obj), body_remaining(obj), 0);
    if (end.stuck) return 0;
    uint8_t *sub = end.pos;
    put_sub_hdr(sub, with_l_bit(loose != 0, kIpv4), kIpv4Len);
    wire::store_raw32(sub + kIpv4AddrOffset, addr);
    sub[kIpv4PrefixLenOffset] = prefix_len;  // stored as given, even above 32
    sub[kIpv4ReservedOffset] = 0;
    grow(obj, length, kIpv4Len);
    return 1;
}

int rsvp_add_explicit_route_unnum(uint8_t *obj, int loose, uint32_t router_id, uint32_t if_id) {
    if (!obj) return 0;
    // Unlike the IPv4 append, a length below the header is not refused: the walk is empty
    // and the subobject goes to byte 4.
    const uint16_t length = obj_length(obj);
    const WalkEnd end =
        walk_trusted(obj_body(obj), body_remaining(obj), 0,
                     [&](const uint8_t *sub) { return same_unnum(sub, router_id, if_id); });
    if (end.found || end.stuck) return 0;
    uint8_t *sub = end.pos;
    put_sub_hdr(sub, with_l_bit(loose != 0, kUnnum), kUnnumLen);
    wire::store_be16(sub + kUnnumReservedOffset, 0);
    wire::store_raw32(sub + kUnnumRouterIdOffset, router_id);
    wire::store_be32(sub + kUnnumIfIdOffset, if_id);
    grow(obj, length, kUnnumLen);
    return 1;
}

int rsvp_valid_explicit_route_subobject(uint8_t *sub) {
    if (!sub) return 0;
    const uint8_t length = sub_length(sub);
    if (length < kSubHdrLen) return 0;
    switch (sub_type(sub)) {
        case kIpv4:
            return length == kIpv4Len;
        case kUnnum:
            return length == kUnnumLen;
        case kIpv6:
            return length == kIpv6Len;
        case kAs:
            return length == kAsLen;
        default:
            return 0;
    }
}

int rsvp_valid_explicit_route(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_EXPLICIT_ROUTE, kCType)) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return 0;
    int32_t remaining = body_remaining(obj);
    uint8_t *sub = obj_body(obj);
    // Each step checks only the subobject header. The last subobject may run past the object
    // end and is accepted; with one byte left, its length byte is read just past the end.
    while (remaining > 0) {
        if (!rsvp_valid_explicit_route_subobject(sub)) return 0;
        remaining -= sub_length(sub);
        sub += sub_length(sub);
    }
    return 1;
}

uint8_t *rsvp_extract_ero_next_subobject(uint8_t *obj, uint8_t *prev) {
    return next_subobject<rsvp_valid_explicit_route, rsvp_valid_explicit_route_subobject>(obj,
                                                                                          prev);
}

// The raw type byte is compared, so loose hops (0x81, 0x84) are not counted.
uint32_t rsvp_count_ero_subobject_ipv4(uint8_t *obj) {
    return count_of(obj, kIpv4);
}

uint32_t rsvp_count_ero_subobject_unnum(uint8_t *obj) {
    return count_of(obj, kUnnum);
}

int rsvp_extract_ero_subobject_ipv4(uint8_t *sub, uint32_t *addr, uint8_t *prefix_len) {
    if (!valid_of_kind(sub, kIpv4)) return 0;
    *addr = wire::load_raw32(sub + kIpv4AddrOffset);
    *prefix_len = sub[kIpv4PrefixLenOffset];
    return 1;
}

int rsvp_extract_ero_subobject_unnum(uint8_t *sub, uint32_t *router_id, uint32_t *if_id) {
    if (!valid_of_kind(sub, kUnnum)) return 0;
    *router_id = wire::load_raw32(sub + kUnnumRouterIdOffset);
    *if_id = wire::load_be32(sub + kUnnumIfIdOffset);
    return 1;
}

int rsvp_extract_ero_subobject_as(uint8_t *sub, uint16_t *as_number) {
    if (!valid_of_kind(sub, kAs)) return 0;
    *as_number = wire::load_be16(sub + kAsNumberOffset);
    return 1;
}

// The L bit takes part: a loose and a strict hop to the same node differ.
int rsvp_compare_explicit_route_subobjects(uint8_t *a, uint8_t *b) {
    if (a == b) return 0;
    if (!a || !b) return 1;
    if (sub_length(a) != sub_length(b)) return 1;
    return std::memcmp(a, b, sub_length(a));
}

uint8_t RSVP_ERO_GENERIC_TYPE(uint8_t *sub) {
    return rsvp_valid_explicit_route_subobject(sub) ? sub_raw_type(sub) : 0;
}

uint8_t RSVP_ERO_GENERIC_LENGTH(uint8_t *sub) {
    return rsvp_valid_explicit_route_subobject(sub) ? sub_length(sub) : 0;
}

// The two setters check that the subobject is valid, not that it is an IPv4 prefix.
void RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(uint8_t *sub, uint32_t addr) {
    if (rsvp_valid_explicit_route_subobject(sub)) wire::store_raw32(sub + kIpv4AddrOffset, addr);
}

void RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(uint8_t *sub, uint8_t prefix_len) {
    if (rsvp_valid_explicit_route_subobject(sub)) sub[kIpv4PrefixLenOffset] = prefix_len;
}

uint8_t *RSVP_ERO_FIRST_SUBOBJ(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID ? obj_body(obj) : nullptr;
}

}  // extern "C"
