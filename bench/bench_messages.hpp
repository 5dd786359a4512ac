// Realistic messages for the benchmarks, written out byte by byte.
#pragma once

#include <benchmark/benchmark.h>

#include <cstring>

#include "test_util.hpp"

namespace rsvp_bench {

// An RSVP-TE Path message of 212 bytes: SESSION (LSP_TUNNEL_IPv4), RSVP_HOP, TIME_VALUES,
// EXPLICIT_ROUTE (three strict IPv4 hops), LABEL_REQUEST, SESSION_ATTRIBUTE,
// SENDER_TEMPLATE (LSP_TUNNEL_IPv4), SENDER_TSPEC (Intserv token bucket), ADSPEC and
// RECORD_ROUTE.
inline rsvp_test::Bytes path_message() {
    return rsvp_test::hex(
        "10 01 00 00 ff 00 00 d4"                          // common header, Path, length 212
        "00 10 01 07 0a 00 00 03 00 00 00 01 0a 00 00 01"  // SESSION 10.0.0.3 tunnel 1
        "00 0c 03 01 0a 00 0c 01 00 00 00 00"              // RSVP_HOP 10.0.12.1 LIH 0
        "00 08 05 01 00 00 75 30"                          // TIME_VALUES 30000 ms
        "00 1c 14 01"                                      // EXPLICIT_ROUTE
        "01 08 0a 00 0c 02 20 00"                          //   strict 10.0.12.2/32
        "01 08 0a 00 17 03 20 00"                          //   strict 10.0.23.3/32
        "01 08 0a 00 00 03 20 00"                          //   strict 10.0.0.3/32
        "00 08 13 01 00 00 08 00"                          // LABEL_REQUEST IPv4
        "00 18 cf 07 07 00 04 0d"                          // SESSION_ATTRIBUTE 7/0 name 13
        "54 65 73 74 54 75 6e 6e 65 6c 50 32 70 00 00 00"  //   "TestTunnelP2p"
        "00 0c 0b 07 0a 00 00 01 00 00 00 01"              // SENDER_TEMPLATE 10.0.0.1 LSP 1
        "00 24 0c 02 00 00 00 07 01 00 00 06"              // SENDER_TSPEC, service 1
        "7f 00 00 05 49 98 96 80 49 98 96 80"              //   token bucket r=b=1.25e6
        "7f 80 00 00 00 00 00 00 00 00 05 dc"              //   p=inf m=0 M=1500
        "00 30 0d 02 00 00 00 0a"                          // ADSPEC, 10 words
        "01 00 00 08"                                      //   general parameters, 8 words
        "04 00 00 01 00 00 00 00"                          //     IS hop count 0
        "06 00 00 01 7f 80 00 00"                          //     path bandwidth infinite
        "08 00 00 01 00 00 00 00"                          //     minimum path latency 0
        "0a 00 00 01 ff ff ff ff"                          //     path MTU unlimited
        "05 00 00 00"                                      //   Controlled-Load, no parameters
        "00 0c 15 01 01 08 0a 00 0c 01 20 00");            // RECORD_ROUTE 10.0.12.1/32
}

// The yardstick beside each codec benchmark: a memcpy of the same bytes, in the same binary.
inline void memcpy_baseline(benchmark::State &state, const uint8_t *src, size_t len,
                            const char *label) {
    rsvp_test::Bytes dst(len);
    for (auto _ : state) {
        std::memcpy(dst.data(), src, len);
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * len));
    state.SetLabel(label);
}

}  // namespace rsvp_bench
