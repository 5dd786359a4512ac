// The TE attribute objects as a Path handler reads them: a SESSION_ATTRIBUTE with a 32-byte
// name validated and extracted, and the TLV walk of an LSP_ATTRIBUTES object with 8 TLVs, each
// beside a memcpy of the same bytes ("ns/object"). The functions that walk a list inside one
// call (the validators, one step of a walk, the adds' search for the end) are also timed on the
// largest objects they walk: 64 KB of LSP_ATTRIBUTES TLVs and 32 KB of private protection
// subobjects (beyond that the private object's signed remaining count walks nothing).
#include <benchmark/benchmark.h>

#include <vector>

#include "bench_messages.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr uint8_t kNameLen = 32;
constexpr char kName[] = "LSP-from-PE1-to-PE3-via-core-0001";
constexpr int kTlvs = 8;

std::vector<uint8_t> session_attribute() {
    std::vector<uint8_t> b(kNameLen + RSVP_SESSION_ATTRIBUTE_BUILD_OVERHEAD + 4);
    rsvp_build_session_attribute(b.data(), 7, 0, RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION,
                                 kNameLen, kName);
    b.resize(RSVP_OBJECT_LENGTH(b.data()));
    return b;
}

// Attribute Flags first (the add only works there), then 7 TLVs of 4 to 16 bytes.
std::vector<uint8_t> lsp_attributes() {
    std::vector<uint8_t> b(size_t{RSVP_OBJ_HDR_LEN} + RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN);
    rsvp_build_lsp_attributes(b.data(), 0);
    rsvp_add_lsp_attr_attribute_flags_tlv(b.data(), RSVP_LSP_ATTR_FLAG_CONTIGUOUS_LSP);
    for (uint8_t t = 2; t <= kTlvs; ++t) {
        const uint8_t len = static_cast<uint8_t>(4 * (t % 4 + 1));
        b.insert(b.end(), {0, t, 0, len});
        b.resize(b.size() + len - 4, t);
    }
    RSVP_SET_OBJECT_LENGTH(b.data(), static_cast<uint16_t>(b.size()));
    return b;
}

void BM_SessionAttributeValidateExtract(benchmark::State &state) {
    std::vector<uint8_t> obj = session_attribute();
    for (auto _ : state) {
        uint8_t setup, hold, flags, len;
        const char *name;
        uint32_t ex, in_any, in_all;
        const int ok = rsvp_valid_session_attribute(obj.data()) &&
                       rsvp_extract_session_attribute(obj.data(), &setup, &hold, &flags, &len,
                                                      &name, &ex, &in_any, &in_all);
        if (!ok || len != kNameLen) state.SkipWithError("not extracted");
        benchmark::DoNotOptimize(name);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_SessionAttributeValidateExtract);

void BM_SessionAttributeMemcpy(benchmark::State &state) {
    std::vector<uint8_t> obj = session_attribute();
    rsvp_bench::memcpy_baseline(state, obj.data(), obj.size(), "ns/object");
}
BENCHMARK(BM_SessionAttributeMemcpy);

void BM_LspAttrWalk8(benchmark::State &state) {
    std::vector<uint8_t> obj = lsp_attributes();
    for (auto _ : state) {
        int n = 0;
        for (uint8_t *tlv = rsvp_get_lsp_attr_next_tlv(obj.data(), nullptr); tlv;
             tlv = rsvp_get_lsp_attr_next_tlv(obj.data(), tlv))
            n += RSVP_LSP_ATTR_TLV_TYPE(tlv) != 0;
        if (n != kTlvs) state.SkipWithError("TLVs not walked");
        benchmark::DoNotOptimize(n);
    }
    state.SetLabel("ns/object");
}
BENCHMARK(BM_LspAttrWalk8);

void BM_LspAttrMemcpy(benchmark::State &state) {
    std::vector<uint8_t> obj = lsp_attributes();
    rsvp_bench::memcpy_baseline(state, obj.data(), obj.size(), "ns/object");
}
BENCHMARK(BM_LspAttrMemcpy);

// 127 TLVs of 512 bytes whose bodies repeat 02 00: the add's unconverted reads then step two
// bytes at a time, its longest search (about 32 000 steps) before it refuses.
std::vector<uint8_t> large_lsp_attributes() {
    constexpr int kLargeTlvs = 127, kLargeTlvLen = 512;
    std::vector<uint8_t> b(RSVP_OBJ_HDR_LEN + kLargeTlvs * kLargeTlvLen);
    for (size_t i = RSVP_OBJ_HDR_LEN; i < b.size(); i += 2)
        b[i] = 2;
    rsvp_build_lsp_attributes(b.data(), 0);
    RSVP_SET_OBJECT_LENGTH(b.data(), static_cast<uint16_t>(b.size()));
    return b;
}

void BM_LspAttr64kValidate(benchmark::State &state) {
    std::vector<uint8_t> obj = large_lsp_attributes();
    for (auto _ : state)
        if (!rsvp_valid_lsp_attributes(obj.data())) state.SkipWithError("invalid");
    state.SetLabel("ns/call");
}
BENCHMARK(BM_LspAttr64kValidate);

void BM_LspAttr64kNextTlv(benchmark::State &state) {
    std::vector<uint8_t> obj = large_lsp_attributes();
    uint8_t *first = obj.data() + RSVP_OBJ_HDR_LEN;
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_get_lsp_attr_next_tlv(obj.data(), first));
    state.SetLabel("ns/call");
}
BENCHMARK(BM_LspAttr64kNextTlv);

