// EXCLUDE_ROUTE: the validator, walker, count and accessors on every class-232 object; the
// extractors on the subobjects of those that validate, each on its own type (the extractors
// trust that their caller checked it); the four appends on scratch copies with room. Every unit
// of the pool goes to the accessors, and to each extractor in a copy of that extractor's
// subobject length (they read their fixed fields unchecked).
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void extract(uint8_t *sub, uint8_t type) {
    uint8_t l_bit = 0, attr = 0, prefix_len = 0, flags = 0;
    uint32_t a = 0, b = 0, c = 0;
    uint16_t tunnel_id = 0, lsp_id = 0;
    switch (type) {
        case RSVP_XRO_SUBOBJ_IPV4_PREFIX:
            keep(rsvp_extract_xro_ipv4_subobj(sub, &l_bit, &a, &prefix_len, &attr));
            break;
        case RSVP_XRO_SUBOBJ_UNNUM:
            keep(rsvp_extract_xro_unnum_ifid_subobj(sub, &l_bit, &attr, &a, &b));
            break;
        case RSVP_XRO_SUBOBJ_SRLG:
            keep(rsvp_extract_xro_srlg_subobj(sub, &l_bit, &a));
            break;
        case RSVP_XRO_SUBOBJ_LSP:
            keep(rsvp_extract_xro_lsp_subobj(sub, &l_bit, &attr, &flags, &tunnel_id, &lsp_id, &a,
                                             &b, &c));
            keep(rsvp_extract_xro_lsp_subobj(sub, nullptr, nullptr, nullptr, nullptr, nullptr,
                                             nullptr, nullptr, nullptr));
            break;
    }
    keep(l_bit + attr + prefix_len + flags + a + b + c + tunnel_id + lsp_id);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num != RSVP_CLASS_EXCLUDE_ROUTE) continue;
        uint8_t *obj = o.obj;
        const int valid = rsvp_valid_xro(obj);
        keep(rsvp_xro_subobj_count(obj));
        // The walker answers a subobject of length 0 with itself, so a caller's walk over an
        // unchecked object ends there; a valid object has none.
        for (uint8_t *prev = nullptr, *sub = rsvp_get_xro_next_sub_hdr(obj, nullptr);
             sub && sub != prev; prev = sub, sub = rsvp_get_xro_next_sub_hdr(obj, sub)) {
            keep(RSVP_XRO_SUB_LEN(sub) + RSVP_XRO_SUB_LBIT(sub) + RSVP_XRO_SUB_TYPE(sub));
            if (valid) extract(sub, RSVP_XRO_SUB_TYPE(sub));
            share_unit(sub, RSVP_XRO_SUB_LEN(sub), obj + o.length);
        }
        // Arguments from the object's own words.
        const uint32_t w0 = body_word(o, 0), w1 = body_word(o, 1), w2 = body_word(o, 2);
        const auto b0 = static_cast<uint8_t>(w0), b1 = static_cast<uint8_t>(w1);
        Scratch s = scratch_copy(o, RSVP_XRO_SUBOBJ_LSP_LEN);
        keep(rsvp_add_xro_ipv4_subobj(s.data(), b0 & 1, w1, b0, b1));
        Scratch u = scratch_copy(o, RSVP_XRO_SUBOBJ_LSP_LEN);
        keep(rsvp_add_xro_unnum_ifid_subobj(u.data(), b1 & 1, b0, w1, w2));
        Scratch g = scratch_copy(o, RSVP_XRO_SUBOBJ_LSP_LEN);
        keep(rsvp_add_xro_srlg_subobj(g.data(), b0 & 1, w2));
        Scratch l = scratch_copy(o, RSVP_XRO_SUBOBJ_LSP_LEN);
        keep(rsvp_add_xro_lsp_subobj(l.data(), b1 & 1, b0, b1, static_cast<uint16_t>(w0),
                                     static_cast<uint16_t>(w1), w0, w1, w2));
        keep(rsvp_valid_xro(l.data()));
    }
}

void exercise_units(std::span<const Bytes> units) {
    constexpr std::pair<uint8_t, size_t> kKinds[] = {
        {RSVP_XRO_SUBOBJ_IPV4_PREFIX, RSVP_XRO_SUBOBJ_IPV4_PREFIX_LEN},
        {RSVP_XRO_SUBOBJ_UNNUM, RSVP_XRO_SUBOBJ_UNNUM_LEN},
        {RSVP_XRO_SUBOBJ_SRLG, RSVP_XRO_SUBOBJ_SRLG_LEN},
        {RSVP_XRO_SUBOBJ_LSP, RSVP_XRO_SUBOBJ_LSP_LEN}};
    for (const Bytes &u : units) {
        Scratch h = unit_copy(u, RSVP_ROUTE_SUBOBJ_HDR_LEN);
        keep(RSVP_XRO_SUB_LEN(h.data()) + RSVP_XRO_SUB_LBIT(h.data()) +
             RSVP_XRO_SUB_TYPE(h.data()));
        for (const auto &[type, len] : kKinds)
            extract(unit_copy(u, len).data(), type);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes b(64, 0);
    uint8_t *xro = b.data();
    rsvp_build_xro(xro);
    rsvp_add_xro_ipv4_subobj(xro, 0, 0x0317000a, 32, 0);
    rsvp_add_xro_unnum_ifid_subobj(xro, 1, 1, 0x0500000a, 3);
    rsvp_add_xro_srlg_subobj(xro, 0, 300);
    rsvp_add_xro_lsp_subobj(xro, 1, 0, 0, 2, 4, 0x0100000a, 0x0700000a, 0x0100000a);
    b.resize(RSVP_OBJECT_LENGTH(xro));
    out.push_back(b);
    Bytes empty(RSVP_OBJ_HDR_LEN, 0);
    rsvp_build_xro(empty.data());
    out.push_back(empty);

    // A list as long as a message allows, of every kind in turn.
    constexpr size_t kKindsLen = RSVP_XRO_SUBOBJ_IPV4_PREFIX_LEN + RSVP_XRO_SUBOBJ_UNNUM_LEN +
                                 RSVP_XRO_SUBOBJ_SRLG_LEN + RSVP_XRO_SUBOBJ_LSP_LEN;
    Bytes large(kLargeObjectLen, 0);
    uint8_t *list = large.data();
    rsvp_build_xro(list);
    for (uint32_t i = 0; RSVP_OBJECT_LENGTH(list) + kKindsLen <= kLargeObjectLen; ++i) {
        const auto l_bit = static_cast<uint8_t>(i & 1), attr = static_cast<uint8_t>(i % 3);
        rsvp_add_xro_ipv4_subobj(list, l_bit, 0x0000000a | i << 8, 24, attr);
        rsvp_add_xro_unnum_ifid_subobj(list, l_bit, attr, 0x0500000a, i);
        rsvp_add_xro_srlg_subobj(list, l_bit, i);
        rsvp_add_xro_lsp_subobj(list, l_bit, attr, 0, static_cast<uint16_t>(i),
                                static_cast<uint16_t>(i >> 16), 0x0100000a, 0x0700000a, i);
    }
    large.resize(RSVP_OBJECT_LENGTH(list));
    out.push_back(large);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
