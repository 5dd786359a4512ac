// End to end: a sender's Path carries a SENDER_TSPEC and a baseline ADSPEC; three receivers
// ask for Guaranteed and Controlled-Load reservations, which merge into the one FLOWSPEC of
// the Resv sent upstream. Every object is built, walked, validated and read back.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

namespace {

constexpr uint8_t kPath = 1, kResv = 2, kTtl = 64;

// Appends objects to a message buffer behind its common header.
struct Message {
    Bytes buf = Bytes(512, 0);
    uint16_t len = RSVP_MSG_HDR_LEN;
    uint8_t *next() { return buf.data() + len; }
    void added() { len = static_cast<uint16_t>(len + RSVP_OBJECT_LENGTH(next())); }
    void finish(uint8_t type) {
        rsvp_build_msg_hdr(type, kTtl, len, 0, buf.data());
        buf.resize(len);
    }
};

void common_objects(Message &m) {
    rsvp_build_session_lsp_tunnel_ipv4(m.next(), ip("10.0.0.3"), 1, ip("10.0.0.1"));
    m.added();
    rsvp_build_hop_ipv4(m.next(), ip("10.0.12.1"), 0);
    m.added();
    rsvp_build_refresh(m.next(), 30000);
    m.added();
}

// Every object of the message validates; the objects found, by class, in order.
std::vector<uint8_t> walk_classes(uint8_t *msg) {
    std::vector<uint8_t> classes;
    uint8_t *first = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg);
    uint32_t remaining = RSVP_MESSAGE_OBJ_LEN(msg);
    for (uint8_t *o = first; o; o = rsvp_next_nonnull_object(o, &remaining)) {
        EXPECT_EQ(rsvp_valid_object(o), 1u) << "class " << RSVP_OBJECT_CLASS(o);
        classes.push_back(static_cast<uint8_t>(RSVP_OBJECT_CLASS(o)));
    }
    return classes;
}

}  // namespace

