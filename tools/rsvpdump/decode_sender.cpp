// SENDER_TEMPLATE and FILTER_SPEC: one decoder for the twins, since their layouts agree and
// the accessors serve both classes.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_sender(uint8_t *obj, rsvpdump::Out &out) {
    const std::string sender = rsvpdump::addr(RSVP_TEMPLATE_SOURCE(obj));
    const unsigned port = RSVP_TEMPLATE_PORT(obj);
    switch (RSVP_OBJECT_C_TYPE(obj)) {
        case RSVP_CTYPE_SENDER_TEMPLATE_IPV4:
            out.line("source %s port %u", sender.c_str(), port);
            break;
        case RSVP_CTYPE_SENDER_TEMPLATE_LSP_TUNNEL_IPV4:
            out.line("tunnel sender %s LSP ID %u", sender.c_str(), port);
            break;
        case RSVP_CTYPE_SENDER_TEMPLATE_P2MP_LSP_TUNNEL_IPV4:
            out.line("tunnel sender %s LSP ID %u sub-group originator %s sub-group ID %u",
                     sender.c_str(), port,
                     rsvpdump::addr(RSVP_TEMPLATE_P2MP_SG_ORIGIN(obj)).c_str(),
                     RSVP_TEMPLATE_P2MP_SG_ID(obj));
            break;
    }
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SENDER_TEMPLATE, rsvpdump::kAnyCType, decode_sender);
RSVPDUMP_DECODER(RSVP_CLASS_FILTER_SPEC, rsvpdump::kAnyCType, decode_sender);
