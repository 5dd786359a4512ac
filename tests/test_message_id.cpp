#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <string>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(MessageId, BuildersWriteExactBytesThatTheAccessorsRead) {
    Bytes b(52, 0xEE);
    rsvp_build_message_id(b.data(), 0xA1B2C3D4, RSVP_MESSAGE_ID_EPOCH_MAX, 0xFE);
    rsvp_build_message_id_ack(b.data() + 12, 0x01020304, 0x123456);
    rsvp_build_message_id_nack(b.data() + 24, 9, 5);
    rsvp_build_message_id_list(b.data() + 36, RSVP_MESSAGE_ID_EPOCH_MAX, 0x81);
    EXPECT_EQ(to_hex(b),  // MESSAGE_ID | ACK | NACK: header, flags + epoch, identifier | list head
              "00 0c 17 01 fe ff ff ff a1 b2 c3 d4 00 0c 18 01 00 12 34 56 01 02 03 04 00 0c 18 02 "
              "00 00 00 05 00 00 00 09 00 08 19 01 81 ff ff ff ee ee ee ee ee ee ee ee");
    uint8_t *m = b.data(), *empty = b.data() + 36;  // a list built empty is not valid on receipt
    Bytes l(24, 0xEE);
    rsvp_build_message_id_list(l.data(), 0x00F00D, 0x80);
    for (uint32_t id : {0xCAFE0001, 0xCAFE0002})
        rsvp_add_message_id_list(l.data(), id);
    Bytes tv = hex("00 08 05 01 12 34 56 78 ee ee ee ee");  // TIME_VALUES, then other bytes
    // A list index is the caller's to bound (the word behind is read as it lies); a valid
    // object of another class is read at these offsets only up to its end.
    EXPECT_THAT(
        (std::vector<uint32_t>{
            RSVP_MESSAGE_ID_FLAGS(m), RSVP_MESSAGE_ID_EPOCH(m), RSVP_MESSAGE_ID_MSGID(m),
            RSVP_MESSAGE_ID_LIST_FLAGS(l.data()), RSVP_MESSAGE_ID_LIST_EPOCH(l.data()),
            RSVP_MESSAGE_ID_LIST_MSGID(l.data(), 0), RSVP_MESSAGE_ID_LIST_MSGID(l.data(), 1),
            RSVP_MESSAGE_ID_LIST_MSGID(l.data(), 2), RSVP_MESSAGE_ID_LIST_FLAGS(empty),
            RSVP_MESSAGE_ID_LIST_EPOCH(empty), RSVP_MESSAGE_ID_LIST_MSGID(empty, 0),
            RSVP_MESSAGE_ID_EPOCH(tv.data()), RSVP_MESSAGE_ID_MSGID(tv.data()),
            RSVP_MESSAGE_ID_LIST_MSGID(tv.data(), 0)}),
        testing::ElementsAre(0xFE, 0xFFFFFF, 0xA1B2C3D4, 0x80, 0xF00D, 0xCAFE0001, 0xCAFE0002,
                             0xEEEEEEEE, 0, 0, 0, 0x345678, 0, 0));
}

// The 12-byte builders test the buffer first and the epoch once the header is written; the
// list builder tests the epoch before it writes anything, and never tests the buffer.
TEST(MessageIdDeathTest, AssertionsAndWhatIsWrittenBeforeThem) {
    void *map = mmap(nullptr, 12, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(map, MAP_FAILED);
    auto *shared = static_cast<uint8_t *>(map);  // the dying child's writes show here
    EXPECT_DEATH(rsvp_build_message_id(shared, 1, 0x1000000, 0), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id_list(shared, 0x1000000, 0), "assertion failed");
    EXPECT_EQ(to_hex(shared, 12), "00 0c 17 01 00 00 00 00 00 00 00 00");
    EXPECT_DEATH(rsvp_build_message_id_nack(shared, 1, 0xFFFFFFFF), "assertion failed");  // -1
    EXPECT_DEATH(rsvp_build_message_id_ack(nullptr, 1, 1), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id_list(nullptr, 1, 0),
                 testing::Not(testing::HasSubstr("assertion")));
    munmap(map, 12);
}

// MESSAGE_ID and ACK/NACK want Length 12; a list more than 8 bytes, not in whole words.
TEST(MessageId, ValidatorsWantTheirClassLengthAndCType) {
    for (int len = 0; len <= 20; ++len) {
        SCOPED_TRACE(len);
        Bytes id = object(23, 1, Bytes(16), len), ack = object(24, 2, Bytes(16), len),
              list = object(25, 3, Bytes(16), len);
        EXPECT_EQ(rsvp_valid_message_id(id.data()) + 2 * rsvp_valid_message_id_ack(ack.data()) +
                      4 * rsvp_valid_message_id_list(list.data()),
                  (len == 12) * 3 + (len > 8) * 4);
    }
    std::string verdicts;  // per class, C-Types 0 to 4: MESSAGE_ID 1 + ACK 2 + LIST 4
    for (uint8_t class_num : {22, 23, 24, 25}) {
        for (uint8_t c_type = 0; c_type <= 4; ++c_type) {
            Bytes o = object(class_num, c_type, Bytes(8));
            verdicts += char('0' + rsvp_valid_message_id(o.data()) +
                             2 * rsvp_valid_message_id_ack(o.data()) +
                             4 * rsvp_valid_message_id_list(o.data()));
        }
        verdicts += ' ';
    }
    EXPECT_EQ(verdicts, "00000 01000 02200 04440 ");
    EXPECT_EQ(rsvp_valid_message_id(nullptr) + rsvp_valid_message_id_ack(nullptr) +
                  rsvp_valid_message_id_list(nullptr),
              0);
}

// An identifier goes behind the last whole one the Length counts (off the word grid too); below
// 8 bytes nothing is added. No upper limit: at Length 65532 the Length wraps to 0.
TEST(MessageIdList, GrowsFromTheLengthWithoutLimit) {
    Bytes b = hex("00 0e 19 01 00 00 00 05 00 00 00 01 ee ee ee ee 00 04 19 01 ee ee ee ee");
    rsvp_add_message_id_list(b.data(), 9);
    rsvp_add_message_id_list(b.data() + 16, 9);
    rsvp_add_message_id_list(nullptr, 9);
    EXPECT_EQ(to_hex(b), "00 12 19 01 00 00 00 05 00 00 00 01 00 00 00 09 00 04 19 01 ee ee ee ee");
    Bytes big(65536 + 4, 0);
    rsvp_build_message_id_list(big.data(), 5, 0);
    big[0] = 0xFF, big[1] = 0xFC;
    rsvp_add_message_id_list(big.data(), 0x0A0B0C0D);
    EXPECT_EQ(to_hex(big.data(), 2) + " | " + to_hex(big.data() + 65532, 8),
              "00 00 | 0a 0b 0c 0d 00 00 00 00");
}
