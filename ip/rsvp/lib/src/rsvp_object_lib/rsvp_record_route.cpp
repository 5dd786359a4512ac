// RECORD_ROUTE (class 21, C-Type 1): the nodes, interfaces, labels and shared-risk link groups
// that a Path or Resv crossed, newest first. A node records itself by inserting its
// subobjects at the front, so every insert moves the existing subobjects back.
//
//   OFFSET SIZE FIELD
//   0      4    object header: Length, Class-Num 21, C-Type 1
//   4      ...  subobjects, newest first, packed; an empty route is the bare header
//
// Subobject header. There is no L bit: byte 0 is the whole type and is compared raw.
//   0      1    Type
//   1      1    Length, header included
//
// Type 1, IPv4 address, Length 8         Type 4, unnumbered interface, Length 12
//   2      4    address (wire order)       2      1    flags
//   6      1    prefix length, 32          3      1    reserved (an insert leaves it alone)
//   7      1    flags                      4      4    router ID (wire order)
//                                          8      4    interface ID (big-endian)
// Type 3, label, Length 4 + 4n           Type 34, SRLG, Length 4 + 4n
//   2      1    flags                      2      2    reserved, 0
//   3      1    label C-Type               4      4n   SRLG identifiers (big-endian)
//   4      4n   labels (big-endian)
// Type 2, IPv6 address, Length 20: accepted by validation only.
#include <cstring>

#include "rsvp_object_internal.hpp"
#include "rsvp_route_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kIpv4AddrOffset = 2;
constexpr unsigned kIpv4PrefixOffset = 6;
constexpr unsigned kIpv4FlagsOffset = 7;
constexpr unsigned kUnnumFlagsOffset = 2;
constexpr unsigned kUnnumRouterIdOffset = 4;
constexpr unsigned kUnnumIfIdOffset = 8;
constexpr unsigned kLabelFlagsOffset = 2;
constexpr unsigned kLabelCTypeOffset = 3;
constexpr unsigned kSrlgReservedOffset = 2;
constexpr unsigned kSrlgReservedLen = 2;
// Labels and SRLG identifiers: one big-endian word each behind a 4-byte head.
constexpr unsigned kValuesOffset = RSVP_RRO_LABEL_HDR_LEN;
constexpr unsigned kValueLen = 4;
static_assert(RSVP_RRO_SRLG_HDR_LEN == kValuesOffset);
// Every RECORD_ROUTE subobject is a whole number of words, at least one.
constexpr unsigned kSubAlign = 4;
constexpr unsigned kSubMinLen = 4;
// The SRLG insert sees only the low byte of the object Length.
constexpr unsigned kLowByteMask = 0xFF;

bool is_valid_sub_of_type(uint8_t *sub, uint8_t type) {
    return valid_record_route_subobject(sub) && route::sub_raw_type(sub) == type;
}

// Number of 4-byte values in a label or SRLG subobject that has passed validation.
uint8_t value_count(const uint8_t *sub) {
    return static_cast<uint8_t>((route::sub_length(sub) - kValuesOffset) / kValueLen);
}

// Front insertion, first half: moves the `moved_basis - 4` bytes behind the header `room`
// bytes further on, then writes the new subobject's header at byte 4 and returns it. An
// object Length below 4 moves nothing; the caller guarantees the room.
uint8_t *open_front(uint8_t *obj, unsigned moved_basis, size_t room, uint8_t type,
                    uint8_t length_byte) {
    if (moved_basis >= kObjHdrLen)
        std::memmove(obj_body(obj) + room, obj_body(obj), moved_basis - kObjHdrLen);
    route::put_sub_hdr(obj_body(obj), type, length_byte);
    return obj_body(obj);
}

// Front insertion, second half: the object grows by the length byte just written (which for
// a long label list is not the number of bytes moved), in 16 bits.
uint8_t *grow_by_front_sub(uint8_t *obj, uint16_t old_length) {
    const auto grown = static_cast<uint16_t>(old_length + route::sub_length(obj_body(obj)));
    wire::store_be16(obj + kObjLengthOffset, grown);
    return obj;
}

void put_values(uint8_t *sub, const uint32_t *values, unsigned count) {
    for (unsigned i = 0; i < count; ++i)
        wire::store_be32(sub + kValuesOffset + i * kValueLen, values[i]);
}

void get_values(const uint8_t *sub, uint32_t *values, unsigned count) {
    for (unsigned i = 0; i < count; ++i)
        values[i] = wire::load_be32(sub + kValuesOffset + i * kValueLen);
}

constexpr auto count_raw_type =
    route::count_raw_type<rsvp_valid_record_route, valid_record_route_subobject>;

