#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// Flag n is wire bit 31 - n, any TLV type is read. The add reads existing TLV lengths
// unconverted: an 8-byte TLV reads as 2048 here, so the flags TLV can only go in first.
TEST(LspAttributes, FlagsTlvValidatorAndWalk) {
    const std::pair<uint32_t, const char *> flag_rows[] = {
        {0x00000001, "80 00 00 00"}, {0x0000F00F, "f0 0f 00 00"}, {0x12345678, "1e 6a 2c 48"}};
    for (const auto &[flags, wire] : flag_rows) {
        Bytes o(16, 0xEE);
        rsvp_build_lsp_attributes(o.data(), 0);
        EXPECT_EQ(rsvp_add_lsp_attr_attribute_flags_tlv(o.data(), flags), 1);
        EXPECT_EQ(to_hex(o.data(), 13), std::string("00 0c c5 01 00 01 00 08 ") + wire + " ee");
        const Bytes built = o;
        EXPECT_EQ(rsvp_add_lsp_attr_attribute_flags_tlv(o.data(), 2), 0);
        EXPECT_EQ(o, built);
        o[5] = 9;  // TLV type 9: read all the same
        uint32_t out = 0;
        EXPECT_EQ(rsvp_extract_lsp_attr_attribute_flags_tlv(o.data() + 4, &out) +
                      rsvp_extract_lsp_attr_attribute_flags_tlv(nullptr, &out) +
                      rsvp_extract_lsp_attr_attribute_flags_tlv(o.data() + 4, nullptr),
                  1);
        EXPECT_EQ(out, flags);
    }
    Bytes required(4, 0);
    rsvp_build_lsp_attributes(required.data(), 1);
    EXPECT_EQ(to_hex(required), "00 04 43 01");
    // 1 to 4 bytes hold no TLV, even where the unconverted bytes 04 00 read 4.
    for (int len = 5; len <= 8; ++len) {
        Bytes cut = object(197, 1, hex("00 01 04 00"), len);
        EXPECT_EQ(rsvp_add_lsp_attr_attribute_flags_tlv(cut.data(), 2), 0) << len;
    }
    EXPECT_EQ(rsvp_add_lsp_attr_attribute_flags_tlv(nullptr, 2), 0);
    // TLVs of at least 4 bytes (not necessarily words) must end exactly at the Length.
    const std::pair<const char *, int> rows[] = {
        {"", 1},
        {"0001 0008 00000000", 1},
        {"0005 0004  0006 0004", 1},
        {"0005 0004  0006 0002  0006 ccdd", 0},  // a 2-byte TLV, overlapped by the next
        {"0005 0005 aa  0006 0007 bbccdd", 1},   // TLVs need not be words
        {"0001 0004 00000000", 0},
        {"0001 0000 00000000", 0}};
    for (const auto &[tlvs, valid] : rows)
        for (uint8_t cls : {67, 197}) {
            HeapBytes o = heap_copy(object(cls, 1, hex(tlvs)));
            EXPECT_EQ(rsvp_valid_object(o.data()) * 10 + rsvp_valid_lsp_attributes(o.data()),
                      valid * 11u)
                << tlvs;
        }
    for (int len = 0; len <= 12; ++len) {  // every cut of a 12-byte object with one TLV
        Bytes cut = object(197, 1, hex("0001 0008 00000000"), len);
        cut.resize(std::max(len, 4));
        HeapBytes o = heap_copy(cut);
        EXPECT_EQ(rsvp_valid_lsp_attributes(o.data()), len == 4 || len == 12) << len;
    }
    Bytes two = object(197, 1, hex("0005 0005 aa  0006 0007 bbccdd")), empty = hex("00 04 c5 01");
    uint8_t *t1 = rsvp_get_lsp_attr_next_tlv(two.data(), nullptr);
    uint8_t *t2 = rsvp_get_lsp_attr_next_tlv(two.data(), t1);
    EXPECT_EQ((t1 - two.data()) * 10 + (t2 - two.data()), 49);
    EXPECT_EQ(rsvp_get_lsp_attr_next_tlv(two.data(), t2), nullptr);
    EXPECT_EQ(RSVP_LSP_ATTR_TLV_TYPE(t2) * 100 + RSVP_LSP_ATTR_TLV_LEN(t2), 607);
    EXPECT_EQ(RSVP_LSP_ATTR_TLV_TYPE(nullptr) + RSVP_LSP_ATTR_TLV_LEN(nullptr), 0);
    EXPECT_EQ(rsvp_get_lsp_attr_next_tlv(empty.data(), nullptr), empty.data() + 4);
    two[3] = 2;
    EXPECT_EQ(rsvp_get_lsp_attr_next_tlv(two.data(), nullptr), nullptr);
    EXPECT_EQ(rsvp_valid_lsp_attributes(two.data()) + rsvp_valid_lsp_attributes(nullptr), 0);
}

