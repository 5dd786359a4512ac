#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// The 8-byte objects accept exactly Length 8 with their class and C-Type 1.
TEST(BasicObjects, WordObjectsValidateOnlyAtLength8) {
    struct Row {
        uint8_t class_num;
        int (*valid)(uint8_t *);
    } rows[] = {{5, rsvp_valid_refresh}, {15, rsvp_valid_confirm_ipv4}, {8, rsvp_valid_style}};
    for (const Row &r : rows) {
        for (int len = 0; len <= 16; len += 4) {
            SCOPED_TRACE(testing::Message() << int(r.class_num) << " length " << len);
            HeapBytes o = heap_copy(object(r.class_num, 1, hex("00 00 00 0a 00 00 00 0a"), len));
            EXPECT_EQ(r.valid(o.data()), len == 8);
            EXPECT_EQ(rsvp_valid_object(o.data()), len == 8 ? 1u : 0u);
            o.data()[3] = 2;
            EXPECT_EQ(r.valid(o.data()), 0);
        }
        EXPECT_EQ(r.valid(nullptr), 0);
    }
}

TEST(TimeValuesAndConfirm, BuildExtractAndRead) {
    Bytes t(8, 0xEE), c(8, 0xEE);
    EXPECT_EQ(rsvp_build_refresh(t.data(), 30000), t.data());
    EXPECT_EQ(rsvp_build_confirm_ipv4(c.data(), ip("10.1.2.3")), c.data());
    EXPECT_EQ(to_hex(t) + " | " + to_hex(c),  // header, period 30000 ms | header, receiver
              "00 08 05 01 00 00 75 30 | 00 08 0f 01 0a 01 02 03");
    uint32_t a = 0;
    ASSERT_EQ(rsvp_extract_confirm_ipv4(c.data(), &a), 1);
    EXPECT_EQ(a, ip("10.1.2.3"));
    EXPECT_EQ(RSVP_CONFIRM_ADDR(c.data()), ip("10.1.2.3"));
    EXPECT_EQ(RSVP_REFRESH_TIME(t.data()), 30000u);
    t[3] = c[3] = 2;
    EXPECT_EQ(rsvp_extract_confirm_ipv4(c.data(), &a) + RSVP_CONFIRM_ADDR(c.data()), 0u);
    EXPECT_EQ(a, ip("10.1.2.3"));
    EXPECT_EQ(RSVP_REFRESH_TIME(t.data()), 0u);
}

TEST(Scope, EmptyListIsInvalidAndAddressesAreKeptOnce) {
    Bytes b(16, 0xEE);
    EXPECT_EQ(rsvp_build_scope_ipv4(b.data()), b.data());
    EXPECT_EQ(to_hex(b.data(), 4), "00 04 07 01");
    EXPECT_EQ(rsvp_valid_scope_ipv4(b.data()), 0);
    rsvp_add_scope_ipv4(b.data(), ip("1.1.1.1"));
    rsvp_add_scope_ipv4(b.data(), ip("2.2.2.2"));
    rsvp_add_scope_ipv4(b.data(), ip("1.1.1.1"));
    rsvp_add_scope_ipv4(nullptr, ip("1.1.1.1"));
    EXPECT_EQ(to_hex(b.data(), 12), "00 0c 07 01 01 01 01 01 02 02 02 02");
    EXPECT_EQ(rsvp_valid_object(b.data()), 1u);
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), 1), ip("2.2.2.2"));
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), -1), 0u);
    // The index is the caller's to bound: the word behind the Length is read as it is.
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), 2), 0xEEEEEEEEu);
    b[3] = 2;
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), 0), 0u);
    Bytes bad = object(7, 1, Bytes{}, 2);  // shorter than a header: left alone
    rsvp_add_scope_ipv4(bad.data(), ip("1.1.1.1"));
    EXPECT_EQ(to_hex(bad), "00 02 07 01");
}

