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
    // The sender offers 1250000 bytes/s, bursts of 30000, peak 3000000, m 32, M 9000.
    HeapBytes path = message(
        1, {built([](uint8_t *o) { rsvp_build_template_lsp_tunnel_ipv4(o, ip("10.0.0.1"), 1); }),
            built([](uint8_t *o) { rsvp_build_tspec(o, 1250000, 30000, 3000000, 32, 9000); }),
            built([](uint8_t *o) {
                rsvp_build_adspec_baseline(o, RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL);
            })});
    EXPECT_EQ(RSVP_MESSAGE_LENGTH(path.data()), 8 + 16 + 12 + 8 + 12 + 36 + 84);
    EXPECT_EQ(walk_classes(path.data()),
              (std::vector<uint8_t>{1, 3, 5, RSVP_CLASS_SENDER_TEMPLATE, RSVP_CLASS_SENDER_TSPEC,
                                    RSVP_CLASS_ADSPEC}));

    uint8_t *tspec = find(path.data(), RSVP_CLASS_SENDER_TSPEC);
    ASSERT_NE(tspec, nullptr);
    EXPECT_EQ(to_hex(tspec, 36), to_hex(hex("00 24 0c 02  00 00 00 07  01 00 00 06  7f 00 00 05"
                                            "49 98 96 80  46 ea 60 00  4a 37 1b 00"  // r b p
                                            "00 00 00 20  00 00 23 28")));           // m M
    int64_t r = 0, b = 0, p = 0;
    uint32_t m = 0, big_m = 0;
    ASSERT_EQ(rsvp_extract_tspec(tspec, &r, &b, &p, &m, &big_m), 1);
    EXPECT_EQ(std::tuple(r, b, p, m, big_m), std::tuple(1250000, 30000, 3000000, 32u, 9000u));

    uint8_t *adspec = find(path.data(), RSVP_CLASS_ADSPEC), *gtd_frag = nullptr, *cl_frag = nullptr;
    ASSERT_NE(adspec, nullptr);
    EXPECT_EQ(RSVP_ADSPEC_BANDWIDTH_VAL(adspec), uint32_t{RSVP_INTSRV_INFINITY_BITS});
    EXPECT_EQ(rsvp_adspec_has_qos_service(adspec, RSVP_QOS_GUARANTEED), 1);
    ASSERT_EQ(rsvp_adspec_extract_gtd_frag(adspec, &gtd_frag), 1);
    EXPECT_EQ(gtd_frag, adspec + 44);
    EXPECT_EQ(RSVP_INTSRV_INTEGER_OBJECT_VALUE(RSVP_GTD_CTOT_PTR(gtd_frag)), 0u);
    ASSERT_EQ(rsvp_adspec_extract_cl_frag(adspec, &cl_frag), 1);
    EXPECT_EQ(cl_frag, adspec + 80);

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
    uint8_t *fs = find(resv.data(), RSVP_CLASS_FLOWSPEC);
    ASSERT_NE(fs, nullptr);
    EXPECT_EQ(to_hex(fs, 48),
              to_hex(hex("00 30 09 02  00 00 00 0a  02 00 00 09  7f 00 00 05"
                         "49 98 96 80"      // r 1250000: the largest
                         "46 ea 60 00"      // b 30000: the Controlled-Load receiver's
                         "4a 37 1b 00"      // p 3000000: the second Guaranteed receiver's
                         "00 00 00 20"      // m 32: the smallest
                         "00 00 23 28"      // M 9000: the largest
                         "82 00 00 02"      // Guaranteed RSpec
                         "49 98 96 80"      // R 1250000: the Controlled-Load r beats 1200000
                         "00 00 00 00")));  // S 0: the Controlled-Load request has none
    FlowFields got{};
    auto &[qos, burst, rate, peak, min_unit, max_unit, req, slack] = got;
    ASSERT_EQ(
        rsvp_extract_flowspec(fs, &qos, &burst, &rate, &min_unit, &max_unit, &peak, &req, &slack),
        1);
    EXPECT_EQ(got, FlowFields(RSVP_QOS_GUARANTEED, 30000, 1250000, 3000000, 32, 9000, 1250000, 0));
    EXPECT_EQ(rsvp_compare_tspec_with_flowspec(tspec, fs), 0);  // reserved what is offered
}
