// RSVP_HOP: accessors and the IPv4 extractor on every valid hop; for IF_ID hops the TLV walk,
// the TLV extractors, the lookups and the add functions. The walk deliberately examines a
// candidate at the object end and may extract a last TLV that runs past it, so those calls
// get a TLV's worth of slack behind the object. The TLV functions also take every unit of the
// pool, as far as its length field claims (at most the longest TLV).
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr size_t kWalkSlack = RSVP_HOP_IF_ID_TLV_INDEX_LEN;

void exercise_tlv(uint8_t *tlv) {
    uint32_t addr = 0, if_id = 0;
    keep(rsvp_valid_hop_if_id_subobject(tlv));
    keep(RSVP_HOP_SUBOBJ_GENERIC_TYPE(tlv) + RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv));
    keep(rsvp_extract_ipv4_subobj(tlv, &addr) + rsvp_extract_ipv4_fwd_rev_intf_subobj(tlv, &addr));
    keep(rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &addr, &if_id));
    keep(addr + if_id);
}

void exercise_tlvs(const Object &o) {
    Scratch s = scratch_copy(o, kWalkSlack);
    uint8_t *obj = s.data();
    uint32_t tiled = RSVP_HOP_IF_ID_TLV_OFFSET;
    // Unlike the route walks, a candidate at the very end goes on to the TLV validator.
    auto step = [obj, length = o.length](uint8_t *tlv) -> uint8_t * {
        uint8_t *next = tlv + RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv);
        if (next - obj > length || !rsvp_valid_hop_if_id_subobject(next)) return nullptr;
        return next;
    };
    walk_units(obj, rsvp_extract_hop_if_id_next_subobj, step, [&](uint8_t *tlv) {
        exercise_tlv(tlv);
        share_unit(tlv, RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv), obj + s.size);
        // A TLV the walk finds in the slack behind the end is not the object's own.
        if (tlv < obj + o.length) tiled += RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv);
    });
    uint32_t addr = 0, if_id = 0;
    rsvp_hop_if_id_tlv_info info{};
    keep(rsvp_get_gmpls_hop_if_index_tlv(obj, &addr, &if_id) +
         rsvp_get_hop_if_id_ipv4_tlv(obj, &addr));
    keep(rsvp_get_gmpls_hop_if_id_tlv(obj, &info));
    keep(addr + if_id + info.kind + info.address + info.if_id);

    // The add functions assert that the TLVs end exactly at the object Length, counting their
    // bytes in a signed 16-bit number (a hop of 32780 bytes or more never meets it): a caller
    // precondition, so only objects that meet it before each add are handed to them.
    constexpr size_t kGrowth = 4 * RSVP_HOP_IF_ID_TLV_INDEX_LEN + RSVP_HOP_IF_ID_TLV_IPV4_LEN;
    if (tiled != o.length || o.length + kGrowth - RSVP_HOP_IF_ID_TLV_OFFSET > INT16_MAX) return;
    Scratch grow = scratch_copy(o, kGrowth);
    uint8_t *g = grow.data();
    const uint32_t w0 = body_word(o, 0), w1 = body_word(o, 1), w2 = body_word(o, 2);
    const int added = rsvp_add_ipv4_intf(g, w0) + rsvp_add_ipv4_fwd_intf(g, w1) +
                      rsvp_add_index_fwd_intf(g, w0, w1) + rsvp_add_index_rev_intf(g, w1, w2) +
                      rsvp_add_index_fwd_rev_intf(g, w2, w0);
    // Whatever was added keeps the object valid.
    if (added && !rsvp_valid_hop_if_id(g)) std::abort();
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.verdict == RSVP_OBJECT_VALID) {
            // The getters and setters act on any valid object, past a short one too.
            Reach r = reach(o);
            keep(RSVP_HOP_NEIGHBOR(r.obj) + RSVP_HOP_IPV4_NEIGHBOR(r.obj) +
                 RSVP_HOP_IF_ID_NEIGHBOR(r.obj) + RSVP_HOP_LIF_HANDLE(r.obj) +
                 RSVP_HOP_IPV4_LIF_HANDLE(r.obj) + RSVP_HOP_IF_ID_LIF_HANDLE(r.obj));
            if (r.copied()) {
                RSVP_HOP_SET_NEIGHBOR(r.obj, 1);
                RSVP_HOP_IF_ID_SET_LIF_HANDLE(r.obj, 1);
            }
        }
        if (o.class_num != RSVP_CLASS_RSVP_HOP) continue;
        keep(rsvp_valid_hop(o.obj) + rsvp_valid_hop_ipv4(o.obj) + rsvp_valid_hop_if_id(o.obj));
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        uint32_t neighbor = 0, lih = 0;
        keep(rsvp_extract_hop_ipv4(o.obj, &neighbor, &lih));
        keep(neighbor + lih);
        keep(RSVP_HOP_IF_ID_SUBOBJ_PTR(o.obj));
        // Room for the setters behind an IF_ID hop below 12 bytes.
        Scratch s = scratch_copy(o, RSVP_HOP_IPV4_LEN);
        RSVP_HOP_SET_NEIGHBOR(s.data(), neighbor);
        RSVP_HOP_IPV4_SET_NEIGHBOR(s.data(), neighbor);
        RSVP_HOP_SET_LIF_HANDLE(s.data(), lih);
        RSVP_HOP_IPV4_SET_LIF_HANDLE(s.data(), lih);
        RSVP_HOP_IF_ID_SET_LIF_HANDLE(s.data(), lih);
        RSVP_HOP_IF_ID_SET_NEIGHBOR(s.data(), neighbor);
        if (o.c_type == RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4) exercise_tlvs(o);
    }
}

