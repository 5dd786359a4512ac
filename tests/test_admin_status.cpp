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

// Built in host order (D, A, T in byte 4, R in byte 7 here), read in network order.
TEST(AdminStatus, BuiltInHostOrderReadInNetworkOrder) {
    Bytes b(9, 0xEE);
    rsvp_admin_status_info info{};
    RSVP_ADMIN_STATUS_INFO_SET_D(&info, 1);
    RSVP_ADMIN_STATUS_INFO_SET_A(&info, 1);
    RSVP_ADMIN_STATUS_INFO_SET_T(&info, 1);
    RSVP_ADMIN_STATUS_INFO_SET_R(&info, 1);
    rsvp_build_admin_status_object(b.data(), &info);
    EXPECT_EQ(to_hex(b), "00 08 c4 01 07 00 00 80 ee");
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
    ASSERT_EQ(rsvp_extract_admin_status_object(b.data(), &info), 1);
    EXPECT_EQ(flags(info), std::tuple(1, 1, 0, 1));
}

// Any C-Type of Length 8 passes; the record is untouched on failure.
TEST(AdminStatus, ValidationIgnoresTheCType) {
    const std::pair<const char *, int> rows[] = {{"00 08 c4 07 80 00 00 02", 1},
                                                 {"00 0c c4 01 00 00 00 02 00 00 00 00", 0}};
    for (const auto &[h, valid] : rows) {
        SCOPED_TRACE(h);
        HeapBytes o = heap_copy(hex(h));
        EXPECT_EQ(rsvp_valid_object(o.data()), uint32_t(valid));
        rsvp_admin_status_info info{9, 9, 9, 9};
        EXPECT_EQ(rsvp_extract_admin_status_object(o.data(), &info), valid);
        EXPECT_EQ(flags(info), valid ? std::tuple(1, 0, 1, 0) : std::tuple(9, 9, 9, 9));
    }
}
