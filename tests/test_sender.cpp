#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

constexpr uint8_t kT = RSVP_CLASS_SENDER_TEMPLATE, kF = RSVP_CLASS_FILTER_SPEC;

// A sender of either class built by the library; C-Type 12 carries sg_origin and sg_id.
Bytes sender(uint8_t cls, uint8_t c_type, const char *addr, uint16_t port,
             const char *sg_origin = "0.0.0.0", uint16_t sg_id = 0) {
    Bytes b(c_type == 12 ? RSVP_SENDER_P2MP_IPV4_LEN : RSVP_SENDER_IPV4_LEN, 0xEE);
    const bool t = cls == kT;
    if (c_type == 1)
        (t ? rsvp_build_template_ipv4 : rsvp_build_filter_ipv4)(b.data(), ip(addr), port);
    else if (c_type == 7)
        (t ? rsvp_build_template_lsp_tunnel_ipv4 : rsvp_build_filter_lsp_tunnel_ipv4)(
            b.data(), ip(addr), port);
    else
        (t ? rsvp_build_template_lsp_p2mp_ipv4 : rsvp_build_filter_lsp_p2mp_ipv4)(
            b.data(), ip(addr), port, ip(sg_origin), sg_id);
    return b;
}

}  // namespace

TEST(Sender, BuildersWriteEveryByte) {
    EXPECT_EQ(to_hex(sender(kT, 1, "10.0.0.1", 5000)),
              "00 0c 0b 01 "   // length 12, SENDER_TEMPLATE, C-Type 1
              "0a 00 00 01 "   // source 10.0.0.1
              "00 00 13 88");  // reserved 0, port 5000
    EXPECT_EQ(to_hex(sender(kF, 1, "10.0.0.1", 1)), "00 0c 0a 01 0a 00 00 01 00 00 00 01");
    EXPECT_EQ(to_hex(sender(kT, 7, "10.0.0.1", 3)), "00 0c 0b 07 0a 00 00 01 00 00 00 03");
    EXPECT_EQ(to_hex(sender(kF, 7, "10.0.0.1", 0x102)), "00 0c 0a 07 0a 00 00 01 00 00 01 02");
    EXPECT_EQ(to_hex(sender(kT, 12, "10.0.0.1", 9, "192.0.2.7", 0x102)),
              "00 14 0b 0c "   // length 20, SENDER_TEMPLATE, C-Type 12
              "0a 00 00 01 "   // sender 10.0.0.1
              "00 00 00 09 "   // reserved, LSP ID 9
              "c0 00 02 07 "   // Sub-Group Originator 192.0.2.7
              "00 00 01 02");  // reserved, Sub-Group ID 0x102
    EXPECT_EQ(to_hex(sender(kF, 12, "10.0.0.1", 9, "192.0.2.7", 0x102)),
              "00 14 0a 0c 0a 00 00 01 00 00 00 09 c0 00 02 07 00 00 01 02");
}

// Only the SENDER_TEMPLATE validator looks at the address; the FILTER_SPEC twin of every row
// is valid.
TEST(Sender, ValidatorsDifferOnlyInTheAddress) {
    struct Row {
        uint8_t c_type;
        const char *addr;
        int template_valid;
    } rows[] = {
        {1, "10.0.0.1", 1},   {7, "10.0.0.1", 1},  {12, "10.0.0.1", 1}, {1, "0.0.0.0", 0},
        {7, "0.0.0.0", 0},    {12, "0.0.0.0", 0},  {1, "224.0.0.5", 0}, {7, "239.255.255.255", 0},
        {12, "230.1.1.1", 0}, {1, "223.0.0.1", 1}, {7, "240.0.0.1", 1},
    };
    for (const Row &r : rows) {
        SCOPED_TRACE(testing::Message() << int(r.c_type) << " " << r.addr);
        Bytes t = sender(kT, r.c_type, r.addr, 1), f = sender(kF, r.c_type, r.addr, 1);
        EXPECT_EQ(rsvp_valid_template_gen_ipv4(t.data()), r.template_valid);
        EXPECT_EQ(rsvp_valid_object(t.data()), static_cast<uint32_t>(r.template_valid));
        EXPECT_EQ(rsvp_valid_filter_gen_ipv4(f.data()), 1);
        EXPECT_EQ(rsvp_valid_object(f.data()), 1u);
        EXPECT_EQ(rsvp_valid_template_gen_ipv4(f.data()) + rsvp_valid_filter_gen_ipv4(t.data()), 0);
    }
    for (uint8_t c_type : {0, 2, 3, 8, 11, 13}) {
        EXPECT_EQ(rsvp_valid_template_gen_ipv4(object(kT, c_type, hex("0a000001 00000001")).data()),
                  0);
        EXPECT_EQ(rsvp_valid_filter_gen_ipv4(object(kF, c_type, hex("0a000001 00000001")).data()),
                  0);
    }
    EXPECT_EQ(rsvp_valid_template_gen_ipv4(nullptr) + rsvp_valid_filter_gen_ipv4(nullptr), 0);
}

