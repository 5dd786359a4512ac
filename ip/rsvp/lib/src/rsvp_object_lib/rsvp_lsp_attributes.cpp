// LSP_ATTRIBUTES (Class-Num 197) and LSP_REQUIRED_ATTRIBUTES (67), DIFFSERV (65) and
// CLASSTYPE (66): the small objects that qualify a traffic-engineered LSP.
//
//   LSP_ATTRIBUTES / LSP_REQUIRED_ATTRIBUTES, C-Type 1     TLV
//   OFFSET SIZE FIELD                                      OFFSET SIZE FIELD
//   0      4    object header                              0      2    type
//   4      ...  TLVs, back to back, to the Length          2      2    length, header included
//                                                          4      ...  value
//   Attribute Flags TLV: type 1, length 8, value = the flags word, flag n in wire bit 31 - n.
//
//   DIFFSERV E-LSP (C-Type 1)                              DIFFSERV L-LSP (C-Type 2)
//   OFFSET SIZE FIELD                                      OFFSET SIZE FIELD
//   0      4    object header                              0      4    object header
//   4      4    bits 31..28 MAPnb (0..8), rest reserved    4      4    bits 31..16 PSC
//   8      4n   MAP entries: bits 31..16 PHBID,
//               bits 15..13 EXP, bits 12..0 reserved
//
//   CLASSTYPE (C-Type 1, Length 8): word at offset 4, class type in bits 2..0.
//
// The DIFFSERV bit positions are this library's own and differ from the RFC drawing (MAPnb and
// PSC at the top of their words, PHBID in the upper half of an entry); peers built on this
// library expect them, so they stay. Three more rules are kept as they stand: the Attribute
// Flags add reads the TLV lengths already present without byte-order conversion, so on a
// little-endian host it succeeds only on an empty object; rsvp_diffserv_get_exp answers 9 for
// a null object; and the CLASSTYPE validator does not look at the Length. The DIFFSERV readers
// other than the validator trust their caller to have validated the object and bounded the
// index by MAPnb.
#include <cstring>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr uint8_t kAttrCType = RSVP_CTYPE_LSP_ATTRIBUTES;
constexpr unsigned kTlvTypeOffset = 0;
constexpr unsigned kTlvLenOffset = 2;
constexpr unsigned kTlvHdrLen = RSVP_LSP_ATTR_TLV_HDR_LEN;
constexpr unsigned kTlvValueOffset = 4;
constexpr unsigned kFlagsBits = 32;

constexpr unsigned kDsWordOffset = 4;  // MAPnb (E-LSP) or PSC (L-LSP)
constexpr unsigned kDsHdrLen = RSVP_DIFFSERV_HDR_LEN;
constexpr unsigned kDsEntryLen = RSVP_DIFFSERV_MAP_ENTRY_LEN;
constexpr unsigned kMapNbShift = 28;
constexpr unsigned kPhbidShift = 16;  // also the PSC
constexpr unsigned kExpShift = 13;
constexpr uint32_t kExpMask = 7;

constexpr unsigned kClassTypeOffset = 4;

bool is_lsp_attributes(const uint8_t *obj) {
    return obj_is(obj, RSVP_CLASS_LSP_ATTRIBUTES, kAttrCType) ||
           obj_is(obj, RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES, kAttrCType);
}

// Flag n of the interface value is wire bit 31 - n: the word's bit order reversed.
uint32_t reverse_bits32(uint32_t v) {
    uint32_t out = 0;
    for (unsigned i = 0; i < kFlagsBits; ++i)
        if (v >> i & 1u) out |= 1u << (kFlagsBits - 1 - i);
    return out;
}

// The end of the TLV list as the add sees it, or nullptr. Each TLV length is taken as its
// bytes lie in memory, unconverted (kept as it stands: on a little-endian host a TLV shorter
// than 256 bytes reads as 256 or more and the search fails). The header read at each step lies
// inside the object, since more than 4 bytes remain. A length of 0 would never advance, and a
// Length below 4 never ends at the object end: both refuse here.
uint8_t *lsp_attr_find_end(uint8_t *obj) {
    if (!obj) return nullptr;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return nullptr;
    uint32_t remaining = length - kObjHdrLen;
    uint8_t *p = obj_body(obj);
    while (remaining > kTlvHdrLen) {
        const uint16_t tlv_len = wire::load_raw16(p + kTlvLenOffset);
        if (tlv_len == 0 || tlv_len > remaining) return nullptr;
        p += tlv_len;
        remaining -= tlv_len;
    }
    return remaining == 0 ? p : nullptr;  // p is then obj + Length
}

// The word of MAP entry index. Neither MAPnb nor the Length bounds the index: the caller's
// loop does (deliberate read).
uint32_t ds_entry(const uint8_t *obj, uint8_t index) {
    return wire::load_be32(obj + kDsHdrLen + index * kDsEntryLen);
}

uint8_t map_count(const uint8_t *obj) {
    return static_cast<uint8_t>(wire::load_be32(obj + kDsWordOffset) >> kMapNbShift);
}

}  // namespace

extern "C" {

// ---- LSP_ATTRIBUTES and LSP_REQUIRED_ATTRIBUTES --------------------------------------------

void rsvp_build_lsp_attributes(uint8_t *obj, int required) {
    put_obj_hdr(obj, required ? RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES : RSVP_CLASS_LSP_ATTRIBUTES,
                kAttrCType, kObjHdrLen);
}

// TLV lengths need not be whole words, but each must hold its header and together they must
// end exactly at the Length. A header that would not fit in the bytes left can only overshoot,
// so the walk answers 0 there without reading it.
int rsvp_valid_lsp_attributes(uint8_t *obj) {
    if (!obj || !is_lsp_attributes(obj)) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kObjHdrLen) return 0;
    unsigned total = kObjHdrLen;
    while (total < length) {
        if (length - total < kTlvHdrLen) return 0;
        const uint16_t tlv_len = wire::load_be16(obj + total + kTlvLenOffset);
        if (tlv_len < kTlvHdrLen) return 0;
        total += tlv_len;
    }
    return total == length;
}

