// ADMIN_STATUS (class 196, C-Type 1): the administrative status of an LSP.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length 8, Class-Num 196, C-Type 1)
//   4      4    status word: R = 0x80000000, T = 0x4, A = 0x2, D = 0x1 in network order
//
// The two directions disagree on purpose, and peers rely on it as it stands: the builder
// stores the composed word in host byte order, the extractor reads it in network order. On a
// little-endian host an object built here puts D, A and T into byte 4 and R into byte 7, and
// extracts with every flag clear. RSVP_ADMIN_STATUS_INFO_SET_FLAGS writes the network order.
// Neither the validator nor the extractor looks at the C-Type.
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kStatusOffset = 4;
constexpr uint8_t kSet = 1;
static_assert(kStatusOffset + 4 == RSVP_ADMIN_STATUS_LEN);

bool is_admin_status(const uint8_t *obj) {
    return obj && obj_class(obj) == RSVP_CLASS_ADMIN_STATUS &&
           obj_length(obj) == RSVP_ADMIN_STATUS_LEN;
}

uint32_t bit_if_set(uint8_t field, uint32_t bit) {
    return field == kSet ? bit : 0;
}

uint8_t flag_of(uint32_t word, uint32_t bit) {
    return (word & bit) != 0 ? kSet : 0;
}

}  // namespace

extern "C" {

void rsvp_build_admin_status_object(uint8_t *obj, const rsvp_admin_status_info *info) {
    if (!obj || !info) return;
    put_obj_hdr(obj, RSVP_CLASS_ADMIN_STATUS, RSVP_CTYPE_ADMIN_STATUS, RSVP_ADMIN_STATUS_LEN);
    const uint32_t word = bit_if_set(info->d, RSVP_ADMIN_STATUS_FLAG_D) |
                          bit_if_set(info->a, RSVP_ADMIN_STATUS_FLAG_A) |
                          bit_if_set(info->t, RSVP_ADMIN_STATUS_FLAG_T) |
                          bit_if_set(info->r, RSVP_ADMIN_STATUS_FLAG_R);
    wire::store_raw32(obj + kStatusOffset, word);  // host byte order, deliberately
}

int rsvp_valid_admin_status_object(uint8_t *obj) {
    return is_admin_status(obj);
}

int rsvp_extract_admin_status_object(uint8_t *obj, rsvp_admin_status_info *info) {
    if (!info || !is_admin_status(obj)) return 0;
    const uint32_t word = wire::load_be32(obj + kStatusOffset);
    info->d = flag_of(word, RSVP_ADMIN_STATUS_FLAG_D);
    info->a = flag_of(word, RSVP_ADMIN_STATUS_FLAG_A);
    info->t = flag_of(word, RSVP_ADMIN_STATUS_FLAG_T);
    info->r = flag_of(word, RSVP_ADMIN_STATUS_FLAG_R);
    return 1;
}

uint8_t RSVP_ADMIN_STATUS_INFO_D(const rsvp_admin_status_info *info) {
    return info ? info->d : 0;
}

void RSVP_ADMIN_STATUS_INFO_SET_D(rsvp_admin_status_info *info, uint8_t d) {
    if (info) info->d = d;
}

uint8_t RSVP_ADMIN_STATUS_INFO_A(const rsvp_admin_status_info *info) {
    return info ? info->a : 0;
}

void RSVP_ADMIN_STATUS_INFO_SET_A(rsvp_admin_status_info *info, uint8_t a) {
    if (info) info->a = a;
}

uint8_t RSVP_ADMIN_STATUS_INFO_T(const rsvp_admin_status_info *info) {
    return info ? info->t : 0;
}

void RSVP_ADMIN_STATUS_INFO_SET_T(rsvp_admin_status_info *info, uint8_t t) {
    if (info) info->t = t;
}

uint8_t RSVP_ADMIN_STATUS_INFO_R(const rsvp_admin_status_info *info) {
    return info ? info->r : 0;
}

void RSVP_ADMIN_STATUS_INFO_SET_R(rsvp_admin_status_info *info, uint8_t r) {
    if (info) info->r = r;
}

void RSVP_ADMIN_STATUS_INFO_SET_FLAGS(uint32_t *status_word, uint32_t flags) {
    if (status_word) wire::store_be32(reinterpret_cast<uint8_t *>(status_word), flags);
}

}  // extern "C"
