#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// The baseline with both service fragments, field by field.
const char *const kBaseline84 =
    "00 54 0d 02 00 00 00 13"  // length 84, class 13, C-Type 2; version 0, overall 19 words
    "01 00 00 08"              // general parameters fragment, 8 words
    "04 00 00 01 00 00 00 00"  //   NUMBER_OF_IS_HOPS 0
    "06 00 00 01 7f 80 00 00"  //   AVAILABLE_PATH_BANDWIDTH +infinity
    "08 00 00 01 00 00 00 00"  //   MINIMUM_PATH_LATENCY 0
    "0a 00 00 01 ff ff ff ff"  //   PATH_MTU unlimited
    "02 00 00 08"              // Guaranteed fragment, 8 words
    "85 00 00 01 00 00 00 00 86 00 00 01 00 00 00 00"  //   Ctot 0, Dtot 0
    "87 00 00 01 00 00 00 00 88 00 00 01 00 00 00 00"  //   Csum 0, Dsum 0
    "05 00 00 00";                                     // Controlled-Load fragment, no data

Bytes baseline(uint32_t services) {
    Bytes b(RSVP_ADSPEC_BASELINE_MAX_LEN, 0xEE);
    rsvp_build_adspec_baseline(b.data(), services);
    b.resize(RSVP_OBJECT_LENGTH(b.data()));
    return b;
}

const Bytes kFull = hex(kBaseline84), kGtdFrag(kFull.begin() + 44, kFull.end() - 4),
            kClFrag(kFull.end() - 4, kFull.end());

// The general part of the baseline (44 bytes) followed by the given fragments, with the object
// and overall lengths set to cover them.
Bytes adspec_with(const Bytes &fragments) {
    Bytes b = concat({Bytes(kFull.begin(), kFull.begin() + 44), fragments});
    b[1] = static_cast<uint8_t>(b.size());
    b[7] = static_cast<uint8_t>(b.size() / 4 - 2);
    return b;
}

Bytes with_byte(Bytes b, size_t at, uint8_t value) {
    b[at] = value;
    return b;
}

}  // namespace

TEST(AdspecBaseline, BytesPerSelectorAppendPointerAndValidation) {
    // Selector, then whether the Guaranteed and the Controlled-Load fragment follow the general
    // one. A general-only ADSPEC is rejected on purpose, although it can be built.
    const std::tuple<uint32_t, int, int> rows[] = {
        {0, 1, 1}, {1, 1, 0}, {2, 0, 1}, {3, 0, 0}, {200, 0, 0}};
    for (const auto &[services, has_gtd, has_cl] : rows) {
        SCOPED_TRACE(services);
        const Bytes want =
            adspec_with(concat({has_gtd ? kGtdFrag : Bytes{}, has_cl ? kClFrag : Bytes{}}));
        Bytes buf(RSVP_ADSPEC_BASELINE_MAX_LEN + 4, 0xEE);
        // The Controlled-Load fragment, else the end of the last fragment written.
        EXPECT_EQ(rsvp_build_adspec_baseline(buf.data(), services),
                  buf.data() + (has_gtd ? 80 : 44));
        // Nothing written past the object.
        EXPECT_EQ(to_hex(buf), to_hex(concat({want, Bytes(buf.size() - want.size(), 0xEE)})));
        const int valid = has_gtd || has_cl;
        EXPECT_EQ(rsvp_valid_adspec(heap_copy(want).data()), valid);
        EXPECT_EQ(rsvp_valid_object(heap_copy(want).data()), static_cast<uint32_t>(valid));
    }

    // The 84-byte baseline cut at every length, with every overall length: valid exactly when
    // the overall length reaches at least past the Guaranteed fragment (18 words) and stays
    // within the object (zero bytes behind the baseline are empty fragments). 10 to 17 words
    // split the Guaranteed fragment; 9 or fewer leave no fragment behind the general one.
    for (unsigned len = 4; len <= 96; len += 4)
        for (unsigned words = 0; words <= 25; ++words) {
            SCOPED_TRACE(testing::Message() << "length " << len << ", words " << words);
            Bytes b = cut_to(baseline(0), len);
            if (len >= 8) b[7] = static_cast<uint8_t>(words);
            EXPECT_EQ(rsvp_valid_adspec(heap_copy(b).data()), words >= 18 && 4 * words + 8 <= len);
        }
    const std::tuple<const char *, unsigned, uint8_t, int> fields[] = {
        {"class", 2, RSVP_CLASS_FLOWSPEC, 0},
        {"C-Type", 3, 1, 0},
        {"version byte", 4, 0x10, 0},
        {"general service", 8, RSVP_INTSRV_SERVICE_GUARANTEED, 0},
        {"general length", 11, 9, 0},
        {"general parameter id", 12, 99, 1},       // the parameters are not examined
        {"Guaranteed service number", 44, 99, 1},  // nor the service numbers
    };
    for (const auto &[name, offset, value, valid] : fields) {
        SCOPED_TRACE(name);
        Bytes b = baseline(0);
        b[offset] = value;
        EXPECT_EQ(rsvp_valid_adspec(heap_copy(b).data()), valid);
    }
    EXPECT_EQ(rsvp_valid_adspec(nullptr), 0);
}

