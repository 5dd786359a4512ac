#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// The baseline with both service fragments, field by field.
const char *const kBaseline84 =
    "00 54 0d 02"              // length 84, class 13, C-Type 2
    "00 00 00 13"              // version 0, overall length 19 words
    "01 00 00 08"              // general parameters fragment, 8 words
    "04 00 00 01 00 00 00 00"  //   NUMBER_OF_IS_HOPS 0
    "06 00 00 01 7f 80 00 00"  //   AVAILABLE_PATH_BANDWIDTH +infinity
    "08 00 00 01 00 00 00 00"  //   MINIMUM_PATH_LATENCY 0
    "0a 00 00 01 ff ff ff ff"  //   PATH_MTU unlimited
    "02 00 00 08"              // Guaranteed fragment, 8 words
    "85 00 00 01 00 00 00 00"  //   Ctot 0
    "86 00 00 01 00 00 00 00"  //   Dtot 0
    "87 00 00 01 00 00 00 00"  //   Csum 0
    "88 00 00 01 00 00 00 00"  //   Dsum 0
    "05 00 00 00";             // Controlled-Load fragment, no data

Bytes baseline(uint32_t services) {
    Bytes b(RSVP_ADSPEC_BASELINE_MAX_LEN, 0xEE);
    rsvp_build_adspec_baseline(b.data(), services);
    b.resize(RSVP_OBJECT_LENGTH(b.data()));
    return b;
}

// The general part of an ADSPEC (44 bytes) followed by the given fragments, with the object
// and overall lengths set to cover them.
Bytes adspec_with(const Bytes &fragments) {
    Bytes b = baseline(RSVP_ADSPEC_BASELINE_GENERAL_ONLY);
    b.insert(b.end(), fragments.begin(), fragments.end());
    b[1] = static_cast<uint8_t>(b.size());
    b[7] = static_cast<uint8_t>(b.size() / 4 - 2);
    return b;
}

// The first len bytes, with the object length saying so.
Bytes cut(Bytes b, unsigned len) {
    b.resize(len);
    b[0] = static_cast<uint8_t>(len >> 8);
    b[1] = static_cast<uint8_t>(len);
    return b;
}

}  // namespace

TEST(AdspecBaseline, BytesLengthsAndAppendPointer) {
    const struct {
        uint32_t services;
        unsigned length;
        unsigned returned;  // the Controlled-Load fragment, else the end of the last one
        int valid;
    } rows[] = {{0, 84, 80, 1}, {1, 80, 80, 1}, {2, 48, 44, 1}, {3, 44, 44, 0}, {200, 44, 44, 0}};
    for (const auto &r : rows) {
        SCOPED_TRACE(r.services);
        Bytes buf(RSVP_ADSPEC_BASELINE_MAX_LEN + 4, 0xEE);
        EXPECT_EQ(rsvp_build_adspec_baseline(buf.data(), r.services), buf.data() + r.returned);
        EXPECT_EQ(RSVP_OBJECT_LENGTH(buf.data()), r.length);
        EXPECT_EQ(buf[r.length], 0xEE);  // nothing written past the object
        buf.resize(r.length);
        // The 84-byte baseline less the fragments not asked for, lengths adjusted.
        const Bytes full = hex(kBaseline84);
        Bytes want(full.begin(), full.begin() + 44);
        if (r.length >= 80) want.insert(want.end(), full.begin() + 44, full.begin() + 80);
        if (r.length == 84 || r.length == 48) want.insert(want.end(), full.end() - 4, full.end());
        want[1] = static_cast<uint8_t>(r.length);
        want[7] = static_cast<uint8_t>(r.length / 4 - 2);
        EXPECT_EQ(to_hex(buf), to_hex(want));
        // A general-only ADSPEC is rejected on purpose, although it can be built.
        EXPECT_EQ(rsvp_valid_adspec(heap_copy(buf).data()), r.valid);
        EXPECT_EQ(rsvp_valid_object(heap_copy(buf).data()), static_cast<uint32_t>(r.valid));
    }
}

TEST(AdspecValid, LengthSweepsAndFieldChecks) {
    for (unsigned len = 4; len <= 96; len += 4) {
        SCOPED_TRACE(len);
        EXPECT_EQ(rsvp_valid_adspec(heap_copy(cut(baseline(0), len)).data()), len >= 84 ? 1 : 0);
    }
    // In 84 bytes, 18 words end the walk behind the Guaranteed fragment and 19 behind the
    // Controlled-Load one; any other count overruns the object or splits a fragment.
    for (unsigned words = 0; words <= 25; ++words) {
        SCOPED_TRACE(words);
        Bytes b = baseline(0);
        b[7] = static_cast<uint8_t>(words);
        EXPECT_EQ(rsvp_valid_adspec(heap_copy(b).data()), words == 18 || words == 19 ? 1 : 0);
    }
    const struct {
        const char *name;
        unsigned offset;
        uint8_t value;
        int valid;
    } rows[] = {
        {"class", 2, RSVP_CLASS_FLOWSPEC, 0},
        {"C-Type", 3, 1, 0},
        {"version byte", 4, 0x10, 0},
        {"reserved byte", 5, 0x01, 0},
        {"general service", 8, RSVP_INTSRV_SERVICE_GUARANTEED, 0},
        {"general length", 11, 9, 0},
        {"general parameter id", 12, 99, 1},  // the parameters are not examined
        {"Guaranteed service number", 44, 99, 1},
        {"Guaranteed break bit", 45, 0x80, 1},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.name);
        Bytes b = baseline(0);
        b[r.offset] = r.value;
        EXPECT_EQ(rsvp_valid_adspec(heap_copy(b).data()), r.valid);
    }
    EXPECT_EQ(rsvp_valid_adspec(nullptr), 0);
}

