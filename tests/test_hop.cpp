#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

const uint32_t kA = ip("10.0.0.1");

// An IF_ID hop followed by a TLV's worth of zeroes: the TLV walk deliberately reads the
// header of a candidate that starts at the object end.
Bytes if_id_hop(const Bytes &tlvs) {
    return concat({object(3, 3, concat({hex("0a 00 00 09  00 00 00 05"), tlvs})), Bytes(12, 0)});
}

}  // namespace

TEST(HopIpv4, BuildExtractAndValidate) {
    Bytes b(12, 0xEE);
    EXPECT_EQ(rsvp_build_hop_ipv4(b.data(), kA, 0x01020304), b.data());
    EXPECT_EQ(to_hex(b), "00 0c 03 01 0a 00 00 01 01 02 03 04");  // hdr, neighbor, LIH
    uint32_t n = 0, lih = 0;
    ASSERT_EQ(rsvp_extract_hop_ipv4(b.data(), &n, &lih), 1);
    EXPECT_EQ(n == kA && lih == 0x01020304u, true);
    for (int len = 0; len <= 16; len += 4) {
        SCOPED_TRACE(len);
        Bytes o = object(3, 1, hex("0a 00 00 01 00 00 00 05 00 00 00 00"), len);
        EXPECT_EQ(rsvp_valid_object(o.data()), len == 12 ? 1u : 0u);
        EXPECT_EQ(rsvp_extract_hop_ipv4(o.data(), &n, &lih), len == 12);
    }
    b[4] = 0, b[7] = 0;  // neighbor 0.0.0.0: invalid, outputs left alone
    n = lih = 7;
    EXPECT_EQ(rsvp_extract_hop_ipv4(b.data(), &n, &lih) + rsvp_valid_hop(b.data()), 0);
    EXPECT_EQ(rsvp_extract_hop_ipv4(nullptr, &n, &lih), 0);
    EXPECT_EQ(n + lih, 14u);
    Bytes v3 = object(3, 3, Bytes{}), v2 = object(3, 2, hex("0a 00 00 01 00 00 00 05"));
    EXPECT_EQ(rsvp_valid_hop(v3.data()), 1);  // IF_ID below 12 bytes: accepted as it stands
    EXPECT_EQ(rsvp_valid_hop(v2.data()) + rsvp_valid_hop(nullptr), 0);
}

TEST(Hop, TwinAccessorsActOnlyOnValidObjects) {
    Bytes b(12);
    rsvp_build_hop_if_id(b.data(), kA, 9);  // both C-Types keep neighbor and LIH in place
    RSVP_HOP_SET_NEIGHBOR(b.data(), ip("1.2.3.4"));
    RSVP_HOP_IPV4_SET_LIF_HANDLE(b.data(), 0xAABBCCDD);
    EXPECT_EQ(to_hex(b), "00 0c 03 03 01 02 03 04 aa bb cc dd");
    EXPECT_EQ(RSVP_HOP_IPV4_NEIGHBOR(b.data()), ip("1.2.3.4"));
    EXPECT_EQ(RSVP_HOP_LIF_HANDLE(b.data()), RSVP_HOP_IF_ID_LIF_HANDLE(b.data()));
    b[3] = 2;  // now invalid: getters 0, setters silent, except RSVP_HOP_IF_ID_SET_NEIGHBOR
    EXPECT_EQ(RSVP_HOP_NEIGHBOR(b.data()) + RSVP_HOP_IF_ID_NEIGHBOR(b.data()) +
                  RSVP_HOP_IPV4_LIF_HANDLE(b.data()),
              0u);
    RSVP_HOP_IPV4_SET_NEIGHBOR(b.data(), kA);
    RSVP_HOP_SET_LIF_HANDLE(b.data(), 1);
    RSVP_HOP_IF_ID_SET_LIF_HANDLE(b.data(), 1);
    EXPECT_EQ(to_hex(b), "00 0c 03 02 01 02 03 04 aa bb cc dd");
    RSVP_HOP_IF_ID_SET_NEIGHBOR(b.data(), kA);
    EXPECT_EQ(to_hex(b), "00 0c 03 02 0a 00 00 01 aa bb cc dd");
    // A valid 4-byte IF_ID hop holds no neighbor: nothing is read behind it.
    HeapBytes four = heap_copy(object(3, 3, Bytes{}));
    EXPECT_EQ(RSVP_HOP_NEIGHBOR(four.data()) + RSVP_HOP_IF_ID_LIF_HANDLE(four.data()), 0u);
}

