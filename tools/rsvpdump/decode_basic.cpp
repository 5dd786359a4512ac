// The small fixed objects: refresh period, confirmation receiver, scope sources, reservation
// style and policy data.
#include <string>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvpdump::addr;

void decode_refresh(uint8_t *obj, rsvpdump::Out &out) {
    out.line("refresh period %u ms", RSVP_REFRESH_TIME(obj));
}

void decode_confirm(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t receiver = 0;
    if (rsvp_extract_confirm_ipv4(obj, &receiver))
        out.line("confirm to receiver %s", addr(receiver).c_str());
}

void decode_scope(uint8_t *obj, rsvpdump::Out &out) {
    const int count = (RSVP_OBJECT_LENGTH(obj) - RSVP_OBJ_HDR_LEN) / 4;
    std::string sources;
    for (int i = 0; i < count; ++i)
        sources += (i ? ", " : "") + addr(RSVP_SCOPE_IPV4_ADDR(obj, i));
    out.line("scope %d source%s: %s", count, count == 1 ? "" : "s", sources.c_str());
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
    out.line("style %s, %s sender selection", style_name(style),
             rsvp_style_explicit(obj) ? "explicit" : "wildcard");
}

void decode_policy(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t *data = nullptr;
    uint16_t length = 0;
    if (rsvp_extract_policy(obj, &data, &length))
        out.line("policy data length %u: %s", length, rsvpdump::hex_bytes(data, length).c_str());
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_TIME_VALUES, RSVP_CTYPE_TIME_VALUES, decode_refresh);
RSVPDUMP_DECODER(RSVP_CLASS_RESV_CONFIRM, RSVP_CTYPE_RESV_CONFIRM_IPV4, decode_confirm);
RSVPDUMP_DECODER(RSVP_CLASS_SCOPE, RSVP_CTYPE_SCOPE_IPV4, decode_scope);
RSVPDUMP_DECODER(RSVP_CLASS_STYLE, RSVP_CTYPE_STYLE, decode_style);
RSVPDUMP_DECODER(RSVP_CLASS_POLICY_DATA, rsvpdump::kAnyCType, decode_policy);
