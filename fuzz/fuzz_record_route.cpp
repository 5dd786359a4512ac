// RECORD_ROUTE: the validator and the flag searches on every class-21 object (the searches do
// not validate); the walk, counts, accessors and extractors on the objects that validate;
// and the four front inserts on scratch copies with room for the new subobject, checking
// that a valid route stays valid and leads with what was inserted. The subobject functions also
// take every unit of the pool, as far as its length byte claims.
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr size_t kValueLen = 4;
constexpr unsigned kMaxObjectLength = 0xFFFF;
// The SRLG insert moves by the low 8 bits of the Length: longer routes come out broken.
constexpr unsigned kSrlgMovesUpTo = 0xFF;
// The flag searches read a last hop whole: an IPv4 flags byte up to 7 bytes behind the end.
constexpr size_t kFlagReach = RSVP_RRO_IPV4_LEN - 1;

void exercise_subobject(uint8_t *sub) {
    uint32_t a = 0, b = 0, values[RSVP_RRO_MAX_VALUES], *values_ptr = values;
    uint8_t n = 0, f = 0, t = 0;
    keep(valid_record_route_subobject(sub) + RSVP_RRO_GENERIC_TYPE(sub) +
         RSVP_RRO_GENERIC_LENGTH(sub));
    keep(rsvp_extract_rro_subobject_ipv4(sub, &a, &n, &f));
    keep(rsvp_extract_rro_subobject_unnum(sub, &a, &b, &f));
    keep(rsvp_extract_rro_subobject_label_count(sub) + rsvp_extract_rro_subobject_srlg_count(sub));
    keep(rsvp_extract_rro_subobject_label(sub, &values_ptr, &n, &f, &t));
    keep(rsvp_extract_rro_subobject_srlg(sub, values, &n));
    keep(a + b + n + f + t);
}

// Inserts one subobject of each kind into copies of a valid route. Up to 62 values and while
// the Length fits in 16 bits (and, for SRLG, in 8 bits) the result must validate again.
void exercise_inserts(const Object &o) {
    const uint32_t values[RSVP_RRO_MAX_VALUES] = {1, 2, 3};
    const unsigned count = o.length > 5 ? o.obj[5] % (RSVP_RRO_MAX_VALUES + 1) : 1;
    const size_t values_len = RSVP_RRO_LABEL_HDR_LEN + kValueLen * count;
    auto check = [&](Scratch &s, uint8_t *result, size_t added, bool must_stay_valid) {
        if (result != s.data()) std::abort();
        if (must_stay_valid && o.length + added <= kMaxObjectLength &&
            !rsvp_valid_record_route(s.data()))
            std::abort();
        keep(rsvp_rro_check_ipv4_flags(s.data(), 1) + rsvp_rro_check_unnum_flags(s.data(), 1));
    };
    Scratch a = scratch_copy(o, RSVP_RRO_IPV4_LEN + kFlagReach);
    check(a, rsvp_insert_record_route_ipv4(a.data(), body_word(o, 0), 1), RSVP_RRO_IPV4_LEN, true);
    Scratch b = scratch_copy(o, RSVP_RRO_UNNUM_LEN + kFlagReach);
    check(b, rsvp_insert_record_route_unnum(b.data(), body_word(o, 0), body_word(o, 1), 2),
          RSVP_RRO_UNNUM_LEN, true);
    if (count > 0) {
        Scratch c = scratch_copy(o, values_len + kFlagReach);
        check(c, rsvp_insert_record_route_label(c.data(), values, count, 2, 1), values_len, true);
    }
    Scratch d = scratch_copy(o, values_len + kFlagReach);
    check(d, rsvp_insert_record_route_srlg(d.data(), count % 2 ? values : nullptr, count),
          values_len, o.length <= kSrlgMovesUpTo);
    if (rsvp_insert_record_route_srlg(d.data(), values, RSVP_RRO_MAX_VALUES + 1)) std::abort();
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num != RSVP_CLASS_RECORD_ROUTE) continue;
        keep(rsvp_valid_record_route(o.obj));
        // The flag searches take unvalidated objects (zeroed room behind for a last hop).
        Scratch f = scratch_copy(o, kFlagReach);
        for (uint8_t mask : {0x00, 0x01, 0x0a})
            keep(rsvp_rro_check_ipv4_flags(f.data(), mask) +
                 rsvp_rro_check_unnum_flags(f.data(), mask));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        keep(rsvp_count_rro_subobject_ipv4(o.obj) + rsvp_count_rro_subobject_unnum(o.obj));
        auto step = [&o](uint8_t *sub) -> uint8_t * {
            uint8_t *next = sub + RSVP_RRO_GENERIC_LENGTH(sub);
            if (next - o.obj >= o.length || !valid_record_route_subobject(next)) return nullptr;
            return next;
        };
        walk_units(o.obj, rsvp_extract_rro_next_subobject, step, [&o](uint8_t *sub) {
            exercise_subobject(sub);
            share_unit(sub, sub[1], o.obj + o.length);
        });
        exercise_inserts(o);
    }
}

