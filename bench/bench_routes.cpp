// Reading an EXPLICIT_ROUTE the way a Path handler does: walking a 32-hop route, and walking
// it while extracting every hop. The walker validates the whole route on every step, so the
// cost per hop grows with the route length. Reported per hop ("hop" column, seconds per hop).
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "rsvp_object_lib.h"

namespace {

constexpr int kHops = 32;

using Buffer = std::array<uint8_t, RSVP_OBJ_HDR_LEN + kHops * RSVP_ERO_SUBOBJ_UNNUM_LEN>;

// Alternating IPv4 prefixes and unnumbered interfaces, every fourth hop loose.
Buffer route() {
    Buffer buf{};
    rsvp_build_explicit_route(buf.data());
    for (uint32_t hop = 0; hop < kHops; ++hop) {
        const int loose = hop % 4 == 3;
        const uint32_t addr = 0x0000000a | hop << 24;  // 10.0.0.hop in wire order
        if (hop % 2)
            rsvp_add_explicit_route_unnum(buf.data(), loose, addr, hop);
        else
            rsvp_add_explicit_route_ipv4(buf.data(), loose, addr, 32);
    }
    return buf;
}

void per_hop(benchmark::State &state) {
    state.counters["hop"] = benchmark::Counter(
        kHops, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_EroWalk32(benchmark::State &state) {
    Buffer buf = route();
    for (auto _ : state) {
        int hops = 0;
        for (uint8_t *sub = rsvp_extract_ero_next_subobject(buf.data(), nullptr); sub;
             sub = rsvp_extract_ero_next_subobject(buf.data(), sub))
            ++hops;
        if (hops != kHops) state.SkipWithError("route not walked");
        benchmark::DoNotOptimize(hops);
    }
    per_hop(state);
}
BENCHMARK(BM_EroWalk32);

void BM_EroWalkExtract32(benchmark::State &state) {
    Buffer buf = route();
    for (auto _ : state) {
        uint32_t sum = 0;
        int hops = 0;
        for (uint8_t *sub = rsvp_extract_ero_next_subobject(buf.data(), nullptr); sub;
             sub = rsvp_extract_ero_next_subobject(buf.data(), sub)) {
            uint32_t addr = 0, if_id = 0;
            uint8_t prefix_len = 0;
            hops += rsvp_extract_ero_subobject_ipv4(sub, &addr, &prefix_len) ||
                    rsvp_extract_ero_subobject_unnum(sub, &addr, &if_id);
            sum += addr + if_id + prefix_len;
        }
        if (hops != kHops) state.SkipWithError("route not extracted");
        benchmark::DoNotOptimize(sum);
    }
    per_hop(state);
}
BENCHMARK(BM_EroWalkExtract32);

// The two counts a caller takes before walking: each walks the route itself.
void BM_EroCount32(benchmark::State &state) {
    Buffer buf = route();
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_count_ero_subobject_ipv4(buf.data()) +
                                 rsvp_count_ero_subobject_unnum(buf.data()));
    per_hop(state);
}
BENCHMARK(BM_EroCount32);

}  // namespace
