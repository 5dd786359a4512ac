// An LSP signalled end to end: the head end builds a Path whose EXPLICIT_ROUTE names ten hops
// and whose EXCLUDE_ROUTE names one resource of each kind; each transit node records itself at
// the front of the RECORD_ROUTE, the last object of the message; the tail end reads it all.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

constexpr uint8_t kPath = 1;

enum Kind { kIpv4, kUnnum, kAs };
struct Hop {
    bool loose;
    Kind kind;
    const char *addr;  // prefix or router ID
    uint32_t value;    // prefix length, interface ID or AS number
};
const Hop kHops[] = {
    {false, kIpv4, "10.0.12.2", 32}, {false, kUnnum, "10.0.0.2", 3},
    {true, kIpv4, "10.0.23.0", 24},  {false, kIpv4, "10.0.34.4", 32},
    {true, kUnnum, "10.0.0.4", 9},   {true, kAs, nullptr, 65010},
    {false, kUnnum, "10.0.0.6", 1},  {false, kIpv4, "10.0.67.7", 32},
    {true, kIpv4, "10.0.0.8", 32},   {false, kUnnum, "10.0.0.9", 12},
};

// No builder writes an AS hop; the head end writes it by hand behind the route.
void append_as_hop(uint8_t *ero, bool loose, uint16_t as) {
    const uint16_t len = RSVP_OBJECT_LENGTH(ero);
    ero[len] = static_cast<uint8_t>(RSVP_ERO_SUBOBJ_AS | (loose ? RSVP_ERO_L_BIT : 0));
    ero[len + 1] = RSVP_ERO_SUBOBJ_AS_LEN;
    ero[len + 2] = static_cast<uint8_t>(as >> 8);
    ero[len + 3] = static_cast<uint8_t>(as);
    RSVP_SET_OBJECT_LENGTH(ero, static_cast<uint16_t>(len + RSVP_ERO_SUBOBJ_AS_LEN));
}

// Router ID of transit node n: 10.0.0.n.
uint32_t node_addr(uint32_t n) {
    return ip(("10.0.0." + std::to_string(n)).c_str());
}

class RoutesEndToEnd : public ::testing::Test {
  protected:
    void SetUp() override {
        uint8_t *p = msg + RSVP_MSG_HDR_LEN;
        rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.9"), 1, ip("10.0.0.1"));
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_explicit_route(p);
        for (const Hop &h : kHops) {
            if (h.kind == kIpv4)
                ASSERT_EQ(rsvp_add_explicit_route_ipv4(p, h.loose, ip(h.addr), h.value), 1);
            else if (h.kind == kUnnum)
                ASSERT_EQ(rsvp_add_explicit_route_unnum(p, h.loose, ip(h.addr), h.value), 1);
            else
                append_as_hop(p, h.loose, static_cast<uint16_t>(h.value));
        }
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_xro(p);
        ASSERT_EQ(rsvp_add_xro_ipv4_subobj(p, 0, ip("10.0.45.0"), 24, 0), 1);
        ASSERT_EQ(rsvp_add_xro_unnum_ifid_subobj(p, 1, 1, ip("10.0.0.5"), 2), 1);
        ASSERT_EQ(rsvp_add_xro_srlg_subobj(p, 0, 300), 1);
        ASSERT_EQ(rsvp_add_xro_lsp_subobj(p, 1, 2, 0, 7, 3, ip("10.0.0.1"), ip("10.0.0.9"),
                                          ip("10.0.0.1")),
                  1);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_record_route(p);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_msg_hdr(kPath, 64, static_cast<uint16_t>(p - msg), 0, msg);
    }

    uint8_t *find(uint8_t class_num) {
        return rsvp_first_object_type(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg), RSVP_MESSAGE_OBJ_LEN(msg),
                                      class_num);
    }

    // Every object of the message, in order, after checking that each one validates.
    std::vector<uint8_t *> objects() {
        std::vector<uint8_t *> out;
        uint8_t *obj = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg);
        uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
        for (; obj; obj = rsvp_next_nonnull_object(obj, &remaining)) {
            EXPECT_EQ(rsvp_valid_object(obj), 1u) << "class " << RSVP_OBJECT_CLASS(obj);
            out.push_back(obj);
        }
        EXPECT_EQ(remaining, 0u);  // the walk stepped over the last object to the end
        return out;
    }

    uint8_t msg[1024] = {};
};

