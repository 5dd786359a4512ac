// GMPLS traffic parameters: G.709 OTN (C-Type 5) and SONET/SDH (C-Type 4), carried in a
// SENDER_TSPEC (class 12) or a FLOWSPEC (class 9). The two forms of each layout are the same
// bytes apart from the class, so each operation is written once, parameterised by class, and
// the exported TSPEC and FLOWSPEC names call it.
//
// G.709 OTN (16 bytes):
//   OFFSET SIZE FIELD
//   0      2    object length (16)
//   2      1    class (12 or 9)
//   3      1    C-Type (5)
//   4      4    signal type, as a 32-bit integer: bytes 4-6 are 0, byte 7 holds the value
//   8      2    NVC, number of virtual components
//   10     2    MT, multiplier
//   12     4    bit rate, IEEE-754 single
//
// SONET/SDH (16 bytes):
//   OFFSET SIZE FIELD
//   0      2    object length (16)
//   2      1    class (12 or 9)
//   3      1    C-Type (4)
//   4      1    ST, signal type
//   5      1    RCC, requested contiguous concatenation (0..7)
//   6      2    NCC, number of contiguous components
//   8      2    NVC, number of virtual components
//   10     2    MT, multiplier
//   12     4    T, transparency
#include "rsvp_assert.hpp"
#include "rsvp_object_internal.hpp"
#include "rsvp_platform.h"

using namespace rsvp;

namespace {

constexpr uint16_t kLen = RSVP_GMPLS_TRAFFIC_LEN;
constexpr uint8_t kG709CType = RSVP_CTYPE_SENDER_TSPEC_G709_OTN;
constexpr uint8_t kSonetCType = RSVP_CTYPE_SENDER_TSPEC_SONET_SDH;
static_assert(kG709CType == RSVP_CTYPE_FLOWSPEC_G709_OTN &&
                  kSonetCType == RSVP_CTYPE_FLOWSPEC_SONET_SDH,
              "the TSPEC and FLOWSPEC forms share their C-Types");

constexpr unsigned kG709SignalTypeOffset = 4;  // a 32-bit word; the value is its low byte
constexpr unsigned kG709NvcOffset = 8;
constexpr unsigned kG709MultiplierOffset = 10;
constexpr unsigned kG709BitRateOffset = 12;

constexpr unsigned kSonetSignalTypeOffset = 4;
constexpr unsigned kSonetRccOffset = 5;
constexpr unsigned kSonetNccOffset = 6;
constexpr unsigned kSonetNvcOffset = 8;
constexpr unsigned kSonetMultiplierOffset = 10;
constexpr unsigned kSonetTransparencyOffset = 12;
constexpr uint8_t kRccMask = RSVP_SONET_SDH_RCC_MAX;

bool valid_fixed(const uint8_t *obj, uint8_t class_num, uint8_t c_type) {
    return obj && obj_is(obj, class_num, c_type) && obj_length(obj) == kLen;
}

void build_g709(uint8_t *obj, uint8_t class_num, uint8_t signal_type, uint16_t nvc,
                uint16_t multiplier, int64_t bit_rate) {
    put_obj_hdr(obj, class_num, kG709CType, kLen);
    // The signal type is stored as a whole 32-bit integer, so it lands in the word's last
    // byte; peers of this library read it from there.
    wire::store_be32(obj + kG709SignalTypeOffset, signal_type);
    wire::store_be16(obj + kG709NvcOffset, nvc);
    wire::store_be16(obj + kG709MultiplierOffset, multiplier);
    wire::store_be32(obj + kG709BitRateOffset, int64_to_ieee(bit_rate));
}

int extract_g709(uint8_t *obj, uint8_t class_num, uint8_t *signal_type_out, uint16_t *nvc_out,
                 uint16_t *multiplier_out, int64_t *bit_rate_out) {
    if (!obj || !signal_type_out || !nvc_out || !multiplier_out || !bit_rate_out) return 0;
    if (!valid_fixed(obj, class_num, kG709CType)) return 0;
    *signal_type_out = static_cast<uint8_t>(wire::load_be32(obj + kG709SignalTypeOffset));
    *nvc_out = wire::load_be16(obj + kG709NvcOffset);
    *multiplier_out = wire::load_be16(obj + kG709MultiplierOffset);
    *bit_rate_out = ieee_to_int64(wire::load_be32(obj + kG709BitRateOffset));
    return 1;
}

// The caller has checked rcc: each exported builder asserts on its own line.
void build_sonet(uint8_t *obj, uint8_t class_num, uint8_t signal_type, uint8_t rcc, uint16_t ncc,
                 uint16_t nvc, uint16_t multiplier, uint32_t transparency) {
    put_obj_hdr(obj, class_num, kSonetCType, kLen);
    obj[kSonetSignalTypeOffset] = signal_type;
    obj[kSonetRccOffset] = rcc;
    wire::store_be16(obj + kSonetNccOffset, ncc);
    wire::store_be16(obj + kSonetNvcOffset, nvc);
    wire::store_be16(obj + kSonetMultiplierOffset, multiplier);
    wire::store_be32(obj + kSonetTransparencyOffset, transparency);
}

// Unlike the G.709 extractor, the output pointers are trusted.
int extract_sonet(uint8_t *obj, uint8_t class_num, uint8_t *signal_type_out, uint8_t *rcc_out,
                  uint16_t *ncc_out, uint16_t *nvc_out, uint16_t *multiplier_out,
                  uint32_t *transparency_out) {
    if (!valid_fixed(obj, class_num, kSonetCType)) return 0;
    *signal_type_out = obj[kSonetSignalTypeOffset];
    *rcc_out = obj[kSonetRccOffset] & kRccMask;
    *ncc_out = wire::load_be16(obj + kSonetNccOffset);
    *nvc_out = wire::load_be16(obj + kSonetNvcOffset);
    *multiplier_out = wire::load_be16(obj + kSonetMultiplierOffset);
    *transparency_out = wire::load_be32(obj + kSonetTransparencyOffset);
    return 1;
}

}  // namespace