TEST(HopIfId, AddsTlvsOncePerType) {
    Bytes b(64);
    EXPECT_EQ(rsvp_build_hop_if_id(b.data(), kA, 5), b.data());
    ASSERT_EQ(rsvp_add_index_fwd_rev_intf(b.data(), kA, 7), 1);
    EXPECT_EQ(to_hex(b.data(), 24),
              "00 18 03 03 0a 00 00 01 00 00 00 05 "   // header, neighbor, LIH
              "00 03 00 0c 0a 00 00 01 00 00 00 07");  // type 3, length 12, address, if id
    EXPECT_EQ(rsvp_add_index_fwd_rev_intf(b.data(), kA, 8), 0);
    EXPECT_EQ(rsvp_add_index_fwd_intf(b.data(), kA, 1), 1);
    EXPECT_EQ(rsvp_add_index_fwd_intf(b.data(), kA, 2), 0);
    EXPECT_EQ(rsvp_add_index_rev_intf(b.data(), kA, 3), 1);
    EXPECT_EQ(rsvp_add_ipv4_intf(b.data(), kA), 1);
    EXPECT_EQ(rsvp_add_ipv4_fwd_intf(b.data(), kA), 0);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(b.data()), 12 + 3 * 12 + 8);
    EXPECT_EQ(rsvp_valid_object(b.data()), 1u);
    EXPECT_EQ(rsvp_add_ipv4_fwd_intf(nullptr, kA) + rsvp_add_index_rev_intf(nullptr, kA, 1), 0);
    // Only rsvp_add_ipv4_intf checks class and C-Type.
    rsvp_build_hop_ipv4(b.data(), kA, 5);
    EXPECT_EQ(rsvp_add_ipv4_intf(b.data(), kA) + rsvp_add_ipv4_intf(nullptr, kA), 0);
    EXPECT_EQ(rsvp_add_ipv4_fwd_intf(b.data(), ip("1.1.1.1")), 1);
    EXPECT_EQ(to_hex(b.data(), 20), "00 14 03 01 0a 00 00 01 00 00 00 05 00 01 00 08 01 01 01 01");
}

TEST(HopIfIdDeathTest, AddAssertsThatTlvsEndAtTheObjectLength) {
    // A 12-byte TLV in a 20-byte object overshoots; a 4-byte object starts behind its TLVs;
    // an invalid TLV cannot be stepped over.
    for (const Bytes &o : {if_id_hop(hex("00 03 00 0c 0a 00 00 01")), object(3, 3, Bytes{}),
                           if_id_hop(hex("00 02 00 08 0a 00 00 01"))}) {
        SCOPED_TRACE(to_hex(o));
        Bytes b = concat({o, Bytes(16, 0)});
        EXPECT_DEATH(rsvp_add_ipv4_intf(b.data(), kA), "assertion failed");
        EXPECT_DEATH(rsvp_add_ipv4_fwd_intf(b.data(), kA), "assertion failed");
        EXPECT_DEATH(rsvp_add_index_fwd_intf(b.data(), kA, 1), "assertion failed");
        EXPECT_DEATH(rsvp_add_index_rev_intf(b.data(), kA, 1), "assertion failed");
        // In the first object the duplicate is found during the walk, before the overshoot.
        if (b[13] == RSVP_HOP_IF_ID_TLV_INDEX) {
            EXPECT_EQ(rsvp_add_index_fwd_rev_intf(b.data(), kA, 1), 0);
        } else {
            EXPECT_DEATH(rsvp_add_index_fwd_rev_intf(b.data(), kA, 1), "assertion failed");
        }
    }
}

TEST(HopIfId, TlvValidation) {
    struct Row {
        const char *tlv;
        int valid;
    } rows[] = {{"00 01 00 08 0a 00 00 01", 1},
                {"00 01 00 0c 0a 00 00 01 00 00 00 01", 0},
                {"00 02 00 08 0a 00 00 01", 0},  // IPv6 is not accepted here
                {"00 03 00 0c 0a 00 00 01 00 00 00 01", 1},
                {"00 04 00 0c 0a 00 00 01 00 00 00 01", 1},
                {"00 05 00 0c 0a 00 00 01 00 00 00 01", 1},
                {"00 04 00 08 0a 00 00 01", 0},
                {"00 01 00 02 00 00 00 00", 0},
                {"00 06 00 0c 0a 00 00 01 00 00 00 01", 0}};
    for (const Row &r : rows) {
        SCOPED_TRACE(r.tlv);
        HeapBytes t = heap_copy(hex(r.tlv));
        EXPECT_EQ(rsvp_valid_hop_if_id_subobject(t.data()), r.valid);
        EXPECT_EQ(RSVP_HOP_SUBOBJ_GENERIC_TYPE(t.data()), r.valid ? t.data()[1] : 0);
        EXPECT_EQ(RSVP_HOP_SUBOBJ_GENERIC_LENGTH(t.data()), r.valid ? t.data()[3] : 0);
        Bytes o = if_id_hop(hex(r.tlv));
        EXPECT_EQ(rsvp_valid_hop_if_id(o.data()), r.valid);
    }
    EXPECT_EQ(rsvp_valid_hop_if_id_subobject(nullptr), 0);
}

