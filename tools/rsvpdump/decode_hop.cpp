// RSVP_HOP: the neighbor and its logical interface handle; for the IF_ID form, one line per
// interface-identification TLV.
#include <vector>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvpdump::addr;

void decode_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t neighbor = 0, lih = 0;
    if (!rsvp_extract_hop_ipv4(obj, &neighbor, &lih)) return;
    out.line("hop %s logical interface handle %u", addr(neighbor).c_str(), lih);
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
    out.line("hop %s logical interface handle %u", addr(RSVP_HOP_IF_ID_NEIGHBOR(o)).c_str(),
             RSVP_HOP_IF_ID_LIF_HANDLE(o));
    for (uint8_t *tlv = rsvp_extract_hop_if_id_next_subobj(o, nullptr); tlv && tlv < o + length;
         tlv = rsvp_extract_hop_if_id_next_subobj(o, tlv)) {
        const uint16_t type = RSVP_HOP_SUBOBJ_GENERIC_TYPE(tlv);
        const char *past = tlv + RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv) > o + length
                               ? " (runs past the object end)"
                               : "";
        uint32_t address = 0, if_id = 0;
        if (rsvp_extract_ipv4_subobj(tlv, &address))
            out.line("TLV %u IPv4 interface address %s%s", type, addr(address).c_str(), past);
        else if (rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &address, &if_id))
            out.line("TLV %u %s %s interface id %u%s", type, tlv_name(type), addr(address).c_str(),
                     if_id, past);
    }
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IPV4, decode_ipv4);
RSVPDUMP_DECODER(RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4, decode_if_id);
