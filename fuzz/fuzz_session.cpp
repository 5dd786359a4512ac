// SESSION: extractors, getters and predicates on every session that validates, the order on
// pairs of them; the validator on every class-1 object, valid or not.
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise_one(uint8_t *s) {
    uint32_t a = 0, ext = 0;
    uint8_t protocol = 0;
    uint16_t port = 0;
    keep(rsvp_extract_session_ipv4(s, &a, &protocol, &port));
    keep(rsvp_extract_session_lsp_tunnel_ipv4(s, &a, &port, &ext));
    keep(rsvp_extract_session_p2mp_lsp_ipv4(s, &a, &port, &ext));
    keep(rsvp_extract_session_uni_ipv4(s, &a, &port, &ext));
    keep(a + ext + protocol + port);
    keep(rsvp_session_gen_ipv4_dst(s) + RSVP_SESSION_DESTINATION(s));
    keep(rsvp_session_gen_ipv4_port(s) + RSVP_SESSION_PORT(s));
    keep(rsvp_session_gen_ipv4_ext_id(s) + RSVP_SESSION_EXT_TUNNEL_ID(s));
    keep(rsvp_session_gen_p2mp_id(s) + RSVP_SESSION_P2MP_ID(s));
    keep(rsvp_session_gen_ipv4_protocol(s) + RSVP_SESSION_PROTOCOL(s));
    keep(rsvp_session_gen_ipv4_flags(s) + RSVP_SESSION_FLAGS(s));
    keep(rsvp_ip_ipv4_session(s) + rsvp_tunnel_ipv4_session(s) + rsvp_uni_ipv4_session(s) +
         rsvp_p2mp_lsp_ipv4_session(s) + rsvp_session_gen_is_family_ipv4(s) +
         rsvp_session_gen_is_family_ipv6(s) + rsvp_session_gen_ipv4_is_tunnel(s) +
         rsvp_session_gen_ipv6_is_tunnel(s) + rsvp_session_gen_is_family_tunnel(s));
}

void exercise(std::span<const Object> objects) {
    const Object *prev = nullptr;
    for (const Object &o : objects) {
        if (o.class_num != RSVP_CLASS_SESSION) continue;
        keep(rsvp_valid_session_ipv4(o.obj));
        // The getters guard their reads by the Length, so they may see invalid sessions too.
        keep(rsvp_session_gen_ipv4_ext_id(o.obj) + rsvp_session_gen_ipv4_port(o.obj));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        exercise_one(o.obj);
        keep(rsvp_compare_sessions(o.obj, o.obj) + rsvp_compare_sessions(o.obj, nullptr));
        if (prev)
            keep(rsvp_compare_sessions(prev->obj, o.obj) + rsvp_compare_sessions(o.obj, prev->obj));
        prev = &o;
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(12 + 3 * 16, 0);
    uint8_t *p = run.data();
    rsvp_build_session_ipv4(p, 0x0300000a, RSVP_IP_PROTOCOL_UDP, 1, 5000);
    rsvp_build_session_lsp_tunnel_ipv4(p + 12, 0x0300000a, 1, 0x0100000a);
    rsvp_build_session_uni_ipv4(p + 28, 0x0400000a, 2, 0x0200000a);
    rsvp_build_session_p2mp_lsp_ipv4(p + 44, 77, 3, 0x0100000a);
    out.push_back(run);
    Bytes pair(32, 0);
    rsvp_build_session_lsp_tunnel_ipv4(pair.data(), 0x0300000a, 1, 0);
    rsvp_build_session_lsp_tunnel_ipv4(pair.data() + 16, 0x0300000a, 2, 0x0100000a);
    out.push_back(pair);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
