// Merging FLOWSPECs field by field, and copying a SENDER_TSPEC's token bucket into a FLOWSPEC.
#include <gtest/gtest.h>

#include "intserv_fixtures.hpp"

using namespace rsvp_test;

namespace {

// An object in a buffer with room for the largest merge result, and sentinel bytes behind.
Bytes roomy(const Bytes &obj) {
    return concat({obj, Bytes(56 - obj.size(), 0xa5)});
}
Bytes gtd(int64_t burst, int64_t rate, uint32_t m, uint32_t big_m, int64_t peak, int64_t req,
          uint32_t slack) {
    Bytes b = roomy({});
    rsvp_build_flowspec(b.data(), RSVP_QOS_GUARANTEED, burst, rate, m, big_m, peak, req, slack);
    return b;
}
const Bytes kGtd = roomy(hex(kGtdHex)), kCl = roomy(hex(kClHex)),
            kQual = roomy(object(9, 2, concat({hex("00 00 00 03"), hex(kQualFragHex)})));

}  // namespace

// The result is Guaranteed when either side is; each field takes its bound (unsigned) over
// what the getters report. Else other's service is taken: a qualitative (or missing) other
// builds nothing, and the answer is 1 without a write. 0 when target is left as it was, so
// merging the result with itself changes nothing: 0, or for a qualitative one 1.
TEST(FlowspecMerge, EachFieldTakesItsBound) {
    const Bytes inexact = roomy(patched(kGtdHex, 16, "49 98 96 81"));  // r 1250000.125
    const Bytes gtd_max = gtd(10000, 1250000, 64, 1500, 2500000, 2000000, 0);
    const std::tuple<Bytes, Bytes, int, Bytes> rows[] = {
        // Guaranteed other, smaller everywhere: target's values, but other's minima.
        {kGtd, gtd(1, 2, 3, 4, 5, 6, 7), 1, gtd(10000, 1250000, 3, 1500, 2500000, 2000000, 7)},
        // Larger everywhere: other's values, but target's minima.
        {kGtd, gtd(20000, 1500000, 128, 9000, 3000000, 4000000, 200), 1,
         gtd(20000, 1500000, 64, 9000, 3000000, 4000000, 100)},
        // Unsigned 64-bit: -1 ranks above every positive rate.
        {kGtd, gtd(-1, -1, 64, 1500, -1, -1, 100), 1, gtd(-1, -1, 64, 1500, -1, -1, 100)},
        // Controlled-Load other: its r stands for R, and its S is 0.
        {kGtd, kCl, 1, gtd_max},
        // Controlled-Load target: R is the larger of other's R and target's r (1250000 beats
        // 1100000), S the smaller of other's S and target's 0.
        {kCl, gtd(20000, 1000000, 128, 1000, 3000000, 1100000, 50), 1,
         gtd(20000, 1250000, 64, 1500, 3000000, 1250000, 0)},
        {kGtd, kGtd, 0, kGtd},
        {kCl, kCl, 0, kCl},
        {kQual, kQual, 1, kQual},
        {kCl, {}, 1, kCl},            // no service taken from a null other: nothing built
        {kQual, kCl, 1, kCl},         // Controlled-Load built; m the smaller of 65535 and 64
        {inexact, inexact, 1, kGtd},  // re-encoded although no field grew
    };
    for (const auto &[t, o, result, want] : rows) {
        SCOPED_TRACE(to_hex(t) + " <- " + to_hex(o));
        Bytes target = t, other = o;
        EXPECT_EQ(rsvp_merge_flowspecs(o.empty() ? nullptr : other.data(), target.data()), result);
        EXPECT_EQ(to_hex(target), to_hex(want));  // nothing written behind the 48 bytes
        EXPECT_EQ(rsvp_merge_flowspecs(target.data(), target.data()), want == kQual ? 1 : 0);
        EXPECT_EQ(target, want);
    }
    // A null target differs from every merge, and is never written.
    Bytes other = kGtd;
    EXPECT_EQ(rsvp_merge_flowspecs(nullptr, nullptr) + rsvp_merge_flowspecs(other.data(), nullptr),
              2);
}

// Only bytes 16 to 27 (r, b, p) change, copied raw: R is not adjusted. Where a precondition
// fails, or the service has no token bucket, the flowspec stays as it is.
TEST(FlowspecMerge, CopyRatesFromTspec) {
    // r 3000000, b 20000, p 4000000 with its low bit set: copied raw, not re-encoded. m 1 is
    // not copied.
    const char *rates = "4a 37 1b 00  46 9c 40 00  4a 74 24 01";
    Bytes tspec = patched(kTspecHex, 16, rates), bad_tspec = patched(kTspecHex, 28, "ff");
    tspec[31] = 1;
    Bytes qual_tspec = object(12, 2, concat({hex("00 00 00 03"), hex(kQualFragHex)}));
    const std::tuple<Bytes, uint8_t *, int, Bytes> rows[] = {
        {hex(kGtdHex), tspec.data(), 1, patched(kGtdHex, 16, rates)},
        {hex(kClHex), tspec.data(), 1, patched(kClHex, 16, rates)},
        {kQual, tspec.data(), 1, {}},                       // nothing to copy for service 6
        {hex(kGtdHex), nullptr, 0, {}},                     // null tspec
        {hex(kGtdHex), bad_tspec.data(), 0, {}},            // invalid tspec: m above M
        {hex(kGtdHex), qual_tspec.data(), 0, {}},           // tspec without a service-1 fragment
        {patched(kGtdHex, 40, "00"), tspec.data(), 0, {}},  // invalid flowspec: R below r
    };
    for (const auto &[fs, ts, result, want] : rows) {
        SCOPED_TRACE(to_hex(fs));
        Bytes copy = fs;
        EXPECT_EQ(rsvp_copy_flowspec_rate_from_tspec(copy.data(), ts), result);
        EXPECT_EQ(copy, want.empty() ? fs : want);
    }
    EXPECT_EQ(rsvp_copy_flowspec_rate_from_tspec(nullptr, tspec.data()), 0);
}
