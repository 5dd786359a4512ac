#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// One subobject of each kind, built by hand.
const char *kXro =
    "00 38 e8 01"                           // length 56, class 232, C-Type 1
    "81 08 0a 00 00 01 18 05"               // L, IPv4 10.0.0.1/24, attribute 5
    "06 0c 00 02 01 01 01 01 00 00 00 07"   // unnumbered (type 6), attribute 2, 1.1.1.1 if 7
    "a2 08 00 00 00 64 00 00"               // L, SRLG 100
    "a4 18 03 01 0a 00 00 09 00 00 00 2a"   // L, LSP: flags 3, attribute 1, to 10.0.0.9,
    "0a 00 00 01 0a 00 00 02 00 00 00 05";  //   tunnel 42, ext 10.0.0.1, from 10.0.0.2, LSP 5

}  // namespace

TEST(ExcludeRoute, BuildAppendAndReadBack) {
    Bytes b(64, 0xEE);
    rsvp_build_xro(b.data());
    ASSERT_EQ(rsvp_add_xro_ipv4_subobj(b.data(), 1, ip("10.0.0.1"), 24, 5), 1);
    ASSERT_EQ(rsvp_add_xro_unnum_ifid_subobj(b.data(), 0, 2, ip("1.1.1.1"), 7), 1);
    ASSERT_EQ(rsvp_add_xro_srlg_subobj(b.data(), 1, 100), 1);
    ASSERT_EQ(rsvp_add_xro_lsp_subobj(b.data(), 1, 1, 3, 42, 5, ip("10.0.0.2"), ip("10.0.0.9"),
                                      ip("10.0.0.1")),
              1);
    EXPECT_EQ(to_hex(b.data(), 57), to_hex(hex(kXro)) + " ee");
    EXPECT_EQ(rsvp_valid_object(b.data()), 1u);

    // Read back; what the extractors do not check: no validation, no type test, every output
    // optional.
    uint8_t *ipv4 = b.data() + 4, *unnum = b.data() + 12, *srlg_sub = b.data() + 24,
            *lsp = b.data() + 32, l[4] = {}, attr[3] = {}, plen = 0, flags = 0;
    uint32_t a[3] = {}, srlg = 0, router = 0, if_id = 0;
    uint16_t tunnel = 0, lsp_id = 0;
    EXPECT_EQ(rsvp_extract_xro_ipv4_subobj(ipv4, &l[0], &a[0], &plen, &attr[0]) +
                  rsvp_extract_xro_unnum_ifid_subobj(unnum, &l[1], &attr[1], &router, &if_id) +
                  rsvp_extract_xro_srlg_subobj(srlg_sub, &l[2], &srlg),
              3);
    EXPECT_EQ(std::tuple(l[0], a[0], plen, attr[0], l[1], attr[1], router, if_id, l[2], srlg),
              std::tuple(1, ip("10.0.0.1"), 24, 5, 0, 2, ip("1.1.1.1"), 7u, 1, 100u));
    EXPECT_EQ(rsvp_extract_xro_lsp_subobj(lsp, &l[3], &attr[2], &flags, &tunnel, &lsp_id, &a[0],
                                          &a[1], &a[2]),
              1);
    EXPECT_EQ(std::tuple(l[3], attr[2], flags, tunnel, lsp_id, a[0], a[1], a[2]),
              std::tuple(1, 1, 3, 42, 5, ip("10.0.0.2"), ip("10.0.0.9"), ip("10.0.0.1")));
    uint8_t l_bit = 9;
    EXPECT_EQ(rsvp_extract_xro_srlg_subobj(ipv4, &l_bit, &srlg), 1);
    EXPECT_EQ(std::tuple(l_bit, srlg), std::tuple(1, 0x0a000001u));  // address read as SRLG id
    EXPECT_EQ(rsvp_extract_xro_ipv4_subobj(ipv4, nullptr, nullptr, nullptr, nullptr), 1);
    l_bit = 9;
    EXPECT_EQ(rsvp_extract_xro_ipv4_subobj(nullptr, &l_bit, nullptr, nullptr, nullptr) +
                  rsvp_extract_xro_unnum_ifid_subobj(nullptr, &l_bit, nullptr, nullptr, nullptr) +
                  rsvp_extract_xro_srlg_subobj(nullptr, &l_bit, &srlg) +
                  rsvp_extract_xro_lsp_subobj(nullptr, &l_bit, nullptr, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr),
              0);
    EXPECT_EQ(l_bit, 9);
    EXPECT_EQ(std::tuple(RSVP_XRO_SUB_LEN(lsp), RSVP_XRO_SUB_LBIT(lsp), RSVP_XRO_SUB_TYPE(lsp),
                         RSVP_XRO_SUB_LBIT(unnum)),
              std::tuple(24, 1, 36, 0));
    EXPECT_EQ(RSVP_XRO_SUB_LEN(nullptr) + RSVP_XRO_SUB_LBIT(nullptr) + RSVP_XRO_SUB_TYPE(nullptr),
              0);
}