TEST(AdspecFragments, FixedPositionsAndLengthPlusFourStep) {
    const Bytes &gtd = kGtdFrag, &cl = kClFrag;
    // A 40-byte Guaranteed fragment whose last data word starts with 5 (byte 80).
    const Bytes gtd_l9 = with_byte(concat({gtd, cl}), 3, 9);
    // A 1-word fragment at 44, then a 5-word one whose data word at byte 60 starts with 5.
    const Bytes step_inside =
        adspec_with(hex("09 00 00 00 09 00 00 04 00 00 00 00 00 00 00 00 05 00 00 00 00 00 00 00"));
    // Offsets of the Guaranteed and Controlled-Load fragments extracted (0: none; -1: invalid
    // object, output untouched), then has_qos_service for codes 3 and 5. The extractors look at
    // fixed positions; has_qos_service steps length + 4 words, not a fragment's size.
    const std::tuple<const char *, Bytes, int, int, int, int> rows[] = {
        {"baseline 0", baseline(0), 44, 80, 1, 0},
        {"baseline 1", baseline(1), 44, 0, 1, 0},
        {"baseline 2", baseline(2), 0, 44, 0, 1},
        // The step from 44 lands at 60 (a parameter of the Guaranteed fragment), then at 80.
        {"Controlled-Load first", adspec_with(concat({cl, gtd})), 48, 44, 0, 1},
        // A 12-byte Guaranteed fragment, Controlled-Load at 56, a 24-byte filler: the
        // Controlled-Load fragment is looked for at 80 only, and stepped over.
        {"short Guaranteed",
         adspec_with(
             concat({hex("02 00 00 02"), Bytes(8, 0), cl, hex("09 00 00 05"), Bytes(20, 0)})),
         44, 0, 1, 0},
        // Found at 80 although byte 80 lies inside the Guaranteed data: no walk.
        {"long Guaranteed", adspec_with(gtd_l9), 44, 80, 1, 0},
        // The step of 4 words from 44 lands at 60, a true walk never would.
        {"step lands inside a fragment", step_inside, 0, 0, 0, 1},
        // Overall length 11: the count (3 words) ends before that step.
        {"count ends before the step", with_byte(step_inside, 7, 11), -1, -1, 0, 0},
        // Bytes behind the object answer too: the fixed positions 48 and 80 are read even past
        // the object's end, and has_qos_service does not validate.
        {"Controlled-Load only, 02 behind", concat({baseline(2), hex("02")}), 48, 44, 0, 1},
        {"Guaranteed only, 05 behind", concat({baseline(1), hex("05")}), 44, 80, 1, 0},
        {"general only, 02 behind", concat({baseline(3), hex("02")}), -1, -1, 1, 0},
        {"header only", object(RSVP_CLASS_ADSPEC, RSVP_CTYPE_ADSPEC_INTSERV, {}), -1, -1, 0, 0},
        {"null", {}, -1, -1, 0, 0},
        // A length of 0xfffb makes the step -1: back to byte 40 (path MTU now 0x02ffffff).
        {"step wraps below 0", with_byte(adspec_with(hex("09 00 ff fb")), 40, 2), -1, -1, 1, 0},
        // Steps of 4 and -4 words go round between 44 and 60 for ever: nothing is found.
        {"steps go round",
         adspec_with(concat({hex("09 00 00 00"), Bytes(12, 0), hex("09 00 ff f8")})), -1, -1, 0, 0},
    };
    for (const auto &[name, obj, at_gtd, at_cl, qos_gtd, qos_cl] : rows) {
        SCOPED_TRACE(name);
        HeapBytes h = heap_copy(concat({obj, Bytes(40, 0)}));  // zeroed room behind the object
        uint8_t *const o = obj.empty() ? nullptr : h.data(), *const unset = h.data();
        uint8_t *frag = unset;
        EXPECT_EQ(rsvp_adspec_extract_gtd_frag(o, &frag), at_gtd > 0 ? 1 : 0);
        EXPECT_EQ(frag, at_gtd > 0 ? o + at_gtd : at_gtd == 0 ? nullptr : unset);
        frag = unset;
        EXPECT_EQ(rsvp_adspec_extract_cl_frag(o, &frag), at_cl > 0 ? 1 : 0);
        EXPECT_EQ(frag, at_cl > 0 ? o + at_cl : at_cl == 0 ? nullptr : unset);
        EXPECT_EQ(rsvp_adspec_has_qos_service(o, RSVP_QOS_GUARANTEED), qos_gtd);
        EXPECT_EQ(rsvp_adspec_has_qos_service(o, RSVP_QOS_CONTROLLED_LOAD), qos_cl);
    }
    // Interface codes only: the wire number 2 of the Guaranteed service finds nothing.
    EXPECT_EQ(
        rsvp_adspec_has_qos_service(heap_copy(baseline(0)).data(), RSVP_INTSRV_SERVICE_GUARANTEED),
        0);
}

