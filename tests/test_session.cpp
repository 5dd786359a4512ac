#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// A SESSION of the given C-Type around a hex body.
Bytes ses(uint8_t c_type, const char *body) {
    return object(RSVP_CLASS_SESSION, c_type, hex(body));
}

}  // namespace

// Each builder writes every byte of its kind, and the extractor of that kind reads the
// fields back; extractors of another C-Type, or given an invalid or null object, write nothing.
TEST(Session, BuildersAndExtractors) {
    Bytes b;
    auto fresh = [&b] { return b.assign(16, 0xEE), b.data(); };  // so every byte must be written
    uint32_t addr = 0, ext = 0;
    uint8_t proto = 0;
    uint16_t port = 0;
    rsvp_build_session_ipv4(fresh(), ip("10.0.0.3"), 17, 0x01, 5000);
    EXPECT_EQ(to_hex(b.data(), 12), "00 0c 01 01 0a 00 00 03 11 01 13 88");
    ASSERT_EQ(rsvp_extract_session_ipv4(b.data(), &addr, &proto, &port), 1);
    EXPECT_EQ(std::tuple(addr, proto, port), std::tuple(ip("10.0.0.3"), 17, 5000));
    rsvp_build_session_uni_ipv4(fresh(), ip("192.0.2.1"), 7, ip("192.0.2.9"));
    EXPECT_EQ(to_hex(b), "00 10 01 09 c0 00 02 01 00 00 00 07 c0 00 02 09");
    ASSERT_EQ(rsvp_extract_session_uni_ipv4(b.data(), &addr, &port, &ext), 1);
    EXPECT_EQ(std::tuple(addr, port, ext), std::tuple(ip("192.0.2.1"), 7, ip("192.0.2.9")));
    // The P2MP ID is a host number, converted; the Extended Tunnel ID crosses unconverted.
    rsvp_build_session_p2mp_lsp_ipv4(fresh(), 0x11223344, 9, ip("1.2.3.4"));
    EXPECT_EQ(to_hex(b), "00 10 01 0d 11 22 33 44 00 00 00 09 01 02 03 04");
    ASSERT_EQ(rsvp_extract_session_p2mp_lsp_ipv4(b.data(), &addr, &port, &ext), 1);
    EXPECT_EQ(std::tuple(addr, port, ext), std::tuple(0x11223344u, 9, ip("1.2.3.4")));
    rsvp_build_session_lsp_tunnel_ipv4(fresh(), ip("10.0.0.3"), 0x0102, ip("10.0.0.1"));
    EXPECT_EQ(to_hex(b), "00 10 01 07 0a 00 00 03 00 00 01 02 0a 00 00 01");
    ASSERT_EQ(rsvp_extract_session_lsp_tunnel_ipv4(b.data(), &addr, &port, &ext), 1);
    EXPECT_EQ(std::tuple(addr, port, ext), std::tuple(ip("10.0.0.3"), 0x102, ip("10.0.0.1")));
    addr = ext = proto = port = 7;
    Bytes bad = ses(7, "0a000003 0000 0001 0a000003");  // Extended Tunnel ID = end point
    EXPECT_EQ(rsvp_extract_session_ipv4(b.data(), &addr, &proto, &port), 0);  // b: C-Type 7
    EXPECT_EQ(rsvp_extract_session_uni_ipv4(b.data(), &addr, &port, &ext), 0);
    EXPECT_EQ(rsvp_extract_session_lsp_tunnel_ipv4(bad.data(), &addr, &port, &ext), 0);
    EXPECT_EQ(rsvp_extract_session_p2mp_lsp_ipv4(nullptr, &addr, &port, &ext), 0);
    EXPECT_EQ(std::tuple(addr, ext, proto, port), std::tuple(7u, 7u, 7, 7));
}

