// FLOWSPEC (class 9) C-Type 2: the Guaranteed and Controlled-Load reservation requests in the
// Intserv layout, the getters that read any of them, the orderings by average rate, and the
// generic validator that picks the check of each C-Type.
//
//   OFFSET SIZE FIELD                        Guaranteed (48)      Controlled-Load (36)
//   0      4    object header                48, class 9, C-Type 2   36, class 9, C-Type 2
//   4      2    version/reserved             0                    0
//   6      2    overall length (words)       10                   7
//   8      1    service number               2                    5
//   9      1    reserved                     0                    0
//   10     2    service data length (words)  9                    6
//   12     4    parameter 127, flags 0, length 5 (token bucket)
//   16     4    token bucket rate r          float
//   20     4    token bucket depth b         float
//   24     4    peak data rate p             float
//   28     4    minimum policed unit m       unsigned
//   32     4    maximum packet size M        unsigned
//   36     4    parameter 130, flags 0, length 2 (Guaranteed RSpec)
//   40     4    RSpec rate R                 float
//   44     4    slack term S                 unsigned, microseconds
//
// The interface names services by QoS code, the wire by service number: Guaranteed is code 3
// but service 2; Controlled-Load and qualitative are 5 and 6 on both sides.
#include "rsvp_intserv.hpp"

using namespace rsvp;
using namespace rsvp::intserv;

namespace {

constexpr uint16_t kGtdLen = RSVP_FLOWSPEC_GUARANTEED_LEN;
constexpr uint16_t kClLen = RSVP_FLOWSPEC_CONTROLLED_LOAD_LEN;
static_assert(kGtdLen == object_bytes(kGtdFragWords + kFragHdrWords));
static_assert(kClLen == object_bytes(kTbFragWords + kFragHdrWords));

// Object-relative positions: the one fragment of a flowspec starts at offset 8.
constexpr unsigned kRateOffset = kFirstFragOffset + kTbRateOffset;
constexpr unsigned kDepthOffset = kFirstFragOffset + kTbDepthOffset;
constexpr unsigned kPeakOffset = kFirstFragOffset + kTbPeakOffset;
constexpr unsigned kMinUnitOffset = kFirstFragOffset + kTbMinUnitOffset;
constexpr unsigned kMaxUnitOffset = kFirstFragOffset + kTbMaxUnitOffset;
constexpr unsigned kReqRateOffset = kFirstFragOffset + kRspecRateOffset;
constexpr unsigned kSlackOffset = kFirstFragOffset + kRspecSlackOffset;
// The service number is the last byte read before the service decides what else to read.

// Service number of a C-Type 2 flowspec, or 0 (no service) for a null object or another
// C-Type. The getters do not validate: the caller vouches for the bytes they read.
uint8_t service_of(const uint8_t *obj) {
    if (!obj || obj_ctype(obj) != RSVP_CTYPE_FLOWSPEC_INTSERV) return 0;
    return obj[kFirstServiceOffset];
}

int64_t token_bucket_number(const uint8_t *obj, unsigned offset) {
    return carries_token_bucket(service_of(obj)) ? load_number(obj + offset) : 0;
}

// The checks common to both layouts, on the fragment at offset 8: the object length, the
// version word, the overall and service data lengths, the service and its reserved byte, the
// token bucket header, r and b finite and p not below r (unsigned 64-bit).
bool valid_token_bucket_layout(const uint8_t *obj, uint16_t length, uint8_t service,
                               uint16_t frag_words_expected) {
    const uint8_t *frag = obj + kFirstFragOffset;
    return obj_length(obj) == length && version_word(obj) == 0 &&
           overall_words(obj) == frag_words_expected + kFragHdrWords &&
           frag_service(frag) == service && frag_reserved(frag) == 0 &&
           frag_words(frag) == frag_words_expected &&
           param_is(frag + kTbParamOffset, RSVP_INTSRV_PARAM_TOKEN_BUCKET_TSPEC, kTbParamWords) &&
           rate_and_depth_finite(frag) &&
           load_number_u64(frag + kTbPeakOffset) >= load_number_u64(frag + kTbRateOffset);
}

bool valid_guaranteed(const uint8_t *obj) {
    const uint8_t *frag = obj + kFirstFragOffset;
    // The slack term and m, M are not examined.
    return valid_token_bucket_layout(obj, kGtdLen, RSVP_INTSRV_SERVICE_GUARANTEED, kGtdFragWords) &&
           param_is(frag + kRspecParamOffset, RSVP_INTSRV_PARAM_GUARANTEED_RSPEC,
                    kRspecParamWords) &&
           !is_infinity(frag + kRspecRateOffset) &&
           load_number_u64(frag + kRspecRateOffset) >= load_number_u64(frag + kTbRateOffset);
}

bool valid_controlled_load(const uint8_t *obj) {
    // Unlike a SENDER_TSPEC, m is not required to stay within M.
    return valid_token_bucket_layout(obj, kClLen, RSVP_INTSRV_SERVICE_CONTROLLED_LOAD,
                                     kTbFragWords);
}

}  // namespace