// The walker examines a candidate that starts exactly at the object end, and so returns a
// TLV lying behind the object; a last TLV that runs past the end goes undetected.
TEST(HopIfId, WalkerEndBoundary) {
    Bytes ipv4 = hex("00 01 00 08 0a 00 00 01");
    for (size_t tlvs : {0u, 1u}) {
        SCOPED_TRACE(tlvs);
        Bytes o = object(3, 3, concat({hex("0a 00 00 09 00 00 00 05"), tlvs ? ipv4 : Bytes{}}));
        Bytes buf = concat({o, ipv4});
        uint8_t *end = buf.data() + o.size();
        uint8_t *prev = tlvs ? rsvp_extract_hop_if_id_next_subobj(buf.data(), nullptr) : nullptr;
        EXPECT_EQ(rsvp_extract_hop_if_id_next_subobj(buf.data(), prev), end);
        EXPECT_EQ(rsvp_extract_hop_if_id_next_subobj(buf.data(), end), nullptr);  // 8 past
    }
    HeapBytes over = heap_copy(if_id_hop(hex("00 03 00 0c")));  // Length 16, TLV claims 12
    EXPECT_EQ(rsvp_valid_hop_if_id(over.data()), 1);
    EXPECT_EQ(rsvp_extract_hop_if_id_next_subobj(over.data(), nullptr), over.data() + 12);
    Bytes invalid = if_id_hop(hex("00 02 00 08 0a 00 00 01"));
    EXPECT_EQ(rsvp_extract_hop_if_id_next_subobj(invalid.data(), nullptr), nullptr);
    EXPECT_EQ(rsvp_extract_hop_if_id_next_subobj(nullptr, nullptr), nullptr);
}

TEST(HopIfId, LookupsTakeTheFirstTlvOfTheirKind) {
    Bytes o =
        if_id_hop(hex("00 04 00 0c 01 01 01 01 00 00 00 04  "  // component fwd
                      "00 03 00 0c 03 03 03 03 00 00 00 03  "  // index
                      "00 01 00 08 0a 00 00 01"));             // IPv4
    rsvp_hop_if_id_tlv_info info{9, 9, 9};
    ASSERT_EQ(rsvp_get_gmpls_hop_if_id_tlv(o.data(), &info), 1);
    EXPECT_EQ(info.kind, 2u);  // the type-3 TLV comes before the type-1 TLV
    EXPECT_EQ(info.address == ip("3.3.3.3") && info.if_id == 3, true);
    uint32_t a = 0, id = 0;
    ASSERT_EQ(rsvp_get_gmpls_hop_if_index_tlv(o.data(), &a, &id), 1);
    EXPECT_EQ(a == ip("3.3.3.3") && id == 3, true);
    ASSERT_EQ(rsvp_get_hop_if_id_ipv4_tlv(o.data(), &a), 1);
    EXPECT_EQ(a, kA);
    EXPECT_EQ(rsvp_get_gmpls_hop_if_index_tlv(o.data(), nullptr, &id), 0);
    uint8_t *tlv = RSVP_HOP_IF_ID_SUBOBJ_PTR(o.data());
    ASSERT_EQ(tlv, o.data() + 12);
    EXPECT_EQ(rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &a, &id) * id, 4u);
    EXPECT_EQ(rsvp_extract_ipv4_fwd_rev_intf_subobj(tlv, &a), 0);
    EXPECT_EQ(rsvp_extract_ipv4_fwd_rev_intf_subobj(o.data() + 36, &a), 1);

    Bytes none = if_id_hop(hex("00 05 00 0c 01 01 01 01 00 00 00 04"));
    info = {9, 9, 9};
    EXPECT_EQ(rsvp_get_gmpls_hop_if_id_tlv(none.data(), &info), 0);
    EXPECT_EQ(info.kind + info.address, 9u);  // kind written 0 before the search
    none[3] = 1;                              // invalid: the record stays as it was
    info = {9, 9, 9};
    EXPECT_EQ(rsvp_get_gmpls_hop_if_id_tlv(none.data(), &info), 0);
    EXPECT_EQ(info.kind, 9u);
    EXPECT_EQ(RSVP_HOP_IF_ID_SUBOBJ_PTR(none.data()), nullptr);
}
