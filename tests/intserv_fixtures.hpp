// Intserv objects shared by the Intserv tests, and all the fields a flowspec's getters report.
#pragma once

#include <algorithm>
#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

namespace rsvp_test {

// Token bucket r 1250000, b 10000, p 2500000 (floats), m 64, M 1500 in each.
inline const char *kTspecHex =
    "00 24 0c 02  00 00 00 07"               // length 36, class 12, C-Type 2; version 0, 7 words
    "01 00 00 06  7f 00 00 05"               // service 1, 6 words; parameter 127, flags 0, 5 words
    "49 98 96 80  46 1c 40 00  4a 18 96 80"  // r, b, p
    "00 00 00 40  00 00 05 dc";              // m, M
inline const char *kGtdHex =
    "00 30 09 02  00 00 00 0a"                // length 48, class 9, C-Type 2; version 0, 10 words
    "02 00 00 09  7f 00 00 05"                // service 2 (Guaranteed), 9 words; parameter 127
    "49 98 96 80  46 1c 40 00  4a 18 96 80"   // r, b, p
    "00 00 00 40  00 00 05 dc"                // m, M
    "82 00 00 02  49 f4 24 00  00 00 00 64";  // parameter 130 (RSpec), 2 words; R 2000000; S 100
inline const char *kClHex =
    "00 24 09 02  00 00 00 07"               // length 36, class 9, C-Type 2; version 0, 7 words
    "05 00 00 06  7f 00 00 05"               // service 5 (Controlled-Load), 6 words; parameter 127
    "49 98 96 80  46 1c 40 00  4a 18 96 80"  // r, b, p
    "00 00 00 40  00 00 05 dc";              // m, M

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
