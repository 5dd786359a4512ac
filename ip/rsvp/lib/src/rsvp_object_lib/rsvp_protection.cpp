// PROTECTION (Class-Num 37, C-Type 2) and the private protection object (Class-Num 190,
// C-Type 252). Both carry the same recovery flags; the private object adds typed subobjects.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length 12 for PROTECTION; 12 + subobjects for the private one)
//   4      1    S (0x80) P (0x40) N (0x20) O (0x10), reserved low nibble
//   5      1    LSP flags (low 6 bits), 2 reserved bits above
//   6      1    reserved
//   7      1    link flags (low 6 bits), 2 reserved bits above
//   8      1    I (0x80) R (0x40), reserved low 6 bits
//   9      1    segment flags (low 6 bits), 2 reserved bits above
//   10     2    reserved
//   12     ...  private object only: subobjects, back to back
//
//   Subobject                               WTR (1), HOFF (2): length 8
//   OFFSET SIZE FIELD                       4      4    value (opaque number)
//   0      2    type                        SNC (3): length 12
//   2      2    length, header included     4      4    bits 31..29: mode 1
//                                           8      4    bits 28..26: mode 2
//
// The flag fields are read and written as 16-bit words at offsets 4, 6 and 8. The twin
// accessor sets share one body and differ only in the validator they call. The private object
// keeps three rules as they stand: its validator accepts a last subobject that runs past the
// Length, an add grows the Length in its low byte only (the carry is lost), and the SNC modes
// are merged into whatever the buffer held.
#include <bit>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr uint8_t kClass = RSVP_CLASS_PROTECTION;
constexpr uint8_t kCType = RSVP_CTYPE_PROTECTION_END_TO_END;
constexpr uint8_t kPvtClass = RSVP_CLASS_PVT_PROTECTION;
constexpr uint8_t kPvtCType = RSVP_CTYPE_PVT_PROTECTION;
constexpr uint16_t kLen = RSVP_PROTECTION_LEN;  // also where the private subobjects start

// Subobject layout.
constexpr unsigned kSubTypeOffset = 0;
constexpr unsigned kSubLenOffset = 2;
constexpr unsigned kSubMinLen = RSVP_PVT_PROTECTION_SUBOBJ_HDR_LEN + 1;
constexpr unsigned kSubValueOffset = 4;  // WTR and HOFF value, SNC mode 1 word
constexpr unsigned kSncMode2Offset = 8;
constexpr unsigned kMode1Shift = 29;
constexpr uint32_t kMode1Keep = 0x1FFFFFFF;  // the word's other bits
constexpr unsigned kMode2Shift = 26;
constexpr uint32_t kMode2Bits = uint32_t{RSVP_PVT_PROTECTION_SNC_MODE_MASK} << kMode2Shift;

// A flag or flag field: which 16-bit word, and its bits in that word (host order).
struct Field {
    unsigned offset;
    uint16_t mask;
};
constexpr Field kS{4, 0x8000}, kP{4, 0x4000}, kN{4, 0x2000}, kO{4, 0x1000};
constexpr Field kLspFlags{4, RSVP_PROTECTION_FLAGS_MASK};
constexpr Field kLinkFlags{6, RSVP_PROTECTION_FLAGS_MASK};
constexpr Field kI{8, 0x8000}, kR{8, 0x4000};
constexpr Field kSegFlags{8, RSVP_PROTECTION_FLAGS_MASK};

using Validator = int (*)(uint8_t *);

uint32_t get(uint8_t *obj, Validator valid, Field f) {
    if (!valid(obj)) return 0;
    return static_cast<uint32_t>(wire::load_be16(obj + f.offset) & f.mask) >>
           std::countr_zero(f.mask);
}

// Replaces the field's bits with bits (already placed and masked); the rest of the word stays.
void put(uint8_t *obj, Validator valid, Field f, uint16_t bits) {
    if (!valid(obj)) return;
    const uint16_t word = wire::load_be16(obj + f.offset);
    wire::store_be16(obj + f.offset, static_cast<uint16_t>((word & ~f.mask) | bits));
}

