// The text unit: message type names, session kinds, flow strings, label and SRLG text, and the
// interface and address predicates.
#include <gtest/gtest.h>

#include <string>

#include "rsvp_lib_util.h"
#include "rsvp_object_lib.h"
#include "test_util.hpp"

namespace {

using rsvp_test::Bytes;
using rsvp_test::concat;
using rsvp_test::hex;

TEST(LibUtil, MessageTypeNames) {
    const struct {
        int32_t type;
        const char *name;
    } rows[] = {{1, "Path"},
                {2, "Resv"},
                {3, "PathError"},
                {4, "ResvError"},
                {5, "PathTear"},
                {6, "ResvTear"},
                {7, "ResvConfirm"},
                {12, "Bundle"},
                {13, "Ack"},
                {15, "SummaryRefresh"},
                {20, "Hello"},
                {25, "Challenge"},
                {26, "ChallengeResponse"},
                {66, "DSBM-Willing"},
                {67, "I_AM_DSBM"},
                {0, "Unknown (type 0)"},
                {8, "Unknown (type 8)"},
                {68, "Unknown (type 68)"},
                {-1, "Unknown (type 4294967295)"}};  // through %u, kept so
    for (const auto &r : rows) {
        SCOPED_TRACE(r.type);
        EXPECT_STREQ(rsvp_msg_type_string(r.type), r.name);
    }
    EXPECT_EQ(rsvp_msg_type_string(1), rsvp_msg_type_string(2));  // one static buffer
    EXPECT_STREQ(rsvp_msg_type_string_v2(1, 0), "Path message");
    EXPECT_STREQ(rsvp_msg_type_string_v2(99, 5), "Unknown (type 99) sub-message");
    EXPECT_NE(rsvp_msg_type_string_v2(1, 0), rsvp_msg_type_string(1));
}

// SESSION objects: IPv4 10.0.0.2 protocol 17 port 53; LSP tunnel 192.0.2.9 tunnel 7; UNI
// 10.0.0.2 tunnel 5; P2MP id 1 tunnel 2; an IPv6 session.
const Bytes kSessIp = hex("00 0c 01 01  0a 00 00 02  11 00 00 35");
const Bytes kSessLsp = hex("00 10 01 07  c0 00 02 09  00 00 00 07  c0 00 02 01");
const Bytes kSessUni = hex("00 10 01 09  0a 00 00 02  00 00 00 05  0a 00 00 09");
const Bytes kSessP2mp = hex("00 10 01 0d  00 00 00 01  00 00 00 02  0a 00 00 09");
const Bytes kSessV6 =
    hex("00 18 01 02  20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01"
        "06 00 00 50");
const Bytes kSessP2mpMax = hex("00 10 01 0d  ff ff ff ff  00 00 ff ff  ff ff ff fe");
// Senders and filters: IPv4 10.0.0.1 port 99; LSP 192.0.2.1 id 3; P2MP 10.0.0.1 id 3, sub-group
// 10.0.0.5 id 4 (and all ones); an IPv4 filter 10.0.0.7 port 8; S2L destinations.
const Bytes kTmplIp = hex("00 0c 0b 01  0a 00 00 01  00 00 00 63");
const Bytes kTmplLsp = hex("00 0c 0b 07  c0 00 02 01  00 00 00 03");
const Bytes kTmplP2mp = hex("00 14 0b 0c  0a 00 00 01  00 00 00 03  0a 00 00 05  00 00 00 04");
const Bytes kTmplP2mpMax = hex("00 14 0b 0c  ff ff ff ff  00 00 ff ff  ff ff ff ff  00 00 ff ff");
const Bytes kFilterIp = hex("00 0c 0a 01  0a 00 00 07  00 00 00 08");
const Bytes kS2l = hex("00 08 32 01  0a 00 00 63");
const Bytes kS2lMax = hex("00 08 32 01  ff ff ff ff");

TEST(LibUtil, FlowString) {
    const struct {
        Bytes objects;
        std::string text;
    } rows[] = {
        {concat({kSessIp, kTmplIp}), "10.0.0.2(17:53) <- 10.0.0.1(99)"},
        {concat({kTmplLsp, kSessLsp}), "192.0.2.9(LSP:7) <- 192.0.2.1(3)"},
        {kSessIp, "10.0.0.2(17:53) <- Wildcard sender"},
        {concat({kSessUni, kFilterIp}), "10.0.0.2(OUNI:5) <- 10.0.0.7(8)"},
        {concat({kSessIp, kFilterIp, kTmplIp}), "10.0.0.2(17:53) <- 10.0.0.1(99)"},
        {concat({kSessP2mp, kTmplP2mp, kS2l}),
         "10.0.0.99(P2MP sub-LSP:1:2) <- 10.0.0.1(3:10.0.0.5:4)"},
        {concat({kSessP2mp}), "0.0.0.0(P2MP sub-LSP:1:2) <- Wildcard sender"},
        // Not an IPv4 kind: the protocol piece, read as 0 like the address and port.
        {kSessV6, "0.0.0.0(0:0) <- Wildcard sender"},
        {kTmplIp, "NULL SESSION"},
        {concat({kSessP2mpMax, kS2lMax, kTmplP2mpMax}),
         std::string("255.255.255.255(P2MP sub-LSP:4294967295:65535) <- 255.255.255.255(65535")
             .substr(0, 63)},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.text);
        auto h = rsvp_test::heap_copy(r.objects);
        EXPECT_EQ(rsvp_lib_util_flow_str(h.data(), h.size), r.text);
    }
    auto h = rsvp_test::heap_copy(kSessIp);
    EXPECT_STREQ(rsvp_lib_util_flow_str(h.data(), 0), "");
    EXPECT_STREQ(rsvp_lib_util_flow_str(nullptr, 12), "");
}

