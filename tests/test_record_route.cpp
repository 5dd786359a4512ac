#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// 44 bytes: IPv4 10.0.0.1 flags 01 | label 14 (flags 01, C-Type 2) | unnumbered 10.0.0.5 if 7
// flags 03 | SRLG 100, 200. Subobjects end at 12, 20, 32 and 44.
constexpr const char kSample[] =
    "00 2c 15 01  01 08 0a 00 00 01 20 01  03 08 01 02 00 00 00 0e"
    "04 0c 03 00 0a 00 00 05 00 00 00 07  22 0c 00 00 00 00 00 64 00 00 00 c8";

const uint32_t kLabels[63] = {0x12345, 7};

}  // namespace

TEST(RecordRoute, FrontInsertsExactBytes) {
    Bytes b = hex("00 04 15 01");
    b.resize(600, 0xee);
    uint8_t *o = b.data();
    ASSERT_EQ(rsvp_insert_record_route_ipv4(o, ip("10.11.0.1"), 0x01), o);
    // The reserved byte 3 of an unnumbered hop keeps what the move left there (0b).
    ASSERT_EQ(rsvp_insert_record_route_unnum(o, ip("10.0.0.5"), 0x01020304, 3), o);
    EXPECT_EQ(to_hex(o, 25),
              "00 18 15 01 04 0c 03 0b 0a 00 00 05 01 02 03 04 01 08 0a 0b 00 01 20 01 ee");
    // SRLG identifiers are written only from an array (0a 00 00 05 stays); count 0 is fine.
    ASSERT_EQ(rsvp_insert_record_route_srlg(o, nullptr, 1), o);
    EXPECT_EQ(to_hex(o, 16), "00 20 15 01 22 08 00 00 0a 00 00 05 04 0c 03 0b");
    ASSERT_EQ(rsvp_insert_record_route_srlg(o, kLabels, 0), o);
    EXPECT_EQ(to_hex(o, 8), "00 24 15 01 22 04 00 00");
    // Failed inserts (no labels, 63 SRLGs, no object) change nothing.
    const Bytes before = b;
    EXPECT_FALSE(rsvp_insert_record_route_label(o, kLabels, 0, 2, 1) ||
                 rsvp_insert_record_route_label(o, nullptr, 1, 2, 1) ||
                 rsvp_insert_record_route_srlg(o, kLabels, 63) ||
                 rsvp_insert_record_route_label(nullptr, kLabels, 1, 2, 1) ||
                 rsvp_insert_record_route_srlg(nullptr, kLabels, 1) ||
                 rsvp_insert_record_route_ipv4(nullptr, 0, 0) ||
                 rsvp_insert_record_route_unnum(nullptr, 0, 0, 0));
    EXPECT_EQ(b, before);
    // A header Length below 4: nothing moves, the new Length is the old one plus 8.
    Bytes short_hdr = hex("00 02 15 01 aa bb cc dd");
    short_hdr.resize(13, 0xee);
    rsvp_insert_record_route_ipv4(short_hdr.data(), ip("10.0.0.1"), 0);
    EXPECT_EQ(to_hex(short_hdr), "00 0a 15 01 01 08 0a 00 00 01 20 00 ee");
}

// Kept as they stand. 63 labels move 256 bytes while the length byte wraps to 0; the SRLG
// insert moves by the low 8 bits of the Length: at 260 (0x104) nothing moves.
TEST(RecordRoute, LengthQuirksOfTheFrontInsert) {
    Bytes b = hex("00 0c 15 01 01 08 0a 00 00 01 20 00");
    b.resize(600, 0xee);
    rsvp_insert_record_route_label(b.data(), kLabels, 63, 2, RSVP_RRO_LABEL_FLAG_GLOBAL);
    EXPECT_EQ(to_hex(b.data(), 12), "00 0c 15 01 03 00 01 02 00 01 23 45");
    EXPECT_EQ(to_hex(b.data() + 260, 8), "01 08 0a 00 00 01 20 00");
    ASSERT_EQ(rsvp_insert_record_route_srlg(b.data(), kLabels, 62), b.data());  // 8 + 252
    EXPECT_EQ(to_hex(b.data(), 16), "01 08 15 01 22 fc 00 00 00 01 23 45 00 00 00 07");

    rsvp_build_record_route(b.data());
    for (int i = 1; i <= 32; ++i)
        rsvp_insert_record_route_ipv4(b.data(), ip(("10.0.0." + std::to_string(i)).c_str()), 0);
    rsvp_insert_record_route_srlg(b.data(), kLabels + 1, 1);
    EXPECT_EQ(to_hex(b.data(), 20), "01 0c 15 01 22 08 00 00 00 00 00 07 01 08 0a 00 00 1f 20 00");
}

