// A traffic-engineered Path as a head end builds it, in one buffer: SESSION, RSVP_HOP,
// TIME_VALUES, SESSION_ATTRIBUTE, LSP_REQUIRED_ATTRIBUTES with its flags, PROTECTION,
// CLASSTYPE, an E-LSP DIFFSERV composed by hand (no builder writes one) and SENDER_TEMPLATE.
// A receiver walks it, validates every object and reads each field back.
#include <gtest/gtest.h>

#include <string>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(TeAttributesEndToEnd, PathCarriesTheLspAttributes) {
    uint8_t msg[256] = {};
    uint8_t *p = msg + RSVP_MSG_HDR_LEN;
    auto next = [&p](uint8_t * = nullptr) { p += RSVP_OBJECT_LENGTH(p); };
    rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), 1, ip("10.0.0.1"));
    next();
    next(rsvp_build_hop_ipv4(p, ip("10.0.12.1"), 0));
    next(rsvp_build_refresh(p, 30000));
    rsvp_build_session_attribute(p, 7, 0, RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION, 10,
                                 "LSP-to-PE3");
    next();
    rsvp_build_lsp_attributes(p, 1);
    ASSERT_EQ(rsvp_add_lsp_attr_attribute_flags_tlv(p, RSVP_LSP_ATTR_FLAG_CONTIGUOUS_LSP), 1);
    next();
    rsvp_build_protection(p);
    RSVP_PROTECTION_SET_LSP_FLAGS(p, RSVP_PROTECTION_LSP_1_1_BIDIR);
    RSVP_PROTECTION_SET_R(p, 1);
    next();
    rsvp_build_class_type(p, 2);
    next();
    const Bytes diffserv = hex("00 10 41 01  20 00 00 00  00 2e 00 00  00 0a a0 00");
    std::copy(diffserv.begin(), diffserv.end(), p);  // MAPnb 2: EF at EXP 0, AF11 at EXP 5
    next();
    rsvp_build_template_lsp_tunnel_ipv4(p, ip("10.0.0.1"), 4);
    next();
    const auto length = static_cast<uint16_t>(p - msg);
    rsvp_build_msg_hdr(1, 255, length, 0, msg);

    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    uint8_t *first = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg);
    int objects = 0;
    for (uint8_t *o = first; o; o = rsvp_next_nonnull_object(o, &remaining), ++objects)
        EXPECT_EQ(rsvp_valid_object(o), 1u) << RSVP_OBJECT_CLASS(o);
    EXPECT_EQ(objects, 9);
    auto find = [&](uint8_t cls) { return rsvp_first_object_type(first, length - 8, cls); };

    uint8_t setup = 0, hold = 9, flags = 0, name_len = 0;
    const char *name = nullptr;
    uint8_t *sa = find(RSVP_CLASS_SESSION_ATTRIBUTE);
    ASSERT_EQ(rsvp_extract_session_attribute(sa, &setup, &hold, &flags, &name_len, &name, nullptr,
                                             nullptr, nullptr),
              1);
    EXPECT_EQ(std::string(name, name_len) + std::to_string(setup * 100 + hold * 10 + flags),
              "LSP-to-PE3701");
    EXPECT_EQ(RSVP_OBJECT_LENGTH(sa) * 10 + rsvp_session_attribute_protected(sa), 321);

    uint8_t *lra = find(RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES);
    uint8_t *tlv = rsvp_get_lsp_attr_next_tlv(lra, nullptr);
    uint32_t attr_flags = 0;
    ASSERT_EQ(rsvp_extract_lsp_attr_attribute_flags_tlv(tlv, &attr_flags), 1);
    EXPECT_EQ(attr_flags, uint32_t(RSVP_LSP_ATTR_FLAG_CONTIGUOUS_LSP));
    EXPECT_EQ(RSVP_LSP_ATTR_TLV_TYPE(tlv) * 100 + RSVP_LSP_ATTR_TLV_LEN(tlv), 108);
    EXPECT_EQ(rsvp_get_lsp_attr_next_tlv(lra, tlv), nullptr);

    uint8_t *prot = find(RSVP_CLASS_PROTECTION), *ds = find(RSVP_CLASS_DIFFSERV);
    EXPECT_EQ(RSVP_PROTECTION_LSP_FLAGS(prot) * 100 + RSVP_PROTECTION_R(prot) * 10 +
                  RSVP_PROTECTION_S(prot),
              RSVP_PROTECTION_LSP_1_1_BIDIR * 100u + 10);
    EXPECT_EQ(rsvp_get_class_type(find(RSVP_CLASS_CLASSTYPE)), 2);
    EXPECT_EQ(rsvp_diffserv_get_phbid(ds, 0) * 10 + rsvp_diffserv_get_exp(ds, 0), 0x2e * 10);
    EXPECT_EQ(rsvp_diffserv_get_phbid(ds, 1) * 10 + rsvp_diffserv_get_exp(ds, 1), 0x0a * 10 + 5);
}