TEST(LibUtil, SessionTypeString) {
    const struct {
        const Bytes *session;
        const char *text;
        int result;
        uint16_t port;
        uint32_t id;
    } rows[] = {
        {&kSessLsp, "IPv4_LSP", 1, 7, rsvp_test::ip("192.0.2.1")},
        {&kSessUni, "OUNI_LSP", 1, 5, rsvp_test::ip("10.0.0.9")},
        {&kSessP2mp, "P2MP_SUB_LSP", 1, 2, rsvp_test::ip("10.0.0.9")},
        {&kSessIp, "IP_IPv4", 0, 53, 17},
        {&kSessV6, "Unknown", 0, 0xAAAA, 0xAAAAAAAA},  // outputs untouched
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.text);
        auto h = rsvp_test::heap_copy(*r.session);
        char text[64];
        memset(text, 'z', sizeof text);
        uint16_t port = 0xAAAA;
        uint32_t id = 0xAAAAAAAA;
        EXPECT_EQ(rsvp_lib_util_session_typestring(h.data(), text, &port, &id), r.result);
        EXPECT_STREQ(text, r.text);
        EXPECT_EQ(port, r.port);
        EXPECT_EQ(id, r.id);
        EXPECT_EQ(rsvp_lib_util_session_typestring(h.data(), text, nullptr, nullptr), r.result);
    }
}

TEST(LibUtil, LabelObjectText) {
    const struct {
        Bytes obj;
        const char *text;
    } rows[] = {
        {hex("00 08 10 01 00 00 00 10"), "0x00000010"},
        {hex("00 0c 10 01 00 00 00 10 00 00 00 00"), "Invalid MPLS label"},
        {hex("00 08 10 03 00 00 00 10"), "Invalid label type"},
        {hex("00 08 24 02 00 00 00 10"), "Invalid GMPLS label class"},
        // A valid generalized label renders as "Invalid label", kept so on purpose.
        {hex("00 08 10 02 00 00 00 10"), "Invalid label"},
        {hex("00 08 23 02 00 00 00 10"), "Invalid label"},
        {hex("00 08 81 02 00 00 00 10"), "Invalid label"},
        {hex("00 08 22 02 00 00 00 10"), "Invalid label"},
        {hex("00 03 10 02"), "Invalid GMPLS label"},
        {hex("00 03 23 02"), "Invalid upstream label"},
        {hex("00 03 81 02"), "Invalid suggested label"},
        {hex("00 03 22 02"), "Invalid recovery label"},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.text);
        auto h = rsvp_test::heap_copy(r.obj);
        EXPECT_STREQ(rsvp_label_gen_str(h.data()), r.text);
    }
    EXPECT_STREQ(rsvp_label_gen_str(nullptr), "Invalid label type");
}

TEST(LibUtil, LabelRing) {
    const uint32_t labels[] = {0x10, 0xff, 3, 4, 5, 6};
    const char *first = rsvp_enc_label_gen_str(labels, 1);
    EXPECT_STREQ(rsvp_enc_label_gen_str(nullptr, 1), "Invalid label");
    EXPECT_STREQ(rsvp_enc_label_gen_str(labels, 0), "Invalid label");
    const char *later[9];
    for (const char *&p : later)
        EXPECT_NE(p = rsvp_enc_label_gen_str(labels, 2), first);
    EXPECT_STREQ(first, "0x00000010");  // survives nine further results
    EXPECT_EQ(rsvp_enc_label_gen_str(labels, 1), first);
    // The fifth label leaves only its blank; the sixth finds no room at all and writes
    // nothing, not even into the next slot, whose result is still owed its life.
    const char *kFive = "0x00000010 000000ff 00000003 00000004 ";
    EXPECT_STREQ(rsvp_enc_label_gen_str(labels, 5), kFive);
    EXPECT_STREQ(rsvp_enc_label_gen_str(labels, 6), kFive);
    EXPECT_STREQ(later[2], "0x00000010 000000ff");
}

