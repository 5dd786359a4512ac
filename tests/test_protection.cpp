#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

using Get = uint32_t (*)(uint8_t *);
using SetBit = void (*)(uint8_t *, int);
using SetField = void (*)(uint8_t *, uint8_t);

// One accessor pair in both sets (PROTECTION, private), with the body (offsets 4..11) that
// setting it on a zero body leaves; the getter then reads 1 (a bit) or 63 (a flag field).
struct Accessor {
    Get get[2];
    SetBit set_bit[2];
    SetField set_field[2];
    const char *body;
};

const Accessor kAccessors[] = {
    {{RSVP_PROTECTION_S, RSVP_PVT_PROTECTION_S},
     {RSVP_PROTECTION_SET_S, RSVP_PVT_PROTECTION_SET_S},
     {},
     "80 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_P, RSVP_PVT_PROTECTION_P},
     {RSVP_PROTECTION_SET_P, RSVP_PVT_PROTECTION_SET_P},
     {},
     "40 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_N, RSVP_PVT_PROTECTION_N},
     {RSVP_PROTECTION_SET_N, RSVP_PVT_PROTECTION_SET_N},
     {},
     "20 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_O, RSVP_PVT_PROTECTION_O},
     {RSVP_PROTECTION_SET_O, RSVP_PVT_PROTECTION_SET_O},
     {},
     "10 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_LSP_FLAGS, RSVP_PVT_PROTECTION_LSP_FLAGS},
     {},
     {RSVP_PROTECTION_SET_LSP_FLAGS, RSVP_PVT_PROTECTION_SET_LSP_FLAGS},
     "00 3f 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_LINK_FLAGS, RSVP_PVT_PROTECTION_LINK_FLAGS},
     {},
     {RSVP_PROTECTION_SET_LINK_FLAGS, RSVP_PVT_PROTECTION_SET_LINK_FLAGS},
     "00 00 00 3f 00 00 00 00"},
    {{RSVP_PROTECTION_I, RSVP_PVT_PROTECTION_I},
     {RSVP_PROTECTION_SET_I, RSVP_PVT_PROTECTION_SET_I},
     {},
     "00 00 00 00 80 00 00 00"},
    {{RSVP_PROTECTION_R, RSVP_PVT_PROTECTION_R},
     {RSVP_PROTECTION_SET_R, RSVP_PVT_PROTECTION_SET_R},
     {},
     "00 00 00 00 40 00 00 00"},
    {{RSVP_PROTECTION_SEG_FLAGS, RSVP_PVT_PROTECTION_SEG_FLAGS},
     {},
     {RSVP_PROTECTION_SET_SEG_FLAGS, RSVP_PVT_PROTECTION_SET_SEG_FLAGS},
     "00 00 00 00 00 3f 00 00"},
};

void set(const Accessor &a, int which, uint8_t *obj, bool on) {
    if (a.set_bit[which])
        a.set_bit[which](obj, on ? 2 : 0);
    else
        a.set_field[which](obj, on ? 0xFF : 0xC0);  // only the low 6 bits count
}

}  // namespace

// Each accessor owns exactly its bits: set on a zero body, cleared on an all-ones body, and
// only for an object its own validator accepts.
TEST(Protection, AccessorsOwnTheirBitsAndNeedTheirValidator) {
    for (int which = 0; which < 2; ++which) {
        const uint8_t cls = which ? 190 : 37, c_type = which ? 252 : 2;
        for (const Accessor &a : kAccessors) {
            SCOPED_TRACE(testing::Message() << int(cls) << " " << a.body);
            Bytes o = object(cls, c_type, Bytes(8, 0));
            set(a, which, o.data(), true);
            EXPECT_EQ(to_hex(o.data() + 4, 8), a.body);
            EXPECT_EQ(a.get[which](o.data()), a.set_bit[which] ? 1u : 63u);
            Bytes ones = object(cls, c_type, Bytes(8, 0xFF));
            set(a, which, ones.data(), false);
            for (int b = 0; b < 8; ++b)
                EXPECT_EQ(ones[4 + b], uint8_t(0xFF & ~hex(a.body)[b]));
            EXPECT_EQ(a.get[which](ones.data()), 0u);
            // The twin's object, and the right object one word too long, are not touched.
            for (Bytes other : {object(which ? 37 : 190, which ? 2 : 252, Bytes(8, 0)),
                                object(37, 2, Bytes(12, 0))}) {
                if (which && other.size() == 16) continue;  // 16 bytes is a valid private object
                set(a, which, other.data(), true);
                EXPECT_EQ(to_hex(other.data() + 4, 8), "00 00 00 00 00 00 00 00");
                EXPECT_EQ(a.get[which](nullptr), 0u);
            }
        }
    }
}

