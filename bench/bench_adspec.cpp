// Path characterisation: validating an 84-byte ADSPEC and locating its Guaranteed and
// Controlled-Load fragments (ns per object), beside a memcpy of the same bytes.
#include <benchmark/benchmark.h>

#include "bench_messages.hpp"

#include <cstring>

#include "rsvp_object_lib.h"

namespace {

struct Adspec {
    uint8_t obj[RSVP_ADSPEC_BASELINE_MAX_LEN];
    Adspec() { rsvp_build_adspec_baseline(obj, RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL); }
};

void BM_ValidateExtractAdspec(benchmark::State &state) {
    Adspec a;
    uint8_t *gtd = nullptr, *cl = nullptr;
    for (auto _ : state) {
        benchmark::DoNotOptimize(a.obj);
        int ok = rsvp_valid_adspec(a.obj);
        ok += rsvp_adspec_extract_gtd_frag(a.obj, &gtd) + rsvp_adspec_extract_cl_frag(a.obj, &cl);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(gtd);
        benchmark::DoNotOptimize(cl);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_ValidateExtractAdspec);

void BM_MemcpyAdspec(benchmark::State &state) {
    Adspec a;
    rsvp_bench::memcpy_baseline(state, a.obj, RSVP_ADSPEC_BASELINE_MAX_LEN, "ns/object");
}
BENCHMARK(BM_MemcpyAdspec);

}  // namespace