TEST(LibUtil, SrlgRing) {
    const uint32_t ids[] = {1, 20, 300};
    const char *first = rsvp_enc_srlg_gen_str(ids, 3);
    EXPECT_STREQ(first, "1 20 300");
    EXPECT_STREQ(rsvp_enc_srlg_gen_str(ids, 0), "Invalid SRLG list");
    EXPECT_STREQ(rsvp_enc_srlg_gen_str(nullptr, 3), "Invalid SRLG list");
    const uint32_t two[] = {4294967295u, 7};
    const char *later[9];
    for (const char *&p : later)
        EXPECT_NE(p = rsvp_enc_srlg_gen_str(two, 2), first);
    EXPECT_EQ(rsvp_enc_srlg_gen_str(ids, 1), first);
    // 255 ten-digit identifiers: 62 fit in 681 characters, then the size left is spent and
    // nothing spills into the next slot, whose result is still owed its life.
    std::vector<uint32_t> big(255, 4294967295u);
    std::string expect = "4294967295";
    for (int i = 1; i < 62; ++i)
        expect += " 4294967295";
    EXPECT_EQ(rsvp_enc_srlg_gen_str(big.data(), 255), expect);
    EXPECT_STREQ(later[1], "4294967295 7");
}

TEST(LibUtil, InterfaceAndAddressPredicates) {
    EXPECT_STREQ(rsvp_lib_util_get_all_if_name(), "All RSVP Interfaces");
    EXPECT_EQ(rsvp_lib_util_is_all_intf("All RSVP Interfaces"), 1);
    EXPECT_EQ(rsvp_lib_util_is_all_intf("All RSVP Interfaces "), 0);
    EXPECT_EQ(rsvp_lib_util_is_all_intf("all RSVP Interfaces"), 0);
    EXPECT_EQ(rsvp_lib_util_is_dummy_intf("None"), 1);
    EXPECT_EQ(rsvp_lib_util_is_dummy_intf("Non"), 0);
    const struct {
        rsvp_ip_addr_t rec;
        int valid, routerid;
    } rows[] = {{{2, 4, rsvp_test::ip("10.1.2.3")}, 1, 1},
                {{2, 4, 0}, 1, 0},
                {{2, 4, 0xFFFFFFFFu}, 1, 0},
                {{2, 4, 0xFFFFFFFEu}, 1, 1},
                {{2, 16, 5}, 0, 0},
                {{1, 4, 5}, 0, 0}};
    for (const auto &r : rows) {
        SCOPED_TRACE(r.rec.address);
        EXPECT_EQ(rsvp_ip_valid(&r.rec), r.valid);
        EXPECT_EQ(rsvp_ip_valid_routerid(&r.rec), r.routerid);
        uint32_t out = 77;
        EXPECT_EQ(rsvp_ip_to_in(&r.rec, &out), r.valid);
        EXPECT_EQ(out, r.valid ? r.rec.address : 77u);
    }
    EXPECT_EQ(rsvp_ip_valid(nullptr), 0);
    for (uint32_t kind = 0; kind < 4; ++kind) {
        rsvp_link_id_t id{};
        id.kind = kind;
        EXPECT_EQ(rsvp_lib_util_is_link_id_set(&id), kind != 0);
        EXPECT_EQ(rsvp_lib_util_is_link_id_ipv4(&id), kind == 1);
        EXPECT_EQ(rsvp_lib_util_is_link_id_unnum(&id), kind == 2);
    }
}

TEST(LibUtilDeathTest, NullArgumentsAssertWithTheirLines) {
    rsvp_ip_addr_t rec{2, 4, 1};
    EXPECT_DEATH(rsvp_lib_util_get_if_name(1, 1, nullptr), "line 90\n");
    EXPECT_DEATH(rsvp_lib_util_is_dummy_intf(nullptr), "line 226\n");
    EXPECT_DEATH(rsvp_ip_to_in(&rec, nullptr), "line 426\n");
    EXPECT_DEATH(rsvp_lib_util_is_all_intf(nullptr), "line 509\n");
}

}  // namespace