TEST(Protection, BuildersWriteTheHeaderOnly) {
    Bytes p(16, 0xEE), v(16, 0xEE);
    rsvp_build_protection(p.data());
    rsvp_build_pvt_protection(v.data());
    EXPECT_EQ(to_hex(p.data(), 5) + " | " + to_hex(v.data(), 5), "00 0c 25 02 ee | 00 0c be fc ee");
    for (int len = 0; len <= 16; len += 4) {
        Bytes o = object(37, 2, Bytes(12, 0), len);
        EXPECT_EQ(rsvp_valid_protection(o.data()), len == 12) << len;
    }
    EXPECT_EQ(rsvp_valid_protection(nullptr) + rsvp_valid_pvt_protection(nullptr), 0);
}

// Subobjects: WTR and HOFF of exactly 8 bytes, SNC of 12; the last may run past the Length.
TEST(PvtProtection, SubobjectsAndTheLenientLastOne) {
    const struct {
        const char *sub;
        int valid;
    } rows[] = {{"0001 0008 00000001", 1},          {"0002 0008 00000001", 1},
                {"0003 000c 00000000 00000000", 1}, {"0001 000c 00000000 00000000", 0},
                {"0003 0008 00000000", 0},          {"0004 0008 00000000", 0},
                {"0001 0004 0000 0000", 0}};
    for (const auto &r : rows) {
        SCOPED_TRACE(r.sub);
        Bytes sub = hex(r.sub);
        EXPECT_EQ(rsvp_valid_pvt_protection_subobject(sub.data()), r.valid);
        Bytes o = concat({object(190, 252, Bytes(8, 0)), sub});
        o[1] = uint8_t(o.size());
        EXPECT_EQ(rsvp_valid_pvt_protection(o.data()), r.valid);
        o[1] = 16;  // the subobject now runs past the Length: still judged by its own header
        EXPECT_EQ(rsvp_valid_pvt_protection(o.data()), r.valid);
    }
    EXPECT_EQ(rsvp_valid_pvt_protection_subobject(nullptr), 0);
    for (int len : {8, 12}) {
        Bytes o = object(190, 252, Bytes(8, 0), len);
        EXPECT_EQ(rsvp_valid_pvt_protection(o.data()), len == 12);
    }
}