// Subobjects, then objects. No L bit: 0x81 is an unknown type, valid at any whole-word length.
TEST(RecordRoute, ValidationAccessorsAndExtractors) {
    const struct {
        const char *bytes;
        int valid;
    } rows[] = {{"01 08", 1}, {"01 0c", 0}, {"02 14", 1}, {"02 08", 0}, {"04 0c", 1}, {"04 08", 0},
                {"03 04", 1}, {"03 fc", 1}, {"22 04", 1}, {"22 10", 1}, {"07 08", 1}, {"00 04", 1},
                {"81 0c", 1}, {"ff 04", 1}, {"07 06", 0}, {"03 06", 0}, {"22 02", 0}, {"07 00", 0}};
    for (const auto &r : rows) {
        SCOPED_TRACE(r.bytes);
        HeapBytes s = heap_copy(hex(r.bytes));
        EXPECT_EQ(valid_record_route_subobject(s.data()), r.valid);
        EXPECT_EQ(RSVP_RRO_GENERIC_TYPE(s.data()), r.valid ? s.data()[0] : 0);
        EXPECT_EQ(RSVP_RRO_GENERIC_LENGTH(s.data()), r.valid ? s.data()[1] : 0);
    }
    EXPECT_EQ(valid_record_route_subobject(nullptr) + RSVP_RRO_GENERIC_TYPE(nullptr), 0);

    // Cut at every length: only the bare header and the subobject ends validate. Unlike
    // EXPLICIT_ROUTE, a last subobject that reaches past the end is invalid.
    const Bytes full = hex(kSample);
    for (size_t n = 0; n <= full.size(); ++n) {
        SCOPED_TRACE(n);
        Bytes cut(full.begin(), full.begin() + std::max<size_t>(n, 4));
        cut[1] = static_cast<uint8_t>(n);
        HeapBytes h = heap_copy(cut);
        const bool ends = n == 4 || n == 12 || n == 20 || n == 32 || n == 44;
        EXPECT_EQ(rsvp_valid_record_route(h.data()), ends ? 1 : 0);
    }
    for (Bytes other : {object(22, 1, {}), object(21, 2, {})})
        EXPECT_EQ(rsvp_valid_record_route(other.data()), 0) << to_hex(other);
    EXPECT_EQ(rsvp_valid_record_route(nullptr), 0);

    // Every kind read back, and the refusals (walk and counts: test_walk_equivalence).
    HeapBytes o = heap_copy(hex(kSample));
    uint8_t *ipv4 = o.data() + 4, *label = o.data() + 12, *unnum = o.data() + 20;
    uint32_t addr = 0, if_id = 0, values[RSVP_RRO_MAX_VALUES] = {}, *labels = values;
    uint8_t plen = 0, flags = 0, count = 0, c_type = 0;
    ASSERT_EQ(rsvp_extract_rro_subobject_ipv4(ipv4, &addr, &plen, &flags), 1);
    EXPECT_EQ(std::tuple(addr, plen, flags), std::tuple(ip("10.0.0.1"), 32, 1));
    ASSERT_EQ(rsvp_extract_rro_subobject_label(label, &labels, &count, &flags, &c_type), 1);
    EXPECT_EQ(std::tuple(count, values[0], flags, c_type), std::tuple(1, 14u, 1, 2));
    ASSERT_EQ(rsvp_extract_rro_subobject_unnum(unnum, &addr, &if_id, &flags), 1);
    EXPECT_EQ(std::tuple(addr, if_id, flags), std::tuple(ip("10.0.0.5"), 7u, 3));
    ASSERT_EQ(rsvp_extract_rro_subobject_srlg(o.data() + 32, values, &count), 1);
    EXPECT_EQ(std::tuple(count, values[0], values[1]), std::tuple(2, 100u, 200u));
    uint32_t a = 1, b = 2, *none = nullptr;
    uint8_t c = 3, d = 4;
    EXPECT_EQ(rsvp_extract_rro_subobject_ipv4(unnum, &a, &c, &d), 0);
    EXPECT_EQ(rsvp_extract_rro_subobject_unnum(ipv4, &a, &b, &c), 0);
    EXPECT_EQ(rsvp_extract_rro_subobject_srlg(label, &a, &c), 0);
    EXPECT_EQ(rsvp_extract_rro_subobject_label(label, &none, &c, &d, &d), 0);
    EXPECT_EQ(rsvp_extract_rro_subobject_label_count(label), 1);
    EXPECT_EQ(rsvp_extract_rro_subobject_srlg_count(o.data() + 32), 2);
    EXPECT_EQ(rsvp_extract_rro_subobject_label_count(unnum), 0);
    EXPECT_EQ(rsvp_extract_rro_subobject_srlg_count(label), 0);
    // An IPv4 hop of length 12; a valid subobject of type 0x81 (no L bit).
    for (const char *bad : {"01 0c 0a 00 00 01 20 01 00 00 00 00", "81 08 0a 00 00 01 20 01"})
        EXPECT_EQ(rsvp_extract_rro_subobject_ipv4(hex(bad).data(), &a, &c, &d), 0) << bad;
    EXPECT_EQ(std::tie(a, b, c, d), std::make_tuple(1u, 2u, uint8_t{3}, uint8_t{4}));
}

// The flag searches do not validate: a zero length byte ends the walk once that hop was
// checked, and a last hop is read whole, its flags byte even from behind the object ('|').
TEST(RecordRoute, FlagSearch) {
    const struct {
        const char *obj;
        uint8_t mask;
        int ipv4, unnum;
    } rows[] = {
        {kSample, 0x01, 1, 1},
        {kSample, 0x05, 0, 0},                                // every bit of the mask must be set
        {"00 0c 63 01 01 08 0a 00 00 01 20 01", 0x01, 1, 0},  // class 99: not validated
        {"00 10 15 01 04 00 01 00 01 08 0a 00 00 01 20 01", 0x01, 0, 1},  // stuck after a match
        {"00 08 15 01 01 08 0a 00 | 00 00 00 01", 0x01, 1, 0},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.obj);
        HeapBytes h = heap_copy(hex(r.obj), RSVP_RRO_IPV4_LEN);  // zeroed room behind
        EXPECT_EQ(rsvp_rro_check_ipv4_flags(h.data(), r.mask), r.ipv4);
        EXPECT_EQ(rsvp_rro_check_unnum_flags(h.data(), r.mask), r.unnum);
    }
    EXPECT_EQ(rsvp_rro_check_ipv4_flags(nullptr, 0) + rsvp_rro_check_unnum_flags(nullptr, 0), 0);
}
