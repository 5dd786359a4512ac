#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

const uint32_t kA = ip("10.0.0.1");

// An IF_ID hop and 12 zero bytes, as the TLV walk deliberately reads a candidate at the end.
Bytes if_id_hop(const std::string &tlvs) {
    return concat({object(3, 3, hex(("0a 00 00 09 00 00 00 05 " + tlvs).c_str())), Bytes(12, 0)});
}

}  // namespace

TEST(Hop, BuildExtractValidateAndTwinAccessors) {
    Bytes b(12, 0xEE);
    EXPECT_EQ(rsvp_build_hop_ipv4(b.data(), kA, 0x01020304), b.data());
    EXPECT_EQ(to_hex(b), "00 0c 03 01 0a 00 00 01 01 02 03 04");  // hdr, neighbor, LIH
    uint32_t n = 0, lih = 0;
    ASSERT_EQ(rsvp_extract_hop_ipv4(b.data(), &n, &lih), 1);
    EXPECT_EQ(std::tuple(n, lih), std::tuple(kA, 0x01020304u));
    EXPECT_EQ(rsvp_extract_hop_ipv4(b.data(), nullptr, &n) +
                  rsvp_extract_hop_ipv4(b.data(), &n, 0) +
                  rsvp_extract_hop_ipv4(nullptr, &n, &lih) + rsvp_valid_hop(nullptr),
              0);
    // C-Type, Length, neighbor, valid (rsvp_valid_object goes through rsvp_valid_hop); an IF_ID
    // hop below 12 bytes is accepted as it stands.
    const uint32_t rows[][4] = {{1, 4, kA, 0}, {1, 12, kA, 1}, {1, 16, kA, 0},
                                {1, 12, 0, 0}, {2, 12, kA, 0}, {3, 4, kA, 1}};
    for (const auto &[ctype, len, neighbor, valid] : rows) {
        SCOPED_TRACE(testing::Message() << ctype << " length " << len << " neighbor " << neighbor);
        Bytes o = object(3, ctype, hex("00 00 00 00 00 00 00 05 00 00 00 00"), len);
        std::memcpy(o.data() + 4, &neighbor, 4);
        EXPECT_EQ(rsvp_valid_object(o.data()), valid);
        n = lih = 7;
        const bool ok = valid && ctype == 1;
        EXPECT_EQ(rsvp_extract_hop_ipv4(o.data(), &n, &lih), ok);
        EXPECT_EQ(std::tuple(n, lih), ok ? std::tuple(kA, 5u) : std::tuple(7u, 7u));
    }

    // The twin accessors: both C-Types keep neighbor and LIH in place.
    rsvp_build_hop_if_id(b.data(), kA, 9);
    RSVP_HOP_SET_NEIGHBOR(b.data(), ip("1.2.3.4"));
    RSVP_HOP_IPV4_SET_LIF_HANDLE(b.data(), 0xAABBCCDD);
    EXPECT_EQ(to_hex(b), "00 0c 03 03 01 02 03 04 aa bb cc dd");
    EXPECT_EQ(RSVP_HOP_IPV4_NEIGHBOR(b.data()), ip("1.2.3.4"));
    EXPECT_EQ(RSVP_HOP_LIF_HANDLE(b.data()), 0xAABBCCDDu);
    EXPECT_EQ(RSVP_HOP_IF_ID_LIF_HANDLE(b.data()), 0xAABBCCDDu);
    // An invalid hop, and valid objects too short for the fields (a 4-byte IF_ID hop, an
    // object of another class): getters answer 0, setters write nothing, nothing behind is read.
    for (const char *hdr : {"00 0c 03 02", "00 04 03 03", "00 04 0e 01"}) {
        SCOPED_TRACE(hdr);
        Bytes o = concat({hex(hdr), hex("0a 00 00 02 00 00 00 07")});
        EXPECT_EQ(RSVP_HOP_NEIGHBOR(o.data()) + RSVP_HOP_IF_ID_NEIGHBOR(o.data()) +
                      RSVP_HOP_IPV4_LIF_HANDLE(o.data()) + RSVP_HOP_IF_ID_LIF_HANDLE(o.data()),
                  0u);
        RSVP_HOP_IPV4_SET_NEIGHBOR(o.data(), kA);
        RSVP_HOP_SET_LIF_HANDLE(o.data(), 1);
        RSVP_HOP_IF_ID_SET_LIF_HANDLE(o.data(), 1);
        EXPECT_EQ(to_hex(o.data() + 4, 8), "0a 00 00 02 00 00 00 07");
    }
    // Except RSVP_HOP_IF_ID_SET_NEIGHBOR, which writes whatever the object's validity.
    b[3] = 2;
    RSVP_HOP_IF_ID_SET_NEIGHBOR(b.data(), kA);
    EXPECT_EQ(to_hex(b), "00 0c 03 02 0a 00 00 01 aa bb cc dd");
    EXPECT_EQ(RSVP_HOP_IF_ID_SUBOBJ_PTR(b.data()), nullptr);
    EXPECT_EQ(rsvp_extract_hop_if_id_next_subobj(nullptr, nullptr), nullptr);
    // An 8-byte TIME_VALUES holds a neighbor's worth of bytes but no handle.
    Bytes tv = hex("00 08 05 01 00 00 75 30 00 00 00 07");
    EXPECT_EQ(RSVP_HOP_LIF_HANDLE(tv.data()) + RSVP_HOP_IF_ID_LIF_HANDLE(tv.data()), 0u);
    RSVP_HOP_SET_LIF_HANDLE(tv.data(), 1);
    EXPECT_EQ(to_hex(tv.data() + 8, 4), "00 00 00 07");
}

