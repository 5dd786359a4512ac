// RECORD_ROUTE: one line per subobject, newest hop first, the way the route is read back:
// address or router and interface, the protection flags, labels and SRLG lists.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

struct FlagName {
    uint8_t bit;
    const char *key;
    const char *name;
};

constexpr FlagName kFlags[] = {
    {RSVP_RRO_FLAG_LOCAL_PROT_AVAIL, "local_protection_available", "local protection available"},
    {RSVP_RRO_FLAG_LOCAL_PROT_IN_USE, "local_protection_in_use", "local protection in use"},
    {RSVP_RRO_FLAG_BANDWIDTH_PROT, "bandwidth_protection", "bandwidth protection"},
    {RSVP_RRO_FLAG_NODE_PROT, "node_protection", "node protection"}};

// " flags 0x09 (local protection available, node protection)": the names of the set bits.
void print_flags(uint8_t flags, rsvpdump::Out &out) {
    out.text(" flags ").hex("flags", flags, 2);
    bool first = true;
    for (const FlagName &f : kFlags) {
        if (!(flags & f.bit)) continue;
        out.text(first ? " (" : ", ").flag(f.key, true).text(f.name);
        first = false;
    }
    if (!first) out.text(")");
}

// "16 17 18" for a list of host-order values, "(none)" for an empty one.
void print_values(const char *key, const uint32_t *values, unsigned count, rsvpdump::Out &out) {
    out.open_list(key);
    for (unsigned i = 0; i < count; ++i) {
        out.open_item().text(i ? " " : "").u("value", values[i]);
        out.close();
    }
    out.close();
    if (count == 0) out.text("(none)");
}

void decode_subobject(uint8_t *sub, unsigned hop, rsvpdump::Out &out) {
    uint32_t address = 0, if_id = 0;
    uint32_t values[RSVP_RRO_MAX_VALUES] = {};
    uint32_t *values_ptr = values;
    uint8_t prefix_len = 0, flags = 0, c_type = 0, count = 0;
    out.line().text("hop ").u("index", hop).text(": ");
    if (rsvp_extract_rro_subobject_ipv4(sub, &address, &prefix_len, &flags)) {
        out.addr("address", address).text("/").u("prefix_length", prefix_len);
        print_flags(flags, out);
    } else if (rsvp_extract_rro_subobject_unnum(sub, &address, &if_id, &flags)) {
        out.text("unnumbered router id ").addr("router_id", address);
        out.text(" interface id ").u("interface_id", if_id);
        print_flags(flags, out);
    } else if (rsvp_extract_rro_subobject_label(sub, &values_ptr, &count, &flags, &c_type)) {
        out.text(count == 1 ? "label " : "labels ");
        print_values("labels", values, count, out);
        out.text(" c-type ").u("c_type", c_type).text(" flags ").hex("flags", flags, 2);
        const bool global = (flags & RSVP_RRO_LABEL_FLAG_GLOBAL) != 0;
        out.flag("global", global).text(global ? " (global label)" : "");
    } else if (rsvp_extract_rro_subobject_srlg(sub, values, &count)) {
        out.text("SRLG ");
        print_values("srlgs", values, count, out);
    } else {
        const uint8_t type = RSVP_RRO_GENERIC_TYPE(sub);
        const uint8_t length = RSVP_RRO_GENERIC_LENGTH(sub);
        out.text("subobject type ").u("type", type);
        out.text(type == RSVP_RRO_SUBOBJ_IPV6 ? " (IPv6 address)" : "");
        out.text(" length ").u("length", length).text(" ").bytes("subobject", sub, length);
    }
}

void decode_record_route(uint8_t *obj, rsvpdump::Out &out) {
    unsigned hop = 0;
    out.open_list("hops");
    for (uint8_t *sub = rsvp_extract_rro_next_subobject(obj, nullptr); sub;
         sub = rsvp_extract_rro_next_subobject(obj, sub)) {
        out.open_item();
        decode_subobject(sub, ++hop, out);
        out.close();
    }
    out.close();
    if (hop == 0) out.line().text("empty route");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_RECORD_ROUTE, RSVP_CTYPE_RECORD_ROUTE_SUBOBJECTS, decode_record_route);
