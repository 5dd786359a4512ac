#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {
const uint32_t kSrc = ip("192.0.2.1"), kDst = ip("198.51.100.2");
}

TEST(GeneralizedUni, BuildSubobjectsAndTheWalker) {
    Bytes b(24, 0xEE);
    rsvp_build_gen_uni_attr(b.data());
    EXPECT_EQ(rsvp_add_src_tna_ipv4(b.data(), kSrc) + rsvp_add_src_tna_ipv4(b.data(), kDst) +
                  rsvp_add_dst_tna_ipv4(b.data(), kDst) + rsvp_add_dst_tna_ipv4(b.data(), kSrc),
              2);
    EXPECT_EQ(to_hex(b),
              "00 14 d0 01 "              // header, Length 20
              "00 08 01 01 c0 00 02 01 "  // source TNA, IPv4
              "00 08 02 01 c6 33 64 02 "  // destination TNA
              "ee ee ee ee");
    uint32_t a = 0, d = 0;
    uint8_t *src = RSVP_SUB_GUA_SUBOBJ_PTR(b.data());
    uint8_t *dst = rsvp_extract_gen_uni_attr_next_subobj(b.data(), src);
    ASSERT_EQ(src, rsvp_extract_gen_uni_attr_next_subobj(b.data(), nullptr));
    ASSERT_EQ(dst, b.data() + 12);
    EXPECT_EQ(
        rsvp_extract_src_tna_ipv4_subobj(src, &a) + rsvp_extract_dst_tna_ipv4_subobj(dst, &d) +
            rsvp_extract_src_tna_ipv4_subobj(dst, &a) + rsvp_extract_dst_tna_ipv4_subobj(src, &d),
        2);
    EXPECT_EQ(std::tuple(a, d), std::tuple(kSrc, kDst));
    EXPECT_EQ(RSVP_SUB_GUA_DST_IPV4_ADDR(src), kSrc);                      // whatever the type
    EXPECT_EQ(rsvp_add_dst_tna_ipv4(hex("00 02 d0 01").data(), kSrc), 0);  // Length below 4
    // The first five are valid; a TNA has 8 bytes exactly.
    const char *rows[] = {"00 08 01 01 0a 00 00 01",
                          "00 08 02 01 0a 00 00 01",
                          "00 04 03 01",
                          "00 0c 04 01 00 00 00 01 00 00 00 02",
                          "00 08 05 01 00 00 00 00",
                          "00 0c 01 01 0a 00 00 01 00 00 00 00",
                          "00 08 06 01 00 00 00 00",
                          "00 08 02 02 0a 00 00 01",
                          "00 06 03 01 00 00 00 00",
                          "00 00 03 01 00 00 00 00"};
    for (const char *&h : rows) {
        SCOPED_TRACE(h);
        const bool ok = &h - rows < 5;
        Bytes sub = hex(h);
        HeapBytes s = heap_copy(sub);
        EXPECT_EQ(rsvp_valid_gen_uni_attr_subobject(s.data()), ok);
        // An invalid one answers 0 from every accessor, its address word included.
        EXPECT_EQ(RSVP_SUB_GUA_TYPE(s.data()) + RSVP_SUB_GUA_LENGTH(s.data()) +
                      (ok ? 0 : RSVP_SUB_GUA_DST_IPV4_ADDR(s.data())),
                  ok ? sub[2] + sub.size() : 0);
        // The object holding it, and one whose Length cuts it short by 4 bytes.
        HeapBytes o = heap_copy(object(208, 1, sub));
        EXPECT_EQ(rsvp_valid_object(o.data()), uint32_t(ok));
        HeapBytes cut = heap_copy(object(208, 1, sub, int(sub.size())));
        EXPECT_EQ(rsvp_valid_gen_uni_attr(cut.data()), sub.size() == 4);  // 4: then empty
    }
    EXPECT_EQ(rsvp_valid_gen_uni_attr(hex("00 04 d0 02").data()) +
                  rsvp_valid_gen_uni_attr_subobject(nullptr),
              0);
    // A candidate at the object end is examined: what lies behind is returned if it looks valid.
    const Bytes one = object(208, 1, hex("00 04 03 01"));
    Bytes w = concat({one, hex("00 08 02 01 0a 00 00 09")});
    uint8_t *first = rsvp_extract_gen_uni_attr_next_subobj(w.data(), nullptr);
    EXPECT_EQ(RSVP_SUB_GUA_SRC_IPV4_ADDR(first), ip("0.8.2.1"));  // a 4-byte one: the next word
    EXPECT_EQ(rsvp_extract_gen_uni_attr_next_subobj(w.data(), first), w.data() + 8);
    EXPECT_EQ(rsvp_extract_gen_uni_attr_next_subobj(w.data(), w.data() + 8), nullptr);  // past
    EXPECT_EQ(rsvp_extract_gen_uni_attr_next_subobj(w.data(), w.data()), nullptr);      // bad prev
    HeapBytes z = heap_copy(concat({one, Bytes(4, 0)}));
    EXPECT_EQ(rsvp_extract_gen_uni_attr_next_subobj(z.data(), z.data() + 4), nullptr);
    z.data()[3] = 2;  // invalid object
    EXPECT_EQ(rsvp_extract_gen_uni_attr_next_subobj(z.data(), nullptr), nullptr);
    EXPECT_EQ(RSVP_SUB_GUA_SUBOBJ_PTR(z.data()), nullptr);
}

TEST(GeneralizedUniDeathTest, AddAssertsThatSubobjectsEndAtTheLength) {
    Bytes over = object(208, 1, hex("00 0c 03 01 00 00 00 00"), 12);  // 12 claimed, 8 there
    Bytes zero = object(208, 1, hex("00 00 03 01 00 00 00 00"));
    EXPECT_DEATH(rsvp_add_src_tna_ipv4(over.data(), kSrc), "assertion failed");
    EXPECT_DEATH(rsvp_add_dst_tna_ipv4(zero.data(), kSrc), "assertion failed");
    over[6] = 1;  // a source TNA is found before the overshoot
    EXPECT_EQ(rsvp_add_src_tna_ipv4(over.data(), kSrc), 0);
    // Three bytes left: the type byte inside is looked at, and a length of 3 ends at the Length.
    Bytes odd = object(208, 1, hex("00 05 03 01 00 00 03 01"));
    odd.resize(20);
    EXPECT_EQ(rsvp_add_src_tna_ipv4(odd.data(), kSrc), 0);
    EXPECT_EQ(rsvp_add_dst_tna_ipv4(odd.data(), kSrc), 1);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(odd.data()), 20);
}