TEST(AdspecExtract, FixedPositions) {
    const Bytes base1 = baseline(1);
    const Bytes gtd(base1.begin() + 44, base1.end());  // the 36-byte Guaranteed fragment
    const Bytes cl = hex("05 00 00 00");
    Bytes gtd_l9 = concat({gtd, cl});  // 40 bytes: its last data word starts with 5 (byte 80)
    gtd_l9[3] = 9;
    const struct {
        const char *name;
        Bytes obj;
        int gtd;  // offset of the fragment found, or 0 for none
        int cl;
    } rows[] = {
        {"baseline 0", baseline(0), 44, 80},
        {"baseline 1", baseline(1), 44, 0},
        {"baseline 2", baseline(2), 0, 44},
        {"Controlled-Load first", adspec_with(concat({cl, gtd})), 48, 44},
        // A 12-byte Guaranteed fragment, Controlled-Load at 56, a 24-byte filler: the
        // Controlled-Load fragment is looked for at 80 only.
        {"short Guaranteed",
         adspec_with(
             concat({hex("02 00 00 02"), Bytes(8, 0), cl, hex("09 00 00 05"), Bytes(20, 0)})),
         44, 0},
        // Found at 80 although byte 80 lies inside the Guaranteed data: no walk.
        {"long Guaranteed", adspec_with(gtd_l9), 44, 80},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.name);
        HeapBytes h = heap_copy(r.obj);
        ASSERT_EQ(rsvp_valid_adspec(h.data()), 1);
        uint8_t *frag = h.data();
        EXPECT_EQ(rsvp_adspec_extract_gtd_frag(h.data(), &frag), r.gtd ? 1 : 0);
        EXPECT_EQ(frag, r.gtd ? h.data() + r.gtd : nullptr);
        frag = h.data();
        EXPECT_EQ(rsvp_adspec_extract_cl_frag(h.data(), &frag), r.cl ? 1 : 0);
        EXPECT_EQ(frag, r.cl ? h.data() + r.cl : nullptr);
    }
    // An invalid object leaves the output alone.
    uint8_t sentinel = 0;
    uint8_t *frag = &sentinel;
    EXPECT_EQ(rsvp_adspec_extract_gtd_frag(heap_copy(baseline(3)).data(), &frag), 0);
    EXPECT_EQ(rsvp_adspec_extract_cl_frag(heap_copy(baseline(3)).data(), &frag), 0);
    EXPECT_EQ(rsvp_adspec_extract_cl_frag(nullptr, &frag), 0);
    EXPECT_EQ(frag, &sentinel);
}

TEST(AdspecHasQosService, StepsByLengthPlusFourWords) {
    const struct {
        const char *name;
        Bytes obj;
        uint8_t code;
        int found;
    } rows[] = {
        {"baseline 0, Guaranteed", baseline(0), RSVP_QOS_GUARANTEED, 1},
        {"baseline 0, Controlled-Load behind Guaranteed", baseline(0), RSVP_QOS_CONTROLLED_LOAD, 0},
        {"baseline 1, Guaranteed", baseline(1), RSVP_QOS_GUARANTEED, 1},
        {"baseline 2, Controlled-Load", baseline(2), RSVP_QOS_CONTROLLED_LOAD, 1},
        {"baseline 2, Guaranteed", baseline(2), RSVP_QOS_GUARANTEED, 0},
        {"wire number 2 is not a code", baseline(0), RSVP_INTSRV_SERVICE_GUARANTEED, 0},
        {"qualitative code", baseline(0), RSVP_QOS_QUALITATIVE, 0},
        // A 1-word fragment at 44, then a 5-word one whose data word at byte 60 starts with
        // 5: the step of 4 words from 44 lands there, a true walk never would.
        {"step lands inside a fragment",
         adspec_with(
             hex("09 00 00 00 09 00 00 04 00 00 00 00 00 00 00 00 05 00 00 00 00 00 00 00")),
         RSVP_QOS_CONTROLLED_LOAD, 1},
        // Not validated: the bytes present answer, and none past the object are read.
        {"baseline 0 cut to 48 bytes", cut(baseline(0), 48), RSVP_QOS_GUARANTEED, 1},
        {"baseline 0 cut to 44 bytes", cut(baseline(0), 44), RSVP_QOS_GUARANTEED, 0},
        // A real Controlled-Load fragment at 48: the step jumps over it.
        {"step jumps the next fragment", adspec_with(hex("09 00 00 00 05 00 00 00 09 00 00 00")),
         RSVP_QOS_CONTROLLED_LOAD, 0},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.name);
        EXPECT_EQ(rsvp_adspec_has_qos_service(heap_copy(r.obj).data(), r.code), r.found);
    }
    EXPECT_EQ(rsvp_adspec_has_qos_service(nullptr, RSVP_QOS_GUARANTEED), 0);
}

