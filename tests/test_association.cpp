#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {
const uint32_t kSrc = ip("10.0.0.1");
const uint32_t kIds[] = {7, 0x01020304, 9};
}  // namespace

TEST(Association, BuildersAndValidators) {
    Bytes b(44, 0xEE);
    ASSERT_EQ(rsvp_build_association_ipv4(b.data(), 1, 0x0203, kSrc), 1);
    EXPECT_EQ(to_hex(b.data(), 13), "00 0c c7 01 00 01 02 03 0a 00 00 01 ee");  // type, ID, src
    ASSERT_EQ(rsvp_build_association_ipv6(b.data(), 2, 5, kSrc, 0, 0, ip("0.0.0.9")), 1);
    EXPECT_EQ(to_hex(b.data(), 25),
              "00 18 c7 02 00 02 00 05 0a 00 00 01 00 00 00 00 00 00 00 00 00 00 00 09 ee");
    ASSERT_EQ(rsvp_build_association_ipv4_ext(b.data(), 3, 4, kSrc, 0x11223344, kIds, 2), 1);
    EXPECT_EQ(to_hex(b.data(), 24),  // ... global source, two IDs
              "00 18 c7 03 00 03 00 04 0a 00 00 01 11 22 33 44 00 00 00 07 01 02 03 04");
    // IPv6 extended: Length 32 + 8, IDs at 28 and 32, bytes 36..39 never written.
    ASSERT_EQ(rsvp_build_association_ipv6_ext(b.data(), 1, 6, 1, 2, 3, 4, 0x55, kIds, 2), 1);
    EXPECT_EQ(to_hex(b.data(), 4) + to_hex(b.data() + 24, 16),
              "00 28 c7 0400 00 00 55 00 00 00 07 01 02 03 04 ee ee ee ee");
    EXPECT_EQ(rsvp_compute_association_ipv6_ext_id_len(b.data()), 8);
    // Without IDs the Length still counts them (byte 16 keeps its 03); a non-null array with
    // count 0 is refused, and so is a null buffer.
    ASSERT_EQ(rsvp_build_association_ipv4_ext(b.data(), 1, 1, kSrc, 0, nullptr, 2), 1);
    EXPECT_EQ(to_hex(b.data(), 4) + to_hex(b.data() + 16, 1), "00 18 c7 0303");
    EXPECT_EQ(rsvp_build_association_ipv6_ext(b.data(), 9, 9, 1, 2, 3, 4, 0, kIds, 0) +
                  rsvp_build_association_ipv4(nullptr, 1, 1, kSrc) +
                  rsvp_build_association_ipv4_ext(nullptr, 1, 1, kSrc, 0, nullptr, 0),
              0);
    EXPECT_EQ(to_hex(b.data(), 6), "00 18 c7 03 00 01");
    int (*const forms[])(uint8_t *) = {rsvp_valid_association_ipv4, rsvp_valid_association_ipv6,
                                       rsvp_valid_association_ipv4_ext,
                                       rsvp_valid_association_ipv6_ext};
    const int fixed[] = {12, 24, 16, 32};  // exact for C-Types 1, 2; least for 3, 4
    for (int ctype = 1; ctype <= 5; ++ctype)
        for (int len = 0; len <= 44; ++len) {
            SCOPED_TRACE(testing::Message() << "c-type " << ctype << " length " << len);
            Bytes o = object(199, static_cast<uint8_t>(ctype), Bytes(40, 0), len);
            const bool valid = ctype <= 2 ? len == fixed[ctype - 1]
                                          : ctype <= 4 && len >= fixed[ctype - 1] && len % 4 == 0;
            EXPECT_EQ(rsvp_valid_object(o.data()), valid ? 1u : 0u);
            for (int f = 0; f < 4; ++f)
                EXPECT_EQ(forms[f](o.data()), f + 1 == ctype && valid);
            o[2] = 198;
            EXPECT_EQ(rsvp_valid_association(o.data()) + forms[(ctype - 1) % 4](o.data()), 0);
        }
}

// No validation; a refusal for lack of room still writes the fixed fields and the count.
TEST(Association, ExtractorsTrustTheirCaller) {
    Bytes o = hex("00 0c 01 07 00 04 00 05 0a 00 00 01");  // class 1: read all the same
    uint16_t type = 0, id = 0, count = 0;
    uint32_t src[4] = {}, global = 0, ids[3] = {};
    ASSERT_EQ(rsvp_extract_association_ipv4(o.data(), &type, &id, src), 1);
    EXPECT_EQ(std::tuple(type, id, src[0]), std::tuple(4, 5, kSrc));
    EXPECT_EQ(rsvp_extract_association_ipv4(o.data(), &type, nullptr, src), 0);
    EXPECT_EQ(rsvp_compute_association_ipv4_ext_id_len(o.data()), 0);  // 12: no IDs, any class
    Bytes ext(28);
    rsvp_build_association_ipv4_ext(ext.data(), 1, 9, kSrc, 0xABCD, kIds, 3);
    auto extract4 = [&](uint32_t *out, uint32_t capacity) {
        return rsvp_extract_association_ipv4_ext(ext.data(), &type, &id, src, &global, out,
                                                 capacity, &count);
    };
    EXPECT_EQ(extract4(ids, 8), 0);
    EXPECT_EQ(std::tuple(type, id, src[0], src[1], global, count, ids[0]),
              std::tuple(1, 9, kSrc, 0u, 0xABCDu, 3, 0u));    // one source word only
    EXPECT_EQ(extract4(nullptr, 12) + extract4(ids, 12), 2);  // the count alone, then the IDs
    EXPECT_EQ(std::tuple(ids[0], ids[1], ids[2]), std::tuple(kIds[0], kIds[1], kIds[2]));
    // The IPv6 extended form reckons 32 fixed bytes: Length 40 holds two IDs, read from 28.
    Bytes ext6(40, 0xEE);
    rsvp_build_association_ipv6_ext(ext6.data(), 1, 2, 1, 2, 3, 4, 0x66, kIds, 2);
    ids[2] = 0;
    ASSERT_EQ(
        rsvp_extract_association_ipv6_ext(ext6.data(), &type, &id, src, &global, ids, 12, &count),
        1);
    EXPECT_EQ(std::tuple(global, count, ids[0], ids[1], ids[2], src[3]),
              std::tuple(0x66u, 2, kIds[0], kIds[1], 0u, 4u));
    rsvp_build_association_ipv6(ext6.data(), 2, 3, 5, 6, 7, 8);
    ASSERT_EQ(rsvp_extract_association_ipv6(ext6.data(), &type, &id, src), 1);
    EXPECT_EQ(std::tuple(type, id, src[0], src[3]), std::tuple(2, 3, 5u, 8u));
}
