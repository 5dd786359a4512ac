#include <gtest/gtest.h>

#include <tuple>

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

// Every builder writes each byte of its object, valid at exactly its own Length, and the
// extractor of the same class and C-Type reads the fields back. Only the SENDER_TEMPLATE
// validator looks at the address (neither 0 nor multicast). Extractors answer 0 and write
// nothing for the twin class, another C-Type, an object their class validator refuses and a
// null object.
TEST(Sender, BuildValidateAndExtract) {
    using X12 = int (*)(uint8_t *, uint32_t *, uint16_t *);
    using XP2mp = int (*)(uint8_t *, uint32_t *, uint16_t *, uint32_t *, uint16_t *);
    const std::tuple<uint8_t, uint8_t, X12, XP2mp> rows[] = {
        {kT, 1, rsvp_extract_template_ipv4, nullptr},
        {kF, 1, rsvp_extract_filter_ipv4, nullptr},
        {kT, 7, rsvp_extract_template_lsp_tunnel_ipv4, nullptr},
        {kF, 7, rsvp_extract_filter_lsp_tunnel_ipv4, nullptr},
        {kT, 12, nullptr, rsvp_extract_template_lsp_p2mp_ipv4},
        {kF, 12, nullptr, rsvp_extract_filter_lsp_p2mp_ipv4},
    };
    auto make = [](uint8_t cls, uint8_t c_type, const char *addr) {
        return sender(cls, c_type, addr, 0x102, "192.0.2.7", 0x304);
    };
    auto valid = [](uint8_t cls, const Bytes &obj) {
        HeapBytes h = heap_copy(obj);
        return (cls == kT ? rsvp_valid_template_gen_ipv4 : rsvp_valid_filter_gen_ipv4)(h.data());
    };
    const std::pair<const char *, int> addrs[] = {
        {"0.0.0.0", 0},         {"223.0.0.1", 1}, {"224.0.0.5", 0},
        {"239.255.255.255", 0}, {"240.0.0.1", 1},
    };
    for (const auto &[cls, c_type, x12, xp2mp] : rows) {
        SCOPED_TRACE(testing::Message() << int(cls) << "/" << int(c_type));
        // The result, then the outputs (each preset to 1).
        auto extract = [x12 = x12, xp2mp = xp2mp](Bytes obj) {
            uint32_t addr = 1, origin = 1;
            uint16_t port = 1, sg_id = 1;
            uint8_t *o = obj.empty() ? nullptr : obj.data();
            const int ok = x12 ? x12(o, &addr, &port) : xp2mp(o, &addr, &port, &origin, &sg_id);
            return std::tuple(ok, addr, port, origin, sg_id);
        };
        Bytes b = make(cls, c_type, "10.0.0.1");
        const bool p2mp = c_type == 12;
        // Length, class, C-Type; sender 10.0.0.1; reserved, port or LSP ID 0x102; for C-Type
        // 12, Sub-Group Originator 192.0.2.7, reserved and Sub-Group ID 0x304.
        Bytes want = hex(p2mp ? "00 14 00 00 0a 00 00 01 00 00 01 02 c0 00 02 07 00 00 03 04"
                              : "00 0c 00 00 0a 00 00 01 00 00 01 02");
        want[2] = cls, want[3] = c_type;
        EXPECT_EQ(to_hex(b), to_hex(want));
        for (size_t len = 4; len <= 28; len += 4)
            EXPECT_EQ(rsvp_valid_object(heap_copy(cut_to(b, len)).data()),
                      len == b.size() ? 1u : 0u)
                << len;
        EXPECT_EQ(std::pair(valid(cls, b), valid(kT + kF - cls, b)), std::pair(1, 0));
        for (const auto &[addr, unicast] : addrs) {
            const int ok = cls == kF || unicast;
            const Bytes o = make(cls, c_type, addr);
            EXPECT_EQ(std::pair(valid(cls, o), rsvp_valid_object(heap_copy(o).data())),
                      std::pair(ok, static_cast<uint32_t>(ok)))
                << addr;
        }
        EXPECT_EQ(extract(b), std::tuple(1, ip("10.0.0.1"), 0x102, p2mp ? ip("192.0.2.7") : 1u,
                                         p2mp ? 0x304 : 1));
        const auto untouched = std::tuple(0, 1u, 1, 1u, 1);
        EXPECT_EQ(extract(make(kT + kF - cls, c_type, "10.0.0.1")), untouched);
        EXPECT_EQ(extract(make(cls, c_type == 1 ? 7 : 1, "10.0.0.1")), untouched);
        b[1] += 4;  // a Length no validator accepts
        EXPECT_EQ(extract(b), untouched);
        EXPECT_EQ(extract({}), untouched);
    }
    // Unknown C-Types.
    EXPECT_EQ(valid(kT, object(kT, 2, hex("0a000001 00000001"))) +
                  valid(kF, object(kF, 13, hex("0a000001 00000001"))),
              0);
    EXPECT_EQ(rsvp_valid_template_gen_ipv4(nullptr) + rsvp_valid_filter_gen_ipv4(nullptr), 0);
}

