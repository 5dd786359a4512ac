// GENERALIZED_UNI: the subobject pointer and accessors on every valid object of any class
// (within the 12 bytes `reach` gives); on class-208 objects the validator, the walk with each
// subobject's accessors and extractors, and the two TNA appends where the object meets their
// precondition (subobjects that end exactly at the Length), and on a freshly built object. The
// subobject functions also take every unit of the pool, in a copy of a TNA's length (the
// address accessors read the word at 4 of any valid subobject).
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

// The walker examines a candidate at the object end (a header read behind it), and the address
// accessors read the word behind a 4-byte subobject that ends there: 8 bytes of room.
constexpr size_t kWalkSlack = RSVP_GUA_TNA_IPV4_LEN;

void subobject(uint8_t *sub) {
    uint32_t src = 0, dst = 0;
    keep(rsvp_valid_gen_uni_attr_subobject(sub) + RSVP_SUB_GUA_LENGTH(sub) +
         RSVP_SUB_GUA_TYPE(sub));
    keep(RSVP_SUB_GUA_SRC_IPV4_ADDR(sub) + RSVP_SUB_GUA_DST_IPV4_ADDR(sub));
    keep(rsvp_extract_src_tna_ipv4_subobj(sub, &src) + rsvp_extract_dst_tna_ipv4_subobj(sub, &dst));
    keep(src + dst);
}

// The append functions' own walk, without their assertion: do the Lengths tile the object?
bool tiles(const uint8_t *obj, uint16_t length) {
    size_t pos = RSVP_OBJ_HDR_LEN;
    while (pos < length) {
        if (length - pos < RSVP_GUA_SUBOBJ_HDR_LEN) return false;
        const uint16_t sub_len = RSVP_OBJECT_LENGTH(const_cast<uint8_t *>(obj + pos));
        if (sub_len == 0) return false;
        pos += sub_len;
    }
    return pos == length;
}

void exercise_one(const Object &o) {
    // A fresh object takes one TNA of each kind and stays valid.
    uint8_t fresh[RSVP_OBJ_HDR_LEN + 2 * RSVP_GUA_TNA_IPV4_LEN];
    rsvp_build_gen_uni_attr(fresh);
    if (rsvp_add_src_tna_ipv4(fresh, o.length) + rsvp_add_dst_tna_ipv4(fresh, o.c_type) != 2 ||
        !rsvp_valid_gen_uni_attr(fresh))
        std::abort();
    Scratch s = scratch_copy(o, kWalkSlack);
    uint8_t *obj = s.data();
    const int valid = rsvp_valid_gen_uni_attr(obj);
    for (uint8_t *sub = rsvp_extract_gen_uni_attr_next_subobj(obj, nullptr); sub;
         sub = rsvp_extract_gen_uni_attr_next_subobj(obj, sub)) {
        subobject(sub);
        share_unit(sub, RSVP_SUB_GUA_LENGTH(sub), obj + s.size);
    }
    if (!tiles(o.obj, o.length)) return;
    // The addresses come from the object's first bytes (its header: always there).
    uint32_t address;
    std::memcpy(&address, o.obj, sizeof address);
    Scratch g = scratch_copy(o, 2 * RSVP_GUA_TNA_IPV4_LEN);
    const int added =
        rsvp_add_src_tna_ipv4(g.data(), address) + rsvp_add_dst_tna_ipv4(g.data(), ~address);
    // An appended TNA keeps a valid object valid.
    if (valid && added && !rsvp_valid_gen_uni_attr(g.data())) std::abort();
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.verdict == RSVP_OBJECT_VALID) {
            Reach r = reach(o);
            if (uint8_t *sub = RSVP_SUB_GUA_SUBOBJ_PTR(r.obj)) subobject(sub);
        }
        if (o.class_num == RSVP_CLASS_GENERALIZED_UNI) exercise_one(o);
    }
}

void exercise_units(std::span<const Bytes> units) {
    for (const Bytes &u : units)
        subobject(unit_copy(u, RSVP_GUA_TNA_IPV4_LEN).data());
}

void seeds(std::vector<Bytes> &out) {
    Bytes b(40, 0);
    rsvp_build_gen_uni_attr(b.data());
    rsvp_add_src_tna_ipv4(b.data(), 0x010200c0);
    rsvp_add_dst_tna_ipv4(b.data(), 0x026433c6);
    const Bytes service_level = {
        0x00, 0x08, RSVP_GUA_SUBOBJ_SERVICE_LEVEL, RSVP_GUA_SUBTYPE_IPV4, 0, 0, 0, 5};
    std::copy(service_level.begin(), service_level.end(), b.begin() + 20);
    RSVP_SET_OBJECT_LENGTH(b.data(), 28);
    b.resize(28);
    out.push_back(b);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
