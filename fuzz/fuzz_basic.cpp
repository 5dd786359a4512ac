// TIME_VALUES, RESV_CONFIRM, SCOPE, STYLE, POLICY_DATA: getters and extractors on every valid
// object of their classes (the getters also on valid objects of any class, with the slack
// their fixed offsets reach behind a short one), setters and the scope add on scratch copies.
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise_one(const Object &o) {
    uint32_t receiver = 0;
    uint8_t style = 0, *data = nullptr;
    uint16_t data_len = 0;
    switch (o.class_num) {
        case RSVP_CLASS_RESV_CONFIRM:
            keep(rsvp_extract_confirm_ipv4(o.obj, &receiver) + receiver);
            break;
        case RSVP_CLASS_SCOPE: {
            const int count = (o.length - RSVP_OBJ_HDR_LEN) / 4;
            for (int i = 0; i < count; ++i)
                keep(RSVP_SCOPE_IPV4_ADDR(o.obj, i));
            Scratch s = scratch_copy(o, 4);
            rsvp_add_scope_ipv4(s.data(), RSVP_SCOPE_IPV4_ADDR(o.obj, 0));
            rsvp_add_scope_ipv4(s.data(), 0xffffffff);
            keep(rsvp_valid_scope_ipv4(s.data()));
            break;
        }
        case RSVP_CLASS_STYLE: {
            keep(rsvp_extract_style(o.obj, &style) + style + rsvp_style_explicit(o.obj));
            Scratch s = scratch_copy(o);
            RSVP_STYLE_SET_RESERVATION_TYPE(s.data(), style);
            break;
        }
        case RSVP_CLASS_POLICY_DATA:
            if (rsvp_extract_policy(o.obj, &data, &data_len)) {
                Scratch s = scratch_copy(o);
                keep(rsvp_build_policy(s.data(), data, data_len));
            }
            break;
        default:
            break;
    }
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        switch (o.class_num) {
            case RSVP_CLASS_TIME_VALUES:
            case RSVP_CLASS_RESV_CONFIRM:
            case RSVP_CLASS_SCOPE:
            case RSVP_CLASS_STYLE:
            case RSVP_CLASS_POLICY_DATA:
                keep(rsvp_valid_refresh(o.obj) + rsvp_valid_confirm_ipv4(o.obj) +
                     rsvp_valid_scope_ipv4(o.obj) + rsvp_valid_style(o.obj) +
                     rsvp_valid_policy(o.obj));
                if (o.verdict == RSVP_OBJECT_VALID) exercise_one(o);
                break;
            default:
                break;
        }
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        Reach r = reach(o);
        keep(RSVP_REFRESH_TIME(r.obj) + RSVP_CONFIRM_ADDR(r.obj) +
             RSVP_STYLE_RESERVATION_TYPE(r.obj));
        if (r.copied()) RSVP_STYLE_SET_RESERVATION_TYPE(r.obj, RSVP_STYLE_WF);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(8 + 8 + 12 + 8 + 12, 0);
    uint8_t *p = run.data();
    rsvp_build_refresh(p, 30000);
    rsvp_build_confirm_ipv4(p + 8, 0x0a0200c0);
    rsvp_build_scope_ipv4(p + 16);
    rsvp_add_scope_ipv4(p + 16, 0x630200c0);
    rsvp_add_scope_ipv4(p + 16, 0x640200c0);
    rsvp_build_style(p + 28, RSVP_STYLE_SE);
    const uint8_t policy[5] = {1, 2, 3, 4, 5};
    rsvp_build_policy(p + 36, policy, sizeof policy);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
