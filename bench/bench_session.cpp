// The session table of a routing process: sorting LSP_TUNNEL_IPv4 sessions and senders with
// rsvp_compare_sessions and rsvp_compare_templates (ns per comparison), and pulling the
// identity of a Path message (SESSION, RSVP_HOP, SENDER_TEMPLATE) out of it (ns per message).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <random>
#include <vector>

#include "bench_messages.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr size_t kTableSize = 1000000;

// Addresses drawn from a /16 so that many entries share an end point or sender and the order
// has to look at the later fields too. Extended Tunnel IDs are never 0 (the wildcard would
// make the order no strict weak order, which std::sort needs).
uint32_t random_addr(std::mt19937 &rng) {
    const uint32_t host = 0x0A000000u | (rng() & 0xFFFF);  // 10.0.x.y
    uint8_t b[4] = {uint8_t(host >> 24), uint8_t(host >> 16), uint8_t(host >> 8), uint8_t(host)};
    uint32_t wire;
    std::memcpy(&wire, b, sizeof wire);
    return wire;
}

// One contiguous arena of objects and the pointers a table would hold.
struct Table {
    std::vector<uint8_t> arena;
    std::vector<uint8_t *> entries;
};

Table session_table() {
    std::mt19937 rng(1);
    Table t{std::vector<uint8_t>(kTableSize * RSVP_SESSION_TUNNEL_IPV4_LEN), {}};
    for (size_t i = 0; i < kTableSize; ++i) {
        uint8_t *s = t.arena.data() + i * RSVP_SESSION_TUNNEL_IPV4_LEN;
        rsvp_build_session_lsp_tunnel_ipv4(s, random_addr(rng), static_cast<uint16_t>(rng()),
                                           random_addr(rng));
        t.entries.push_back(s);
    }
    return t;
}

Table template_table() {
    std::mt19937 rng(2);
    Table t{std::vector<uint8_t>(kTableSize * RSVP_SENDER_IPV4_LEN), {}};
    for (size_t i = 0; i < kTableSize; ++i) {
        uint8_t *s = t.arena.data() + i * RSVP_SENDER_IPV4_LEN;
        rsvp_build_template_lsp_tunnel_ipv4(s, random_addr(rng), static_cast<uint16_t>(rng()));
        t.entries.push_back(s);
    }
    return t;
}

double thread_cpu_seconds() {
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) * 1e-9;
}

// Sorts a fresh copy of the table each iteration; only the sort is timed. ns_per_compare is
// the sort's CPU time divided by the comparisons it made (CPU time, so that other load on the
// machine does not inflate it).
void sort_table(benchmark::State &state, const Table &table, int (*compare)(uint8_t *, uint8_t *)) {
    uint64_t comparisons = 0;
    double cpu_seconds = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<uint8_t *> v = table.entries;
        state.ResumeTiming();
        const double start = thread_cpu_seconds();
        std::sort(v.begin(), v.end(), [&](uint8_t *a, uint8_t *b) {
            ++comparisons;
            return compare(a, b) < 0;
        });
        cpu_seconds += thread_cpu_seconds() - start;
        benchmark::DoNotOptimize(v.data());
    }
    state.counters["comparisons"] =
        benchmark::Counter(static_cast<double>(comparisons), benchmark::Counter::kAvgIterations);
    state.counters["ns_per_compare"] = cpu_seconds * 1e9 / static_cast<double>(comparisons);
}

void BM_SortSessions(benchmark::State &state) {
    static const Table table = session_table();
    sort_table(state, table, rsvp_compare_sessions);
}
BENCHMARK(BM_SortSessions)->Unit(benchmark::kMillisecond);

void BM_SortTemplates(benchmark::State &state) {
    static const Table table = template_table();
    sort_table(state, table, rsvp_compare_templates);
}
BENCHMARK(BM_SortTemplates)->Unit(benchmark::kMillisecond);

// What a Path handler does first: find the three identity objects and extract them.
void BM_ExtractPathIdentity(benchmark::State &state) {
    rsvp_test::Bytes msg = rsvp_bench::path_message();
    uint8_t *objs = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.data());
    const uint32_t len = RSVP_MESSAGE_OBJ_LEN(msg.data());
    for (auto _ : state) {
        uint32_t end_point = 0, ext_id = 0, hop = 0, lih = 0, sender = 0;
        uint16_t tunnel_id = 0, lsp_id = 0;
        int ok = rsvp_extract_session_lsp_tunnel_ipv4(
            rsvp_first_object_type(objs, len, RSVP_CLASS_SESSION), &end_point, &tunnel_id, &ext_id);
        ok += rsvp_extract_hop_ipv4(rsvp_first_object_type(objs, len, RSVP_CLASS_RSVP_HOP), &hop,
                                    &lih);
        ok += rsvp_extract_template_lsp_tunnel_ipv4(
            rsvp_first_object_type(objs, len, RSVP_CLASS_SENDER_TEMPLATE), &sender, &lsp_id);
        if (ok != 3) state.SkipWithError("identity not extracted");
        benchmark::DoNotOptimize(end_point + ext_id + hop + lih + sender + tunnel_id + lsp_id);
    }
    state.SetLabel("ns/message");
}
BENCHMARK(BM_ExtractPathIdentity);

}  // namespace
