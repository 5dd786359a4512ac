// PROTECTION and the private protection object: the S, P, N, O, I and R bits, the LSP, link
// and segment flags (with the names of the LSP and link flag values), and the private WTR,
// HOFF and SNC subobjects.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

// One accessor set, the PROTECTION or the private one.
struct Getters {
    uint32_t (*s)(uint8_t *), (*p)(uint8_t *), (*n)(uint8_t *), (*o)(uint8_t *);
    uint32_t (*lsp)(uint8_t *), (*link)(uint8_t *), (*i)(uint8_t *), (*r)(uint8_t *);
    uint32_t (*seg)(uint8_t *);
};
constexpr Getters kProtection{
    RSVP_PROTECTION_S, RSVP_PROTECTION_P,         RSVP_PROTECTION_N,
    RSVP_PROTECTION_O, RSVP_PROTECTION_LSP_FLAGS, RSVP_PROTECTION_LINK_FLAGS,
    RSVP_PROTECTION_I, RSVP_PROTECTION_R,         RSVP_PROTECTION_SEG_FLAGS};
constexpr Getters kPvt{
    RSVP_PVT_PROTECTION_S, RSVP_PVT_PROTECTION_P,         RSVP_PVT_PROTECTION_N,
    RSVP_PVT_PROTECTION_O, RSVP_PVT_PROTECTION_LSP_FLAGS, RSVP_PVT_PROTECTION_LINK_FLAGS,
    RSVP_PVT_PROTECTION_I, RSVP_PVT_PROTECTION_R,         RSVP_PVT_PROTECTION_SEG_FLAGS};

const char *lsp_flags_name(uint32_t v) {
    switch (v) {
        case RSVP_PROTECTION_LSP_UNPROTECTED:
            return "unprotected";
        case RSVP_PROTECTION_LSP_REROUTING:
            return "full rerouting";
        case RSVP_PROTECTION_LSP_REROUTING_NO_EXTRA:
            return "rerouting without extra traffic";
        case RSVP_PROTECTION_LSP_1_N_EXTRA:
            return "1:N protection with extra traffic";
        case RSVP_PROTECTION_LSP_1_1_UNIDIR:
            return "1+1 unidirectional protection";
        case RSVP_PROTECTION_LSP_1_1_BIDIR:
            return "1+1 bidirectional protection";
        default:
            return "unknown";
    }
}

const char *link_flags_name(uint32_t v) {
    switch (v) {
        case 0:
            return "any";
        case RSVP_PROTECTION_LINK_EXTRA_TRAFFIC:
            return "extra traffic";
        case RSVP_PROTECTION_LINK_UNPROTECTED:
            return "unprotected";
        case RSVP_PROTECTION_LINK_SHARED:
            return "shared";
        case RSVP_PROTECTION_LINK_DEDICATED_1_1:
            return "dedicated 1:1";
        case RSVP_PROTECTION_LINK_DEDICATED_1_PLUS_1:
            return "dedicated 1+1";
        case RSVP_PROTECTION_LINK_ENHANCED:
            return "enhanced";
        default:
            return "several";
    }
}

void decode_flags(uint8_t *obj, const Getters &g, rsvpdump::Out &out) {
    out.line().text("S ").u("s", g.s(obj)).text(" P ").u("p", g.p(obj)).text(" N ");
    out.u("n", g.n(obj)).text(" O ").u("o", g.o(obj)).text(" I ").u("i", g.i(obj));
    out.text(" R ").u("r", g.r(obj));
    const uint32_t lsp = g.lsp(obj), link = g.link(obj);
    out.line().text("LSP flags ").hex("lsp_flags", lsp, 2).text(" (");
    out.str("lsp_protection", lsp_flags_name(lsp)).text(") link flags ");
    out.hex("link_flags", link, 2).text(" (").str("link_protection", link_flags_name(link));
    out.text(") segment flags ").hex("segment_flags", g.seg(obj), 2);
}

void decode_protection(uint8_t *obj, rsvpdump::Out &out) {
    decode_flags(obj, kProtection, out);
}

void decode_subobject(uint8_t *obj, uint8_t *sub, rsvpdump::Out &out) {
    uint32_t value = 0;
    uint8_t mode1 = 0, mode2 = 0;
    out.open_item();
    out.line().text("subobject type ").u("type", RSVP_PVT_PROTECTION_SUBOBJ_TYPE(sub));
    out.text(" length ").u("length", RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(sub));
    // The validator accepts a last subobject that runs past the object; its body may lie
    // behind the received bytes, so it is not read.
    const bool past = sub - obj + RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(sub) > RSVP_OBJECT_LENGTH(obj);
    out.flag("past_end", past);
    if (past)
        out.text(" runs past the object end");
    else if (rsvp_extract_pvt_protection_wtr(sub, &value))
        out.text(": wait-to-restore ").u("wtr", value);
    else if (rsvp_extract_pvt_protection_hoff(sub, &value))
        out.text(": hold-off ").u("hoff", value);
    else if (rsvp_extract_pvt_protection_snc(sub, &mode1, &mode2))
        out.text(": SNC mode 1 ").u("snc_mode1", mode1).text(" mode 2 ").u("snc_mode2", mode2);
    out.close();
}

void decode_pvt_protection(uint8_t *obj, rsvpdump::Out &out) {
    decode_flags(obj, kPvt, out);
    out.open_list("subobjects");
    for (uint8_t *sub = rsvp_extract_pvt_protection_next_subobject(obj, nullptr); sub;
         sub = rsvp_extract_pvt_protection_next_subobject(obj, sub))
        decode_subobject(obj, sub, out);
    out.close();
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_PROTECTION, RSVP_CTYPE_PROTECTION_END_TO_END, decode_protection);
RSVPDUMP_DECODER(RSVP_CLASS_PVT_PROTECTION, RSVP_CTYPE_PVT_PROTECTION, decode_pvt_protection);
