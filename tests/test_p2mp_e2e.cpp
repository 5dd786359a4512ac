// A point-to-multipoint Path built by a head end and read by a leaf: SESSION C-Type 13, the
// sender, an S2L_SUB_LSP, an extended ASSOCIATION naming the reverse LSP, and a REVERSE_LSP
// holding that LSP's EXPLICIT_ROUTE and SENDER_TSPEC, walked and validated as one message (the
// container's contents validated in turn).
#include <gtest/gtest.h>

#include <vector>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(P2mpEndToEnd, PathWithAssociationAndReverseLspValidatesAsOneMessage) {
    uint8_t msg[256] = {}, ero[16] = {}, tspec[36] = {};
    uint8_t *p = msg + RSVP_MSG_HDR_LEN;
    const uint32_t head = ip("10.0.0.1"), ext_ids[] = {0xA1, 0xA2};
    rsvp_build_session_p2mp_lsp_ipv4(p, 77, 5, head);
    rsvp_build_hop_ipv4(p += 16, head, 3);
    rsvp_build_refresh(p += 12, 30000);
    rsvp_build_template_lsp_p2mp_ipv4(p += 8, head, 1, head, 1);
    rsvp_build_s2l_sub_lsp_ipv4(p += 20, ip("10.0.0.9"));
    rsvp_build_association_ipv4_ext(p += 8, RSVP_ASSOCIATION_TYPE_DOUBLE_SIDED_BIDIR, 42, head,
                                    65001, ext_ids, 2);
    rsvp_build_explicit_route(ero);
    rsvp_add_explicit_route_ipv4(ero, 0, head, 32);
    rsvp_build_tspec(tspec, 1250000, 1250000, 1250000, 0, 1500);
    rsvp_build_reverse_lsp(p += 24);
    ASSERT_EQ(rsvp_add_reverse_lsp_subobj(p, ero) + rsvp_add_reverse_lsp_subobj(p, tspec), 2);
    rsvp_build_msg_hdr(1, 63, static_cast<uint16_t>(p + RSVP_OBJECT_LENGTH(p) - msg), 0, msg);

    std::vector<uint32_t> classes;
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    for (uint8_t *o = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg); o;
         o = rsvp_next_nonnull_object(o, &remaining)) {
        EXPECT_EQ(rsvp_valid_object(o), 1u) << RSVP_OBJECT_CLASS(o);
        classes.push_back(RSVP_OBJECT_CLASS(o));
    }
    EXPECT_EQ(classes, (std::vector<uint32_t>{1, 3, 5, 11, 50, 199, 203}));
}