// The flag search walks an object that nobody validated, and reads each hop of the right type
// whole: near the end its flags byte lies behind the object Length (deliberate, at most 7
// bytes behind; so may the last length byte). A length byte of 0 ends the walk with 0 once
// that hop has been checked.
int check_flags(uint8_t *obj, uint8_t type, unsigned flags_offset, uint8_t mask) {
    if (!obj) return 0;
    const uint16_t length = obj_length(obj);
    if (length <= kObjHdrLen) return 0;
    const auto end =
        route::walk_trusted(obj_body(obj), length - kObjHdrLen, 0, [&](const uint8_t *sub) {
            return route::sub_raw_type(sub) == type && (sub[flags_offset] & mask) == mask;
        });
    return end.found ? 1 : 0;
}

}  // namespace

extern "C" {

void rsvp_build_record_route(uint8_t *obj) {
    if (obj)
        put_obj_hdr(obj, RSVP_CLASS_RECORD_ROUTE, RSVP_CTYPE_RECORD_ROUTE_SUBOBJECTS, kObjHdrLen);
}

uint8_t *rsvp_insert_record_route_ipv4(uint8_t *obj, uint32_t addr, uint8_t flags) {
    if (!obj) return nullptr;
    const uint16_t length = obj_length(obj);
    uint8_t *sub =
        open_front(obj, length, RSVP_RRO_IPV4_LEN, RSVP_RRO_SUBOBJ_IPV4, RSVP_RRO_IPV4_LEN);
    wire::store_raw32(sub + kIpv4AddrOffset, addr);
    sub[kIpv4PrefixOffset] = RSVP_RRO_IPV4_PREFIX_LEN;
    sub[kIpv4FlagsOffset] = flags;
    return grow_by_front_sub(obj, length);
}

uint8_t *rsvp_insert_record_route_unnum(uint8_t *obj, uint32_t router_id, uint32_t if_id,
                                        uint8_t flags) {
    if (!obj) return nullptr;
    const uint16_t length = obj_length(obj);
    uint8_t *sub =
        open_front(obj, length, RSVP_RRO_UNNUM_LEN, RSVP_RRO_SUBOBJ_UNNUM, RSVP_RRO_UNNUM_LEN);
    sub[kUnnumFlagsOffset] = flags;
    // Byte 3 (reserved) keeps whatever the move left there.
    wire::store_raw32(sub + kUnnumRouterIdOffset, router_id);
    wire::store_be32(sub + kUnnumIfIdOffset, if_id);
    return grow_by_front_sub(obj, length);
}

uint8_t *rsvp_insert_record_route_label(uint8_t *obj, const uint32_t *labels, uint16_t count,
                                        uint8_t c_type, uint8_t flags) {
    if (!obj || !labels || count == 0) return nullptr;
    const uint16_t length = obj_length(obj);
    // Kept as it stands: the move makes room for every label, while the length byte (and so
    // the object's growth) is the subobject length cut to 8 bits. Up to 62 labels the two
    // agree; beyond that the object is corrupt.
    const size_t sub_len = RSVP_RRO_LABEL_HDR_LEN + size_t{kValueLen} * count;
    uint8_t *sub =
        open_front(obj, length, sub_len, RSVP_RRO_SUBOBJ_LABEL, static_cast<uint8_t>(sub_len));
    sub[kLabelFlagsOffset] = flags;
    sub[kLabelCTypeOffset] = c_type;
    put_values(sub, labels, count);
    return grow_by_front_sub(obj, length);
}

uint8_t *rsvp_insert_record_route_srlg(uint8_t *obj, const uint32_t *srlgs, uint8_t count) {
    if (!obj || count > RSVP_RRO_MAX_VALUES) return nullptr;
    const uint16_t length = obj_length(obj);
    const unsigned sub_len = RSVP_RRO_SRLG_HDR_LEN + kValueLen * count;
    // Kept as it stands: only the low 8 bits of the object Length decide whether and how much
    // to move, so an object longer than 255 bytes is moved short (or not at all).
    uint8_t *sub = open_front(obj, length & kLowByteMask, sub_len, RSVP_RRO_SUBOBJ_SRLG,
                              static_cast<uint8_t>(sub_len));
    std::memset(sub + kSrlgReservedOffset, 0, kSrlgReservedLen);
    if (srlgs && count != 0) put_values(sub, srlgs, count);
    return grow_by_front_sub(obj, length);
}

int valid_record_route_subobject(uint8_t *sub) {
    if (!sub) return 0;
    const uint8_t length = route::sub_length(sub);
    if (length % kSubAlign != 0 || length < kSubMinLen) return 0;
    switch (route::sub_raw_type(sub)) {
        case RSVP_RRO_SUBOBJ_IPV4:
            return length == RSVP_RRO_IPV4_LEN;
        case RSVP_RRO_SUBOBJ_IPV6:
            return length == RSVP_RRO_IPV6_LEN;
        case RSVP_RRO_SUBOBJ_UNNUM:
            return length == RSVP_RRO_UNNUM_LEN;
        default:
            // Label, SRLG and every type this library does not know: any length that is a
            // whole number of words.
            return 1;
    }
}

int rsvp_valid_record_route(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_RECORD_ROUTE, RSVP_CTYPE_RECORD_ROUTE_SUBOBJECTS)) return 0;
    const uint16_t length = obj_length(obj);
    if (length % kObjAlign != 0 || length < kObjHdrLen) return 0;
    // The remaining count stays a multiple of 4 (so does every valid subobject length): each
    // subobject header looked at lies inside the object. Unlike EXPLICIT_ROUTE, a last
    // subobject that reaches past the end makes the object invalid.
    for (unsigned off = kObjBodyOffset; off < length;) {
        uint8_t *sub = obj + off;
        if (route::sub_length(sub) > length - off || !valid_record_route_subobject(sub)) return 0;
        off += route::sub_length(sub);
    }
    return 1;
}

