// A traffic-engineered Path as a head end builds it, in one buffer: SESSION, RSVP_HOP,
// TIME_VALUES, SESSION_ATTRIBUTE, LSP_REQUIRED_ATTRIBUTES with its flags, PROTECTION,
// CLASSTYPE, an E-LSP DIFFSERV composed by hand (no builder writes one: EF at EXP 0, AF11 at
// EXP 5) and SENDER_TEMPLATE.
// A receiver walks it and validates every object through the class table (each object's fields
// are read back in its family's test).
#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(TeAttributesEndToEnd, PathCarriesTheLspAttributes) {
    uint8_t msg[256] = {};
    uint8_t *p = msg + RSVP_MSG_HDR_LEN;
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), 1, ip("10.0.0.1"));
    rsvp_build_hop_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.12.1"), 0);
    rsvp_build_refresh(p += RSVP_OBJECT_LENGTH(p), 30000);
    rsvp_build_session_attribute(p += RSVP_OBJECT_LENGTH(p), 7, 0,
                                 RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION, 10, "LSP-to-PE3");
    rsvp_build_lsp_attributes(p += RSVP_OBJECT_LENGTH(p), 1);
    ASSERT_EQ(rsvp_add_lsp_attr_attribute_flags_tlv(p, RSVP_LSP_ATTR_FLAG_CONTIGUOUS_LSP), 1);
    rsvp_build_protection(p += RSVP_OBJECT_LENGTH(p));
    RSVP_PROTECTION_SET_LSP_FLAGS(p, RSVP_PROTECTION_LSP_1_1_BIDIR);
    rsvp_build_class_type(p += RSVP_OBJECT_LENGTH(p), 2);
    const Bytes diffserv = hex("00 10 41 01  20 00 00 00  00 2e 00 00  00 0a a0 00");
    std::copy(diffserv.begin(), diffserv.end(), p += RSVP_OBJECT_LENGTH(p));
    rsvp_build_template_lsp_tunnel_ipv4(p += RSVP_OBJECT_LENGTH(p), ip("10.0.0.1"), 4);
    rsvp_build_msg_hdr(1, 255, static_cast<uint16_t>(p + RSVP_OBJECT_LENGTH(p) - msg), 0, msg);

    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    int objects = 0;
    for (uint8_t *o = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg); o;
         o = rsvp_next_nonnull_object(o, &remaining), ++objects)
        EXPECT_EQ(rsvp_valid_object(o), 1u) << RSVP_OBJECT_CLASS(o);
    EXPECT_EQ(objects, 9);
}
