// SENDER_TSPEC C-Type 2, the Intserv body walk and parameters, and the generic TSPEC validator.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

namespace {

// A SENDER_TSPEC whose body is the given fragments behind an overall length of `words`.
Bytes tspec_body(uint8_t words, const Bytes &frags) {
    return object(RSVP_CLASS_SENDER_TSPEC, 2, concat({hex("00 00 00"), {words}, frags}));
}

}  // namespace

TEST(Tspec, BuildWritesTheTokenBucketLayout) {
    Bytes b(40, 0xee);
    rsvp_build_tspec(b.data(), 1250000, 10000, 2500000, 64, 1500);
    EXPECT_EQ(to_hex(b), to_hex(hex(kTspecHex)) + " ee ee ee ee");
    EXPECT_EQ(rsvp_valid_object(b.data()), 1u);
}

// The library relies only on the exact conversion of integers that a single float holds;
// those come back unchanged, negative ones included.
TEST(Tspec, ExactIntegersRoundTrip) {
    for (int64_t v : {0LL, 1LL, 16777216LL, 1LL << 40, -1LL, -4096LL}) {
        SCOPED_TRACE(v);
        Bytes b(36);
        rsvp_build_tspec(b.data(), v, v, v, 7, 9);
        int64_t r = 0, d = 0, p = 0;
        uint32_t m = 0, big_m = 0;
        ASSERT_EQ(rsvp_extract_tspec(b.data(), &r, &d, &p, &m, &big_m), 1);
        EXPECT_EQ(std::tuple(r, d, p, m, big_m), std::tuple(v, v, v, 7u, 9u));
        EXPECT_EQ(std::tuple(rsvp_get_average_rate(b.data()), rsvp_get_maximum_burst(b.data()),
                             rsvp_get_peak_rate(b.data()), rsvp_get_min_unit(b.data()),
                             rsvp_get_max_unit(b.data())),
                  std::tuple(v, v, v, 7u, 9u));
    }
}

TEST(Tspec, ValidatorChecksEachField) {
    struct Row {
        size_t offset;
        const char *patch;
        int verdict;
    } rows[] = {
        {2, "09", 0},            // class 9
        {3, "05", 0},            // C-Type 5
        {4, "10", 0},            // version 1
        {5, "01", 0},            // reserved bits
        {11, "05", 0},           // service data length 5
        {12, "80", 0},           // parameter id 128
        {13, "01", 0},           // parameter flags
        {15, "04", 0},           // parameter length 4
        {16, "7f 80 00 00", 0},  // r infinite
        {20, "7f 80 00 00", 0},  // b infinite
        {24, "7f 80 00 00", 1},  // p infinite
        {28, "00 00 05 dc", 1},  // m = M
        {28, "00 00 05 dd", 0},  // m = M + 1
        {9, "ff", 1},            // fragment reserved byte: not examined
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(testing::Message() << row.offset << ": " << row.patch);
        Bytes b = patched(kTspecHex, row.offset, row.patch);
        EXPECT_EQ(rsvp_valid_tspec(b.data()), row.verdict);
    }
    EXPECT_EQ(rsvp_valid_tspec(nullptr), 0);
}

// The overall length (words) is checked against the object length minus 8 (bytes): with the
// 7-word body in the buffer, every length field from 15 on passes, not only 36.
TEST(Tspec, WordCountAgainstByteCountIsNotTightened) {
    for (uint8_t len = 0; len <= 40; ++len) {
        SCOPED_TRACE(len);
        Bytes b = hex(kTspecHex);
        b[1] = len;
        EXPECT_EQ(rsvp_valid_tspec(b.data()), len >= 15 ? 1 : 0);
    }
}