TEST(Diffserv, ValidatorFollowsMapCountAndEntries) {
    const std::string nine(72, '0');  // nine zero words
    const struct {
        uint8_t c_type;
        std::string body;
        int valid, must_have;
    } rows[] = {{1, "20000000 0012a000 00000000", 1, 16},
                {1, "20000000 0012a000", 0, 16},
                {1, "20000000" + nine.substr(0, 24), 0, 16},
                {1, "80000000" + nine.substr(0, 64), 1, 40},
                {1, "90000000" + nine, 0, 44},
                {2, "12340000", 1, 8},
                {2, "12340000 00000000", 0, 8},
                {3, "12340000", 0, 0}};
    for (const auto &r : rows) {
        SCOPED_TRACE(r.body);
        HeapBytes o = heap_copy(object(65, r.c_type, hex(r.body.c_str())));
        EXPECT_EQ(rsvp_valid_diffserv(o.data()), r.valid);
        EXPECT_EQ(rsvp_diffserv_length(o.data(), r.c_type), r.must_have);
    }
    HeapBytes header_only = heap_copy(hex("00 04 41 01"));
    EXPECT_EQ(rsvp_valid_diffserv(header_only.data()) + rsvp_valid_diffserv(nullptr) +
                  rsvp_diffserv_length(nullptr, 2),
              0);
    // Entries as this library lays them out: PHBID in the high half, EXP in bits 15..13.
    Bytes e = object(65, 1, hex("20000000 0012a000 ffff1fff abcd6000"), 16);
    Bytes l = object(65, 2, hex("abcd ffff"));
    // The index is the caller's to bound: entry 2 lies behind the Length and is read all the
    // same. Only a null object answers 9 (and PHBID 0).
    const int reads[][3] = {{0, 0x12, 5}, {1, 0xffff, 0}, {2, 0xabcd, 3}};
    for (const auto &[i, phbid, exp] : reads) {
        EXPECT_EQ(rsvp_diffserv_get_phbid(e.data(), uint8_t(i)), phbid) << i;
        EXPECT_EQ(rsvp_diffserv_get_exp(e.data(), uint8_t(i)), exp) << i;
    }
    EXPECT_EQ(rsvp_diffserv_get_phbid(nullptr, 0) * 10 + rsvp_diffserv_get_exp(nullptr, 0), 9);
    uint8_t n = 0;
    uint32_t entries[3] = {};
    ASSERT_EQ(rsvp_extract_diffserv_e_lsp(e.data(), &n, entries), 1);
    EXPECT_EQ(to_hex(reinterpret_cast<uint8_t *>(entries), 12) + " n=" + std::to_string(n),
              "00 12 a0 00 ff ff 1f ff 00 00 00 00 n=2");  // as on the wire
    EXPECT_EQ(rsvp_extract_diffserv_e_lsp(e.data(), nullptr, entries) +
                  rsvp_extract_diffserv_e_lsp(e.data(), &n, nullptr),
              0);
    uint16_t psc = 0;
    EXPECT_EQ(rsvp_extract_diffserv_l_lsp(l.data(), &psc) * 0x10000 + psc, 0x1abcd);
    EXPECT_EQ(
        rsvp_extract_diffserv_l_lsp(nullptr, &psc) + rsvp_extract_diffserv_l_lsp(l.data(), nullptr),
        0);
}

// The CLASSTYPE validator never looks at the Length.
TEST(ClassType, BuildMasksAndValidatorIgnoresLength) {
    Bytes b(12, 0xEE), wrong = object(66, 2, hex("00000001"));
    rsvp_build_class_type(b.data(), 9);
    EXPECT_EQ(to_hex(b), "00 08 42 01 00 00 00 01 ee ee ee ee");
    for (int len : {4, 8, 12, 64}) {
        Bytes o = object(66, 1, hex("ffffffff"), len);
        EXPECT_EQ(rsvp_valid_class_type(o.data()) * 10 + rsvp_get_class_type(o.data()), 17) << len;
    }
    EXPECT_EQ(rsvp_valid_class_type(wrong.data()) + rsvp_valid_class_type(nullptr), 0);
}