uint8_t *rsvp_extract_rro_next_subobject(uint8_t *obj, uint8_t *prev) {
    return route::next_subobject<rsvp_valid_record_route, valid_record_route_subobject>(obj, prev);
}

uint32_t rsvp_count_rro_subobject_ipv4(uint8_t *obj) {
    return count_raw_type(obj, RSVP_RRO_SUBOBJ_IPV4);
}

uint32_t rsvp_count_rro_subobject_unnum(uint8_t *obj) {
    return count_raw_type(obj, RSVP_RRO_SUBOBJ_UNNUM);
}

int rsvp_extract_rro_subobject_ipv4(uint8_t *sub, uint32_t *addr, uint8_t *prefix_len,
                                    uint8_t *flags) {
    if (!addr || !prefix_len || !flags || !is_valid_sub_of_type(sub, RSVP_RRO_SUBOBJ_IPV4))
        return 0;
    *addr = wire::load_raw32(sub + kIpv4AddrOffset);
    *prefix_len = sub[kIpv4PrefixOffset];
    *flags = sub[kIpv4FlagsOffset];
    return 1;
}

int rsvp_extract_rro_subobject_unnum(uint8_t *sub, uint32_t *router_id, uint32_t *if_id,
                                     uint8_t *flags) {
    if (!router_id || !if_id || !flags || !is_valid_sub_of_type(sub, RSVP_RRO_SUBOBJ_UNNUM))
        return 0;
    *router_id = wire::load_raw32(sub + kUnnumRouterIdOffset);
    *if_id = wire::load_be32(sub + kUnnumIfIdOffset);
    *flags = sub[kUnnumFlagsOffset];
    return 1;
}

uint8_t rsvp_extract_rro_subobject_label_count(uint8_t *sub) {
    return is_valid_sub_of_type(sub, RSVP_RRO_SUBOBJ_LABEL) ? value_count(sub) : 0;
}

int rsvp_extract_rro_subobject_label(uint8_t *sub, uint32_t **labels, uint8_t *count,
                                     uint8_t *flags, uint8_t *c_type) {
    if (!labels || !*labels || !count || !flags || !c_type ||
        !is_valid_sub_of_type(sub, RSVP_RRO_SUBOBJ_LABEL))
        return 0;
    *count = value_count(sub);
    get_values(sub, *labels, *count);
    *flags = sub[kLabelFlagsOffset];
    *c_type = sub[kLabelCTypeOffset];
    return 1;
}

uint8_t rsvp_extract_rro_subobject_srlg_count(uint8_t *sub) {
    return is_valid_sub_of_type(sub, RSVP_RRO_SUBOBJ_SRLG) ? value_count(sub) : 0;
}

int rsvp_extract_rro_subobject_srlg(uint8_t *sub, uint32_t *srlgs, uint8_t *count) {
    if (!srlgs || !count || !is_valid_sub_of_type(sub, RSVP_RRO_SUBOBJ_SRLG)) return 0;
    *count = value_count(sub);
    get_values(sub, srlgs, *count);
    return 1;
}

int rsvp_rro_check_ipv4_flags(uint8_t *obj, uint8_t mask) {
    return check_flags(obj, RSVP_RRO_SUBOBJ_IPV4, kIpv4FlagsOffset, mask);
}

int rsvp_rro_check_unnum_flags(uint8_t *obj, uint8_t mask) {
    return check_flags(obj, RSVP_RRO_SUBOBJ_UNNUM, kUnnumFlagsOffset, mask);
}

uint8_t RSVP_RRO_GENERIC_TYPE(uint8_t *sub) {
    return valid_record_route_subobject(sub) ? route::sub_raw_type(sub) : 0;
}

uint8_t RSVP_RRO_GENERIC_LENGTH(uint8_t *sub) {
    return valid_record_route_subobject(sub) ? route::sub_length(sub) : 0;
}

}  // extern "C"
