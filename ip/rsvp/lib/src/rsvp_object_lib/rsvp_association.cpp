// ASSOCIATION (class 199): ties an LSP to the LSPs it recovers, shares resources with or runs
// opposite to. Four forms share one layout up to the source address:
//
//   OFFSET SIZE FIELD                       C-Type 1 IPv4  2 IPv6  3 IPv4 ext  4 IPv6 ext
//   0      4    object header               Length 12      24      16 + 4n     32 + 4n
//   4      2    association type
//   6      2    association ID
//   8      4/16 association source (wire)   4 bytes        16      4           16
//   12/24  4    global association source   -              -       at 12       at 24
//   16/28  4n   extended association IDs    -              -       from 16     from 28
//
// The IPv6 extended form reckons its fixed part as 32 bytes although its IDs start at 28: its
// Length counts 4 bytes behind the last ID, which the builder never writes. The builder, the
// validator, the extractor and the ID length all keep that reckoning.
//
// Type, ID, global source and extended IDs are numbers (host order at the interface); the
// source words cross unconverted. The extractors trust their caller and do not validate.
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kTypeOffset = 4;
constexpr unsigned kIdOffset = 6;
constexpr unsigned kSourceOffset = 8;
constexpr unsigned kWordLen = 4;
constexpr unsigned kIpv6Words = 4;

// One form: its C-Type, the words of its source and, for the extended forms, where the
// global source and the IDs lie and the fixed part its Length is reckoned from.
struct Form {
    uint8_t c_type;
    unsigned source_words;
    unsigned length;  // exact Length (plain) or fixed part (extended)
    bool extended;
    unsigned global_offset;
    unsigned ids_offset;
};

constexpr Form kIpv4{RSVP_CTYPE_ASSOCIATION_IPV4, 1, RSVP_ASSOCIATION_IPV4_LEN, false, 0, 0};
constexpr Form kIpv6{
    RSVP_CTYPE_ASSOCIATION_IPV6, kIpv6Words, RSVP_ASSOCIATION_IPV6_LEN, false, 0, 0};
constexpr Form kIpv4Ext{RSVP_CTYPE_ASSOCIATION_IPV4_EXT, 1,
                        RSVP_ASSOCIATION_IPV4_EXT_LEN,   true,
                        kSourceOffset + kWordLen,        RSVP_ASSOCIATION_IPV4_EXT_IDS_OFFSET};
constexpr Form kIpv6Ext{RSVP_CTYPE_ASSOCIATION_IPV6_EXT,      kIpv6Words,
                        RSVP_ASSOCIATION_IPV6_EXT_LEN,        true,
                        kSourceOffset + kIpv6Words *kWordLen, RSVP_ASSOCIATION_IPV6_EXT_IDS_OFFSET};
static_assert(kIpv4.length == kSourceOffset + kWordLen);
static_assert(kIpv6.length == kSourceOffset + kIpv6Words * kWordLen);
static_assert(kIpv4Ext.ids_offset == kIpv4Ext.global_offset + kWordLen);
static_assert(kIpv4Ext.length == kIpv4Ext.ids_offset);
static_assert(kIpv6Ext.ids_offset == kIpv6Ext.global_offset + kWordLen);
static_assert(kIpv6Ext.length == kIpv6Ext.ids_offset + kWordLen);  // the 4 bytes reckoned extra

void put_common(uint8_t *obj, const Form &f, uint16_t length, uint16_t type, uint16_t id,
                const uint32_t *source) {
    put_obj_hdr(obj, RSVP_CLASS_ASSOCIATION, f.c_type, length);
    wire::store_be16(obj + kTypeOffset, type);
    wire::store_be16(obj + kIdOffset, id);
    for (unsigned i = 0; i < f.source_words; ++i)
        wire::store_raw32(obj + kSourceOffset + i * kWordLen, source[i]);
}

int build_plain(uint8_t *obj, const Form &f, uint16_t type, uint16_t id, const uint32_t *source) {
    if (!obj) return 0;
    put_common(obj, f, static_cast<uint16_t>(f.length), type, id, source);
    return 1;
}

// With ext_ids null the Length still counts the IDs, which the caller writes itself.
int build_ext(uint8_t *obj, const Form &f, uint16_t type, uint16_t id, const uint32_t *source,
              uint32_t global_source, const uint32_t *ext_ids, uint16_t count) {
    if (!obj || (ext_ids && count == 0)) return 0;
    put_common(obj, f, static_cast<uint16_t>(f.length + kWordLen * count), type, id, source);
    wire::store_be32(obj + f.global_offset, global_source);
    if (ext_ids)
        for (unsigned i = 0; i < count; ++i)
            wire::store_be32(obj + f.ids_offset + i * kWordLen, ext_ids[i]);
    return 1;
}

void get_common(const uint8_t *obj, const Form &f, uint16_t *type, uint16_t *id, uint32_t *source) {
    *type = wire::load_be16(obj + kTypeOffset);
    *id = wire::load_be16(obj + kIdOffset);
    for (unsigned i = 0; i < f.source_words; ++i)
        source[i] = wire::load_raw32(obj + kSourceOffset + i * kWordLen);
}

int extract_plain(const uint8_t *obj, const Form &f, uint16_t *type, uint16_t *id,
                  uint32_t *source) {
    if (!obj || !type || !id || !source) return 0;
    get_common(obj, f, type, id, source);
    return 1;
}