TEST_F(RoutesEndToEnd, ExplicitRouteIsWalkedCountedAndExtracted) {
    ASSERT_EQ(objects().size(), 4u);
    uint8_t *ero = find(RSVP_CLASS_EXPLICIT_ROUTE);
    ASSERT_NE(ero, nullptr);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(ero), 4 + 5 * 8 + 4 * 12 + 4);

    size_t i = 0;
    for (uint8_t *sub = rsvp_extract_ero_next_subobject(ero, nullptr); sub;
         sub = rsvp_extract_ero_next_subobject(ero, sub), ++i) {
        ASSERT_LT(i, std::size(kHops));
        const Hop &h = kHops[i];
        SCOPED_TRACE(i);
        EXPECT_EQ((RSVP_ERO_GENERIC_TYPE(sub) & RSVP_ERO_L_BIT) != 0, h.loose);
        uint32_t addr = 0, if_id = 0;
        uint8_t prefix_len = 0;
        uint16_t as = 0;
        EXPECT_EQ(rsvp_extract_ero_subobject_ipv4(sub, &addr, &prefix_len), h.kind == kIpv4);
        EXPECT_EQ(rsvp_extract_ero_subobject_unnum(sub, &addr, &if_id), h.kind == kUnnum);
        EXPECT_EQ(rsvp_extract_ero_subobject_as(sub, &as), h.kind == kAs);
        if (h.kind != kAs) {
            EXPECT_EQ(addr, ip(h.addr));
        }
        EXPECT_EQ(h.kind == kIpv4 ? prefix_len : h.kind == kUnnum ? if_id : as, h.value);
    }
    EXPECT_EQ(i, std::size(kHops));
    // Strict hops only: 10.0.12.2, 10.0.34.4, 10.0.67.7 and three unnumbered ones.
    EXPECT_EQ(rsvp_count_ero_subobject_ipv4(ero), 3u);
    EXPECT_EQ(rsvp_count_ero_subobject_unnum(ero), 3u);
    EXPECT_EQ(RSVP_ERO_FIRST_SUBOBJ(ero), ero + RSVP_OBJ_HDR_LEN);
}

TEST_F(RoutesEndToEnd, RecordRouteGrowsAtTheFrontAndReadsBackNewestFirst) {
    // Transit nodes 1..4 each record label, then SRLGs, then their address at the front, so
    // that a node reads as address, SRLGs, label; node 4 comes first.
    uint8_t *rro = find(RSVP_CLASS_RECORD_ROUTE);
    ASSERT_NE(rro, nullptr);
    for (uint32_t node = 1; node <= 4; ++node) {
        const uint16_t before = RSVP_OBJECT_LENGTH(rro);
        const uint32_t label = 1000 + node;
        const uint32_t srlgs[] = {100 + node, 200 + node};
        ASSERT_EQ(rsvp_insert_record_route_label(rro, &label, 1, 1, RSVP_RRO_LABEL_FLAG_GLOBAL),
                  rro);
        ASSERT_EQ(rsvp_insert_record_route_srlg(rro, srlgs, 2), rro);
        const uint8_t flags = node == 2 ? RSVP_RRO_FLAG_LOCAL_PROT_AVAIL : 0;
        if (node % 2)
            ASSERT_EQ(rsvp_insert_record_route_ipv4(rro, node_addr(node), flags), rro);
        else
            ASSERT_EQ(rsvp_insert_record_route_unnum(rro, node_addr(node), node, flags), rro);
        RSVP_SET_MESSAGE_LENGTH(msg, static_cast<uint16_t>(RSVP_MESSAGE_LENGTH(msg) +
                                                           RSVP_OBJECT_LENGTH(rro) - before));
        ASSERT_EQ(objects().size(), 4u);
    }

    uint8_t *sub = nullptr;
    for (uint32_t node = 4; node >= 1; --node) {
        SCOPED_TRACE(node);
        uint32_t addr = 0, if_id = 0, values[RSVP_RRO_MAX_VALUES] = {}, *labels = values;
        uint8_t prefix_len = 0, flags = 0, count = 0, c_type = 0;
        sub = rsvp_extract_rro_next_subobject(rro, sub);
        if (node % 2)
            EXPECT_EQ(rsvp_extract_rro_subobject_ipv4(sub, &addr, &prefix_len, &flags), 1);
        else
            EXPECT_EQ(rsvp_extract_rro_subobject_unnum(sub, &addr, &if_id, &flags), 1);
        EXPECT_EQ(std::tuple(addr, prefix_len, if_id, flags),
                  std::tuple(node_addr(node), node % 2 ? 32 : 0, node % 2 ? 0 : node,
                             node == 2 ? RSVP_RRO_FLAG_LOCAL_PROT_AVAIL : 0));
        sub = rsvp_extract_rro_next_subobject(rro, sub);
        EXPECT_EQ(rsvp_extract_rro_subobject_srlg(sub, values, &count), 1);
        EXPECT_EQ(std::tuple(count, values[0], values[1]), std::tuple(2, 100 + node, 200 + node));
        sub = rsvp_extract_rro_next_subobject(rro, sub);
        EXPECT_EQ(rsvp_extract_rro_subobject_label(sub, &labels, &count, &flags, &c_type), 1);
        EXPECT_EQ(std::tuple(count, values[0], flags, c_type),
                  std::tuple(1, 1000 + node, RSVP_RRO_LABEL_FLAG_GLOBAL, 1));
    }
    EXPECT_EQ(rsvp_extract_rro_next_subobject(rro, sub), nullptr);
    EXPECT_EQ(rsvp_count_rro_subobject_ipv4(rro), 2u);
    EXPECT_EQ(rsvp_count_rro_subobject_unnum(rro), 2u);
    EXPECT_EQ(rsvp_rro_check_unnum_flags(rro, RSVP_RRO_FLAG_LOCAL_PROT_AVAIL), 1);
    EXPECT_EQ(rsvp_rro_check_ipv4_flags(rro, RSVP_RRO_FLAG_LOCAL_PROT_AVAIL), 0);
}