extern "C" {

// ---- G.709 OTN ------------------------------------------------------------------------------

void rsvp_build_g709_otn_tspec(uint8_t *obj, uint8_t signal_type, uint16_t nvc, uint16_t multiplier,
                               int64_t bit_rate) {
    build_g709(obj, RSVP_CLASS_SENDER_TSPEC, signal_type, nvc, multiplier, bit_rate);
}

int rsvp_valid_g709_otn_tspec(uint8_t *obj) {
    return valid_fixed(obj, RSVP_CLASS_SENDER_TSPEC, kG709CType);
}

int rsvp_extract_g709_otn_tspec(uint8_t *obj, uint8_t *signal_type_out, uint16_t *nvc_out,
                                uint16_t *multiplier_out, int64_t *bit_rate_out) {
    return extract_g709(obj, RSVP_CLASS_SENDER_TSPEC, signal_type_out, nvc_out, multiplier_out,
                        bit_rate_out);
}

void rsvp_build_g709_otn_flowspec(uint8_t *obj, uint8_t signal_type, uint16_t nvc,
                                  uint16_t multiplier, int64_t bit_rate) {
    build_g709(obj, RSVP_CLASS_FLOWSPEC, signal_type, nvc, multiplier, bit_rate);
}

int rsvp_valid_g709_otn_flowspec(uint8_t *obj) {
    return valid_fixed(obj, RSVP_CLASS_FLOWSPEC, kG709CType);
}

int rsvp_extract_g709_otn_flowspec(uint8_t *obj, uint8_t *signal_type_out, uint16_t *nvc_out,
                                   uint16_t *multiplier_out, int64_t *bit_rate_out) {
    return extract_g709(obj, RSVP_CLASS_FLOWSPEC, signal_type_out, nvc_out, multiplier_out,
                        bit_rate_out);
}

// ---- SONET/SDH ------------------------------------------------------------------------------

void rsvp_build_uni_sonet_sdh_tspec(uint8_t *obj, uint8_t signal_type, uint8_t rcc, uint16_t ncc,
                                    uint16_t nvc, uint16_t multiplier, uint32_t transparency) {
    RSVP_ASSERT(rcc <= RSVP_SONET_SDH_RCC_MAX);
    build_sonet(obj, RSVP_CLASS_SENDER_TSPEC, signal_type, rcc, ncc, nvc, multiplier, transparency);
}

int rsvp_valid_uni_sonet_sdh_tspec(uint8_t *obj) {
    return valid_fixed(obj, RSVP_CLASS_SENDER_TSPEC, kSonetCType);
}

int rsvp_extract_uni_sonet_sdh_tspec(uint8_t *obj, uint8_t *signal_type_out, uint8_t *rcc_out,
                                     uint16_t *ncc_out, uint16_t *nvc_out, uint16_t *multiplier_out,
                                     uint32_t *transparency_out) {
    return extract_sonet(obj, RSVP_CLASS_SENDER_TSPEC, signal_type_out, rcc_out, ncc_out, nvc_out,
                         multiplier_out, transparency_out);
}

void rsvp_build_uni_sonet_sdh_flowspec(uint8_t *obj, uint8_t signal_type, uint8_t rcc, uint16_t ncc,
                                       uint16_t nvc, uint16_t multiplier, uint32_t transparency) {
    RSVP_ASSERT(rcc <= RSVP_SONET_SDH_RCC_MAX);
    build_sonet(obj, RSVP_CLASS_FLOWSPEC, signal_type, rcc, ncc, nvc, multiplier, transparency);
}

int rsvp_valid_uni_sonet_sdh_flowspec(uint8_t *obj) {
    return valid_fixed(obj, RSVP_CLASS_FLOWSPEC, kSonetCType);
}

int rsvp_extract_uni_sonet_sdh_flowspec(uint8_t *obj, uint8_t *signal_type_out, uint8_t *rcc_out,
                                        uint16_t *ncc_out, uint16_t *nvc_out,
                                        uint16_t *multiplier_out, uint32_t *transparency_out) {
    return extract_sonet(obj, RSVP_CLASS_FLOWSPEC, signal_type_out, rcc_out, ncc_out, nvc_out,
                         multiplier_out, transparency_out);
}

}  // extern "C"
