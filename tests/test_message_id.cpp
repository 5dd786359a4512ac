#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(MessageId, BuildersWriteTwelveBytesExactly) {
    struct Row {
        void (*build)(uint8_t *);
        const char *bytes;
    } rows[] = {
        // header | flags, epoch | identifier
        {[](uint8_t *b) { rsvp_build_message_id(b, 7, 5, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED); },
         "00 0c 17 01 01 00 00 05 00 00 00 07"},
        {[](uint8_t *b) { rsvp_build_message_id(b, 0xA1B2C3D4, 0xFFFFFF, 0xFE); },
         "00 0c 17 01 fe ff ff ff a1 b2 c3 d4"},
        {[](uint8_t *b) { rsvp_build_message_id_ack(b, 0x01020304, 0x123456); },
         "00 0c 18 01 00 12 34 56 01 02 03 04"},
        {[](uint8_t *b) { rsvp_build_message_id_nack(b, 9, 0xFFFFFF); },
         "00 0c 18 02 00 ff ff ff 00 00 00 09"},
        {[](uint8_t *b) { rsvp_build_message_id_list(b, 0xABCDEF, 0x81); },
         "00 08 19 01 81 ab cd ef ee ee ee ee"},
    };
    for (const Row &r : rows) {
        SCOPED_TRACE(r.bytes);
        Bytes b(16, 0xEE);
        r.build(b.data());
        EXPECT_EQ(to_hex(b), std::string(r.bytes) + " ee ee ee ee");
    }
}

namespace {
Bytes g_seen(12, 0xEE);
// The assertion faults on its store to address 1: show what the builder had written by then.
void print_seen(int) {
    const std::string s = to_hex(g_seen) + "\n";
    [[maybe_unused]] ssize_t n = write(2, s.data(), s.size());
    _exit(3);
}
void build_with_seen_on_fault(uint32_t epoch) {
    struct sigaction sa {};
    sa.sa_handler = print_seen;
    sigaction(SIGSEGV, &sa, nullptr);
    sigaction(SIGBUS, &sa, nullptr);
    rsvp_build_message_id(g_seen.data(), 7, epoch, 1);
}
}  // namespace

TEST(MessageIdDeathTest, BuildersAssertOnEpochAndNullBuffer) {
    Bytes b(12);
    rsvp_build_message_id(b.data(), 1, RSVP_MESSAGE_ID_EPOCH_MAX, 0);  // the largest epoch builds
    EXPECT_DEATH(rsvp_build_message_id(b.data(), 1, 0x1000000, 0), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id_ack(b.data(), 1, 0x1000000), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id_nack(b.data(), 1, 0xFFFFFFFF), "assertion failed");  // -1
    EXPECT_DEATH(rsvp_build_message_id_list(b.data(), 0x1000000, 0), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id(nullptr, 1, 1, 0), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id_ack(nullptr, 1, 1), "assertion failed");
    EXPECT_DEATH(rsvp_build_message_id_nack(nullptr, 1, 1), "assertion failed");
    // The list builder has no null test: the process dies on the store, not on an assertion.
    EXPECT_DEATH(rsvp_build_message_id_list(nullptr, 1, 0),
                 testing::Not(testing::HasSubstr("assertion failed")));
    // The epoch is checked after the header is written.
    EXPECT_DEATH(build_with_seen_on_fault(0x1000000), "00 0c 17 01 ee ee ee ee ee ee ee ee");
}

TEST(MessageId, ValidatorsAcceptOnlyTheirLengthsAndCTypes) {
    // Class, C-Type, validator, the lengths (0..20) it accepts as a bit set.
    const uint32_t twelve = 1u << 12, above8 = 0x1FFE00;
    struct Row {
        uint8_t cls, c_type;
        int (*valid)(uint8_t *);
        uint32_t lengths;
    } rows[] = {
        {23, 1, rsvp_valid_message_id, twelve},      {23, 2, rsvp_valid_message_id, 0},
        {24, 1, rsvp_valid_message_id_ack, twelve},  {24, 2, rsvp_valid_message_id_ack, twelve},
        {24, 3, rsvp_valid_message_id_ack, 0},       {25, 1, rsvp_valid_message_id_list, above8},
        {25, 2, rsvp_valid_message_id_list, above8}, {25, 3, rsvp_valid_message_id_list, above8},
        {25, 4, rsvp_valid_message_id_list, 0},      {25, 0, rsvp_valid_message_id_list, 0},
    };
    for (const Row &r : rows) {
        for (int len = 0; len <= 20; ++len) {
            SCOPED_TRACE(testing::Message()
                         << int(r.cls) << "/" << int(r.c_type) << " len " << len);
            HeapBytes o = heap_copy(object(r.cls, r.c_type, Bytes(16, 0x5A), len), 0);
            const bool ok = r.lengths >> len & 1;
            EXPECT_EQ(r.valid(o.data()), ok);
            // The dispatcher refuses Lengths off the word grid before the list validator sees them.
            EXPECT_EQ(rsvp_valid_object(o.data()), ok && len % 4 == 0 ? 1u : 0u);
        }
    }
    // Each validator wants its own class.
    Bytes ack = object(24, 1, Bytes(8, 0)), list = object(23, 1, Bytes(8, 0));
    EXPECT_EQ(rsvp_valid_message_id(ack.data()) + rsvp_valid_message_id_ack(list.data()) +
                  rsvp_valid_message_id_list(list.data()),
              0);
    EXPECT_EQ(rsvp_valid_message_id(nullptr) + rsvp_valid_message_id_ack(nullptr) +
                  rsvp_valid_message_id_list(nullptr),
              0);
}

