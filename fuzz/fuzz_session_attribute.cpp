// SESSION_ATTRIBUTE: validator and extractor on every object of the class, the protection
// test wherever the object's Length covers the flags byte it reads (it does not validate),
// the flag accessors on every valid object, and the builder with a name taken from the input.
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

// The flags byte that rsvp_session_attribute_protected reads for the object's C-Type.
constexpr size_t kFlagsEndTunnel = 7, kFlagsEndRa = 19;

void exercise_one(const Object &o) {
    keep(rsvp_valid_session_attribute(o.obj));
    uint8_t setup = 0, hold = 0, flags = 0, name_len = 0;
    const char *name = nullptr;
    uint32_t ex = 0, in_any = 0, in_all = 0;
    if (!rsvp_extract_session_attribute(o.obj, &setup, &hold, &flags, &name_len, &name, &ex,
                                        &in_any, &in_all))
        return;
    // The validator's repair keeps the name inside the object.
    const auto *n = reinterpret_cast<const uint8_t *>(name);
    if (n < o.obj || n + name_len > o.obj + o.length) std::abort();
    keep(setup + hold + flags + ex + in_any + in_all);
    Scratch b = scratch_copy(o, name_len + RSVP_SESSION_ATTRIBUTE_BUILD_OVERHEAD + 4);
    rsvp_build_session_attribute(b.data(), setup, hold, flags, name_len, name);
    if (!rsvp_valid_session_attribute(b.data())) std::abort();
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num == RSVP_CLASS_SESSION_ATTRIBUTE) exercise_one(o);
        const size_t flags_end =
            o.c_type == RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL_RA ? kFlagsEndRa : kFlagsEndTunnel;
        if (o.length >= flags_end) keep(rsvp_session_attribute_protected(o.obj));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        keep(RSVP_SESSION_ATTRIBUTE_FLAGS(o.obj));
        Scratch s = scratch_copy(o);
        RSVP_SESSION_ATTRIBUTE_SET_FLAGS(s.data(), 0xA5);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(32 + 24, 0);
    rsvp_build_session_attribute(run.data(), 7, 0, RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION, 10,
                                 "LSP-to-PE3");
    // C-Type 1, with affinities and a 4-byte name.
    const uint8_t ra[] = {0x00,
                          0x18,
                          RSVP_CLASS_SESSION_ATTRIBUTE,
                          RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL_RA,
                          0,
                          0,
                          0,
                          1,
                          0,
                          0,
                          0,
                          0xf0,
                          0x80,
                          0,
                          0,
                          0,
                          3,
                          3,
                          0x28,
                          4,
                          'P',
                          'E',
                          '1',
                          0};
    std::memcpy(run.data() + 32, ra, sizeof ra);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
