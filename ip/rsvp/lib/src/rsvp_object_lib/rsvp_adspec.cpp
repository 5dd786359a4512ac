// ADSPEC (class 13, C-Type 2): the path characterisation of RFC 2210 in the Intserv body.
//
// Baseline ADSPEC as a sender builds it (offsets from the object start):
//   OFFSET SIZE FIELD
//   0      4    object header, length 84 / 80 / 48 / 44
//   4      2    version/reserved, 0
//   6      2    overall length, words: object length / 4 - 2
//   8      4    general parameters fragment: service 1, break byte 0, length 8
//   12     4      parameter 4  NUMBER_OF_IS_HOPS, flags 0, length 1
//   16     4        IS hop count                 0
//   20     4      parameter 6  AVAILABLE_PATH_BANDWIDTH
//   24     4        path bandwidth (float bits)  0x7f800000, +infinity
//   28     4      parameter 8  MINIMUM_PATH_LATENCY
//   32     4        minimum path latency         0
//   36     4      parameter 10 PATH_MTU
//   40     4        path MTU                     0xffffffff
//   44     36   Guaranteed fragment, if any: service 2, length 8, then the single-word
//               parameters 133 Ctot (+4), 134 Dtot (+12), 135 Csum (+20), 136 Dsum (+28), all 0
//   44/80  4    Controlled-Load fragment, if any: service 5, length 0
//
// The body walk, the fragment and parameter headers are those of rsvp_intserv.hpp.
#include <cstddef>
#include <cstdint>

#include "rsvp_intserv.hpp"
#include "rsvp_valid_field.hpp"

using namespace rsvp;
using namespace rsvp::intserv;