void set_bit(uint8_t *obj, Validator valid, Field f, int value) {
    put(obj, valid, f, value ? f.mask : 0);
}

void set_flags(uint8_t *obj, Validator valid, Field f, uint8_t flags) {
    put(obj, valid, f, flags & f.mask);
}

uint16_t sub_type(const uint8_t *sub) {
    return wire::load_be16(sub + kSubTypeOffset);
}
uint16_t sub_len(const uint8_t *sub) {
    return wire::load_be16(sub + kSubLenOffset);
}

// The remaining count of the subobject walks: a signed 16-bit number, so a Length above 32779
// leaves nothing to walk.
int16_t pvt_remaining(const uint8_t *obj) {
    return static_cast<int16_t>(obj_length(obj) - kLen);
}

uint8_t *pvt_valid_subobject(uint8_t *sub, uint16_t type) {
    return rsvp_valid_pvt_protection_subobject(sub) && sub_type(sub) == type ? sub : nullptr;
}

// The validated first step of the adds: where the new subobject goes, or nullptr when the
// object is invalid or already holds one of this type.
uint8_t *pvt_append_point(uint8_t *obj, uint16_t type) {
    if (!rsvp_valid_pvt_protection(obj)) return nullptr;
    uint8_t *p = obj + kLen;
    for (int remaining = pvt_remaining(obj); remaining > 0; p += sub_len(p)) {
        if (sub_type(p) == type) return nullptr;
        remaining -= sub_len(p);
    }
    return p;
}

// Lays down a subobject header at p and grows the Length: only its low byte takes the
// addition, so a carry out of it is lost (252 grown by 8 reads 4).
void pvt_append(uint8_t *obj, uint8_t *p, uint16_t type, uint8_t length) {
    wire::store_be16(p + kSubTypeOffset, type);
    wire::store_be16(p + kSubLenOffset, length);
    const unsigned low = kObjLengthOffset + 1;
    obj[low] = static_cast<uint8_t>(obj[low] + length);
}

int pvt_add_value(uint8_t *obj, uint16_t type, uint8_t length, uint32_t value) {
    uint8_t *p = pvt_append_point(obj, type);
    if (!p) return 0;
    pvt_append(obj, p, type, length);
    wire::store_be32(p + kSubValueOffset, value);
    return 1;
}

int pvt_extract_value(uint8_t *sub, uint16_t type, uint32_t *value) {
    if (!value || !pvt_valid_subobject(sub, type)) return 0;
    *value = wire::load_be32(sub + kSubValueOffset);
    return 1;
}

}  // namespace

