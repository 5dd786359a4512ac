#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(Hello, BuildersWriteTwelveBytesExactly) {
    Bytes req(16, 0xEE), ack(16, 0xEE), cap(16, 0xEE);
    rsvp_build_hello_request(req.data(), 0x01020304, 0xA0B0C0D0);
    rsvp_build_hello_ack(ack.data(), 1, 2);
    rsvp_build_restart_cap(cap.data(), 120000, 0xFFFFFFFF);
    // header | first word | second word
    EXPECT_EQ(to_hex(req), "00 0c 16 01 01 02 03 04 a0 b0 c0 d0 ee ee ee ee");
    EXPECT_EQ(to_hex(ack), "00 0c 16 02 00 00 00 01 00 00 00 02 ee ee ee ee");
    EXPECT_EQ(to_hex(cap), "00 0c 83 01 00 01 d4 c0 ff ff ff ff ee ee ee ee");
}

// HELLO checks its C-Type, RESTART_CAP deliberately does not; both want Length 12 exactly.
TEST(Hello, ValidatorsOnlyAtLengthTwelve) {
    for (uint8_t c_type : {0, 1, 2, 3, 255}) {
        for (int len = 0; len <= 16; ++len) {
            SCOPED_TRACE(testing::Message() << "c-type " << int(c_type) << " len " << len);
            HeapBytes hello = heap_copy(object(22, c_type, Bytes(12, 0), len), 0);
            HeapBytes cap = heap_copy(object(131, c_type, Bytes(12, 0), len), 0);
            EXPECT_EQ(rsvp_valid_hello(hello.data()), len == 12 && (c_type == 1 || c_type == 2));
            EXPECT_EQ(rsvp_valid_restart_cap(cap.data()), len == 12);
            EXPECT_EQ(rsvp_valid_object(cap.data()), len == 12 ? 1u : 0u);
        }
    }
    Bytes other = object(23, 1, Bytes(8, 0));  // right length, wrong class
    EXPECT_EQ(rsvp_valid_hello(other.data()) + rsvp_valid_restart_cap(other.data()), 0);
    EXPECT_EQ(rsvp_valid_hello(nullptr) + rsvp_valid_restart_cap(nullptr), 0);
}

// The extractors read the fixed offsets of whatever they are given; only NULL is refused.
TEST(Hello, ExtractorsTrustTheirCaller) {
    using Extract = int (*)(uint8_t *, uint32_t *);
    const struct {
        Extract fn;
        uint32_t want;
    } rows[] = {{rsvp_extract_hello_src_instance, 0x11121314},
                {rsvp_extract_hello_dst_instance, 0x21222324},
                {rsvp_extract_restart_cap_restart_time, 0x11121314},
                {rsvp_extract_restart_cap_recovery_time, 0x21222324}};
    // An ERROR_SPEC of Length 12, which neither validator accepts.
    Bytes o = hex("00 0c 06 03 11 12 13 14 21 22 23 24");
    for (const auto &r : rows) {
        uint32_t out = 7;
        EXPECT_EQ(r.fn(o.data(), &out), 1);
        EXPECT_EQ(out, r.want);
        out = 7;
        EXPECT_EQ(r.fn(nullptr, &out) + r.fn(o.data(), nullptr), 0);
        EXPECT_EQ(out, 7u);
    }
    uint8_t type = 9;
    EXPECT_EQ(rsvp_extract_hello_msg_type(o.data(), &type), 1);
    EXPECT_EQ(type, 3);
    Bytes req(12);
    rsvp_build_hello_request(req.data(), 1, 2);
    EXPECT_EQ(rsvp_extract_hello_msg_type(req.data(), &type), 1);
    EXPECT_EQ(type, RSVP_CTYPE_HELLO_REQUEST);
    EXPECT_EQ(rsvp_extract_hello_msg_type(nullptr, &type) +
                  rsvp_extract_hello_msg_type(req.data(), nullptr),
              0);
    EXPECT_EQ(type, RSVP_CTYPE_HELLO_REQUEST);
}
