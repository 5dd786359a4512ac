#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// A SESSION of the given C-Type around a hex body.
Bytes ses(uint8_t c_type, const char *body) {
    return object(RSVP_CLASS_SESSION, c_type, hex(body));
}

}  // namespace

TEST(Session, BuildersWriteEveryByte) {
    Bytes b(16, 0xEE);
    rsvp_build_session_ipv4(b.data(), ip("10.0.0.3"), 17, 0x01, 5000);
    EXPECT_EQ(to_hex(b.data(), 12),
              "00 0c 01 01 "   // length 12, class 1, C-Type 1
              "0a 00 00 03 "   // destination 10.0.0.3
              "11 01 13 88");  // protocol UDP, flags 1, port 5000
    rsvp_build_session_lsp_tunnel_ipv4(b.data(), ip("10.0.0.3"), 0x0102, ip("10.0.0.1"));
    EXPECT_EQ(to_hex(b),
              "00 10 01 07 0a 00 00 03 "   // length 16, C-Type 7, end point 10.0.0.3
              "00 00 01 02 0a 00 00 01");  // reserved 0, tunnel 0x102, ext id 10.0.0.1
    rsvp_build_session_uni_ipv4(b.data(), ip("192.0.2.1"), 7, ip("192.0.2.9"));
    EXPECT_EQ(to_hex(b), "00 10 01 09 c0 00 02 01 00 00 00 07 c0 00 02 09");
    // The P2MP ID is a host number, converted; the Extended Tunnel ID crosses unconverted.
    rsvp_build_session_p2mp_lsp_ipv4(b.data(), 0x11223344, 9, ip("1.2.3.4"));
    EXPECT_EQ(to_hex(b), "00 10 01 0d 11 22 33 44 00 00 00 09 01 02 03 04");
}

TEST(Session, Validator) {
    struct Row {
        uint8_t c_type;
        const char *body;
        int valid;
    } rows[] = {
        {1, "0a000003 06 00 0050", 1},  // TCP port 80
        {1, "0a000003 11 00 0035", 1},  // UDP port 53
        {1, "0a000003 00 00 0050", 0},  // protocol 0 with a port
        {1, "0a000003 2f 00 0000", 1},  // GRE, port 0
        {1, "0a000003 2f 00 0001", 0},  // GRE with a port
        {7, "0a000003 0000 0001 0a000001", 1},
        // The Extended Tunnel ID may not equal the end point (C-Types 7 and 9, not 13).
        {7, "0a000003 0000 0001 0a000003", 0},
        {9, "0a000003 0000 0001 0a000003", 0},
        {9, "0a000003 0000 0001 0a000004", 1},
        {13, "0a000003 0000 0001 0a000003", 1},
        {2, "00000000 00000000 00000000 00000001 11 00 0050", 0},  // IPv6 kinds: refused
        {8, "0a000003 0000 0001 0a000001", 0},
        {14, "0a000003 0000 0001 0a000001", 0},
    };
    for (const Row &r : rows) {
        SCOPED_TRACE(testing::Message() << int(r.c_type) << " " << r.body);
        Bytes b = ses(r.c_type, r.body);
        EXPECT_EQ(rsvp_valid_session_ipv4(b.data()), r.valid);
        EXPECT_EQ(rsvp_valid_object(b.data()), static_cast<uint32_t>(r.valid));
    }
    Bytes other_class = object(2, 1, hex("0a000003 06 00 0050"));
    EXPECT_EQ(rsvp_valid_session_ipv4(other_class.data()), 0);
    EXPECT_EQ(rsvp_valid_session_ipv4(nullptr), 0);
}

// Each kind is valid at exactly its own Length; shorter objects are not read past their end.
TEST(Session, ValidatorLengthSweep) {
    for (const Bytes &good :
         {ses(1, "0a000003 06 00 0050"), ses(7, "0a000003 0000 0001 0a000001"),
          ses(9, "0a000003 0000 0001 0a000004"), ses(13, "00000005 0000 0001 0a000004")}) {
        for (size_t len = 4; len <= 24; len += 4) {
            SCOPED_TRACE(testing::Message() << "C-Type " << int(good[3]) << " length " << len);
            Bytes cut = good;
            cut.resize(len, 0);
            cut[1] = static_cast<uint8_t>(len);
            EXPECT_EQ(rsvp_valid_session_ipv4(heap_copy(cut).data()), len == good.size());
        }
    }
}