// A claim of 28 words on a 36-byte object passes that check; the walk then reads as far as
// the claim, past the object: zero words there are empty fragments and add up, a fragment
// longer than what remains does not. A claim of 29 fails the check.
TEST(Tspec, OverlongClaimIsDecidedByTheWalk) {
    Bytes b = hex(kTspecHex);
    b.resize(8 + 28 * 4, 0);
    b[7] = 28;
    EXPECT_EQ(rsvp_valid_tspec(heap_copy(b).data()), 1);
    b[36 + 3] = 21;  // 22 words where 21 remain
    EXPECT_EQ(rsvp_valid_tspec(heap_copy(b).data()), 0);
    b[36 + 3] = 0;
    b[7] = 29;
    EXPECT_EQ(rsvp_valid_tspec(heap_copy(b).data()), 0);
}

TEST(Tspec, BodiesWithoutTokenBucketExtractZeros) {
    for (const Bytes &body : {tspec_body(0, {}), tspec_body(3, hex(kQualFragHex))}) {
        SCOPED_TRACE(to_hex(body));
        HeapBytes b = heap_copy(body);
        int64_t r = 1, d = 1, p = 1;
        uint32_t m = 1, big_m = 1;
        ASSERT_EQ(rsvp_extract_tspec(b.data(), &r, &d, &p, &m, &big_m), 1);
        EXPECT_EQ(std::tuple(r, d, p, m, big_m), std::tuple(0, 0, 0, 0u, 0u));
        EXPECT_EQ(rsvp_get_max_unit(b.data()), 0u);
        EXPECT_EQ(rsvp_find_intsrv_service(b.data(), RSVP_INTSRV_SERVICE_GENERAL), nullptr);
    }
    Bytes bad = tspec_body(3, hex("06 00 00 02  80 00 00 02  00 00 05 dc"));
    EXPECT_EQ(rsvp_valid_tspec(bad.data()), 0);  // qualitative parameter of 2 words
    int64_t r = 11;
    EXPECT_EQ(rsvp_extract_tspec(bad.data(), &r, &r, &r, nullptr, nullptr), 0);
    EXPECT_EQ(r, 11);  // untouched
}

// Unknown services are stepped over by their own length, by the validator and the search.
TEST(Tspec, UnknownServicesAreSkipped) {
    const Bytes tspec = hex(kTspecHex);
    Bytes frags = concat({hex("09 00 00 01 ff ff ff ff"), hex(kQualFragHex), hex("03 00 00 00"),
                          Bytes(tspec.begin() + 8, tspec.end())});
    HeapBytes b = heap_copy(tspec_body(13, frags));
    ASSERT_EQ(rsvp_valid_tspec(b.data()), 1);
    EXPECT_EQ(rsvp_find_intsrv_service(b.data(), 6), b.data() + 16);
    EXPECT_EQ(rsvp_find_intsrv_service(b.data(), 3), b.data() + 28);
    EXPECT_EQ(rsvp_find_intsrv_service(b.data(), 1), b.data() + 32);
    EXPECT_EQ(rsvp_find_intsrv_service(b.data(), 2), nullptr);
    EXPECT_EQ(rsvp_find_intsrv_service(nullptr, 1), nullptr);
    EXPECT_EQ(rsvp_get_average_rate(b.data()), 1250000);
    uint8_t *q = b.data() + 16;
    EXPECT_EQ(std::tuple(RSVP_TSPEC_QUAL_FRAG_PARAM_ID(q), RSVP_TSPEC_QUAL_FRAG_FLAGS(q),
                         RSVP_TSPEC_QUAL_FRAG_PARAM_LEN(q), RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(q)),
              std::tuple(128, 0, 1, 1500u));
}

