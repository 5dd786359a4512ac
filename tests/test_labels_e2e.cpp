// A SONET/SDH LSP end to end: the Path asks for a TDM label and offers an upstream label, a
// suggested label and a range to choose from; the Resv answers with a generalized LABEL naming
// two time slots. Each message is walked and every object validated through the class table.
#include <gtest/gtest.h>

#include <vector>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// Lays down the header of a message built up to end; walks and validates every object, and
// returns their Class-Nums in order.
std::vector<unsigned> close_and_walk(uint8_t *msg, uint8_t type, uint8_t *end) {
    rsvp_build_msg_hdr(type, 64, static_cast<uint16_t>(end - msg), 0, msg);
    std::vector<unsigned> classes;
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    for (uint8_t *o = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg); o;
         o = rsvp_next_nonnull_object(o, &remaining)) {
        EXPECT_EQ(rsvp_valid_object(o), 1u) << "class " << RSVP_OBJECT_CLASS(o);
        classes.push_back(RSVP_OBJECT_CLASS(o));
    }
    return classes;
}

}  // namespace

TEST(LabelsEndToEnd, GmplsPathAndResvWithSonetSdhLabel) {
    uint8_t path[128] = {}, resv[128] = {};
    const uint32_t offered[] = {0x00011000, 0x00012000, 0x00014000};
    uint8_t *p = path + RSVP_MSG_HDR_LEN;
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), 1, ip("10.0.0.1"));
    rsvp_build_gen_label_req(p += RSVP_OBJECT_LENGTH(p), 5 /* SDH */, 100 /* TDM */, 34);
    rsvp_build_upstream_label(p += RSVP_OBJECT_LENGTH(p), &offered[0], 1);
    rsvp_build_suggested_label(p += RSVP_OBJECT_LENGTH(p), &offered[1], 1);
    rsvp_build_32bit_label_set(p += RSVP_OBJECT_LENGTH(p), RSVP_CLASS_LABEL_SET,
                               RSVP_LABEL_SET_TYPE_GENERALIZED, RSVP_LABEL_SET_INCLUSIVE_RANGE, 2,
                               &offered[1]);
    rsvp_build_template_lsp_tunnel_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.0.1"), 1);
    EXPECT_EQ(close_and_walk(path, 1 /* Path */, p + RSVP_OBJECT_LENGTH(p)),
              (std::vector<unsigned>{1, 19, 35, 129, 36, 11}));

    // The tail end picks the time slots S=1 U=1 K=1 L=1 M=1 and M=2.
    p = resv + RSVP_MSG_HDR_LEN;
    rsvp_object_copy(p, path + RSVP_MSG_HDR_LEN);
    rsvp_build_style(p += RSVP_OBJECT_LENGTH(p), RSVP_STYLE_FF);
    rsvp_build_filter_lsp_tunnel_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.0.1"), 1);
    uint8_t *label = p += RSVP_OBJECT_LENGTH(p);
    rsvp_build_gen_label_sonet_sdh(label);
    rsvp_add_gen_label_sonet_sdh(label, 1, 1, 1, 1, 1);
    rsvp_add_gen_label_sonet_sdh(label, 1, 1, 1, 1, 2);
    EXPECT_EQ(close_and_walk(resv, 2 /* Resv */, p + RSVP_OBJECT_LENGTH(p)),
              (std::vector<unsigned>{1, 8, 10, 16}));
    EXPECT_EQ(to_hex(label, 12), "00 0c 10 02 00 01 11 11 00 01 11 12");
    uint32_t f[5] = {};
    ASSERT_EQ(rsvp_extract_gen_label_sonet_sdh(label, 1, &f[0], &f[1], &f[2], &f[3], &f[4]), 1);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 5), (std::vector<uint32_t>{1, 1, 1, 1, 2}));
}