TEST(TrafficEndToEnd, PathThenMergedResv) {
    // --- The sender's Path: 1250000 bytes/s, bursts of 30000, peak 3000000, m 32, M 9000.
    Message path;
    common_objects(path);
    rsvp_build_template_lsp_tunnel_ipv4(path.next(), ip("10.0.0.1"), 1);
    path.added();
    rsvp_build_tspec(path.next(), 1250000, 30000, 3000000, 32, 9000);
    path.added();
    rsvp_build_adspec_baseline(path.next(), RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL);
    path.added();
    path.finish(kPath);
    ASSERT_EQ(path.len, 8 + 16 + 12 + 8 + 12 + 36 + 84);
    HeapBytes rx = heap_copy(path.buf);  // as received: exactly the message's bytes
    EXPECT_EQ(walk_classes(rx.data()),
              (std::vector<uint8_t>{RSVP_CLASS_SESSION, RSVP_CLASS_RSVP_HOP, RSVP_CLASS_TIME_VALUES,
                                    RSVP_CLASS_SENDER_TEMPLATE, RSVP_CLASS_SENDER_TSPEC,
                                    RSVP_CLASS_ADSPEC}));

    uint8_t *objs = RSVP_MESSAGE_FIRST_OBJECT_PTR(rx.data());
    const uint32_t objs_len = RSVP_MESSAGE_OBJ_LEN(rx.data());
    uint8_t *tspec = rsvp_first_object_type(objs, objs_len, RSVP_CLASS_SENDER_TSPEC);
    ASSERT_NE(tspec, nullptr);
    EXPECT_EQ(to_hex(tspec, 36),
              to_hex(hex("00 24 0c 02  00 00 00 07  01 00 00 06  7f 00 00 05"
                         "49 98 96 80  46 ea 60 00  4a 37 1b 00"  // r, b, p
                         "00 00 00 20  00 00 23 28")));           // m 32, M 9000
    int64_t r = 0, b = 0, p = 0;
    uint32_t m = 0, big_m = 0;
    ASSERT_EQ(rsvp_extract_tspec(tspec, &r, &b, &p, &m, &big_m), 1);
    EXPECT_EQ(std::tuple(r, b, p, m, big_m), std::tuple(1250000, 30000, 3000000, 32u, 9000u));

    uint8_t *adspec = rsvp_first_object_type(objs, objs_len, RSVP_CLASS_ADSPEC);
    ASSERT_NE(adspec, nullptr);
    EXPECT_EQ(rsvp_valid_adspec(adspec), 1);
    EXPECT_EQ(RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(adspec), 0u);
    EXPECT_EQ(RSVP_ADSPEC_BANDWIDTH_VAL(adspec), uint32_t{RSVP_INTSRV_INFINITY_BITS});
    EXPECT_EQ(rsvp_adspec_has_qos_service(adspec, RSVP_QOS_GUARANTEED), 1);
    uint8_t *gtd_frag = nullptr, *cl_frag = nullptr;
    ASSERT_EQ(rsvp_adspec_extract_gtd_frag(adspec, &gtd_frag), 1);
    EXPECT_EQ(gtd_frag, adspec + 44);
    EXPECT_EQ(RSVP_INTSRV_INTEGER_OBJECT_VALUE(RSVP_GTD_CTOT_PTR(gtd_frag)), 0u);
    ASSERT_EQ(rsvp_adspec_extract_cl_frag(adspec, &cl_frag), 1);
    EXPECT_EQ(cl_frag, adspec + 80);

    // --- Three receivers: Controlled-Load, then two Guaranteed requests merged into it.
    Bytes merged(RSVP_FLOWSPEC_MAX_LEN);
    rsvp_build_flowspec(merged.data(), RSVP_QOS_CONTROLLED_LOAD, 30000, 1250000, 128, 1000, 2000000,
                        0, 0);
    Bytes a(RSVP_FLOWSPEC_MAX_LEN), c(RSVP_FLOWSPEC_MAX_LEN);
    rsvp_build_flowspec(a.data(), RSVP_QOS_GUARANTEED, 10000, 1000000, 64, 1500, 2500000, 1200000,
                        200);
    rsvp_build_flowspec(c.data(), RSVP_QOS_GUARANTEED, 5000, 500000, 32, 9000, 3000000, 1100000,
                        50);
    EXPECT_EQ(rsvp_merge_flowspecs(a.data(), merged.data()), 1);
    EXPECT_EQ(rsvp_merge_flowspecs(c.data(), merged.data()), 1);
    EXPECT_EQ(rsvp_merge_flowspecs(a.data(), merged.data()), 0);  // already covered

    // --- The Resv upstream.
    Message resv;
    common_objects(resv);
    rsvp_build_style(resv.next(), RSVP_STYLE_FF);
    resv.added();
    rsvp_object_copy(resv.next(), merged.data());
    resv.added();
    rsvp_build_filter_lsp_tunnel_ipv4(resv.next(), ip("10.0.0.1"), 1);
    resv.added();
    resv.finish(kResv);
    HeapBytes resv_rx = heap_copy(resv.buf);
    EXPECT_EQ(
        walk_classes(resv_rx.data()),
        (std::vector<uint8_t>{RSVP_CLASS_SESSION, RSVP_CLASS_RSVP_HOP, RSVP_CLASS_TIME_VALUES,
                              RSVP_CLASS_STYLE, RSVP_CLASS_FLOWSPEC, RSVP_CLASS_FILTER_SPEC}));

    uint8_t *fs = rsvp_first_object_type(RSVP_MESSAGE_FIRST_OBJECT_PTR(resv_rx.data()),
                                         RSVP_MESSAGE_OBJ_LEN(resv_rx.data()), RSVP_CLASS_FLOWSPEC);
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
    uint8_t qos = 0;
    int64_t burst = 0, rate = 0, peak = 0, req = 0;
    uint32_t min_unit = 0, max_unit = 0, slack = 7;
    ASSERT_EQ(
        rsvp_extract_flowspec(fs, &qos, &burst, &rate, &min_unit, &max_unit, &peak, &req, &slack),
        1);
    EXPECT_EQ(FlowFields(qos, burst, rate, peak, min_unit, max_unit, req, slack),
              FlowFields(RSVP_QOS_GUARANTEED, 30000, 1250000, 3000000, 32, 9000, 1250000, 0));
    // The reservation matches what the sender offers.
    EXPECT_EQ(rsvp_compare_tspec_with_flowspec(tspec, fs), 0);
}
