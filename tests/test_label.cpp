#include <gtest/gtest.h>

#include <algorithm>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

struct Wrapper {
    uint8_t class_num;
    int (*build)(uint8_t *, const uint32_t *, uint16_t);
    int (*valid)(uint8_t *);
    int (*extract)(uint8_t *, uint32_t **, uint16_t *);
};
const Wrapper kWrappers[] = {
    {16, rsvp_build_generalized_label, rsvp_valid_generalized_label,
     rsvp_extract_generalized_label},
    {35, rsvp_build_upstream_label, rsvp_valid_upstream_label, rsvp_extract_upstream_label},
    {129, rsvp_build_suggested_label, rsvp_valid_suggested_label, rsvp_extract_suggested_label},
    {34, rsvp_build_recovery_label, rsvp_valid_recovery_label, rsvp_extract_recovery_label}};

}  // namespace

// Each wrapper builds its own class and accepts only that class; the core also takes 235.
TEST(GeneralizedLabel, WrappersKeepToTheirClass) {
    const uint32_t labels[] = {0x00010203, 7};
    for (const Wrapper &w : kWrappers) {
        SCOPED_TRACE(int(w.class_num));
        Bytes b(16, 0xEE);
        ASSERT_EQ(w.build(b.data(), labels, 2), 1);
        // length 12, class, C-Type 2, two words, then the untouched rest
        EXPECT_EQ(to_hex(b),
                  to_hex(concat(
                      {{0, 12, w.class_num, 2}, hex("00 01 02 03 00 00 00 07"), Bytes(4, 0xEE)})));
        for (const Wrapper &other : kWrappers)
            EXPECT_EQ(other.valid(b.data()), &other == &w);
        EXPECT_EQ(rsvp_valid_object(b.data()), 1u);
        uint32_t out[3] = {9, 9, 9}, *p = out;
        uint16_t n = 0;
        ASSERT_EQ(w.extract(b.data(), &p, &n), 1);
        EXPECT_EQ(n, 2);
        EXPECT_EQ(out[0] + out[2], 0x00010203u + 9);
    }
    Bytes wrap(8);
    EXPECT_EQ(rsvp_generalized_label_build(wrap.data(), labels, 1, 235), 1);
    EXPECT_EQ(rsvp_generalized_label_valid(wrap.data(), 235), 1);
    for (uint8_t cls : {0, 17, 19, 36, 130, 234}) {
        SCOPED_TRACE(int(cls));
        Bytes b(8, 0xEE), other = object(cls, 2, Bytes(4, 0));
        EXPECT_EQ(rsvp_generalized_label_build(b.data(), labels, 1, cls), 0);
        EXPECT_EQ(b, Bytes(8, 0xEE));
        EXPECT_EQ(rsvp_generalized_label_valid(other.data(), cls), 0);
    }
    Bytes b(8, 0xEE);
    EXPECT_EQ(rsvp_generalized_label_build(b.data(), labels, 0, 16) +
                  rsvp_generalized_label_build(b.data(), nullptr, 1, 16) +
                  rsvp_generalized_label_build(nullptr, labels, 1, 16),
              0);
    EXPECT_EQ(b, Bytes(8, 0xEE));
}

// Any Length from 4 is valid, multiple of 4 or not; the extractor takes the whole words only.
TEST(GeneralizedLabel, LengthNeedNotBeWholeWords) {
    for (int len = 0; len <= 13; ++len) {
        SCOPED_TRACE(len);
        Bytes b = object(16, 2, hex("00 00 00 01 00 00 00 02 00 00 00 03"), len);
        b.resize(std::max(len, 4));  // nothing readable behind the Length
        HeapBytes o = heap_copy(b);
        const bool ok = len >= 4;
        EXPECT_EQ(rsvp_generalized_label_valid(o.data(), 16), ok);
        EXPECT_EQ(RSVP_LABEL_LENGTH(o.data()), len > 4 ? len - 4 : 0);
        uint32_t out[2] = {99, 99}, *p = out;
        uint16_t n = 77;
        EXPECT_EQ(rsvp_extract_generalized_label(o.data(), &p, &n), ok);
        EXPECT_EQ(n, ok ? (len - 4) / 4 : 77);
        EXPECT_EQ(out[0], len >= 8 ? 1u : 99u);
        EXPECT_EQ(out[1], len >= 12 ? 2u : 99u);
    }
    Bytes b = object(16, 2, hex("00 00 00 01"));
    uint32_t out = 5, *p = &out, *none = nullptr;
    uint16_t n = 7;
    EXPECT_EQ(rsvp_extract_generalized_label(b.data(), &none, &n) +
                  rsvp_extract_generalized_label(b.data(), nullptr, &n) +
                  rsvp_extract_generalized_label(b.data(), &p, nullptr) +
                  rsvp_extract_generalized_label(nullptr, &p, &n),
              0);
    EXPECT_EQ(out + n, 12u);
}

