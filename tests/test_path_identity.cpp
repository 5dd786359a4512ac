// End to end: the identity of an RSVP-TE Path message (SESSION, RSVP_HOP, TIME_VALUES,
// SENDER_TEMPLATE) built with the library, walked, validated, searched and ordered the way a
// Path handler keys its state.
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

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

TEST(PathIdentity, BuildsTheExactMessage) {
    Bytes msg = build_path(1, ip("10.0.0.1"), 1);
    EXPECT_EQ(to_hex(msg), to_hex(hex("10 01 00 00 ff 00 00 38"  // Path, TTL 255, length 56
                                      "00 10 01 07 0a 00 00 03 00 00 00 01 0a 00 00 01"  // SESSION
                                      "00 0c 03 01 0a 00 0c 01 00 00 00 00"      // RSVP_HOP, LIH 0
                                      "00 08 05 01 00 00 75 30"                  // TIME_VALUES 30 s
                                      "00 0c 0b 07 0a 00 00 01 00 00 00 01")));  // SENDER_TEMPLATE
}

TEST(PathIdentity, WalksValidatesAndExtracts) {
    HeapBytes msg = heap_copy(build_path(1, ip("10.0.0.1"), 7));
    uint8_t *objs = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.data());
    const uint32_t obj_len = RSVP_MESSAGE_OBJ_LEN(msg.data());
    ASSERT_EQ(obj_len, 48u);
    std::vector<unsigned> classes;
    uint32_t remaining = obj_len;
    for (uint8_t *obj = objs; obj; obj = rsvp_next_nonnull_object(obj, &remaining)) {
        classes.push_back(RSVP_OBJECT_CLASS(obj));
        EXPECT_EQ(rsvp_valid_object(obj), 1u) << "class " << RSVP_OBJECT_CLASS(obj);
    }
    EXPECT_EQ(classes, (std::vector<unsigned>{RSVP_CLASS_SESSION, RSVP_CLASS_RSVP_HOP,
                                              RSVP_CLASS_TIME_VALUES, RSVP_CLASS_SENDER_TEMPLATE}));
    EXPECT_EQ(remaining, 0u);

    uint32_t end_point = 0, ext_id = 0, hop = 0, lih = 1, sender = 0;
    uint16_t tunnel_id = 0, lsp_id = 0;
    uint8_t *session = find(msg.data(), RSVP_CLASS_SESSION);
    ASSERT_EQ(rsvp_extract_session_lsp_tunnel_ipv4(session, &end_point, &tunnel_id, &ext_id), 1);
    EXPECT_EQ(end_point == ip("10.0.0.3") && tunnel_id == 1 && ext_id == ip("10.0.0.1"), true);
    ASSERT_EQ(rsvp_extract_hop_ipv4(find(msg.data(), RSVP_CLASS_RSVP_HOP), &hop, &lih), 1);
    EXPECT_EQ(hop == ip("10.0.12.1") && lih == 0, true);
    EXPECT_EQ(RSVP_REFRESH_TIME(find(msg.data(), RSVP_CLASS_TIME_VALUES)), 30000u);
    uint8_t *tmpl = find(msg.data(), RSVP_CLASS_SENDER_TEMPLATE);
    EXPECT_EQ(tmpl, msg.data() + 44);
    ASSERT_EQ(rsvp_extract_template_lsp_tunnel_ipv4(tmpl, &sender, &lsp_id), 1);
    EXPECT_EQ(sender == ip("10.0.0.1") && lsp_id == 7, true);
    // The SENDER_TEMPLATE stands behind the SESSION, not the other way round.
    EXPECT_EQ(rsvp_first_object_type_ordered(objs, obj_len, RSVP_CLASS_SESSION,
                                             RSVP_CLASS_SENDER_TEMPLATE),
              tmpl);
    EXPECT_EQ(rsvp_first_object_type_ordered(objs, obj_len, RSVP_CLASS_SENDER_TEMPLATE,
                                             RSVP_CLASS_SESSION),
              nullptr);
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