int rsvp_add_lsp_attr_attribute_flags_tlv(uint8_t *obj, uint32_t flags) {
    uint8_t *end = lsp_attr_find_end(obj);
    if (!end) return 0;
    wire::store_be16(end + kTlvTypeOffset, RSVP_LSP_ATTR_TLV_ATTRIBUTE_FLAGS);
    wire::store_be16(end + kTlvLenOffset, RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN);
    wire::store_be32(end + kTlvValueOffset, reverse_bits32(flags));
    wire::store_be16(
        obj + kObjLengthOffset,
        static_cast<uint16_t>(obj_length(obj) + RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN));
    return 1;
}

// Neither the type nor the length of the TLV is looked at: the word at offset 4 is read even
// behind a TLV of length 4 (deliberate read; callers check the length first).
int rsvp_extract_lsp_attr_attribute_flags_tlv(uint8_t *tlv, uint32_t *flags) {
    if (!tlv || !flags) return 0;
    *flags = reverse_bits32(wire::load_be32(tlv + kTlvValueOffset));
    return 1;
}

uint8_t *rsvp_get_lsp_attr_next_tlv(uint8_t *obj, uint8_t *current) {
    if (!rsvp_valid_lsp_attributes(obj)) return nullptr;
    if (!current) return obj_body(obj);  // even in an empty object
    const unsigned next = static_cast<unsigned>(current - obj) + RSVP_LSP_ATTR_TLV_LEN(current);
    return next < obj_length(obj) ? obj + next : nullptr;
}

uint16_t RSVP_LSP_ATTR_TLV_TYPE(uint8_t *tlv) {
    return tlv ? wire::load_be16(tlv + kTlvTypeOffset) : 0;
}

uint16_t RSVP_LSP_ATTR_TLV_LEN(uint8_t *tlv) {
    return tlv ? wire::load_be16(tlv + kTlvLenOffset) : 0;
}

// ---- DIFFSERV ------------------------------------------------------------------------------

int rsvp_valid_diffserv(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_DIFFSERV) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_DIFFSERV_E_LSP:
            // MAPnb lies at offset 4: a shorter object cannot have the length MAPnb asks for.
            if (obj_length(obj) < kDsHdrLen || map_count(obj) > RSVP_DIFFSERV_MAX_MAP_ENTRIES)
                return 0;
            break;
        case RSVP_CTYPE_DIFFSERV_L_LSP:
            break;
        default:
            return 0;
    }
    return obj_length(obj) == rsvp_diffserv_length(obj, obj_ctype(obj));
}

// MAPnb is read from offset 4 whatever the object's Length: the caller vouches for it.
uint16_t rsvp_diffserv_length(uint8_t *obj, uint8_t c_type) {
    if (!obj) return 0;
    switch (c_type) {
        case RSVP_CTYPE_DIFFSERV_E_LSP:
            return static_cast<uint16_t>(kDsHdrLen + map_count(obj) * kDsEntryLen);
        case RSVP_CTYPE_DIFFSERV_L_LSP:
            return kDsHdrLen;
        default:
            return 0;
    }
}

// Trusts its caller: MAPnb (up to 15) entries are copied whatever the Length says.
int rsvp_extract_diffserv_e_lsp(uint8_t *obj, uint8_t *map_count_out, uint32_t *entries) {
    if (!obj || !map_count_out || !entries) return 0;
    const uint8_t n = map_count(obj);
    *map_count_out = n;
    for (unsigned i = 0; i < n; ++i)
        entries[i] = wire::load_raw32(obj + kDsHdrLen + i * kDsEntryLen);
    return 1;
}

uint8_t rsvp_diffserv_get_exp(uint8_t *obj, uint8_t index) {
    if (!obj) return RSVP_DIFFSERV_NO_EXP;
    return static_cast<uint8_t>(ds_entry(obj, index) >> kExpShift & kExpMask);
}

uint16_t rsvp_diffserv_get_phbid(uint8_t *obj, uint8_t index) {
    return obj ? static_cast<uint16_t>(ds_entry(obj, index) >> kPhbidShift) : 0;
}

// Not validated: the PSC is read from offset 4 of whatever the caller hands in.
int rsvp_extract_diffserv_l_lsp(uint8_t *obj, uint16_t *psc) {
    if (!obj || !psc) return 0;
    *psc = static_cast<uint16_t>(wire::load_be32(obj + kDsWordOffset) >> kPhbidShift);
    return 1;
}

// ---- CLASSTYPE -----------------------------------------------------------------------------

void rsvp_build_class_type(uint8_t *obj, uint8_t class_type) {
    put_obj_hdr(obj, RSVP_CLASS_CLASSTYPE, RSVP_CTYPE_CLASSTYPE, RSVP_CLASSTYPE_LEN);
    wire::store_be32(obj + kClassTypeOffset, class_type & uint32_t{RSVP_CLASSTYPE_MASK});
}

int rsvp_valid_class_type(uint8_t *obj) {
    return obj && obj_is(obj, RSVP_CLASS_CLASSTYPE, RSVP_CTYPE_CLASSTYPE);
}

// No null test and no Length test: a 4-byte object that the validator accepts is read past
// its end (deliberate read; callers check the Length first).
uint8_t rsvp_get_class_type(uint8_t *obj) {
    return static_cast<uint8_t>(wire::load_be32(obj + kClassTypeOffset) & RSVP_CLASSTYPE_MASK);
}

}  // extern "C"
