#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// The class-35 set in full; the class-16 twin shares its code.
TEST(SonetSdhLabel, AddRefusesDuplicatesAndExtractCountsFromZero) {
    Bytes b(16, 0xEE), l16(4);
    rsvp_build_upstream_label_sonet_sdh(b.data());
    rsvp_build_gen_label_sonet_sdh(l16.data());
    EXPECT_EQ(to_hex(l16), "00 04 10 02");
    // S 1, U 2 K 3, L 4 M 5 once (again: refused), then S 0xabcd, U 15 K 0, L 15 M 1
    EXPECT_EQ((std::vector<int>{rsvp_add_upstream_label_sonet_sdh(b.data(), 1, 2, 3, 4, 5),
                                rsvp_add_upstream_label_sonet_sdh(b.data(), 1, 2, 3, 4, 5),
                                rsvp_add_upstream_label_sonet_sdh(nullptr, 1, 2, 3, 4, 5),
                                rsvp_add_upstream_label_sonet_sdh(b.data(), 0xABCD, 15, 0, 15, 1)}),
              (std::vector<int>{1, 0, 0, 1}));
    EXPECT_EQ(to_hex(b), "00 0c 23 02 00 01 23 45 ab cd f0 f1 ee ee ee ee");
    uint32_t f[5] = {9, 9, 9, 9, 9};
    // Past the last word, or the class-16 twin on a class-35 object: refused.
    EXPECT_EQ(
        rsvp_extract_upstream_label_sonet_sdh(b.data(), 2, &f[0], &f[1], &f[2], &f[3], &f[4]) +
            rsvp_extract_gen_label_sonet_sdh(b.data(), 1, &f[0], &f[1], &f[2], &f[3], &f[4]) +
            rsvp_valid_gen_label_sonet_sdh(b.data()),
        0);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 5), std::vector<uint32_t>(5, 9));
    ASSERT_EQ(rsvp_extract_upstream_label_sonet_sdh(b.data(), 1, &f[0], &f[1], &f[2], &f[3], &f[4]),
              1);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 5), (std::vector<uint32_t>{0xABCD, 15, 0, 15, 1}));
    EXPECT_EQ(rsvp_valid_upstream_label_sonet_sdh(b.data()) +
                  rsvp_valid_upstream_label_sonet_sdh(l16.data()) +
                  rsvp_valid_gen_label_sonet_sdh(l16.data()),
              2);
    // The add looks neither at class nor C-Type; it needs a Length of 4 at least, writes behind
    // the last whole word and adds 4 to the Length as it stands.
    Bytes any = object(7, 9, Bytes(4, 0xEE), 6), tiny = hex("00 03 10 02");
    EXPECT_EQ(rsvp_add_gen_label_sonet_sdh(any.data(), 1, 0, 0, 0, 0) +
                  rsvp_add_upstream_label_sonet_sdh(tiny.data(), 1, 0, 0, 0, 0),
              1);
    EXPECT_EQ(concat({any, tiny}), hex("00 0a 07 09 00 01 00 00  00 03 10 02"));
}

TEST(SonetSdhLabelDeathTest, NibblesAbove15AndIndexZeroStopTheProcess) {
    Bytes b = object(16, 2, hex("00 01 00 00 00 02 00 00"));  // two words
    uint32_t s, u, k, l, m;
    // The nibbles are checked before the Length: a 3-byte object stops the process too.
    Bytes tiny = hex("00 03 10 02");
    EXPECT_DEATH(rsvp_add_gen_label_sonet_sdh(tiny.data(), 3, 16, 0, 0, 0), "");
    EXPECT_DEATH(rsvp_add_upstream_label_sonet_sdh(b.data(), 3, 0, 16, 0, 0), "");
    EXPECT_DEATH(rsvp_add_gen_label_sonet_sdh(b.data(), 3, 0, 0, 16, 0), "");
    EXPECT_DEATH(rsvp_add_gen_label_sonet_sdh(b.data(), 3, 0, 0, 0, 16), "");
    // The first word cannot be extracted, although indices count from it.
    EXPECT_DEATH(rsvp_extract_gen_label_sonet_sdh(b.data(), 0, &s, &u, &k, &l, &m), "");
    EXPECT_DEATH(rsvp_extract_upstream_label_sonet_sdh(nullptr, 0, &s, &u, &k, &l, &m), "");
    EXPECT_EQ(rsvp_add_gen_label_sonet_sdh(nullptr, 3, 16, 16, 16, 16), 0);  // null first
}
