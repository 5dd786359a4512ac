#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <thread>

#include "rsvp_platform.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

uint32_t bits_of(float f) {
    uint32_t b;
    std::memcpy(&b, &f, 4);
    return b;
}

constexpr int64_t kMax = std::numeric_limits<int64_t>::max();
constexpr int64_t kMin = std::numeric_limits<int64_t>::min();

}  // namespace

TEST(IeeeToInt64, TruncatesAndSaturates) {
    const std::pair<uint32_t, int64_t> rows[] = {
        {bits_of(0.0f), 0},
        {bits_of(0.99f), 0},
        {bits_of(1234.75f), 1234},  // truncated
        {bits_of(-1.5f), -1},
        {bits_of(-16777215.0f), -16777215},  // every mantissa bit set
        {bits_of(1.25e9f), 1250000000},
        {0x5effffffu, 9223371487098961920LL},  // the largest float below 2^63, exact
        {0x7f800000u, kMax},                   // +inf
        {0xff800000u, kMin},                   // -inf
        {0x7fc00000u, 0},                      // NaN
        {bits_of(9.3e18f), kMax},
        {bits_of(-9.223372036854775808e18f), kMin}};  // exactly -2^63
    for (const auto &[in, out] : rows) {
        SCOPED_TRACE(in);
        EXPECT_EQ(ieee_to_int64(in), out);
    }
}

TEST(Int64ToIeee, RoundsToNearest) {
    EXPECT_EQ(int64_to_ieee(-2), 0xc0000000u);
    // 2^24 + 1 lies halfway: ties go to even (2^24); 2^24 + 3 rounds up to 2^24 + 4.
    EXPECT_EQ(ieee_to_int64(int64_to_ieee((1 << 24) + 1)), 1 << 24);
    EXPECT_EQ(ieee_to_int64(int64_to_ieee((1 << 24) + 3)), (1 << 24) + 4);
    EXPECT_EQ(int64_to_ieee(kMax), 0x5f000000u);  // 2^63
}

TEST(InetNtoaR, DottedQuadOfWireOrder) {
    EXPECT_STREQ(inet_ntoa_r(ip("255.255.255.255")), "255.255.255.255");
    const char *mine = inet_ntoa_r(ip("1.2.3.4"));
    std::thread([] { inet_ntoa_r(ip("9.9.9.9")); }).join();
    EXPECT_STREQ(mine, "1.2.3.4");  // another thread's call uses its own buffer
}

TEST(Sstrncpy, AlwaysTerminates) {
    char buf[6] = {'x', 'x', 'x', 'x', 'x', 'x'};  // no terminator
    EXPECT_EQ(sstrncpy(buf, "abcdefgh", sizeof buf), buf);
    EXPECT_STREQ(buf, "abcde");
    EXPECT_STREQ(sstrncpy(buf, "ab", sizeof buf), "ab");
    sstrncpy(buf, "zz", 0);  // no room: nothing written
    EXPECT_EQ(buf[0], 'a');
    sstrncpy(buf, "zz", 1);
    EXPECT_EQ(buf[0], '\0');
}

TEST(InterfaceService, NamesOfHostInterfaces) {
    char name[64] = "untouched";
    EXPECT_NE(intf_svc_interface_name(0, name), 0);
    EXPECT_STREQ(name, "untouched");
    // Index 1 is the loopback interface on Linux hosts, network namespaces included.
    EXPECT_TRUE(intf_svc_interface_name(1, name) != 0 || std::strcmp(name, "lo") == 0) << name;
    EXPECT_STREQ(intf_svc_display_name("eth0", RSVP_INTF_DISPLAY_LONG), "eth0");
}
