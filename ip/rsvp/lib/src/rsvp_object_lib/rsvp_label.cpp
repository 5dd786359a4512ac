// LABEL_REQUEST (class 19) and the labels: LABEL (16), RECOVERY_LABEL (34), UPSTREAM_LABEL
// (35) and SUGGESTED_LABEL (129), in their plain MPLS and generalized forms.
//
// LABEL_REQUEST, 8 bytes:
//   OFFSET SIZE FIELD                C-Type 1 (plain)     C-Type 4 (generalized)
//   0      4    object header        Length 8, class 19   Length 8, class 19
//   4      1    -                    reserved, 0          LSP encoding type
//   5      1    -                    reserved, 0          switching type
//   6      2    payload identifier   L3PID (Ethertype)    G-PID
//
// Labels:
//   OFFSET SIZE FIELD                C-Type 1 (plain)     C-Type 2 (generalized)
//   0      4    object header        Length 8, class 16   Length 4 + 4n
//   4      4n   label words          one 20-bit label     n words, meaning set by the LSP
//
// A generalized label may ride in classes 16, 34, 35, 129 and 235 (the LSP wrap label); the
// core below takes the class as an argument and the exported per-class names pass theirs.
// Its Length need not be a multiple of 4: the trailing bytes of a partial word are ignored.
//
// The plain validators rsvp_valid_label and rsvp_valid_label_request look at the class and
// the Length only, never at the C-Type; rsvp_valid_gen_label and rsvp_valid_gen_label_request
// dispatch on the C-Type and are the ones the class table uses. Callers rely on both.
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kLabelOffset = 4;
constexpr unsigned kWordLen = 4;
constexpr unsigned kReservedOffset = 4;
constexpr unsigned kEncodingOffset = 4;
constexpr unsigned kSwitchingOffset = 5;
constexpr unsigned kPidOffset = 6;  // L3PID or G-PID
constexpr uint16_t kFixedLen = RSVP_LABEL_LEN;
static_assert(kFixedLen == RSVP_LABEL_REQUEST_LEN && kFixedLen == kLabelOffset + kWordLen);

constexpr uint8_t kGeneralized = RSVP_CTYPE_LABEL_GENERALIZED;
static_assert(kGeneralized == RSVP_CTYPE_RECOVERY_LABEL_GENERALIZED &&
              kGeneralized == RSVP_CTYPE_UPSTREAM_LABEL_GENERALIZED &&
              kGeneralized == RSVP_CTYPE_SUGGESTED_LABEL_GENERALIZED);

bool carries_generalized(uint8_t class_num) {
    switch (class_num) {
        case RSVP_CLASS_LABEL:
        case RSVP_CLASS_RECOVERY_LABEL:
        case RSVP_CLASS_UPSTREAM_LABEL:
        case RSVP_CLASS_SUGGESTED_LABEL:
        case RSVP_CLASS_LSP_WRAP_LABEL:
            return true;
        default:
            return false;
    }
}

// The plain objects: class and exact Length, the C-Type left to the caller.
int fixed_of_class(const uint8_t *obj, uint8_t class_num) {
    return obj && obj_class(obj) == class_num && obj_length(obj) == kFixedLen;
}

}  // namespace