TEST(PvtProtection, AddWalkExtract) {
    Bytes o(48, 0);
    rsvp_build_pvt_protection(o.data());
    o[34] = 0xAA;  // inside the future SNC body words: merged, not cleared
    o[37] = 0xBB;
    o[41] = 1, o[43] = 8;  // a WTR header just behind the object, which the walk must not reach
    EXPECT_EQ(rsvp_add_pvt_protection_wtr(o.data(), 0x01020304), 1);
    EXPECT_EQ(rsvp_add_pvt_protection_hoff(o.data(), 500), 1);
    EXPECT_EQ(rsvp_add_pvt_protection_snc(o.data(), 9, 6), 1);
    const Bytes built = o;
    EXPECT_EQ(to_hex(built.data(), 40),
              "00 28 be fc 00 00 00 00 00 00 00 00 "
              "00 01 00 08 01 02 03 04 "               // WTR
              "00 02 00 08 00 00 01 f4 "               // HOFF 500
              "00 03 00 0c 20 00 aa 00 18 bb 00 00");  // SNC 1 (9 AND 7), 6
    EXPECT_EQ(rsvp_add_pvt_protection_wtr(o.data(), 7) + rsvp_add_pvt_protection_hoff(o.data(), 7) +
                  rsvp_add_pvt_protection_snc(o.data(), 1, 1) +
                  rsvp_add_pvt_protection_wtr(nullptr, 1),
              0);
    EXPECT_EQ(o, built);
    uint32_t v[2] = {0, 0};
    uint8_t m1 = 0, m2 = 0;
    uint8_t *s1 = rsvp_extract_pvt_protection_next_subobject(o.data(), nullptr);
    uint8_t *s2 = rsvp_extract_pvt_protection_next_subobject(o.data(), s1);
    uint8_t *s3 = rsvp_extract_pvt_protection_next_subobject(o.data(), s2);
    ASSERT_EQ(s1, o.data() + 12);
    ASSERT_EQ(s2, o.data() + 20);
    ASSERT_EQ(s3, o.data() + 28);
    EXPECT_EQ(rsvp_extract_pvt_protection_next_subobject(o.data(), s3), nullptr);
    EXPECT_EQ(rsvp_extract_pvt_protection_wtr(s1, &v[0]) +
                  rsvp_extract_pvt_protection_hoff(s2, &v[1]) +
                  rsvp_extract_pvt_protection_snc(s3, &m1, &m2),
              3);
    EXPECT_EQ(v[0] + v[1] + m1 * 10u + m2, 0x01020304u + 500 + 16);
    // The wrong type, or a null output, leaves the outputs alone.
    EXPECT_EQ(rsvp_extract_pvt_protection_wtr(s2, &v[0]) +
                  rsvp_extract_pvt_protection_hoff(s3, &v[1]) +
                  rsvp_extract_pvt_protection_snc(s1, &m1, &m2) +
                  rsvp_extract_pvt_protection_snc(s3, nullptr, &m2),
              0);
    EXPECT_EQ(v[0] + v[1] + m1 * 10u + m2, 0x01020304u + 500 + 16);
    EXPECT_EQ(RSVP_PVT_PROTECTION_SUBOBJ_TYPE(s3) * 100 + RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(s3),
              312);
    RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(s3, 0xFF, 0xF8);  // mode1 7, mode2 0
    EXPECT_EQ(to_hex(s3 + 4, 8), "e0 00 aa 00 00 bb 00 00");
    RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(s1, 7, 7);  // not an SNC: nothing
    EXPECT_EQ(to_hex(s1, 8), "00 01 00 08 01 02 03 04");
    o[3] = 0;  // invalid object: no walk
    EXPECT_EQ(rsvp_extract_pvt_protection_next_subobject(o.data(), nullptr), nullptr);
    s1[1] = 9;
    EXPECT_EQ(RSVP_PVT_PROTECTION_SUBOBJ_TYPE(s1) + RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(s1), 0);
}

// The add grows the Length in its low byte only: 252 + 8 reads 4.
TEST(PvtProtection, GrowthLosesTheCarry) {
    Bytes o(260, 0);
    rsvp_build_pvt_protection(o.data());
    for (int at = 12; at < 252; at += 8)
        o[at + 1] = 1, o[at + 3] = 8;  // 30 WTR subobjects: the validator allows repeats
    o[1] = 252;
    ASSERT_EQ(rsvp_valid_pvt_protection(o.data()), 1);
    EXPECT_EQ(rsvp_add_pvt_protection_hoff(o.data(), 1), 1);
    EXPECT_EQ(RSVP_OBJECT_LENGTH(o.data()), 4);
    EXPECT_EQ(to_hex(o.data() + 252, 8), "00 02 00 08 00 00 00 01");
}
