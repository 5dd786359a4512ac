// Subobjects of the route objects: EXPLICIT_ROUTE, RECORD_ROUTE and EXCLUDE_ROUTE.
//
// All three carry a run of subobjects behind the object header, each with the same 2-byte
// subobject header:
//
//   OFFSET SIZE FIELD
//   0      1    type byte (EXPLICIT_ROUTE, EXCLUDE_ROUTE: L bit 0x80 + 7-bit type;
//                          RECORD_ROUTE: the whole byte is the type)
//   1      1    length (bytes, this header included)
//   2      ...  subobject body
//
// What is shared here is only what the three objects really do alike: the header accessors,
// the walk over trusted content, and the validated walk and count that EXPLICIT_ROUTE and
// RECORD_ROUTE run with their own validators. How each object validates its subobjects,
// whether an overrunning last subobject is accepted and where an append goes stay in the
// family files, because there the objects differ on purpose.
#pragma once

#include <cstdint>

#include "rsvp_object_internal.hpp"

namespace rsvp::route {

inline constexpr unsigned kSubTypeOffset = 0;
inline constexpr unsigned kSubLengthOffset = 1;
inline constexpr unsigned kSubHdrLen = RSVP_ROUTE_SUBOBJ_HDR_LEN;
inline constexpr uint8_t kLBit = RSVP_ROUTE_SUBOBJ_L_BIT;
inline constexpr uint8_t kTypeMask = RSVP_ROUTE_SUBOBJ_TYPE_MASK;

// Subobject types and lengths that mean the same in more than one route object.
inline constexpr uint8_t kIpv4 = RSVP_ROUTE_SUBOBJ_IPV4;
inline constexpr uint8_t kIpv4Len = RSVP_ROUTE_SUBOBJ_IPV4_LEN;
inline constexpr uint8_t kIpv6 = RSVP_ROUTE_SUBOBJ_IPV6;
inline constexpr uint8_t kIpv6Len = RSVP_ROUTE_SUBOBJ_IPV6_LEN;
inline constexpr uint8_t kUnnum = RSVP_ROUTE_SUBOBJ_UNNUM;
inline constexpr uint8_t kUnnumLen = RSVP_ROUTE_SUBOBJ_UNNUM_LEN;
inline constexpr uint8_t kSrlg = RSVP_ROUTE_SUBOBJ_SRLG;

// Where the IPv4 prefix and unnumbered interface subobjects keep their fields: the same in
// all three objects (the bytes around them differ: reserved, flags or attribute).
inline constexpr unsigned kIpv4AddrOffset = 2;
inline constexpr unsigned kIpv4PrefixLenOffset = 6;
inline constexpr unsigned kUnnumRouterIdOffset = 4;
inline constexpr unsigned kUnnumIfIdOffset = 8;

// The validated walk and counts give up after this many steps.
inline constexpr unsigned kMaxWalkSteps = 10000;

// The type byte as it lies on the wire (the L bit included where the object has one).
inline uint8_t sub_raw_type(const uint8_t *sub) {
    return sub[kSubTypeOffset];
}
// The 7-bit type of an object with an L bit.
inline uint8_t sub_type(const uint8_t *sub) {
    return sub[kSubTypeOffset] & kTypeMask;
}
inline bool sub_l_bit(const uint8_t *sub) {
    return (sub[kSubTypeOffset] & kLBit) != 0;
}
inline uint8_t sub_length(const uint8_t *sub) {
    return sub[kSubLengthOffset];
}
inline void put_sub_hdr(uint8_t *sub, uint8_t type_byte, uint8_t length) {
    sub[kSubTypeOffset] = type_byte;
    sub[kSubLengthOffset] = length;
}
// Type byte of a loose (L set) or strict hop.
inline uint8_t with_l_bit(bool loose, uint8_t type) {
    return static_cast<uint8_t>(loose ? (kLBit | type) : type);
}

// Bytes behind the object header as a signed count: below 0 for a Length under 4, and free
// to go negative when a last subobject runs past the object end.
inline int32_t body_remaining(const uint8_t *obj) {
    return static_cast<int32_t>(obj_length(obj)) - static_cast<int32_t>(kObjHdrLen);
}

// Where a walk over trusted content ended.
struct WalkEnd {
    uint8_t *pos;       // the subobject the visitor stopped at, or the byte behind the last step
    int32_t remaining;  // the count when the walk ended
    bool found;         // the visitor stopped the walk
    bool stuck;         // a zero length byte stopped progress (guard: the walk gives up there)
};

// Steps over subobjects from `first` while the remaining count is above `floor`, subtracting
// each length byte. Nothing is validated: the content is trusted, so a last subobject may
// carry the walk past the object end (remaining below 0). visit(sub) is called on each
// subobject before stepping over it; returning true ends the walk there.
template <typename Visit>
WalkEnd walk_trusted(uint8_t *first, int32_t remaining, int32_t floor, Visit &&visit) {
    uint8_t *pos = first;
    while (remaining > floor) {
        if (visit(pos)) return {pos, remaining, true, false};
        const uint8_t length = sub_length(pos);
        // A zero length would make no progress: an endless walk without this guard.
        if (length == 0) return {pos, remaining, false, true};
        remaining -= length;
        pos += length;
    }
    return {pos, remaining, false, false};
}

inline WalkEnd walk_trusted(uint8_t *first, int32_t remaining, int32_t floor) {
    return walk_trusted(first, remaining, floor, [](const uint8_t *) { return false; });
}

// One step of the validated walk, the same for EXPLICIT_ROUTE and RECORD_ROUTE with their own
// subobject check, over an object that has already passed its validator: start at byte 4, or
// step over the previous subobject once it has validated; the candidate must lie before the
// object end and validate itself.
template <int (*ValidSub)(uint8_t *)>
uint8_t *step_valid(uint8_t *obj, uint8_t *prev) {
    uint8_t *cand;
    if (!prev) {
        cand = obj_body(obj);
    } else {
        if (!ValidSub(prev)) return nullptr;
        cand = prev + sub_length(prev);
    }
    if (cand - obj >= static_cast<long>(obj_length(obj))) return nullptr;
    if (!ValidSub(cand)) return nullptr;
    return cand;
}

// The exported walker: the object is validated on every call, as a caller's loop expects.
template <int (*ValidObject)(uint8_t *), int (*ValidSub)(uint8_t *)>
uint8_t *next_subobject(uint8_t *obj, uint8_t *prev) {
    return ValidObject(obj) ? step_valid<ValidSub>(obj, prev) : nullptr;
}

// Counts the subobjects whose raw type byte equals raw_type (so an L bit makes a subobject
// of another "type"), walking from the start for at most kMaxWalkSteps steps. The walk gives
// what the exported walker would give step by step: the object does not change while it is
// counted, so it is validated once, not once per step.
template <int (*ValidObject)(uint8_t *), int (*ValidSub)(uint8_t *)>
uint32_t count_raw_type(uint8_t *obj, uint8_t raw_type) {
    if (!ValidObject(obj)) return 0;
    uint32_t count = 0;
    uint8_t *sub = nullptr;
    for (unsigned step = 0; step < kMaxWalkSteps; ++step) {
        sub = step_valid<ValidSub>(obj, sub);
        if (!sub) break;
        if (sub_raw_type(sub) == raw_type) ++count;
    }
    return count;
}

}  // namespace rsvp::route
