// Merging FLOWSPECs (least upper bound, field by field) and copying a SENDER_TSPEC's token
// bucket into a FLOWSPEC.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

namespace {

// An object in a buffer with room for the largest merge result, and sentinel bytes behind.
Bytes roomy(const Bytes &obj) {
    Bytes b(56, 0xa5);
    std::copy(obj.begin(), obj.end(), b.begin());
    return b;
}
Bytes gtd(int64_t burst, int64_t rate, uint32_t m, uint32_t big_m, int64_t peak, int64_t req,
          uint32_t slack) {
    Bytes b = roomy({});
    rsvp_build_flowspec(b.data(), RSVP_QOS_GUARANTEED, burst, rate, m, big_m, peak, req, slack);
    return b;
}
Bytes qualitative() {
    return roomy(object(9, 2, concat({hex("00 00 00 03"), hex(kQualFragHex)})));
}

}  // namespace

// Controlled-Load target, Guaranteed other: the result is Guaranteed, R is the larger of
// other's R and target's r (its requested rate), S the smaller of other's S and target's 0.
TEST(FlowspecMerge, ControlledLoadTargetMeetsGuaranteed) {
    Bytes target = roomy(hex(kClHex));
    Bytes other = gtd(20000, 1000000, 128, 1000, 3000000, 1100000, 50);
    ASSERT_EQ(rsvp_merge_flowspecs(other.data(), target.data()), 1);
    EXPECT_EQ(to_hex(target),
              to_hex(hex("00 30 09 02  00 00 00 0a  02 00 00 09  7f 00 00 05"
                         "49 98 96 80"  // r 1250000 (target)
                         "46 9c 40 00"  // b 20000 (other)
                         "4a 37 1b 00"  // p 3000000 (other)
                         "00 00 00 40"  // m 64 (target, smaller)
                         "00 00 05 dc"  // M 1500 (target)
                         "82 00 00 02"
                         "49 98 96 80"  // R 1250000: target's r beats other's 1100000
                         "00 00 00 00"  // S 0: target reports none
                         "a5 a5 a5 a5 a5 a5 a5 a5")));
}

TEST(FlowspecMerge, EachFieldTakesItsBound) {
    const std::pair<Bytes, FlowFields> rows[] = {
        // Guaranteed other, smaller everywhere: target's values, but other's minima.
        {gtd(1, 2, 3, 4, 5, 6, 7), {3, 10000, 1250000, 2500000, 3, 1500, 2000000, 7}},
        // Larger everywhere: other's values, but target's minima.
        {gtd(20000, 1500000, 128, 9000, 3000000, 4000000, 200),
         {3, 20000, 1500000, 3000000, 64, 9000, 4000000, 100}},
        // Unsigned 64-bit: -1 ranks above every positive rate.
        {gtd(-1, -1, 64, 1500, -1, -1, 100), {3, -1, -1, -1, 64, 1500, -1, 100}},
        // Controlled-Load other: its r stands for R, and its S is 0.
        {roomy(hex(kClHex)), {3, 10000, 1250000, 2500000, 64, 1500, 2000000, 0}},
        // Qualitative other: its m counts as 65535, S as 0.
        {qualitative(), {3, 10000, 1250000, 2500000, 64, 1500, 2000000, 0}},
    };
    for (const auto &[other, want] : rows) {
        SCOPED_TRACE(to_hex(other));
        Bytes target = roomy(hex(kGtdHex)), o = other;
        EXPECT_EQ(rsvp_merge_flowspecs(o.data(), target.data()), 1);
        EXPECT_EQ(flow_fields(target.data()), want);
    }
}

TEST(FlowspecMerge, IdenticalRequestChangesNothing) {
    for (const char *base : {kGtdHex, kClHex}) {
        SCOPED_TRACE(base);
        Bytes target = roomy(hex(base)), other = target;
        EXPECT_EQ(rsvp_merge_flowspecs(other.data(), target.data()), 0);
        EXPECT_EQ(rsvp_merge_flowspecs(target.data(), target.data()), 0);
        EXPECT_EQ(target, other);
    }
}