void BM_LspAttr64kAddFlags(benchmark::State &state) {
    std::vector<uint8_t> obj = large_lsp_attributes();
    obj.resize(obj.size() + RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN);
    for (auto _ : state)
        if (rsvp_add_lsp_attr_attribute_flags_tlv(obj.data(), 1)) state.SkipWithError("added");
    state.SetLabel("ns/call");
}
BENCHMARK(BM_LspAttr64kAddFlags);

// 4095 WTR subobjects (the validator allows repeats): 32 772 bytes, the longest walk.
std::vector<uint8_t> large_pvt_protection() {
    constexpr int kSubs = 4095;
    std::vector<uint8_t> b(RSVP_PROTECTION_LEN + (kSubs + 1) * RSVP_PVT_PROTECTION_WTR_LEN);
    rsvp_build_pvt_protection(b.data());
    for (int i = 0; i < kSubs; ++i) {
        uint8_t *sub = b.data() + RSVP_PROTECTION_LEN + i * RSVP_PVT_PROTECTION_WTR_LEN;
        sub[1] = RSVP_PVT_PROTECTION_SUBOBJ_WTR;
        sub[3] = RSVP_PVT_PROTECTION_WTR_LEN;
    }
    RSVP_SET_OBJECT_LENGTH(b.data(), RSVP_PROTECTION_LEN + kSubs * RSVP_PVT_PROTECTION_WTR_LEN);
    return b;
}

void BM_PvtProtection32kValidate(benchmark::State &state) {
    std::vector<uint8_t> obj = large_pvt_protection();
    for (auto _ : state)
        if (!rsvp_valid_pvt_protection(obj.data())) state.SkipWithError("invalid");
    state.SetLabel("ns/call");
}
BENCHMARK(BM_PvtProtection32kValidate);

void BM_PvtProtection32kNextSubobject(benchmark::State &state) {
    std::vector<uint8_t> obj = large_pvt_protection();
    for (auto _ : state)
        benchmark::DoNotOptimize(rsvp_extract_pvt_protection_next_subobject(obj.data(), nullptr));
    state.SetLabel("ns/call");
}
BENCHMARK(BM_PvtProtection32kNextSubobject);

// Searches every WTR for a HOFF, then appends; the copy restores the object each time.
void BM_PvtProtection32kAddHoff(benchmark::State &state) {
    const std::vector<uint8_t> obj = large_pvt_protection();
    std::vector<uint8_t> work = obj;
    for (auto _ : state) {
        if (!rsvp_add_pvt_protection_hoff(work.data(), 1)) state.SkipWithError("refused");
        state.PauseTiming();
        work = obj;
        state.ResumeTiming();
    }
    state.SetLabel("ns/call");
}
BENCHMARK(BM_PvtProtection32kAddHoff);

}  // namespace