// Family validator and dispatch agree on every row; a valid object is valid at exactly its own
// Length (cut short or padded it is refused, and never read past its end).
TEST(Session, Validator) {
    const std::tuple<uint8_t, const char *, int> rows[] = {
        {1, "0a000003 06 00 0050", 1},  // TCP port 80
        {1, "0a000003 11 00 0035", 1},  // UDP port 53
        {1, "0a000003 2f 00 0000", 1},  // GRE, port 0
        {1, "0a000003 2f 00 0001", 0},  // GRE (a number above TCP's) with a port
        {7, "0a000003 0000 0001 0a000001", 1},
        // The Extended Tunnel ID may not equal the end point (C-Types 7 and 9, not 13).
        {7, "0a000003 0000 0001 0a000003", 0},
        {9, "0a000003 0000 0001 0a000003", 0},
        {13, "0a000003 0000 0001 0a000003", 1},
        {2, "00000000 00000000 00000000 00000001 11 00 0050", 0},  // IPv6 kinds: refused
    };
    for (const auto &[c_type, body, valid] : rows) {
        SCOPED_TRACE(testing::Message() << int(c_type) << " " << body);
        Bytes b = ses(c_type, body);
        EXPECT_EQ(rsvp_valid_session_ipv4(b.data()), valid);
        EXPECT_EQ(rsvp_valid_object(b.data()), static_cast<uint32_t>(valid));
        for (size_t len = 4; valid && len <= 24; len += 4)
            EXPECT_EQ(rsvp_valid_session_ipv4(heap_copy(cut_to(b, len)).data()), len == b.size())
                << len;
    }
    EXPECT_EQ(rsvp_valid_session_ipv4(object(2, 1, hex("0a000003 06 00 0050")).data()), 0);
    EXPECT_EQ(rsvp_valid_session_ipv4(nullptr), 0);
}

TEST(Session, GettersServeTheirCTypesOnly) {
    // destination, Extended Tunnel ID, P2MP ID, port, protocol, flags
    using Fields = std::tuple<uint32_t, uint32_t, uint32_t, uint16_t, uint8_t, uint8_t>;
    std::pair<Bytes, Fields> rows[] = {
        {ses(1, "0a000003 2f 5a 0000"), {ip("10.0.0.3"), 0, 0, 0, 47, 0x5A}},
        {ses(7, "0a000003 0000 0001 0a000001"), {ip("10.0.0.3"), ip("10.0.0.1"), 0, 1, 0, 0}},
        {ses(9, "0a000004 0000 0002 0a000002"), {ip("10.0.0.4"), ip("10.0.0.2"), 0, 2, 0, 0}},
        // A P2MP ID is no address: the destination getter answers 0.
        {ses(13, "01020304 0000 0003 0a000009"), {0, ip("10.0.0.9"), 0x01020304, 3, 0, 0}},
        // Length 12: the getters read no field that the Length does not cover.
        {ses(7, "0a000003 0000 0001"), {ip("10.0.0.3"), 0, 0, 1, 0, 0}},
        {ses(2, "0a000003 2f 5a 0000 00000000 00000000 00000001"), {}},
        {object(RSVP_CLASS_FILTER_SPEC, 1, hex("0a000003 2f 5a 0000")), {}},
        {{}, {}},  // null
    };
    for (auto &[obj, want] : rows) {
        SCOPED_TRACE(to_hex(obj));
        HeapBytes h = heap_copy(obj);
        uint8_t *o = obj.empty() ? nullptr : h.data();
        EXPECT_EQ(Fields(rsvp_session_gen_ipv4_dst(o), rsvp_session_gen_ipv4_ext_id(o),
                         rsvp_session_gen_p2mp_id(o), rsvp_session_gen_ipv4_port(o),
                         rsvp_session_gen_ipv4_protocol(o), rsvp_session_gen_ipv4_flags(o)),
                  want);
        // The upper-case accessors are the same getters.
        EXPECT_EQ(Fields(RSVP_SESSION_DESTINATION(o), RSVP_SESSION_EXT_TUNNEL_ID(o),
                         RSVP_SESSION_P2MP_ID(o), RSVP_SESSION_PORT(o), RSVP_SESSION_PROTOCOL(o),
                         RSVP_SESSION_FLAGS(o)),
                  want);
    }
}