TEST(ExcludeRoute, NoAppendPositionWritesNothing) {
    for (const char *bad : {
             "00 03 e8 01 00 00 00 00 00 00 00 00 00 00 00 00",  // length below 4
             "00 0c e8 01 01 0c 00 00 00 00 00 00 00 00 00 00",  // runs past the end
             // 2 or 1 bytes left over, their length byte stepping exactly to the end
             "00 0c e8 01 01 06 00 00 00 00 01 02 00 00 00 00",
             "00 0b e8 01 01 06 00 00 00 00 01 01 00 00 00 00",
             "00 0c e8 01 01 00 00 00 00 00 00 00 00 00 00 00",  // zero length byte (guard)
         }) {
        SCOPED_TRACE(bad);
        Bytes b = hex(bad);
        b.resize(40, 0);
        const Bytes before = b;
        EXPECT_EQ(rsvp_add_xro_ipv4_subobj(b.data(), 0, 1, 2, 3), 0);
        EXPECT_EQ(rsvp_add_xro_unnum_ifid_subobj(b.data(), 0, 1, 2, 3), 0);
        EXPECT_EQ(rsvp_add_xro_srlg_subobj(b.data(), 0, 1), 0);
        EXPECT_EQ(rsvp_add_xro_lsp_subobj(b.data(), 0, 1, 2, 3, 4, 5, 6, 7), 0);
        EXPECT_EQ(b, before);
    }
    EXPECT_EQ(rsvp_add_xro_srlg_subobj(nullptr, 0, 1), 0);
    // Appending ignores class and content: any run that ends exactly at the end will do.
    Bytes other = hex("00 08 15 01 05 04 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(rsvp_add_xro_srlg_subobj(other.data(), 0, 1), 1);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(other.data()), 16);
}

// Exact-size buffers: the walk never reads behind the object; end bytes too short for a
// subobject header or a whole subobject end it.
TEST(ExcludeRoute, Validation) {
    const std::pair<const char *, int> rows[] = {
        {"00 04 e8 01", 1},
        {"00 10 e8 01 06 0c 00 00 01 01 01 01 00 00 00 07", 1},
        {"00 10 e8 01 04 0c 00 00 01 01 01 01 00 00 00 07", 0},  // type 4 is not XRO's
        {"00 10 e8 01 22 0c 00 00 00 64 00 00 00 00 00 00", 0},  // SRLG of length 12
        {"00 20 e8 01 24 1c 00 00 00 00 00 00 00 00 00 00"       // LSP of length 28
         "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",
         0},
        {"00 0c e8 02 22 08 00 00 00 64 00 00", 0},  // C-Type 2
        {"00 0c 14 01 22 08 00 00 00 64 00 00", 0},  // class 20
        // A trailing remainder whose length byte reaches past the end is tolerated ...
        {"00 0f e8 01 22 08 00 00 00 64 00 00 01 08 00", 1},
        // ... one that fits inside is a subobject (a bad one here), a bare header at the end too.
        {"00 0e e8 01 22 08 00 00 00 64 00 00 01 02", 0},
        {"00 0d e8 01 22 08 00 00 00 64 00 00 01", 1},       // one byte cannot hold a header
        {"00 0c e8 01 22 08 00 00 00 64 00 00 | 00 00", 1},  // nor do bytes behind the end
        {"00 02 e8 01", 1},                                  // a Length below 4 is not checked
    };
    for (const auto &[bytes, valid] : rows) {
        SCOPED_TRACE(bytes);
        HeapBytes h = heap_copy(hex(bytes));
        EXPECT_EQ(rsvp_valid_xro(h.data()), valid);
        EXPECT_TRUE(valid || rsvp_xro_subobj_count(h.data()) == 0);
    }
    EXPECT_EQ(rsvp_valid_xro(nullptr), 0);
    EXPECT_EQ(rsvp_get_xro_next_sub_hdr(nullptr, nullptr), nullptr);
    // Cut at every length: each cut inside a subobject ends the walk there.
    const Bytes full = hex(kXro);
    for (uint16_t len = 0; len <= full.size(); ++len) {
        SCOPED_TRACE(len);
        HeapBytes h = heap_copy(full);
        RSVP_SET_OBJECT_LENGTH(h.data(), len);
        EXPECT_EQ(rsvp_valid_xro(h.data()), 1);
        const uint32_t whole = len >= 56 ? 4 : len >= 32 ? 3 : len >= 24 ? 2 : len >= 12 ? 1 : 0;
        EXPECT_EQ(rsvp_xro_subobj_count(h.data()), whole);
    }
}