TEST(Tspec, Accessors) {
    Bytes b = hex(kTspecHex);
    uint8_t *frag = RSVP_TSPEC_FRAGMENTS_PTR(b.data(), 0);
    ASSERT_EQ(frag, b.data() + 8);
    EXPECT_EQ(RSVP_TSPEC_FRAGMENTS_PTR(b.data(), 12), b.data() + 20);
    EXPECT_EQ(RSVP_TSPEC_HEADER_LENGTH(b.data()), 7);
    EXPECT_EQ(std::tuple(RSVP_INTSRV_SERVICE_ID(frag), RSVP_INTSRV_SERVICE_LENGTH(frag),
                         RSVP_TOKEN_BUCKET_FRAG_PARAM_ID(frag), RSVP_TOKEN_BUCKET_FRAG_FLAGS(frag),
                         RSVP_TOKEN_BUCKET_FRAG_PARAM_LEN(frag)),
              std::tuple(1, 6, 127, 0, 5));
    EXPECT_EQ(std::tuple(RSVP_TOKEN_BUCKET_FRAG_RATE(frag), RSVP_TOKEN_BUCKET_FRAG_DEPTH(frag),
                         RSVP_TOKEN_BUCKET_FRAG_PEAK(frag), RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(frag),
                         RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(frag)),
              std::tuple(1250000, 10000, 2500000, 64u, 1500u));
    EXPECT_EQ(RSVP_TOKEN_BUCKET_FRAG_RATE(nullptr), 0);
    // The object-level ones answer only for an object that the dispatch accepts.
    b[4] = 0x10;  // version 1
    EXPECT_EQ(RSVP_TSPEC_HEADER_VERSION(b.data()), 0);
    EXPECT_EQ(RSVP_TSPEC_HEADER_LENGTH(b.data()), 0);
    EXPECT_EQ(RSVP_TSPEC_FRAGMENTS_PTR(b.data(), 0), nullptr);
}

// The "real" builder stores the float bits as given, exactly as the integer one does.
TEST(Tspec, SingleWordParameters) {
    Bytes real(8), integer(8);
    rsvp_build_intsrv_real_object(real.data(), 6, 0x49742400);
    rsvp_build_intsrv_integer_object(integer.data(), 6, 0x49742400);
    EXPECT_EQ(to_hex(real), "06 00 00 01 49 74 24 00");
    EXPECT_EQ(real, integer);
    EXPECT_EQ(std::tuple(RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(real.data()),
                         RSVP_INTSRV_INTEGER_OBJECT_FLAGS(real.data()),
                         RSVP_INTSRV_INTEGER_OBJECT_LENGTH(real.data()),
                         RSVP_INTSRV_REAL_OBJECT_VALUE(real.data())),
              std::tuple(6, 0, 1, 0x49742400u));
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(real.data(), 0x01020304);
    EXPECT_EQ(RSVP_INTSRV_INTEGER_VAL(real.data()), 0x01020304u);
    RSVP_INTSRV_REAL_OBJECT_SET_VALUE(real.data(), RSVP_INTSRV_INFINITY_BITS);
    EXPECT_EQ(to_hex(real), "06 00 00 01 7f 80 00 00");
    RSVP_INTSRV_REAL_OBJECT_SET_VALUE(nullptr, 1);
    EXPECT_EQ(RSVP_INTSRV_INTEGER_OBJECT_VALUE(nullptr), 0u);
}

TEST(Tspec, GenericValidatorChoosesByCType) {
    const std::pair<Bytes, int> rows[] = {
        {hex(kTspecHex), 1},
        {object(12, 4, Bytes(12, 0xff)), 1},  // any 16-byte SONET/SDH body
        {object(12, 4, Bytes(16, 0)), 0},
        {object(12, 5, hex("00 00 00 07 00 01 00 01 4b 80 00 00")), 1},
        {object(12, 5, Bytes(16, 0)), 0},
        {object(12, 3, Bytes(12, 0)), 0},
        {object(9, 4, Bytes(12, 0)), 0},
    };
    for (const auto &[obj, verdict] : rows) {
        SCOPED_TRACE(to_hex(obj));
        HeapBytes b = heap_copy(obj);
        EXPECT_EQ(rsvp_valid_gen_tspec(b.data()), verdict);
        if (obj[2] == 12) {
            EXPECT_EQ(rsvp_valid_object(b.data()), unsigned(verdict));
        }
    }
    EXPECT_EQ(rsvp_valid_gen_tspec(nullptr), 0);
}
