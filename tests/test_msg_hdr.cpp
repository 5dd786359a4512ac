#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(MsgHdr, BuildForcesVersionOneAndCutsFlags) {
    Bytes buf(8, 0xAA);
    rsvp_build_msg_hdr(1, 255, 8, 0xFF, buf.data());
    EXPECT_EQ(to_hex(buf), "1f 01 00 00 ff 00 00 08");
}

TEST(MsgHdr, BuildClearsChecksumAndReservedAndWritesLengthBigEndian) {
    Bytes buf(8, 0x55);
    rsvp_build_msg_hdr(2, 63, 0x1234, 0x02, buf.data());
    EXPECT_EQ(to_hex(buf), "12 02 00 00 3f 00 12 34");
}

TEST(MsgHdr, Readers) {
    Bytes m = hex("1a 05 be ef 40 00 01 2c");
    EXPECT_EQ(RSVP_MESSAGE_VERSION(m.data()), 1u);
    EXPECT_EQ(RSVP_MESSAGE_FLAGS(m.data()), 0xAu);
    EXPECT_EQ(RSVP_MESSAGE_TYPE(m.data()), 5u);
    EXPECT_EQ(RSVP_MESSAGE_CKSUM(m.data()), 0xBEEF);
    EXPECT_EQ(RSVP_MESSAGE_SENDING_TTL(m.data()), 0x40u);
    EXPECT_EQ(RSVP_MESSAGE_LENGTH(m.data()), 300);
    EXPECT_EQ(RSVP_MESSAGE_OBJ_LEN(m.data()), 292);
    EXPECT_EQ(RSVP_MESSAGE_FIRST_OBJECT_PTR(m.data()), m.data() + 8);
    EXPECT_EQ(RSVP_MESSAGE_GET_CKSUM_OFFSET(), 2u);
}

TEST(MsgHdr, ObjLenIsZeroUpToTheHeaderLength) {
    Bytes m(8, 0);
    for (uint16_t len = 0; len <= 12; ++len) {
        SCOPED_TRACE(len);
        RSVP_SET_MESSAGE_LENGTH(m.data(), len);
        EXPECT_EQ(RSVP_MESSAGE_OBJ_LEN(m.data()), len > 8 ? len - 8 : 0);
    }
    RSVP_SET_MESSAGE_LENGTH(m.data(), 0xFFFF);
    EXPECT_EQ(to_hex(m.data() + 6, 2), "ff ff");
    EXPECT_EQ(RSVP_MESSAGE_OBJ_LEN(m.data()), 0xFFFF - 8);
}

TEST(MsgHdr, ChecksumSetters) {
    Bytes m(8, 0);
    RSVP_MESSAGE_SET_CKSUM(m.data(), 0x1234);
    EXPECT_EQ(to_hex(m.data() + 2, 2), "12 34");
    // Already in wire order: stored as the value lies in host memory.
    uint16_t v = 0x1234;
    uint8_t host_bytes[2];
    std::memcpy(host_bytes, &v, 2);
    RSVP_MESSAGE_SET_CKSUM_NB(m.data(), 0x1234);
    EXPECT_EQ(m[2], host_bytes[0]);
    EXPECT_EQ(m[3], host_bytes[1]);
    EXPECT_EQ(to_hex(m), "00 00 " + to_hex(host_bytes, 2) + " 00 00 00 00");
}

TEST(MsgHdr, NullMessage) {
    EXPECT_EQ(RSVP_MESSAGE_VERSION(nullptr), 0u);
    EXPECT_EQ(RSVP_MESSAGE_FLAGS(nullptr), 0u);
    EXPECT_EQ(RSVP_MESSAGE_TYPE(nullptr), 0u);
    EXPECT_EQ(RSVP_MESSAGE_CKSUM(nullptr), 0);
    EXPECT_EQ(RSVP_MESSAGE_SENDING_TTL(nullptr), 0u);
    EXPECT_EQ(RSVP_MESSAGE_LENGTH(nullptr), 0);
    EXPECT_EQ(RSVP_MESSAGE_OBJ_LEN(nullptr), 0);
    EXPECT_EQ(RSVP_MESSAGE_FIRST_OBJECT_PTR(nullptr), nullptr);
    RSVP_MESSAGE_SET_CKSUM(nullptr, 1);
    RSVP_MESSAGE_SET_CKSUM_NB(nullptr, 1);
    RSVP_SET_MESSAGE_LENGTH(nullptr, 1);
}
