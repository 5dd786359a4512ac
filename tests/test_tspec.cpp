// SENDER_TSPEC C-Type 2: build, validation, extraction, the Intserv body walk and parameters.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

namespace {

// A SENDER_TSPEC whose body is the given fragments behind an overall length of `words`.
Bytes tspec_body(uint8_t words, const Bytes &frags) {
    return object(RSVP_CLASS_SENDER_TSPEC, 2, concat({hex("00 00 00"), {words}, frags}));
}

// r, b, p, m, M: as extracted into outputs that start at kUnset, and as the getters read them.
using Bucket = std::tuple<int64_t, int64_t, int64_t, uint32_t, uint32_t>;
const Bucket kUnset{-7, -7, -7, 7, 7};
std::pair<int, Bucket> extract(uint8_t *o) {
    Bucket got = kUnset;
    auto &[r, b, p, m, big_m] = got;
    const int result = rsvp_extract_tspec(o, &r, &b, &p, &m, &big_m);
    return {result, got};
}
Bucket getters(uint8_t *o) {
    return {rsvp_get_average_rate(o), rsvp_get_maximum_burst(o), rsvp_get_peak_rate(o),
            rsvp_get_min_unit(o), rsvp_get_max_unit(o)};
}

}  // namespace

// Built bytes, then integers a single float holds exactly, negative ones included, read back.
TEST(Tspec, BuildAndReadBack) {
    Bytes b(40, 0xee);
    rsvp_build_tspec(b.data(), 1250000, 10000, 2500000, 64, 1500);
    EXPECT_EQ(to_hex(b), to_hex(hex(kTspecHex)) + " ee ee ee ee");
    for (int64_t v : {0LL, 1LL, 16777216LL, 1LL << 40, -1LL, -4096LL}) {
        SCOPED_TRACE(v);
        rsvp_build_tspec(b.data(), v, v, v, 7, 9);
        EXPECT_EQ(extract(b.data()), std::pair(1, Bucket(v, v, v, 7, 9)));
        EXPECT_EQ(getters(b.data()), Bucket(v, v, v, 7, 9));
    }
}

// Each rejected object leaves the extractor's outputs untouched.
TEST(Tspec, ValidatorChecksEachField) {
    const std::tuple<size_t, const char *, int> rows[] = {
        {2, "09", 0},            // class 9
        {3, "05", 0},            // C-Type 5
        {4, "10", 0},            // version 1
        {11, "05", 0},           // service data length 5
        {12, "80", 0},           // parameter id 128
        {13, "01", 0},           // parameter flags
        {15, "04", 0},           // parameter length 4
        {16, "7f 80 00 00", 0},  // r infinite
        {20, "7f 80 00 00", 0},  // b infinite
        {28, "00 00 05 dc", 1},  // m = M
        {28, "00 00 05 dd", 0},  // m = M + 1
    };
    for (const auto &[offset, patch, verdict] : rows) {
        SCOPED_TRACE(testing::Message() << offset << ": " << patch);
        Bytes b = patched(kTspecHex, offset, patch);
        EXPECT_EQ(rsvp_valid_tspec(b.data()), verdict);
        if (!verdict) {
            EXPECT_EQ(extract(b.data()), std::pair(0, kUnset));
        }
    }
    EXPECT_EQ(rsvp_valid_tspec(nullptr), 0);
    // The overall length (words) is checked against the object length minus 8 (bytes): with
    // the 7-word body in the buffer, every length field from 15 on passes, not only 36. Below
    // 8, where that difference would wrap, the minimum object length rejects.
    for (uint8_t len = 0; len <= 40; ++len) {
        SCOPED_TRACE(len);
        Bytes b = hex(kTspecHex);
        b[1] = len;
        EXPECT_EQ(rsvp_valid_tspec(b.data()), len >= 15 ? 1 : 0);
    }
}