// When neither side is Guaranteed, other's service is taken: a qualitative (or missing) other
// answers 1 without writing anything; a Controlled-Load other is built.
TEST(FlowspecMerge, NeitherGuaranteedTakesOthersService) {
    const std::pair<Bytes, Bytes> unbuilt[] = {
        {qualitative(), qualitative()},
        {roomy(hex(kClHex)), qualitative()},
        {roomy(hex(kClHex)), {}},
    };
    for (const auto &[t, o] : unbuilt) {
        Bytes target = t, other = o;
        EXPECT_EQ(rsvp_merge_flowspecs(other.empty() ? nullptr : other.data(), target.data()), 1);
        EXPECT_EQ(target, t);
    }
    Bytes target = qualitative(), other = roomy(hex(kClHex));
    ASSERT_EQ(rsvp_merge_flowspecs(other.data(), target.data()), 1);
    EXPECT_EQ(target, other);  // m: the smaller of 65535 and 64
}

// The result is re-encoded: a float that does not survive ieee_to_int64 / int64_to_ieee is
// rewritten although no field grew, after which the target stays as it is.
TEST(FlowspecMerge, ReEncodingRewritesTheTarget) {
    Bytes target = roomy(patched(kGtdHex, 16, "49 98 96 81"));  // r 1250000.125
    Bytes other = target;
    EXPECT_EQ(rsvp_merge_flowspecs(other.data(), target.data()), 1);
    EXPECT_EQ(target, roomy(hex(kGtdHex)));
    EXPECT_EQ(rsvp_merge_flowspecs(other.data(), target.data()), 0);
}

// Only bytes 16 to 27 (r, b, p) change, copied raw; R is not adjusted.
TEST(FlowspecMerge, CopyRatesFromTspec) {
    Bytes tspec(36);
    rsvp_build_tspec(tspec.data(), 3000000, 20000, 4000000, 1, 9000);
    tspec[27] = 0x01;  // p's low bit: the copy is raw, not re-encoded
    for (const char *base : {kGtdHex, kClHex}) {
        SCOPED_TRACE(base);
        Bytes fs = hex(base), want = hex(base);
        std::copy(tspec.begin() + 16, tspec.begin() + 28, want.begin() + 16);
        ASSERT_EQ(rsvp_copy_flowspec_rate_from_tspec(fs.data(), tspec.data()), 1);
        EXPECT_EQ(fs, want);
        EXPECT_EQ(rsvp_valid_flowspec(fs.data()), base == kClHex);  // R 2000000 now below r
    }
}

TEST(FlowspecMerge, CopyRatesPreconditions) {
    Bytes tspec = hex(kTspecHex), bad_tspec = patched(kTspecHex, 28, "ff ff ff ff");  // m > M
    Bytes qual_tspec = object(12, 2, concat({hex("00 00 00 03"), hex(kQualFragHex)}));
    const std::tuple<Bytes, uint8_t *, int> rows[] = {
        {qualitative(), tspec.data(), 1},               // nothing to copy for service 6
        {hex(kGtdHex), nullptr, 0},                     // null tspec
        {hex(kGtdHex), bad_tspec.data(), 0},            // invalid tspec
        {hex(kGtdHex), qual_tspec.data(), 0},           // tspec without a service-1 fragment
        {patched(kGtdHex, 40, "00"), tspec.data(), 0},  // invalid flowspec: R below r
    };
    for (const auto &[fs, ts, result] : rows) {
        SCOPED_TRACE(to_hex(fs));
        Bytes copy = fs;
        EXPECT_EQ(rsvp_copy_flowspec_rate_from_tspec(copy.data(), ts), result);
        EXPECT_EQ(copy, fs);
    }
    EXPECT_EQ(rsvp_copy_flowspec_rate_from_tspec(nullptr, tspec.data()), 0);
}
