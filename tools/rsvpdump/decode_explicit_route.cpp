// EXPLICIT_ROUTE: one line per hop, in the order the Path follows them: loose or strict, then
// the prefix, the router ID and interface ID of an unnumbered link, or the AS number.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_hop(uint8_t *obj, uint8_t *sub, unsigned hop, rsvpdump::Out &out) {
    const bool loose = (RSVP_ERO_GENERIC_TYPE(sub) & RSVP_ERO_L_BIT) != 0;
    const uint8_t length = RSVP_ERO_GENERIC_LENGTH(sub);
    out.line().text("hop ").u("index", hop).text(": ");
    out.flag("loose", loose).text(loose ? "loose " : "strict ");
    // A route may end in a subobject that runs past the object end; its bytes are not the
    // route's, so only its header is shown.
    const long room = obj + RSVP_OBJECT_LENGTH(obj) - sub;
    if (length > room) {
        out.text("subobject type ").u("type", RSVP_ERO_GENERIC_TYPE(sub) & ~RSVP_ERO_L_BIT);
        out.text(" length ").u("length", length).text(" runs ");
        out.i("overrun", length - room).text(" bytes past the object end");
        return;
    }
    uint32_t address = 0, if_id = 0;
    uint8_t prefix_len = 0;
    uint16_t as_number = 0;
    if (rsvp_extract_ero_subobject_ipv4(sub, &address, &prefix_len)) {
        out.addr("address", address).text("/").u("prefix_length", prefix_len);
    } else if (rsvp_extract_ero_subobject_unnum(sub, &address, &if_id)) {
        out.text("unnumbered router id ").addr("router_id", address);
        out.text(" interface id ").u("interface_id", if_id);
    } else if (rsvp_extract_ero_subobject_as(sub, &as_number)) {
        out.text("AS ").u("as_number", as_number);
    } else {
        out.text("IPv6 prefix subobject ").bytes("subobject", sub, length);
    }
}

void decode_explicit_route(uint8_t *obj, rsvpdump::Out &out) {
    unsigned hop = 0;
    out.open_list("hops");
    for (uint8_t *sub = rsvp_extract_ero_next_subobject(obj, nullptr); sub;
         sub = rsvp_extract_ero_next_subobject(obj, sub)) {
        out.open_item();
        decode_hop(obj, sub, ++hop, out);
        out.close();
    }
    out.close();
    if (hop == 0) out.line().text("empty route");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_EXPLICIT_ROUTE, RSVP_CTYPE_EXPLICIT_ROUTE_SUBOBJECTS,
                 decode_explicit_route);
