#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

const char *kRoute =
    "00 1c 14 01"                          // length 28, class 20, C-Type 1
    "01 08 0a 00 00 01 20 00"              // strict 10.0.0.1/32
    "84 0c 00 00 01 01 01 01 00 00 00 07"  // loose unnumbered 1.1.1.1 interface 7
    "20 04 fd e9";                         // strict AS 65001
const char *kZeroLength = "00 10 14 01 01 08 0a 00 00 01 20 00 01 00 00 00 00 00 00 00 00 00";

}  // namespace

TEST(ExplicitRoute, BuildAndAppendWriteExactBytes) {
    Bytes b(40, 0xEE);
    rsvp_build_explicit_route(b.data());
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(b.data(), 1, ip("10.0.0.1"), 32), 1);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(b.data(), 0, ip("1.1.1.1"), 7), 1);
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(b.data(), 0, ip("10.0.0.2"), 40), 1);
    EXPECT_EQ(to_hex(b.data(), 33),
              "00 20 14 01 "                          // length 32
              "81 08 0a 00 00 01 20 00 "              // loose 10.0.0.1/32
              "04 0c 00 00 01 01 01 01 00 00 00 07 "  // strict unnumbered, reserved 0
              "01 08 0a 00 00 02 28 00 ee");          // prefix length 40 kept as given
}

TEST(ExplicitRoute, AppendRefusalsAndTheUnnumberedQuirks) {
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(nullptr, 0, 0, 0), 0);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(nullptr, 0, 0, 0), 0);
    Bytes b = hex("00 03 14 01 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(b.data(), 0, ip("10.0.0.1"), 32), 0);
    EXPECT_EQ(to_hex(b.data(), 4), "00 03 14 01");
    // The unnumbered append does not check the length: it writes at byte 4, length + 12.
    EXPECT_EQ(rsvp_add_explicit_route_unnum(b.data(), 1, ip("2.2.2.2"), 9), 1);
    EXPECT_EQ(to_hex(b), "00 0f 14 01 84 0c 00 00 02 02 02 02 00 00 00 09");

    // Only the unnumbered append refuses a duplicate, and the L bit does not matter to it.
    Bytes r(64, 0);
    rsvp_build_explicit_route(r.data());
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(r.data(), 0, ip("10.0.0.1"), 32), 1);
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(r.data(), 0, ip("10.0.0.1"), 32), 1);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(r.data(), 0, ip("1.1.1.1"), 7), 1);
    const Bytes before = r;
    EXPECT_EQ(rsvp_add_explicit_route_unnum(r.data(), 1, ip("1.1.1.1"), 7), 0);
    EXPECT_EQ(r, before);
}

// A zero length byte in the trusted content would stop the append walk for ever; the appends
// give up there without writing.
TEST(ExplicitRoute, AppendGivesUpOnZeroLengthByte) {
    Bytes b = hex(kZeroLength);
    const Bytes before = b;
    EXPECT_EQ(rsvp_add_explicit_route_ipv4(b.data(), 0, ip("10.0.0.2"), 32), 0);
    EXPECT_EQ(rsvp_add_explicit_route_unnum(b.data(), 0, ip("1.1.1.1"), 1), 0);
    EXPECT_EQ(b, before);
}

TEST(ExplicitRoute, SubobjectValidation) {
    const std::pair<const char *, int> rows[] = {
        {"01 08 0a 00 00 01 20 00", 1},
        {"01 0c 0a 00 00 01 20 00 00 00 00 00", 0},
        {"84 0c 00 00 01 01 01 01 00 00 00 07", 1},
        {"02 14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00", 1},
        {"a0 04 00 01", 1},
        {"20 08 00 01 00 00 00 00", 0},
        {"03 08 00 00 00 00 00 00", 0},  // a label is no ERO subobject
        {"01 01", 0},
    };
    for (const auto &[bytes, valid] : rows) {
        SCOPED_TRACE(bytes);
        HeapBytes h = heap_copy(hex(bytes));
        EXPECT_EQ(rsvp_valid_explicit_route_subobject(h.data()), valid);
    }
    EXPECT_EQ(rsvp_valid_explicit_route_subobject(nullptr), 0);
}

// Every Length from 4 up validates: a last subobject that runs past the object end is
// accepted, and the Length need not be a multiple of 4 (the dispatcher still wants one).
TEST(ExplicitRoute, OverrunningLastSubobjectIsAccepted) {
    const Bytes full = hex(kRoute);
    for (uint16_t len = 0; len <= full.size(); ++len) {
        SCOPED_TRACE(len);
        HeapBytes h = heap_copy(full);
        RSVP_SET_OBJECT_LENGTH(h.data(), len);
        EXPECT_EQ(rsvp_valid_explicit_route(h.data()), len >= 4 ? 1 : 0);
        EXPECT_EQ(rsvp_valid_object(h.data()), len >= 4 && len % 4 == 0 ? 1u : 0u);
    }
    EXPECT_EQ(rsvp_valid_explicit_route(nullptr), 0);
    for (size_t at : {2, 3, 4}) {  // class 21, C-Type 2, first hop of type 2 and length 8
        Bytes b = hex(kRoute);
        ++b[at];
        EXPECT_EQ(rsvp_valid_explicit_route(b.data()), 0) << at;
    }
}