void exercise_units(std::span<const Bytes> units) {
    for (const Bytes &u : units)
        exercise_tlv(
            claimed_copy(u, RSVP_HOP_IF_ID_TLV_HDR_LEN, RSVP_HOP_IF_ID_TLV_INDEX_LEN).data());
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(12 + 12 + 12 + 8 + 3 * 12, 0);
    uint8_t *p = run.data();
    rsvp_build_hop_ipv4(p, 0x010c000a, 7);
    rsvp_build_hop_if_id(p + 12, 0x010c000a, 0);
    uint8_t *full = rsvp_build_hop_if_id(p + 24, 0x020c000a, 9);
    rsvp_add_ipv4_intf(full, 0x020c000a);
    rsvp_add_index_fwd_rev_intf(full, 0x020c000a, 7);
    rsvp_add_index_fwd_intf(full, 0x020c000a, 8);
    rsvp_add_index_rev_intf(full, 0x020c000a, 9);
    out.push_back(run);

    // An IF_ID hop as long as a message allows. The adds take one TLV of each type, so the
    // TLVs they wrote are repeated (the validator accepts repeats).
    Bytes large(kLargeObjectLen, 0);
    uint8_t *hop = rsvp_build_hop_if_id(large.data(), 0x030c000a, 3);
    rsvp_add_ipv4_intf(hop, 0x030c000a);
    rsvp_add_index_fwd_rev_intf(hop, 0x030c000a, 1);
    rsvp_add_index_fwd_intf(hop, 0x030c000a, 2);
    rsvp_add_index_rev_intf(hop, 0x030c000a, 3);
    const size_t tlvs_len = RSVP_OBJECT_LENGTH(hop) - RSVP_HOP_IF_ID_TLV_OFFSET;
    size_t length = RSVP_OBJECT_LENGTH(hop);
    for (; length + tlvs_len <= kLargeObjectLen; length += tlvs_len)
        std::memcpy(hop + length, hop + RSVP_HOP_IF_ID_TLV_OFFSET, tlvs_len);
    RSVP_SET_OBJECT_LENGTH(hop, static_cast<uint16_t>(length));
    large.resize(length);
    out.push_back(large);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
