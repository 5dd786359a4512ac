#include <gtest/gtest.h>

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

// Each wrapper keeps to its own class; the core also carries 235 and refuses, unwritten, the rest.
TEST(GeneralizedLabel, WrappersAndLengthsNotWholeWords) {
    const uint32_t labels[] = {0x00010203, 7};
    for (const Wrapper &w : kWrappers) {
        SCOPED_TRACE(int(w.class_num));
        Bytes b(16, 0xEE);
        ASSERT_EQ(w.build(b.data(), labels, 2), 1);
        EXPECT_EQ(b, concat({{0, 12, w.class_num, 2}, hex("00 01 02 03 00 00 00 07 ee ee ee ee")}));
        for (const Wrapper &other : kWrappers)
            EXPECT_EQ(other.valid(b.data()), &other == &w);
        EXPECT_EQ(rsvp_valid_object(b.data()), 1u);
        uint32_t out[2] = {}, *p = out;
        uint16_t n = 0;
        EXPECT_EQ(w.extract(b.data(), &p, &n) * 100 + n + out[1], 102u + 7);
    }
    for (uint8_t cls : {0, 17, 19, 36, 130, 234, 235}) {
        SCOPED_TRACE(int(cls));
        Bytes b(8, 0xEE), o = object(cls, 2, Bytes(4, 0));
        EXPECT_EQ(rsvp_generalized_label_build(b.data(), labels, 0, cls) +
                      rsvp_generalized_label_build(b.data(), nullptr, 1, cls) +
                      rsvp_generalized_label_build(nullptr, labels, 1, cls),
                  0);
        EXPECT_EQ(b, Bytes(8, 0xEE));
        EXPECT_EQ(rsvp_generalized_label_build(b.data(), labels, 1, cls), cls == 235);
        EXPECT_EQ(rsvp_generalized_label_valid(o.data(), cls), cls == 235);
    }
    // Any Length from 4 is valid; the extractors take whole words only, or leave outputs alone.
    for (int len = 0; len <= 13; ++len) {
        SCOPED_TRACE(len);
        Bytes b = object(16, 2, hex("00 00 00 01 00 00 00 02 00 00 00 03"), len);
        b.resize(std::max(len, 4));  // nothing readable behind the Length
        HeapBytes o = heap_copy(b);
        const bool ok = len >= 4;
        EXPECT_EQ(rsvp_generalized_label_valid(o.data(), 16), ok);
        uint32_t out[2] = {99, 99}, *p = out, *none = nullptr;
        uint16_t n = 77;
        EXPECT_EQ(rsvp_extract_generalized_label(o.data(), &none, &n) +
                      rsvp_extract_generalized_label(o.data(), nullptr, &n) +
                      rsvp_extract_generalized_label(o.data(), &p, nullptr),
                  0);
        EXPECT_EQ(rsvp_extract_generalized_label(o.data(), &p, &n), ok);
        EXPECT_EQ((std::vector<uint32_t>{n, out[0], out[1]}),
                  (std::vector<uint32_t>{ok ? (len - 4u) / 4 : 77, len >= 8 ? 1u : 99,
                                         len >= 12 ? 2u : 99}));
    }
}

