#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

const uint8_t kKey[6] = {0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xA6};
const uint64_t kSeq = 0x0102030405060708ull;
const uint8_t kDigest[20] = {0xD0, 0xD1, 0xD2, 0xD3, 0xD4, 0xD5, 0xD6, 0xD7, 0xD8, 0xD9,
                             0xDA, 0xDB, 0xDC, 0xDD, 0xDE, 0xDF, 0xE0, 0xE1, 0xE2, 0xE3};

}  // namespace

// INTEGRITY is valid from 24 to 40 bytes in whole words, CHALLENGE at 20 bytes only; the
// accessors and extractors act on valid objects alone.
TEST(Integrity, ValidLengths) {
    for (int len = 16; len <= 48; len += 2) {
        SCOPED_TRACE(len);
        HeapBytes i = heap_copy(object(4, 1, Bytes(44, 0), len));
        HeapBytes c = heap_copy(object(64, 1, Bytes(44, 0x55), len));
        const bool ok = len >= 24 && len <= 40 && len % 4 == 0, ch = len == 20;
        EXPECT_EQ(RSVP_INTEGRITY_DIGEST_LEN(i.data()), ok ? len - 20u : 0u);
        EXPECT_EQ(RSVP_INTEGRITY_DIGEST_PTR(i.data()), ok ? i.data() + 20 : nullptr);
        uint8_t flags = 9;
        EXPECT_EQ(rsvp_extract_integrity(i.data(), &flags, nullptr, nullptr, nullptr), ok);
        EXPECT_EQ(flags, ok ? 0 : 9);  // untouched on failure
        EXPECT_EQ(RSVP_CHALLENGE_KEY_ID_PTR(c.data()), ch ? c.data() + 6 : nullptr);
        EXPECT_EQ(RSVP_CHALLENGE_COOKIE_PTR(c.data()), ch ? c.data() + 12 : nullptr);
        uint8_t cookie[8] = {1};
        EXPECT_EQ(rsvp_extract_challenge(c.data(), nullptr, cookie), ch);
        EXPECT_EQ(cookie[0], ch ? 0x55 : 1);  // untouched on failure
    }
    // Any valid object counts: its digest pointer is given even where its Length ends first.
    Bytes style = object(8, 1, hex("00 00 00 0a"));
    EXPECT_EQ(RSVP_INTEGRITY_DIGEST_PTR(style.data()), style.data() + 20);
    Bytes i2 = object(4, 2, Bytes(20, 0)), c2 = object(64, 2, Bytes(16, 0));
    EXPECT_EQ(rsvp_valid_integrity(i2.data()) + rsvp_valid_integrity(nullptr) +
                  rsvp_valid_challenge(c2.data()) + rsvp_valid_challenge(nullptr),
              0);
}

TEST(Integrity, BuildAllAtOnceAndExtract) {
    Bytes b(40, 0xEE);
    const uint8_t flags = 0x01;
    const uint32_t len = 16;
    ASSERT_EQ(rsvp_build_integrity(b.data(), &flags, kKey, &kSeq, kDigest, &len), 1);
    EXPECT_EQ(to_hex(b),
              "00 24 04 01 01 00 a1 a2 a3 a4 a5 a6 "  // Length 36, flags, reserved, key id
              "01 02 03 04 05 06 07 08 "              // sequence number, MSB first
              "d0 d1 d2 d3 d4 d5 d6 d7 d8 d9 da db dc dd de df ee ee ee ee");
    uint8_t f = 0, key[6] = {}, digest[20] = {};
    uint64_t seq = 0;
    ASSERT_EQ(rsvp_extract_integrity(b.data(), &f, key, &seq, digest), 1);
    EXPECT_EQ(
        std::tuple(f, seq, to_hex(key, 6) + " " + to_hex(digest, 20)),
        std::tuple(1, kSeq, to_hex(b.data() + 6, 6) + " " + to_hex(kDigest, 16) + " 00 00 00 00"));
    EXPECT_EQ(rsvp_extract_integrity(b.data(), nullptr, nullptr, nullptr, nullptr), 1);
}

// A bad digest length is refused before anything is written. The digest may follow in a later
// call, its length then read from the header in place.
TEST(Integrity, StagedBuildTakesTheDigestLengthFromTheObject) {
    for (uint32_t bad : {0u, 2u, 24u}) {
        SCOPED_TRACE(bad);
        Bytes b(44, 0xEE);
        EXPECT_EQ(rsvp_build_integrity(b.data(), nullptr, kKey, &kSeq, nullptr, &bad), 0);
        EXPECT_EQ(b, Bytes(44, 0xEE));
    }
    Bytes b(40, 0);
    const uint32_t len = 8, other = 12;
    EXPECT_EQ(rsvp_build_integrity(nullptr, nullptr, nullptr, nullptr, kDigest, &len), 0);
    ASSERT_EQ(rsvp_build_integrity(b.data(), nullptr, kKey, nullptr, nullptr, &len), 1);
    ASSERT_EQ(rsvp_build_integrity(b.data(), nullptr, nullptr, &kSeq, kDigest, nullptr), 1);
    EXPECT_EQ(to_hex(b.data() + 12, 20),
              "01 02 03 04 05 06 07 08 d0 d1 d2 d3 d4 d5 d6 d7 00 00 00 00");
    // A digest_len of 12 rewrites the header to Length 32, which then agrees with itself.
    EXPECT_EQ(rsvp_build_integrity(b.data(), nullptr, nullptr, nullptr, kDigest, &other), 1);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(b.data()), 32);
    // Without a valid header (C-Type 2) the digest step fails, keeping what was written before.
    Bytes fresh = object(4, 2, Bytes(36, 0));
    const uint8_t flags = 0x7F;
    EXPECT_EQ(rsvp_build_integrity(fresh.data(), &flags, nullptr, nullptr, kDigest, nullptr), 0);
    EXPECT_EQ(to_hex(fresh.data(), 8), "00 28 04 02 7f 00 00 00");
    EXPECT_EQ(fresh[20], 0);
}

TEST(Challenge, BuildLeavesReservedBytesAndExtracts) {
    const uint8_t cookie[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    Bytes b(20, 0xEE);
    EXPECT_EQ(rsvp_build_challenge(b.data(), kKey, cookie), 1);
    EXPECT_EQ(to_hex(b), "00 14 40 01 ee ee a1 a2 a3 a4 a5 a6 01 02 03 04 05 06 07 08");
    EXPECT_EQ(rsvp_build_challenge(nullptr, kKey, cookie), 0);
    uint8_t key[6] = {}, out[8] = {};
    ASSERT_EQ(rsvp_extract_challenge(b.data(), key, out), 1);
    EXPECT_EQ(to_hex(key, 6) + " " + to_hex(out, 8), to_hex(b.data() + 6, 14));
}