// The walk steps over unknown services by their own length, in the validator and the search,
// and rejects a fragment longer than the words that remain. Without a service-1 fragment (no
// fragment, or a qualitative one) extraction and the getters give zeros; a rejected body
// leaves the outputs untouched.
TEST(Tspec, FragmentWalk) {
    // Unknown service 9, qualitative, empty service 3, then the token bucket.
    const Bytes tspec = hex(kTspecHex);
    const Bytes mixed =
        tspec_body(13, concat({hex("09 00 00 01 ff ff ff ff"), hex(kQualFragHex),
                               hex("03 00 00 00"), Bytes(tspec.begin() + 8, tspec.end())}));
    const Bucket zeros{0, 0, 0, 0, 0};
    const std::tuple<Bytes, int, Bucket> rows[] = {
        {tspec_body(0, {}), 1, zeros},
        {tspec_body(3, hex(kQualFragHex)), 1, zeros},
        // Rejected: a qualitative parameter of 2 words, qualitative service data of 3 words,
        // parameter 129 in a qualitative fragment, a fragment longer than the 2 words left.
        {tspec_body(3, hex("06 00 00 02  80 00 00 02  00 00 05 dc")), 0, kUnset},
        {tspec_body(4, hex("06 00 00 03  80 00 00 01  00 00 05 dc  00 00 00 00")), 0, kUnset},
        {tspec_body(3, hex("06 00 00 02  81 00 00 01  00 00 05 dc")), 0, kUnset},
        {tspec_body(2, hex("09 00 00 02  00 00 00 00  00 00 00 00")), 0, kUnset},
        {mixed, 1, {1250000, 10000, 2500000, 64, 1500}},
    };
    for (const auto &[body, valid, want] : rows) {
        SCOPED_TRACE(to_hex(body));
        HeapBytes b = heap_copy(body);
        EXPECT_EQ(extract(b.data()), std::pair(valid, want));
        EXPECT_EQ(getters(b.data()), valid ? want : zeros);
    }
    HeapBytes b = heap_copy(mixed);
    uint8_t *o = b.data(), *qual = o + 16, *tb = o + 32, *none = nullptr;
    EXPECT_EQ(std::tuple(rsvp_find_intsrv_service(o, 6), rsvp_find_intsrv_service(o, 3),
                         rsvp_find_intsrv_service(o, 1), rsvp_find_intsrv_service(o, 2),
                         rsvp_find_intsrv_service(nullptr, 1)),
              std::tuple(qual, o + 28, tb, none, none));
    EXPECT_EQ(std::tuple(RSVP_TSPEC_HEADER_LENGTH(o), RSVP_TSPEC_FRAGMENTS_PTR(o, 24),
                         RSVP_INTSRV_SERVICE_ID(o + 8), RSVP_INTSRV_SERVICE_LENGTH(o + 8)),
              std::tuple(13, tb, 9, 1));
    EXPECT_EQ(std::tuple(RSVP_TSPEC_QUAL_FRAG_PARAM_ID(qual), RSVP_TSPEC_QUAL_FRAG_FLAGS(qual),
                         RSVP_TSPEC_QUAL_FRAG_PARAM_LEN(qual), RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(qual),
                         RSVP_TOKEN_BUCKET_FRAG_PARAM_ID(tb), RSVP_TOKEN_BUCKET_FRAG_FLAGS(tb),
                         RSVP_TOKEN_BUCKET_FRAG_PARAM_LEN(tb)),
              std::tuple(128, 0, 1, 1500u, 127, 0, 5));
    o[2] = 99;  // an unknown class: the object-level accessors answer only for a valid object
    EXPECT_EQ(std::tuple(RSVP_TSPEC_HEADER_VERSION(o), RSVP_TSPEC_HEADER_LENGTH(o),
                         RSVP_TSPEC_FRAGMENTS_PTR(o, 0)),
              std::tuple(0, 0, nullptr));
}

// The "real" builder stores the float bits as given, exactly as the integer one does.
TEST(Tspec, SingleWordParameters) {
    Bytes real(8), integer(8);
    rsvp_build_intsrv_real_object(real.data(), 6, RSVP_INTSRV_INFINITY_BITS);
    rsvp_build_intsrv_integer_object(integer.data(), 6, RSVP_INTSRV_INFINITY_BITS);
    EXPECT_EQ(to_hex(real), "06 00 00 01 7f 80 00 00");
    EXPECT_EQ(real, integer);
    uint8_t *p = real.data();
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(p, 0x01020304);
    RSVP_INTSRV_REAL_OBJECT_SET_VALUE(nullptr, 1);  // does nothing
    EXPECT_EQ(
        std::tuple(RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(p), RSVP_INTSRV_INTEGER_OBJECT_FLAGS(p),
                   RSVP_INTSRV_INTEGER_OBJECT_LENGTH(p), RSVP_INTSRV_INTEGER_OBJECT_VALUE(p),
                   RSVP_INTSRV_INTEGER_VAL(p), RSVP_INTSRV_REAL_OBJECT_VALUE(p),
                   RSVP_INTSRV_INTEGER_OBJECT_VALUE(nullptr)),
        std::tuple(6, 0, 1, 0x01020304u, 0x01020304u, 0x01020304u, 0u));
    RSVP_INTSRV_REAL_OBJECT_SET_VALUE(p, 0x49742400);
    EXPECT_EQ(to_hex(real), "06 00 00 01 49 74 24 00");
}