// Bytes of extended IDs the Length counts beyond the fixed part; 0 when it counts none.
uint16_t ext_id_len(const uint8_t *obj, const Form &f) {
    if (!obj) return 0;
    const uint16_t length = obj_length(obj);
    return length > f.length ? static_cast<uint16_t>(length - f.length) : 0;
}

// The count is written before the capacity test, so a refusal for lack of room still tells the
// caller how many IDs there are.
int extract_ext(const uint8_t *obj, const Form &f, uint16_t *type, uint16_t *id, uint32_t *source,
                uint32_t *global_source, uint32_t *ids, uint32_t ids_capacity, uint16_t *count) {
    if (!obj || !type || !id || !source || !global_source || !count) return 0;
    get_common(obj, f, type, id, source);
    *global_source = wire::load_be32(obj + f.global_offset);
    const uint16_t n = ext_id_len(obj, f) / kWordLen;
    *count = n;
    if (ids_capacity < uint32_t{kWordLen} * n) return 0;
    if (!ids || ids_capacity == 0 || n == 0) return 1;
    for (unsigned i = 0; i < n; ++i)
        ids[i] = wire::load_be32(obj + f.ids_offset + i * kWordLen);
    return 1;
}

int valid_form(const uint8_t *obj, const Form &f) {
    if (!obj || !obj_is(obj, RSVP_CLASS_ASSOCIATION, f.c_type)) return 0;
    const uint16_t length = obj_length(obj);
    if (!f.extended) return length == f.length;
    return length >= f.length && length % kWordLen == 0;
}

}  // namespace

extern "C" {

int rsvp_build_association_ipv4(uint8_t *obj, uint16_t type, uint16_t id, uint32_t source) {
    return build_plain(obj, kIpv4, type, id, &source);
}

int rsvp_build_association_ipv6(uint8_t *obj, uint16_t type, uint16_t id, uint32_t s0, uint32_t s1,
                                uint32_t s2, uint32_t s3) {
    const uint32_t source[kIpv6Words] = {s0, s1, s2, s3};
    return build_plain(obj, kIpv6, type, id, source);
}

int rsvp_build_association_ipv4_ext(uint8_t *obj, uint16_t type, uint16_t id, uint32_t source,
                                    uint32_t global_source, const uint32_t *ext_ids,
                                    uint16_t count) {
    return build_ext(obj, kIpv4Ext, type, id, &source, global_source, ext_ids, count);
}

int rsvp_build_association_ipv6_ext(uint8_t *obj, uint16_t type, uint16_t id, uint32_t s0,
                                    uint32_t s1, uint32_t s2, uint32_t s3, uint32_t global_source,
                                    const uint32_t *ext_ids, uint16_t count) {
    const uint32_t source[kIpv6Words] = {s0, s1, s2, s3};
    return build_ext(obj, kIpv6Ext, type, id, source, global_source, ext_ids, count);
}

int rsvp_extract_association_ipv4(uint8_t *obj, uint16_t *type, uint16_t *id, uint32_t *source) {
    return extract_plain(obj, kIpv4, type, id, source);
}

int rsvp_extract_association_ipv6(uint8_t *obj, uint16_t *type, uint16_t *id, uint32_t *source) {
    return extract_plain(obj, kIpv6, type, id, source);
}

int rsvp_extract_association_ipv4_ext(uint8_t *obj, uint16_t *type, uint16_t *id, uint32_t *source,
                                      uint32_t *global_source, uint32_t *ids, uint32_t ids_capacity,
                                      uint16_t *count) {
    return extract_ext(obj, kIpv4Ext, type, id, source, global_source, ids, ids_capacity, count);
}

int rsvp_extract_association_ipv6_ext(uint8_t *obj, uint16_t *type, uint16_t *id, uint32_t *source,
                                      uint32_t *global_source, uint32_t *ids, uint32_t ids_capacity,
                                      uint16_t *count) {
    return extract_ext(obj, kIpv6Ext, type, id, source, global_source, ids, ids_capacity, count);
}

int rsvp_valid_association(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_ASSOCIATION) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_ASSOCIATION_IPV4:
            return valid_form(obj, kIpv4);
        case RSVP_CTYPE_ASSOCIATION_IPV6:
            return valid_form(obj, kIpv6);
        case RSVP_CTYPE_ASSOCIATION_IPV4_EXT:
            return valid_form(obj, kIpv4Ext);
        case RSVP_CTYPE_ASSOCIATION_IPV6_EXT:
            return valid_form(obj, kIpv6Ext);
        default:
            return 0;
    }
}

int rsvp_valid_association_ipv4(uint8_t *obj) {
    return valid_form(obj, kIpv4);
}

int rsvp_valid_association_ipv6(uint8_t *obj) {
    return valid_form(obj, kIpv6);
}

int rsvp_valid_association_ipv4_ext(uint8_t *obj) {
    return valid_form(obj, kIpv4Ext);
}

int rsvp_valid_association_ipv6_ext(uint8_t *obj) {
    return valid_form(obj, kIpv6Ext);
}

uint16_t rsvp_compute_association_ipv4_ext_id_len(uint8_t *obj) {
    return ext_id_len(obj, kIpv4Ext);
}

uint16_t rsvp_compute_association_ipv6_ext_id_len(uint8_t *obj) {
    return ext_id_len(obj, kIpv6Ext);
}

}  // extern "C"
