// LSP_ATTRIBUTES and LSP_REQUIRED_ATTRIBUTES (their TLVs, the Attribute Flags by name),
// DIFFSERV (the EXP to PHBID map of an E-LSP, the PSC of an L-LSP) and CLASSTYPE. The library
// reads a flags word and a class type without looking at the length, so the lengths are
// checked here first: a short TLV or object is reported, never read past.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr const char *kAttributeFlagNames[] = {
    "end-to-end re-routing",    "boundary re-routing", "segment-based re-routing",
    "LSP integrity required",   "contiguous LSP",      "LSP stitching desired",
    "pre-planned LSP",          "non-PHP behavior",    "OOB mapping",
    "entropy label capability",
};
constexpr unsigned kNamedFlags = sizeof kAttributeFlagNames / sizeof kAttributeFlagNames[0];
static_assert(1u << (kNamedFlags - 1) == RSVP_LSP_ATTR_FLAG_ENTROPY_LABEL);

void decode_attribute_flags(uint8_t *tlv, rsvpdump::Out &out) {
    if (RSVP_LSP_ATTR_TLV_LEN(tlv) < RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN) {
        out.text("attribute flags missing (TLV too short)");
        return;
    }
    uint32_t flags = 0;
    rsvp_extract_lsp_attr_attribute_flags_tlv(tlv, &flags);
    out.text("attribute flags ").hex("attribute_flags", flags, 8);
    out.open_list("flag_names");
    bool first = true;
    for (unsigned n = 0; n < 32; ++n) {
        if (!(flags >> n & 1u)) continue;
        out.open_item().text(first ? " (" : ", ");
        if (n < kNamedFlags)
            out.str("name", kAttributeFlagNames[n]);
        else
            out.text("flag ").u("flag", n);
        out.close();
        first = false;
    }
    out.close().text(first ? "" : ")");
}

void decode_lsp_attributes(uint8_t *obj, rsvpdump::Out &out) {
    if (RSVP_OBJECT_LENGTH(obj) <= RSVP_OBJ_HDR_LEN) {  // the walk's first TLV would be behind it
        out.line().text("no TLVs");
        return;
    }
    out.open_list("tlvs");
    for (uint8_t *tlv = rsvp_get_lsp_attr_next_tlv(obj, nullptr); tlv;
         tlv = rsvp_get_lsp_attr_next_tlv(obj, tlv)) {
        const uint16_t type = RSVP_LSP_ATTR_TLV_TYPE(tlv), len = RSVP_LSP_ATTR_TLV_LEN(tlv);
        out.open_item();
        out.line().text("TLV type ").u("type", type).text(" length ").u("length", len).text(": ");
        if (type == RSVP_LSP_ATTR_TLV_ATTRIBUTE_FLAGS)
            decode_attribute_flags(tlv, out);
        else
            out.text("value ").bytes("value", tlv + RSVP_LSP_ATTR_TLV_HDR_LEN,
                                     len - RSVP_LSP_ATTR_TLV_HDR_LEN);
        out.close();
    }
    out.close();
}

void decode_e_lsp(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t count = 0;
    uint32_t entries[RSVP_DIFFSERV_MAX_MAP_ENTRIES];
    if (!rsvp_extract_diffserv_e_lsp(obj, &count, entries)) return;  // valid: at most 8
    out.line()
        .text("E-LSP, ")
        .u("map_count", count)
        .text(count == 1 ? " MAP entry" : " MAP entries");
    out.open_list("map");
    for (uint8_t i = 0; i < count; ++i) {
        out.open_item();
        out.line().text("EXP ").u("exp", rsvp_diffserv_get_exp(obj, i)).text(" -> PHBID ");
        out.hex("phbid", rsvp_diffserv_get_phbid(obj, i), 4);
        out.close();
    }
    out.close();
}

void decode_l_lsp(uint8_t *obj, rsvpdump::Out &out) {
    uint16_t psc = 0;
    if (rsvp_extract_diffserv_l_lsp(obj, &psc)) out.line().text("L-LSP, PSC ").hex("psc", psc, 4);
}

void decode_class_type(uint8_t *obj, rsvpdump::Out &out) {
    if (RSVP_OBJECT_LENGTH(obj) < RSVP_CLASSTYPE_LEN) {
        out.line().text("class type missing (object too short)");
        return;
    }
    out.line().text("class type ").u("class_type", rsvp_get_class_type(obj));
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_LSP_ATTRIBUTES, RSVP_CTYPE_LSP_ATTRIBUTES, decode_lsp_attributes);
RSVPDUMP_DECODER(RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES, RSVP_CTYPE_LSP_ATTRIBUTES,
                 decode_lsp_attributes);
RSVPDUMP_DECODER(RSVP_CLASS_DIFFSERV, RSVP_CTYPE_DIFFSERV_E_LSP, decode_e_lsp);
RSVPDUMP_DECODER(RSVP_CLASS_DIFFSERV, RSVP_CTYPE_DIFFSERV_L_LSP, decode_l_lsp);
RSVPDUMP_DECODER(RSVP_CLASS_CLASSTYPE, RSVP_CTYPE_CLASSTYPE, decode_class_type);
