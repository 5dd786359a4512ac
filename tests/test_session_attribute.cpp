#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// The builder adds a 20-byte head although C-Type 7 needs 8: 12 counted zero bytes follow the
// name. C-Type 7 is valid from 8 bytes, C-Type 1 from 20, whole words, priorities 0..7 only.
TEST(SessionAttribute, BuildAddsTwentyBytesAndValidatorBoundaries) {
    const char *builds[][2] = {{"", "00 14 cf 07 07 03 05 00  00000000 00000000 00000000"},
                               {"LSP-to-PE3-xy",
                                "00 24 cf 07 07 03 05 0d  4c53502d 746f2d50 45332d78 79000000"
                                "00000000 00000000 00000000"}};
    for (const auto &[name, bytes] : builds) {
        SCOPED_TRACE(name);
        Bytes b(hex(bytes).size() + 4, 0xEE);
        rsvp_build_session_attribute(b.data(), 7, 3, 5, uint8_t(strlen(name)), name);
        EXPECT_EQ(to_hex(b), to_hex(hex(bytes)) + " ee ee ee ee");
    }
    for (uint8_t c_type : {1, 7, 2}) {
        for (unsigned len = 0; len <= 28; ++len) {
            SCOPED_TRACE(testing::Message() << int(c_type) << " length " << len);
            Bytes cut = object(207, c_type, Bytes(24, 0), int(len));
            cut.resize(std::max(len, 4u));
            HeapBytes o = heap_copy(cut);
            EXPECT_EQ(rsvp_valid_session_attribute(o.data()),
                      c_type != 2 && len >= (c_type == 1 ? 20u : 8u) && len % 4 == 0);
        }
        for (int prio = 0; prio < 4; ++prio) {  // setup, holding: 7 or 8
            Bytes o = object(207, c_type, Bytes(20, 0));
            o[c_type == 1 ? 16 : 4] = prio & 1 ? 8 : 7;
            o[c_type == 1 ? 17 : 5] = prio & 2 ? 8 : 7;
            EXPECT_EQ(rsvp_valid_session_attribute(o.data()), c_type != 2 && prio == 0);
        }
    }
    EXPECT_EQ(rsvp_valid_session_attribute(object(206, 7, Bytes(4, 0)).data()) +
                  rsvp_valid_session_attribute(nullptr),
              0);
    // The validator clamps the name length in place (C-Type, Length, name length before, after);
    // C-Type 7 extracts zero masks. The protected bit is read unvalidated, the flags are not.
    const int rows[][4] = {{7, 12, 9, 4}, {7, 12, 3, 3}, {7, 8, 255, 0}, {1, 24, 200, 4}};
    for (const auto &[c_type, length, before, after] : rows) {
        const int at = c_type == 1 ? 19 : 7;
        Bytes o = object(207, uint8_t(c_type), Bytes(length - 4, 0));
        o[at] = uint8_t(before);
        EXPECT_EQ(rsvp_valid_session_attribute(o.data()), 1);
        EXPECT_EQ(o[at], after) << length << "/" << before;
    }
    Bytes ra = object(207, 1, hex("00000001 00000002 80000003  02 04 0b 09 41 42 43 44"));
    Bytes t7 = object(207, 7, hex("01 02 03 02 58 59 00 00"));
    uint8_t s = 0, h = 0, f = 0, n = 0;
    const char *name = nullptr;
    uint32_t m[3] = {};
    auto extract = [&](Bytes &o) {
        const int ok =
            rsvp_extract_session_attribute(o.data(), &s, &h, &f, &n, &name, &m[0], &m[1], &m[2]);
        return std::tuple(ok, std::string(name, n), s * 100 + h * 10 + f, m[0], m[1], m[2]);
    };
    EXPECT_EQ(extract(ra), std::tuple(1, "ABCD", 251, 1u, 2u, 0x80000003u));
    EXPECT_EQ(extract(t7), std::tuple(1, "XY", 123, 0u, 0u, 0u));
    t7[4] = 9;  // setup priority 9: invalid, outputs stay, but the protected bit is read
    ra[18] = 0x02;
    EXPECT_EQ(extract(t7), std::tuple(0, "XY", 123, 0u, 0u, 0u));
    EXPECT_EQ(rsvp_session_attribute_protected(t7.data()) * 10 +
                  rsvp_session_attribute_protected(ra.data()),
              10);
    EXPECT_EQ(RSVP_SESSION_ATTRIBUTE_FLAGS(t7.data()), 0u);
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(t7.data(), 0x10);
    EXPECT_EQ(t7[6], 0x03);
    t7[4] = 7;
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(t7.data(), 0x12);
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(ra.data(), 0x35);
    EXPECT_EQ(
        RSVP_SESSION_ATTRIBUTE_FLAGS(t7.data()) * 256 + RSVP_SESSION_ATTRIBUTE_FLAGS(ra.data()),
        0x1235u);
    EXPECT_EQ(rsvp_session_attribute_protected(ra.data()), 1);
    t7[3] = 2;
    EXPECT_EQ(
        rsvp_session_attribute_protected(t7.data()) + rsvp_session_attribute_protected(nullptr), 0);
    // A valid SESSION of C-Type 7 takes the write; a TIME_VALUES is too short for offset 18.
    Bytes session = object(1, 7, hex("0a000003 00000001 0a000001"));
    Bytes tv = concat({object(5, 1, hex("00 00 75 30")), Bytes(12, 0xEE)});
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(session.data(), 0xAB);
    RSVP_SESSION_ATTRIBUTE_SET_FLAGS(tv.data(), 0xAB);
    EXPECT_EQ(session[6] * 256 + tv[18], 0xABEE);
}
