// EXCLUDE_ROUTE: one line per excluded resource. The L bit says whether the resource must be
// excluded (clear) or only avoided where possible (set); the attribute of a prefix or an
// interface says what is meant: the interface, the node, or the SRLGs of the interface.
#include <string>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvpdump::addr;

std::string attribute(uint8_t attr) {
    static const char *const kNames[] = {"interface", "node", "SRLG"};
    std::string s = "attribute " + std::to_string(attr);
    return attr < sizeof kNames / sizeof kNames[0] ? s + " (" + kNames[attr] + ")" : s;
}

void decode_subobject(uint8_t *sub, unsigned n, rsvpdump::Out &out) {
    const char *how = RSVP_XRO_SUB_LBIT(sub) ? "avoid" : "exclude";
    uint8_t l_bit = 0, prefix_len = 0, attr = 0, flags = 0;
    uint32_t address = 0, if_id = 0, srlg = 0, sender = 0, end_point = 0, ext_id = 0;
    uint16_t tunnel_id = 0, lsp_id = 0;
    switch (RSVP_XRO_SUB_TYPE(sub)) {
        case RSVP_XRO_SUBOBJ_IPV4_PREFIX:
            rsvp_extract_xro_ipv4_subobj(sub, &l_bit, &address, &prefix_len, &attr);
            out.line("%u: %s %s/%u %s", n, how, addr(address).c_str(), prefix_len,
                     attribute(attr).c_str());
            break;
        case RSVP_XRO_SUBOBJ_UNNUM:
            rsvp_extract_xro_unnum_ifid_subobj(sub, &l_bit, &attr, &address, &if_id);
            out.line("%u: %s unnumbered router id %s interface id %u %s", n, how,
                     addr(address).c_str(), if_id, attribute(attr).c_str());
            break;
        case RSVP_XRO_SUBOBJ_SRLG:
            rsvp_extract_xro_srlg_subobj(sub, &l_bit, &srlg);
            out.line("%u: %s SRLG %u", n, how, srlg);
            break;
        default:  // the object is valid, so this is the LSP subobject
            rsvp_extract_xro_lsp_subobj(sub, &l_bit, &attr, &flags, &tunnel_id, &lsp_id, &sender,
                                        &end_point, &ext_id);
            out.line(
                "%u: %s LSP tunnel end point %s tunnel id %u extended tunnel id %s sender %s "
                "LSP id %u flags 0x%02x attribute %u",
                n, how, addr(end_point).c_str(), tunnel_id, addr(ext_id).c_str(),
                addr(sender).c_str(), lsp_id, flags, attr);
            break;
    }
}

void decode_exclude_route(uint8_t *obj, rsvpdump::Out &out) {
    unsigned n = 0;
    for (uint8_t *sub = rsvp_get_xro_next_sub_hdr(obj, nullptr); sub;
         sub = rsvp_get_xro_next_sub_hdr(obj, sub))
        decode_subobject(sub, ++n, out);
    if (n == 0) out.line("nothing excluded");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_EXCLUDE_ROUTE, RSVP_CTYPE_EXCLUDE_ROUTE_SUBOBJECTS,
                 decode_exclude_route);
