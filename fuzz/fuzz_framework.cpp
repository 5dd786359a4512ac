// Framework calls on the objects of a run: comparison in pairs, copy, and length changes.
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise(std::span<const Object> objects) {
    for (size_t i = 0; i < objects.size(); ++i) {
        const Object &o = objects[i];
        keep(rsvp_object_compare(o.obj, o.obj));
        if (i + 1 < objects.size()) keep(rsvp_object_compare(o.obj, objects[i + 1].obj));

        Scratch copy = scratch_copy(o);
        rsvp_object_copy(copy.data(), o.obj);
        keep(rsvp_object_compare(copy.data(), o.obj));

        // Shrinking writes a filler inside the old extent; the result must stay walkable
        // whenever the gap is a whole number of words.
        for (uint16_t shrink = 0; shrink <= o.length && shrink <= 12; shrink += 2) {
            Scratch s = scratch_copy(o);
            RSVP_CHANGE_OBJECT_LENGTH(s.data(), static_cast<uint16_t>(o.length - shrink));
            uint32_t remaining = o.length;
            keep(rsvp_next_nonnull_object(s.data(), &remaining));
        }
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(40, 0);
    rsvp_build_object(run.data(), RSVP_CLASS_SESSION, 1, 12);
    rsvp_build_object(run.data() + 12, RSVP_CLASS_NULL, 0, 4);
    rsvp_build_object(run.data() + 16, 99, 1, 8);
    rsvp_build_object(run.data() + 24, RSVP_CLASS_STYLE, 1, 8);
    rsvp_build_object(run.data() + 32, 200, 3, 8);
    out.push_back(run);
    Bytes one(8, 0);
    rsvp_build_object(one.data(), 2, 1, 8);
    out.push_back(one);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