// The accessors validate through rsvp_valid_object, so the TEMPLATE and FILTER names are twins
// that read and write valid objects of either class; on a SENDER_TEMPLATE refused for its
// multicast sender, an unknown class or null, readers answer 0 and writers write nothing.
TEST(Sender, AccessorsValidateThroughTheDispatch) {
    using Fields = std::tuple<uint32_t, uint16_t, uint32_t, uint16_t>;  // source, port, SG
    auto tmpl = [](uint8_t *o) {
        return Fields(RSVP_TEMPLATE_SOURCE(o), RSVP_TEMPLATE_PORT(o),
                      RSVP_TEMPLATE_P2MP_SG_ORIGIN(o), RSVP_TEMPLATE_P2MP_SG_ID(o));
    };
    auto filt = [](uint8_t *o) {
        return Fields(RSVP_FILTER_SOURCE(o), RSVP_FILTER_PORT(o), RSVP_FILTER_P2MP_SG_ORIGIN(o),
                      RSVP_FILTER_P2MP_SG_ID(o));
    };
    Bytes f = sender(kF, 12, "224.0.0.5", 80, "192.0.2.7", 0x102), t = f, v = f, unknown = f;
    t[2] = v[2] = kT;
    v[4] = 10;  // sender 10.0.0.5: a valid SENDER_TEMPLATE
    unknown[2] = 99;
    const Bytes refused = t;
    EXPECT_EQ(tmpl(f.data()), Fields(ip("224.0.0.5"), 80, ip("192.0.2.7"), 0x102));
    for (uint8_t *o : {t.data(), unknown.data(), static_cast<uint8_t *>(nullptr)}) {
        EXPECT_EQ(tmpl(o), Fields());
        EXPECT_EQ(filt(o), Fields());
    }
    RSVP_TEMPLATE_SET_SOURCE(f.data(), ip("10.0.0.1"));
    RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(f.data(), ip("10.0.0.2"));
    RSVP_FILTER_SET_SOURCE(v.data(), ip("10.0.0.1"));
    RSVP_FILTER_SET_P2MP_SG_ORIGIN(v.data(), ip("10.0.0.2"));
    RSVP_TEMPLATE_SET_SOURCE(t.data(), 1);
    RSVP_FILTER_SET_P2MP_SG_ORIGIN(t.data(), 1);
    const Fields written(ip("10.0.0.1"), 80, ip("10.0.0.2"), 0x102);
    EXPECT_EQ(tmpl(f.data()), written);
    EXPECT_EQ(filt(v.data()), written);
    EXPECT_EQ(t, refused);
    // The P2MP accessors do not check the C-Type: on a 12-byte object they use the bytes behind.
    Bytes buf = concat({sender(kF, 7, "10.0.0.1", 1), hex("c0 00 02 07 00 00 01 02")});
    EXPECT_EQ(RSVP_FILTER_P2MP_SG_ORIGIN(buf.data()), ip("192.0.2.7"));
    EXPECT_EQ(RSVP_TEMPLATE_P2MP_SG_ID(buf.data()), 0x102);
    RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(buf.data(), ip("10.9.9.9"));
    EXPECT_EQ(to_hex(buf.data() + 12, 4), "0a 09 09 09");
}

TEST(Sender, CompareTemplatesAndFilters) {
    auto t = [](uint8_t c_type, const char *body) { return object(kT, c_type, hex(body)); };
    std::tuple<Bytes, Bytes, int> rows[] = {
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
        // Valid 8-byte objects of another class (C-Type 12): only the address is inside them.
        {object(RSVP_CLASS_POLICY_DATA, 12, hex("0a000001")),
         object(RSVP_CLASS_POLICY_DATA, 12, hex("0a000002")), -1},
        {{}, {}, 0},                           // an empty row stands for a null object
        {{}, t(1, "00000000 0000 0000"), -1},  // null first, even before an invalid object
    };
    for (auto &[a, b, expect] : rows) {
        SCOPED_TRACE(to_hex(a) + " / " + to_hex(b));
        HeapBytes ha = heap_copy(a), hb = heap_copy(b);
        uint8_t *pa = a.empty() ? nullptr : ha.data(), *pb = b.empty() ? nullptr : hb.data();
        EXPECT_EQ(rsvp_compare_templates(pa, pb), expect);
        EXPECT_EQ(rsvp_compare_filters(pb, pa), -expect);
    }
}
