// GMPLS traffic parameters in SENDER_TSPEC and FLOWSPEC: G.709 OTN (C-Type 5) and SONET/SDH
// (C-Type 4). The Intserv C-Type 2 of the same classes has its own decoder.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

bool is_tspec(uint8_t *obj) {
    return RSVP_OBJECT_CLASS(obj) == RSVP_CLASS_SENDER_TSPEC;
}

void decode_g709(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t signal_type = 0;
    uint16_t nvc = 0, multiplier = 0;
    int64_t bit_rate = 0;
    const int ok =
        is_tspec(obj)
            ? rsvp_extract_g709_otn_tspec(obj, &signal_type, &nvc, &multiplier, &bit_rate)
            : rsvp_extract_g709_otn_flowspec(obj, &signal_type, &nvc, &multiplier, &bit_rate);
    if (!ok) return;
    out.line().text("G.709 OTN signal type ").u("signal_type", signal_type);
    out.text(" NVC ").u("nvc", nvc).text(" MT ").u("multiplier", multiplier);
    out.text(" bit rate ").i("bit_rate", bit_rate).text(" bytes/s");
}

void decode_sonet_sdh(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t signal_type = 0, rcc = 0;
    uint16_t ncc = 0, nvc = 0, multiplier = 0;
    uint32_t transparency = 0;
    const int ok = is_tspec(obj)
                       ? rsvp_extract_uni_sonet_sdh_tspec(obj, &signal_type, &rcc, &ncc, &nvc,
                                                          &multiplier, &transparency)
                       : rsvp_extract_uni_sonet_sdh_flowspec(obj, &signal_type, &rcc, &ncc, &nvc,
                                                             &multiplier, &transparency);
    if (!ok) return;
    out.line().text("SONET/SDH signal type ").u("signal_type", signal_type);
    out.text(" RCC ").hex("rcc", rcc).text(" NCC ").u("ncc", ncc).text(" NVC ").u("nvc", nvc);
    out.text(" MT ").u("multiplier", multiplier);
    out.text(" transparency ").hex("transparency", transparency, 8);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_G709_OTN, decode_g709);
RSVPDUMP_DECODER(RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_G709_OTN, decode_g709);
RSVPDUMP_DECODER(RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_SONET_SDH, decode_sonet_sdh);
RSVPDUMP_DECODER(RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_SONET_SDH, decode_sonet_sdh);