TEST_F(RoutesEndToEnd, ExcludeRouteHoldsOneSubobjectOfEachKind) {
    uint8_t *xro = find(RSVP_CLASS_EXCLUDE_ROUTE);
    ASSERT_NE(xro, nullptr);
    EXPECT_EQ(rsvp_xro_subobj_count(xro), 4u);
    uint8_t *sub[4] = {rsvp_get_xro_next_sub_hdr(xro, nullptr)};
    for (int i = 1; i < 4; ++i)
        sub[i] = rsvp_get_xro_next_sub_hdr(xro, sub[i - 1]);
    EXPECT_EQ(std::tuple(RSVP_XRO_SUB_TYPE(sub[0]), RSVP_XRO_SUB_TYPE(sub[1]),
                         RSVP_XRO_SUB_TYPE(sub[2]), RSVP_XRO_SUB_TYPE(sub[3])),
              std::tuple(RSVP_XRO_SUBOBJ_IPV4_PREFIX, RSVP_XRO_SUBOBJ_UNNUM, RSVP_XRO_SUBOBJ_SRLG,
                         RSVP_XRO_SUBOBJ_LSP));
    uint8_t l_bit = 9, attr = 9, prefix_len = 0, flags = 9;
    uint32_t a = 0, b = 0, c = 0;
    uint16_t tunnel_id = 0, lsp_id = 0;
    EXPECT_EQ(rsvp_extract_xro_ipv4_subobj(sub[0], &l_bit, &a, &prefix_len, &attr), 1);
    EXPECT_EQ(std::tuple(l_bit, a, prefix_len, attr), std::tuple(0, ip("10.0.45.0"), 24, 0));
    EXPECT_EQ(rsvp_extract_xro_unnum_ifid_subobj(sub[1], &l_bit, &attr, &a, &b), 1);
    EXPECT_EQ(std::tuple(l_bit, attr, a, b), std::tuple(1, 1, ip("10.0.0.5"), 2u));
    EXPECT_EQ(rsvp_extract_xro_srlg_subobj(sub[2], &l_bit, &a), 1);
    EXPECT_EQ(std::tuple(l_bit, a), std::tuple(0, 300u));
    EXPECT_EQ(
        rsvp_extract_xro_lsp_subobj(sub[3], &l_bit, &attr, &flags, &tunnel_id, &lsp_id, &a, &b, &c),
        1);
    EXPECT_EQ(std::tuple(l_bit, attr, flags, tunnel_id, lsp_id, a, b, c),
              std::tuple(1, 2, 0, 7, 3, ip("10.0.0.1"), ip("10.0.0.9"), ip("10.0.0.1")));
    EXPECT_EQ(rsvp_get_xro_next_sub_hdr(xro, sub[3]), nullptr);
}

}  // namespace