TEST(Style, BuildWritesOnlyAcceptedStyles) {
    struct Row {
        uint8_t style;
        const char *word;
        int valid, explicit_sel;
    } rows[] = {{RSVP_STYLE_FF, "00 00 00 0a", 1, 1},
                {RSVP_STYLE_WF, "00 00 00 11", 1, 0},
                {RSVP_STYLE_SE, "00 00 00 12", 1, 1},
                {9, "00 00 00 00", 0, 0},
                {40, "00 00 00 00", 0, 0},
                {0, "00 00 00 00", 0, 0}};
    for (const Row &r : rows) {
        SCOPED_TRACE(int(r.style));
        Bytes b(8, 0xEE);
        EXPECT_EQ(rsvp_build_style(b.data(), r.style), b.data());
        EXPECT_EQ(to_hex(b), std::string("00 08 08 01 ") + r.word);
        EXPECT_EQ(rsvp_valid_style(b.data()), r.valid);
        EXPECT_EQ(rsvp_style_explicit(b.data()), r.explicit_sel);
        uint8_t out = 0xEE;
        EXPECT_EQ(rsvp_extract_style(b.data(), &out), r.valid);
        EXPECT_EQ(out, r.valid ? r.style : 0);  // written even on failure
        EXPECT_EQ(RSVP_STYLE_RESERVATION_TYPE(b.data()), r.valid ? r.style : 0);
    }
}

TEST(Style, ValidatorLooksAtTheLow5BitsAndSetterRewritesTheWord) {
    Bytes b = object(8, 1, hex("ff ff ff f2"));  // upper bits set, style 0x12
    EXPECT_EQ(rsvp_valid_style(b.data()), 1);
    RSVP_STYLE_SET_RESERVATION_TYPE(b.data(), 0xEA);
    EXPECT_EQ(to_hex(b), "00 08 08 01 00 00 00 0a");
    Bytes twelve = object(8, 1, hex("00 00 00 0a 00 00 00 00"));
    EXPECT_EQ(rsvp_valid_style(twelve.data()), 0);
    RSVP_STYLE_SET_RESERVATION_TYPE(twelve.data(), RSVP_STYLE_SE);
    EXPECT_EQ(to_hex(twelve.data(), 8), "00 0c 08 01 00 00 00 0a");
    uint8_t out = 0xEE;
    EXPECT_EQ(rsvp_extract_style(nullptr, &out), 0);
    EXPECT_EQ(out, 0);
}

TEST(Policy, BuildPadsAndAnyCTypeIsValid) {
    Bytes b(16, 0xEE);
    const uint8_t data[] = {1, 2, 3, 4, 5};
    EXPECT_EQ(rsvp_build_policy(b.data(), data, 5), b.data() + 4);
    EXPECT_EQ(to_hex(b), "00 0c 0e 01 01 02 03 04 05 00 00 00 ee ee ee ee");
    uint8_t *p = nullptr;
    uint16_t n = 0;
    ASSERT_EQ(rsvp_extract_policy(b.data(), &p, &n), 1);
    EXPECT_EQ(p, b.data() + 4);
    EXPECT_EQ(n, 8);
    b[3] = 7;
    EXPECT_EQ(rsvp_valid_policy(b.data()), 1);
    for (int len : {0, 2, 6}) {
        SCOPED_TRACE(len);
        Bytes o = object(14, 1, Bytes(8, 0), len);
        EXPECT_EQ(rsvp_valid_policy(o.data()), 0);
        EXPECT_EQ(rsvp_extract_policy(o.data(), &p, &n), 0);
    }
    EXPECT_EQ(p, b.data() + 4);  // untouched by the failures
    Bytes empty(4);
    rsvp_build_policy(empty.data(), nullptr, 0);
    EXPECT_EQ(to_hex(empty), "00 04 0e 01");
    EXPECT_EQ(rsvp_valid_policy(empty.data()) - rsvp_valid_policy(nullptr), 1);
}