// Each type is added once; each lookup takes the first TLV of its type (or types: 1 or 3).
TEST(HopIfId, AddsTlvsOncePerTypeAndLooksThemUp) {
    Bytes b(64);
    EXPECT_EQ(rsvp_build_hop_if_id(b.data(), kA, 5), b.data());
    ASSERT_EQ(rsvp_add_index_fwd_intf(b.data(), ip("1.1.1.1"), 4), 1);
    ASSERT_EQ(rsvp_add_index_fwd_rev_intf(b.data(), kA, 7), 1);
    EXPECT_EQ(to_hex(b.data(), 36),
              "00 24 03 03 0a 00 00 01 00 00 00 05 "   // header, neighbor, LIH
              "00 04 00 0c 01 01 01 01 00 00 00 04 "   // type 4, length 12, address, if id
              "00 03 00 0c 0a 00 00 01 00 00 00 07");  // type 3
    EXPECT_EQ(rsvp_add_index_fwd_rev_intf(b.data(), kA, 8), 0);
    EXPECT_EQ(rsvp_add_index_rev_intf(b.data(), kA, 3), 1);
    EXPECT_EQ(rsvp_add_ipv4_intf(b.data(), kA), 1);
    EXPECT_EQ(rsvp_add_ipv4_fwd_intf(b.data(), kA), 0);
    EXPECT_EQ(rsvp_add_ipv4_fwd_intf(nullptr, kA) + rsvp_add_index_rev_intf(nullptr, kA, 1), 0);
    rsvp_hop_if_id_tlv_info info{9, 9, 9};
    ASSERT_EQ(rsvp_get_gmpls_hop_if_id_tlv(b.data(), &info), 1);  // type 3 comes before type 1
    EXPECT_EQ(std::tuple(info.kind, info.address, info.if_id), std::tuple(2u, kA, 7u));
    uint32_t a = 0, id = 0, a4 = 0;
    ASSERT_EQ(rsvp_get_gmpls_hop_if_index_tlv(b.data(), &a, &id), 1);  // past the type-4 TLV
    ASSERT_EQ(rsvp_get_hop_if_id_ipv4_tlv(b.data(), &a4), 1);
    EXPECT_EQ(std::tuple(a, id, a4), std::tuple(kA, 7u, kA));
    EXPECT_EQ(rsvp_get_gmpls_hop_if_index_tlv(b.data(), nullptr, &id), 0);
    uint8_t *tlv = RSVP_HOP_IF_ID_SUBOBJ_PTR(b.data());
    ASSERT_EQ(tlv, b.data() + 12);
    EXPECT_EQ(rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &a, &id), 1);
    EXPECT_EQ(std::tuple(a, id), std::tuple(ip("1.1.1.1"), 4u));
    EXPECT_EQ(rsvp_extract_ipv4_fwd_rev_intf_subobj(tlv, &a), 0);
    EXPECT_EQ(rsvp_extract_ipv4_fwd_rev_intf_subobj(b.data() + 48, &a), 1);
    // Only rsvp_add_ipv4_intf checks class and C-Type.
    rsvp_build_hop_ipv4(b.data(), kA, 5);
    EXPECT_EQ(rsvp_add_ipv4_intf(b.data(), kA) + rsvp_add_ipv4_intf(nullptr, kA), 0);
    EXPECT_EQ(rsvp_add_ipv4_fwd_intf(b.data(), ip("1.1.1.1")), 1);
    EXPECT_EQ(to_hex(b.data(), 24),  // the old type-4 TLV's interface ID stays behind
              "00 14 03 01 0a 00 00 01 00 00 00 05 00 01 00 08 01 01 01 01 00 00 00 04");
}

