// PROTECTION and the private protection object: every getter on every object (each validates
// its own class), the setters and builders on copies, and for valid private objects the walk,
// the subobject accessors and extractors, and the adds. The last subobject may run past the
// object, so the driver gives private objects that much room (deliberate_read_room). The
// subobject functions also take every unit of the pool, as far as its length field claims.
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

using Get = uint32_t (*)(uint8_t *);
constexpr Get kGetters[] = {
    RSVP_PROTECTION_S,
    RSVP_PROTECTION_P,
    RSVP_PROTECTION_N,
    RSVP_PROTECTION_O,
    RSVP_PROTECTION_LSP_FLAGS,
    RSVP_PROTECTION_LINK_FLAGS,
    RSVP_PROTECTION_I,
    RSVP_PROTECTION_R,
    RSVP_PROTECTION_SEG_FLAGS,
    RSVP_PVT_PROTECTION_S,
    RSVP_PVT_PROTECTION_P,
    RSVP_PVT_PROTECTION_N,
    RSVP_PVT_PROTECTION_O,
    RSVP_PVT_PROTECTION_LSP_FLAGS,
    RSVP_PVT_PROTECTION_LINK_FLAGS,
    RSVP_PVT_PROTECTION_I,
    RSVP_PVT_PROTECTION_R,
    RSVP_PVT_PROTECTION_SEG_FLAGS,
};

using SetBit = void (*)(uint8_t *, int);
using SetField = void (*)(uint8_t *, uint8_t);
constexpr SetBit kBitSetters[] = {
    RSVP_PROTECTION_SET_S,     RSVP_PROTECTION_SET_P,     RSVP_PROTECTION_SET_N,
    RSVP_PROTECTION_SET_O,     RSVP_PROTECTION_SET_I,     RSVP_PROTECTION_SET_R,
    RSVP_PVT_PROTECTION_SET_S, RSVP_PVT_PROTECTION_SET_P, RSVP_PVT_PROTECTION_SET_N,
    RSVP_PVT_PROTECTION_SET_O, RSVP_PVT_PROTECTION_SET_I, RSVP_PVT_PROTECTION_SET_R,
};
constexpr SetField kFieldSetters[] = {
    RSVP_PROTECTION_SET_LSP_FLAGS,      RSVP_PROTECTION_SET_LINK_FLAGS,
    RSVP_PROTECTION_SET_SEG_FLAGS,      RSVP_PVT_PROTECTION_SET_LSP_FLAGS,
    RSVP_PVT_PROTECTION_SET_LINK_FLAGS, RSVP_PVT_PROTECTION_SET_SEG_FLAGS,
};

void set_all(uint8_t *obj, uint8_t v) {
    for (size_t i = 0; i < sizeof kBitSetters / sizeof kBitSetters[0]; ++i)
        kBitSetters[i](obj, v >> i % 8 & 1);
    for (SetField set : kFieldSetters)
        set(obj, v);
}

// The values found, for the adds.
struct Found {
    uint32_t wtr = 0, hoff = 0;
    uint8_t mode1 = 0, mode2 = 0;
};

void subobject(uint8_t *sub, Found &f) {
    keep(rsvp_valid_pvt_protection_subobject(sub) + RSVP_PVT_PROTECTION_SUBOBJ_TYPE(sub) +
         RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(sub));
    keep(rsvp_extract_pvt_protection_wtr(sub, &f.wtr) +
         rsvp_extract_pvt_protection_hoff(sub, &f.hoff) +
         rsvp_extract_pvt_protection_snc(sub, &f.mode1, &f.mode2) +
         RSVP_PVT_PROTECTION_SNC_SUBOBJ_MODE(sub, &f.mode1, &f.mode2));
    RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(sub, f.mode2, f.mode1);
}

void exercise_pvt(const Object &o) {
    // Three adds, each of up to 12 bytes, behind a last subobject that may overrun.
    Scratch s = scratch_copy(o, 3 * RSVP_PVT_PROTECTION_SNC_LEN);
    uint8_t *obj = s.data();
    Found f;
    for (uint8_t *sub = rsvp_extract_pvt_protection_next_subobject(obj, nullptr); sub;
         sub = rsvp_extract_pvt_protection_next_subobject(obj, sub)) {
        share_unit(sub, RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(sub), obj + s.size);
        subobject(sub, f);
    }
    keep(rsvp_add_pvt_protection_wtr(obj, f.hoff) + rsvp_add_pvt_protection_hoff(obj, f.wtr) +
         rsvp_add_pvt_protection_snc(obj, f.mode1, f.mode2));
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        // Getters and setters validate their own class: any object may be handed to them.
        for (Get get : kGetters)
            keep(get(o.obj));
        Scratch s = scratch_copy(o);
        set_all(s.data(), o.length > 4 ? o.obj[4] : 0);
        if (o.class_num != RSVP_CLASS_PROTECTION && o.class_num != RSVP_CLASS_PVT_PROTECTION)
            continue;
        keep(rsvp_valid_protection(o.obj) + rsvp_valid_pvt_protection(o.obj));
        if (o.length >= size_t{RSVP_PROTECTION_LEN} + RSVP_PVT_PROTECTION_SUBOBJ_HDR_LEN)
            keep(rsvp_valid_pvt_protection_subobject(o.obj + RSVP_PROTECTION_LEN));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        if (o.class_num == RSVP_CLASS_PVT_PROTECTION) exercise_pvt(o);
        Scratch b = scratch_copy(o);
        rsvp_build_protection(b.data());
        rsvp_build_pvt_protection(b.data());
    }
}

void exercise_units(std::span<const Bytes> units) {
    Found f;
    for (const Bytes &u : units)
        subobject(
            claimed_copy(u, RSVP_PVT_PROTECTION_SUBOBJ_HDR_LEN, RSVP_PVT_PROTECTION_SNC_LEN).data(),
            f);
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(12 + 40, 0);
    rsvp_build_protection(run.data());
    RSVP_PROTECTION_SET_LSP_FLAGS(run.data(), RSVP_PROTECTION_LSP_1_1_BIDIR);
    RSVP_PROTECTION_SET_S(run.data(), 1);
    uint8_t *pvt = run.data() + 12;
    rsvp_build_pvt_protection(pvt);
    RSVP_PVT_PROTECTION_SET_R(pvt, 1);
    rsvp_add_pvt_protection_wtr(pvt, 300);
    rsvp_add_pvt_protection_hoff(pvt, 100);
    rsvp_add_pvt_protection_snc(pvt, 2, 5);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
