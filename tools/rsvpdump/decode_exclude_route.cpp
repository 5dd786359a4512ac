// EXCLUDE_ROUTE: one line per excluded resource. The L bit says whether the resource must be
// excluded (clear) or only avoided where possible (set); the attribute of a prefix or an
// interface says what is meant: the interface, the node, or the SRLGs of the interface.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

const char *const kAttributeNames[] = {"interface", "node", "SRLG"};

// " attribute 1 (node)"; attributes without a name show the number alone.
void attribute(uint8_t attr, rsvpdump::Out &out) {
    out.text(" attribute ").u("attribute", attr);
    if (attr < sizeof kAttributeNames / sizeof kAttributeNames[0])
        out.text(" (").str("attribute_name", kAttributeNames[attr]).text(")");
}

void decode_subobject(uint8_t *sub, unsigned n, rsvpdump::Out &out) {
    const bool avoid = RSVP_XRO_SUB_LBIT(sub) != 0;
    uint8_t l_bit = 0, prefix_len = 0, attr = 0, flags = 0;
    uint32_t address = 0, if_id = 0, srlg = 0, sender = 0, end_point = 0, ext_id = 0;
    uint16_t tunnel_id = 0, lsp_id = 0;
    out.line().u("index", n).text(": ").flag("avoid", avoid).text(avoid ? "avoid " : "exclude ");
    switch (RSVP_XRO_SUB_TYPE(sub)) {
        case RSVP_XRO_SUBOBJ_IPV4_PREFIX:
            rsvp_extract_xro_ipv4_subobj(sub, &l_bit, &address, &prefix_len, &attr);
            out.addr("address", address).text("/").u("prefix_length", prefix_len);
            attribute(attr, out);
            break;
        case RSVP_XRO_SUBOBJ_UNNUM:
            rsvp_extract_xro_unnum_ifid_subobj(sub, &l_bit, &attr, &address, &if_id);
            out.text("unnumbered router id ").addr("router_id", address);
            out.text(" interface id ").u("interface_id", if_id);
            attribute(attr, out);
            break;
        case RSVP_XRO_SUBOBJ_SRLG:
            rsvp_extract_xro_srlg_subobj(sub, &l_bit, &srlg);
            out.text("SRLG ").u("srlg", srlg);
            break;
        default:  // the object is valid, so this is the LSP subobject
            rsvp_extract_xro_lsp_subobj(sub, &l_bit, &attr, &flags, &tunnel_id, &lsp_id, &sender,
                                        &end_point, &ext_id);
            out.text("LSP tunnel end point ").addr("tunnel_end_point", end_point);
            out.text(" tunnel id ").u("tunnel_id", tunnel_id);
            out.text(" extended tunnel id ").addr("extended_tunnel_id", ext_id);
            out.text(" sender ").addr("sender", sender).text(" LSP id ").u("lsp_id", lsp_id);
            out.text(" flags ").hex("flags", flags, 2).text(" attribute ").u("attribute", attr);
            break;
    }
}

void decode_exclude_route(uint8_t *obj, rsvpdump::Out &out) {
    unsigned n = 0;
    out.open_list("subobjects");
    for (uint8_t *sub = rsvp_get_xro_next_sub_hdr(obj, nullptr); sub;
         sub = rsvp_get_xro_next_sub_hdr(obj, sub)) {
        out.open_item();
        decode_subobject(sub, ++n, out);
        out.close();
    }
    out.close();
    if (n == 0) out.line().text("nothing excluded");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_EXCLUDE_ROUTE, RSVP_CTYPE_EXCLUDE_ROUTE_SUBOBJECTS,
                 decode_exclude_route);
