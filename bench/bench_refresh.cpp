// Refresh reduction on the receive and send paths: telling a refreshed Path from a trigger
// (beside a memcmp of the same bytes, which is the floor), and building a MESSAGE_ID_LIST for
// a Summary Refresh one identifier at a time. The 64 KB cases check that neither grows faster
// than the bytes it is given.
#include <benchmark/benchmark.h>

#include <cstring>

#include "bench_messages.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvp_test::Bytes;

constexpr size_t kBodyLen = 300;
constexpr uint32_t kDigestLen = 20;
constexpr size_t kBigObjectLen = 65532;  // the largest whole-word object

// A Path body of 300 bytes: INTEGRITY (digest 20), MESSAGE_ID, the objects of the sample Path
// and a POLICY_DATA that fills it up. Copies differ in sequence, digest and identifier only.
Bytes path_body(uint64_t seq, uint8_t digest_byte, uint32_t msg_id) {
    const Bytes path = rsvp_bench::path_message();
    Bytes body(kBodyLen, 0);
    uint8_t *p = body.data();
    const uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {0, 0, 0, 0, 0, 1};
    uint8_t digest[kDigestLen];
    std::memset(digest, digest_byte, sizeof digest);
    rsvp_build_integrity(p, nullptr, key_id, &seq, digest, &kDigestLen);
    p += RSVP_OBJECT_LENGTH(p);
    rsvp_build_message_id(p, msg_id, 42, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED);
    p += RSVP_OBJECT_LENGTH(p);
    std::memcpy(p, path.data() + RSVP_MSG_HDR_LEN, path.size() - RSVP_MSG_HDR_LEN);
    p += path.size() - RSVP_MSG_HDR_LEN;
    const size_t fill = body.data() + body.size() - p - RSVP_OBJ_HDR_LEN;
    const Bytes policy(fill, 0x5A);
    rsvp_build_policy(p, policy.data(), static_cast<uint32_t>(fill));
    return body;
}

// Two copies of a large run: INTEGRITY, MESSAGE_ID and one POLICY_DATA of 64 KB.
Bytes big_body(uint64_t seq, uint32_t msg_id) {
    Bytes body = path_body(seq, static_cast<uint8_t>(seq), msg_id);
    const size_t head = size_t{RSVP_INTEGRITY_MAX_LEN} + RSVP_MESSAGE_ID_LEN;
    body.resize(head + kBigObjectLen);
    const Bytes policy(kBigObjectLen - RSVP_OBJ_HDR_LEN, 0x5A);
    rsvp_build_policy(body.data() + head, policy.data(), static_cast<uint32_t>(policy.size()));
    return body;
}

void classify(benchmark::State &state, const Bytes &stored, const Bytes &later) {
    Bytes a = stored, b = later;
    for (auto _ : state) {
        const int trigger = rsvp_objects_is_not_refresh(a.data(), static_cast<uint32_t>(a.size()),
                                                        b.data(), static_cast<uint32_t>(b.size()));
        if (trigger) state.SkipWithError("a refresh was taken for a trigger");
        benchmark::DoNotOptimize(trigger);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * a.size()));
}

void BM_NotRefresh300(benchmark::State &state) {
    classify(state, path_body(1, 0xAA, 100), path_body(2, 0xBB, 101));
    state.SetLabel("ns/call");
}
BENCHMARK(BM_NotRefresh300);

void BM_MemcmpPath300(benchmark::State &state) {
    const Bytes a = path_body(1, 0xAA, 100), b = path_body(1, 0xAA, 100);
    for (auto _ : state) {
        benchmark::DoNotOptimize(a.data());
        benchmark::DoNotOptimize(b.data());
        benchmark::DoNotOptimize(std::memcmp(a.data(), b.data(), a.size()));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * a.size()));
    state.SetLabel("ns/call");
}
BENCHMARK(BM_MemcmpPath300);

void BM_NotRefresh64K(benchmark::State &state) {
    classify(state, big_body(1, 100), big_body(2, 101));
    state.SetLabel("ns/call");
}
BENCHMARK(BM_NotRefresh64K)->Unit(benchmark::kMicrosecond);

// Build the list head, then add count identifiers; reported per call of the add.
void build_list(benchmark::State &state, uint32_t count) {
    Bytes list(RSVP_MESSAGE_ID_LIST_HDR_LEN + 4 * count);
    for (auto _ : state) {
        rsvp_build_message_id_list(list.data(), 42, 0);
        for (uint32_t id = 0; id < count; ++id)
            rsvp_add_message_id_list(list.data(), id);
        benchmark::DoNotOptimize(list.data());
        benchmark::ClobberMemory();
    }
    if (RSVP_OBJECT_LENGTH(list.data()) != list.size()) state.SkipWithError("list not built");
    state.counters["add"] = benchmark::Counter(
        count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_MessageIdList1000(benchmark::State &state) {
    build_list(state, 1000);
}
BENCHMARK(BM_MessageIdList1000);

void BM_MessageIdList64K(benchmark::State &state) {
    build_list(state, (kBigObjectLen - RSVP_MESSAGE_ID_LIST_HDR_LEN) / 4);
}
BENCHMARK(BM_MessageIdList64K)->Unit(benchmark::kMicrosecond);

}  // namespace