// The plain validators look at class and Length only; the class-table ones go by C-Type.
TEST(PlainLabels, ValidatorsBuildExtractSetAndCopy) {
    struct Row {
        uint8_t cls, ctype;
        int len, label, gen_label, request, gen_request, gen_req;
    } rows[] = {{16, 1, 8, 1, 1, 0, 0, 0},  {16, 5, 8, 1, 0, 0, 0, 0},  {16, 2, 8, 1, 1, 0, 0, 0},
                {16, 2, 12, 0, 1, 0, 0, 0}, {19, 1, 8, 0, 0, 1, 1, 0},  {19, 4, 8, 0, 0, 1, 1, 1},
                {19, 3, 8, 0, 0, 1, 0, 0},  {19, 4, 12, 0, 0, 0, 0, 0}, {35, 1, 8, 0, 0, 0, 0, 0}};
    for (const Row &r : rows) {
        SCOPED_TRACE(testing::Message() << int(r.cls) << "/" << int(r.ctype) << " len " << r.len);
        HeapBytes o = heap_copy(object(r.cls, r.ctype, Bytes(r.len - 4, 0)));
        EXPECT_EQ((std::vector<int>{rsvp_valid_label(o.data()), rsvp_valid_gen_label(o.data()),
                                    rsvp_valid_label_request(o.data()),
                                    rsvp_valid_gen_label_request(o.data()),
                                    rsvp_valid_gen_label_req(o.data())}),
                  (std::vector<int>{r.label, r.gen_label, r.request, r.gen_request, r.gen_req}));
        EXPECT_EQ(rsvp_valid_object(o.data()), unsigned(r.gen_label | r.gen_request));
        EXPECT_EQ(rsvp_lsp_packet_switched(o.data()), r.ctype == 1);
    }
    rsvp_set_current_label(nullptr, 16);
    EXPECT_EQ(rsvp_valid_label(nullptr) + rsvp_valid_gen_label(nullptr) +
                  rsvp_valid_label_request(nullptr) + rsvp_valid_gen_label_request(nullptr) +
                  rsvp_valid_gen_label_req(nullptr) + rsvp_lsp_packet_switched(nullptr) +
                  rsvp_generalized_label_valid(nullptr, 16) + RSVP_LABEL_LENGTH(nullptr),
              0);
    Bytes label(8), request(8, 0xEE), gen(8);
    EXPECT_EQ(rsvp_build_label(label.data(), 0x12345), label.data());
    rsvp_build_label_request(request.data(), RSVP_L3PID_IPV4);
    rsvp_build_gen_label_req(gen.data(), 5, 100, 0x1234);
    // LABEL 0x12345 | LABEL_REQUEST: reserved 0, L3PID IPv4 | SDH, TDM, G-PID 0x1234
    EXPECT_EQ(concat({label, request, gen}), hex("00 08 10 01 00 01 23 45  00 08 13 01 00 00 08 00 "
                                                 " 00 08 13 04 05 64 12 34"));
    EXPECT_EQ(RSVP_LABEL_TOP_LABEL(label.data()) + RSVP_LABEL_LENGTH(label.data()), 0x12345u + 4);
    uint16_t l3pid = 0, gpid = 0;
    uint8_t enc = 0, sw = 0;
    uint32_t l = 3;
    // The plain request extractor takes any C-Type.
    ASSERT_EQ(rsvp_extract_gen_label_req(gen.data(), &enc, &sw, &gpid) +
                  rsvp_extract_label_request(gen.data(), &l3pid),
              2);
    EXPECT_EQ((std::vector<int>{enc, sw, gpid, l3pid}), (std::vector<int>{5, 100, 0x1234, 0x1234}));
    // Failures, a request read as a label among them, leave the outputs alone.
    EXPECT_EQ(rsvp_extract_gen_label_req(request.data(), &enc, &sw, &gpid) +
                  rsvp_extract_label(request.data(), &l) +
                  rsvp_extract_label(label.data(), nullptr) +
                  rsvp_extract_label_request(request.data(), nullptr),
              0);
    EXPECT_EQ(l + enc + gpid, 3u + 5 + 0x1234);
    EXPECT_EQ(RSVP_LABEL_TOP_LABEL(nullptr) + RSVP_LABEL_TOP_LABEL(request.data()), 2 * 1048577u);
    // The label write takes any object and leaves its header alone.
    rsvp_set_current_label(gen.data(), 16);
    EXPECT_EQ(to_hex(gen), "00 08 13 04 00 00 00 10");
    const uint32_t host[] = {0x01020304, 16};
    uint32_t wire[2][2] = {}, back[2][2] = {};
    RSVP_COPY_LABEL_HTONL(wire[0], host, 2);
    RSVP_COPY_SRLG_HTONL(wire[1], host, 2);
    RSVP_COPY_LABEL_NTOHL(back[0], wire[0], 2);
    RSVP_COPY_SRLG_NTOHL(back[1], wire[1], 2);
    EXPECT_EQ(to_hex(reinterpret_cast<uint8_t *>(wire), 16),
              "01 02 03 04 00 00 00 10 01 02 03 04 00 00 00 10");
    EXPECT_EQ(back[0][1] + back[1][1], 32u);
}
