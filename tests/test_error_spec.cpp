#include <gtest/gtest.h>

#include <tuple>

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
    using Fields = std::tuple<uint32_t, uint8_t, uint8_t, uint16_t>;  // node, flags, code, value
    const Fields found{ip("10.0.0.1"), 1, 2, 3}, untouched{9, 9, 9, 9}, zero{0, 0, 0, 0};
    const auto accessors = [](uint8_t *o) {
        return Fields(RSVP_ERROR_NODE(o), RSVP_ERROR_FLAGS(o), RSVP_ERROR_CODE(o),
                      RSVP_ERROR_VALUE(o));
    };
    // Only Length 12 is valid; otherwise outputs stay, accessors give 0 and the setter is silent.
    for (int len = 0; len <= 20; len += 4) {
        SCOPED_TRACE(len);
        HeapBytes o = heap_copy(object(6, 1, hex("0a 00 00 01 01 02 00 03 00 00 00 00"), len));
        Fields out = untouched;
        auto &[node, flags, code, value] = out;
        EXPECT_EQ(rsvp_extract_error_ipv4(o.data(), &node, &flags, &code, &value), len == 12);
        EXPECT_EQ(out, len == 12 ? found : untouched);
        EXPECT_EQ(accessors(o.data()), len == 12 ? found : zero);
        RSVP_SET_ERROR_CODE(o.data(), 0x77);
        EXPECT_EQ(o.data()[9], len == 12 ? 0x77 : 0x02);
    }
    // A valid object of another class is read within its Length: a TIME_VALUES gives its node.
    Bytes refresh = concat({object(5, 1, hex("0a 00 00 01")), hex("01 02 00 03")});
    EXPECT_EQ(accessors(refresh.data()), Fields(ip("10.0.0.1"), 0, 0, 0));
    Bytes ctype2 = object(6, 2, hex("0a 00 00 01 01 02 00 03"));
    EXPECT_EQ(rsvp_valid_error_ipv4(ctype2.data()) + rsvp_valid_error_ipv4(nullptr), 0);
}

// Node (host order), code, value, then flags, although flags precede code and value on the
// wire; a single null sorts first; every field of an invalid object counts as 0.
TEST(ErrorSpec, Ordering) {
    Bytes e = error("10.0.0.1", 0, 1, 1), zero = error("0.0.0.0", 0, 0, 0);
    Bytes sixteen = object(6, 1, hex("0a 00 00 01 01 02 00 03 00 00 00 00"));
    const std::tuple<Bytes, Bytes, int> rows[] = {
        {error("10.0.0.1", 0, 1, 9), error("10.0.0.1", 0, 2, 1), -1},  // code before value
        {error("10.0.0.1", 1, 1, 1), error("10.0.0.1", 0, 1, 2), -1},  // value before flags
        {error("10.0.0.1", 0, 1, 1), error("10.0.0.1", 1, 1, 1), -1},  // flags last
        {error("10.0.0.2", 0, 1, 1), error("9.0.0.3", 0, 1, 1), 1},    // node in host order
        {Bytes{}, e, -1},                                              // null
        {sixteen, zero, 0},
        // a valid TIME_VALUES is read at the ERROR_SPEC offsets within its 8 bytes only
        {concat({object(5, 1, hex("0a 00 00 01")), hex("00 01 00 02")}), e, -1},
    };
    for (const auto &[ra, rb, expected] : rows) {
        SCOPED_TRACE(to_hex(ra) + " vs " + to_hex(rb));
        auto *a = ra.empty() ? nullptr : const_cast<uint8_t *>(ra.data());
        auto *b = rb.empty() ? nullptr : const_cast<uint8_t *>(rb.data());
        EXPECT_EQ(rsvp_compare_errors(a, b), expected);
        EXPECT_EQ(rsvp_compare_errors(b, a), -expected);
    }
}
