// End to end: a sender's Path carries a SENDER_TSPEC and a baseline ADSPEC; three receivers
// ask for Guaranteed and Controlled-Load reservations, which merge into the one FLOWSPEC of
// the Resv sent upstream. Every object is built, walked, validated and read back.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

namespace {

// An object made by a library builder, cut to the Length it wrote.
template <typename Build>
Bytes built(Build build) {
    Bytes b(RSVP_ADSPEC_BASELINE_MAX_LEN);
    build(b.data());
    b.resize(RSVP_OBJECT_LENGTH(b.data()));
    return b;
}

// A message of the type: common header, the SESSION, RSVP_HOP and TIME_VALUES of the session,
// then the given objects; in an exact-size heap buffer, as received.
HeapBytes message(uint8_t type, std::initializer_list<Bytes> objects) {
    Bytes body =
        concat({built([](uint8_t *o) {
                    rsvp_build_session_lsp_tunnel_ipv4(o, ip("10.0.0.3"), 1, ip("10.0.0.1"));
                }),
                built([](uint8_t *o) { rsvp_build_hop_ipv4(o, ip("10.0.12.1"), 0); }),
                built([](uint8_t *o) { rsvp_build_refresh(o, 30000); }), concat(objects)});
    Bytes msg(RSVP_MSG_HDR_LEN);
    rsvp_build_msg_hdr(type, 64, static_cast<uint16_t>(msg.size() + body.size()), 0, msg.data());
    return heap_copy(concat({msg, body}));
}

// Walks the message: every object validates; answers the classes in order.
std::vector<uint8_t> walk_classes(uint8_t *msg) {
    std::vector<uint8_t> classes;
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    for (uint8_t *o = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg); o;
         o = rsvp_next_nonnull_object(o, &remaining)) {
        EXPECT_EQ(rsvp_valid_object(o), 1u) << "class " << RSVP_OBJECT_CLASS(o);
        classes.push_back(static_cast<uint8_t>(RSVP_OBJECT_CLASS(o)));
    }
    return classes;
}

uint8_t *find(uint8_t *msg, uint8_t class_num) {
    return rsvp_first_object_type(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg), RSVP_MESSAGE_OBJ_LEN(msg),
                                  class_num);
}

}  // namespace

TEST(TrafficEndToEnd, PathThenMergedResv) {
    // The sender offers 1250000 bytes/s, bursts of 30000, peak 3000000, m 32, M 9000, and
    // advertises both services.
    HeapBytes path = message(
        1, {built([](uint8_t *o) { rsvp_build_template_lsp_tunnel_ipv4(o, ip("10.0.0.1"), 1); }),
            built([](uint8_t *o) { rsvp_build_tspec(o, 1250000, 30000, 3000000, 32, 9000); }),
            built([](uint8_t *o) {
                rsvp_build_adspec_baseline(o, RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL);
            })});
    EXPECT_EQ(walk_classes(path.data()),
              (std::vector<uint8_t>{1, 3, 5, RSVP_CLASS_SENDER_TEMPLATE, RSVP_CLASS_SENDER_TSPEC,
                                    RSVP_CLASS_ADSPEC}));
    uint8_t *tspec = find(path.data(), RSVP_CLASS_SENDER_TSPEC);
    int64_t r = 0, b = 0, p = 0;
    uint32_t m = 0, big_m = 0;
    ASSERT_EQ(rsvp_extract_tspec(tspec, &r, &b, &p, &m, &big_m), 1);
    EXPECT_EQ(std::tuple(r, b, p, m, big_m), std::tuple(1250000, 30000, 3000000, 32u, 9000u));
    EXPECT_EQ(
        rsvp_adspec_has_qos_service(find(path.data(), RSVP_CLASS_ADSPEC), RSVP_QOS_GUARANTEED), 1);

    // Three receivers: a Controlled-Load request, into which two Guaranteed ones merge.
    Bytes merged(RSVP_FLOWSPEC_MAX_LEN), a(RSVP_FLOWSPEC_MAX_LEN), c(RSVP_FLOWSPEC_MAX_LEN);
    rsvp_build_flowspec(merged.data(), RSVP_QOS_CONTROLLED_LOAD, 30000, 1250000, 128, 1000, 2000000,
                        0, 0);
    rsvp_build_flowspec(a.data(), RSVP_QOS_GUARANTEED, 10000, 1000000, 64, 1500, 2500000, 1200000,
                        200);
    rsvp_build_flowspec(c.data(), RSVP_QOS_GUARANTEED, 5000, 500000, 32, 9000, 3000000, 1100000,
                        50);
    EXPECT_EQ(rsvp_merge_flowspecs(a.data(), merged.data()), 1);
    EXPECT_EQ(rsvp_merge_flowspecs(c.data(), merged.data()), 1);
    EXPECT_EQ(rsvp_merge_flowspecs(a.data(), merged.data()), 0);  // already covered

    HeapBytes resv = message(
        2, {built([](uint8_t *o) { rsvp_build_style(o, RSVP_STYLE_FF); }), merged,
            built([](uint8_t *o) { rsvp_build_filter_lsp_tunnel_ipv4(o, ip("10.0.0.1"), 1); })});
    EXPECT_EQ(walk_classes(resv.data()),
              (std::vector<uint8_t>{1, 3, 5, RSVP_CLASS_STYLE, RSVP_CLASS_FLOWSPEC,
                                    RSVP_CLASS_FILTER_SPEC}));
    uint8_t *fs = find(resv.data(), RSVP_CLASS_FLOWSPEC);  // validated by the walk
    // Guaranteed; b 30000 (the Controlled-Load receiver's), r 1250000 (the largest), p 3000000
    // (the second Guaranteed receiver's), m 32 (the smallest), M 9000 (the largest), R 1250000
    // (the Controlled-Load r beats 1200000), S 0 (the Controlled-Load request has none).
    EXPECT_EQ(flow_fields(fs),
              FlowFields(RSVP_QOS_GUARANTEED, 30000, 1250000, 3000000, 32, 9000, 1250000, 0));
    EXPECT_EQ(rsvp_compare_tspec_with_flowspec(tspec, fs), 0);  // reserved what is offered
}
