#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(S2lSubLspAndWrapLabel, BuildValidateExtract) {
    Bytes b(9, 0xEE);
    rsvp_build_s2l_sub_lsp_ipv4(b.data(), ip("10.0.0.7"));
    EXPECT_EQ(to_hex(b), "00 08 32 01 0a 00 00 07 ee");
    // C-Type, Length, valid; only C-Type 1 extracts.
    const int rows[][3] = {{1, 8, 1}, {1, 12, 0}, {2, 20, 1}, {2, 8, 0}, {2, 24, 0}, {3, 8, 0}};
    for (const auto &[ctype, len, valid] : rows) {
        SCOPED_TRACE(testing::Message() << ctype << " length " << len);
        HeapBytes o = heap_copy(object(50, uint8_t(ctype), hex("0a 00 00 07"), len), 20);
        EXPECT_EQ(rsvp_valid_object(o.data()), uint32_t(valid));
        uint32_t dest = 1;
        EXPECT_EQ(rsvp_extract_s2l_sub_lsp_ipv4(o.data(), &dest), valid && ctype == 1);
        EXPECT_EQ(dest, valid && ctype == 1 ? ip("10.0.0.7") : 1u);
        EXPECT_EQ(RSVP_S2L_SUB_LSP_DESTINATION(o.data()), valid ? ip("10.0.0.7") : 0u);
    }
    // The accessor reads any valid object holding offset 4..7, but nothing behind a shorter one.
    Bytes pol = hex("00 04 0e 01 0a 00 00 07");
    EXPECT_EQ(RSVP_S2L_SUB_LSP_DESTINATION(pol.data()), 0u);
    pol[1] = 8;
    EXPECT_EQ(RSVP_S2L_SUB_LSP_DESTINATION(pol.data()), ip("10.0.0.7"));
    std::fill(b.begin(), b.end(), 0xEE);
    const uint32_t label = 0x00012345;
    ASSERT_EQ(rsvp_build_lsp_wrap_label(b.data(), &label), 1);
    EXPECT_EQ(to_hex(b), "00 08 eb 01 00 01 23 45 ee");
    uint32_t out = 0;
    uint16_t count = 0;
    ASSERT_EQ(rsvp_extract_lsp_wrap_label(b.data(), &out, &count), 1);
    EXPECT_EQ(std::tuple(out, count, rsvp_valid_object(b.data())), std::tuple(label, 1, 1u));
    // Length 12, C-Type 2, class 16: refused by both, outputs untouched.
    for (const char *h : {"00 0c eb 01 00 01 23 45 00 00 00 00", "00 08 eb 02 00 01 23 45",
                          "00 08 10 01 00 01 23 45"}) {
        Bytes o = hex(h);
        out = count = 9;
        EXPECT_EQ(rsvp_valid_lsp_wrap_label(o.data()) +
                      rsvp_extract_lsp_wrap_label(o.data(), &out, &count),
                  0);
        EXPECT_EQ(std::tuple(out, count), std::tuple(9u, 9)) << h;
    }
}
