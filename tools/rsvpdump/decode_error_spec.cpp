// ERROR_SPEC: who reported the error, the code (named where RFC 2205 and RFC 3209 name it)
// and the value.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

const char *error_name(uint8_t code) {
    switch (code) {
        case 0:
            return "Confirmation";
        case 1:
            return "Admission Control failure";
        case 2:
            return "Policy Control failure";
        case 3:
            return "No path information";
        case 4:
            return "No sender information";
        case 5:
            return "Conflicting reservation style";
        case 6:
            return "Unknown reservation style";
        case 12:
            return "Service preempted";
        case 13:
            return "Unknown object class";
        case 14:
            return "Unknown object C-Type";
        case 21:
            return "Traffic Control error";
        case 23:
            return "RSVP system error";
        case 24:
            return "Routing problem";
        case 25:
            return "Notify";
        default:
            return "unnamed";
    }
}

void decode_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t node = 0;
    uint8_t flags = 0, code = 0;
    uint16_t value = 0;
    if (!rsvp_extract_error_ipv4(obj, &node, &flags, &code, &value)) return;
    out.line().text("error node ").addr("node", node).text(" flags ").hex("flags", flags, 2);
    out.text(" code ").u("code", code).text(" (").str("code_name", error_name(code)).text(")");
    out.text(" value ").u("value", value);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_ERROR_SPEC, RSVP_CTYPE_ERROR_SPEC_IPV4, decode_ipv4);
