// ADSPEC: the general path parameters, then each service fragment with its parameters.
#include <cinttypes>

#include "decode.hpp"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

namespace {

constexpr unsigned kWord = 4;

void print_param(uint8_t *param, rsvpdump::Out &out) {
    const unsigned id = RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(param);
    const uint32_t value = RSVP_INTSRV_INTEGER_OBJECT_VALUE(param);
    switch (id) {
        case RSVP_INTSRV_PARAM_NUMBER_OF_IS_HOPS:
            out.line("  IS hops %u", value);
            break;
        case RSVP_INTSRV_PARAM_AVAILABLE_PATH_BANDWIDTH:
            if (RSVP_INTSRV_REAL_OBJECT_VALUE(param) == RSVP_INTSRV_INFINITY_BITS)
                out.line("  path bandwidth infinite");
            else
                out.line("  path bandwidth %" PRId64 " bytes/s",
                         ieee_to_int64(RSVP_INTSRV_REAL_OBJECT_VALUE(param)));
            break;
        case RSVP_INTSRV_PARAM_MINIMUM_PATH_LATENCY:
            out.line("  minimum path latency %u us", value);
            break;
        case RSVP_INTSRV_PARAM_PATH_MTU:
            out.line("  path MTU %u", value);
            break;
        case RSVP_INTSRV_PARAM_CTOT:
            out.line("  Ctot %u bytes", value);
            break;
        case RSVP_INTSRV_PARAM_DTOT:
            out.line("  Dtot %u us", value);
            break;
        case RSVP_INTSRV_PARAM_CSUM:
            out.line("  Csum %u bytes", value);
            break;
        case RSVP_INTSRV_PARAM_DSUM:
            out.line("  Dsum %u us", value);
            break;
        default:
            out.line("  parameter %u flags 0x%02x, %u words", id,
                     RSVP_INTSRV_INTEGER_OBJECT_FLAGS(param),
                     RSVP_INTSRV_INTEGER_OBJECT_LENGTH(param));
    }
}

// One fragment line, then its parameters as far as they fit in its service data length.
void print_fragment(uint8_t *frag, rsvpdump::Out &out) {
    const unsigned service = RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(frag);
    const unsigned words = RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(frag);
    out.line("%s fragment (service %u) break byte 0x%02x, %u words",
             rsvpdump::intserv_service_name(service), service, RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(frag),
             words);
    uint8_t *param = RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(frag);
    unsigned left = words;
    while (left > 0) {
        const unsigned used = 1u + RSVP_INTSRV_INTEGER_OBJECT_LENGTH(param);
        if (used > left) {
            out.line("  parameter runs past its fragment");
            return;
        }
        print_param(param, out);
        left -= used;
        param += used * kWord;
    }
}

void decode_adspec(uint8_t *obj, rsvpdump::Out &out) {
    print_fragment(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(obj), out);
    // The object is valid: the fragments behind the general one fill the overall length.
    uint8_t *general = RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(obj);
    unsigned left = RSVP_ADSPEC_HDR_LENGTH(obj) - 1u - RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(general);
    uint8_t *frag = RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(obj, 0);
    while (left > 0) {
        print_fragment(frag, out);
        const unsigned used = 1u + RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(frag);
        left -= used;
        frag += used * kWord;
    }
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_ADSPEC, RSVP_CTYPE_ADSPEC_INTSERV, decode_adspec);
