// SONET/SDH labels: generalized LABEL (class 16) and UPSTREAM_LABEL (class 35) objects whose
// words name a time slot. The two classes share every operation; only the class differs.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length 4 + 4n, class 16 or 35, C-Type 2)
//   4      4n   label words, each:
//                 +0  2  S, 16 bits
//                 +2  1  U (high nibble), K (low nibble)
//                 +3  1  L (high nibble), M (low nibble)
#include "rsvp_assert.hpp"
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kWordLen = 4;
constexpr unsigned kSShift = RSVP_SONET_SDH_S_SHIFT;
constexpr unsigned kUShift = RSVP_SONET_SDH_U_SHIFT;
constexpr unsigned kKShift = RSVP_SONET_SDH_K_SHIFT;
constexpr unsigned kLShift = RSVP_SONET_SDH_L_SHIFT;
constexpr uint32_t kNibbleMask = RSVP_SONET_SDH_NIBBLE_LIMIT - 1;

unsigned word_count(const uint8_t *obj) {
    return (obj_length(obj) - kObjHdrLen) / kWordLen;
}

uint8_t *word_at(uint8_t *obj, unsigned index) {
    return obj_body(obj) + kWordLen * index;
}

void build(uint8_t *obj, uint8_t class_num) {
    put_obj_hdr(obj, class_num, RSVP_CTYPE_LABEL_GENERALIZED, kObjHdrLen);
}

int add(uint8_t *obj, uint16_t s, uint32_t u, uint32_t k, uint32_t l, uint32_t m) {
    if (!obj) return 0;
    RSVP_ASSERT(u < RSVP_SONET_SDH_NIBBLE_LIMIT);
    RSVP_ASSERT(k < RSVP_SONET_SDH_NIBBLE_LIMIT);
    RSVP_ASSERT(l < RSVP_SONET_SDH_NIBBLE_LIMIT);
    RSVP_ASSERT(m < RSVP_SONET_SDH_NIBBLE_LIMIT);
    const uint32_t word = uint32_t{s} << kSShift | u << kUShift | k << kKShift | l << kLShift | m;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return 0;
    const unsigned n = word_count(obj);
    // A time slot is listed once: a word equal to one already present is refused.
    for (unsigned i = 0; i < n; ++i)
        if (wire::load_be32(word_at(obj, i)) == word) return 0;
    wire::store_be32(word_at(obj, n), word);
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(length + kWordLen));
    return 1;
}

int extract(uint8_t *obj, uint8_t class_num, uint32_t index, uint32_t *s, uint32_t *u, uint32_t *k,
            uint32_t *l, uint32_t *m) {
    // Indices count from the first word, yet the first word is never asked for: callers pass
    // 1 and up, and an index of 0 is their bug.
    RSVP_ASSERT(index > 0);
    if (!rsvp_generalized_label_valid(obj, class_num) || index >= word_count(obj)) return 0;
    if (!s || !u || !k || !l || !m) return 0;
    const uint32_t word = wire::load_be32(word_at(obj, index));
    *s = word >> kSShift;
    *u = word >> kUShift & kNibbleMask;
    *k = word >> kKShift & kNibbleMask;
    *l = word >> kLShift & kNibbleMask;
    *m = word & kNibbleMask;
    return 1;
}

}  // namespace

extern "C" {

void rsvp_build_gen_label_sonet_sdh(uint8_t *obj) {
    build(obj, RSVP_CLASS_LABEL);
}

int rsvp_add_gen_label_sonet_sdh(uint8_t *obj, uint16_t s, uint32_t u, uint32_t k, uint32_t l,
                                 uint32_t m) {
    return add(obj, s, u, k, l, m);
}

int rsvp_valid_gen_label_sonet_sdh(uint8_t *obj) {
    return rsvp_generalized_label_valid(obj, RSVP_CLASS_LABEL);
}

int rsvp_extract_gen_label_sonet_sdh(uint8_t *obj, uint32_t index, uint32_t *s, uint32_t *u,
                                     uint32_t *k, uint32_t *l, uint32_t *m) {
    return extract(obj, RSVP_CLASS_LABEL, index, s, u, k, l, m);
}

void rsvp_build_upstream_label_sonet_sdh(uint8_t *obj) {
    build(obj, RSVP_CLASS_UPSTREAM_LABEL);
}

int rsvp_add_upstream_label_sonet_sdh(uint8_t *obj, uint16_t s, uint32_t u, uint32_t k, uint32_t l,
                                      uint32_t m) {
    return add(obj, s, u, k, l, m);
}

int rsvp_valid_upstream_label_sonet_sdh(uint8_t *obj) {
    return rsvp_generalized_label_valid(obj, RSVP_CLASS_UPSTREAM_LABEL);
}

int rsvp_extract_upstream_label_sonet_sdh(uint8_t *obj, uint32_t index, uint32_t *s, uint32_t *u,
                                          uint32_t *k, uint32_t *l, uint32_t *m) {
    return extract(obj, RSVP_CLASS_UPSTREAM_LABEL, index, s, u, k, l, m);
}

}  // extern "C"