TEST(MessageId, AccessorsReadValidObjectsOnly) {
    Bytes m(12), l(20, 0xEE);
    rsvp_build_message_id(m.data(), 7, 5, 1);
    EXPECT_EQ(RSVP_MESSAGE_ID_FLAGS(m.data()), 1);
    EXPECT_EQ(RSVP_MESSAGE_ID_EPOCH(m.data()), 5u);
    EXPECT_EQ(RSVP_MESSAGE_ID_MSGID(m.data()), 7u);
    rsvp_build_message_id_list(l.data(), 0x00F00D, 0x80);
    rsvp_add_message_id_list(l.data(), 0xCAFE0001);
    EXPECT_EQ(RSVP_MESSAGE_ID_LIST_FLAGS(l.data()), 0x80);
    EXPECT_EQ(RSVP_MESSAGE_ID_LIST_EPOCH(l.data()), 0x00F00Du);
    EXPECT_EQ(RSVP_MESSAGE_ID_LIST_MSGID(l.data(), 0), 0xCAFE0001u);
    // The index is the caller's to bound: the word behind the Length is read as it lies.
    EXPECT_EQ(RSVP_MESSAGE_ID_LIST_MSGID(l.data(), 1), 0xEEEEEEEEu);
    // Invalid objects answer 0: a MESSAGE_ID of Length 16, an empty list.
    Bytes long_id = object(23, 1, hex("01 00 00 05 00 00 00 07 00 00 00 00"));
    Bytes empty(12);
    rsvp_build_message_id_list(empty.data(), 5, 1);
    for (uint8_t *o : {long_id.data(), empty.data(), static_cast<uint8_t *>(nullptr)}) {
        EXPECT_EQ(RSVP_MESSAGE_ID_FLAGS(o) + RSVP_MESSAGE_ID_EPOCH(o) + RSVP_MESSAGE_ID_MSGID(o) +
                      RSVP_MESSAGE_ID_LIST_FLAGS(o) + RSVP_MESSAGE_ID_LIST_EPOCH(o) +
                      RSVP_MESSAGE_ID_LIST_MSGID(o, 0),
                  0u);
    }
    // Any valid class is read at the same offsets, but a shorter one is not read past its end.
    Bytes tv = hex("00 08 05 01 12 34 56 78 ee ee ee ee");  // TIME_VALUES, then other bytes
    EXPECT_EQ(RSVP_MESSAGE_ID_FLAGS(tv.data()), 0x12);
    EXPECT_EQ(RSVP_MESSAGE_ID_LIST_EPOCH(tv.data()), 0x345678u);
    EXPECT_EQ(RSVP_MESSAGE_ID_MSGID(tv.data()) + RSVP_MESSAGE_ID_LIST_MSGID(tv.data(), 0), 0u);
}

TEST(MessageIdList, GrowsFromTheLengthWithoutLimit) {
    Bytes b(24, 0xEE);
    rsvp_build_message_id_list(b.data(), 5, 0);
    EXPECT_EQ(rsvp_valid_message_id_list(b.data()), 0);  // built empty, not valid on receipt
    rsvp_add_message_id_list(b.data(), 1);
    EXPECT_EQ(rsvp_valid_message_id_list(b.data()), 1);
    rsvp_add_message_id_list(b.data(), 2);
    rsvp_add_message_id_list(b.data(), 3);
    EXPECT_EQ(to_hex(b),  // Length 20 | flags, epoch | 1, 2, 3 in the order added
              "00 14 19 01 00 00 00 05 00 00 00 01 00 00 00 02 00 00 00 03 ee ee ee ee");
    // A Length off the word grid: the slot is that of the last whole identifier, then + 4.
    Bytes odd = hex("00 0e 19 01 00 00 00 05 00 00 00 01 ee ee ee ee ee ee");
    rsvp_add_message_id_list(odd.data(), 9);
    EXPECT_EQ(to_hex(odd), "00 12 19 01 00 00 00 05 00 00 00 01 00 00 00 09 ee ee");
    // Nothing for a null object or a Length below 8.
    Bytes short_list = hex("00 04 19 01 ee ee ee ee");
    rsvp_add_message_id_list(short_list.data(), 9);
    rsvp_add_message_id_list(nullptr, 9);
    EXPECT_EQ(to_hex(short_list), "00 04 19 01 ee ee ee ee");
    // No upper limit: at Length 65532 the identifier lands there and the Length wraps to 0.
    Bytes big(65536 + 4, 0);
    rsvp_build_message_id_list(big.data(), 5, 0);
    big[0] = 0xFF, big[1] = 0xFC;
    rsvp_add_message_id_list(big.data(), 0x0A0B0C0D);
    EXPECT_EQ(to_hex(big.data(), 2), "00 00");
    EXPECT_EQ(to_hex(big.data() + 65532, 8), "0a 0b 0c 0d 00 00 00 00");
}
