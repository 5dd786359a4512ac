#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

struct Set {
    uint8_t class_num;
    void (*build)(uint8_t *);
    int (*add)(uint8_t *, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t);
    int (*valid)(uint8_t *);
    int (*extract)(uint8_t *, uint32_t, uint32_t *, uint32_t *, uint32_t *, uint32_t *, uint32_t *);
};
const Set kSets[] = {{16, rsvp_build_gen_label_sonet_sdh, rsvp_add_gen_label_sonet_sdh,
                      rsvp_valid_gen_label_sonet_sdh, rsvp_extract_gen_label_sonet_sdh},
                     {35, rsvp_build_upstream_label_sonet_sdh, rsvp_add_upstream_label_sonet_sdh,
                      rsvp_valid_upstream_label_sonet_sdh, rsvp_extract_upstream_label_sonet_sdh}};

}  // namespace

TEST(SonetSdhLabel, AddRefusesDuplicatesAndExtractCountsFromZero) {
    for (const Set &set : kSets) {
        SCOPED_TRACE(int(set.class_num));
        Bytes b(16, 0xEE);
        set.build(b.data());
        EXPECT_EQ(set.add(b.data(), 1, 2, 3, 4, 5), 1);
        EXPECT_EQ(set.add(b.data(), 1, 2, 3, 4, 5), 0);  // the same time slot again
        EXPECT_EQ(set.add(nullptr, 1, 2, 3, 4, 5), 0);
        // length 8, class, C-Type 2 | S 1, U 2 K 3, L 4 M 5
        EXPECT_EQ(to_hex(b.data(), 8),
                  to_hex(concat({{0, 8, set.class_num, 2}, hex("00 01 23 45")})));
        EXPECT_EQ(set.add(b.data(), 0xABCD, 15, 0, 15, 1), 1);
        EXPECT_EQ(to_hex(b), to_hex(concat({{0, 12, set.class_num, 2},
                                            hex("00 01 23 45 ab cd f0 f1 ee ee ee ee")})));
        uint32_t f[5] = {9, 9, 9, 9, 9};
        ASSERT_EQ(set.extract(b.data(), 1, &f[0], &f[1], &f[2], &f[3], &f[4]), 1);
        EXPECT_EQ(std::vector<uint32_t>(f, f + 5), (std::vector<uint32_t>{0xABCD, 15, 0, 15, 1}));
        EXPECT_EQ(set.extract(b.data(), 2, &f[0], &f[1], &f[2], &f[3], &f[4]) +
                      set.extract(b.data(), 1, &f[0], &f[1], &f[2], &f[3], nullptr),
                  0);
        EXPECT_EQ(f[0], 0xABCDu);
        for (const Set &other : kSets) {
            EXPECT_EQ(other.valid(b.data()), &other == &set);
            EXPECT_EQ(other.extract(b.data(), 1, &f[0], &f[1], &f[2], &f[3], &f[4]),
                      &other == &set);
        }
        // The add looks neither at class nor C-Type; it needs a Length of 4 at least.
        Bytes any = object(7, 9, {}), tiny = object(16, 2, {}, 3);
        any.resize(8);  // room for the word
        EXPECT_EQ(set.add(any.data(), 1, 0, 0, 0, 0), 1);
        EXPECT_EQ(set.add(tiny.data(), 1, 0, 0, 0, 0), 0);
        EXPECT_EQ(to_hex(any) + " | " + to_hex(tiny), "00 08 07 09 00 01 00 00 | 00 03 10 02");
    }
}

TEST(SonetSdhLabelDeathTest, NibblesAbove15AndIndexZeroStopTheProcess) {
    Bytes b(16);
    rsvp_build_gen_label_sonet_sdh(b.data());
    rsvp_add_gen_label_sonet_sdh(b.data(), 1, 0, 0, 0, 0);
    rsvp_add_gen_label_sonet_sdh(b.data(), 2, 0, 0, 0, 0);
    uint32_t s, u, k, l, m;
    EXPECT_DEATH(rsvp_add_gen_label_sonet_sdh(b.data(), 3, 16, 0, 0, 0), "");
    EXPECT_DEATH(rsvp_add_upstream_label_sonet_sdh(b.data(), 3, 0, 16, 0, 0), "");
    EXPECT_DEATH(rsvp_add_gen_label_sonet_sdh(b.data(), 3, 0, 0, 16, 0), "");
    EXPECT_DEATH(rsvp_add_gen_label_sonet_sdh(b.data(), 3, 0, 0, 0, 16), "");
    // The first word cannot be extracted, although indices count from it.
    EXPECT_DEATH(rsvp_extract_gen_label_sonet_sdh(b.data(), 0, &s, &u, &k, &l, &m), "");
    EXPECT_DEATH(rsvp_extract_upstream_label_sonet_sdh(nullptr, 0, &s, &u, &k, &l, &m), "");
    EXPECT_EQ(rsvp_add_gen_label_sonet_sdh(nullptr, 3, 16, 16, 16, 16), 0);  // null first
}
