#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

const char *kRoute =
    "00 1c 14 01"                          // length 28, class 20, C-Type 1
    "01 08 0a 00 00 01 20 00"              // strict 10.0.0.1/32
    "84 0c 00 00 01 01 01 01 00 00 00 07"  // loose unnumbered 1.1.1.1 interface 7
    "20 04 fd e9";                         // strict AS 65001

}  // namespace

TEST(ExplicitRoute, AppendWritesExactBytesOrRefuses) {
    Bytes b(48, 0xee);
    rsvp_build_explicit_route(b.data());
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(b.data(), 0, ip("10.0.0.1"), 40), 1);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(b.data(), 1, ip("1.1.1.1"), 7), 1);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(b.data(), 0, ip("1.1.1.1"), 6), 1);
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(b.data(), 0, ip("10.0.0.1"), 40), 1);
    // Only the unnumbered append refuses a duplicate, and the L bits do not matter to it.
    const Bytes before = b;
    EXPECT_EQ(rsvp_add_explicit_route_unnum(b.data(), 0, ip("1.1.1.1"), 7), 0);
    EXPECT_EQ(b, before);
    EXPECT_EQ(to_hex(b.data(), 45),
              "00 2c 14 01 "                          // length 44
              "01 08 0a 00 00 01 28 00 "              // strict 10.0.0.1, prefix length 40 as given
              "84 0c 00 00 01 01 01 01 00 00 00 07 "  // loose unnumbered, reserved 0
              "04 0c 00 00 01 01 01 01 00 00 00 06 "  // another interface: no duplicate
              "01 08 0a 00 00 01 28 00 ee");          // the same IPv4 hop again

    EXPECT_EQ(rsvp_add_explicit_route_ipv4(nullptr, 0, 0, 0) +
                  rsvp_add_explicit_route_unnum(nullptr, 0, 0, 0),
              0);
    Bytes s = hex("00 03 14 01 ee ee ee ee ee ee ee ee ee ee ee ee ee");
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(s.data(), 0, ip("10.0.0.1"), 32), 0);
    EXPECT_EQ(to_hex(s.data(), 5), "00 03 14 01 ee");
    // The unnumbered append does not check the length: it writes at byte 4, length + 12.
    EXPECT_EQ(rsvp_add_explicit_route_unnum(s.data(), 1, ip("2.2.2.2"), 9), 1);
    EXPECT_EQ(to_hex(s), "00 0f 14 01 84 0c 00 00 02 02 02 02 00 00 00 09 ee");
    // The duplicate check reads bytes 4-11 of a type-4 hop whatever its length (here behind it).
    Bytes d = hex("00 0c 14 01 04 08 00 00 01 01 01 01 | 00 00 00 07 ee ee ee ee ee ee ee ee");
    EXPECT_EQ(rsvp_add_explicit_route_unnum(d.data(), 1, ip("1.1.1.1"), 7), 0);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(d.data()), 12);
    // A zero length byte in the trusted content would stop the walk for ever: give up there.
    Bytes z = hex("00 10 14 01 01 08 0a 00 00 01 20 00 01 00 00 00 00 00 00 00 00 00");
    const Bytes z_before = z;
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(z.data(), 0, ip("10.0.0.2"), 32), 0);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(z.data(), 0, ip("1.1.1.1"), 1), 0);
    EXPECT_EQ(z, z_before);
}

