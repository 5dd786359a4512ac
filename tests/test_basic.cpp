#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// TIME_VALUES and RESV_CONFIRM validate, and their accessors read, only at Length 8 with
// C-Type 1.
TEST(TimeValuesAndConfirm, BuildValidateAndExtract) {
    Bytes t(8, 0xEE), c(8, 0xEE);
    EXPECT_EQ(rsvp_build_refresh(t.data(), 30000), t.data());
    EXPECT_EQ(rsvp_build_confirm_ipv4(c.data(), ip("10.1.2.3")), c.data());
    EXPECT_EQ(to_hex(t) + " | " + to_hex(c),  // header, period 30000 ms | header, receiver
              "00 08 05 01 00 00 75 30 | 00 08 0f 01 0a 01 02 03");
    uint32_t a = 0, untouched = 7;
    EXPECT_EQ(rsvp_extract_confirm_ipv4(c.data(), &a), 1);
    EXPECT_EQ(std::tuple(rsvp_valid_refresh(t.data()), RSVP_REFRESH_TIME(t.data()),
                         rsvp_valid_confirm_ipv4(c.data()), RSVP_CONFIRM_ADDR(c.data())),
              std::tuple(1, 30000u, 1, ip("10.1.2.3")));
    t[1] = 12, c[3] = 2;
    EXPECT_EQ(rsvp_extract_confirm_ipv4(c.data(), &untouched) + RSVP_CONFIRM_ADDR(c.data()) +
                  rsvp_valid_refresh(t.data()) + RSVP_REFRESH_TIME(t.data()),
              0u);
    EXPECT_EQ(std::tuple(a, untouched), std::tuple(ip("10.1.2.3"), 7u));
}

TEST(Scope, EmptyListIsInvalidAndAddressesAreKeptOnce) {
    Bytes b(16, 0xEE);
    EXPECT_EQ(rsvp_build_scope_ipv4(b.data()), b.data());
    EXPECT_EQ(rsvp_valid_scope_ipv4(b.data()), 0);
    for (const char *a : {"1.1.1.1", "2.2.2.2", "1.1.1.1"})
        rsvp_add_scope_ipv4(b.data(), ip(a));
    rsvp_add_scope_ipv4(nullptr, ip("1.1.1.1"));
    EXPECT_EQ(to_hex(b.data(), 12), "00 0c 07 01 01 01 01 01 02 02 02 02");
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), 1), ip("2.2.2.2"));
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), -1), 0u);
    // The index is the caller's to bound: the word behind the Length is read as it is.
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), 2), 0xEEEEEEEEu);
    b[3] = 2;
    EXPECT_EQ(RSVP_SCOPE_IPV4_ADDR(b.data(), 0), 0u);
    Bytes bad = hex("00 02 07 01");  // shorter than a header: left alone
    rsvp_add_scope_ipv4(bad.data(), ip("1.1.1.1"));
    EXPECT_EQ(to_hex(bad), "00 02 07 01");
}

TEST(Style, BuildWritesOnlyAcceptedStyles) {
    // Style, last byte at offset 4, valid, explicit; 42 AND 31 is FF, but 42 is not below 32.
    const uint8_t rows[][4] = {
        {RSVP_STYLE_FF, 0x0a, 1, 1}, {RSVP_STYLE_WF, 0x11, 1, 0}, {9, 0, 0, 0}, {42, 0, 0, 0}};
    for (const auto &[style, word, valid, explicit_sel] : rows) {
        SCOPED_TRACE(int(style));
        Bytes b(8, 0xEE);
        EXPECT_EQ(rsvp_build_style(b.data(), style), b.data());
        EXPECT_EQ(b, (Bytes{0, 8, 8, 1, 0, 0, 0, word}));
        EXPECT_EQ(rsvp_style_explicit(b.data()), explicit_sel);
        uint8_t out = 0xEE;
        EXPECT_EQ(rsvp_extract_style(b.data(), &out), valid);
        EXPECT_EQ(out, valid ? style : 0u);  // written even on failure
    }
    Bytes b = object(8, 1, hex("ff ff ff f2"));  // upper bits set, style 0x12
    EXPECT_EQ(RSVP_STYLE_RESERVATION_TYPE(b.data()), RSVP_STYLE_SE);
    RSVP_STYLE_SET_RESERVATION_TYPE(b.data(), 0xEA);
    EXPECT_EQ(to_hex(b), "00 08 08 01 00 00 00 0a");
    Bytes twelve = object(8, 1, hex("00 00 00 0a 00 00 00 00"));  // invalid: left alone
    RSVP_STYLE_SET_RESERVATION_TYPE(twelve.data(), RSVP_STYLE_SE);
    EXPECT_EQ(rsvp_valid_style(twelve.data()) + RSVP_STYLE_RESERVATION_TYPE(twelve.data()), 0);
    EXPECT_EQ(to_hex(twelve.data(), 8), "00 0c 08 01 00 00 00 0a");
}

TEST(Policy, BuildPadsAndAnyCTypeIsValid) {
    Bytes b(16, 0xEE), empty(4);
    const uint8_t data[] = {1, 2, 3, 4, 5};
    EXPECT_EQ(rsvp_build_policy(b.data(), data, 5), b.data() + 4);
    EXPECT_EQ(to_hex(b), "00 0c 0e 01 01 02 03 04 05 00 00 00 ee ee ee ee");
    EXPECT_EQ(rsvp_build_policy(empty.data(), nullptr, 0), empty.data() + 4);
    EXPECT_EQ(to_hex(empty), "00 04 0e 01");
    // Whole words from 4 bytes on, whatever the C-Type; the outputs stay on failure.
    for (int len = 0; len <= 12; ++len) {
        SCOPED_TRACE(len);
        HeapBytes o = heap_copy(object(14, 7, Bytes(8, 0), len));
        const bool ok = len >= 4 && len % 4 == 0;
        uint8_t *p = nullptr;
        uint16_t n = 99;
        EXPECT_EQ(rsvp_extract_policy(o.data(), &p, &n), ok);
        EXPECT_EQ(p, ok ? o.data() + 4 : nullptr);
        EXPECT_EQ(n, ok ? len - 4 : 99);
    }
    EXPECT_EQ(rsvp_valid_policy(nullptr), 0);
}