void exercise_units(std::span<const Bytes> units) {
    for (const Bytes &u : units)
        exercise_subobject(claimed_copy(u, RSVP_ROUTE_SUBOBJ_HDR_LEN, UINT8_MAX).data());
}

void seeds(std::vector<Bytes> &out) {
    const uint32_t labels[] = {16, 17}, srlgs[] = {100, 200, 300};
    Bytes run(512, 0);
    uint8_t *p = run.data();
    rsvp_build_record_route(p);
    rsvp_insert_record_route_srlg(p, srlgs, 3);
    rsvp_insert_record_route_label(p, labels, 2, 2, RSVP_RRO_LABEL_FLAG_GLOBAL);
    rsvp_insert_record_route_ipv4(p, 0x0900000a, RSVP_RRO_FLAG_LOCAL_PROT_AVAIL);
    rsvp_insert_record_route_srlg(p, nullptr, 0);
    rsvp_insert_record_route_label(p, labels, 1, 1, 0);
    rsvp_insert_record_route_unnum(p, 0x0500000a, 5, RSVP_RRO_FLAG_NODE_PROT);
    uint8_t *empty = p + RSVP_OBJECT_LENGTH(p);
    rsvp_build_record_route(empty);
    run.resize(RSVP_OBJECT_LENGTH(p) + RSVP_OBJ_HDR_LEN);
    out.push_back(run);

    // 32 hops: a Length of 260, past what the SRLG insert moves correctly.
    Bytes long_route(4 + 32 * RSVP_RRO_IPV4_LEN, 0);
    rsvp_build_record_route(long_route.data());
    for (uint32_t i = 0; i < 32; ++i)
        rsvp_insert_record_route_ipv4(long_route.data(), 0x0000000a | i << 24, i % 16);
    out.push_back(long_route);

    // A route as long as a message allows: IPv4, unnumbered and label hops, newest first.
    constexpr size_t kHopsLen = RSVP_RRO_IPV4_LEN + RSVP_RRO_UNNUM_LEN + RSVP_RRO_LABEL_HDR_LEN +
                                kValueLen * (sizeof labels / sizeof labels[0]);
    Bytes large(kLargeObjectLen, 0);
    uint8_t *route = large.data();
    rsvp_build_record_route(route);
    for (uint32_t i = 0; RSVP_OBJECT_LENGTH(route) + kHopsLen <= kLargeObjectLen; ++i) {
        rsvp_insert_record_route_ipv4(route, 0x0000000a | i << 8, i & 0x0f);
        rsvp_insert_record_route_unnum(route, 0x0100000a, i, i & 0x0f);
        rsvp_insert_record_route_label(route, labels, 2, 2, i & 1);
    }
    large.resize(RSVP_OBJECT_LENGTH(route));
    out.push_back(large);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
