// HELLO and RESTART_CAP: the extractors, which trust their caller, on every object with the
// room their fixed offsets reach; each valid object rebuilt from them must come out the same.
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr unsigned kCTypeOffset = 3;

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        keep(rsvp_valid_hello(o.obj) + rsvp_valid_restart_cap(o.obj));
        Reach r = reach(o);
        uint32_t first = 0, second = 0, restart = 0, recovery = 0;
        uint8_t type = 0;
        keep(rsvp_extract_hello_src_instance(r.obj, &first) +
             rsvp_extract_hello_dst_instance(r.obj, &second) +
             rsvp_extract_hello_msg_type(r.obj, &type) +
             rsvp_extract_restart_cap_restart_time(r.obj, &restart) +
             rsvp_extract_restart_cap_recovery_time(r.obj, &recovery));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        uint8_t built[RSVP_HELLO_LEN];
        if (o.class_num == RSVP_CLASS_HELLO) {
            if (type == RSVP_CTYPE_HELLO_ACK)
                rsvp_build_hello_ack(built, first, second);
            else
                rsvp_build_hello_request(built, first, second);
        } else if (o.class_num == RSVP_CLASS_RESTART_CAP) {
            rsvp_build_restart_cap(built, restart, recovery);
            built[kCTypeOffset] = o.c_type;  // built as 1; any is received
        } else {
            continue;
        }
        if (std::memcmp(built, o.obj, sizeof built) != 0) std::abort();
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(RSVP_HELLO_LEN * 2 + RSVP_RESTART_CAP_LEN, 0);
    rsvp_build_hello_request(run.data(), 5, 0);
    rsvp_build_hello_ack(run.data() + RSVP_HELLO_LEN, 9, 5);
    rsvp_build_restart_cap(run.data() + 2 * RSVP_HELLO_LEN, 120000, 30000);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
