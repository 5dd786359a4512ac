// A SONET/SDH LSP signalled end to end: the head end asks for a TDM label, proposes an upstream
// and a suggested label and restricts the choice with a LABEL_SET; the tail end answers with a
// generalized LABEL naming two time slots. Each message is walked and validated as a whole, and
// its label objects are found and read back.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// Walks the message's objects, validating each; returns the count of objects per class.
std::map<unsigned, int> walk(uint8_t *msg) {
    std::map<unsigned, int> seen;
    uint8_t *first = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg);
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    for (uint8_t *o = first; o; o = rsvp_next_nonnull_object(o, &remaining)) {
        EXPECT_EQ(rsvp_valid_object(o), 1u) << "class " << RSVP_OBJECT_CLASS(o);
        ++seen[RSVP_OBJECT_CLASS(o)];
    }
    return seen;
}

uint8_t *find(uint8_t *msg, uint8_t class_num) {
    return rsvp_first_object_type(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg), RSVP_MESSAGE_OBJ_LEN(msg),
                                  class_num);
}

}  // namespace

TEST(LabelsEndToEnd, GmplsPathAndResvWithSonetSdhLabel) {
    uint8_t path[256] = {}, resv[256] = {};
    const uint32_t upstream = 0x00011000, suggested = 0x00012000,
                   allowed[] = {0x00013000, 0x00014000};
    uint8_t *p = path + RSVP_MSG_HDR_LEN;
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), 1, ip("10.0.0.1"));
    rsvp_build_hop_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.12.1"), 0);
    rsvp_build_refresh(p += RSVP_OBJECT_LENGTH(p), 30000);
    rsvp_build_gen_label_req(p += RSVP_OBJECT_LENGTH(p), 5 /* SDH */, 100 /* TDM */, 34);
    rsvp_build_upstream_label(p += RSVP_OBJECT_LENGTH(p), &upstream, 1);
    rsvp_build_suggested_label(p += RSVP_OBJECT_LENGTH(p), &suggested, 1);
    rsvp_build_label_set_obj(p += RSVP_OBJECT_LENGTH(p), RSVP_LABEL_SET_INCLUSIVE_LIST,
                             RSVP_LABEL_SET_TYPE_GENERALIZED);
    for (uint32_t label : allowed)
        rsvp_add_label_set_obj(p, label);
    rsvp_build_template_lsp_tunnel_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.0.1"), 1);
    p += RSVP_OBJECT_LENGTH(p);
    rsvp_build_msg_hdr(1 /* Path */, 64, static_cast<uint16_t>(p - path), 0, path);
    EXPECT_EQ(walk(path),
              (std::map<unsigned, int>{
                  {1, 1}, {3, 1}, {5, 1}, {19, 1}, {35, 1}, {129, 1}, {36, 1}, {11, 1}}));

    uint8_t enc = 0, sw = 0, count = 0, action = 9;
    uint16_t gpid = 0, n = 0, type = 0;
    uint32_t words[2] = {}, *w = words, *set = nullptr;
    ASSERT_EQ(rsvp_extract_gen_label_req(find(path, RSVP_CLASS_LABEL_REQUEST), &enc, &sw, &gpid),
              1);
    EXPECT_EQ(rsvp_lsp_packet_switched(find(path, RSVP_CLASS_LABEL_REQUEST)), 0);
    EXPECT_EQ(enc * 1000000 + sw * 1000 + gpid, 5 * 1000000 + 100 * 1000 + 34);
    ASSERT_EQ(rsvp_extract_upstream_label(find(path, RSVP_CLASS_UPSTREAM_LABEL), &w, &n), 1);
    EXPECT_EQ(words[0], upstream);
    ASSERT_EQ(rsvp_extract_suggested_label(find(path, RSVP_CLASS_SUGGESTED_LABEL), &w, &n), 1);
    EXPECT_EQ(words[0], suggested);
    ASSERT_EQ(
        rsvp_extract_label_set_obj(find(path, RSVP_CLASS_LABEL_SET), &set, &count, &action, &type),
        1);
    EXPECT_EQ(action * 100 + count * 10 + type, 0 + 20 + 2);
    RSVP_COPY_LABEL_NTOHL(words, set, count);
    EXPECT_EQ(words[1], allowed[1]);

    // The tail end picks time slots S=1 U=1 K=1 L=1 M=1 and M=2, and answers with a Resv.
    p = resv + RSVP_MSG_HDR_LEN;
    std::copy(path + RSVP_MSG_HDR_LEN, path + RSVP_MSG_HDR_LEN + 36, p);  // SESSION, HOP, TIME
    rsvp_build_style(p += 36, RSVP_STYLE_FF);
    rsvp_build_filter_lsp_tunnel_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.0.1"), 1);
    uint8_t *label = p += RSVP_OBJECT_LENGTH(p);
    rsvp_build_gen_label_sonet_sdh(label);
    ASSERT_EQ(rsvp_add_gen_label_sonet_sdh(label, 1, 1, 1, 1, 1), 1);
    ASSERT_EQ(rsvp_add_gen_label_sonet_sdh(label, 1, 1, 1, 1, 2), 1);
    p += RSVP_OBJECT_LENGTH(p);
    rsvp_build_msg_hdr(2 /* Resv */, 64, static_cast<uint16_t>(p - resv), 0, resv);
    EXPECT_EQ(walk(resv),
              (std::map<unsigned, int>{{1, 1}, {3, 1}, {5, 1}, {8, 1}, {10, 1}, {16, 1}}));
    ASSERT_EQ(rsvp_extract_generalized_label(find(resv, RSVP_CLASS_LABEL), &w, &n), 1);
    EXPECT_EQ(words[0], 0x00011111u);
    uint32_t s = 0, u = 0, k = 0, l = 0, m = 0;
    ASSERT_EQ(rsvp_extract_gen_label_sonet_sdh(find(resv, RSVP_CLASS_LABEL), 1, &s, &u, &k, &l, &m),
              1);
    EXPECT_EQ((std::vector<uint32_t>{s, u, k, l, m}), (std::vector<uint32_t>{1, 1, 1, 1, 2}));
}