// The plain validators look at class and Length only; the class-table ones go by C-Type.
TEST(PlainLabels, PlainValidatorsIgnoreTheCType) {
    struct Row {
        uint8_t cls, ctype;
        int len, label, gen_label, request, gen_request, gen_req;
    } rows[] = {{16, 1, 8, 1, 1, 0, 0, 0},  {16, 5, 8, 1, 0, 0, 0, 0},  {16, 2, 8, 1, 1, 0, 0, 0},
                {16, 1, 12, 0, 0, 0, 0, 0}, {16, 2, 12, 0, 1, 0, 0, 0}, {16, 1, 4, 0, 0, 0, 0, 0},
                {19, 1, 8, 0, 0, 1, 1, 0},  {19, 4, 8, 0, 0, 1, 1, 1},  {19, 3, 8, 0, 0, 1, 0, 0},
                {19, 4, 12, 0, 0, 0, 0, 0}, {19, 1, 4, 0, 0, 0, 0, 0},  {35, 1, 8, 0, 0, 0, 0, 0}};
    for (const Row &r : rows) {
        SCOPED_TRACE(testing::Message() << int(r.cls) << "/" << int(r.ctype) << " len " << r.len);
        HeapBytes o = heap_copy(object(r.cls, r.ctype, Bytes(r.len - 4, 0)));
        EXPECT_EQ(rsvp_valid_label(o.data()), r.label);
        EXPECT_EQ(rsvp_valid_gen_label(o.data()), r.gen_label);
        EXPECT_EQ(rsvp_valid_label_request(o.data()), r.request);
        EXPECT_EQ(rsvp_valid_gen_label_request(o.data()), r.gen_request);
        EXPECT_EQ(rsvp_valid_gen_label_req(o.data()), r.gen_req);
        EXPECT_EQ(rsvp_valid_object(o.data()), unsigned(r.gen_label | r.gen_request));
        EXPECT_EQ(rsvp_lsp_packet_switched(o.data()), r.ctype == 1);
    }
    EXPECT_EQ(rsvp_valid_label(nullptr) + rsvp_valid_gen_label(nullptr) +
                  rsvp_valid_label_request(nullptr) + rsvp_valid_gen_label_request(nullptr) +
                  rsvp_valid_gen_label_req(nullptr) + rsvp_lsp_packet_switched(nullptr) +
                  rsvp_generalized_label_valid(nullptr, 16) + RSVP_LABEL_LENGTH(nullptr),
              0);
}

TEST(PlainLabels, BuildExtractAndSet) {
    Bytes label(8), request(8, 0xEE), gen(8);
    EXPECT_EQ(rsvp_build_label(label.data(), 0x12345), label.data());
    rsvp_build_label_request(request.data(), RSVP_L3PID_IPV4);
    rsvp_build_gen_label_req(gen.data(), 5, 100, 0x1234);
    EXPECT_EQ(to_hex(label), "00 08 10 01 00 01 23 45");    // LABEL 0x12345
    EXPECT_EQ(to_hex(request), "00 08 13 01 00 00 08 00");  // reserved 0, L3PID IPv4
    EXPECT_EQ(to_hex(gen), "00 08 13 04 05 64 12 34");      // SDH, TDM, G-PID 0x1234
    EXPECT_EQ(RSVP_LABEL_TOP_LABEL(label.data()), 0x12345u);
    EXPECT_EQ(RSVP_LABEL_LENGTH(label.data()), 4);
    rsvp_set_current_label(label.data(), 16);
    rsvp_set_current_label(nullptr, 16);
    EXPECT_EQ(to_hex(label), "00 08 10 01 00 00 00 10");
    uint16_t l3pid = 0, gpid = 0;
    uint8_t enc = 0, sw = 0;
    ASSERT_EQ(rsvp_extract_label_request(request.data(), &l3pid), 1);
    ASSERT_EQ(rsvp_extract_gen_label_req(gen.data(), &enc, &sw, &gpid), 1);
    EXPECT_EQ(l3pid, RSVP_L3PID_IPV4);
    EXPECT_EQ((Bytes{enc, sw}), (Bytes{5, 100}));
    EXPECT_EQ(gpid, 0x1234);
    // Failures leave the outputs alone and give the no-label value.
    uint32_t l = 3;
    EXPECT_EQ(rsvp_extract_gen_label_req(request.data(), &enc, &sw, &gpid) +
                  rsvp_extract_label(request.data(), &l) +
                  rsvp_extract_label(label.data(), nullptr) +
                  rsvp_extract_label_request(request.data(), nullptr),
              0);
    EXPECT_EQ(l + enc + gpid, 3u + 5 + 0x1234);
    EXPECT_EQ(rsvp_extract_label_request(gen.data(), &l3pid), 1);  // plain: C-Type ignored
    EXPECT_EQ(l3pid, 0x1234);
    EXPECT_EQ(RSVP_LABEL_TOP_LABEL(nullptr), 1048577u);
    EXPECT_EQ(RSVP_LABEL_TOP_LABEL(request.data()), 1048577u);
    const uint32_t in[2] = {0x01020304, 0x0a0b0c0d};
    uint32_t out[3] = {};
    RSVP_COPY_LABEL_HTONL(out, in, 2);
    RSVP_COPY_SRLG_NTOHL(out + 1, out + 1, 1);
    EXPECT_EQ(to_hex(reinterpret_cast<uint8_t *>(out), 12),
              "01 02 03 04 0d 0c 0b 0a 00 00 00 00");  // first swapped, second swapped back
}