namespace {

constexpr uint8_t kCType = RSVP_CTYPE_ADSPEC_INTSERV;

// General parameters fragment.
constexpr unsigned kGeneralFragOffset = kFirstFragOffset;  // 8
constexpr unsigned kGeneralFragWords = 8;                  // four single-word parameters
constexpr unsigned kHopsParamOffset = kGeneralFragOffset + kFragHdrLen;                // 12
constexpr unsigned kBandwidthParamOffset = kHopsParamOffset + kSingleWordParamLen;     // 20
constexpr unsigned kLatencyParamOffset = kBandwidthParamOffset + kSingleWordParamLen;  // 28
constexpr unsigned kMtuParamOffset = kLatencyParamOffset + kSingleWordParamLen;        // 36
constexpr unsigned kHopsValueOffset = kHopsParamOffset + kParamValueOffset;            // 16
constexpr unsigned kBandwidthValueOffset = kBandwidthParamOffset + kParamValueOffset;  // 24
constexpr unsigned kLatencyValueOffset = kLatencyParamOffset + kParamValueOffset;      // 32
// Where the service fragments begin, behind the general one.
constexpr unsigned kServiceFragsOffset = kGeneralFragOffset + frag_bytes(kGeneralFragWords);
static_assert(kServiceFragsOffset == RSVP_ADSPEC_GENERAL_ONLY_LEN);
// Words of body taken by the general fragment: the minimum an overall length must exceed.
constexpr unsigned kGeneralWords = kGeneralFragWords + kFragHdrWords;  // 9

// Guaranteed fragment (fragment-relative).
constexpr unsigned kGtdTermsWords = 8;
constexpr unsigned kGtdTermsFragLen = frag_bytes(kGtdTermsWords);    // 36
constexpr unsigned kCtotOffset = kFragHdrLen;                        // 4
constexpr unsigned kDtotOffset = kCtotOffset + kSingleWordParamLen;  // 12
constexpr unsigned kCsumOffset = kDtotOffset + kSingleWordParamLen;  // 20
constexpr unsigned kDsumOffset = kCsumOffset + kSingleWordParamLen;  // 28

// Controlled-Load fragment: a header with no data.
constexpr unsigned kClFragWords = 0;
constexpr unsigned kClFragLen = frag_bytes(kClFragWords);  // 4

// The fixed places where the extractors look for the second fragment: behind a baseline-sized
// fragment of the other service.
constexpr unsigned kGtdBehindClOffset = kServiceFragsOffset + kClFragLen;        // 48
constexpr unsigned kClBehindGtdOffset = kServiceFragsOffset + kGtdTermsFragLen;  // 80
static_assert(kClBehindGtdOffset + kClFragLen == RSVP_ADSPEC_BASELINE_MAX_LEN);

// The step of rsvp_adspec_has_qos_service: a fragment's service data length plus this many
// words (its true size is length + 1).
constexpr int16_t kQosStepExtraWords = 4;

constexpr uint32_t kBaselineHops = 0;
constexpr uint32_t kBaselineLatency = 0;

// The object-level accessors act on whatever rsvp_valid_object accepts. Every valid ADSPEC
// holds the general fragment; a valid object of another class may be too short for a field.
bool valid_v(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID;
}
constexpr unsigned kHopsValueEnd = kHopsValueOffset + kWordLen;
constexpr unsigned kBandwidthValueEnd = kBandwidthValueOffset + kWordLen;
constexpr unsigned kLatencyValueEnd = kLatencyValueOffset + kWordLen;

void put_general_frag(uint8_t *obj) {
    put_frag_hdr(obj + kGeneralFragOffset, RSVP_INTSRV_SERVICE_GENERAL, kGeneralFragWords);
    put_single_word_param(obj + kHopsParamOffset, RSVP_INTSRV_PARAM_NUMBER_OF_IS_HOPS,
                          kBaselineHops);
    put_single_word_param(obj + kBandwidthParamOffset, RSVP_INTSRV_PARAM_AVAILABLE_PATH_BANDWIDTH,
                          RSVP_INTSRV_INFINITY_BITS);
    put_single_word_param(obj + kLatencyParamOffset, RSVP_INTSRV_PARAM_MINIMUM_PATH_LATENCY,
                          kBaselineLatency);
    put_single_word_param(obj + kMtuParamOffset, RSVP_INTSRV_PARAM_PATH_MTU,
                          RSVP_ADSPEC_PATH_MTU_UNLIMITED);
}

// A Guaranteed fragment with its four error terms at 0; answers the byte behind it.
uint8_t *put_gtd_frag(uint8_t *frag) {
    put_frag_hdr(frag, RSVP_INTSRV_SERVICE_GUARANTEED, kGtdTermsWords);
    put_single_word_param(frag + kCtotOffset, RSVP_INTSRV_PARAM_CTOT, 0);
    put_single_word_param(frag + kDtotOffset, RSVP_INTSRV_PARAM_DTOT, 0);
    put_single_word_param(frag + kCsumOffset, RSVP_INTSRV_PARAM_CSUM, 0);
    put_single_word_param(frag + kDsumOffset, RSVP_INTSRV_PARAM_DSUM, 0);
    return frag + kGtdTermsFragLen;
}

// The fragment extractors look at one fixed position, chosen by the service byte at 44, and
// not by walking: the positions assume baseline-sized fragments.
int extract_fixed(uint8_t *obj, uint8_t wanted, uint8_t other, unsigned behind_other,
                  uint8_t **fragment_out) {
    if (!rsvp_valid_adspec(obj)) return 0;
    const unsigned pos =
        frag_service(obj + kServiceFragsOffset) == other ? behind_other : kServiceFragsOffset;
    uint8_t *frag = obj + pos;
    // Deliberate: the byte at 48 or 80 is read even when the object ends before it.
    if (frag_service(frag) == wanted) {
        *fragment_out = frag;
        return 1;
    }
    *fragment_out = nullptr;
    return 0;
}

uint8_t *offset_or_null(uint8_t *p, unsigned offset) {
    return p ? p + offset : nullptr;
}

// The address of a subnet bandwidth manager object, as it lies on the wire.
uint32_t sbm_addr(const uint8_t *obj) {
    return obj ? wire::load_raw32(obj + kObjBodyOffset) : 0;
}

}  // namespace

