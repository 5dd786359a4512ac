// EXPLICIT_ROUTE: the validator on every class-20 object; on those that validate the walk,
// the counts, every extractor and accessor on each hop, the subobject comparison on pairs of
// hops, and both appends and the setters on scratch copies. The hop functions also take every
// unit of the pool, as far as its length byte claims (the comparison reads that far unchecked).
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

// A valid route may end in a subobject that runs past the object end, by at most the longest
// subobject (IPv6, 20 bytes) less the two header bytes that must lie inside. Reads of that
// subobject go there, and an append lands behind it.
constexpr size_t kOverrun = RSVP_ERO_SUBOBJ_IPV6_PREFIX_LEN;
constexpr size_t kAppendRoom = kOverrun + RSVP_ERO_SUBOBJ_UNNUM_LEN;
constexpr size_t kHopPairLen = RSVP_ERO_SUBOBJ_IPV4_PREFIX_LEN + RSVP_ERO_SUBOBJ_UNNUM_LEN;

void exercise_hop(uint8_t *sub, uint8_t *prev) {
    uint32_t addr = 0, if_id = 0;
    uint8_t prefix_len = 0;
    uint16_t as = 0;
    keep(rsvp_valid_explicit_route_subobject(sub));
    keep(rsvp_extract_ero_subobject_ipv4(sub, &addr, &prefix_len));
    keep(rsvp_extract_ero_subobject_unnum(sub, &addr, &if_id));
    keep(rsvp_extract_ero_subobject_as(sub, &as));
    keep(addr + if_id + prefix_len + as);
    keep(RSVP_ERO_GENERIC_TYPE(sub) + RSVP_ERO_GENERIC_LENGTH(sub));
    keep(rsvp_compare_explicit_route_subobjects(sub, sub));
    if (prev)
        keep(rsvp_compare_explicit_route_subobjects(prev, sub) +
             rsvp_compare_explicit_route_subobjects(sub, prev));
}

void exercise_valid(const Object &o) {
    Scratch s = scratch_copy(o, kOverrun);
    uint8_t *obj = s.data();
    keep(RSVP_ERO_FIRST_SUBOBJ(obj));
    keep(rsvp_count_ero_subobject_ipv4(obj) + rsvp_count_ero_subobject_unnum(obj));
    uint8_t *prev = nullptr;
    auto step = [obj, length = o.length](uint8_t *sub) -> uint8_t * {
        uint8_t *next = sub + RSVP_ERO_GENERIC_LENGTH(sub);
        if (next - obj >= length || !rsvp_valid_explicit_route_subobject(next)) return nullptr;
        return next;
    };
    walk_units(obj, rsvp_extract_ero_next_subobject, step, [&](uint8_t *sub) {
        exercise_hop(sub, prev);
        share_unit(sub, sub[1], obj + s.size);
        prev = sub;
    });
    if (prev) {
        RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(prev, 0x0100000a);
        RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(prev, 24);
    }

    // Arguments from the object's own words.
    const uint32_t w0 = body_word(o, 0), w1 = body_word(o, 1);
    const auto b0 = static_cast<uint8_t>(w0);
    Scratch v4 = scratch_copy(o, kAppendRoom);
    keep(rsvp_add_explicit_route_ipv4(v4.data(), b0 & 1, w1, b0));
    Scratch un = scratch_copy(o, kAppendRoom);
    keep(rsvp_add_explicit_route_unnum(un.data(), 0, w0, w1));
    keep(rsvp_add_explicit_route_unnum(un.data(), 1, w1, w0));
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num != RSVP_CLASS_EXPLICIT_ROUTE) continue;
        if (rsvp_valid_explicit_route(o.obj)) exercise_valid(o);
        keep(rsvp_count_ero_subobject_ipv4(o.obj));
    }
}

// Each unit, and each with the one before it.
void exercise_units(std::span<const Bytes> units) {
    Scratch prev{};
    for (const Bytes &u : units) {
        Scratch s = claimed_copy(u, RSVP_ROUTE_SUBOBJ_HDR_LEN, UINT8_MAX);
        exercise_hop(s.data(), prev.data());
        prev = std::move(s);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes b(96, 0);
    uint8_t *ero = b.data();
    rsvp_build_explicit_route(ero);
    rsvp_add_explicit_route_ipv4(ero, 0, 0x020c000a, 32);
    rsvp_add_explicit_route_ipv4(ero, 1, 0x0000020a, 16);
    rsvp_add_explicit_route_unnum(ero, 0, 0x0300000a, 5);
    rsvp_add_explicit_route_unnum(ero, 1, 0x0900000a, 256);
    rsvp_add_explicit_route_ipv4(ero, 0, 0x0300000a, 32);
    // No builder writes an AS hop: loose AS 65001 by hand.
    const uint16_t length = RSVP_OBJECT_LENGTH(ero);
    const uint8_t as_hop[] = {RSVP_ERO_L_BIT | RSVP_ERO_SUBOBJ_AS, RSVP_ERO_SUBOBJ_AS_LEN, 0xfd,
                              0xe9};
    std::memcpy(ero + length, as_hop, sizeof as_hop);
    RSVP_SET_OBJECT_LENGTH(ero, static_cast<uint16_t>(length + sizeof as_hop));
    b.resize(RSVP_OBJECT_LENGTH(ero));
    out.push_back(b);
    // An empty route in front of the same route.
    Bytes run(RSVP_OBJ_HDR_LEN, 0);
    rsvp_build_explicit_route(run.data());
    run.insert(run.end(), b.begin(), b.end());
    out.push_back(run);
    // A route as long as a message allows: strict and loose IPv4 and unnumbered hops, each
    // unnumbered hop to a new interface (a repeated one is refused).
    Bytes large(kLargeObjectLen, 0);
    uint8_t *route = large.data();
    rsvp_build_explicit_route(route);
    for (uint32_t i = 0; RSVP_OBJECT_LENGTH(route) + kHopPairLen <= kLargeObjectLen; ++i) {
        rsvp_add_explicit_route_ipv4(route, i & 1, 0x0000000a | i << 8, 16 + i % 17);
        rsvp_add_explicit_route_unnum(route, ~i & 1, 0x0100000a, i);
    }
    large.resize(RSVP_OBJECT_LENGTH(route));
    out.push_back(large);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
