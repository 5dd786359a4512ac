#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// The extractors read the fixed offsets of whatever they are given (a HELLO read as a
// RESTART_CAP and back); only NULL is refused, and then nothing is written.
TEST(Hello, BuildExactBytesAndExtractWithoutValidating) {
    Bytes b(36);
    rsvp_build_hello_request(b.data(), 0x01020304, 0xA0B0C0D0);
    rsvp_build_restart_cap(b.data() + 12, 120000, 0xFFFFFFFF);
    rsvp_build_hello_ack(b.data() + 24, 1, 2);
    EXPECT_EQ(to_hex(b),
              "00 0c 16 01 01 02 03 04 a0 b0 c0 d0 00 0c 83 01 00 01 d4 c0 ff ff ff ff "
              "00 0c 16 02 00 00 00 01 00 00 00 02");  // header, first, second word
    uint8_t *hello = b.data(), *cap = b.data() + 12;
    cap[1] = 16;  // Length 16: invalid, and read all the same
    uint32_t w[4] = {}, untouched = 7;
    uint8_t type = 0;
    EXPECT_EQ(rsvp_extract_restart_cap_restart_time(hello, &w[0]) +
                  rsvp_extract_restart_cap_recovery_time(hello, &w[1]) +
                  rsvp_extract_hello_src_instance(cap, &w[2]) +
                  rsvp_extract_hello_dst_instance(cap, &w[3]) +
                  rsvp_extract_hello_msg_type(b.data() + 24, &type),
              5);
    EXPECT_THAT(w, testing::ElementsAre(0x01020304, 0xA0B0C0D0, 120000, 0xFFFFFFFF));
    EXPECT_EQ(rsvp_extract_hello_src_instance(nullptr, &untouched) +
                  rsvp_extract_restart_cap_recovery_time(hello, nullptr) +
                  rsvp_extract_hello_msg_type(nullptr, &type) +
                  rsvp_extract_hello_msg_type(hello, nullptr),
              0);
    EXPECT_EQ(untouched * 10 + type, 72u);  // untouched, and the ACK's C-Type
}

// HELLO checks its C-Type, RESTART_CAP deliberately does not; both want Length 12 exactly.
TEST(Hello, ValidatorsOnlyAtLengthTwelve) {
    for (uint8_t c_type : {0, 1, 2, 3})
        for (int len = 0; len <= 16; ++len) {
            SCOPED_TRACE(testing::Message() << "c-type " << int(c_type) << " len " << len);
            Bytes hello = object(22, c_type, Bytes(12), len),
                  cap = object(131, c_type, Bytes(12), len);
            EXPECT_EQ(rsvp_valid_object(hello.data()), len == 12 && (c_type == 1 || c_type == 2));
            EXPECT_EQ(rsvp_valid_object(cap.data()), len == 12 ? 1u : 0u);
            EXPECT_EQ(rsvp_valid_hello(cap.data()) + rsvp_valid_restart_cap(hello.data()), 0);
        }
    EXPECT_EQ(rsvp_valid_hello(nullptr) + rsvp_valid_restart_cap(nullptr), 0);
}