// Subobjects: L bit masked off, one exact length per type, only the header read. Objects: any
// Length from 4 validates (a last subobject may overrun; the dispatcher wants a multiple of 4).
TEST(ExplicitRoute, ValidationExtractorsAndAccessors) {
    const std::pair<const char *, int> rows[] = {
        {"01 08", 1}, {"81 08", 1}, {"01 0c", 0}, {"84 0c", 1}, {"04 08", 0}, {"02 14", 1},
        {"02 08", 0}, {"a0 04", 1}, {"20 08", 0}, {"03 08", 0}, {"01 01", 0}, {"00 02", 0},
    };
    for (const auto &[bytes, valid] : rows) {
        SCOPED_TRACE(bytes);
        HeapBytes h = heap_copy(hex(bytes));
        EXPECT_EQ(rsvp_valid_explicit_route_subobject(h.data()), valid);
    }
    EXPECT_EQ(rsvp_valid_explicit_route_subobject(nullptr), 0);

    Bytes b = hex(kRoute);
    for (uint16_t len = 0; len <= b.size(); ++len) {
        SCOPED_TRACE(len);
        HeapBytes h = heap_copy(b);
        RSVP_SET_OBJECT_LENGTH(h.data(), len);
        EXPECT_EQ(rsvp_valid_explicit_route(h.data()), len >= 4 ? 1 : 0);
        EXPECT_EQ(rsvp_valid_object(h.data()), len >= 4 && len % 4 == 0 ? 1u : 0u);
    }
    EXPECT_EQ(rsvp_valid_explicit_route(nullptr), 0);
    // Class 21, C-Type 2, a first hop of type 2 and length 8.
    for (Bytes o : {object(21, 1, {}), object(20, 2, {}), object(20, 1, hex("02 08 0a 00 00 01"))})
        EXPECT_EQ(rsvp_valid_explicit_route(o.data()), 0) << to_hex(o);

    // Hops read back and refused (walk and counts: test_walk_equivalence).
    uint8_t *ipv4 = b.data() + 4, *unnum = b.data() + 12, *as_hop = b.data() + 24;
    uint32_t addr = 1, router = 1, ifid = 2;
    uint8_t plen = 3;
    uint16_t as = 4;
    // Each extractor takes its own type only and leaves its outputs alone otherwise.
    EXPECT_EQ(rsvp_extract_ero_subobject_ipv4(unnum, &addr, &plen) +
                  rsvp_extract_ero_subobject_unnum(as_hop, &addr, &ifid) +
                  rsvp_extract_ero_subobject_as(ipv4, &as),
              0);
    EXPECT_EQ(std::tuple(addr, ifid, plen, as), std::tuple(1u, 2u, uint8_t{3}, uint16_t{4}));
    EXPECT_EQ(rsvp_extract_ero_subobject_ipv4(ipv4, &addr, &plen) +
                  rsvp_extract_ero_subobject_unnum(unnum, &router, &ifid) +
                  rsvp_extract_ero_subobject_as(as_hop, &as),
              3);
    EXPECT_EQ(std::tuple(addr, plen, router, ifid, as),
              std::tuple(ip("10.0.0.1"), 32, ip("1.1.1.1"), 7u, 65001));

    EXPECT_EQ(std::tuple(RSVP_ERO_GENERIC_TYPE(unnum), RSVP_ERO_GENERIC_LENGTH(unnum)),
              std::tuple(0x84, 12));  // raw, L bit included
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(ipv4, ip("9.9.9.9"));
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(ipv4, 8);
    // The setters check validity, not the type: on the unnumbered hop they write byte 6 too.
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(unnum, 0x55);
    EXPECT_EQ(to_hex(ipv4, 16), "01 08 09 09 09 09 08 00 84 0c 00 00 01 01 55 01");
    Bytes bad = hex("03 08 0a 00 00 01 20 00");
    EXPECT_EQ(RSVP_ERO_GENERIC_TYPE(bad.data()) + RSVP_ERO_GENERIC_LENGTH(bad.data()), 0);
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(bad.data(), ip("9.9.9.9"));
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(bad.data(), 8);
    EXPECT_EQ(to_hex(bad), "03 08 0a 00 00 01 20 00");
    // The first-subobject accessor asks the dispatcher, which wants a multiple of 4.
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(b.data()), ipv4);
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(nullptr), nullptr);
    RSVP_SET_OBJECT_LENGTH(b.data(), 27);  // a valid route (see Validation)
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(b.data()), nullptr);
}

TEST(ExplicitRoute, CompareSubobjects) {
    // A hop, its copy, a shorter prefix, the same hop loose, an unnumbered hop.
    Bytes s =
        hex("01 08 0a 00 00 01 20 00  01 08 0a 00 00 01 20 00  01 08 0a 00 00 01 18 00"
            "81 08 0a 00 00 01 20 00  04 0c 00 00 01 01 01 01 00 00 00 07");
    uint8_t *a = s.data(), *copy = a + 8, *shorter = a + 16, *loose = a + 24, *unnum = a + 32;
    const auto cmp = rsvp_compare_explicit_route_subobjects;
    EXPECT_EQ(cmp(nullptr, nullptr), 0);  // the same pointer twice comes first
    EXPECT_EQ(cmp(a, nullptr) + cmp(nullptr, a), 2);
    EXPECT_EQ(cmp(a, copy), 0);
    EXPECT_GT(cmp(a, shorter), 0);
    EXPECT_LT(cmp(a, loose), 0);  // the L bit takes part
    EXPECT_EQ(cmp(a, unnum), 1);  // lengths differ: 1, whatever the bytes say
}
