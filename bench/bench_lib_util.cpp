// The text unit: the flow string of a Path message's objects, and interface names through the
// per-thread ring from one and from eight threads. The interface-name service is replaced here
// by a table lookup, as a routing process replaces it, so that the figure is the library's own
// cost (the host default asks the kernel).
#include <benchmark/benchmark.h>

#include <cstring>

#include "bench_messages.hpp"
#include "rsvp_lib_util.h"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

extern "C" int intf_svc_interface_name(uint32_t handle, char name[64]) {
    static const char *const kNames[] = {"ge-0/0/0", "ge-0/0/1", "xe-1/0/0", "xe-1/0/1"};
    std::strcpy(name, kNames[handle % 4]);
    return 0;
}

namespace {

void BM_FlowStrPath(benchmark::State &state) {
    rsvp_test::Bytes msg = rsvp_bench::path_message();
    uint8_t *objects = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.data());
    const auto length = static_cast<uint32_t>(msg.size() - RSVP_MSG_HDR_LEN);
    for (auto _ : state) {
        benchmark::DoNotOptimize(objects);
        benchmark::DoNotOptimize(rsvp_lib_util_flow_str(objects, length));
    }
    state.SetLabel(rsvp_lib_util_flow_str(objects, length));
}
BENCHMARK(BM_FlowStrPath);

void BM_IfName(benchmark::State &state) {
    uint32_t handle = 1;
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_lib_util_if_name(handle++, RSVP_LIB_UTIL_IF_NAME_PLAIN));
}
BENCHMARK(BM_IfName)->Threads(1)->Threads(8)->UseRealTime();

}  // namespace