TEST(Session, PredicatesLookAtTheCTypeAlone) {
    // Bit n set: true for C-Type n. UNI (9) is no tunnel.
    const std::pair<int (*)(uint8_t *), unsigned> rows[] = {
        {rsvp_ip_ipv4_session, 1u << 1},
        {rsvp_tunnel_ipv4_session, 1u << 7},
        {rsvp_uni_ipv4_session, 1u << 9},
        {rsvp_p2mp_lsp_ipv4_session, 1u << 13},
        {rsvp_session_gen_is_family_ipv4, 1u << 1 | 1u << 7 | 1u << 9 | 1u << 13},
        {rsvp_session_gen_is_family_ipv6, 1u << 2 | 1u << 8 | 1u << 14},
        {rsvp_session_gen_ipv4_is_tunnel, 1u << 7 | 1u << 13},
        {rsvp_session_gen_ipv6_is_tunnel, 1u << 8 | 1u << 14},
        {rsvp_session_gen_is_family_tunnel, 1u << 7 | 1u << 8 | 1u << 13 | 1u << 14},
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        const auto &[pred, c_types] = rows[i];
        for (uint8_t c_type = 0; c_type < 32; ++c_type) {
            Bytes b = object(99, c_type, {});  // the Class-Num is not looked at
            EXPECT_EQ(pred(b.data()), (c_types >> c_type) & 1) << "row " << i << " " << int(c_type);
        }
    }
}

TEST(Session, CompareOrdersByCTypeThenFields) {
    std::tuple<Bytes, Bytes, int> rows[] = {
        {ses(1, "c8000001 06 00 0050"), ses(7, "01000001 0000 0001 01000002"), -1},
        {ses(1, "0a000003 06 00 0050"), ses(1, "09000004 06 00 0050"), 1},  // host order
        {ses(1, "0a000003 06 00 0050"), ses(1, "0a000003 11 00 0050"), -1},
        {ses(1, "0a000003 06 00 0050"), ses(1, "0a000003 06 00 01bb"), -1},
        {ses(1, "0a000003 06 00 0000"), ses(1, "0a000003 06 00 01bb"), 0},  // port 0: wildcard
        {ses(1, "0a000003 06 01 0050"), ses(1, "0a000003 06 00 0050"), 0},  // flags ignored
        {ses(7, "0a000003 0000 0002 01000001"), ses(7, "0a000003 0000 0100 01000001"), -1},
        {ses(7, "0a000003 0000 0001 01000002"), ses(7, "0a000003 0000 0001 01000001"), 1},
        {ses(7, "0a000003 0000 0001 00000000"), ses(7, "0a000003 0000 0001 01000001"), 0},
        {ses(13, "00000100 0000 0001 00000001"), ses(13, "000000ff 0000 0001 00000001"), 1},
        {ses(2, "01010101"), ses(2, "02020202"), 0},  // unknown C-Types are equal
        // Neither Class-Num nor Length is looked at.
        {object(3, 1, hex("0a000003 06 00 0050"), 16), ses(1, "0a000004 06 00 0050"), -1},
        // An empty row stands for a null object, which counts as C-Type 0.
        {{}, ses(1, "00000000 00 00 0000"), -1},
        {{}, ses(0, "01010101"), 0},
    };
    for (auto &[a, b, expect] : rows) {
        SCOPED_TRACE(to_hex(a) + " / " + to_hex(b));
        uint8_t *pa = a.empty() ? nullptr : a.data(), *pb = b.empty() ? nullptr : b.data();
        EXPECT_EQ(rsvp_compare_sessions(pa, pb), expect);
        EXPECT_EQ(rsvp_compare_sessions(pb, pa), -expect);
    }
}
