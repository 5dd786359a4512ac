// FLOWSPEC C-Type 2: Guaranteed, Controlled-Load and qualitative requests, the getters, the
// orderings by average rate, and the generic FLOWSPEC and SENDER_TSPEC validators.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

// The Controlled-Load rows check what its layout does not share with the Guaranteed one.
TEST(Flowspec, ValidatorChecksEachField) {
    const std::tuple<const char *, size_t, const char *, int> rows[] = {
        {kGtdHex, 2, "0c", 0},                        // class 12
        {kGtdHex, 0, "00 34", 0},                     // length 52
        {kGtdHex, 4, "10", 0},                        // version 1
        {kGtdHex, 6, "00 09", 0},                     // overall length 9
        {kGtdHex, 9, "80", 0},                        // fragment reserved byte
        {kGtdHex, 10, "00 08", 0},                    // service data length 8
        {kGtdHex, 12, "7e", 0},                       // token bucket id
        {kGtdHex, 14, "00 06", 0},                    // token bucket length
        {kGtdHex, 36, "83", 0},                       // RSpec id
        {kGtdHex, 38, "00 03", 0},                    // RSpec length
        {kGtdHex, 16, "7f 80 00 00", 0},              // r infinite
        {kGtdHex, 24, "49 98 96 80", 1},              // p = r
        {kGtdHex, 24, "49 98 96 78", 0},              // p 1249999, one below r
        {kGtdHex, 40, "49 98 96 80", 1},              // R = r
        {kGtdHex, 40, "49 98 96 78", 0},              // R 1249999, one below r
        {kGtdHex, 40, "7f 80 00 00", 0},              // R infinite
        {kGtdHex, 28, "ff ff ff ff 00 00 00 00", 1},  // m above M, S 0: not examined
        {kGtdHex, 8, "03", 0},                        // service 3
        {kClHex, 0, "00 30", 0},                      // length 48
        {kClHex, 6, "00 0a", 0},                      // overall length 10
        {kClHex, 10, "00 09", 0},                     // service data length 9
        {kClHex, 24, "00 00 00 00", 0},               // p below r
        {kClHex, 8, "01", 0},                         // service 1
    };
    for (const auto &[base, offset, patch, verdict] : rows) {
        SCOPED_TRACE(testing::Message() << base << " @" << offset << ": " << patch);
        Bytes b = patched(base, offset, patch);
        b.resize(b[1], 0);  // the buffer follows a patched length
        EXPECT_EQ(rsvp_valid_flowspec(heap_copy(b).data()), verdict);
    }
    EXPECT_EQ(rsvp_valid_flowspec(nullptr), 0);
    // The service number is read even behind a shorter object: qualitative validates.
    HeapBytes short_qual = heap_copy(hex("00 08 09 02  00 00 00 00  06"));
    EXPECT_EQ(rsvp_valid_flowspec(short_qual.data()), 1);
    short_qual.data()[8] = RSVP_INTSRV_SERVICE_GUARANTEED;
    EXPECT_EQ(rsvp_valid_flowspec(short_qual.data()), 0);
}

// The rate comparisons are unsigned 64-bit: a negative converted value ranks above every
// positive one, in the validator and in both orderings, which look at the average rate only.
TEST(Flowspec, NegativeValuesCompareAboveAllPositiveOnes) {
    Bytes neg_r = patched(kGtdHex, 16, "bf 80 00 00");  // r -1: p and R now "below" it
    Bytes pos = hex(kGtdHex), tspec(36), cl = patched(kClHex, 20, "00 00 00 00 4b 00 00 00");
    EXPECT_EQ(rsvp_valid_flowspec(neg_r.data()), 0);
    EXPECT_EQ(rsvp_compare_flowspecs(neg_r.data(), pos.data()), 1);
    EXPECT_EQ(rsvp_compare_flowspecs(pos.data(), neg_r.data()), -1);
    EXPECT_EQ(rsvp_compare_flowspecs(pos.data(), cl.data()), 0);
    rsvp_build_tspec(tspec.data(), -1, 0, 0, 0, 0);
    EXPECT_EQ(rsvp_compare_tspec_with_flowspec(tspec.data(), pos.data()), 1);
    EXPECT_EQ(rsvp_compare_tspec_with_flowspec(tspec.data(), neg_r.data()), 0);
    EXPECT_EQ(rsvp_compare_tspec_with_flowspec(nullptr, pos.data()), -1);  // no rate: 0
}

