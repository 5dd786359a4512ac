// The small fixed objects of a Path or Resv: TIME_VALUES, RESV_CONFIRM, SCOPE, STYLE and
// POLICY_DATA. Each is a header and one run of 32-bit words.
//
//   OBJECT        CLASS C-TYPE LENGTH   OFFSET SIZE FIELD
//   TIME_VALUES   5     1      8        4      4    refresh period R (ms)
//   RESV_CONFIRM  15    1      8        4      4    receiver address (wire order)
//   SCOPE IPv4    7     1      4 + 4n   4      4n   source addresses (wire order), no duplicates
//   STYLE         8     1      8        4      1    flags (0)
//                                       5      3    Option Vector; style = low 5 bits
//   POLICY_DATA   14    any    4 + pad  4      ...  opaque data, zero-padded to a word
#include <cstring>

#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kWordOffset = 4;  // the first (for most, only) body word
constexpr unsigned kWordLen = 4;
constexpr unsigned kWordEnd = kWordOffset + kWordLen;
static_assert(kWordEnd == RSVP_TIME_VALUES_LEN && kWordEnd == RSVP_RESV_CONFIRM_IPV4_LEN &&
              kWordEnd == RSVP_STYLE_LEN);

// Styles accepted, one bit per style value below 32: FF, WF and SE.
constexpr uint32_t kStyleBits = 32;
constexpr uint32_t kAcceptedStyles =
    (1u << RSVP_STYLE_FF) | (1u << RSVP_STYLE_WF) | (1u << RSVP_STYLE_SE);
static_assert(kAcceptedStyles == 0x60400);
// Bit 1 of the Option Vector: explicit sender selection (FF, SE) rather than wildcard (WF).
constexpr uint32_t kExplicitShift = 1;

bool style_accepted(uint32_t style) {
    return style < kStyleBits && (kAcceptedStyles >> style & 1u) != 0;
}

uint8_t style_of(const uint8_t *obj) {
    return static_cast<uint8_t>(wire::load_be32(obj + kWordOffset) & RSVP_STYLE_MASK);
}

// Header plus one body word, for the objects of exactly 8 bytes.
uint8_t *build_word(uint8_t *obj, uint8_t class_num, uint8_t c_type) {
    put_obj_hdr(obj, class_num, c_type, kWordEnd);
    return obj;
}

bool is_word_object(const uint8_t *obj, uint8_t class_num, uint8_t c_type) {
    return obj && obj_is(obj, class_num, c_type) && obj_length(obj) == kWordEnd;
}

}  // namespace

extern "C" {

// ---- TIME_VALUES ---------------------------------------------------------------------------

uint8_t *rsvp_build_refresh(uint8_t *obj, uint32_t period_ms) {
    wire::store_be32(obj + kWordOffset, period_ms);
    return build_word(obj, RSVP_CLASS_TIME_VALUES, RSVP_CTYPE_TIME_VALUES);
}

int rsvp_valid_refresh(uint8_t *obj) {
    return is_word_object(obj, RSVP_CLASS_TIME_VALUES, RSVP_CTYPE_TIME_VALUES);
}

uint32_t RSVP_REFRESH_TIME(uint8_t *obj) {
    return valid_holds(obj, kWordEnd) ? wire::load_be32(obj + kWordOffset) : 0;
}

// ---- RESV_CONFIRM --------------------------------------------------------------------------

uint8_t *rsvp_build_confirm_ipv4(uint8_t *obj, uint32_t receiver) {
    wire::store_raw32(obj + kWordOffset, receiver);
    return build_word(obj, RSVP_CLASS_RESV_CONFIRM, RSVP_CTYPE_RESV_CONFIRM_IPV4);
}

int rsvp_valid_confirm_ipv4(uint8_t *obj) {
    return is_word_object(obj, RSVP_CLASS_RESV_CONFIRM, RSVP_CTYPE_RESV_CONFIRM_IPV4);
}

int rsvp_extract_confirm_ipv4(uint8_t *obj, uint32_t *receiver) {
    if (!receiver || !rsvp_valid_confirm_ipv4(obj)) return 0;
    *receiver = wire::load_raw32(obj + kWordOffset);
    return 1;
}

uint32_t RSVP_CONFIRM_ADDR(uint8_t *obj) {
    return valid_holds(obj, kWordEnd) ? wire::load_raw32(obj + kWordOffset) : 0;
}

// ---- SCOPE ---------------------------------------------------------------------------------

uint8_t *rsvp_build_scope_ipv4(uint8_t *obj) {
    put_obj_hdr(obj, RSVP_CLASS_SCOPE, RSVP_CTYPE_SCOPE_IPV4, kObjHdrLen);
    return obj;
}

void rsvp_add_scope_ipv4(uint8_t *obj, uint32_t addr) {
    if (!obj) return;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return;
    const unsigned count = (length - kObjHdrLen) / kWordLen;
    for (unsigned i = 0; i < count; ++i)
        if (wire::load_raw32(obj + kWordOffset + i * kWordLen) == addr) return;
    // Behind the last whole address; the caller's buffer has room for it.
    wire::store_raw32(obj + kWordOffset + count * kWordLen, addr);
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(length + kWordLen));
}

