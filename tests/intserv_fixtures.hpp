// Intserv objects shared by the SENDER_TSPEC, FLOWSPEC, merge and end-to-end tests, and a
// one-line view of all the fields a flowspec's getters report.
#pragma once

#include <algorithm>
#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

namespace rsvp_test {

// r 1250000, b 10000, p 2500000, m 64, M 1500 in each.
inline const char *kTspecHex =
    "00 24 0c 02"   // length 36, class 12, C-Type 2
    "00 00 00 07"   // version 0, overall length 7 words
    "01 00 00 06"   // service 1 (general), reserved, 6 words
    "7f 00 00 05"   // parameter 127 (token bucket), flags 0, 5 words
    "49 98 96 80"   // r 1250000.0
    "46 1c 40 00"   // b 10000.0
    "4a 18 96 80"   // p 2500000.0
    "00 00 00 40"   // m 64
    "00 00 05 dc";  // M 1500

inline const char *kGtdHex =
    "00 30 09 02"   // length 48, class 9, C-Type 2
    "00 00 00 0a"   // version 0, overall length 10 words
    "02 00 00 09"   // service 2 (Guaranteed), reserved, 9 words
    "7f 00 00 05"   // parameter 127 (token bucket), flags 0, 5 words
    "49 98 96 80"   // r 1250000.0
    "46 1c 40 00"   // b 10000.0
    "4a 18 96 80"   // p 2500000.0
    "00 00 00 40"   // m 64
    "00 00 05 dc"   // M 1500
    "82 00 00 02"   // parameter 130 (Guaranteed RSpec), flags 0, 2 words
    "49 f4 24 00"   // R 2000000.0
    "00 00 00 64";  // S 100 microseconds

inline const char *kClHex =
    "00 24 09 02"   // length 36, class 9, C-Type 2
    "00 00 00 07"   // version 0, overall length 7 words
    "05 00 00 06"   // service 5 (Controlled-Load), reserved, 6 words
    "7f 00 00 05"   // parameter 127, flags 0, 5 words
    "49 98 96 80"   // r 1250000.0
    "46 1c 40 00"   // b 10000.0
    "4a 18 96 80"   // p 2500000.0
    "00 00 00 40"   // m 64
    "00 00 05 dc";  // M 1500

// A qualitative fragment: service 6, 2 words, parameter 128 of 1 word, M 1500.
inline const char *kQualFragHex = "06 00 00 02  80 00 00 01  00 00 05 dc";

// The base object with the patch bytes written at offset.
inline Bytes patched(const char *base, size_t offset, const char *patch) {
    Bytes b = hex(base);
    const Bytes p = hex(patch);
    std::copy(p.begin(), p.end(), b.begin() + static_cast<long>(offset));
    return b;
}

// QoS code, b, r, p, m, M, R, S as the flowspec getters report them.
using FlowFields =
    std::tuple<uint8_t, int64_t, int64_t, int64_t, uint32_t, uint32_t, int64_t, uint32_t>;
inline FlowFields flow_fields(uint8_t *fs) {
    return {rsvp_get_flow_qos_service(fs),    rsvp_get_flow_maximum_burst(fs),
            rsvp_get_flow_average_rate(fs),   rsvp_get_flow_peak_rate(fs),
            rsvp_get_flow_min_unit(fs),       rsvp_get_flow_max_unit(fs),
            rsvp_get_flow_requested_rate(fs), rsvp_get_flow_slack(fs)};
}

}  // namespace rsvp_test