extern "C" {

void rsvp_build_flowspec(uint8_t *obj, uint8_t qos_service, int64_t max_burst, int64_t average_rate,
                         uint32_t min_unit, uint32_t max_unit, int64_t peak_rate,
                         int64_t requested_rate, uint32_t slack) {
    const TokenBucket tb{average_rate, max_burst, peak_rate, min_unit, max_unit};
    switch (qos_service) {
        case RSVP_QOS_GUARANTEED: {
            put_obj_hdr(obj, RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV, kGtdLen);
            uint8_t *frag =
                put_token_bucket_body(obj, RSVP_INTSRV_SERVICE_GUARANTEED, kGtdFragWords, tb);
            put_param_hdr(frag + kRspecParamOffset, RSVP_INTSRV_PARAM_GUARANTEED_RSPEC,
                          kRspecParamWords);
            store_number(frag + kRspecRateOffset, requested_rate);
            wire::store_be32(frag + kRspecSlackOffset, slack);
            return;
        }
        case RSVP_QOS_CONTROLLED_LOAD:
            put_obj_hdr(obj, RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV, kClLen);
            put_token_bucket_body(obj, RSVP_INTSRV_SERVICE_CONTROLLED_LOAD, kTbFragWords, tb);
            return;
        default:
            // A zero length, so that validation rejects what was not built.
            wire::store_be16(obj + kObjLengthOffset, 0);
            return;
    }
}

int rsvp_valid_flowspec(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV)) return 0;
    // The service number is read whatever the Length: a deliberate read past an object shorter
    // than 9 bytes, since a qualitative service validates with nothing else examined.
    switch (obj[kFirstServiceOffset]) {
        case RSVP_INTSRV_SERVICE_GUARANTEED:
            return valid_guaranteed(obj) ? 1 : 0;
        case RSVP_INTSRV_SERVICE_CONTROLLED_LOAD:
            return valid_controlled_load(obj) ? 1 : 0;
        case RSVP_INTSRV_SERVICE_QUALITATIVE:
            return 1;  // nothing behind the service number is examined, deliberately
        default:
            return 0;
    }
}

int rsvp_valid_gen_flowspec(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_FLOWSPEC) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_FLOWSPEC_INTSERV:
            return rsvp_valid_flowspec(obj);
        case RSVP_CTYPE_FLOWSPEC_SONET_SDH:
            // Class and C-Type already hold: this is the 16-byte length check alone.
            return rsvp_valid_uni_sonet_sdh_flowspec(obj);
        case RSVP_CTYPE_FLOWSPEC_G709_OTN:
            return rsvp_valid_g709_otn_flowspec(obj);
        default:
            return 0;
    }
}

int rsvp_extract_flowspec(uint8_t *obj, uint8_t *qos_service_out, int64_t *max_burst_out,
                          int64_t *average_rate_out, uint32_t *min_unit_out, uint32_t *max_unit_out,
                          int64_t *peak_rate_out, int64_t *requested_rate_out,
                          uint32_t *slack_out) {
    if (!rsvp_valid_flowspec(obj)) return 0;
    *qos_service_out = rsvp_get_flow_qos_service(obj);
    *average_rate_out = rsvp_get_flow_average_rate(obj);
    *max_burst_out = rsvp_get_flow_maximum_burst(obj);
    *peak_rate_out = rsvp_get_flow_peak_rate(obj);
    *min_unit_out = rsvp_get_flow_min_unit(obj);
    *max_unit_out = rsvp_get_flow_max_unit(obj);
    *requested_rate_out = rsvp_get_flow_requested_rate(obj);
    *slack_out = rsvp_get_flow_slack(obj);
    return 1;
}

uint8_t rsvp_get_flow_qos_service(uint8_t *obj) {
    switch (service_of(obj)) {
        case RSVP_INTSRV_SERVICE_GUARANTEED:
            return RSVP_QOS_GUARANTEED;
        case RSVP_INTSRV_SERVICE_CONTROLLED_LOAD:
            return RSVP_QOS_CONTROLLED_LOAD;
        case RSVP_INTSRV_SERVICE_QUALITATIVE:
            return RSVP_QOS_QUALITATIVE;
        default:
            return 0;
    }
}

