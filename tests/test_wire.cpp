#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_assert.hpp"
#include "rsvp_wire.hpp"
#include "test_util.hpp"

using namespace rsvp;
using namespace rsvp_test;

// Every helper is exercised at an odd address: a typed load or store would trip the
// alignment check of the undefined-behaviour sanitizer.
TEST(Wire, LoadsAndStoresAtOddAddresses) {
    alignas(8) uint8_t buf[24] = {};
    wire::store_be16(buf + 1, 0x1234);
    wire::store_be32(buf + 3, 0x89abcdefu);
    wire::store_be64(buf + 7, 0x0102030405060708ull);
    wire::store8(buf + 15, 0x7f);
    wire::store_raw32(buf + 17, ip("10.0.0.1"));  // already in wire order: kept as it is
    EXPECT_EQ(to_hex(buf, 21), "00 12 34 89 ab cd ef 01 02 03 04 05 06 07 08 7f 00 0a 00 00 01");
    EXPECT_EQ(
        std::tuple(wire::load_be16(buf + 1), wire::load_be32(buf + 3), wire::load_be64(buf + 7),
                   wire::load8(buf + 15), wire::load_raw32(buf + 17)),
        std::tuple(0x1234, 0x89abcdefu, 0x0102030405060708ull, 0x7f, ip("10.0.0.1")));
}

TEST(AssertDeathTest, StopsTheProcessAndNamesTheLine) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_RSVP_ASSERT(rsvp::assert_fail(4242), "assertion failed at line 4242");
    const int line = __LINE__ + 1;
    EXPECT_RSVP_ASSERT(RSVP_ASSERT(1 + 1 == 3), "line " + std::to_string(line));
}
