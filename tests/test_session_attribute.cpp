#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// The builder counts a 20-byte head although C-Type 7 needs 8: 12 zero bytes always follow the
// padded name, and nothing is written behind the Length.
TEST(SessionAttribute, BuildAddsTwentyBytesToTheName) {
    const struct {
        const char *name;
        const char *bytes;
    } rows[] = {
        {"",
         "00 14 cf 07 07 03 05 00"
         "00000000 00000000 00000000"},
        {"A",
         "00 18 cf 07 07 03 05 01"
         "41000000 00000000 00000000 00000000"},
        {"LSP-to-PE3-xy",
         "00 24 cf 07 07 03 05 0d"  // name 13, 3 bytes of padding
         "4c53502d 746f2d50 45332d78 79000000 00000000 00000000 00000000"},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.name);
        const Bytes want = hex(r.bytes);
        Bytes b(want.size() + 4, 0xEE);
        rsvp_build_session_attribute(b.data(), 7, 3, 5, uint8_t(strlen(r.name)), r.name);
        EXPECT_EQ(to_hex(b), to_hex(want) + " ee ee ee ee");
        EXPECT_EQ(rsvp_valid_session_attribute(b.data()), 1);
    }
}

// C-Type 7 from 8 bytes, C-Type 1 from 20, whole words only; priorities 0..7; no other C-Type.
TEST(SessionAttribute, ValidatorBoundaries) {
    for (uint8_t c_type : {1, 7, 2}) {
        const unsigned min = c_type == 1 ? 20 : 8;
        for (unsigned len = 0; len <= 28; ++len) {
            SCOPED_TRACE(testing::Message() << "c-type " << int(c_type) << " length " << len);
            Bytes cut = object(207, c_type, Bytes(24, 0), int(len));
            cut.resize(std::max(len, 4u));
            HeapBytes o = heap_copy(cut);
            EXPECT_EQ(rsvp_valid_session_attribute(o.data()),
                      c_type != 2 && len >= min && len % 4 == 0);
        }
        for (uint8_t setup : {7, 8})
            for (uint8_t hold : {7, 8}) {
                Bytes o = object(207, c_type, Bytes(20, 0));
                o[c_type == 1 ? 16 : 4] = setup;
                o[c_type == 1 ? 17 : 5] = hold;
                EXPECT_EQ(rsvp_valid_session_attribute(o.data()),
                          c_type != 2 && setup == 7 && hold == 7);
            }
    }
    Bytes wrong_class = object(206, 7, Bytes(4, 0));
    EXPECT_EQ(rsvp_valid_session_attribute(wrong_class.data()), 0);
    EXPECT_EQ(rsvp_valid_session_attribute(nullptr), 0);
}

// The validator repairs a name length that does not fit, in the object itself.
TEST(SessionAttribute, ValidatorClampsTheNameLength) {
    const struct {
        uint8_t c_type;
        int length, name_len_at, before, after;
    } rows[] = {{7, 12, 7, 9, 4},  {7, 12, 7, 4, 4},    {7, 12, 7, 3, 3},
                {7, 8, 7, 255, 0}, {1, 24, 19, 200, 4}, {1, 20, 19, 1, 0}};
    for (const auto &r : rows) {
        SCOPED_TRACE(testing::Message() << r.length << "/" << r.before);
        Bytes o = object(207, r.c_type, Bytes(r.length - 4, 0));
        o[r.name_len_at] = uint8_t(r.before);
        ASSERT_EQ(rsvp_valid_session_attribute(o.data()), 1);
        EXPECT_EQ(o[r.name_len_at], r.after);
        uint8_t n = 0xEE;
        const char *name = nullptr;
        ASSERT_EQ(rsvp_extract_session_attribute(o.data(), nullptr, nullptr, nullptr, &n, &name,
                                                 nullptr, nullptr, nullptr),
                  1);
        EXPECT_EQ(n, r.after);
        EXPECT_EQ(name, reinterpret_cast<char *>(o.data() + r.name_len_at + 1));
    }
}

TEST(SessionAttribute, ExtractBothCTypes) {
    Bytes ra = object(207, 1, hex("00000001 00000002 80000003  02 04 0b 03 41 42 43 00"));
    Bytes t7 = object(207, 7, hex("01 02 03 02 58 59 00 00"));
    uint8_t s = 0, h = 0, f = 0, n = 0;
    const char *name = nullptr;
    uint32_t ex = 0xEE, in_any = 0xEE, in_all = 0xEE;
    ASSERT_EQ(
        rsvp_extract_session_attribute(ra.data(), &s, &h, &f, &n, &name, &ex, &in_any, &in_all), 1);
    EXPECT_EQ(
        std::string(name, n) + " " + std::to_string(s) + std::to_string(h) + std::to_string(f),
        "ABC 2411");
    EXPECT_EQ(ex + in_any * 16 + uint64_t(in_all), 1u + 32u + 0x80000003u);
    ASSERT_EQ(
        rsvp_extract_session_attribute(t7.data(), &s, &h, &f, &n, &name, &ex, &in_any, &in_all), 1);
    EXPECT_EQ(
        std::string(name, n) + " " + std::to_string(s) + std::to_string(h) + std::to_string(f),
        "XY 123");
    EXPECT_EQ(ex | in_any | in_all, 0u);
    t7[4] = 8;  // setup priority 8: invalid, outputs stay
    EXPECT_EQ(
        rsvp_extract_session_attribute(t7.data(), &s, &h, &f, &n, &name, &ex, &in_any, &in_all), 0);
    EXPECT_EQ(s, 1);
}

// protected reads the local-protection bit unvalidated; the flag accessors validate first, and
// the setter writes into any valid object of C-Type 7 or 1 whose Length covers the flags.
TEST(SessionAttribute, FlagsAndProtection) {
    Bytes t7 = object(207, 7, hex("07 07 03 00")), ra = object(207, 1, Bytes(16, 0));
    ra[18] = 0x02;
    EXPECT_EQ(rsvp_session_attribute_protected(t7.data()), 1);
    EXPECT_EQ(rsvp_session_attribute_protected(ra.data()), 0);
    ra[18] = 0x01;
    EXPECT_EQ(rsvp_session_attribute_protected(ra.data()), 1);
    t7[4] = 9;  // invalid priority: still read
    EXPECT_EQ(rsvp_session_attribute_protected(t7.data()), 1);
    EXPECT_EQ(RSVP_SESSION_ATTRIBUTE_FLAGS(t7.data()), 0u);
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(t7.data(), 0x10);
    EXPECT_EQ(t7[6], 0x03);
    t7[4] = 7;
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(t7.data(), 0x12);
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(ra.data(), 0x34);
    EXPECT_EQ(
        RSVP_SESSION_ATTRIBUTE_FLAGS(t7.data()) * 256 + RSVP_SESSION_ATTRIBUTE_FLAGS(ra.data()),
        0x1234u);
    t7[3] = 2;
    EXPECT_EQ(
        rsvp_session_attribute_protected(t7.data()) + rsvp_session_attribute_protected(nullptr), 0);
    // A valid 16-byte SESSION of C-Type 7 takes the write at offset 6; an 8-byte TIME_VALUES
    // (C-Type 1) is too short for offset 18 and is left alone.
    Bytes session = object(1, 7, hex("0a000003 00000001 0a000001"));
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(session.data(), 0xAB);
    EXPECT_EQ(session[6], 0xAB);
    Bytes tv = concat({object(5, 1, hex("00 00 75 30")), Bytes(12, 0xEE)});
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(tv.data(), 0xAB);
    EXPECT_EQ(tv[18], 0xEE);
}
