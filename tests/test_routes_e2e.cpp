// An LSP signalled end to end: the head end builds a Path whose EXPLICIT_ROUTE names ten hops
// and whose EXCLUDE_ROUTE names one resource of each kind; each transit node records itself at
// the front of the RECORD_ROUTE, the last object of the message; the tail end reads it all.
// The rules of each object are pinned by its own test; this one reads back what was written.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

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

// Router ID of transit node n (10.0.0.n) and the protection flags it records.
uint32_t node_addr(uint32_t n) {
    return ip(("10.0.0." + std::to_string(n)).c_str());
}
const uint8_t kNodeFlags[] = {0, 0, RSVP_RRO_FLAG_LOCAL_PROT_AVAIL, RSVP_RRO_FLAG_NODE_PROT, 0, 0};

}  // namespace

TEST(RoutesEndToEnd, PathCarriesExplicitExcludeAndRecordRoutes) {
    // Head end: SESSION, EXPLICIT_ROUTE, EXCLUDE_ROUTE, then an empty RECORD_ROUTE.
    uint8_t msg[512] = {};
    uint8_t *p = msg + RSVP_MSG_HDR_LEN;
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.9"), 1, ip("10.0.0.1"));
    p += RSVP_OBJECT_LENGTH(p);
    uint8_t *ero = p;
    rsvp_build_explicit_route(p);
    for (const Hop &h : kHops) {
        const uint16_t len = RSVP_OBJECT_LENGTH(p);
        if (h.kind == kIpv4) {
            ASSERT_EQ(rsvp_add_explicit_route_ipv4(p, h.loose, ip(h.addr), h.value), 1);
        } else if (h.kind == kUnnum) {
            ASSERT_EQ(rsvp_add_explicit_route_unnum(p, h.loose, ip(h.addr), h.value), 1);
        } else {  // no builder writes an AS hop: written by hand behind the route
            const Bytes as = hex("a0 04 fd f2");  // loose, AS 65010
            std::copy(as.begin(), as.end(), p + len);
            RSVP_SET_OBJECT_LENGTH(p, static_cast<uint16_t>(len + as.size()));
        }
    }
    p += RSVP_OBJECT_LENGTH(p);
    uint8_t *xro = p;
    rsvp_build_xro(p);
    ASSERT_EQ(rsvp_add_xro_ipv4_subobj(p, 0, ip("10.0.45.0"), 24, 3), 1);
    ASSERT_EQ(rsvp_add_xro_unnum_ifid_subobj(p, 1, 1, ip("10.0.0.5"), 2), 1);
    ASSERT_EQ(rsvp_add_xro_srlg_subobj(p, 0, 300), 1);
    ASSERT_EQ(
        rsvp_add_xro_lsp_subobj(p, 1, 2, 4, 7, 3, ip("10.0.0.3"), ip("10.0.0.9"), ip("10.0.3.3")),
        1);
    p += RSVP_OBJECT_LENGTH(p);
    uint8_t *rro = p;
    rsvp_build_record_route(p);
    p += RSVP_OBJECT_LENGTH(p);
    rsvp_build_msg_hdr(1 /* Path */, 64, static_cast<uint16_t>(p - msg), 0, msg);

    // Transit nodes 1..5 each record their label, then SRLGs, then their address at the front
    // (odd nodes an IPv4 address, even ones an unnumbered interface).
    for (uint32_t node = 1; node <= 5; ++node) {
        const uint16_t before = RSVP_OBJECT_LENGTH(rro);
        const uint32_t label = 1000 + node, srlgs[] = {100 + node, 200 + node};
        ASSERT_EQ(rsvp_insert_record_route_label(rro, &label, 1, 2, RSVP_RRO_LABEL_FLAG_GLOBAL),
                  rro);
        ASSERT_EQ(rsvp_insert_record_route_srlg(rro, srlgs, 2), rro);
        if (node % 2)
            ASSERT_EQ(rsvp_insert_record_route_ipv4(rro, node_addr(node), kNodeFlags[node]), rro);
        else
            ASSERT_EQ(rsvp_insert_record_route_unnum(rro, node_addr(node), node, kNodeFlags[node]),
                      rro);
        RSVP_SET_MESSAGE_LENGTH(msg, static_cast<uint16_t>(RSVP_MESSAGE_LENGTH(msg) +
                                                           RSVP_OBJECT_LENGTH(rro) - before));
    }

    // Tail end: every object validates and the walk over them ends exactly at the message end.
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg), objects = 0;
    for (uint8_t *o = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg); o;
         o = rsvp_next_nonnull_object(o, &remaining), ++objects)
        EXPECT_EQ(rsvp_valid_object(o), 1u) << "class " << +RSVP_OBJECT_CLASS(o);
    EXPECT_EQ(std::tuple(objects, remaining), std::tuple(4u, 0u));

    // The explicit route hop by hop; only strict hops are counted.
    size_t i = 0;
    for (uint8_t *sub = rsvp_extract_ero_next_subobject(ero, nullptr); sub;
         sub = rsvp_extract_ero_next_subobject(ero, sub), ++i) {
        ASSERT_LT(i, std::size(kHops));
        const Hop &h = kHops[i];
        SCOPED_TRACE(i);
        uint32_t addr = 0, value = 0;
        uint8_t prefix_len = 0;
        uint16_t as = 0;
        const int ok = h.kind == kIpv4    ? rsvp_extract_ero_subobject_ipv4(sub, &addr, &prefix_len)
                       : h.kind == kUnnum ? rsvp_extract_ero_subobject_unnum(sub, &addr, &value)
                                          : rsvp_extract_ero_subobject_as(sub, &as);
        const bool loose = RSVP_ERO_GENERIC_TYPE(sub) & RSVP_ERO_L_BIT;
        EXPECT_EQ(std::tuple(ok, loose, addr, value + prefix_len + as),  // one of the three
                  std::tuple(1, h.loose, h.addr ? ip(h.addr) : 0u, h.value));
    }
    EXPECT_EQ(i, std::size(kHops));
    EXPECT_EQ(rsvp_count_ero_subobject_ipv4(ero), 3u);  // 10.0.12.2, 10.0.34.4, 10.0.67.7
    EXPECT_EQ(rsvp_count_ero_subobject_unnum(ero), 3u);

    // The record route, newest node first: address, SRLGs, label.
    uint8_t *sub = nullptr;
    for (uint32_t node = 5; node >= 1; --node) {
        SCOPED_TRACE(node);
        uint32_t addr = 0, if_id = 0, values[RSVP_RRO_MAX_VALUES] = {}, *labels = values;
        uint8_t prefix_len = 0, flags = 0, count = 0, c_type = 0;
        sub = rsvp_extract_rro_next_subobject(rro, sub);
        const int ok = node % 2 ? rsvp_extract_rro_subobject_ipv4(sub, &addr, &prefix_len, &flags)
                                : rsvp_extract_rro_subobject_unnum(sub, &addr, &if_id, &flags);
        EXPECT_EQ(std::tuple(ok, addr, prefix_len, if_id, flags),
                  std::tuple(1, node_addr(node), node % 2 ? 32 : 0, node % 2 ? 0 : node,
                             kNodeFlags[node]));
        sub = rsvp_extract_rro_next_subobject(rro, sub);
        EXPECT_EQ(rsvp_extract_rro_subobject_srlg(sub, values, &count), 1);
        EXPECT_EQ(std::tuple(count, values[0], values[1]), std::tuple(2, 100 + node, 200 + node));
        sub = rsvp_extract_rro_next_subobject(rro, sub);
        EXPECT_EQ(rsvp_extract_rro_subobject_label(sub, &labels, &count, &flags, &c_type), 1);
        EXPECT_EQ(std::tuple(count, values[0], flags, c_type),
                  std::tuple(1, 1000 + node, RSVP_RRO_LABEL_FLAG_GLOBAL, 2));
    }
    EXPECT_EQ(rsvp_extract_rro_next_subobject(rro, sub), nullptr);
    EXPECT_EQ(rsvp_count_rro_subobject_ipv4(rro), 3u);
    EXPECT_EQ(rsvp_count_rro_subobject_unnum(rro), 2u);

    // The exclude route, one subobject of each kind in the order written.
    uint8_t l_bit = 9, attr = 9, prefix_len = 0, flags = 9;
    uint32_t a = 0, b = 0, c = 0;
    uint16_t tunnel_id = 0, lsp_id = 0;
    uint8_t *x = rsvp_get_xro_next_sub_hdr(xro, nullptr);
    EXPECT_EQ(rsvp_extract_xro_ipv4_subobj(x, &l_bit, &a, &prefix_len, &attr), 1);
    EXPECT_EQ(std::tuple(l_bit, a, prefix_len, attr), std::tuple(0, ip("10.0.45.0"), 24, 3));
    x = rsvp_get_xro_next_sub_hdr(xro, x);
    EXPECT_EQ(rsvp_extract_xro_unnum_ifid_subobj(x, &l_bit, &attr, &a, &b), 1);
    EXPECT_EQ(std::tuple(l_bit, attr, a, b), std::tuple(1, 1, ip("10.0.0.5"), 2u));
    x = rsvp_get_xro_next_sub_hdr(xro, x);
    EXPECT_EQ(rsvp_extract_xro_srlg_subobj(x, &l_bit, &a), 1);
    EXPECT_EQ(std::tuple(l_bit, a), std::tuple(0, 300u));
    x = rsvp_get_xro_next_sub_hdr(xro, x);
    EXPECT_EQ(
        rsvp_extract_xro_lsp_subobj(x, &l_bit, &attr, &flags, &tunnel_id, &lsp_id, &a, &b, &c), 1);
    EXPECT_EQ(std::tuple(l_bit, attr, flags, tunnel_id, lsp_id, a, b, c),
              std::tuple(1, 2, 4, 7, 3, ip("10.0.0.3"), ip("10.0.0.9"), ip("10.0.3.3")));
    EXPECT_EQ(rsvp_get_xro_next_sub_hdr(xro, x), nullptr);
}
