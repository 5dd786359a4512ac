// RSVP_HOP: accessors and the IPv4 extractor on every valid hop; for IF_ID hops the TLV walk,
// the TLV extractors, the lookups and the add functions. The walk deliberately examines a
// candidate at the object end and may extract a last TLV that runs past it, so those calls
// get a TLV's worth of zeroed slack behind the object.
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr size_t kWalkSlack = RSVP_HOP_IF_ID_TLV_INDEX_LEN;

void exercise_tlvs(const Object &o) {
    Scratch s = scratch_copy(o, kWalkSlack);
    uint8_t *obj = s.data();
    uint32_t tiled = RSVP_HOP_IF_ID_TLV_OFFSET;
    for (uint8_t *tlv = rsvp_extract_hop_if_id_next_subobj(obj, nullptr); tlv;
         tlv = rsvp_extract_hop_if_id_next_subobj(obj, tlv)) {
        uint32_t addr = 0, if_id = 0;
        keep(rsvp_valid_hop_if_id_subobject(tlv));
        keep(RSVP_HOP_SUBOBJ_GENERIC_TYPE(tlv) + RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv));
        keep(rsvp_extract_ipv4_subobj(tlv, &addr) +
             rsvp_extract_ipv4_fwd_rev_intf_subobj(tlv, &addr));
        keep(rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &addr, &if_id));
        keep(addr + if_id);
        tiled += RSVP_HOP_SUBOBJ_GENERIC_LENGTH(tlv);
    }
    uint32_t addr = 0, if_id = 0;
    rsvp_hop_if_id_tlv_info info{};
    keep(rsvp_get_gmpls_hop_if_index_tlv(obj, &addr, &if_id) +
         rsvp_get_hop_if_id_ipv4_tlv(obj, &addr));
    keep(rsvp_get_gmpls_hop_if_id_tlv(obj, &info));
    keep(addr + if_id + info.kind + info.address + info.if_id);

    // The add functions assert that the TLVs end exactly at the object Length: a caller
    // precondition, so only objects that meet it are handed to them.
    if (tiled != o.length) return;
    Scratch grow = scratch_copy(o, 4 * RSVP_HOP_IF_ID_TLV_INDEX_LEN + RSVP_HOP_IF_ID_TLV_IPV4_LEN);
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
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
