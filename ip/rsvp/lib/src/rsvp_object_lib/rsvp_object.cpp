// Object header accessors, the walk over a run of objects, copy and compare.
//
// A run is a sequence of objects (a message body, or the objects inside another object) with
// a caller-kept remaining count: the bytes from the current object to the end of the run. The
// walk trusts no Length: every object it looks at must be at least a header long, a multiple
// of four and inside the remaining count, or the walk ends.
#include <cstring>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

extern "C" {

void rsvp_build_object(uint8_t *obj, uint8_t class_num, uint8_t c_type, uint16_t length) {
    put_obj_hdr(obj, class_num, c_type, length);
}

uint16_t RSVP_OBJECT_LENGTH(uint8_t *obj) {
    return obj ? obj_length(obj) : 0;
}

uint32_t RSVP_OBJECT_CLASS(uint8_t *obj) {
    return obj ? obj_class(obj) : 0;
}

uint32_t RSVP_OBJECT_C_TYPE(uint8_t *obj) {
    return obj ? obj_ctype(obj) : 0;
}

void RSVP_SET_OBJECT_LENGTH(uint8_t *obj, uint16_t length) {
    if (obj) wire::store_be16(obj + kObjLengthOffset, length);
}

void RSVP_OBJECT_SET_CLASS(uint8_t *obj, uint8_t class_num) {
    if (obj) obj[kObjClassOffset] = class_num;
}

void RSVP_OBJECT_SET_C_TYPE(uint8_t *obj, uint8_t c_type) {
    if (obj) obj[kObjCTypeOffset] = c_type;
}

void RSVP_CHANGE_OBJECT_LENGTH(uint8_t *obj, uint16_t new_length) {
    if (!obj) return;
    const uint16_t old_length = obj_length(obj);
    wire::store_be16(obj + kObjLengthOffset, new_length);
    if (old_length <= new_length) return;
    const auto gap = static_cast<uint16_t>(old_length - new_length);
    // Only gaps of 1 to 3 bytes go without a filler. A larger gap that is not a multiple of
    // four still gets one, which the walk will then refuse as malformed; callers shrink in
    // whole words.
    if (gap < kObjHdrLen && gap % kObjAlign != 0) return;
    put_obj_hdr(obj + new_length, RSVP_CLASS_NULL, 0, gap);
}

uint8_t *rsvp_next_object(uint8_t *obj) {
    return obj + obj_length(obj);
}

uint8_t *rsvp_next_nonnull_object(uint8_t *obj, uint32_t *remaining) {
    if (!obj || !remaining || *remaining < kObjHdrLen) return nullptr;
    uint32_t left = *remaining;
    uint8_t *cur = obj;
    for (;;) {
        const uint16_t length = obj_length(cur);
        if (!obj_walkable(length, left)) return nullptr;
        // The object passed in is always stepped over, whatever its class.
        if (cur != obj && obj_class(cur) != RSVP_CLASS_NULL) return cur;
        left -= length;
        // Published at once, so that a walk ending part-way shows how far it came.
        *remaining = left;
        if (left < kObjHdrLen) return nullptr;
        cur += length;
    }
}

uint8_t *rsvp_first_object_type(uint8_t *objs, uint32_t length, uint8_t class_num) {
    return rsvp_first_object_type_ordered(objs, length, class_num, class_num);
}

uint8_t *rsvp_first_object_type_ordered(uint8_t *objs, uint32_t length, uint8_t class_before,
                                        uint8_t class_num) {
    if (!objs || length < kObjHdrLen) return nullptr;
    uint32_t left = length;
    bool before_seen = false;
    // The first object is examined even when it is a null object; later ones come from the
    // walk, which skips null objects.
    for (uint8_t *cur = objs; cur; cur = rsvp_next_nonnull_object(cur, &left)) {
        if (!obj_walkable(obj_length(cur), left)) return nullptr;
        if (obj_class(cur) == class_before) before_seen = true;
        if (obj_class(cur) == class_num) return before_seen ? cur : nullptr;
    }
    return nullptr;
}

void rsvp_object_copy(uint8_t *dst, uint8_t *src) {
    if (!src) return;
    const uint16_t length = obj_length(src);
    if (length == 0) return;
    std::memmove(dst, src, length);
}

int rsvp_object_compare(uint8_t *lhs, uint8_t *rhs) {
    if (lhs == rhs) return 0;
    if (!lhs || !rhs) return 1;
    const uint16_t length = obj_length(lhs);
    if (length != obj_length(rhs)) return 1;
    return std::memcmp(lhs, rhs, length) == 0 ? 0 : 1;
}

void RSVP_COPY_UINT32_ARRAY_NTOHL(uint32_t *dst, const uint32_t *src, uint16_t count) {
    if (!dst || !src || count == 0) return;
    for (uint16_t i = 0; i < count; ++i)
        dst[i] = wire::net_to_host32(src[i]);
}

void RSVP_COPY_UINT32_ARRAY_HTONL(uint32_t *dst, const uint32_t *src, uint16_t count) {
    if (!dst || !src || count == 0) return;
    for (uint16_t i = 0; i < count; ++i)
        dst[i] = wire::host_to_net32(src[i]);
}

}  // extern "C"
