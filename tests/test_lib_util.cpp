// The text unit: message type names, session kinds, flow strings, label and SRLG text, and the
// interface and address predicates.
#include <gtest/gtest.h>

#include <string>

#include "rsvp_lib_util.h"
#include "test_util.hpp"

namespace {

using rsvp_test::Bytes;
using rsvp_test::hex;

TEST(LibUtil, MessageTypeNames) {
    std::string named;
    for (int32_t t = -1; t <= 70; ++t)
        if (std::string(rsvp_msg_type_string(t)) != "Unknown (type " + std::to_string(t) + ")")
            named += std::to_string(t) + rsvp_msg_type_string(t) + " ";
    EXPECT_EQ(named,
              "-1Unknown (type 4294967295) 1Path 2Resv 3PathError 4ResvError 5PathTear 6ResvTear "
              "7ResvConfirm 12Bundle 13Ack 15SummaryRefresh 20Hello 25Challenge "
              "26ChallengeResponse 66DSBM-Willing 67I_AM_DSBM ");
    EXPECT_STREQ(rsvp_msg_type_string_v2(1, 0), "Path message");
    EXPECT_STREQ(rsvp_msg_type_string_v2(99, 5), "Unknown (type 99) sub-message");
}

// SESSION: IPv4 10.0.0.2 protocol 17 port 53; LSP tunnel 192.0.2.9 id 7; UNI 10.0.0.2 id 5;
// P2MP id 1 tunnel 2 (and all ones); IPv6. SENDER_TEMPLATE: IPv4 10.0.0.1 port 99; LSP
// 192.0.2.1 id 3; P2MP 10.0.0.1 id 3 sub-group 10.0.0.5 id 4 (and all ones). FILTER_SPEC
// 10.0.0.7 port 8. S2L_SUB_LSP 10.0.0.99 (and all ones).
const char *kSessIp = "000c0101 0a000002 11000035 ", *kTmplIp = "000c0b01 0a000001 00000063 ";
const char *kSessLsp = "00100107 c0000209 00000007 c0000201 ";
const char *kSessUni = "00100109 0a000002 00000005 0a000009 ";
const char *kSessP2mp = "0010010d 00000001 00000002 0a000009 ";
const char *kSessV6 = "00180102 20010db8 00000000 00000000 00000001 06000050 ";
const char *kTmplLsp = "000c0b07 c0000201 00000003 ", *kFilterIp = "000c0a01 0a000007 00000008 ";
const char *kTmplP2mp = "00140b0c 0a000001 00000003 0a000005 00000004 ";

Bytes run(std::initializer_list<const char *> parts) {
    std::string all;
    for (const char *p : parts)
        all += p;
    return hex(all.c_str());
}

TEST(LibUtil, FlowString) {
    const struct {
        Bytes objects;
        std::string text;
    } rows[] = {
        {run({kSessIp, kTmplIp}), "10.0.0.2(17:53) <- 10.0.0.1(99)"},
        {run({kTmplLsp, kSessLsp}), "192.0.2.9(LSP:7) <- 192.0.2.1(3)"},
        {run({kSessUni, kFilterIp}), "10.0.0.2(OUNI:5) <- 10.0.0.7(8)"},
        {run({kSessIp, kFilterIp, kTmplIp}), "10.0.0.2(17:53) <- 10.0.0.1(99)"},
        {run({kSessP2mp, kTmplP2mp, "00083201 0a000063"}),
         "10.0.0.99(P2MP sub-LSP:1:2) <- 10.0.0.1(3:10.0.0.5:4)"},
        {run({kSessP2mp}), "0.0.0.0(P2MP sub-LSP:1:2) <- Wildcard sender"},
        {run({kSessV6}), "0.0.0.0(0:0) <- Wildcard sender"},  // any other kind: protocol id
        {run({kTmplIp}), "NULL SESSION"},
        {run({"0010010d ffffffff 0000ffff fffffffe 00083201 ffffffff",
              "00140b0c ffffffff 0000ffff ffffffff 0000ffff"}),
         "255.255.255.255(P2MP sub-LSP:4294967295:65535) <- 255.255.255.255(65535"},
    };
    for (const auto &r : rows) {
        auto h = rsvp_test::heap_copy(r.objects);
        EXPECT_EQ(rsvp_lib_util_flow_str(h.data(), h.size), r.text.substr(0, 63));
    }
    EXPECT_STREQ(rsvp_lib_util_flow_str(hex(kSessIp).data(), 0), "");
}

// Kind, result, port and id; the outputs stay untouched (as 9) for an unknown kind.
TEST(LibUtil, SessionTypeStringAndLabelText) {
    const char *rows[][2] = {{kSessLsp, "IPv4_LSP 1 7 c0000201"},
                             {kSessUni, "OUNI_LSP 1 5 0a000009"},
                             {kSessP2mp, "P2MP_SUB_LSP 1 2 0a000009"},
                             {kSessIp, "IP_IPv4 0 53 11000000"},
                             {kSessV6, "Unknown 0 9 09000000"}};
    for (const auto &r : rows) {
        auto h = rsvp_test::heap_copy(hex(r[0]));
        char text[64], got[128];
        uint16_t port = 9;
        uint32_t id = 9;
        const int result = rsvp_lib_util_session_typestring(h.data(), text, &port, &id);
        std::snprintf(got, sizeof got, "%s %d %u %08x", text, result, port, htonl(id));
        EXPECT_STREQ(got, r[1]);
    }
    const char *labels[][2] = {
        {"00081001 00000010", "0x00000010"},
        {"000c1001 00000010 00000000", "Invalid MPLS label"},
        {"00081003 00000010", "Invalid label type"},
        {"00082402 00000010", "Invalid GMPLS label class"},
        {"00081002 00000010", "Invalid label"},  // a valid generalized label, kept so
        {"00031002", "Invalid GMPLS label"},
        {"00032302", "Invalid upstream label"},
        {"00038102", "Invalid suggested label"},
        {"00032202", "Invalid recovery label"}};
    for (const auto &r : labels) {
        auto h = rsvp_test::heap_copy(hex(r[0]));
        EXPECT_STREQ(rsvp_label_gen_str(h.data()), r[1]) << r[0];
    }
}

// A ring result survives nine further results; a fifth label keeps only its blank and a sixth
// finds no room in the slot.
TEST(LibUtil, LabelRing) {
    const uint32_t labels[] = {0x10, 0xff, 3, 4, 5, 6};
    const char *first = rsvp_enc_label_gen_str(labels, 6);
    EXPECT_STREQ(rsvp_enc_label_gen_str(labels, 0), "Invalid label");  // ring untouched
    for (int i = 0; i < 9; ++i)
        EXPECT_NE(rsvp_enc_label_gen_str(labels, 2), first);
    EXPECT_STREQ(first, "0x00000010 000000ff 00000003 00000004 ");
    EXPECT_EQ(rsvp_enc_label_gen_str(labels, 1), first);
    EXPECT_STREQ(first, "0x00000010");
}

TEST(LibUtil, SrlgRing) {
    const uint32_t ids[] = {1, 20, 300}, two[] = {4294967295u, 7};
    const char *first = rsvp_enc_srlg_gen_str(ids, 3), *later[9];
    EXPECT_STREQ(rsvp_enc_srlg_gen_str(ids, 0), "Invalid SRLG list");  // ring untouched
    for (const char *&p : later)
        EXPECT_NE(p = rsvp_enc_srlg_gen_str(two, 2), first);
    EXPECT_STREQ(first, "1 20 300");
    EXPECT_EQ(rsvp_enc_srlg_gen_str(ids, 1), first);
    std::vector<uint32_t> big(255, 4294967295u);  // 62 fit in 681 characters
    std::string expect = "4294967295";
    for (int i = 1; i < 62; ++i)
        expect += " 4294967295";
    EXPECT_EQ(rsvp_enc_srlg_gen_str(big.data(), 255), expect);
    EXPECT_STREQ(later[1], "4294967295 7");
}

TEST(LibUtil, InterfaceAndAddressPredicates) {
    EXPECT_STREQ(rsvp_lib_util_get_all_if_name(), "All RSVP Interfaces");
    EXPECT_EQ(
        rsvp_lib_util_is_all_intf("All RSVP Interfaces") + rsvp_lib_util_is_dummy_intf("None"), 2);
    EXPECT_EQ(
        rsvp_lib_util_is_all_intf("All RSVP Interfaces ") + rsvp_lib_util_is_dummy_intf("Non"), 0);
    // valid, router id, converted, output untouched; then link id set, IPv4, unnumbered
    const rsvp_ip_addr_t rows[] = {
        {2, 4, 0x0302010a}, {2, 4, 0}, {2, 4, 0xFFFFFFFFu}, {2, 16, 5}, {1, 4, 5}};
    std::string got;
    for (const rsvp_ip_addr_t &r : rows) {
        uint32_t out = 77;
        const int converted = rsvp_ip_to_in(&r, &out);
        got += std::to_string(rsvp_ip_valid(&r)) + std::to_string(rsvp_ip_valid_routerid(&r)) +
               std::to_string(converted) + std::to_string(out == 77) + " ";
    }
    for (uint32_t kind = 0; kind < 4; ++kind) {
        const rsvp_link_id_t id{kind, {}};
        got += std::to_string(rsvp_lib_util_is_link_id_set(&id)) +
               std::to_string(rsvp_lib_util_is_link_id_ipv4(&id)) +
               std::to_string(rsvp_lib_util_is_link_id_unnum(&id)) + " ";
    }
    EXPECT_EQ(got, "1110 1010 1010 0001 0001 000 110 101 100 ");
}

TEST(LibUtilDeathTest, NullArgumentsAssertWithTheirLines) {
    rsvp_ip_addr_t rec{2, 4, 1};
    EXPECT_DEATH(rsvp_lib_util_get_if_name(1, 1, nullptr), "line 90\n");
    EXPECT_DEATH(rsvp_lib_util_is_dummy_intf(nullptr), "line 226\n");
    EXPECT_DEATH(rsvp_ip_to_in(&rec, nullptr), "line 426\n");
    EXPECT_DEATH(rsvp_lib_util_is_all_intf(nullptr), "line 509\n");
}

}  // namespace