extern "C" {

// ---- Generalized labels, any label class ---------------------------------------------------

int rsvp_generalized_label_build(uint8_t *obj, const uint32_t *labels, uint16_t count,
                                 uint8_t class_num) {
    if (!obj || !labels || count == 0 || !carries_generalized(class_num)) return 0;
    put_obj_hdr(obj, class_num, kGeneralized, static_cast<uint16_t>(kObjHdrLen + kWordLen * count));
    for (unsigned i = 0; i < count; ++i)
        wire::store_be32(obj + kLabelOffset + kWordLen * i, labels[i]);
    return 1;
}

int rsvp_generalized_label_valid(uint8_t *obj, uint8_t class_num) {
    return obj && carries_generalized(class_num) && obj_is(obj, class_num, kGeneralized) &&
           obj_length(obj) >= kObjHdrLen;
}

int rsvp_generalized_label_extract(uint8_t *obj, uint32_t **labels, uint16_t *count,
                                   uint8_t class_num) {
    if (!obj || !labels || !*labels || !count || !rsvp_generalized_label_valid(obj, class_num))
        return 0;
    const uint16_t n = RSVP_LABEL_LENGTH(obj) / kWordLen;
    *count = n;
    for (unsigned i = 0; i < n; ++i)
        (*labels)[i] = wire::load_be32(obj + kLabelOffset + kWordLen * i);
    return 1;
}

int rsvp_build_generalized_label(uint8_t *obj, const uint32_t *labels, uint16_t count) {
    return rsvp_generalized_label_build(obj, labels, count, RSVP_CLASS_LABEL);
}

int rsvp_valid_generalized_label(uint8_t *obj) {
    return rsvp_generalized_label_valid(obj, RSVP_CLASS_LABEL);
}

int rsvp_extract_generalized_label(uint8_t *obj, uint32_t **labels, uint16_t *count) {
    return rsvp_generalized_label_extract(obj, labels, count, RSVP_CLASS_LABEL);
}

int rsvp_build_upstream_label(uint8_t *obj, const uint32_t *labels, uint16_t count) {
    return rsvp_generalized_label_build(obj, labels, count, RSVP_CLASS_UPSTREAM_LABEL);
}

int rsvp_valid_upstream_label(uint8_t *obj) {
    return rsvp_generalized_label_valid(obj, RSVP_CLASS_UPSTREAM_LABEL);
}

int rsvp_extract_upstream_label(uint8_t *obj, uint32_t **labels, uint16_t *count) {
    return rsvp_generalized_label_extract(obj, labels, count, RSVP_CLASS_UPSTREAM_LABEL);
}

int rsvp_build_suggested_label(uint8_t *obj, const uint32_t *labels, uint16_t count) {
    return rsvp_generalized_label_build(obj, labels, count, RSVP_CLASS_SUGGESTED_LABEL);
}

int rsvp_valid_suggested_label(uint8_t *obj) {
    return rsvp_generalized_label_valid(obj, RSVP_CLASS_SUGGESTED_LABEL);
}

int rsvp_extract_suggested_label(uint8_t *obj, uint32_t **labels, uint16_t *count) {
    return rsvp_generalized_label_extract(obj, labels, count, RSVP_CLASS_SUGGESTED_LABEL);
}

int rsvp_build_recovery_label(uint8_t *obj, const uint32_t *labels, uint16_t count) {
    return rsvp_generalized_label_build(obj, labels, count, RSVP_CLASS_RECOVERY_LABEL);
}

int rsvp_valid_recovery_label(uint8_t *obj) {
    return rsvp_generalized_label_valid(obj, RSVP_CLASS_RECOVERY_LABEL);
}

int rsvp_extract_recovery_label(uint8_t *obj, uint32_t **labels, uint16_t *count) {
    return rsvp_generalized_label_extract(obj, labels, count, RSVP_CLASS_RECOVERY_LABEL);
}

// ---- Plain LABEL ---------------------------------------------------------------------------

uint8_t *rsvp_build_label(uint8_t *obj, uint32_t label) {
    put_obj_hdr(obj, RSVP_CLASS_LABEL, RSVP_CTYPE_LABEL, kFixedLen);
    wire::store_be32(obj + kLabelOffset, label);
    return obj;
}

int rsvp_valid_label(uint8_t *obj) {
    return fixed_of_class(obj, RSVP_CLASS_LABEL);
}

int rsvp_extract_label(uint8_t *obj, uint32_t *label) {
    if (!label || !rsvp_valid_label(obj)) return 0;
    *label = wire::load_be32(obj + kLabelOffset);
    return 1;
}

// A node swaps the label of an object it built itself: neither the header nor the Length is
// looked at.
void rsvp_set_current_label(uint8_t *obj, uint32_t label) {
    if (obj) wire::store_be32(obj + kLabelOffset, label);
}

int rsvp_valid_gen_label(uint8_t *obj) {
    if (!obj) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_LABEL:
            return rsvp_valid_label(obj);
        case kGeneralized:
            return rsvp_generalized_label_valid(obj, RSVP_CLASS_LABEL);
        default:
            return 0;
    }
}

