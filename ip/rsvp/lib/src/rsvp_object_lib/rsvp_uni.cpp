// GENERALIZED_UNI (class 208, C-Type 1): the attributes of a connection requested across the
// optical User-Network Interface, as subobjects packed up to the object Length.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length, Class-Num 208, C-Type 1)
//   4      ...  subobjects
//
// Subobject (shaped like an object header):
//   OFFSET SIZE FIELD
//   0      2    length, header included: at least 4, a multiple of 4; exactly 8 for a TNA
//   2      1    type: 1 source TNA, 2 destination TNA, 3..5 further attributes (opaque here)
//   3      1    sub-type: 1 (for the TNA types: IPv4)
//   4      4    IPv4 TNA address (wire order)
//
// The walker deliberately examines a candidate that starts exactly at the object end, reading
// the bytes behind the object; callers stop when the lengths add up to the object Length.
#include <cstddef>

#include "rsvp_assert.hpp"
#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kSubLengthOffset = 0;
constexpr unsigned kSubTypeOffset = 2;
constexpr unsigned kSubSubTypeOffset = 3;
constexpr unsigned kSubAddrOffset = 4;
constexpr unsigned kSubHdrLen = RSVP_GUA_SUBOBJ_HDR_LEN;
constexpr unsigned kTnaLen = RSVP_GUA_TNA_IPV4_LEN;
static_assert(kSubAddrOffset + 4 == kTnaLen);
constexpr uint8_t kFirstType = RSVP_GUA_SUBOBJ_SRC_TNA;
constexpr uint8_t kLastType = RSVP_GUA_SUBOBJ_SERVICE_LEVEL;

uint16_t sub_length(const uint8_t *sub) {
    return wire::load_be16(sub + kSubLengthOffset);
}
uint8_t sub_type(const uint8_t *sub) {
    return sub[kSubTypeOffset];
}

bool is_tna(uint8_t type) {
    return type == RSVP_GUA_SUBOBJ_SRC_TNA || type == RSVP_GUA_SUBOBJ_DST_TNA;
}

bool valid_sub(const uint8_t *sub) {
    if (!sub) return false;
    const uint16_t length = sub_length(sub);
    const uint8_t type = sub_type(sub);
    if (length < kSubHdrLen || length % kSubHdrLen != 0) return false;
    if (type < kFirstType || type > kLastType) return false;
    if (sub[kSubSubTypeOffset] != RSVP_GUA_SUBTYPE_IPV4) return false;
    return !is_tna(type) || length == kTnaLen;
}

// Appends a TNA of the given type unless one is present. The object is the caller's own:
// subobjects that do not end exactly at its Length break the caller's precondition and stop
// the process.
int add_tna(uint8_t *obj, uint8_t type, uint32_t address) {
    if (!obj) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return 0;
    int remaining = length - static_cast<int>(kObjHdrLen);
    const uint8_t *pos = obj_body(obj);
    while (remaining > 0) {
        // A header that does not fit before the end, or a length of 0 that would never advance,
        // cannot be stepped over: the walk stops short and the assertion reports the object.
        if (remaining < static_cast<int>(kSubHdrLen)) break;
        if (sub_type(pos) == type) return 0;
        const uint16_t sub_len = sub_length(pos);
        if (sub_len == 0) break;
        remaining -= sub_len;
        pos += sub_len;
    }
    RSVP_ASSERT(remaining == 0);
    uint8_t *sub = obj + length;
    wire::store_be16(sub + kSubLengthOffset, kTnaLen);
    sub[kSubTypeOffset] = type;
    sub[kSubSubTypeOffset] = RSVP_GUA_SUBTYPE_IPV4;
    wire::store_raw32(sub + kSubAddrOffset, address);
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(length + kTnaLen));
    return 1;
}

int extract_tna(uint8_t *sub, uint8_t type, uint32_t *address) {
    // valid_sub already demands sub-type 1.
    if (!address || !valid_sub(sub) || sub_type(sub) != type) return 0;
    *address = wire::load_raw32(sub + kSubAddrOffset);
    return 1;
}

// The address word of any valid subobject; a 4-byte one (types 3..5) has it read from the
// 4 bytes behind it, deliberately.
uint32_t address_word(uint8_t *sub) {
    return valid_sub(sub) ? wire::load_raw32(sub + kSubAddrOffset) : 0;
}

}  // namespace

extern "C" {

void rsvp_build_gen_uni_attr(uint8_t *obj) {
    if (obj) put_obj_hdr(obj, RSVP_CLASS_GENERALIZED_UNI, RSVP_CTYPE_GENERALIZED_UNI, kObjHdrLen);
}

int rsvp_add_src_tna_ipv4(uint8_t *obj, uint32_t address) {
    return add_tna(obj, RSVP_GUA_SUBOBJ_SRC_TNA, address);
}

int rsvp_add_dst_tna_ipv4(uint8_t *obj, uint32_t address) {
    return add_tna(obj, RSVP_GUA_SUBOBJ_DST_TNA, address);
}

int rsvp_valid_gen_uni_attr_subobject(uint8_t *sub) {
    return valid_sub(sub);
}

int rsvp_valid_gen_uni_attr(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_GENERALIZED_UNI, RSVP_CTYPE_GENERALIZED_UNI)) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return 0;
    unsigned remaining = length - kObjHdrLen;
    const uint8_t *pos = obj_body(obj);
    while (remaining > 0) {
        // Every valid subobject is at least a header long, so a shorter rest cannot hold one.
        if (remaining < kSubHdrLen) return 0;
        const uint16_t sub_len = sub_length(pos);
        if (sub_len > remaining || !valid_sub(pos)) return 0;
        remaining -= sub_len;
        pos += sub_len;
    }
    return 1;
}

uint8_t *rsvp_extract_gen_uni_attr_next_subobj(uint8_t *obj, uint8_t *prev) {
    if (!rsvp_valid_gen_uni_attr(obj)) return nullptr;
    uint8_t *candidate = obj_body(obj);
    if (prev) {
        if (!valid_sub(prev)) return nullptr;
        candidate = prev + sub_length(prev);
    }
    if (candidate - obj > static_cast<std::ptrdiff_t>(obj_length(obj))) return nullptr;
    // Deliberate: a candidate exactly at the object end is still examined, reading its header
    // from the bytes behind the object.
    return valid_sub(candidate) ? candidate : nullptr;
}

int rsvp_extract_src_tna_ipv4_subobj(uint8_t *sub, uint32_t *address) {
    return extract_tna(sub, RSVP_GUA_SUBOBJ_SRC_TNA, address);
}

int rsvp_extract_dst_tna_ipv4_subobj(uint8_t *sub, uint32_t *address) {
    return extract_tna(sub, RSVP_GUA_SUBOBJ_DST_TNA, address);
}

uint8_t *RSVP_SUB_GUA_SUBOBJ_PTR(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID ? obj_body(obj) : nullptr;
}

uint16_t RSVP_SUB_GUA_LENGTH(uint8_t *sub) {
    return valid_sub(sub) ? sub_length(sub) : 0;
}

uint8_t RSVP_SUB_GUA_TYPE(uint8_t *sub) {
    return valid_sub(sub) ? sub_type(sub) : 0;
}

uint32_t RSVP_SUB_GUA_SRC_IPV4_ADDR(uint8_t *sub) {
    return address_word(sub);
}

uint32_t RSVP_SUB_GUA_DST_IPV4_ADDR(uint8_t *sub) {
    return address_word(sub);
}

}  // extern "C"
