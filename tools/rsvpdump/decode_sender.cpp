// SENDER_TEMPLATE and FILTER_SPEC: one decoder for the twins, since their layouts agree and
// the accessors serve both classes.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_sender(uint8_t *obj, rsvpdump::Out &out) {
    const uint32_t sender = RSVP_TEMPLATE_SOURCE(obj);
    const unsigned port = RSVP_TEMPLATE_PORT(obj);
    switch (RSVP_OBJECT_C_TYPE(obj)) {
        case RSVP_CTYPE_SENDER_TEMPLATE_IPV4:
            out.line().text("source ").addr("source", sender).text(" port ").u("port", port);
            break;
        case RSVP_CTYPE_SENDER_TEMPLATE_LSP_TUNNEL_IPV4:
            out.line().text("tunnel sender ").addr("sender", sender);
            out.text(" LSP ID ").u("lsp_id", port);
            break;
        case RSVP_CTYPE_SENDER_TEMPLATE_P2MP_LSP_TUNNEL_IPV4:
            out.line().text("tunnel sender ").addr("sender", sender);
            out.text(" LSP ID ").u("lsp_id", port);
            out.text(" sub-group originator ")
                .addr("sub_group_originator", RSVP_TEMPLATE_P2MP_SG_ORIGIN(obj));
            out.text(" sub-group ID ").u("sub_group_id", RSVP_TEMPLATE_P2MP_SG_ID(obj));
            break;
    }
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SENDER_TEMPLATE, rsvpdump::kAnyCType, decode_sender);
RSVPDUMP_DECODER(RSVP_CLASS_FILTER_SPEC, rsvpdump::kAnyCType, decode_sender);
