#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(MsgHdr, BuildReadAndSet) {
    // Version 1 forced, flags cut to 4 bits, checksum and reserved cleared, length big-endian.
    Bytes buf(16, 0xAA);
    rsvp_build_msg_hdr(1, 255, 8, 0xFF, buf.data());
    rsvp_build_msg_hdr(2, 63, 0x1234, 0x02, buf.data() + 8);
    EXPECT_EQ(to_hex(buf), "1f 01 00 00 ff 00 00 08 12 02 00 00 3f 00 12 34");

    Bytes m = hex("1a 05 be ef 40 00 01 2c");
    EXPECT_EQ(std::tuple(RSVP_MESSAGE_VERSION(m.data()), RSVP_MESSAGE_FLAGS(m.data()),
                         RSVP_MESSAGE_TYPE(m.data()), RSVP_MESSAGE_CKSUM(m.data()),
                         RSVP_MESSAGE_SENDING_TTL(m.data()), RSVP_MESSAGE_LENGTH(m.data()),
                         RSVP_MESSAGE_OBJ_LEN(m.data()), RSVP_MESSAGE_GET_CKSUM_OFFSET()),
              std::tuple(1u, 0xAu, 5u, 0xBEEF, 0x40u, 300, 292, 2u));
    EXPECT_EQ(RSVP_MESSAGE_FIRST_OBJECT_PTR(m.data()), m.data() + 8);
    EXPECT_EQ(RSVP_MESSAGE_FIRST_OBJECT_PTR(nullptr), nullptr);
    const uint16_t rows[][2] = {{0, 0}, {7, 0}, {8, 0}, {9, 1}, {0xFFFF, 0xFFF7}};
    for (const auto &[len, obj_len] : rows) {
        SCOPED_TRACE(len);
        RSVP_SET_MESSAGE_LENGTH(m.data(), len);
        EXPECT_EQ(RSVP_MESSAGE_OBJ_LEN(m.data()), obj_len);
    }
    RSVP_MESSAGE_SET_CKSUM(m.data(), 0x1234);
    EXPECT_EQ(to_hex(m), "1a 05 12 34 40 00 ff ff");
    const uint16_t nb = 0x1234;  // already in wire order: stored as it lies in host memory
    RSVP_MESSAGE_SET_CKSUM_NB(m.data(), nb);
    EXPECT_EQ(to_hex(m.data() + 2, 2), to_hex(reinterpret_cast<const uint8_t *>(&nb), 2));

    // A null message reads as 0 and takes no write.
    EXPECT_EQ(RSVP_MESSAGE_VERSION(nullptr) + RSVP_MESSAGE_FLAGS(nullptr) +
                  RSVP_MESSAGE_TYPE(nullptr) + RSVP_MESSAGE_CKSUM(nullptr) +
                  RSVP_MESSAGE_SENDING_TTL(nullptr) + RSVP_MESSAGE_LENGTH(nullptr) +
                  RSVP_MESSAGE_OBJ_LEN(nullptr),
              0u);
    RSVP_MESSAGE_SET_CKSUM(nullptr, 1);
    RSVP_MESSAGE_SET_CKSUM_NB(nullptr, 1);
    RSVP_SET_MESSAGE_LENGTH(nullptr, 1);
}
