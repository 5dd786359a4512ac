// The Intserv body (RFC 2210) shared by SENDER_TSPEC, FLOWSPEC and ADSPEC of C-Type 2.
//
// Offsets from the start of the object (the object header is bytes 0-3):
//
//   OFFSET SIZE FIELD
//   0      4    object header
//   4      2    version (high 4 bits) and reserved (12 bits); written 0
//   6      2    overall length, in 32-bit words, not counting these 4 bytes
//   8      ...  service fragments, one after the other
//
// Service fragment header (4 bytes; offsets from the fragment start):
//
//   +0     1    service number (1 general, 2 Guaranteed, 5 Controlled-Load, 6 qualitative)
//   +1     1    reserved; in an ADSPEC bit 7 is the break bit
//   +2     2    service data length, in words, not counting the fragment header
//   +4     ...  parameters
//
// Parameter (offsets from the parameter start):
//
//   +0     1    parameter id
//   +1     1    parameter flags (0 when built)
//   +2     2    parameter length, in words, not counting the parameter header
//   +4     ...  value; a single-word parameter (integer or float bits) is 8 bytes in all
//
// Token bucket fragment (service 1 in a SENDER_TSPEC, 2 or 5 in a FLOWSPEC):
//
//   +0     4    fragment header, service data length 6 (9 for Guaranteed)
//   +4     4    parameter 127, flags 0, length 5
//   +8     4    token bucket rate r         float
//   +12    4    token bucket depth b        float
//   +16    4    peak data rate p            float
//   +20    4    minimum policed unit m      unsigned
//   +24    4    maximum packet size M       unsigned
//   +28    4    parameter 130, flags 0, length 2     (Guaranteed only)
//   +32    4    RSpec rate R                float      (Guaranteed only)
//   +36    4    slack term S, microseconds  unsigned   (Guaranteed only)
//
// Qualitative fragment (service 6): +0 header with length 2, +4 parameter 128 with length 1,
// +8 maximum packet size M.
//
// Numbers: the floats are converted only at the edge, through the platform's ieee_to_int64 /
// int64_to_ieee (load_number / store_number below); the codec does no float arithmetic.
// Infinity is recognised only as the raw wire word 0x7f800000 (is_infinity), never after
// conversion. Lengths inside the body count 32-bit words, the object header counts bytes.
//
// The public constants (service numbers, parameter ids of all three objects ADSPEC included,
// the infinity word, the C-Type 2 of classes 9 and 12, the interface QoS codes 3/5/6) live in
// rsvp_object_lib.h under the intserv and flowspec family markers; this header names the
// layout and offers the walk, for the TSPEC, FLOWSPEC, merge and ADSPEC files alike.
#pragma once

#include <cstdint>

#include "rsvp_object_internal.hpp"
#include "rsvp_platform.h"