TEST(HopIfIdDeathTest, AddAssertsThatTlvsEndAtTheObjectLength) {
    // A 12-byte TLV in a 20-byte object overshoots; a 4-byte object starts behind its TLVs;
    // an invalid TLV cannot be stepped over.
    Bytes over = if_id_hop("00 03 00 0c 0a 00 00 01"), four = object(3, 3, Bytes(16, 0), 4),
          bad = if_id_hop("00 02 00 08 0a 00 00 01");
    EXPECT_RSVP_ASSERT(rsvp_add_ipv4_intf(over.data(), kA), "assertion failed");
    EXPECT_RSVP_ASSERT(rsvp_add_index_fwd_rev_intf(four.data(), kA, 1), "assertion failed");
    EXPECT_RSVP_ASSERT(rsvp_add_index_fwd_intf(bad.data(), kA, 1), "assertion failed");
    // The duplicate is found during the walk, before the overshoot.
    EXPECT_EQ(rsvp_add_index_fwd_rev_intf(over.data(), kA, 1), 0);
}

// Each known type has one length; IPv6 (type 2) and other types are refused.
TEST(HopIfId, TlvAndObjectValidation) {
    const uint8_t rows[][3] = {
        {1, 8, 1},  {1, 12, 0}, {2, 8, 0}, {3, 12, 1},  // type, length, valid
        {4, 12, 1}, {5, 12, 1}, {4, 8, 0}, {3, 16, 0}, {6, 12, 0}};
    for (const auto &[type, length, valid] : rows) {
        SCOPED_TRACE(testing::Message() << "type " << int(type) << " length " << int(length));
        HeapBytes t = heap_copy(concat({{0, type, 0, length}, Bytes(length - 4, 0x0A)}));
        EXPECT_EQ(rsvp_valid_hop_if_id_subobject(t.data()), valid);
        EXPECT_EQ(RSVP_HOP_SUBOBJ_GENERIC_TYPE(t.data()), valid ? type : 0);
        EXPECT_EQ(RSVP_HOP_SUBOBJ_GENERIC_LENGTH(t.data()), valid ? length : 0);
        EXPECT_EQ(rsvp_valid_hop_if_id(if_id_hop(to_hex(t.data(), t.size)).data()), valid);
    }
    EXPECT_EQ(rsvp_valid_hop_if_id_subobject(nullptr), 0);
    // The last TLV is not checked against the object end, not even its header: in a 14-byte
    // object the header of a type-1 TLV straddles the end and the object still validates.
    HeapBytes b = heap_copy(hex("00 0e 03 03 0a 00 00 01 00 00 00 00 00 01 | 00 08 0a 00 00 02"));
    EXPECT_EQ(rsvp_valid_hop_if_id(b.data()), 1);
}
