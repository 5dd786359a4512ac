// LABEL_SET (class 36) and ACCEPTABLE_LABEL_SET (class 130): the labels a downstream node may,
// or may not, choose.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length 8 + 4n, class 36 or 130, C-Type 1)
//   4      1    action: 0 inclusive list, 1 exclusive list, 2 inclusive range, 3 exclusive range
//   5      1    reserved, written 0
//   6      2    label type in the low 14 bits (the top 2 reserved, written 0); 1 or 2
//   8      4n   labels; a range holds its start and its end label
//
// Two sets of functions read these bytes, and they differ on purpose. The plain set (class 36
// only) grows an object one label at a time and hands back a pointer to the labels; its
// validator checks only byte 7 of the label type and wants at least one label for a list and
// two for a range. The 32-bit set (class 36 or 130, shared by both classes) builds and copies
// all labels at once; its validator masks the whole label type to 14 bits and wants exactly two
// labels in a range.
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kActionOffset = 4;
constexpr unsigned kReservedOffset = 5;
constexpr unsigned kTypeOffset = 6;
constexpr unsigned kTypeLowOffset = 7;  // the only label type byte the plain validator reads
constexpr unsigned kLabelsOffset = 8;
constexpr unsigned kLabelLen = 4;
constexpr uint16_t kHdrLen = RSVP_LABEL_SET_HDR_LEN;
static_assert(kLabelsOffset == kHdrLen);
// The 32-bit validator turns away an object of the head alone by this bound, before it counts.
constexpr uint16_t kMin32BitLen = kHdrLen + 1;
constexpr unsigned kRangeLabels = 2;  // start and end
constexpr unsigned kListMinLabels = 1;

constexpr uint8_t kCType = RSVP_CTYPE_LABEL_SET;
static_assert(kCType == RSVP_CTYPE_ACCEPTABLE_LABEL_SET);

// Whole labels behind the head of an object of at least kHdrLen bytes.
unsigned label_count(const uint8_t *obj) {
    return (obj_length(obj) - kHdrLen) / kLabelLen;
}

bool type_accepted(unsigned label_type) {
    return label_type == RSVP_LABEL_SET_TYPE_LABEL || label_type == RSVP_LABEL_SET_TYPE_GENERALIZED;
}

// Labels an action needs at least (a range: exactly, for the 32-bit validator); 0 for an action
// that does not exist.
unsigned labels_needed(uint8_t action, bool *range) {
    switch (action) {
        case RSVP_LABEL_SET_INCLUSIVE_LIST:
        case RSVP_LABEL_SET_EXCLUSIVE_LIST:
            *range = false;
            return kListMinLabels;
        case RSVP_LABEL_SET_INCLUSIVE_RANGE:
        case RSVP_LABEL_SET_EXCLUSIVE_RANGE:
            *range = true;
            return kRangeLabels;
        default:
            return 0;
    }
}

bool label_set_class(uint16_t class_num) {
    return class_num == RSVP_CLASS_LABEL_SET || class_num == RSVP_CLASS_ACCEPTABLE_LABEL_SET;
}

}  // namespace

extern "C" {

// ---- Plain label set, class 36 -------------------------------------------------------------

uint8_t *rsvp_build_label_set_obj(uint8_t *obj, uint8_t action, uint16_t label_type) {
    rsvp_build_32bit_label_set(obj, RSVP_CLASS_LABEL_SET, label_type, action, 0, nullptr);
    return obj;
}

void rsvp_add_label_set_obj(uint8_t *obj, uint32_t label) {
    if (!obj) return;
    const uint16_t length = obj_length(obj);
    if (length < kHdrLen) return;
    // Behind the last whole label, whatever partial word the Length may claim.
    wire::store_be32(obj + kLabelsOffset + kLabelLen * label_count(obj), label);
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(length + kLabelLen));
}

int rsvp_valid_label_set_obj(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_LABEL_SET, kCType) || obj_length(obj) <= kHdrLen) return 0;
    bool range;
    const unsigned needed = labels_needed(obj[kActionOffset], &range);
    if (needed == 0 || obj_length(obj) < kHdrLen + kLabelLen * needed) return 0;
    // Byte 6, the high part of the label type, is deliberately not looked at here.
    return type_accepted(obj[kTypeLowOffset]);
}

int rsvp_extract_label_set_obj(uint8_t *obj, uint32_t **labels, uint8_t *count, uint8_t *action,
                               uint16_t *label_type) {
    if (!labels || !count || !action || !label_type || !rsvp_valid_label_set_obj(obj)) return 0;
    // Labels stay in network order in the caller's buffer; the pointer need not be aligned.
    *labels = reinterpret_cast<uint32_t *>(obj + kLabelsOffset);
    *count = static_cast<uint8_t>(label_count(obj));
    *action = obj[kActionOffset];
    *label_type = wire::load_be16(obj + kTypeOffset) & RSVP_LABEL_SET_TYPE_MASK;
    return 1;
}

// ---- 32-bit label set, class 36 or 130 -----------------------------------------------------

void rsvp_build_32bit_label_set(uint8_t *obj, uint8_t class_num, uint16_t label_type,
                                uint8_t action, uint32_t count, const uint32_t *labels) {
    put_obj_hdr(obj, class_num, kCType, static_cast<uint16_t>(kHdrLen + kLabelLen * count));
    wire::store8(obj + kActionOffset, action);
    wire::store8(obj + kReservedOffset, 0);
    wire::store_be16(obj + kTypeOffset, label_type & RSVP_LABEL_SET_TYPE_MASK);
    for (uint32_t i = 0; i < count; ++i)
        wire::store_be32(obj + kLabelsOffset + kLabelLen * i, labels[i]);
}

int rsvp_valid_32bit_label_set_obj(uint8_t *obj, uint16_t class_num) {
    if (!label_set_class(class_num) || !obj ||
        !obj_is(obj, static_cast<uint8_t>(class_num), kCType) || obj_length(obj) < kMin32BitLen)
        return 0;
    if (!type_accepted(wire::load_be16(obj + kTypeOffset) & RSVP_LABEL_SET_TYPE_MASK)) return 0;
    bool range;
    const unsigned needed = labels_needed(obj[kActionOffset], &range);
    const unsigned n = label_count(obj);
    return needed != 0 && (range ? n == needed : n >= needed);
}

int rsvp_valid_acceptable_label_set(uint8_t *obj) {
    return rsvp_valid_32bit_label_set_obj(obj, RSVP_CLASS_ACCEPTABLE_LABEL_SET);
}

int rsvp_extract_32bit_label_set_obj(uint8_t *obj, uint16_t class_num, uint8_t *action,
                                     uint32_t *count) {
    if (!action || !count || !rsvp_valid_32bit_label_set_obj(obj, class_num)) return 0;
    *action = obj[kActionOffset];
    *count = label_count(obj);
    return 1;
}

int rsvp_extract_32bit_label_set_obj_labels(uint8_t *obj, uint16_t class_num,
                                            uint32_t expected_count, uint32_t *labels) {
    if (!labels || !rsvp_valid_32bit_label_set_obj(obj, class_num)) return 0;
    const unsigned n = label_count(obj);
    if (n != expected_count) return 0;
    for (unsigned i = 0; i < n; ++i)
        labels[i] = wire::load_be32(obj + kLabelsOffset + kLabelLen * i);
    return 1;
}

}  // extern "C"