TEST(ExplicitRoute, WalkCountAndExtract) {
    Bytes b = hex(kRoute);
    uint8_t *first = rsvp_extract_ero_next_subobject(b.data(), nullptr);
    uint8_t *second = rsvp_extract_ero_next_subobject(b.data(), first);
    uint8_t *third = rsvp_extract_ero_next_subobject(b.data(), second);
    EXPECT_EQ(third - b.data(), 24);
    EXPECT_EQ(rsvp_extract_ero_next_subobject(b.data(), third), nullptr);
    uint32_t addr = 1, ifid = 2;
    uint8_t plen = 3;
    uint16_t as = 4;
    EXPECT_EQ(rsvp_extract_ero_subobject_unnum(second, &addr, &ifid), 1);  // loose as well
    EXPECT_EQ(addr, ip("1.1.1.1"));
    EXPECT_EQ(ifid, 7u);
    // Each extractor takes its own type only and leaves its outputs alone otherwise.
    EXPECT_EQ(rsvp_extract_ero_subobject_ipv4(second, &addr, &plen), 0);
    EXPECT_EQ(rsvp_extract_ero_subobject_unnum(third, &addr, &ifid), 0);
    EXPECT_EQ(rsvp_extract_ero_subobject_as(first, &as), 0);
    EXPECT_EQ(plen, 3);
    EXPECT_EQ(as, 4);

    // The counts compare the raw type byte: loose hops are not counted.
    EXPECT_EQ(rsvp_count_ero_subobject_ipv4(b.data()), 1u);
    EXPECT_EQ(rsvp_count_ero_subobject_unnum(b.data()), 0u);
    b[12] = RSVP_ERO_SUBOBJ_UNNUM;
    EXPECT_EQ(rsvp_count_ero_subobject_unnum(b.data()), 1u);
    b[3] = 2;  // an invalid route: no walk, no counts
    EXPECT_EQ(rsvp_extract_ero_next_subobject(b.data(), nullptr), nullptr);
    EXPECT_EQ(rsvp_count_ero_subobject_ipv4(b.data()), 0u);
    Bytes empty = hex("00 04 14 01");
    EXPECT_EQ(rsvp_extract_ero_next_subobject(empty.data(), nullptr), nullptr);
}

TEST(ExplicitRoute, CompareSubobjects) {
    Bytes a = hex("01 08 0a 00 00 01 20 00"), a2 = a;
    Bytes shorter_prefix = hex("01 08 0a 00 00 01 18 00");
    Bytes loose = hex("81 08 0a 00 00 01 20 00");
    Bytes unnum = hex("04 0c 00 00 01 01 01 01 00 00 00 07");
    EXPECT_EQ(rsvp_compare_explicit_route_subobjects(a.data(), a.data()), 0);
    EXPECT_EQ(rsvp_compare_explicit_route_subobjects(nullptr, nullptr), 0);
    EXPECT_EQ(rsvp_compare_explicit_route_subobjects(a.data(), nullptr), 1);
    EXPECT_EQ(rsvp_compare_explicit_route_subobjects(a.data(), a2.data()), 0);
    EXPECT_GT(rsvp_compare_explicit_route_subobjects(a.data(), shorter_prefix.data()), 0);
    EXPECT_LT(rsvp_compare_explicit_route_subobjects(a.data(), loose.data()), 0);
    EXPECT_EQ(rsvp_compare_explicit_route_subobjects(unnum.data(), a.data()), 1);
}

TEST(ExplicitRoute, Accessors) {
    Bytes b = hex(kRoute);
    EXPECT_EQ(RSVP_ERO_GENERIC_TYPE(b.data() + 12), 0x84);  // raw, L bit included
    EXPECT_EQ(RSVP_ERO_GENERIC_LENGTH(b.data() + 12), 12);
    Bytes bad = hex("03 08 0a 00 00 01 20 00");
    const Bytes bad_before = bad;
    EXPECT_EQ(RSVP_ERO_GENERIC_TYPE(bad.data()), 0);
    EXPECT_EQ(RSVP_ERO_GENERIC_LENGTH(bad.data()), 0);
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(bad.data(), ip("9.9.9.9"));
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(bad.data(), 8);
    EXPECT_EQ(bad, bad_before);
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(b.data() + 4, ip("9.9.9.9"));
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(b.data() + 4, 8);
    EXPECT_EQ(to_hex(b.data() + 4, 8), "01 08 09 09 09 09 08 00");
    // The setters check validity, not the type: on the unnumbered hop they write byte 6 too.
    RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(b.data() + 12, 0x55);
    EXPECT_EQ(b[18], 0x55);

    // The first-subobject accessor asks the dispatcher, which wants a multiple of 4.
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(b.data()), b.data() + 4);
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(nullptr), nullptr);
    RSVP_SET_OBJECT_LENGTH(b.data(), 27);
    EXPECT_EQ(rsvp_valid_explicit_route(b.data()), 1);
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(b.data()), nullptr);
}
