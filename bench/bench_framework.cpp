// Walking and validating every object of a Path message, beside a memcpy of the same bytes:
// the ratio of the two is the figure that matters.
#include <benchmark/benchmark.h>

#include <cstring>

#include "bench_messages.hpp"
#include "rsvp_object_lib.h"

namespace {

void BM_WalkAndValidatePath(benchmark::State &state) {
    rsvp_test::Bytes msg = rsvp_bench::path_message();
    uint8_t *first = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.data());
    const uint32_t obj_len = RSVP_MESSAGE_OBJ_LEN(msg.data());
    for (auto _ : state) {
        uint32_t verdicts = rsvp_valid_object(first);
        uint32_t remaining = obj_len;
        for (uint8_t *obj = rsvp_next_nonnull_object(first, &remaining); obj;
             obj = rsvp_next_nonnull_object(obj, &remaining))
            verdicts += rsvp_valid_object(obj);
        benchmark::DoNotOptimize(verdicts);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * msg.size()));
    state.SetLabel("ns/message");
}
BENCHMARK(BM_WalkAndValidatePath);

void BM_MemcpyPath(benchmark::State &state) {
    const rsvp_test::Bytes msg = rsvp_bench::path_message();
    rsvp_bench::memcpy_baseline(state, msg.data(), msg.size(), "ns/message");
}
BENCHMARK(BM_MemcpyPath);

}  // namespace
