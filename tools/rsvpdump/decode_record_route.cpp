// RECORD_ROUTE: one line per subobject, newest hop first, the way the route is read back:
// address or router and interface, the protection flags, labels and SRLG lists.
#include <string>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvpdump::addr;

// " (local protection available, node protection)" for the set bits, "" for none.
std::string flag_names(uint8_t flags) {
    static const struct {
        uint8_t bit;
        const char *name;
    } kFlags[] = {{RSVP_RRO_FLAG_LOCAL_PROT_AVAIL, "local protection available"},
                  {RSVP_RRO_FLAG_LOCAL_PROT_IN_USE, "local protection in use"},
                  {RSVP_RRO_FLAG_BANDWIDTH_PROT, "bandwidth protection"},
                  {RSVP_RRO_FLAG_NODE_PROT, "node protection"}};
    std::string s;
    for (const auto &f : kFlags)
        if (flags & f.bit) s += (s.empty() ? " (" : ", ") + std::string(f.name);
    return s.empty() ? s : s + ")";
}

// "16 17 18" for a list of host-order values.
std::string value_list(const uint32_t *values, unsigned count) {
    std::string s;
    for (unsigned i = 0; i < count; ++i)
        s.append(i ? " " : "").append(std::to_string(values[i]));
    return s.empty() ? "(none)" : s;
}

void decode_subobject(uint8_t *sub, unsigned hop, rsvpdump::Out &out) {
    uint32_t address = 0, if_id = 0;
    uint32_t values[RSVP_RRO_MAX_VALUES] = {};
    uint32_t *values_ptr = values;
    uint8_t prefix_len = 0, flags = 0, c_type = 0, count = 0;
    if (rsvp_extract_rro_subobject_ipv4(sub, &address, &prefix_len, &flags)) {
        out.line("hop %u: %s/%u flags 0x%02x%s", hop, addr(address).c_str(), prefix_len, flags,
                 flag_names(flags).c_str());
    } else if (rsvp_extract_rro_subobject_unnum(sub, &address, &if_id, &flags)) {
        out.line("hop %u: unnumbered router id %s interface id %u flags 0x%02x%s", hop,
                 addr(address).c_str(), if_id, flags, flag_names(flags).c_str());
    } else if (rsvp_extract_rro_subobject_label(sub, &values_ptr, &count, &flags, &c_type)) {
        out.line("hop %u: label%s %s c-type %u flags 0x%02x%s", hop, count == 1 ? "" : "s",
                 value_list(values, count).c_str(), c_type, flags,
                 flags & RSVP_RRO_LABEL_FLAG_GLOBAL ? " (global label)" : "");
    } else if (rsvp_extract_rro_subobject_srlg(sub, values, &count)) {
        out.line("hop %u: SRLG %s", hop, value_list(values, count).c_str());
    } else {
        const uint8_t length = RSVP_RRO_GENERIC_LENGTH(sub);
        out.line("hop %u: subobject type %u%s length %u %s", hop, RSVP_RRO_GENERIC_TYPE(sub),
                 RSVP_RRO_GENERIC_TYPE(sub) == RSVP_RRO_SUBOBJ_IPV6 ? " (IPv6 address)" : "",
                 length, rsvpdump::hex_bytes(sub, length).c_str());
    }
}

void decode_record_route(uint8_t *obj, rsvpdump::Out &out) {
    unsigned hop = 0;
    for (uint8_t *sub = rsvp_extract_rro_next_subobject(obj, nullptr); sub;
         sub = rsvp_extract_rro_next_subobject(obj, sub))
        decode_subobject(sub, ++hop, out);
    if (hop == 0) out.line("empty route");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_RECORD_ROUTE, RSVP_CTYPE_RECORD_ROUTE_SUBOBJECTS, decode_record_route);