uint16_t RSVP_LABEL_LENGTH(uint8_t *obj) {
    if (!obj) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_LABEL:
            return kWordLen;
        case kGeneralized: {
            const uint16_t length = obj_length(obj);
            return length > kObjHdrLen ? static_cast<uint16_t>(length - kObjHdrLen) : 0;
        }
        default:
            return 0;
    }
}

uint32_t RSVP_LABEL_TOP_LABEL(uint8_t *obj) {
    uint32_t label = RSVP_LABEL_NO_LABEL;
    rsvp_extract_label(obj, &label);
    return label;
}

void RSVP_COPY_LABEL_HTONL(uint32_t *dst, const uint32_t *src, uint16_t count) {
    RSVP_COPY_UINT32_ARRAY_HTONL(dst, src, count);
}

void RSVP_COPY_LABEL_NTOHL(uint32_t *dst, const uint32_t *src, uint16_t count) {
    RSVP_COPY_UINT32_ARRAY_NTOHL(dst, src, count);
}

void RSVP_COPY_SRLG_HTONL(uint32_t *dst, const uint32_t *src, uint8_t count) {
    RSVP_COPY_UINT32_ARRAY_HTONL(dst, src, count);
}

void RSVP_COPY_SRLG_NTOHL(uint32_t *dst, const uint32_t *src, uint8_t count) {
    RSVP_COPY_UINT32_ARRAY_NTOHL(dst, src, count);
}

// ---- LABEL_REQUEST -------------------------------------------------------------------------

void rsvp_build_label_request(uint8_t *obj, uint16_t l3pid) {
    put_obj_hdr(obj, RSVP_CLASS_LABEL_REQUEST, RSVP_CTYPE_LABEL_REQUEST, kFixedLen);
    wire::store_be16(obj + kReservedOffset, 0);
    wire::store_be16(obj + kPidOffset, l3pid);
}

int rsvp_valid_label_request(uint8_t *obj) {
    return fixed_of_class(obj, RSVP_CLASS_LABEL_REQUEST);
}

int rsvp_extract_label_request(uint8_t *obj, uint16_t *l3pid) {
    if (!l3pid || !rsvp_valid_label_request(obj)) return 0;
    *l3pid = wire::load_be16(obj + kPidOffset);
    return 1;
}

void rsvp_build_gen_label_req(uint8_t *obj, uint8_t encoding_type, uint8_t switching_type,
                              uint16_t gpid) {
    put_obj_hdr(obj, RSVP_CLASS_LABEL_REQUEST, RSVP_CTYPE_LABEL_REQUEST_GENERALIZED, kFixedLen);
    wire::store8(obj + kEncodingOffset, encoding_type);
    wire::store8(obj + kSwitchingOffset, switching_type);
    wire::store_be16(obj + kPidOffset, gpid);
}

int rsvp_valid_gen_label_req(uint8_t *obj) {
    return fixed_of_class(obj, RSVP_CLASS_LABEL_REQUEST) &&
           obj_ctype(obj) == RSVP_CTYPE_LABEL_REQUEST_GENERALIZED;
}

int rsvp_extract_gen_label_req(uint8_t *obj, uint8_t *encoding_type, uint8_t *switching_type,
                               uint16_t *gpid) {
    if (!encoding_type || !switching_type || !gpid || !rsvp_valid_gen_label_req(obj)) return 0;
    *encoding_type = wire::load8(obj + kEncodingOffset);
    *switching_type = wire::load8(obj + kSwitchingOffset);
    *gpid = wire::load_be16(obj + kPidOffset);
    return 1;
}

int rsvp_valid_gen_label_request(uint8_t *obj) {
    if (!obj) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_LABEL_REQUEST:
            return rsvp_valid_label_request(obj);
        case RSVP_CTYPE_LABEL_REQUEST_GENERALIZED:
            return rsvp_valid_gen_label_req(obj);
        default:
            return 0;
    }
}

int rsvp_lsp_packet_switched(uint8_t *obj) {
    return obj && obj_ctype(obj) == RSVP_CTYPE_LABEL_REQUEST;
}

}  // extern "C"
