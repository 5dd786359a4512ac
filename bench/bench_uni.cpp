// The walks of GENERALIZED_UNI on an object of about 64 KB (16,380 subobjects of 4 bytes):
// validating it, one step of the subobject walker (which validates the object every time) and
// appending a TNA (a walk for a present one first). ns per call.
#include <benchmark/benchmark.h>

#include <vector>

#include "rsvp_object_lib.h"

namespace {

constexpr uint16_t kBig = 65532 - RSVP_GUA_TNA_IPV4_LEN;  // a TNA still fits the Length

// Diversity subobjects of 4 bytes up to kBig, and room behind for a TNA.
std::vector<uint8_t> big_uni() {
    std::vector<uint8_t> b(kBig + RSVP_GUA_TNA_IPV4_LEN);
    rsvp_build_object(b.data(), RSVP_CLASS_GENERALIZED_UNI, RSVP_CTYPE_GENERALIZED_UNI, kBig);
    for (size_t at = 4; at < kBig; at += 4)
        rsvp_build_object(&b[at], RSVP_GUA_SUBOBJ_DIVERSITY, RSVP_GUA_SUBTYPE_IPV4,
                          RSVP_GUA_SUBOBJ_HDR_LEN);  // shaped like an object header
    return b;
}

void BM_UniValid64K(benchmark::State &state) {
    std::vector<uint8_t> b = big_uni();
    if (rsvp_valid_gen_uni_attr(b.data()) != 1) state.SkipWithError("not valid");
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_valid_gen_uni_attr(b.data()));
}
BENCHMARK(BM_UniValid64K);

void BM_UniWalkerStep64K(benchmark::State &state) {
    std::vector<uint8_t> b = big_uni();
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_extract_gen_uni_attr_next_subobj(b.data(), nullptr));
}
BENCHMARK(BM_UniWalkerStep64K);

void BM_UniAddSourceTna64K(benchmark::State &state) {
    std::vector<uint8_t> b = big_uni();
    for (auto _ : state) {
        RSVP_SET_OBJECT_LENGTH(b.data(), kBig);
        benchmark::DoNotOptimize(rsvp_add_src_tna_ipv4(b.data(), 0x010200c0));
    }
    if (rsvp_valid_gen_uni_attr(b.data()) != 1) state.SkipWithError("not appended");
}
BENCHMARK(BM_UniAddSourceTna64K);

}  // namespace