extern "C" {

uint8_t *rsvp_build_adspec_baseline(uint8_t *obj, uint32_t services) {
    const bool gtd = services == RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL ||
                     services == RSVP_ADSPEC_BASELINE_GUARANTEED;
    const bool cl = services == RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL ||
                    services == RSVP_ADSPEC_BASELINE_CONTROLLED_LOAD;
    const unsigned length =
        kServiceFragsOffset + (gtd ? kGtdTermsFragLen : 0) + (cl ? kClFragLen : 0);
    put_obj_hdr(obj, RSVP_CLASS_ADSPEC, kCType, static_cast<uint16_t>(length));
    put_body_hdr(obj, static_cast<uint16_t>((length - kFirstFragOffset) / kWordLen));
    put_general_frag(obj);
    uint8_t *next = obj + kServiceFragsOffset;
    if (gtd) next = put_gtd_frag(next);
    if (cl) put_frag_hdr(next, RSVP_INTSRV_SERVICE_CONTROLLED_LOAD, kClFragWords);
    return next;
}

int rsvp_valid_adspec(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_ADSPEC, kCType)) return 0;
    const uint16_t length = obj_length(obj);
    if (length < kFirstFragOffset) return 0;  // no room for the body header
    if (version_word(obj) != 0) return 0;
    const uint16_t words = overall_words(obj);
    if (object_bytes(words) > length) return 0;
    // At least one fragment must follow the general one, so a general-only ADSPEC (which the
    // baseline builder can make) is rejected. Checked before the general fragment is read:
    // from here on the object holds at least 48 bytes.
    if (words <= kGeneralWords) return 0;
    const uint8_t *general = obj + kGeneralFragOffset;
    if (frag_service(general) != RSVP_INTSRV_SERVICE_GENERAL ||
        frag_words(general) != kGeneralFragWords)
        return 0;
    // Service numbers and break bits of the remaining fragments are not examined.
    return walk_fragments(obj + kServiceFragsOffset, words - kGeneralWords,
                          [](uint8_t *) { return true; });
}

int rsvp_adspec_extract_gtd_frag(uint8_t *obj, uint8_t **fragment_out) {
    return extract_fixed(obj, RSVP_INTSRV_SERVICE_GUARANTEED, RSVP_INTSRV_SERVICE_CONTROLLED_LOAD,
                         kGtdBehindClOffset, fragment_out);
}

int rsvp_adspec_extract_cl_frag(uint8_t *obj, uint8_t **fragment_out) {
    return extract_fixed(obj, RSVP_INTSRV_SERVICE_CONTROLLED_LOAD, RSVP_INTSRV_SERVICE_GUARANTEED,
                         kClBehindGtdOffset, fragment_out);
}

int rsvp_adspec_has_qos_service(uint8_t *obj, uint8_t qos_service) {
    uint8_t wanted;
    if (qos_service == RSVP_QOS_GUARANTEED)
        wanted = RSVP_INTSRV_SERVICE_GUARANTEED;
    else if (qos_service == RSVP_QOS_CONTROLLED_LOAD)
        wanted = RSVP_INTSRV_SERVICE_CONTROLLED_LOAD;
    else
        return 0;
    if (!obj) return 0;
    // Deliberate: the object is not validated, and the walk reads wherever its counts lead, past
    // the object's end too. Counts one word more than the fragments behind the general one use.
    int16_t remaining =
        static_cast<int16_t>(overall_words(obj) - frag_words(obj + kGeneralFragOffset));
    if (remaining < 1) return 0;
    ptrdiff_t pos = kServiceFragsOffset;
    // pos + 4 * remaining never changes, so each remaining count (1 to 32767) stands for one
    // position: a walk with more steps than that has come round again and would never end.
    for (int32_t visits = 0; visits < INT16_MAX; ++visits) {
        if (frag_service(obj + pos) == wanted) return 1;
        // The step is length + 4 words, not the fragment's size of length + 1: kept as it is,
        // so in practice only the first fragment behind the general one is ever found. A
        // length of 32764 to 65531 wraps the step below 0: the walk then goes back, but never
        // before the object's start.
        const int16_t step = static_cast<int16_t>(frag_words(obj + pos) + kQosStepExtraWords);
        if (step == 0 || step > remaining) return 0;
        pos += static_cast<ptrdiff_t>(step) * static_cast<ptrdiff_t>(kWordLen);
        if (pos < 0) return 0;
        remaining = static_cast<int16_t>(remaining - step);
        if (remaining <= 0) return 0;
    }
    return 0;
}