TEST(Session, ExtractorsRoundTripAndLeaveOutputsOnFailure) {
    uint32_t addr = 7, ext = 7;
    uint8_t proto = 7;
    uint16_t port = 7;
    Bytes v4 = ses(1, "0a000003 06 01 0050"), tunnel = ses(7, "0a000003 0000 0001 0a000001");
    Bytes bad = ses(7, "0a000003 0000 0001 0a000003");
    // Another C-Type, an invalid object and a null object: 0 and nothing written.
    EXPECT_EQ(rsvp_extract_session_ipv4(tunnel.data(), &addr, &proto, &port), 0);
    EXPECT_EQ(rsvp_extract_session_uni_ipv4(tunnel.data(), &addr, &port, &ext), 0);
    EXPECT_EQ(rsvp_extract_session_lsp_tunnel_ipv4(bad.data(), &addr, &port, &ext), 0);
    EXPECT_EQ(rsvp_extract_session_p2mp_lsp_ipv4(nullptr, &addr, &port, &ext), 0);
    EXPECT_EQ(addr + ext + proto + port, 28u);

    ASSERT_EQ(rsvp_extract_session_ipv4(v4.data(), &addr, &proto, &port), 1);
    EXPECT_EQ(addr, ip("10.0.0.3"));
    EXPECT_EQ(proto * 1000 + port, 6080);
    ASSERT_EQ(rsvp_extract_session_lsp_tunnel_ipv4(tunnel.data(), &addr, &port, &ext), 1);
    EXPECT_EQ(addr == ip("10.0.0.3") && port == 1 && ext == ip("10.0.0.1"), true);
    Bytes p2mp = ses(13, "a0b0c0d0 0000 beef 0a000001"),
          uni = ses(9, "0a090909 0000 0003 0a000002");
    ASSERT_EQ(rsvp_extract_session_p2mp_lsp_ipv4(p2mp.data(), &addr, &port, &ext), 1);
    EXPECT_EQ(addr == 0xA0B0C0D0u && port == 0xBEEF && ext == ip("10.0.0.1"), true);  // host ID
    ASSERT_EQ(rsvp_extract_session_uni_ipv4(uni.data(), &addr, &port, &ext), 1);
    EXPECT_EQ(addr == ip("10.9.9.9") && port == 3 && ext == ip("10.0.0.2"), true);
}

TEST(Session, GettersServeTheirCTypesOnly) {
    struct Row {
        Bytes obj;
        uint32_t dst, ext, p2mp;
        uint16_t port;
        uint8_t protocol, flags;
    } rows[] = {
        {ses(1, "0a000003 2f 5a 0000"), ip("10.0.0.3"), 0, 0, 0, 47, 0x5A},
        {ses(7, "0a000003 0000 0001 0a000001"), ip("10.0.0.3"), ip("10.0.0.1"), 0, 1, 0, 0},
        {ses(9, "0a000004 0000 0002 0a000002"), ip("10.0.0.4"), ip("10.0.0.2"), 0, 2, 0, 0},
        // A P2MP ID is no address: the destination getter answers 0.
        {ses(13, "01020304 0000 0003 0a000009"), 0, ip("10.0.0.9"), 0x01020304, 3, 0, 0},
        {ses(2, "0a000003 2f 5a 0000 00000000 00000000 00000001"), 0, 0, 0, 0, 0, 0},
        {object(RSVP_CLASS_FILTER_SPEC, 1, hex("0a000003 2f 5a 0000")), 0, 0, 0, 0, 0, 0},
    };
    for (Row &r : rows) {
        uint8_t *o = r.obj.data();
        SCOPED_TRACE(to_hex(r.obj));
        EXPECT_EQ(rsvp_session_gen_ipv4_dst(o), r.dst);
        EXPECT_EQ(rsvp_session_gen_ipv4_ext_id(o), r.ext);
        EXPECT_EQ(rsvp_session_gen_p2mp_id(o), r.p2mp);
        EXPECT_EQ(rsvp_session_gen_ipv4_port(o), r.port);
        EXPECT_EQ(rsvp_session_gen_ipv4_protocol(o), r.protocol);
        EXPECT_EQ(rsvp_session_gen_ipv4_flags(o), r.flags);
        // The upper-case accessors are the same getters.
        EXPECT_EQ(RSVP_SESSION_DESTINATION(o), r.dst);
        EXPECT_EQ(RSVP_SESSION_EXT_TUNNEL_ID(o), r.ext);
        EXPECT_EQ(RSVP_SESSION_P2MP_ID(o), r.p2mp);
        EXPECT_EQ(RSVP_SESSION_PORT(o), r.port);
        EXPECT_EQ(RSVP_SESSION_PROTOCOL(o), r.protocol);
        EXPECT_EQ(RSVP_SESSION_FLAGS(o), r.flags);
    }
    EXPECT_EQ(RSVP_SESSION_PORT(nullptr), 0);
}