namespace rsvp::intserv {

// --- Body header (object-relative) -----------------------------------------------------------
inline constexpr unsigned kVersionOffset = 4;     // 16-bit version/reserved word
inline constexpr unsigned kOverallLenOffset = 6;  // 16-bit overall length, words
inline constexpr unsigned kFirstFragOffset = 8;   // first service fragment
inline constexpr unsigned kBodyHdrLen = 4;        // version word + overall length
inline constexpr unsigned kVersionShift = 12;     // version in the top 4 bits
inline constexpr unsigned kWordLen = 4;           // the unit of every Intserv length field
inline constexpr unsigned kVersionEnd = kOverallLenOffset;    // where the version word ends
inline constexpr unsigned kOverallLenEnd = kFirstFragOffset;  // where the overall length ends

// --- Service fragment header (fragment-relative) -----------------------------------------------
inline constexpr unsigned kFragServiceOffset = 0;
inline constexpr unsigned kFragReservedOffset = 1;  // ADSPEC break bit byte
inline constexpr unsigned kFragLenOffset = 2;
inline constexpr unsigned kFragHdrLen = 4;
inline constexpr unsigned kFragHdrWords = 1;  // a fragment occupies L + 1 words
// The service number of the first fragment, object-relative (a FLOWSPEC has only that one).
inline constexpr unsigned kFirstServiceOffset = kFirstFragOffset + kFragServiceOffset;

// --- Parameter header (parameter-relative) ----------------------------------------------------
inline constexpr unsigned kParamIdOffset = 0;
inline constexpr unsigned kParamFlagsOffset = 1;
inline constexpr unsigned kParamLenOffset = 2;
inline constexpr unsigned kParamValueOffset = 4;
inline constexpr unsigned kParamHdrLen = 4;
inline constexpr unsigned kSingleWordParamWords = 1;
inline constexpr unsigned kSingleWordParamLen = kParamHdrLen + kSingleWordParamWords * kWordLen;

// --- Token bucket fragment (fragment-relative) ------------------------------------------------
inline constexpr unsigned kTbParamOffset = 4;      // parameter header of the token bucket
inline constexpr unsigned kTbRateOffset = 8;       // r
inline constexpr unsigned kTbDepthOffset = 12;     // b
inline constexpr unsigned kTbPeakOffset = 16;      // p
inline constexpr unsigned kTbMinUnitOffset = 20;   // m
inline constexpr unsigned kTbMaxUnitOffset = 24;   // M
inline constexpr unsigned kTbParamWords = 5;       // r, b, p, m, M
inline constexpr unsigned kTbFragWords = 6;        // service data length of a token bucket fragment
inline constexpr unsigned kRspecParamOffset = 28;  // Guaranteed RSpec parameter header
inline constexpr unsigned kRspecRateOffset = 32;   // R
inline constexpr unsigned kRspecSlackOffset = 36;  // S
inline constexpr unsigned kRspecParamWords = 2;    // R, S
inline constexpr unsigned kGtdFragWords = 9;       // token bucket + RSpec

// --- Qualitative fragment (fragment-relative) -------------------------------------------------
inline constexpr unsigned kQualParamOffset = 4;
inline constexpr unsigned kQualMaxUnitOffset = 8;
inline constexpr unsigned kQualParamWords = 1;
inline constexpr unsigned kQualFragWords = 2;

// Bytes of a fragment with service data length L (header included).
constexpr unsigned frag_bytes(unsigned words) {
    return kFragHdrLen + words * kWordLen;
}
// Object length of an Intserv object whose overall length is `words`, and the reverse.
constexpr unsigned object_bytes(unsigned words) {
    return kFirstFragOffset + words * kWordLen;
}

// --- Readers ------------------------------------------------------------------------------------
inline uint16_t version_word(const uint8_t *obj) {
    return wire::load_be16(obj + kVersionOffset);
}
inline uint16_t overall_words(const uint8_t *obj) {
    return wire::load_be16(obj + kOverallLenOffset);
}
inline uint8_t frag_service(const uint8_t *frag) {
    return frag[kFragServiceOffset];
}
inline uint8_t frag_reserved(const uint8_t *frag) {
    return frag[kFragReservedOffset];
}
inline uint16_t frag_words(const uint8_t *frag) {
    return wire::load_be16(frag + kFragLenOffset);
}
inline uint8_t param_id(const uint8_t *param) {
    return param[kParamIdOffset];
}
inline uint8_t param_flags(const uint8_t *param) {
    return param[kParamFlagsOffset];
}
inline uint16_t param_words(const uint8_t *param) {
    return wire::load_be16(param + kParamLenOffset);
}
// A parameter header as expected: the id, flags 0 and the length in words.
inline bool param_is(const uint8_t *param, uint8_t id, uint16_t words) {
    return param_id(param) == id && param_flags(param) == 0 && param_words(param) == words;
}

// A float field as a signed 64-bit number, through the platform conversion.
inline int64_t load_number(const uint8_t *p) {
    return ieee_to_int64(wire::load_be32(p));
}
// The same value as an unsigned 64-bit number: the orderings and the merge compare this way,
// so a negative conversion result ranks above every positive one.
inline uint64_t load_number_u64(const uint8_t *p) {
    return static_cast<uint64_t>(load_number(p));
}
inline void store_number(uint8_t *p, int64_t value) {
    wire::store_be32(p, int64_to_ieee(value));
}
// +infinity, judged on the raw wire word only.
inline bool is_infinity(const uint8_t *p) {
    return wire::load_be32(p) == RSVP_INTSRV_INFINITY_BITS;
}

// --- Writers ------------------------------------------------------------------------------------
// Version/reserved 0 and the overall length (words).
inline void put_body_hdr(uint8_t *obj, uint16_t words) {
    wire::store_be16(obj + kVersionOffset, 0);
    wire::store_be16(obj + kOverallLenOffset, words);
}
// Service number, reserved byte 0, service data length (words).
inline void put_frag_hdr(uint8_t *frag, uint8_t service, uint16_t words) {
    frag[kFragServiceOffset] = service;
    frag[kFragReservedOffset] = 0;
    wire::store_be16(frag + kFragLenOffset, words);
}
// Parameter id, flags 0, parameter length (words).
inline void put_param_hdr(uint8_t *param, uint8_t id, uint16_t words) {
    param[kParamIdOffset] = id;
    param[kParamFlagsOffset] = 0;
    wire::store_be16(param + kParamLenOffset, words);
}
// An 8-byte single-word parameter; value is stored as it comes (integer or float bits).
inline void put_single_word_param(uint8_t *param, uint8_t id, uint32_t value) {
    put_param_hdr(param, id, kSingleWordParamWords);
    wire::store_be32(param + kParamValueOffset, value);
}

// Services whose fragment starts with a token bucket: general (SENDER_TSPEC), Guaranteed and
// Controlled-Load.
inline bool carries_token_bucket(uint8_t service) {
    return service == RSVP_INTSRV_SERVICE_GENERAL || service == RSVP_INTSRV_SERVICE_GUARANTEED ||
           service == RSVP_INTSRV_SERVICE_CONTROLLED_LOAD;
}

// Rate r and depth b of a token bucket fragment are not +infinity (the peak p may be).
inline bool rate_and_depth_finite(const uint8_t *frag) {
    return !is_infinity(frag + kTbRateOffset) && !is_infinity(frag + kTbDepthOffset);
}

// The token bucket as it crosses the interface.
struct TokenBucket {
    int64_t rate;
    int64_t depth;
    int64_t peak;
    uint32_t min_unit;
    uint32_t max_unit;
};

// Writes the token bucket parameter (header at +4, r b p m M at +8..+27) of the fragment.
void put_token_bucket(uint8_t *frag, const TokenBucket &tb);

// Writes everything from offset 4 on for an object carrying a single token bucket fragment of
// the given service with frag_words of service data (6, or 9 when an RSpec follows): the body
// header, the fragment header and the token bucket. Returns the fragment.
uint8_t *put_token_bucket_body(uint8_t *obj, uint8_t service, uint16_t frag_words,
                               const TokenBucket &tb);

// The walk over the fragments of a body, remaining = `words` words from `frag`: for each
// fragment whose L + 1 words fit in what remains, calls visit(frag) (which answers false to
// reject) and steps over it. Answers false for a fragment that overruns the remaining count or
// a visit that rejects; true when the count comes out at exactly 0 (at once for 0 words).
// Nothing is checked against the object length: the caller bounds `words`.
template <typename Visit>
bool walk_fragments(uint8_t *frag, uint32_t words, Visit &&visit) {
    while (words > 0) {
        const uint32_t used = frag_words(frag) + kFragHdrWords;
        if (used > words) return false;
        if (!visit(frag)) return false;
        words -= used;
        frag += used * kWordLen;
    }
    return true;
}

// The first fragment of a service is found with rsvp_find_intsrv_service (public header): it
// steps by each fragment's own length and checks nothing against the object length, so
// validate first where that matters.

}  // namespace rsvp::intserv

// The body of a SENDER_TSPEC (offset 4 on): one service-1 token bucket fragment. Internal
// (hidden), called by rsvp_build_tspec after it has written the object header.
extern "C" void rsvp_fill_token_bucket_tspec(uint8_t *obj, int64_t rate, int64_t depth,
                                             int64_t peak, uint32_t min_unit, uint32_t max_unit);
