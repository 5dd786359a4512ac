// Internal view of the 4-byte object header, shared by every family file.
//
//   OFFSET SIZE FIELD
//   0      2    Length (bytes, header included; >= 4 and a multiple of 4 when well formed)
//   2      1    Class-Num (0: null filler object)
//   3      1    C-Type
//   4      ...  body
#pragma once

#include <cstdint>

#include "rsvp_object_lib.h"
#include "rsvp_wire.hpp"

namespace rsvp {

inline constexpr unsigned kObjLengthOffset = 0;
inline constexpr unsigned kObjClassOffset = 2;
inline constexpr unsigned kObjCTypeOffset = 3;
inline constexpr unsigned kObjBodyOffset = 4;
inline constexpr unsigned kObjHdrLen = RSVP_OBJ_HDR_LEN;
inline constexpr unsigned kObjAlign = 4;

inline uint16_t obj_length(const uint8_t *obj) {
    return wire::load_be16(obj + kObjLengthOffset);
}
inline uint8_t obj_class(const uint8_t *obj) {
    return obj[kObjClassOffset];
}
inline uint8_t obj_ctype(const uint8_t *obj) {
    return obj[kObjCTypeOffset];
}
inline uint8_t *obj_body(uint8_t *obj) {
    return obj + kObjBodyOffset;
}
inline const uint8_t *obj_body(const uint8_t *obj) {
    return obj + kObjBodyOffset;
}

// Writes the object header; the family builders all start here.
inline void put_obj_hdr(uint8_t *obj, uint8_t class_num, uint8_t c_type, uint16_t length) {
    wire::store_be16(obj + kObjLengthOffset, length);
    obj[kObjClassOffset] = class_num;
    obj[kObjCTypeOffset] = c_type;
}

// Header-level shape that the walk demands of every object it steps over or returns.
inline bool obj_walkable(uint16_t length, uint32_t remaining) {
    return length >= kObjHdrLen && length % kObjAlign == 0 && length <= remaining;
}

// Class-Num and C-Type together, the first test of most family validators.
inline bool obj_is(const uint8_t *obj, uint8_t class_num, uint8_t c_type) {
    return obj_class(obj) == class_num && obj_ctype(obj) == c_type;
}

// -1, 0 or 1 as a sorts before, with or after b: the step of every ordering.
template <typename T>
inline int three_way(T a, T b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

}  // namespace rsvp