TEST(Sender, ValidatorLengthSweep) {
    for (uint8_t cls : {kT, kF}) {
        for (uint8_t c_type : {1, 7, 12}) {
            const Bytes good = sender(cls, c_type, "10.0.0.1", 1, "10.0.0.2", 2);
            for (size_t len = 4; len <= 28; len += 4) {
                SCOPED_TRACE(testing::Message() << int(cls) << "/" << int(c_type) << " " << len);
                Bytes cut = good;
                cut.resize(len, 0);
                cut[1] = static_cast<uint8_t>(len);
                EXPECT_EQ(rsvp_valid_object(heap_copy(cut).data()), len == good.size() ? 1u : 0u);
            }
        }
    }
}

TEST(Sender, ExtractorsRoundTripAndLeaveOutputsOnFailure) {
    uint32_t addr = 1, origin = 1;
    uint16_t port = 1, sg_id = 1;
    Bytes t1 = sender(kT, 1, "10.0.0.1", 5000), f7 = sender(kF, 7, "0.0.0.0", 7);
    Bytes t7 = sender(kT, 7, "0.0.0.0", 7), f12 = sender(kF, 12, "10.0.0.1", 9, "1.1.1.1", 3);
    // The zero sender fails as a SENDER_TEMPLATE; the other class, another C-Type and a null
    // object fail too. Nothing is written.
    EXPECT_EQ(rsvp_extract_template_lsp_tunnel_ipv4(t7.data(), &addr, &port), 0);
    EXPECT_EQ(rsvp_extract_filter_ipv4(t1.data(), &addr, &port), 0);
    EXPECT_EQ(rsvp_extract_filter_ipv4(f7.data(), &addr, &port), 0);
    EXPECT_EQ(rsvp_extract_template_lsp_p2mp_ipv4(f12.data(), &addr, &port, &origin, &sg_id), 0);
    EXPECT_EQ(rsvp_extract_filter_lsp_p2mp_ipv4(nullptr, &addr, &port, &origin, &sg_id), 0);
    EXPECT_EQ(addr + origin + port + sg_id, 4u);

    ASSERT_EQ(rsvp_extract_template_ipv4(t1.data(), &addr, &port), 1);
    EXPECT_EQ(addr, ip("10.0.0.1"));
    EXPECT_EQ(port, 5000);
    ASSERT_EQ(rsvp_extract_filter_lsp_tunnel_ipv4(f7.data(), &addr, &port), 1);
    EXPECT_EQ(addr + port, 7u);
    ASSERT_EQ(rsvp_extract_filter_lsp_p2mp_ipv4(f12.data(), &addr, &port, &origin, &sg_id), 1);
    EXPECT_EQ(addr, ip("10.0.0.1"));
    EXPECT_EQ(origin, ip("1.1.1.1"));
    EXPECT_EQ(port * 100 + sg_id, 903);
    Bytes t12 = sender(kT, 12, "10.0.0.2", 1, "1.1.1.2", 2);
    ASSERT_EQ(rsvp_extract_template_lsp_p2mp_ipv4(t12.data(), &addr, &port, &origin, &sg_id), 1);
    EXPECT_EQ(origin, ip("1.1.1.2"));
}