// ---- Accessors over a valid object ----------------------------------------------------------

uint32_t RSVP_ADSPEC_HDR_VERSION(uint8_t *obj) {
    return valid_holds(obj, kVersionEnd) ? version_word(obj) >> kVersionShift : 0;
}

uint16_t RSVP_ADSPEC_HDR_LENGTH(uint8_t *obj) {
    return valid_holds(obj, kOverallLenEnd) ? overall_words(obj) : 0;
}

void RSVP_ADSPEC_HDR_SET_LENGTH(uint8_t *obj, uint16_t length) {
    if (valid_holds(obj, kOverallLenEnd)) wire::store_be16(obj + kOverallLenOffset, length);
}

uint8_t *RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(uint8_t *obj) {
    return valid_v(obj) ? obj + kGeneralFragOffset : nullptr;
}

uint8_t *RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(uint8_t *obj, uint32_t offset) {
    return valid_v(obj) ? obj + kServiceFragsOffset + offset : nullptr;
}

uint32_t RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(uint8_t *obj) {
    return valid_holds(obj, kHopsValueEnd) ? wire::load_be32(obj + kHopsValueOffset) : 0;
}

uint32_t RSVP_ADSPEC_BANDWIDTH_VAL(uint8_t *obj) {
    return valid_holds(obj, kBandwidthValueEnd) ? wire::load_be32(obj + kBandwidthValueOffset) : 0;
}

uint32_t RSVP_ADSPEC_LATENCY_VAL(uint8_t *obj) {
    return valid_holds(obj, kLatencyValueEnd) ? wire::load_be32(obj + kLatencyValueOffset) : 0;
}

// ---- Accessors over a fragment --------------------------------------------------------------

uint32_t RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(uint8_t *frag) {
    return frag ? frag_service(frag) : 0;
}

uint32_t RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(uint8_t *frag) {
    return frag ? frag_reserved(frag) : 0;
}

// Stores the byte as given: 1 sets the low bit, not the break bit (0x80) of the RFC.
void RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(uint8_t *frag, uint8_t value) {
    if (frag) frag[kFragReservedOffset] = value;
}

uint16_t RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(uint8_t *frag) {
    return frag ? frag_words(frag) : 0;
}

void RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(uint8_t *frag, uint16_t length) {
    if (frag) wire::store_be16(frag + kFragLenOffset, length);
}

uint8_t *RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(uint8_t *frag) {
    return offset_or_null(frag, kFragHdrLen);
}

uint8_t *RSVP_GTD_FRAG_HDR_PTR(uint8_t *frag) {
    return frag;
}

uint8_t *RSVP_CLOAD_FRAG_HDR_PTR(uint8_t *frag) {
    return frag;
}

uint8_t *RSVP_GTD_CTOT_PTR(uint8_t *frag) {
    return offset_or_null(frag, kCtotOffset);
}

uint8_t *RSVP_GTD_DTOT_PTR(uint8_t *frag) {
    return offset_or_null(frag, kDtotOffset);
}

uint8_t *RSVP_GTD_CSUM_PTR(uint8_t *frag) {
    return offset_or_null(frag, kCsumOffset);
}

uint8_t *RSVP_GTD_DSUM_PTR(uint8_t *frag) {
    return offset_or_null(frag, kDsumOffset);
}

// ---- Subnet bandwidth manager address objects: a header, then an IPv4 address ---------------

uint32_t RSVP_SBM_LAN_NHOP_L3_IPV4_ADDR(uint8_t *obj) {
    return sbm_addr(obj);
}

uint32_t RSVP_SBM_DSBM_IPV4_ADDR(uint8_t *obj) {
    return sbm_addr(obj);
}

uint32_t RSVP_SBM_LAN_LOOPBACK_IPV4_ADDR(uint8_t *obj) {
    return sbm_addr(obj);
}

}  // extern "C"