TEST(Session, PredicatesLookAtTheCTypeAlone) {
    struct Row {
        int (*pred)(uint8_t *);
        unsigned c_types;  // bit n set: true for C-Type n
    } rows[] = {
        {rsvp_ip_ipv4_session, 1u << 1},
        {rsvp_tunnel_ipv4_session, 1u << 7},
        {rsvp_uni_ipv4_session, 1u << 9},
        {rsvp_p2mp_lsp_ipv4_session, 1u << 13},
        {rsvp_session_gen_is_family_ipv4, 1u << 1 | 1u << 7 | 1u << 9 | 1u << 13},
        {rsvp_session_gen_is_family_ipv6, 1u << 2 | 1u << 8 | 1u << 14},
        {rsvp_session_gen_ipv4_is_tunnel, 1u << 7 | 1u << 13},  // not UNI (9)
        {rsvp_session_gen_ipv6_is_tunnel, 1u << 8 | 1u << 14},
        {rsvp_session_gen_is_family_tunnel, 1u << 7 | 1u << 8 | 1u << 13 | 1u << 14},
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        for (uint8_t c_type = 0; c_type < 32; ++c_type) {
            SCOPED_TRACE(testing::Message() << "row " << i << " C-Type " << int(c_type));
            Bytes b = object(99, c_type, {});  // the Class-Num is not looked at
            EXPECT_EQ(rows[i].pred(b.data()), (rows[i].c_types >> c_type) & 1);
        }
        EXPECT_EQ(rows[i].pred(nullptr), 0);
    }
}

TEST(Session, CompareOrdersByCTypeThenFields) {
    struct Row {
        Bytes a, b;
        int expect;
    } rows[] = {
        {ses(1, "c8000001 06 00 0050"), ses(7, "01000001 0000 0001 01000002"), -1},
        {ses(1, "0a000003 06 00 0050"), ses(1, "09000004 06 00 0050"), 1},  // host order
        {ses(1, "0a000003 06 00 0050"), ses(1, "0a000003 11 00 0050"), -1},
        {ses(1, "0a000003 06 00 0050"), ses(1, "0a000003 06 00 01bb"), -1},
        {ses(1, "0a000003 06 00 0000"), ses(1, "0a000003 06 00 01bb"), 0},   // port 0: wildcard
        {ses(1, "0a000003 06 00 0000"), ses(1, "0a000004 06 00 01bb"), -1},  // after the address
        {ses(1, "0a000003 06 01 0050"), ses(1, "0a000003 06 00 0050"), 0},   // flags ignored
        {ses(7, "0a000009 0000 0001 01000001"), ses(7, "0a000003 0000 0001 01000001"), 1},
        {ses(7, "0a000003 0000 0002 01000001"), ses(7, "0a000003 0000 0100 01000001"), -1},
        {ses(7, "0a000003 0000 0001 01000002"), ses(7, "0a000003 0000 0001 01000001"), 1},
        {ses(7, "0a000003 0000 0001 00000000"), ses(7, "0a000003 0000 0001 01000001"), 0},
        {ses(13, "00000100 0000 0001 00000001"), ses(13, "000000ff 0000 0001 00000001"), 1},
        {ses(9, "0a000003 0000 0001 00000001"), ses(9, "0a000003 0000 0001 00000002"), -1},
        {ses(2, "01010101"), ses(2, "02020202"), 0},  // unknown C-Types are equal
        // Neither Class-Num nor Length is looked at.
        {object(3, 1, hex("0a000003 06 00 0050"), 16), ses(1, "0a000003 06 00 0050"), 0},
    };
    for (Row &r : rows) {
        SCOPED_TRACE(to_hex(r.a) + " / " + to_hex(r.b));
        EXPECT_EQ(rsvp_compare_sessions(r.a.data(), r.b.data()), r.expect);
        EXPECT_EQ(rsvp_compare_sessions(r.b.data(), r.a.data()), -r.expect);
    }
    Bytes v4 = ses(1, "0a000003 06 00 0050");
    EXPECT_EQ(rsvp_compare_sessions(nullptr, nullptr), 0);
    EXPECT_EQ(rsvp_compare_sessions(v4.data(), v4.data()), 0);
    EXPECT_EQ(rsvp_compare_sessions(nullptr, v4.data()), -1);
    EXPECT_EQ(rsvp_compare_sessions(v4.data(), nullptr), 1);
}
