// RSVP_HOP: the neighbor and its logical interface handle; for the IF_ID form, one line per
// interface-identification TLV.
#include <vector>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void print_neighbor(uint32_t neighbor, uint32_t lih, rsvpdump::Out &out) {
    out.line().text("hop ").addr("neighbor", neighbor);
    out.text(" logical interface handle ").u("logical_interface_handle", lih);
}

void decode_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t neighbor = 0, lih = 0;
    if (!rsvp_extract_hop_ipv4(obj, &neighbor, &lih)) return;
    print_neighbor(neighbor, lih, out);
}

const char *tlv_name(uint16_t type) {
    switch (type) {
        case RSVP_HOP_IF_ID_TLV_INDEX:
            return "interface index";
        case RSVP_HOP_IF_ID_TLV_COMPONENT_FWD:
            return "component interface forward";
        case RSVP_HOP_IF_ID_TLV_COMPONENT_REV:
            return "component interface reverse";
        default:
            return "interface";
    }
}

void decode_if_id(uint8_t *obj, rsvpdump::Out &out) {
    const uint16_t length = RSVP_OBJECT_LENGTH(obj);
    // The TLV walk examines a candidate starting at the object end, and a last TLV may claim
    // bytes behind it: walk a copy followed by a zeroed TLV's worth of room.
    std::vector<uint8_t> copy(obj, obj + length);
    copy.resize(length + RSVP_HOP_IF_ID_TLV_INDEX_LEN);
    uint8_t *o = copy.data();
    print_neighbor(RSVP_HOP_IF_ID_NEIGHBOR(o), RSVP_HOP_IF_ID_LIF_HANDLE(o), out);
    out.open_list("tlvs");
    for (uint8_t *tlv = rsvp_extract_hop_if_id_next_subobj(o, nullptr); tlv && tlv < o + length;
         tlv = rsvp_extract_hop_if_id_next_subobj(o, tlv)) {
        const uint16_t type = RSVP_HOP_SUBOBJ_GENERIC_TYPE(tlv);
        const bool past = tlv + RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv) > o + length;
        uint32_t address = 0, if_id = 0;
        if (rsvp_extract_ipv4_subobj(tlv, &address)) {
            out.open_item().line().text("TLV ").u("type", type);
            out.text(" IPv4 interface address ").addr("address", address);
        } else if (rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &address, &if_id)) {
            out.open_item().line().text("TLV ").u("type", type).text(" ");
            out.str("type_name", tlv_name(type)).text(" ").addr("address", address);
            out.text(" interface id ").u("interface_id", if_id);
        } else {
            continue;
        }
        out.flag("overrun", past).text(past ? " (runs past the object end)" : "");
        out.close();
    }
    out.close();
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IPV4, decode_ipv4);
RSVPDUMP_DECODER(RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4, decode_if_id);
