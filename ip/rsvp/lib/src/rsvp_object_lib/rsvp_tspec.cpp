// SENDER_TSPEC (class 12): the Intserv C-Type 2 with its token bucket, and the generic
// validator that picks the check of each C-Type.
//
//   OFFSET SIZE FIELD                        (C-Type 2 as built, 36 bytes)
//   0      4    object header                length 36, class 12, C-Type 2
//   4      2    version/reserved             0
//   6      2    overall length (words)       7
//   8      1    service number               1 (default/general)
//   9      1    reserved                     0
//   10     2    service data length (words)  6
//   12     4    parameter 127, flags 0, length 5 (token bucket TSpec)
//   16     4    token bucket rate r          float
//   20     4    token bucket depth b         float
//   24     4    peak data rate p             float
//   28     4    minimum policed unit m       unsigned
//   32     4    maximum packet size M        unsigned
//
// A received body may also carry a qualitative fragment (service 6: length 2, parameter 128
// of length 1, then M) and fragments of other services, which are skipped unchecked.
#include "rsvp_intserv.hpp"
#include "rsvp_valid_field.hpp"

using namespace rsvp;
using namespace rsvp::intserv;

namespace {

constexpr uint16_t kTspecLen = RSVP_SENDER_TSPEC_INTSERV_LEN;
static_assert(kTspecLen == object_bytes(kTbFragWords + kFragHdrWords));

bool valid_tspec_fragment(const uint8_t *frag) {
    switch (frag_service(frag)) {
        case RSVP_INTSRV_SERVICE_GENERAL:
            return frag_words(frag) == kTbFragWords &&
                   param_is(frag + kTbParamOffset, RSVP_INTSRV_PARAM_TOKEN_BUCKET_TSPEC,
                            kTbParamWords) &&
                   rate_and_depth_finite(frag) &&
                   wire::load_be32(frag + kTbMinUnitOffset) <=
                       wire::load_be32(frag + kTbMaxUnitOffset);
        case RSVP_INTSRV_SERVICE_QUALITATIVE:
            // The maximum packet size itself is not examined.
            return frag_words(frag) == kQualFragWords &&
                   param_is(frag + kQualParamOffset, RSVP_INTSRV_PARAM_QUALITATIVE_MAX_UNIT,
                            kQualParamWords);
        default:
            return true;
    }
}

// The service-1 fragment of a SENDER_TSPEC, or null.
uint8_t *general_fragment(uint8_t *obj) {
    return rsvp_find_intsrv_service(obj, RSVP_INTSRV_SERVICE_GENERAL);
}

// Object-level accessors answer only for an object that the dispatch accepts. Every valid
// SENDER_TSPEC holds the body header; a valid object of another class may be too short for it.
bool dispatch_accepts(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID;
}

}  // namespace

extern "C" {

void rsvp_build_tspec(uint8_t *obj, int64_t rate, int64_t depth, int64_t peak, uint32_t min_unit,
                      uint32_t max_unit) {
    put_obj_hdr(obj, RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_INTSERV, kTspecLen);
    rsvp_fill_token_bucket_tspec(obj, rate, depth, peak, min_unit, max_unit);
}

int rsvp_valid_tspec(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_INTSERV)) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kFirstFragOffset) return 0;
    if (version_word(obj) != 0) return 0;
    const uint16_t words = overall_words(obj);
    // Words against bytes, deliberately: a claim of up to four times the body passes here,
    // and the walk below then reads as far as the claim reaches, past the object if need be.
    if (words > length - kFirstFragOffset) return 0;
    return walk_fragments(obj + kFirstFragOffset, words, valid_tspec_fragment) ? 1 : 0;
}

int rsvp_valid_gen_tspec(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_SENDER_TSPEC) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_SENDER_TSPEC_INTSERV:
            return rsvp_valid_tspec(obj);
        case RSVP_CTYPE_SENDER_TSPEC_SONET_SDH:
            // Class and C-Type already hold: this is the 16-byte length check alone.
            return rsvp_valid_uni_sonet_sdh_tspec(obj);
        case RSVP_CTYPE_SENDER_TSPEC_G709_OTN:
            return rsvp_valid_g709_otn_tspec(obj);
        default:
            return 0;
    }
}

int rsvp_extract_tspec(uint8_t *obj, int64_t *rate_out, int64_t *depth_out, int64_t *peak_out,
                       uint32_t *min_unit_out, uint32_t *max_unit_out) {
    if (!rsvp_valid_tspec(obj)) return 0;
    const uint8_t *frag = general_fragment(obj);
    // Without a service-1 fragment (a qualitative body, or none) every output is 0.
    *rate_out = frag ? load_number(frag + kTbRateOffset) : 0;
    *depth_out = frag ? load_number(frag + kTbDepthOffset) : 0;
    *peak_out = frag ? load_number(frag + kTbPeakOffset) : 0;
    *min_unit_out = frag ? wire::load_be32(frag + kTbMinUnitOffset) : 0;
    *max_unit_out = frag ? wire::load_be32(frag + kTbMaxUnitOffset) : 0;
    return 1;
}

int64_t rsvp_get_average_rate(uint8_t *obj) {
    return RSVP_TOKEN_BUCKET_FRAG_RATE(general_fragment(obj));
}

int64_t rsvp_get_maximum_burst(uint8_t *obj) {
    return RSVP_TOKEN_BUCKET_FRAG_DEPTH(general_fragment(obj));
}

int64_t rsvp_get_peak_rate(uint8_t *obj) {
    return RSVP_TOKEN_BUCKET_FRAG_PEAK(general_fragment(obj));
}

uint32_t rsvp_get_min_unit(uint8_t *obj) {
    return RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(general_fragment(obj));
}

uint32_t rsvp_get_max_unit(uint8_t *obj) {
    return RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(general_fragment(obj));
}

uint8_t RSVP_TSPEC_HEADER_VERSION(uint8_t *obj) {
    return valid_holds(obj, kVersionEnd) ? static_cast<uint8_t>(version_word(obj) >> kVersionShift)
                                         : 0;
}

uint16_t RSVP_TSPEC_HEADER_LENGTH(uint8_t *obj) {
    return valid_holds(obj, kOverallLenEnd) ? overall_words(obj) : 0;
}

uint8_t *RSVP_TSPEC_FRAGMENTS_PTR(uint8_t *obj, uint32_t offset) {
    return dispatch_accepts(obj) ? obj + kFirstFragOffset + offset : nullptr;
}

uint8_t RSVP_TSPEC_QUAL_FRAG_PARAM_ID(uint8_t *frag) {
    return frag ? param_id(frag + kQualParamOffset) : 0;
}

uint8_t RSVP_TSPEC_QUAL_FRAG_FLAGS(uint8_t *frag) {
    return frag ? param_flags(frag + kQualParamOffset) : 0;
}

uint16_t RSVP_TSPEC_QUAL_FRAG_PARAM_LEN(uint8_t *frag) {
    return frag ? param_words(frag + kQualParamOffset) : 0;
}

uint32_t RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(uint8_t *frag) {
    return frag ? wire::load_be32(frag + kQualMaxUnitOffset) : 0;
}

}  // extern "C"
