// End to end: the identity of an RSVP-TE Path message (SESSION, RSVP_HOP, TIME_VALUES,
// SENDER_TEMPLATE) built with the library, then searched and ordered the way a Path handler
// keys its state. (Walking and validating such a message: test_traffic_e2e.)
#include <gtest/gtest.h>

#include <numeric>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

constexpr uint8_t kPathMsgType = 1;  // RFC 2205 message type of Path

// Lays the objects down one behind the other, then sets the final message length.
Bytes build_path(uint16_t tunnel_id, uint32_t ext_id, uint16_t lsp_id) {
    const size_t lengths[] = {RSVP_MSG_HDR_LEN, RSVP_SESSION_TUNNEL_IPV4_LEN, RSVP_HOP_IPV4_LEN,
                              RSVP_TIME_VALUES_LEN, RSVP_SENDER_IPV4_LEN};
    Bytes msg(std::accumulate(std::begin(lengths), std::end(lengths), size_t{0}));
    rsvp_build_msg_hdr(kPathMsgType, 255, 0, 0, msg.data());
    uint8_t *p = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.data());
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), tunnel_id, ext_id);
    p = rsvp_next_object(p);
    p = rsvp_next_object(rsvp_build_hop_ipv4(p, ip("10.0.12.1"), 0));
    p = rsvp_next_object(rsvp_build_refresh(p, 30000));
    rsvp_build_template_lsp_tunnel_ipv4(p, ip("10.0.0.1"), lsp_id);
    RSVP_SET_MESSAGE_LENGTH(msg.data(), static_cast<uint16_t>(rsvp_next_object(p) - msg.data()));
    return msg;
}

uint8_t *find(uint8_t *msg, uint8_t class_num) {
    return rsvp_first_object_type(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg), RSVP_MESSAGE_OBJ_LEN(msg),
                                  class_num);
}

}  // namespace

TEST(PathIdentity, BuildsAndSearches) {
    HeapBytes msg = heap_copy(build_path(1, ip("10.0.0.1"), 7));
    EXPECT_EQ(to_hex(msg.data(), msg.size),
              to_hex(hex("10 01 00 00 ff 00 00 38"  // Path, TTL 255, length 56
                         "00 10 01 07 0a 00 00 03 00 00 00 01 0a 00 00 01"  // SESSION
                         "00 0c 03 01 0a 00 0c 01 00 00 00 00"              // RSVP_HOP, LIH 0
                         "00 08 05 01 00 00 75 30"                          // TIME_VALUES 30 s
                         "00 0c 0b 07 0a 00 00 01 00 00 00 07")));  // SENDER_TEMPLATE, LSP 7
    // The SESSION and SENDER_TEMPLATE that key the path state, found where they stand.
    EXPECT_EQ(find(msg.data(), RSVP_CLASS_SESSION), msg.data() + RSVP_MSG_HDR_LEN);
    EXPECT_EQ(find(msg.data(), RSVP_CLASS_SENDER_TEMPLATE), msg.data() + 44);
}

// A re-routed LSP (make-before-break) keeps its session and signals a new LSP ID: the path
// state is found under the same session and told apart by the sender. An Extended Tunnel ID
// of 0 matches the session whatever its Extended Tunnel ID.
TEST(PathIdentity, OrdersSessionsAndSenders) {
    Bytes old_lsp = build_path(1, ip("10.0.0.1"), 1), new_lsp = build_path(1, ip("10.0.0.1"), 2);
    Bytes other_tunnel = build_path(2, ip("10.0.0.1"), 1), any_ext = build_path(1, 0, 1);
    auto ses = [](Bytes &m) { return find(m.data(), RSVP_CLASS_SESSION); };
    auto snd = [](Bytes &m) { return find(m.data(), RSVP_CLASS_SENDER_TEMPLATE); };
    EXPECT_EQ(rsvp_compare_sessions(ses(old_lsp), ses(new_lsp)), 0);
    EXPECT_EQ(rsvp_compare_templates(snd(old_lsp), snd(new_lsp)), -1);
    EXPECT_EQ(rsvp_compare_sessions(ses(other_tunnel), ses(old_lsp)), 1);
    EXPECT_EQ(rsvp_compare_templates(snd(other_tunnel), snd(old_lsp)), 0);
    EXPECT_EQ(rsvp_compare_sessions(ses(any_ext), ses(old_lsp)), 0);
}
