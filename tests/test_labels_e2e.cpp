// A SONET/SDH LSP's Resv end to end: the tail end answers the Path with a generalized LABEL
// naming two time slots. The message is walked, every object validated through the class table,
// and the label read back. (The Path's label objects are pinned one by one in their families.)
#include <gtest/gtest.h>

#include <vector>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(LabelsEndToEnd, ResvCarriesASonetSdhLabel) {
    uint8_t resv[128] = {};
    uint8_t *p = resv + RSVP_MSG_HDR_LEN;
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), 1, ip("10.0.0.1"));
    rsvp_build_style(p += RSVP_OBJECT_LENGTH(p), RSVP_STYLE_FF);
    rsvp_build_filter_lsp_tunnel_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.0.1"), 1);
    uint8_t *label = p += RSVP_OBJECT_LENGTH(p);
    // The time slots S=1 U=1 K=1 L=1 M=1 and M=2.
    rsvp_build_gen_label_sonet_sdh(label);
    rsvp_add_gen_label_sonet_sdh(label, 1, 1, 1, 1, 1);
    rsvp_add_gen_label_sonet_sdh(label, 1, 1, 1, 1, 2);
    rsvp_build_msg_hdr(2, 64, static_cast<uint16_t>(label + RSVP_OBJECT_LENGTH(label) - resv), 0,
                       resv);

    std::vector<unsigned> classes;
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(resv);
    for (uint8_t *o = RSVP_MESSAGE_FIRST_OBJECT_PTR(resv); o;
         o = rsvp_next_nonnull_object(o, &remaining)) {
        EXPECT_EQ(rsvp_valid_object(o), 1u) << "class " << RSVP_OBJECT_CLASS(o);
        classes.push_back(RSVP_OBJECT_CLASS(o));
    }
    EXPECT_EQ(classes, (std::vector<unsigned>{1, 8, 10, 16}));
    EXPECT_EQ(to_hex(label, 12), "00 0c 10 02 00 01 11 11 00 01 11 12");
    uint32_t f[5] = {};
    ASSERT_EQ(rsvp_extract_gen_label_sonet_sdh(label, 1, &f[0], &f[1], &f[2], &f[3], &f[4]), 1);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 5), (std::vector<uint32_t>{1, 1, 1, 1, 2}));
}