// Built bytes; every getter, and the extractor: the same fields where the flowspec validates,
// its outputs untouched where it does not. Then the accessors.
TEST(Flowspec, BuildGettersExtractorAndAccessors) {
    // Any code but the two interface codes, the wire number 2 included, builds a zero length only.
    for (const auto &[code, want] : {std::pair<uint8_t, const char *>(RSVP_QOS_GUARANTEED, kGtdHex),
                                     {RSVP_QOS_CONTROLLED_LOAD, kClHex},
                                     {2, "00 00"}}) {
        SCOPED_TRACE(int(code));
        Bytes b(56, 0xee);
        rsvp_build_flowspec(b.data(), code, 10000, 1250000, 64, 1500, 2500000, 2000000, 100);
        EXPECT_EQ(to_hex(b), to_hex(concat({hex(want), Bytes(56 - hex(want).size(), 0xee)})));
    }
    const std::tuple<Bytes, FlowFields, int> rows[] = {
        {hex(kGtdHex), {3, 10000, 1250000, 2500000, 64, 1500, 2000000, 100}, 1},
        // Without an RSpec, r stands for the requested rate and S is 0.
        {hex(kClHex), {5, 10000, 1250000, 2500000, 64, 1500, 1250000, 0}, 1},
        // Service 6 validates whatever follows its number; nothing else is reported.
        {hex("00 0c 09 02  ff ff ff ff  06 ff ff ff"), {6, 0, 0, 0, 65535, 0, 0, 0}, 1},
        // Service 1 is read by all but the minimum policed unit (65535) and the QoS code.
        {patched(kClHex, 8, "01"), {0, 10000, 1250000, 2500000, 65535, 1500, 1250000, 0}, 0},
        // Another C-Type: 0 everywhere, the minimum policed unit included.
        {patched(kGtdHex, 3, "04"), {0, 0, 0, 0, 0, 0, 0, 0}, 0},
    };
    for (const auto &[obj, want, valid] : rows) {
        SCOPED_TRACE(to_hex(obj));
        HeapBytes b = heap_copy(obj);
        EXPECT_EQ(flow_fields(b.data()), want);
        const FlowFields unset{0xee, -7, -7, -7, 7, 7, -7, 7};
        FlowFields got = unset;
        auto &[qos, burst, rate, peak, m, big_m, req, slack] = got;
        EXPECT_EQ(
            rsvp_extract_flowspec(b.data(), &qos, &burst, &rate, &m, &big_m, &peak, &req, &slack),
            valid);
        EXPECT_EQ(got, valid ? want : unset);
    }
    // A null object: 0, but 65535 for the minimum policed unit.
    EXPECT_EQ(flow_fields(nullptr), FlowFields(0, 0, 0, 0, 65535, 0, 0, 0));

    // The raw accessors do not validate. Bytes of 0xcc lie before the object.
    Bytes b = concat({Bytes(32, 0xcc), hex(kGtdHex)});
    uint8_t *const o = b.data() + 32, *frag = RSVP_FLOWSPEC_FRAGMENTS_PTR(o, 0);
    ASSERT_EQ(frag, o + 8);
    EXPECT_EQ(std::tuple(RSVP_FLOWSPEC_HEADER_LENGTH(o), RSVP_GTD_BUCKET_PTR(frag),
                         RSVP_CLOAD_BUCKET_PTR(frag)),
              std::tuple(10, frag, frag));
    EXPECT_EQ(std::tuple(RSVP_FLOWSPEC_RSPEC_PARAM_ID(frag), RSVP_FLOWSPEC_RSPEC_FLAGS(frag),
                         RSVP_FLOWSPEC_RSPEC_PARAM_LEN(frag), RSVP_FLOWSPEC_RSPEC_REQ_RATE(frag),
                         RSVP_FLOWSPEC_RSPEC_SLACK(frag)),
              std::tuple(130, 0, 2, 2000000, 100u));
    o[4] = 0x30;  // a broken object still reads
    EXPECT_EQ(RSVP_FLOWSPEC_HEADER_VERSION(o), 3);
    EXPECT_EQ(RSVP_FLOWSPEC_FRAGMENTS_PTR(nullptr, 4), nullptr);
    EXPECT_EQ(RSVP_FLOWSPEC_RSPEC_REQ_RATE(nullptr), 0);
}

// Each generic validator picks the check of the C-Type within its own class; the dispatch
// table agrees for the objects of that class.
TEST(Flowspec, GenericValidatorsChooseByCType) {
    const auto tspec = rsvp_valid_gen_tspec, flowspec = rsvp_valid_gen_flowspec;
    const std::tuple<int (*)(uint8_t *), Bytes, int> rows[] = {
        {tspec, hex(kTspecHex), 1},
        {tspec, object(12, 4, Bytes(12, 0xff)), 1},  // any 16-byte SONET/SDH body
        {tspec, object(12, 5, hex("00 00 00 07 00 01 00 01 4b 80 00 00")), 1},
        {tspec, object(12, 3, Bytes(12, 0)), 0},
        {tspec, object(9, 4, Bytes(12, 0)), 0},
        {flowspec, hex(kGtdHex), 1},
        {flowspec, object(9, 4, Bytes(12, 0xff)), 1},
        {flowspec, object(9, 5, hex("00 00 00 07 00 01 00 01 4b 80 00 00")), 1},
        {flowspec, object(9, 1, Bytes(12, 0)), 0},
        {flowspec, object(12, 2, Bytes(12, 0)), 0},
    };
    for (const auto &[valid, obj, verdict] : rows) {
        SCOPED_TRACE(to_hex(obj));
        HeapBytes b = heap_copy(obj);
        EXPECT_EQ(valid(b.data()), verdict);
        if (obj[2] == (valid == tspec ? 12 : 9)) {
            EXPECT_EQ(rsvp_valid_object(b.data()), unsigned(verdict));
        }
    }
    EXPECT_EQ(std::pair(tspec(nullptr), flowspec(nullptr)), std::pair(0, 0));
}
