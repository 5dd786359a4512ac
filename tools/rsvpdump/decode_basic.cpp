// The small fixed objects: refresh period, confirmation receiver, scope sources, reservation
// style and policy data.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_refresh(uint8_t *obj, rsvpdump::Out &out) {
    out.line().text("refresh period ").u("refresh_ms", RSVP_REFRESH_TIME(obj)).text(" ms");
}

void decode_confirm(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t receiver = 0;
    if (rsvp_extract_confirm_ipv4(obj, &receiver))
        out.line().text("confirm to receiver ").addr("receiver", receiver);
}

void decode_scope(uint8_t *obj, rsvpdump::Out &out) {
    const int count = (RSVP_OBJECT_LENGTH(obj) - RSVP_OBJ_HDR_LEN) / 4;
    out.line().text("scope ").u("count", count).text(count == 1 ? " source: " : " sources: ");
    out.open_list("sources");
    for (int i = 0; i < count; ++i) {
        out.open_item().text(i ? ", " : "").addr("address", RSVP_SCOPE_IPV4_ADDR(obj, i));
        out.close();
    }
    out.close();
}

const char *style_name(uint8_t style) {
    switch (style) {
        case RSVP_STYLE_FF:
            return "FF (fixed filter)";
        case RSVP_STYLE_WF:
            return "WF (wildcard filter)";
        default:
            return "SE (shared explicit)";
    }
}

void decode_style(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t style = 0;
    if (!rsvp_extract_style(obj, &style)) return;
    const bool explicit_selection = rsvp_style_explicit(obj) != 0;
    out.line().text("style ").str("style", style_name(style)).text(", ");
    out.flag("explicit", explicit_selection)
        .text(explicit_selection ? "explicit" : "wildcard")
        .text(" sender selection");
}

void decode_policy(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t *data = nullptr;
    uint16_t length = 0;
    if (rsvp_extract_policy(obj, &data, &length))
        out.line()
            .text("policy data length ")
            .u("length", length)
            .text(": ")
            .bytes("data", data, length);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_TIME_VALUES, RSVP_CTYPE_TIME_VALUES, decode_refresh);
RSVPDUMP_DECODER(RSVP_CLASS_RESV_CONFIRM, RSVP_CTYPE_RESV_CONFIRM_IPV4, decode_confirm);
RSVPDUMP_DECODER(RSVP_CLASS_SCOPE, RSVP_CTYPE_SCOPE_IPV4, decode_scope);
RSVPDUMP_DECODER(RSVP_CLASS_STYLE, RSVP_CTYPE_STYLE, decode_style);
RSVPDUMP_DECODER(RSVP_CLASS_POLICY_DATA, rsvpdump::kAnyCType, decode_policy);
