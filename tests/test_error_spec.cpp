#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

Bytes error(const char *node, uint8_t flags, uint8_t code, uint16_t value) {
    Bytes b(12);
    rsvp_build_error_ipv4(b.data(), ip(node), flags, code, value);
    return b;
}

}  // namespace

TEST(ErrorSpec, BuildExtractAndAccessors) {
    Bytes b(12, 0xEE);
    EXPECT_EQ(rsvp_build_error_ipv4(b.data(), ip("10.0.0.1"), 0x01, 24, 0x0102), b.data());
    EXPECT_EQ(to_hex(b), "00 0c 06 01 0a 00 00 01 01 18 01 02");  // hdr, node, flags, code, value
    uint32_t node = 0;
    uint8_t flags = 0, code = 0;
    uint16_t value = 0;
    ASSERT_EQ(rsvp_extract_error_ipv4(b.data(), &node, &flags, &code, &value), 1);
    EXPECT_EQ(node == ip("10.0.0.1") && flags == 1 && code == 24 && value == 0x0102, true);
    EXPECT_EQ(RSVP_ERROR_NODE(b.data()), ip("10.0.0.1"));
    EXPECT_EQ(RSVP_ERROR_FLAGS(b.data()), 1);
    EXPECT_EQ(RSVP_ERROR_VALUE(b.data()), 0x0102);
    RSVP_SET_ERROR_CODE(b.data(), 2);
    EXPECT_EQ(RSVP_ERROR_CODE(b.data()), 2);
}

TEST(ErrorSpec, OnlyLength12IsValidAndInvalidObjectsAreLeftAlone) {
    for (int len = 0; len <= 20; len += 4) {
        SCOPED_TRACE(len);
        HeapBytes o = heap_copy(object(6, 1, hex("0a 00 00 01 01 02 00 03 00 00 00 00"), len));
        EXPECT_EQ(rsvp_valid_error_ipv4(o.data()), len == 12);
        uint32_t node = 9;
        uint8_t flags = 9, code = 9;
        uint16_t value = 9;
        EXPECT_EQ(rsvp_extract_error_ipv4(o.data(), &node, &flags, &code, &value), len == 12);
        if (len != 12) {
            EXPECT_EQ(node + flags + code + value, 36u);
        }
        RSVP_SET_ERROR_CODE(o.data(), 0x77);
        EXPECT_EQ(o.data()[9], len == 12 ? 0x77 : 0x02);
        EXPECT_EQ(RSVP_ERROR_VALUE(o.data()), len == 12 ? 3 : 0);
    }
    Bytes ctype2 = object(6, 2, hex("0a 00 00 01 01 02 00 03"));
    EXPECT_EQ(rsvp_valid_error_ipv4(ctype2.data()) + rsvp_valid_error_ipv4(nullptr), 0);
    EXPECT_EQ(RSVP_ERROR_NODE(nullptr), 0u);
}

TEST(ErrorSpec, OrderingWeighsNodeCodeValueThenFlags) {
    struct Row {
        Bytes a, b;
        int expected;
    } rows[] = {
        {error("10.0.0.1", 0, 1, 9), error("10.0.0.1", 0, 2, 1), -1},  // code before value
        {error("10.0.0.1", 1, 1, 1), error("10.0.0.1", 0, 1, 2), -1},  // value before flags
        {error("10.0.0.1", 0, 1, 1), error("10.0.0.1", 1, 1, 1), -1},  // flags last
        {error("10.0.0.2", 0, 1, 1), error("9.0.0.3", 0, 1, 1), 1},    // node in host order
        {error("1.2.3.4", 5, 6, 7), error("1.2.3.4", 5, 6, 7), 0},
    };
    for (Row &r : rows) {
        SCOPED_TRACE(to_hex(r.a) + " vs " + to_hex(r.b));
        EXPECT_EQ(rsvp_compare_errors(r.a.data(), r.b.data()), r.expected);
        EXPECT_EQ(rsvp_compare_errors(r.b.data(), r.a.data()), -r.expected);
    }
}

TEST(ErrorSpec, OrderingOfNullAndInvalidObjects) {
    Bytes e = error("10.0.0.1", 0, 1, 1);
    EXPECT_EQ(rsvp_compare_errors(nullptr, nullptr), 0);
    EXPECT_EQ(rsvp_compare_errors(nullptr, e.data()), -1);
    EXPECT_EQ(rsvp_compare_errors(e.data(), nullptr), 1);
    // Length 16 is invalid: every field counts as 0, like an all-zero error.
    Bytes sixteen = object(6, 1, hex("0a 00 00 01 01 02 00 03 00 00 00 00"));
    Bytes zero = error("0.0.0.0", 0, 0, 0);
    EXPECT_EQ(rsvp_compare_errors(sixteen.data(), zero.data()), 0);
    EXPECT_EQ(rsvp_compare_errors(sixteen.data(), e.data()), -1);
}
