// Labels: validating and extracting a 16-label LABEL_SET with each of the two function sets,
// building and extracting a one-word generalized label (ns per object, each beside a memcpy of
// the same bytes), and the calls that walk every word of a ~64 KB object: the SONET/SDH add
// with its duplicate search and the two label copies out.
#include <benchmark/benchmark.h>

#include "bench_messages.hpp"

#include <vector>

#include "rsvp_object_lib.h"

namespace {

constexpr uint32_t kSetLabels = 16;
constexpr size_t kSetLen = RSVP_LABEL_SET_HDR_LEN + 4 * kSetLabels;
// The most words whose object Length (4 + 4n) still leaves room for one more in 16 bits.
constexpr uint32_t kBigWords = (0xFFFF - RSVP_OBJ_HDR_LEN) / 4 - 1;

struct LabelSet {
    uint8_t obj[kSetLen];
    LabelSet() {
        rsvp_build_label_set_obj(obj, RSVP_LABEL_SET_INCLUSIVE_LIST,
                                 RSVP_LABEL_SET_TYPE_GENERALIZED);
        for (uint32_t i = 0; i < kSetLabels; ++i)
            rsvp_add_label_set_obj(obj, 0x00011111 + i);
    }
};

void BM_LabelSetPlainValidateExtract16(benchmark::State &state) {
    LabelSet s;
    uint32_t *labels = nullptr;
    uint8_t count = 0, action = 0;
    uint16_t type = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(s.obj);
        int ok = rsvp_valid_label_set_obj(s.obj);
        ok += rsvp_extract_label_set_obj(s.obj, &labels, &count, &action, &type);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(labels);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_LabelSetPlainValidateExtract16);

void BM_LabelSet32BitValidateExtract16(benchmark::State &state) {
    LabelSet s;
    uint32_t labels[kSetLabels], count = 0;
    uint8_t action = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(s.obj);
        int ok = rsvp_valid_32bit_label_set_obj(s.obj, RSVP_CLASS_LABEL_SET);
        ok += rsvp_extract_32bit_label_set_obj(s.obj, RSVP_CLASS_LABEL_SET, &action, &count);
        ok += rsvp_extract_32bit_label_set_obj_labels(s.obj, RSVP_CLASS_LABEL_SET, count, labels);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(labels);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_LabelSet32BitValidateExtract16);

void BM_MemcpyLabelSet16(benchmark::State &state) {
    LabelSet s;
    rsvp_bench::memcpy_baseline(state, s.obj, kSetLen, "ns/object");
}
BENCHMARK(BM_MemcpyLabelSet16);

void BM_GeneralizedLabelBuildExtract(benchmark::State &state) {
    uint8_t obj[RSVP_OBJ_HDR_LEN + 4];
    uint32_t in = 0x00011111, out = 0, *p = &out;
    uint16_t n = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(in);
        int ok = rsvp_build_generalized_label(obj, &in, 1);
        ok += rsvp_extract_generalized_label(obj, &p, &n);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(out);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_GeneralizedLabelBuildExtract);

void BM_MemcpyGeneralizedLabel(benchmark::State &state) {
    uint8_t obj[RSVP_OBJ_HDR_LEN + 4] = {};
    rsvp_bench::memcpy_baseline(state, obj, sizeof obj, "ns/object");
}
BENCHMARK(BM_MemcpyGeneralizedLabel);

// ---- ~64 KB objects: one call walks every word ----------------------------------------------

std::vector<uint8_t> big_sonet_label() {
    std::vector<uint32_t> words(kBigWords);
    for (uint32_t i = 0; i < kBigWords; ++i)  // all distinct, none equal to the word added
        words[i] = i;
    std::vector<uint8_t> obj(RSVP_OBJ_HDR_LEN + 4 * (kBigWords + 1));
    rsvp_build_generalized_label(obj.data(), words.data(), static_cast<uint16_t>(kBigWords));
    return obj;
}

// Each call compares the new word with all 16381 present, then appends it; the Length is
// set back so that every round searches the same object.
void BM_SonetSdhAdd64K(benchmark::State &state) {
    std::vector<uint8_t> obj = big_sonet_label();
    const uint16_t length = RSVP_OBJECT_LENGTH(obj.data());
    for (auto _ : state) {
        benchmark::DoNotOptimize(rsvp_add_gen_label_sonet_sdh(obj.data(), 0xFFFF, 15, 15, 15, 15));
        RSVP_SET_OBJECT_LENGTH(obj.data(), length);
    }
    state.SetLabel("ns/call, 64 KB object");
}
BENCHMARK(BM_SonetSdhAdd64K);

void BM_GeneralizedLabelExtract64K(benchmark::State &state) {
    std::vector<uint8_t> obj = big_sonet_label();
    std::vector<uint32_t> out(kBigWords);
    uint32_t *p = out.data();
    uint16_t n = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_extract_generalized_label(obj.data(), &p, &n));
    state.SetLabel("ns/call, 64 KB object");
}
BENCHMARK(BM_GeneralizedLabelExtract64K);

void BM_LabelSet32BitExtract64K(benchmark::State &state) {
    constexpr uint32_t kLabels = (0xFFFF - RSVP_LABEL_SET_HDR_LEN) / 4;
    std::vector<uint32_t> labels(kLabels, 16);
    std::vector<uint8_t> obj(RSVP_LABEL_SET_HDR_LEN + 4 * kLabels);
    rsvp_build_32bit_label_set(obj.data(), RSVP_CLASS_ACCEPTABLE_LABEL_SET,
                               RSVP_LABEL_SET_TYPE_LABEL, RSVP_LABEL_SET_INCLUSIVE_LIST, kLabels,
                               labels.data());
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_extract_32bit_label_set_obj_labels(
            obj.data(), RSVP_CLASS_ACCEPTABLE_LABEL_SET, kLabels, labels.data()));
    state.SetLabel("ns/call, 64 KB object");
}
BENCHMARK(BM_LabelSet32BitExtract64K);

}  // namespace