TEST(AdspecAccessors, ObjectLevelNeedValidityFragmentLevelDoNot) {
    HeapBytes h = heap_copy(baseline(0));
    uint8_t *obj = h.data();
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(obj + 12, 5);     // IS hops
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(obj + 28, 1200);  // latency
    EXPECT_EQ(RSVP_ADSPEC_HDR_VERSION(obj), 0u);
    EXPECT_EQ(RSVP_ADSPEC_HDR_LENGTH(obj), 19);
    EXPECT_EQ(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(obj), obj + 8);
    EXPECT_EQ(RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(obj, 36), obj + 80);
    EXPECT_EQ(RSVP_ADSPEC_BANDWIDTH_VAL(obj), 0x7f800000u);
    EXPECT_EQ(RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(obj), 5u);
    EXPECT_EQ(RSVP_ADSPEC_LATENCY_VAL(obj), 1200u);
    RSVP_ADSPEC_HDR_SET_LENGTH(obj, 18);
    EXPECT_EQ(obj[7], 18);

    // The same fields of an object that does not validate (general only) read as 0.
    HeapBytes g = heap_copy(baseline(3));
    uint8_t *bad = g.data();
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(bad + 12, 5);
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(bad + 28, 1200);
    for (uint8_t *o : {bad, static_cast<uint8_t *>(nullptr)}) {
        EXPECT_EQ(RSVP_ADSPEC_HDR_LENGTH(o) + RSVP_ADSPEC_HDR_VERSION(o), 0u);
        EXPECT_EQ(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(o), nullptr);
        EXPECT_EQ(RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(o, 0), nullptr);
        EXPECT_EQ(RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(o), 0u);
        EXPECT_EQ(RSVP_ADSPEC_BANDWIDTH_VAL(o), 0u);
        EXPECT_EQ(RSVP_ADSPEC_LATENCY_VAL(o), 0u);
        RSVP_ADSPEC_HDR_SET_LENGTH(o, 10);
    }
    EXPECT_EQ(bad[7], 9);  // the setter left the invalid object alone

    uint8_t *gtd = obj + 44;
    EXPECT_EQ(RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(gtd), 2u);
    EXPECT_EQ(RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(gtd), 8);
    EXPECT_EQ(RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(gtd), gtd + 4);
    EXPECT_EQ(RSVP_GTD_FRAG_HDR_PTR(gtd), gtd);
    EXPECT_EQ(RSVP_CLOAD_FRAG_HDR_PTR(gtd + 36), gtd + 36);
    uint8_t *(*const terms[])(uint8_t *) = {RSVP_GTD_CTOT_PTR, RSVP_GTD_DTOT_PTR, RSVP_GTD_CSUM_PTR,
                                            RSVP_GTD_DSUM_PTR};
    for (unsigned i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(terms[i](gtd), gtd + 4 + 8 * i);
        EXPECT_EQ(RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(terms[i](gtd)), RSVP_INTSRV_PARAM_CTOT + i);
        EXPECT_EQ(terms[i](nullptr), nullptr);
    }
    // The break bit setter stores the byte as given, not the RFC's high-order bit.
    RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(gtd, 1);
    EXPECT_EQ(RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(gtd), 1u);
    RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(gtd, 0x0102);
    EXPECT_EQ(to_hex(gtd, 4), "02 01 01 02");

    EXPECT_EQ(RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(nullptr) + RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(nullptr) +
                  RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(nullptr),
              0u);
    EXPECT_EQ(RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(nullptr), nullptr);
    RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(nullptr, 1);
    RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(nullptr, 1);

    HeapBytes sbm = heap_copy(object(RSVP_CLASS_ADSPEC, 1, hex("0a 01 02 03")));
    for (auto get : {RSVP_SBM_LAN_NHOP_L3_IPV4_ADDR, RSVP_SBM_DSBM_IPV4_ADDR,
                     RSVP_SBM_LAN_LOOPBACK_IPV4_ADDR}) {
        EXPECT_EQ(get(sbm.data()), ip("10.1.2.3"));  // wire order, unconverted
        EXPECT_EQ(get(nullptr), 0u);
    }
}
