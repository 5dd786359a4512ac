// Reading the previous hop of a received Path: find RSVP_HOP in the message and extract it
// (IPv4), or look up the interface-index TLV of an IF_ID hop. ns per message.
#include <benchmark/benchmark.h>

#include "bench_messages.hpp"
#include "rsvp_object_lib.h"

namespace {

void BM_ExtractHopIpv4FromPath(benchmark::State &state) {
    rsvp_test::Bytes msg = rsvp_bench::path_message();
    uint8_t *first = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.data());
    const uint32_t len = RSVP_MESSAGE_OBJ_LEN(msg.data());
    for (auto _ : state) {
        uint32_t neighbor = 0, lih = 0;
        uint8_t *hop = rsvp_first_object_type(first, len, RSVP_CLASS_RSVP_HOP);
        benchmark::DoNotOptimize(rsvp_extract_hop_ipv4(hop, &neighbor, &lih));
        benchmark::DoNotOptimize(neighbor + lih);
    }
}
BENCHMARK(BM_ExtractHopIpv4FromPath);

void BM_IfIdHopIndexLookup(benchmark::State &state) {
    rsvp_test::Bytes hop(12 + 8 + 3 * 12 + 12, 0);  // room behind the object for the walk
    rsvp_build_hop_if_id(hop.data(), rsvp_test::ip("10.0.12.1"), 0);
    rsvp_add_ipv4_intf(hop.data(), rsvp_test::ip("10.0.12.1"));
    rsvp_add_index_fwd_intf(hop.data(), rsvp_test::ip("10.0.12.1"), 4);
    rsvp_add_index_rev_intf(hop.data(), rsvp_test::ip("10.0.12.1"), 5);
    rsvp_add_index_fwd_rev_intf(hop.data(), rsvp_test::ip("10.0.12.1"), 7);
    for (auto _ : state) {
        uint32_t addr = 0, if_id = 0;
        benchmark::DoNotOptimize(rsvp_get_gmpls_hop_if_index_tlv(hop.data(), &addr, &if_id));
        benchmark::DoNotOptimize(addr + if_id);
    }
}
BENCHMARK(BM_IfIdHopIndexLookup);

}  // namespace
