// ERROR_SPEC: extractor and getters on valid objects, the code setter on a copy, and the order
// on pairs of neighbouring objects of any class (its fields count as 0 when invalid). The
// getters and the order read the ERROR_SPEC offsets of any valid object, behind a short one
// too (see reach).
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise(std::span<const Object> objects) {
    std::vector<Reach> reached;
    for (const Object &o : objects)
        reached.push_back(reach(o));
    for (size_t i = 0; i < objects.size(); ++i) {
        const Object &o = objects[i];
        uint8_t *c = reached[i].obj;
        keep(rsvp_compare_errors(c, c) + rsvp_compare_errors(c, nullptr));
        if (i + 1 < objects.size())
            keep(rsvp_compare_errors(c, reached[i + 1].obj) +
                 rsvp_compare_errors(reached[i + 1].obj, c));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        keep(RSVP_ERROR_NODE(c) + RSVP_ERROR_FLAGS(c) + RSVP_ERROR_CODE(c) + RSVP_ERROR_VALUE(c));
        if (reached[i].copied()) RSVP_SET_ERROR_CODE(c, 1);
        if (o.class_num != RSVP_CLASS_ERROR_SPEC) continue;
        uint32_t node = 0;
        uint8_t flags = 0, code = 0;
        uint16_t value = 0;
        keep(rsvp_extract_error_ipv4(o.obj, &node, &flags, &code, &value));
        keep(node + flags + code + value);
        Scratch s = scratch_copy(o);
        RSVP_SET_ERROR_CODE(s.data(), static_cast<uint8_t>(code + 1));
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(3 * RSVP_ERROR_SPEC_IPV4_LEN, 0);
    rsvp_build_error_ipv4(run.data(), 0x010c000a, 0, 24, 5);
    rsvp_build_error_ipv4(run.data() + 12, 0x010c000a, 1, 24, 5);
    rsvp_build_error_ipv4(run.data() + 24, 0x020c000a, 0, 1, 2);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
