// SENDER_TSPEC and FLOWSPEC of C-Type 2 (Intserv): the token bucket r/b/p/m/M of each service
// fragment, the Guaranteed RSpec R and S, and the service by name. The G.709 and SONET/SDH
// C-Types of the same classes have their own decoders.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr unsigned kWord = 4;
// Fragment-relative position of the peak rate word, and of the parameter header that a
// single-word parameter accessor would expect just before it.
constexpr unsigned kPeakOffset = 16;
constexpr unsigned kValueOffset = 4;

void print_token_bucket(uint8_t *frag, rsvpdump::Out &out) {
    out.line().text("  token bucket r ").i("rate", RSVP_TOKEN_BUCKET_FRAG_RATE(frag));
    out.text(" bytes/s, b ").i("depth", RSVP_TOKEN_BUCKET_FRAG_DEPTH(frag)).text(" bytes, p ");
    // The peak rate may be +infinity; it is judged on its raw float bits, as the library does.
    if (RSVP_INTSRV_REAL_OBJECT_VALUE(frag + kPeakOffset - kValueOffset) ==
        RSVP_INTSRV_INFINITY_BITS)
        out.flag("peak_infinite", true).text("infinite");
    else
        out.i("peak", RSVP_TOKEN_BUCKET_FRAG_PEAK(frag)).text(" bytes/s");
    out.text(", m ").u("min_unit", RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(frag));
    out.text(", M ").u("max_unit", RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(frag));
}

void print_service(unsigned service, rsvpdump::Out &out) {
    out.line().text("service ").u("service", service).text(" ");
    out.str("service_name", rsvpdump::intserv_service_name(service));
}

void print_fragment(uint8_t *frag, rsvpdump::Out &out) {
    const unsigned service = RSVP_INTSRV_SERVICE_ID(frag);
    print_service(service, out);
    out.text(", ").u("words", RSVP_INTSRV_SERVICE_LENGTH(frag)).text(" words");
    switch (service) {
        case RSVP_INTSRV_SERVICE_GENERAL:
        case RSVP_INTSRV_SERVICE_CONTROLLED_LOAD:
            print_token_bucket(frag, out);
            break;
        case RSVP_INTSRV_SERVICE_GUARANTEED:
            print_token_bucket(frag, out);
            out.line().text("  RSpec R ").i("rspec_rate", RSVP_FLOWSPEC_RSPEC_REQ_RATE(frag));
            out.text(" bytes/s, S ").u("rspec_slack_us", RSVP_FLOWSPEC_RSPEC_SLACK(frag));
            out.text(" us");
            break;
        case RSVP_INTSRV_SERVICE_QUALITATIVE:
            out.line().text("  M ").u("max_unit", RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(frag));
            break;
        default:
            break;
    }
}

// A SENDER_TSPEC may carry several fragments; the validator has walked them already.
void decode_tspec(uint8_t *obj, rsvpdump::Out &out) {
    unsigned remaining = RSVP_TSPEC_HEADER_LENGTH(obj);
    out.open_list("fragments");
    for (uint8_t *frag = RSVP_TSPEC_FRAGMENTS_PTR(obj, 0); frag && remaining > 0;) {
        out.open_item();
        print_fragment(frag, out);
        out.close();
        const unsigned words = RSVP_INTSRV_SERVICE_LENGTH(frag) + 1u;
        remaining -= words;
        frag += words * kWord;
    }
    out.close();
}

// A FLOWSPEC carries one fragment; a qualitative one is accepted unexamined, so only its
// service is shown.
void decode_flowspec(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t *frag = RSVP_FLOWSPEC_FRAGMENTS_PTR(obj, 0);
    if (rsvp_get_flow_qos_service(obj) == RSVP_QOS_QUALITATIVE) {
        print_service(RSVP_INTSRV_SERVICE_QUALITATIVE, out);
        return;
    }
    print_fragment(frag, out);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_INTSERV, decode_tspec);
RSVPDUMP_DECODER(RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV, decode_flowspec);