int64_t rsvp_get_flow_average_rate(uint8_t *obj) {
    return token_bucket_number(obj, kRateOffset);
}

int64_t rsvp_get_flow_maximum_burst(uint8_t *obj) {
    return token_bucket_number(obj, kDepthOffset);
}

int64_t rsvp_get_flow_peak_rate(uint8_t *obj) {
    return token_bucket_number(obj, kPeakOffset);
}

uint32_t rsvp_get_flow_min_unit(uint8_t *obj) {
    // Deliberately unlike its siblings: 65535 when there is no m to report (null object,
    // service 1 included), but 0 for another C-Type.
    if (!obj) return RSVP_FLOWSPEC_NO_MIN_UNIT;
    if (obj_ctype(obj) != RSVP_CTYPE_FLOWSPEC_INTSERV) return 0;
    const uint8_t service = obj[kFirstServiceOffset];
    if (service != RSVP_INTSRV_SERVICE_GUARANTEED && service != RSVP_INTSRV_SERVICE_CONTROLLED_LOAD)
        return RSVP_FLOWSPEC_NO_MIN_UNIT;
    return wire::load_be32(obj + kMinUnitOffset);
}

uint32_t rsvp_get_flow_max_unit(uint8_t *obj) {
    return carries_token_bucket(service_of(obj)) ? wire::load_be32(obj + kMaxUnitOffset) : 0;
}

int64_t rsvp_get_flow_requested_rate(uint8_t *obj) {
    const uint8_t service = service_of(obj);
    if (service == RSVP_INTSRV_SERVICE_GUARANTEED) return load_number(obj + kReqRateOffset);
    // Without an RSpec the token bucket rate stands for the requested rate.
    if (carries_token_bucket(service)) return load_number(obj + kRateOffset);
    return 0;
}

uint32_t rsvp_get_flow_slack(uint8_t *obj) {
    return service_of(obj) == RSVP_INTSRV_SERVICE_GUARANTEED ? wire::load_be32(obj + kSlackOffset)
                                                             : 0;
}

int rsvp_compare_flowspecs(uint8_t *a, uint8_t *b) {
    return three_way<uint64_t>(static_cast<uint64_t>(rsvp_get_flow_average_rate(a)),
                               static_cast<uint64_t>(rsvp_get_flow_average_rate(b)));
}

int rsvp_compare_tspec_with_flowspec(uint8_t *tspec, uint8_t *flowspec) {
    return three_way<uint64_t>(static_cast<uint64_t>(rsvp_get_average_rate(tspec)),
                               static_cast<uint64_t>(rsvp_get_flow_average_rate(flowspec)));
}

uint8_t RSVP_FLOWSPEC_HEADER_VERSION(uint8_t *obj) {
    return obj ? static_cast<uint8_t>(version_word(obj) >> kVersionShift) : 0;
}

uint16_t RSVP_FLOWSPEC_HEADER_LENGTH(uint8_t *obj) {
    return obj ? overall_words(obj) : 0;
}

uint8_t *RSVP_FLOWSPEC_FRAGMENTS_PTR(uint8_t *obj, uint32_t offset) {
    return obj ? obj + kFirstFragOffset + offset : nullptr;
}

uint8_t *RSVP_GTD_BUCKET_PTR(uint8_t *frag) {
    return frag;
}

uint8_t *RSVP_CLOAD_BUCKET_PTR(uint8_t *frag) {
    return frag;
}

uint8_t RSVP_FLOWSPEC_RSPEC_PARAM_ID(uint8_t *frag) {
    return frag ? param_id(frag + kRspecParamOffset) : 0;
}

uint8_t RSVP_FLOWSPEC_RSPEC_FLAGS(uint8_t *frag) {
    return frag ? param_flags(frag + kRspecParamOffset) : 0;
}

uint16_t RSVP_FLOWSPEC_RSPEC_PARAM_LEN(uint8_t *frag) {
    return frag ? param_words(frag + kRspecParamOffset) : 0;
}

int64_t RSVP_FLOWSPEC_RSPEC_REQ_RATE(uint8_t *frag) {
    return frag ? load_number(frag + kRspecRateOffset) : 0;
}

uint32_t RSVP_FLOWSPEC_RSPEC_SLACK(uint8_t *frag) {
    return frag ? wire::load_be32(frag + kRspecSlackOffset) : 0;
}

}  // extern "C"