// The empty list that rsvp_build_scope_ipv4 lays down is deliberately not yet valid.
int rsvp_valid_scope_ipv4(uint8_t *obj) {
    return obj && obj_is(obj, RSVP_CLASS_SCOPE, RSVP_CTYPE_SCOPE_IPV4) &&
           obj_length(obj) > kObjHdrLen;
}

uint32_t RSVP_SCOPE_IPV4_ADDR(uint8_t *obj, int32_t index) {
    if (index < 0 || rsvp_valid_object(obj) != RSVP_OBJECT_VALID) return 0;
    // On a SCOPE list the index is the caller's, bounded by it from the Length: not checked
    // here. A valid object of another class must hold the word asked for.
    const uint64_t end = kWordOffset + (static_cast<uint64_t>(index) + 1) * kWordLen;
    if (obj_class(obj) != RSVP_CLASS_SCOPE && obj_length(obj) < end) return 0;
    // Deliberate on a SCOPE list: an index beyond its Length reads behind the object.
    return wire::load_raw32(obj + kWordOffset + static_cast<uint32_t>(index) * kWordLen);
}

// ---- STYLE ---------------------------------------------------------------------------------

uint8_t *rsvp_build_style(uint8_t *obj, uint8_t style) {
    // Flags 0 and the style as the Option Vector; a style that is not accepted leaves the
    // whole word 0, and the object invalid.
    wire::store_be32(obj + kWordOffset, style_accepted(style) ? style : 0);
    return build_word(obj, RSVP_CLASS_STYLE, RSVP_CTYPE_STYLE);
}

int rsvp_valid_style(uint8_t *obj) {
    return is_word_object(obj, RSVP_CLASS_STYLE, RSVP_CTYPE_STYLE) && style_accepted(style_of(obj));
}

int rsvp_extract_style(uint8_t *obj, uint8_t *style) {
    const int valid = rsvp_valid_style(obj);
    if (style) *style = valid ? style_of(obj) : 0;
    return valid;
}

int rsvp_style_explicit(uint8_t *obj) {
    return static_cast<int>(wire::load_be32(obj + kWordOffset) >> kExplicitShift & 1u);
}

uint8_t RSVP_STYLE_RESERVATION_TYPE(uint8_t *obj) {
    return valid_holds(obj, kWordEnd) ? style_of(obj) : 0;
}

void RSVP_STYLE_SET_RESERVATION_TYPE(uint8_t *obj, uint8_t style) {
    if (valid_holds(obj, kWordEnd)) wire::store_be32(obj + kWordOffset, style & RSVP_STYLE_MASK);
}

// ---- POLICY_DATA ---------------------------------------------------------------------------

uint8_t *rsvp_build_policy(uint8_t *obj, const uint8_t *data, uint32_t data_len) {
    const uint32_t padded = (data_len + kObjAlign - 1) / kObjAlign * kObjAlign;
    const uint32_t total = padded + kObjHdrLen;
    std::memset(obj, 0, total);
    put_obj_hdr(obj, RSVP_CLASS_POLICY_DATA, RSVP_CTYPE_POLICY_DATA, static_cast<uint16_t>(total));
    if (data_len > 0) std::memcpy(obj + kObjBodyOffset, data, data_len);
    return obj + kObjBodyOffset;
}

int rsvp_valid_policy(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_POLICY_DATA) return 0;
    const uint16_t length = obj_length(obj);
    return length >= kObjHdrLen && length % kObjAlign == 0;
}

int rsvp_extract_policy(uint8_t *obj, uint8_t **data, uint16_t *data_len) {
    if (!data || !data_len || !rsvp_valid_policy(obj)) return 0;
    *data = obj + kObjBodyOffset;
    *data_len = static_cast<uint16_t>(obj_length(obj) - kObjHdrLen);
    return 1;
}

}  // extern "C"