// The accessors validate through rsvp_valid_object: both names work on both classes, and on
// an object that fails validation (or whose class is unknown) readers answer 0 and writers
// write nothing.
TEST(Sender, AccessorsValidateThroughTheDispatch) {
    Bytes f = sender(kF, 1, "224.0.0.5", 80), t = sender(kT, 1, "224.0.0.5", 80);
    EXPECT_EQ(RSVP_TEMPLATE_SOURCE(f.data()), ip("224.0.0.5"));
    EXPECT_EQ(RSVP_TEMPLATE_PORT(f.data()), 80);
    EXPECT_EQ(RSVP_FILTER_SOURCE(t.data()), 0u);
    EXPECT_EQ(RSVP_FILTER_PORT(t.data()), 0);
    RSVP_FILTER_SET_SOURCE(t.data(), ip("10.0.0.1"));
    EXPECT_EQ(t, sender(kT, 1, "224.0.0.5", 80));
    RSVP_TEMPLATE_SET_SOURCE(f.data(), ip("10.0.0.1"));
    EXPECT_EQ(RSVP_FILTER_SOURCE(f.data()), ip("10.0.0.1"));
    EXPECT_EQ(RSVP_TEMPLATE_PORT(object(99, 1, hex("0a000001 00000050")).data()), 0);
    EXPECT_EQ(RSVP_FILTER_P2MP_SG_ID(nullptr), 0);

    Bytes p = sender(kT, 12, "10.0.0.1", 9, "192.0.2.7", 0x102);
    EXPECT_EQ(RSVP_TEMPLATE_P2MP_SG_ORIGIN(p.data()), ip("192.0.2.7"));
    EXPECT_EQ(RSVP_FILTER_P2MP_SG_ID(p.data()), 0x102);
    RSVP_FILTER_SET_P2MP_SG_ORIGIN(p.data(), ip("192.0.2.8"));
    EXPECT_EQ(RSVP_FILTER_P2MP_SG_ORIGIN(p.data()), ip("192.0.2.8"));
    EXPECT_EQ(RSVP_TEMPLATE_P2MP_SG_ID(p.data()), 0x102);
}

// The P2MP accessors do not check the C-Type: on a 12-byte object they use the bytes behind it.
TEST(Sender, P2mpAccessorsReachPastATwelveByteObject) {
    Bytes buf = concat({sender(kF, 7, "10.0.0.1", 1), hex("c0 00 02 07 00 00 01 02")});
    EXPECT_EQ(RSVP_FILTER_P2MP_SG_ORIGIN(buf.data()), ip("192.0.2.7"));
    EXPECT_EQ(RSVP_TEMPLATE_P2MP_SG_ID(buf.data()), 0x102);
    RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(buf.data(), ip("10.9.9.9"));
    EXPECT_EQ(to_hex(buf.data() + 12, 4), "0a 09 09 09");
}

TEST(Sender, CompareTemplatesAndFilters) {
    auto t = [](uint8_t c_type, const char *body) { return object(kT, c_type, hex(body)); };
    struct Row {
        Bytes a, b;
        int expect;
    } rows[] = {
        {t(1, "0a000001 0000 0000"), t(1, "0a000001 0000 0005"), -1},  // port 0: no wildcard
        {t(7, "0a000009 0000 0009"), t(12, "0a000001 0000 0001 01010101 0000 0001"), -1},
        {t(7, "0a000009 0000 0001"), t(7, "0900000a 0000 0001"), 1},  // host order
        {t(7, "0a000001 0000 0100"), t(7, "0a000001 0000 00ff"), 1},
        {t(12, "0a000001 0000 0001 09000002 0000 0009"),
         t(12, "0a000001 0000 0001 0a000001 0000 0001"), -1},
        {t(12, "0a000001 0000 0001 09000002 0000 0100"),
         t(12, "0a000001 0000 0001 09000002 0000 00ff"), 1},
        {t(12, "0a000001 0000 0001 09000002 0000 0003"),
         t(12, "0a000001 0000 0001 09000002 0000 0003"), 0},
        // Fields of an object that fails validation count as 0.
        {t(1, "e0000009 0000 0009"), t(1, "0a000001 0000 0000"), -1},
        {t(7, "e0000009 0000 0009"), t(7, "e1000001 0000 0001"), 0},
        {object(kF, 7, hex("0a000001 0000 0001")), t(7, "0a000001 0000 0001"), 0},  // any class
    };
    for (Row &r : rows) {
        SCOPED_TRACE(to_hex(r.a) + " / " + to_hex(r.b));
        EXPECT_EQ(rsvp_compare_templates(r.a.data(), r.b.data()), r.expect);
        EXPECT_EQ(rsvp_compare_filters(r.b.data(), r.a.data()), -r.expect);
    }
    Bytes one = sender(kF, 1, "10.0.0.1", 1);
    EXPECT_EQ(rsvp_compare_filters(nullptr, nullptr), 0);
    EXPECT_EQ(rsvp_compare_filters(nullptr, one.data()), -1);
    EXPECT_EQ(rsvp_compare_templates(one.data(), nullptr), 1);
}
