// GENERALIZED_UNI: one line per subobject, the TNA addresses and the other UNI attributes as
// raw bytes.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

const char *subobject_name(uint8_t type) {
    switch (type) {
        case RSVP_GUA_SUBOBJ_SRC_TNA:
            return "source TNA";
        case RSVP_GUA_SUBOBJ_DST_TNA:
            return "destination TNA";
        case RSVP_GUA_SUBOBJ_DIVERSITY:
            return "diversity";
        case RSVP_GUA_SUBOBJ_EGRESS_LABEL:
            return "egress label";
        default:
            return "service level";
    }
}

void decode_uni(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t *const end = obj + RSVP_OBJECT_LENGTH(obj);
    out.open_list("subobjects");
    unsigned shown = 0;
    // The walker examines a candidate that starts at the object end, reading behind the
    // object: the loop stops there itself.
    for (uint8_t *sub = rsvp_extract_gen_uni_attr_next_subobj(obj, nullptr); sub && sub < end;
         sub = rsvp_extract_gen_uni_attr_next_subobj(obj, sub), ++shown) {
        const uint8_t type = RSVP_SUB_GUA_TYPE(sub);
        const uint16_t length = RSVP_SUB_GUA_LENGTH(sub);
        out.open_item().line().str("name", subobject_name(type)).text(" (type ").u("type", type);
        out.text(" length ").u("length", length).text(")");
        uint32_t address = 0;
        if (rsvp_extract_src_tna_ipv4_subobj(sub, &address) ||
            rsvp_extract_dst_tna_ipv4_subobj(sub, &address))
            out.text(" IPv4 ").addr("address", address);
        else if (length > RSVP_GUA_SUBOBJ_HDR_LEN)
            out.text(" ").bytes("data", sub + RSVP_GUA_SUBOBJ_HDR_LEN,
                                length - RSVP_GUA_SUBOBJ_HDR_LEN);
        out.close();
    }
    out.close();
    if (shown == 0) out.line().text("no UNI attributes");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_GENERALIZED_UNI, RSVP_CTYPE_GENERALIZED_UNI, decode_uni);
