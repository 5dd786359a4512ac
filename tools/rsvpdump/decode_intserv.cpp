// SENDER_TSPEC and FLOWSPEC of C-Type 2 (Intserv): the token bucket r/b/p/m/M of each service
// fragment, the Guaranteed RSpec R and S, and the service by name. The G.709 and SONET/SDH
// C-Types of the same classes have their own decoders.
#include <cinttypes>
#include <string>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr unsigned kWord = 4;
// Fragment-relative position of the peak rate word, and of the parameter header that a
// single-word parameter accessor would expect just before it.
constexpr unsigned kPeakOffset = 16;
constexpr unsigned kValueOffset = 4;

// The peak rate may be +infinity; it is judged on its raw float bits, as the library does.
std::string peak_text(uint8_t *frag) {
    const uint32_t bits = RSVP_INTSRV_REAL_OBJECT_VALUE(frag + kPeakOffset - kValueOffset);
    if (bits == RSVP_INTSRV_INFINITY_BITS) return "infinite";
    return std::to_string(RSVP_TOKEN_BUCKET_FRAG_PEAK(frag)) + " bytes/s";
}

void print_token_bucket(uint8_t *frag, rsvpdump::Out &out) {
    out.line("  token bucket r %" PRId64 " bytes/s, b %" PRId64 " bytes, p %s, m %u, M %u",
             RSVP_TOKEN_BUCKET_FRAG_RATE(frag), RSVP_TOKEN_BUCKET_FRAG_DEPTH(frag),
             peak_text(frag).c_str(), RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(frag),
             RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(frag));
}

void print_fragment(uint8_t *frag, rsvpdump::Out &out) {
    const unsigned service = RSVP_INTSRV_SERVICE_ID(frag);
    out.line("service %u %s, %u words", service, rsvpdump::intserv_service_name(service),
             RSVP_INTSRV_SERVICE_LENGTH(frag));
    switch (service) {
        case RSVP_INTSRV_SERVICE_GENERAL:
        case RSVP_INTSRV_SERVICE_CONTROLLED_LOAD:
            print_token_bucket(frag, out);
            break;
        case RSVP_INTSRV_SERVICE_GUARANTEED:
            print_token_bucket(frag, out);
            out.line("  RSpec R %" PRId64 " bytes/s, S %u us", RSVP_FLOWSPEC_RSPEC_REQ_RATE(frag),
                     RSVP_FLOWSPEC_RSPEC_SLACK(frag));
            break;
        case RSVP_INTSRV_SERVICE_QUALITATIVE:
            out.line("  M %u", RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(frag));
            break;
        default:
            break;
    }
}

// A SENDER_TSPEC may carry several fragments; the validator has walked them already.
void decode_tspec(uint8_t *obj, rsvpdump::Out &out) {
    unsigned remaining = RSVP_TSPEC_HEADER_LENGTH(obj);
    for (uint8_t *frag = RSVP_TSPEC_FRAGMENTS_PTR(obj, 0); frag && remaining > 0;) {
        print_fragment(frag, out);
        const unsigned words = RSVP_INTSRV_SERVICE_LENGTH(frag) + 1u;
        remaining -= words;
        frag += words * kWord;
    }
}

// A FLOWSPEC carries one fragment; a qualitative one is accepted unexamined, so only its
// service is shown.
void decode_flowspec(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t *frag = RSVP_FLOWSPEC_FRAGMENTS_PTR(obj, 0);
    if (rsvp_get_flow_qos_service(obj) == RSVP_QOS_QUALITATIVE) {
        out.line("service %u %s", RSVP_INTSRV_SERVICE_QUALITATIVE,
                 rsvpdump::intserv_service_name(RSVP_INTSRV_SERVICE_QUALITATIVE));
        return;
    }
    print_fragment(frag, out);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_INTSERV, decode_tspec);
RSVPDUMP_DECODER(RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV, decode_flowspec);
