// The Intserv body shared by SENDER_TSPEC, FLOWSPEC and ADSPEC: the fragment search, the token
// bucket writer, and the accessors over fragments and single-word parameters. The layout is
// drawn in rsvp_intserv.hpp.
#include "rsvp_intserv.hpp"

using namespace rsvp;
using namespace rsvp::intserv;

namespace rsvp::intserv {

void put_token_bucket(uint8_t *frag, const TokenBucket &tb) {
    put_param_hdr(frag + kTbParamOffset, RSVP_INTSRV_PARAM_TOKEN_BUCKET_TSPEC, kTbParamWords);
    store_number(frag + kTbRateOffset, tb.rate);
    store_number(frag + kTbDepthOffset, tb.depth);
    store_number(frag + kTbPeakOffset, tb.peak);
    wire::store_be32(frag + kTbMinUnitOffset, tb.min_unit);
    wire::store_be32(frag + kTbMaxUnitOffset, tb.max_unit);
}

uint8_t *put_token_bucket_body(uint8_t *obj, uint8_t service, uint16_t frag_words,
                               const TokenBucket &tb) {
    put_body_hdr(obj, static_cast<uint16_t>(frag_words + kFragHdrWords));
    uint8_t *frag = obj + kFirstFragOffset;
    put_frag_hdr(frag, service, frag_words);
    put_token_bucket(frag, tb);
    return frag;
}

}  // namespace rsvp::intserv

extern "C" {

void rsvp_fill_token_bucket_tspec(uint8_t *obj, int64_t rate, int64_t depth, int64_t peak,
                                  uint32_t min_unit, uint32_t max_unit) {
    put_token_bucket_body(obj, RSVP_INTSRV_SERVICE_GENERAL, kTbFragWords,
                          TokenBucket{rate, depth, peak, min_unit, max_unit});
}

uint8_t *rsvp_find_intsrv_service(uint8_t *obj, uint8_t service_number) {
    if (!obj) return nullptr;
    // Signed, so that a fragment claiming more words than remain ends the search.
    int32_t remaining = overall_words(obj);
    uint8_t *frag = obj + kFirstFragOffset;
    while (remaining > 0) {
        if (frag_service(frag) == service_number) return frag;
        const uint16_t words = frag_words(frag);
        frag += frag_bytes(words);
        remaining -= static_cast<int32_t>(words + kFragHdrWords);
    }
    return nullptr;
}

void rsvp_build_intsrv_real_object(uint8_t *param, uint8_t param_id, uint32_t value) {
    // The caller passes the float's bit pattern: no conversion, by design.
    put_single_word_param(param, param_id, value);
}

void rsvp_build_intsrv_integer_object(uint8_t *param, uint8_t param_id, uint32_t value) {
    put_single_word_param(param, param_id, value);
}

uint8_t RSVP_INTSRV_SERVICE_ID(uint8_t *frag) {
    return frag ? frag_service(frag) : 0;
}

uint16_t RSVP_INTSRV_SERVICE_LENGTH(uint8_t *frag) {
    return frag ? frag_words(frag) : 0;
}

uint8_t RSVP_TOKEN_BUCKET_FRAG_PARAM_ID(uint8_t *frag) {
    return frag ? param_id(frag + kTbParamOffset) : 0;
}

uint8_t RSVP_TOKEN_BUCKET_FRAG_FLAGS(uint8_t *frag) {
    return frag ? param_flags(frag + kTbParamOffset) : 0;
}

uint16_t RSVP_TOKEN_BUCKET_FRAG_PARAM_LEN(uint8_t *frag) {
    return frag ? param_words(frag + kTbParamOffset) : 0;
}

int64_t RSVP_TOKEN_BUCKET_FRAG_RATE(uint8_t *frag) {
    return frag ? load_number(frag + kTbRateOffset) : 0;
}

int64_t RSVP_TOKEN_BUCKET_FRAG_DEPTH(uint8_t *frag) {
    return frag ? load_number(frag + kTbDepthOffset) : 0;
}

int64_t RSVP_TOKEN_BUCKET_FRAG_PEAK(uint8_t *frag) {
    return frag ? load_number(frag + kTbPeakOffset) : 0;
}

uint32_t RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(uint8_t *frag) {
    return frag ? wire::load_be32(frag + kTbMinUnitOffset) : 0;
}

uint32_t RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(uint8_t *frag) {
    return frag ? wire::load_be32(frag + kTbMaxUnitOffset) : 0;
}

uint8_t RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(uint8_t *param) {
    return param ? param_id(param) : 0;
}

uint8_t RSVP_INTSRV_INTEGER_OBJECT_FLAGS(uint8_t *param) {
    return param ? param_flags(param) : 0;
}

uint16_t RSVP_INTSRV_INTEGER_OBJECT_LENGTH(uint8_t *param) {
    return param ? param_words(param) : 0;
}

uint32_t RSVP_INTSRV_INTEGER_OBJECT_VALUE(uint8_t *param) {
    return param ? wire::load_be32(param + kParamValueOffset) : 0;
}

uint32_t RSVP_INTSRV_INTEGER_VAL(uint8_t *param) {
    return RSVP_INTSRV_INTEGER_OBJECT_VALUE(param);
}

void RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(uint8_t *param, uint32_t value) {
    if (param) wire::store_be32(param + kParamValueOffset, value);
}

uint32_t RSVP_INTSRV_REAL_OBJECT_VALUE(uint8_t *param) {
    return RSVP_INTSRV_INTEGER_OBJECT_VALUE(param);
}

void RSVP_INTSRV_REAL_OBJECT_SET_VALUE(uint8_t *param, uint32_t bits) {
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(param, bits);
}

}  // extern "C"