extern "C" {

void rsvp_build_protection(uint8_t *obj) {
    put_obj_hdr(obj, kClass, kCType, kLen);
}

void rsvp_build_pvt_protection(uint8_t *obj) {
    put_obj_hdr(obj, kPvtClass, kPvtCType, kLen);
}

int rsvp_valid_protection(uint8_t *obj) {
    return obj && obj_is(obj, kClass, kCType) && obj_length(obj) == kLen;
}

int rsvp_valid_pvt_protection_subobject(uint8_t *sub) {
    if (!sub || sub_len(sub) < kSubMinLen) return 0;
    switch (sub_type(sub)) {
        case RSVP_PVT_PROTECTION_SUBOBJ_WTR:
        case RSVP_PVT_PROTECTION_SUBOBJ_HOFF:
            static_assert(RSVP_PVT_PROTECTION_WTR_LEN == RSVP_PVT_PROTECTION_HOFF_LEN);
            return sub_len(sub) == RSVP_PVT_PROTECTION_WTR_LEN;
        case RSVP_PVT_PROTECTION_SUBOBJ_SNC:
            return sub_len(sub) == RSVP_PVT_PROTECTION_SNC_LEN;
        default:
            return 0;
    }
}

// The walk stops once the lengths seen reach the Length, so the last subobject may run past
// it: that leniency is kept, and its header is read wherever it lies (deliberate read). Every
// step is at least 5 bytes.
int rsvp_valid_pvt_protection(uint8_t *obj) {
    if (!obj || !obj_is(obj, kPvtClass, kPvtCType) || obj_length(obj) < kLen) return 0;
    uint8_t *p = obj + kLen;
    for (int remaining = pvt_remaining(obj); remaining > 0; p += sub_len(p)) {
        if (!rsvp_valid_pvt_protection_subobject(p)) return 0;
        remaining -= sub_len(p);
    }
    return 1;
}

int rsvp_add_pvt_protection_wtr(uint8_t *obj, uint32_t value) {
    return pvt_add_value(obj, RSVP_PVT_PROTECTION_SUBOBJ_WTR, RSVP_PVT_PROTECTION_WTR_LEN, value);
}

int rsvp_add_pvt_protection_hoff(uint8_t *obj, uint32_t value) {
    return pvt_add_value(obj, RSVP_PVT_PROTECTION_SUBOBJ_HOFF, RSVP_PVT_PROTECTION_HOFF_LEN, value);
}

int rsvp_add_pvt_protection_snc(uint8_t *obj, uint8_t mode1, uint8_t mode2) {
    uint8_t *p = pvt_append_point(obj, RSVP_PVT_PROTECTION_SUBOBJ_SNC);
    if (!p) return 0;
    pvt_append(obj, p, RSVP_PVT_PROTECTION_SUBOBJ_SNC, RSVP_PVT_PROTECTION_SNC_LEN);
    RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(p, mode1, mode2);
    return 1;
}

uint8_t *rsvp_extract_pvt_protection_next_subobject(uint8_t *obj, uint8_t *current) {
    if (!rsvp_valid_pvt_protection(obj)) return nullptr;
    uint8_t *next = obj + kLen;
    if (current) {
        if (!rsvp_valid_pvt_protection_subobject(current)) return nullptr;
        next = current + sub_len(current);
    }
    if (next - obj >= obj_length(obj)) return nullptr;
    return rsvp_valid_pvt_protection_subobject(next) ? next : nullptr;
}

int rsvp_extract_pvt_protection_wtr(uint8_t *sub, uint32_t *value) {
    return pvt_extract_value(sub, RSVP_PVT_PROTECTION_SUBOBJ_WTR, value);
}

int rsvp_extract_pvt_protection_hoff(uint8_t *sub, uint32_t *value) {
    return pvt_extract_value(sub, RSVP_PVT_PROTECTION_SUBOBJ_HOFF, value);
}

int rsvp_extract_pvt_protection_snc(uint8_t *sub, uint8_t *mode1, uint8_t *mode2) {
    return RSVP_PVT_PROTECTION_SNC_SUBOBJ_MODE(sub, mode1, mode2);
}

uint16_t RSVP_PVT_PROTECTION_SUBOBJ_TYPE(uint8_t *sub) {
    return rsvp_valid_pvt_protection_subobject(sub) ? sub_type(sub) : 0;
}

uint16_t RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(uint8_t *sub) {
    return rsvp_valid_pvt_protection_subobject(sub) ? sub_len(sub) : 0;
}

int RSVP_PVT_PROTECTION_SNC_SUBOBJ_MODE(uint8_t *sub, uint8_t *mode1, uint8_t *mode2) {
    if (!mode1 || !mode2 || !pvt_valid_subobject(sub, RSVP_PVT_PROTECTION_SUBOBJ_SNC)) return 0;
    *mode1 = static_cast<uint8_t>(wire::load_be32(sub + kSubValueOffset) >> kMode1Shift);
    *mode2 =
        static_cast<uint8_t>((wire::load_be32(sub + kSncMode2Offset) & kMode2Bits) >> kMode2Shift);
    return 1;
}

// Read-modify-write of both words: the bits around the modes stay as the buffer held them.
void RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(uint8_t *sub, uint8_t mode1, uint8_t mode2) {
    if (!pvt_valid_subobject(sub, RSVP_PVT_PROTECTION_SUBOBJ_SNC)) return;
    uint8_t *w1 = sub + kSubValueOffset;
    uint8_t *w2 = sub + kSncMode2Offset;
    wire::store_be32(w1, (wire::load_be32(w1) & kMode1Keep) | uint32_t{mode1} << kMode1Shift);
    wire::store_be32(
        w2, (wire::load_be32(w2) & ~kMode2Bits) | ((uint32_t{mode2} << kMode2Shift) & kMode2Bits));
}

uint32_t RSVP_PROTECTION_S(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kS);
}
void RSVP_PROTECTION_SET_S(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_protection, kS, value);
}
uint32_t RSVP_PROTECTION_P(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kP);
}
void RSVP_PROTECTION_SET_P(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_protection, kP, value);
}
uint32_t RSVP_PROTECTION_N(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kN);
}
void RSVP_PROTECTION_SET_N(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_protection, kN, value);
}
uint32_t RSVP_PROTECTION_O(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kO);
}
void RSVP_PROTECTION_SET_O(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_protection, kO, value);
}
uint32_t RSVP_PROTECTION_LSP_FLAGS(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kLspFlags);
}
void RSVP_PROTECTION_SET_LSP_FLAGS(uint8_t *obj, uint8_t flags) {
    set_flags(obj, rsvp_valid_protection, kLspFlags, flags);
}
uint32_t RSVP_PROTECTION_LINK_FLAGS(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kLinkFlags);
}
void RSVP_PROTECTION_SET_LINK_FLAGS(uint8_t *obj, uint8_t flags) {
    set_flags(obj, rsvp_valid_protection, kLinkFlags, flags);
}
uint32_t RSVP_PROTECTION_I(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kI);
}
void RSVP_PROTECTION_SET_I(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_protection, kI, value);
}
uint32_t RSVP_PROTECTION_R(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kR);
}
void RSVP_PROTECTION_SET_R(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_protection, kR, value);
}
uint32_t RSVP_PROTECTION_SEG_FLAGS(uint8_t *obj) {
    return get(obj, rsvp_valid_protection, kSegFlags);
}
void RSVP_PROTECTION_SET_SEG_FLAGS(uint8_t *obj, uint8_t flags) {
    set_flags(obj, rsvp_valid_protection, kSegFlags, flags);
}

