#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {
auto flags(const rsvp_admin_status_info &i) {
    return std::tuple(RSVP_ADMIN_STATUS_INFO_R(&i), RSVP_ADMIN_STATUS_INFO_T(&i),
                      RSVP_ADMIN_STATUS_INFO_A(&i), RSVP_ADMIN_STATUS_INFO_D(&i));
}
}  // namespace

// Built in host order (D, A, T in byte 4, R in byte 7 here), read in network order; the
// validator wants Length 8 and any C-Type, a refusal leaves the record alone.
TEST(AdminStatus, BuiltInHostOrderReadInNetworkOrder) {
    Bytes b(12, 0xEE);
    rsvp_admin_status_info info{};
    RSVP_ADMIN_STATUS_INFO_SET_D(&info, 1);
    RSVP_ADMIN_STATUS_INFO_SET_A(&info, 1);
    RSVP_ADMIN_STATUS_INFO_SET_T(&info, 1);
    RSVP_ADMIN_STATUS_INFO_SET_R(&info, 1);
    rsvp_build_admin_status_object(b.data(), &info);
    EXPECT_EQ(to_hex(b), "00 08 c4 01 07 00 00 80 ee ee ee ee");
    ASSERT_EQ(rsvp_extract_admin_status_object(b.data(), &info), 1);
    EXPECT_EQ(flags(info), std::tuple(0, 0, 0, 0));
    const rsvp_admin_status_info some{2, 1, 0, 255};  // d, a, t, r: only 1 counts as set
    rsvp_build_admin_status_object(b.data(), &some);
    EXPECT_EQ(to_hex(b.data() + 4, 4), "02 00 00 00");
    // The wire-correct way: the flags in network order.
    RSVP_ADMIN_STATUS_INFO_SET_FLAGS(
        reinterpret_cast<uint32_t *>(b.data() + 4),
        RSVP_ADMIN_STATUS_FLAG_R | RSVP_ADMIN_STATUS_FLAG_T | RSVP_ADMIN_STATUS_FLAG_D);
    EXPECT_EQ(to_hex(b.data() + 4, 4), "80 00 00 05");
    b[3] = 7;
    ASSERT_EQ(rsvp_valid_object(b.data()) * 10 + rsvp_extract_admin_status_object(b.data(), &info),
              11u);
    EXPECT_EQ(flags(info), std::tuple(1, 1, 0, 1));
    b[1] = 12, b[7] = 0;
    EXPECT_EQ(rsvp_valid_object(b.data()) + rsvp_extract_admin_status_object(b.data(), &info), 0u);
    EXPECT_EQ(flags(info), std::tuple(1, 1, 0, 1));
}
