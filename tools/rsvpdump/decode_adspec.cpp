// ADSPEC: the general path parameters, then each service fragment with its parameters.
#include "decode.hpp"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

namespace {

constexpr unsigned kWord = 4;

// One parameter as "  name value unit", a list item of its own.
void print_param(uint8_t *param, rsvpdump::Out &out) {
    const unsigned id = RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(param);
    const uint32_t value = RSVP_INTSRV_INTEGER_OBJECT_VALUE(param);
    out.open_item();
    out.line().text("  ");
    switch (id) {
        case RSVP_INTSRV_PARAM_NUMBER_OF_IS_HOPS:
            out.text("IS hops ").u("is_hops", value);
            break;
        case RSVP_INTSRV_PARAM_AVAILABLE_PATH_BANDWIDTH:
            out.text("path bandwidth ");
            if (RSVP_INTSRV_REAL_OBJECT_VALUE(param) == RSVP_INTSRV_INFINITY_BITS)
                out.flag("path_bandwidth_infinite", true).text("infinite");
            else
                out.i("path_bandwidth", ieee_to_int64(RSVP_INTSRV_REAL_OBJECT_VALUE(param)))
                    .text(" bytes/s");
            break;
        case RSVP_INTSRV_PARAM_MINIMUM_PATH_LATENCY:
            out.text("minimum path latency ").u("min_latency_us", value).text(" us");
            break;
        case RSVP_INTSRV_PARAM_PATH_MTU:
            out.text("path MTU ").u("path_mtu", value);
            break;
        case RSVP_INTSRV_PARAM_CTOT:
            out.text("Ctot ").u("ctot", value).text(" bytes");
            break;
        case RSVP_INTSRV_PARAM_DTOT:
            out.text("Dtot ").u("dtot_us", value).text(" us");
            break;
        case RSVP_INTSRV_PARAM_CSUM:
            out.text("Csum ").u("csum", value).text(" bytes");
            break;
        case RSVP_INTSRV_PARAM_DSUM:
            out.text("Dsum ").u("dsum_us", value).text(" us");
            break;
        default:
            out.text("parameter ").u("parameter", id).text(" flags ");
            out.hex("flags", RSVP_INTSRV_INTEGER_OBJECT_FLAGS(param), 2).text(", ");
            out.u("words", RSVP_INTSRV_INTEGER_OBJECT_LENGTH(param)).text(" words");
    }
    out.close();
}

// One fragment line, then its parameters as far as they fit in its service data length.
void print_fragment(uint8_t *frag, rsvpdump::Out &out) {
    const unsigned service = RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(frag);
    const unsigned words = RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(frag);
    out.open_item();
    out.line().str("service_name", rsvpdump::intserv_service_name(service));
    out.text(" fragment (service ").u("service", service).text(") break byte ");
    out.hex("break_byte", RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(frag), 2).text(", ");
    out.u("words", words).text(" words");
    out.open_list("parameters");
    uint8_t *param = RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(frag);
    unsigned left = words;
    while (left > 0) {
        const unsigned used = 1u + RSVP_INTSRV_INTEGER_OBJECT_LENGTH(param);
        if (used > left) break;
        print_param(param, out);
        left -= used;
        param += used * kWord;
    }
    out.close();
    if (left > 0)
        out.line().text("  ").flag("overrun", true).text("parameter runs past its fragment");
    out.close();
}

void decode_adspec(uint8_t *obj, rsvpdump::Out &out) {
    out.open_list("fragments");
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
    out.close();
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_ADSPEC, RSVP_CTYPE_ADSPEC_INTSERV, decode_adspec);
