// LSP_ATTRIBUTES, DIFFSERV and CLASSTYPE. The flags extractor takes any TLV and the class-type
// getter any object, reading a fixed distance in; the DIFFSERV readers trust MAPnb. So each of
// these is called only where the Length covers what it reads, as a caller must. The add goes
// only to objects the validator accepts, and must leave them valid. The TLV functions also take
// every unit of the pool, in a copy of the flags TLV's length (the extractor reads its word
// unchecked).
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr uint16_t kWordEnd = 8;  // the word at offset 4: MAPnb, PSC or class type

void exercise_attributes(const Object &o) {
    uint32_t flags = 0;
    if (o.length > RSVP_OBJ_HDR_LEN) {  // the walk's first answer lies behind an empty object
        for (uint8_t *tlv = rsvp_get_lsp_attr_next_tlv(o.obj, nullptr); tlv;
             tlv = rsvp_get_lsp_attr_next_tlv(o.obj, tlv)) {
            keep(RSVP_LSP_ATTR_TLV_TYPE(tlv));
            share_unit(tlv, RSVP_LSP_ATTR_TLV_LEN(tlv), o.obj + o.length);
            if (RSVP_LSP_ATTR_TLV_LEN(tlv) >= RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN)
                keep(rsvp_extract_lsp_attr_attribute_flags_tlv(tlv, &flags));
        }
    }
    Scratch s = scratch_copy(o, RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN);
    if (rsvp_add_lsp_attr_attribute_flags_tlv(s.data(), flags) &&
        !rsvp_valid_lsp_attributes(s.data()))
        std::abort();
    Scratch b = scratch_copy(o);
    rsvp_build_lsp_attributes(b.data(), o.class_num == RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES);
}

void exercise_diffserv(const Object &o) {
    if (o.length < kWordEnd) return;
    keep(rsvp_diffserv_length(o.obj, RSVP_CTYPE_DIFFSERV_E_LSP) +
         rsvp_diffserv_length(o.obj, o.c_type));
    uint16_t psc = 0;
    keep(rsvp_extract_diffserv_l_lsp(o.obj, &psc) + psc);
    uint8_t count = 0;
    uint32_t entries[RSVP_DIFFSERV_MAX_MAP_ENTRIES];
    if (o.verdict == RSVP_OBJECT_VALID && o.c_type == RSVP_CTYPE_DIFFSERV_E_LSP) {
        keep(rsvp_extract_diffserv_e_lsp(o.obj, &count, entries));
        keep(entries[0] + count);
    }
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        // The entry getters take any index: a caller keeps each entry inside the Length.
        for (unsigned i = 0;
             RSVP_DIFFSERV_HDR_LEN + (i + 1) * RSVP_DIFFSERV_MAP_ENTRY_LEN <= o.length; ++i)
            keep(rsvp_diffserv_get_exp(o.obj, uint8_t(i)) +
                 rsvp_diffserv_get_phbid(o.obj, uint8_t(i)));
        // The readers that take whatever they are given, on every object that holds their word.
        uint16_t psc = 0;
        if (o.length >= kWordEnd)
            keep(rsvp_get_class_type(o.obj) + rsvp_extract_diffserv_l_lsp(o.obj, &psc) + psc +
                 RSVP_LSP_ATTR_TLV_TYPE(o.obj) + RSVP_LSP_ATTR_TLV_LEN(o.obj));
        switch (o.class_num) {
            case RSVP_CLASS_LSP_ATTRIBUTES:
            case RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES:
                keep(rsvp_valid_lsp_attributes(o.obj));
                if (o.verdict == RSVP_OBJECT_VALID) exercise_attributes(o);
                break;
            case RSVP_CLASS_DIFFSERV:
                keep(rsvp_valid_diffserv(o.obj));
                exercise_diffserv(o);
                break;
            case RSVP_CLASS_CLASSTYPE: {
                keep(rsvp_valid_class_type(o.obj));
                if (o.length < kWordEnd) break;
                keep(rsvp_get_class_type(o.obj));
                Scratch b = scratch_copy(o);
                rsvp_build_class_type(b.data(), o.obj[kWordEnd - 1]);
                break;
            }
            default:
                break;
        }
    }
}

void exercise_units(std::span<const Bytes> units) {
    for (const Bytes &u : units) {
        Scratch t = unit_copy(u, RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN);
        uint32_t flags = 0;
        keep(RSVP_LSP_ATTR_TLV_TYPE(t.data()) + RSVP_LSP_ATTR_TLV_LEN(t.data()) +
             rsvp_extract_lsp_attr_attribute_flags_tlv(t.data(), &flags) + flags);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(12 + 4 + 8 + 16 + 8, 0);
    uint8_t *p = run.data();
    rsvp_build_lsp_attributes(p, 1);
    rsvp_add_lsp_attr_attribute_flags_tlv(p, RSVP_LSP_ATTR_FLAG_CONTIGUOUS_LSP);
    rsvp_build_lsp_attributes(p + 12, 0);
    rsvp_build_class_type(p + 16, 1);
    const uint8_t e_lsp[] = {0x00,
                             0x10,
                             RSVP_CLASS_DIFFSERV,
                             RSVP_CTYPE_DIFFSERV_E_LSP,
                             0x20,
                             0,
                             0,
                             0,
                             0,
                             0x2e,
                             0,
                             0,
                             0,
                             0x0a,
                             0xa0,
                             0};
    const uint8_t l_lsp[] = {0x00, 0x08, RSVP_CLASS_DIFFSERV, RSVP_CTYPE_DIFFSERV_L_LSP, 0, 0x28,
                             0,    0};
    std::memcpy(p + 24, e_lsp, sizeof e_lsp);
    std::memcpy(p + 40, l_lsp, sizeof l_lsp);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