TEST(AdspecAccessors, ObjectLevelNeedValidityFragmentLevelDoNot) {
    // A valid baseline and a general-only one (invalid), both with IS hops 5 and latency 1200.
    HeapBytes good = heap_copy(baseline(0)), bad = heap_copy(baseline(3));
    uint8_t *none = nullptr;
    for (uint8_t *o : {good.data(), bad.data()})
        o[19] = 5, o[34] = 0x04, o[35] = 0xb0;
    for (uint8_t *o : {good.data(), bad.data(), none}) {
        const bool v = o == good.data();
        SCOPED_TRACE(v ? "valid" : o ? "invalid" : "null");
        EXPECT_EQ(std::tuple(RSVP_ADSPEC_HDR_VERSION(o), RSVP_ADSPEC_HDR_LENGTH(o),
                             RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(o), RSVP_ADSPEC_BANDWIDTH_VAL(o),
                             RSVP_ADSPEC_LATENCY_VAL(o)),
                  v ? std::tuple(0u, 19, 5u, 0x7f800000u, 1200u) : std::tuple(0u, 0, 0u, 0u, 0u));
        EXPECT_EQ(std::pair(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(o),
                            RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(o, 36)),
                  v ? std::pair(o + 8, o + 80) : std::pair(none, none));
        RSVP_ADSPEC_HDR_SET_LENGTH(o, 18);
    }
    // The setter left the invalid object alone.
    EXPECT_EQ(std::pair(good.data()[7], bad.data()[7]), std::pair(uint8_t{18}, uint8_t{9}));

    // Fragment-level accessors want only a pointer. The break bit setter stores the byte as
    // given, not the RFC's high-order bit.
    uint8_t *gtd = good.data() + 44;
    uint8_t *(*const ptrs[])(uint8_t *) = {
        RSVP_GTD_FRAG_HDR_PTR, RSVP_CLOAD_FRAG_HDR_PTR, RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT,
        RSVP_GTD_CTOT_PTR,     RSVP_GTD_DTOT_PTR,       RSVP_GTD_CSUM_PTR,
        RSVP_GTD_DSUM_PTR};
    const unsigned offsets[] = {0, 0, 4, 4, 12, 20, 28};
    for (uint8_t *f : {gtd, none}) {
        SCOPED_TRACE(f ? "fragment" : "null");
        RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(f, 1);
        RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(f, 0x0102);
        EXPECT_EQ(std::tuple(RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(f), RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(f),
                             RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(f)),
                  f ? std::tuple(2u, 1u, 0x0102) : std::tuple(0u, 0u, 0));
        for (unsigned i = 0; i < 7; ++i)
            EXPECT_EQ(ptrs[i](f), f ? f + offsets[i] : nullptr) << i;
    }
    EXPECT_EQ(to_hex(gtd, 4), "02 01 01 02");

    HeapBytes sbm = heap_copy(object(RSVP_CLASS_ADSPEC, 1, hex("0a 01 02 03")));
    for (auto get : {RSVP_SBM_LAN_NHOP_L3_IPV4_ADDR, RSVP_SBM_DSBM_IPV4_ADDR,
                     RSVP_SBM_LAN_LOOPBACK_IPV4_ADDR}) {
        EXPECT_EQ(get(sbm.data()), ip("10.1.2.3"));  // wire order, unconverted
        EXPECT_EQ(get(nullptr), 0u);
    }
}
