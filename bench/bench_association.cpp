// The walks inside the association family on objects of about 64 KB, the largest an object
// Length allows: validating a REVERSE_LSP of 16,382 small objects (the duplicate rule looks at
// every one) and one nested 16,382 deep, the sum of lengths, the unsupported-class test, adding
// a 64 KB object, and extracting 16,376 extended association IDs. ns per call.
#include <benchmark/benchmark.h>

#include <vector>

#include "rsvp_object_lib.h"

namespace {

constexpr uint16_t kBig = 65532;

// A REVERSE_LSP of kBig bytes holding 4-byte objects of the given class, C-Types 1 and 2 in
// turn (so that no object is followed by a same-class one of its own C-Type).
std::vector<uint8_t> flat(uint8_t class_num) {
    std::vector<uint8_t> b(kBig);
    rsvp_build_object(b.data(), RSVP_CLASS_REVERSE_LSP, RSVP_CTYPE_REVERSE_LSP, kBig);
    for (size_t at = 4; at < b.size(); at += 4)
        rsvp_build_object(&b[at], class_num, static_cast<uint8_t>(1 + at / 4 % 2), 4);
    return b;
}

// Each container holds the next one, down to an empty one.
std::vector<uint8_t> nested() {
    std::vector<uint8_t> b(kBig);
    for (size_t at = 0; at < b.size(); at += 4)
        rsvp_build_object(&b[at], RSVP_CLASS_REVERSE_LSP, RSVP_CTYPE_REVERSE_LSP,
                          static_cast<uint16_t>(kBig - at));
    return b;
}

void expect(benchmark::State &state, bool ok) {
    if (!ok) state.SkipWithError("unexpected result");
}

void BM_ReverseLspValidFlat64K(benchmark::State &state) {
    std::vector<uint8_t> b = flat(RSVP_CLASS_POLICY_DATA);
    expect(state, rsvp_valid_reverse_lsp(b.data()) == 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_valid_reverse_lsp(b.data()));
}
BENCHMARK(BM_ReverseLspValidFlat64K);

void BM_ReverseLspValidNested64K(benchmark::State &state) {
    std::vector<uint8_t> b = nested();
    expect(state, rsvp_valid_object(b.data()) == 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_valid_object(b.data()));
}
BENCHMARK(BM_ReverseLspValidNested64K);

void BM_ReverseLspSumOfLengths64K(benchmark::State &state) {
    std::vector<uint8_t> b = flat(RSVP_CLASS_POLICY_DATA);
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_compute_reverse_lsp_sub_objs_len(b.data()));
}
BENCHMARK(BM_ReverseLspSumOfLengths64K);

void BM_ReverseLspUnsupported64K(benchmark::State &state) {
    std::vector<uint8_t> b = flat(RSVP_CLASS_EXPLICIT_ROUTE);  // all supported: the whole walk
    expect(state, rsvp_reverse_lsp_subs_inc_unsupported(b.data() + 4, kBig - 4) == 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_reverse_lsp_subs_inc_unsupported(b.data() + 4, kBig - 4));
}
BENCHMARK(BM_ReverseLspUnsupported64K);

void BM_ReverseLspAdd64K(benchmark::State &state) {
    std::vector<uint8_t> inner = flat(RSVP_CLASS_POLICY_DATA);
    rsvp_build_object(inner.data(), RSVP_CLASS_REVERSE_LSP, RSVP_CTYPE_REVERSE_LSP, kBig - 4);
    std::vector<uint8_t> outer(kBig);
    for (auto _ : state) {
        rsvp_build_reverse_lsp(outer.data());
        benchmark::DoNotOptimize(rsvp_add_reverse_lsp_subobj(outer.data(), inner.data()));
    }
    expect(state, rsvp_valid_reverse_lsp(outer.data()) == 1);
}
BENCHMARK(BM_ReverseLspAdd64K);

void BM_AssociationExtractIds64K(benchmark::State &state) {
    const uint16_t count = (kBig - RSVP_ASSOCIATION_IPV6_EXT_LEN) / 4;
    std::vector<uint32_t> ids(count, 7);
    std::vector<uint8_t> b(kBig);
    rsvp_build_association_ipv6_ext(b.data(), 1, 1, 1, 2, 3, 4, 5, ids.data(), count);
    for (auto _ : state) {
        uint16_t type = 0, id = 0, n = 0;
        uint32_t src[4], global = 0;
        benchmark::DoNotOptimize(rsvp_extract_association_ipv6_ext(
            b.data(), &type, &id, src, &global, ids.data(), count * 4u, &n));
    }
}
BENCHMARK(BM_AssociationExtractIds64K);

}  // namespace
