// Reservation requests: validating and extracting a Guaranteed FLOWSPEC (ns per object), and
// merging two flowspecs (ns per merge), each beside a memcpy of the same bytes.
#include <benchmark/benchmark.h>

#include "bench_messages.hpp"

#include <cstring>

#include "rsvp_object_lib.h"

namespace {

struct Flowspecs {
    uint8_t gtd[RSVP_FLOWSPEC_MAX_LEN];
    uint8_t cl[RSVP_FLOWSPEC_MAX_LEN];
    Flowspecs() {
        rsvp_build_flowspec(gtd, RSVP_QOS_GUARANTEED, 10000, 1250000, 64, 1500, 2500000, 2000000,
                            100);
        rsvp_build_flowspec(cl, RSVP_QOS_CONTROLLED_LOAD, 20000, 1000000, 128, 9000, 3000000, 0, 0);
    }
};

void BM_ValidateExtractGuaranteedFlowspec(benchmark::State &state) {
    Flowspecs f;
    uint8_t qos = 0;
    int64_t burst = 0, rate = 0, peak = 0, req = 0;
    uint32_t m = 0, big_m = 0, slack = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(f.gtd);
        int ok = rsvp_valid_flowspec(f.gtd);
        ok += rsvp_extract_flowspec(f.gtd, &qos, &burst, &rate, &m, &big_m, &peak, &req, &slack);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(req);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_ValidateExtractGuaranteedFlowspec);

void BM_MemcpyGuaranteedFlowspec(benchmark::State &state) {
    Flowspecs f;
    rsvp_bench::memcpy_baseline(state, f.gtd, RSVP_FLOWSPEC_GUARANTEED_LEN, "ns/object");
}
BENCHMARK(BM_MemcpyGuaranteedFlowspec);

// Each round restores a Controlled-Load target and merges a Guaranteed request into it, so
// every merge builds, compares and writes a 48-byte result.
void BM_MergeFlowspecs(benchmark::State &state) {
    Flowspecs f;
    uint8_t target[RSVP_FLOWSPEC_MAX_LEN];
    for (auto _ : state) {
        std::memcpy(target, f.cl, RSVP_FLOWSPEC_CONTROLLED_LOAD_LEN);
        benchmark::DoNotOptimize(rsvp_merge_flowspecs(f.gtd, target));
        benchmark::ClobberMemory();
    }
    state.SetLabel("ns/merge");
}
BENCHMARK(BM_MergeFlowspecs);

// The restore of the target plus a copy of the merged size: the floor under the merge above.
void BM_MemcpyMergeBytes(benchmark::State &state) {
    Flowspecs f;
    uint8_t target[RSVP_FLOWSPEC_MAX_LEN];
    for (auto _ : state) {
        std::memcpy(target, f.cl, RSVP_FLOWSPEC_CONTROLLED_LOAD_LEN);
        benchmark::ClobberMemory();
        std::memcpy(target, f.gtd, RSVP_FLOWSPEC_GUARANTEED_LEN);
        benchmark::ClobberMemory();
    }
    state.SetLabel("ns/merge");
}
BENCHMARK(BM_MemcpyMergeBytes);

}  // namespace