uint32_t RSVP_PVT_PROTECTION_S(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kS);
}
void RSVP_PVT_PROTECTION_SET_S(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_pvt_protection, kS, value);
}
uint32_t RSVP_PVT_PROTECTION_P(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kP);
}
void RSVP_PVT_PROTECTION_SET_P(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_pvt_protection, kP, value);
}
uint32_t RSVP_PVT_PROTECTION_N(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kN);
}
void RSVP_PVT_PROTECTION_SET_N(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_pvt_protection, kN, value);
}
uint32_t RSVP_PVT_PROTECTION_O(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kO);
}
void RSVP_PVT_PROTECTION_SET_O(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_pvt_protection, kO, value);
}
uint32_t RSVP_PVT_PROTECTION_LSP_FLAGS(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kLspFlags);
}
void RSVP_PVT_PROTECTION_SET_LSP_FLAGS(uint8_t *obj, uint8_t flags) {
    set_flags(obj, rsvp_valid_pvt_protection, kLspFlags, flags);
}
uint32_t RSVP_PVT_PROTECTION_LINK_FLAGS(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kLinkFlags);
}
void RSVP_PVT_PROTECTION_SET_LINK_FLAGS(uint8_t *obj, uint8_t flags) {
    set_flags(obj, rsvp_valid_pvt_protection, kLinkFlags, flags);
}
uint32_t RSVP_PVT_PROTECTION_I(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kI);
}
void RSVP_PVT_PROTECTION_SET_I(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_pvt_protection, kI, value);
}
uint32_t RSVP_PVT_PROTECTION_R(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kR);
}
void RSVP_PVT_PROTECTION_SET_R(uint8_t *obj, int value) {
    set_bit(obj, rsvp_valid_pvt_protection, kR, value);
}
uint32_t RSVP_PVT_PROTECTION_SEG_FLAGS(uint8_t *obj) {
    return get(obj, rsvp_valid_pvt_protection, kSegFlags);
}
void RSVP_PVT_PROTECTION_SET_SEG_FLAGS(uint8_t *obj, uint8_t flags) {
    set_flags(obj, rsvp_valid_pvt_protection, kSegFlags, flags);
}

}  // extern "C"
