// The text unit: the flow string of the whole run (rebuilt contiguous in an exact-size buffer),
// the session type string and the label text of every object, the label and SRLG rings on the
// object's words, the message type names and the interface and address predicates on values
// taken from the object. Every text must end inside its buffer.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "fuzz_registry.hpp"
#include "rsvp_lib_util.h"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void check_len(const char *text, size_t buffer) {
    if (std::strlen(text) >= buffer) std::abort();
}

void exercise_object(const Object &o) {
    char kind[RSVP_LIB_UTIL_NAME_LEN];
    uint16_t port = 0;
    uint32_t id = 0;
    keep(rsvp_lib_util_session_typestring(o.obj, kind, &port, &id));
    check_len(kind, sizeof kind);
    check_len(rsvp_label_gen_str(o.obj), RSVP_LABEL_STR_LEN);

    // The body's words (their byte order does not matter here), for the label and SRLG rings.
    const size_t words = (o.length - RSVP_OBJ_HDR_LEN) / 4;
    std::unique_ptr<uint32_t[]> body(new uint32_t[std::max<size_t>(words, 1)]);
    for (size_t i = 0; i < words; ++i)
        std::memcpy(&body[i], o.obj + RSVP_OBJ_HDR_LEN + 4 * i, 4);
    check_len(rsvp_enc_label_gen_str(body.get(), static_cast<uint32_t>(words)), RSVP_LABEL_STR_LEN);
    check_len(rsvp_enc_srlg_gen_str(body.get(), static_cast<uint8_t>(std::min<size_t>(words, 255))),
              RSVP_SRLG_STR_LEN);

    const int32_t type = static_cast<int32_t>(words ? body[0] : o.c_type);
    check_len(rsvp_msg_type_string(type), RSVP_LIB_UTIL_MSG_TYPE_BUF_LEN);
    check_len(rsvp_msg_type_string_v2(type, o.class_num & 1), RSVP_LIB_UTIL_MSG_TYPE_BUF_LEN);
    keep(rsvp_lib_util_is_all_intf(kind) + rsvp_lib_util_is_dummy_intf(kind));
    if (words) {
        rsvp_ip_addr_t addr{o.class_num, o.c_type, body[0]};
        rsvp_link_id_t link{body[0] & 3u, {}};
        uint32_t in = 0;
        keep(rsvp_ip_valid(&addr) + rsvp_ip_valid_routerid(&addr) + rsvp_ip_to_in(&addr, &in) +
             rsvp_lib_util_is_link_id_set(&link) + rsvp_lib_util_is_link_id_ipv4(&link) +
             rsvp_lib_util_is_link_id_unnum(&link));
        // Interface names through the default service (one host lookup per call), on a handle
        // and form taken from the object, into an exact-size buffer and the per-thread ring.
        const uint32_t form = o.c_type % 4;
        std::unique_ptr<char[]> name(new char[RSVP_LIB_UTIL_NAME_LEN]);
        keep(rsvp_lib_util_get_if_name(body[0], form, name.get()));
        check_len(name.get(), RSVP_LIB_UTIL_NAME_LEN);
        check_len(rsvp_lib_util_if_name(body[0], form), RSVP_LIB_UTIL_NAME_LEN);
    }
    check_len(rsvp_lib_util_get_all_if_name(), RSVP_LIB_UTIL_NAME_LEN);
}

void exercise(std::span<const Object> objects) {
    size_t total = 0;
    for (const Object &o : objects)
        total += o.length;
    std::unique_ptr<uint8_t[]> run(new uint8_t[std::max<size_t>(total, 1)]);
    size_t pos = 0;
    for (const Object &o : objects) {
        std::memcpy(run.get() + pos, o.obj, o.length);
        pos += o.length;
        exercise_object(o);
    }
    check_len(rsvp_lib_util_flow_str(run.get(), static_cast<uint32_t>(total)),
              RSVP_LIB_UTIL_FLOW_BUF_LEN);
}

// A P2MP Path's identity, and a plain LABEL.
void seeds(std::vector<Bytes> &out) {
    Bytes run(size_t{RSVP_SESSION_TUNNEL_IPV4_LEN} + RSVP_S2L_SUB_LSP_IPV4_LEN +
              RSVP_SENDER_P2MP_IPV4_LEN + RSVP_LABEL_LEN);
    uint8_t *p = run.data();
    rsvp_build_session_p2mp_lsp_ipv4(p, 7, 8, 0x0900000a);
    p += RSVP_SESSION_TUNNEL_IPV4_LEN;
    rsvp_build_s2l_sub_lsp_ipv4(p, 0x0200000a);
    p += RSVP_S2L_SUB_LSP_IPV4_LEN;
    rsvp_build_template_lsp_p2mp_ipv4(p, 0x0100000a, 3, 0x0500000a, 4);
    p += RSVP_SENDER_P2MP_IPV4_LEN;
    rsvp_build_label(p, 0x10);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
