// SENDER_TEMPLATE and FILTER_SPEC: extractors and accessors on the objects that validate,
// setters on scratch copies, and the twin orders on pairs. The P2MP accessors read and write
// up to byte 20 of any valid object, so a 12-byte object gets 8 bytes of slack for them.
#include <algorithm>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

bool is_sender(const Object &o) {
    return o.class_num == RSVP_CLASS_SENDER_TEMPLATE || o.class_num == RSVP_CLASS_FILTER_SPEC;
}

void exercise_one(const Object &o) {
    uint8_t *s = o.obj;
    uint32_t addr = 0, origin = 0;
    uint16_t port = 0, sg_id = 0;
    keep(rsvp_extract_template_ipv4(s, &addr, &port) +
         rsvp_extract_template_lsp_tunnel_ipv4(s, &addr, &port) +
         rsvp_extract_template_lsp_p2mp_ipv4(s, &addr, &port, &origin, &sg_id) +
         rsvp_extract_filter_ipv4(s, &addr, &port) +
         rsvp_extract_filter_lsp_tunnel_ipv4(s, &addr, &port) +
         rsvp_extract_filter_lsp_p2mp_ipv4(s, &addr, &port, &origin, &sg_id));
    keep(addr + origin + port + sg_id);
    keep(RSVP_TEMPLATE_SOURCE(s) + RSVP_FILTER_SOURCE(s) + RSVP_TEMPLATE_PORT(s) +
         RSVP_FILTER_PORT(s));

    const size_t slack =
        RSVP_SENDER_P2MP_IPV4_LEN - std::min<size_t>(o.length, RSVP_SENDER_P2MP_IPV4_LEN);
    Scratch w = scratch_copy(o, slack);
    keep(RSVP_TEMPLATE_P2MP_SG_ORIGIN(w.data()) + RSVP_FILTER_P2MP_SG_ORIGIN(w.data()) +
         RSVP_TEMPLATE_P2MP_SG_ID(w.data()) + RSVP_FILTER_P2MP_SG_ID(w.data()));
    RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(w.data(), 0x0700000a);
    RSVP_FILTER_SET_P2MP_SG_ORIGIN(w.data(), 0x0800000a);
    RSVP_TEMPLATE_SET_SOURCE(w.data(), 0x0900000a);
    RSVP_FILTER_SET_SOURCE(w.data(), 0);
    keep(RSVP_FILTER_SOURCE(w.data()));
}

void exercise(std::span<const Object> objects) {
    const Object *prev = nullptr;
    for (const Object &o : objects) {
        if (!is_sender(o)) continue;
        keep(rsvp_valid_template_gen_ipv4(o.obj) + rsvp_valid_filter_gen_ipv4(o.obj));
        // The orders read fields only of objects that validate, so every sender takes part.
        keep(rsvp_compare_templates(o.obj, o.obj) + rsvp_compare_filters(nullptr, o.obj));
        if (prev)
            keep(rsvp_compare_templates(prev->obj, o.obj) + rsvp_compare_filters(o.obj, prev->obj));
        prev = &o;
        if (o.verdict == RSVP_OBJECT_VALID) exercise_one(o);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(3 * 12 + 20, 0);
    uint8_t *p = run.data();
    rsvp_build_template_ipv4(p, 0x0100000a, 5000);
    rsvp_build_template_lsp_tunnel_ipv4(p + 12, 0x0100000a, 1);
    rsvp_build_filter_lsp_tunnel_ipv4(p + 24, 0, 1);
    rsvp_build_template_lsp_p2mp_ipv4(p + 36, 0x0100000a, 2, 0x070200c0, 3);
    out.push_back(run);
    Bytes pair(32, 0);
    rsvp_build_filter_ipv4(pair.data(), 0x050000e0, 80);
    rsvp_build_filter_lsp_p2mp_ipv4(pair.data() + 12, 0x0100000a, 2, 0x070200c0, 3);
    out.push_back(pair);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
