// EXPLICIT_ROUTE: one line per hop, in the order the Path follows them: loose or strict, then
// the prefix, the router ID and interface ID of an unnumbered link, or the AS number.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvpdump::addr;

void decode_hop(uint8_t *obj, uint8_t *sub, unsigned hop, rsvpdump::Out &out) {
    const char *kind = RSVP_ERO_GENERIC_TYPE(sub) & RSVP_ERO_L_BIT ? "loose" : "strict";
    const uint8_t length = RSVP_ERO_GENERIC_LENGTH(sub);
    // A route may end in a subobject that runs past the object end; its bytes are not the
    // route's, so only its header is shown.
    const long room = obj + RSVP_OBJECT_LENGTH(obj) - sub;
    if (length > room) {
        out.line("hop %u: %s subobject type %u length %u runs %ld bytes past the object end", hop,
                 kind, RSVP_ERO_GENERIC_TYPE(sub) & ~RSVP_ERO_L_BIT, length, length - room);
        return;
    }
    uint32_t address = 0, if_id = 0;
    uint8_t prefix_len = 0;
    uint16_t as_number = 0;
    if (rsvp_extract_ero_subobject_ipv4(sub, &address, &prefix_len))
        out.line("hop %u: %s %s/%u", hop, kind, addr(address).c_str(), prefix_len);
    else if (rsvp_extract_ero_subobject_unnum(sub, &address, &if_id))
        out.line("hop %u: %s unnumbered router id %s interface id %u", hop, kind,
                 addr(address).c_str(), if_id);
    else if (rsvp_extract_ero_subobject_as(sub, &as_number))
        out.line("hop %u: %s AS %u", hop, kind, as_number);
    else
        out.line("hop %u: %s IPv6 prefix subobject %s", hop, kind,
                 rsvpdump::hex_bytes(sub, length).c_str());
}

void decode_explicit_route(uint8_t *obj, rsvpdump::Out &out) {
    unsigned hop = 0;
    for (uint8_t *sub = rsvp_extract_ero_next_subobject(obj, nullptr); sub;
         sub = rsvp_extract_ero_next_subobject(obj, sub))
        decode_hop(obj, sub, ++hop, out);
    if (hop == 0) out.line("empty route");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_EXPLICIT_ROUTE, RSVP_CTYPE_EXPLICIT_ROUTE_SUBOBJECTS,
                 decode_explicit_route);
