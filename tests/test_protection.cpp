#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// One accessor in both objects, and what setting it on a zero body leaves at offsets 4..11.
using Get = uint32_t (*)(uint8_t *);
using Set = void (*)(uint8_t *, int);
struct Accessor {
    Get get[2];
    Set set[2];
    const char *body;
};
template <void (*F)(uint8_t *, uint8_t)>
void field(uint8_t *obj, int on) {
    F(obj, on ? 0xFF : 0xC0);  // only the low 6 bits count
}
// clang-format off
const Accessor kAccessors[] = {
    {{RSVP_PROTECTION_S, RSVP_PVT_PROTECTION_S}, {RSVP_PROTECTION_SET_S, RSVP_PVT_PROTECTION_SET_S}, "80 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_P, RSVP_PVT_PROTECTION_P}, {RSVP_PROTECTION_SET_P, RSVP_PVT_PROTECTION_SET_P}, "40 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_N, RSVP_PVT_PROTECTION_N}, {RSVP_PROTECTION_SET_N, RSVP_PVT_PROTECTION_SET_N}, "20 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_O, RSVP_PVT_PROTECTION_O}, {RSVP_PROTECTION_SET_O, RSVP_PVT_PROTECTION_SET_O}, "10 00 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_LSP_FLAGS, RSVP_PVT_PROTECTION_LSP_FLAGS}, {field<RSVP_PROTECTION_SET_LSP_FLAGS>, field<RSVP_PVT_PROTECTION_SET_LSP_FLAGS>}, "00 3f 00 00 00 00 00 00"},
    {{RSVP_PROTECTION_LINK_FLAGS, RSVP_PVT_PROTECTION_LINK_FLAGS}, {field<RSVP_PROTECTION_SET_LINK_FLAGS>, field<RSVP_PVT_PROTECTION_SET_LINK_FLAGS>}, "00 00 00 3f 00 00 00 00"},
    {{RSVP_PROTECTION_I, RSVP_PVT_PROTECTION_I}, {RSVP_PROTECTION_SET_I, RSVP_PVT_PROTECTION_SET_I}, "00 00 00 00 80 00 00 00"},
    {{RSVP_PROTECTION_R, RSVP_PVT_PROTECTION_R}, {RSVP_PROTECTION_SET_R, RSVP_PVT_PROTECTION_SET_R}, "00 00 00 00 40 00 00 00"},
    {{RSVP_PROTECTION_SEG_FLAGS, RSVP_PVT_PROTECTION_SEG_FLAGS}, {field<RSVP_PROTECTION_SET_SEG_FLAGS>, field<RSVP_PVT_PROTECTION_SET_SEG_FLAGS>}, "00 00 00 00 00 3f 00 00"},
};
// clang-format on

}  // namespace

// Each accessor owns exactly its bits, set or cleared, in objects its own validator accepts.
TEST(Protection, AccessorsOwnTheirBitsAndNeedTheirValidator) {
    for (int which = 0; which < 2; ++which) {
        const uint8_t cls = which ? 190 : 37, c_type = which ? 252 : 2;
        for (const Accessor &a : kAccessors) {
            SCOPED_TRACE(testing::Message() << int(cls) << " " << a.body);
            Bytes o = object(cls, c_type, Bytes(8, 0)), ones = object(cls, c_type, Bytes(8, 0xFF));
            a.set[which](o.data(), 2);
            a.set[which](ones.data(), 0);
            EXPECT_EQ(to_hex(o.data() + 4, 8), a.body);
            EXPECT_EQ(a.get[which](o.data()), strstr(a.body, "3f") ? 63u : 1u);
            for (int b = 0; b < 8; ++b)
                EXPECT_EQ(ones[4 + b], uint8_t(0xFF & ~hex(a.body)[b]));
            EXPECT_EQ(a.get[which](ones.data()) + a.get[which](nullptr), 0u);
            Bytes twin = object(which ? 37 : 190, which ? 2 : 252, Bytes(8, 0xFF)), twin0 = twin;
            a.set[which](twin.data(), 0);
            EXPECT_EQ(a.get[which](twin.data()) + (twin != twin0), 0u);
        }
    }
}

TEST(PvtProtection, BuildValidateAddWalkExtract) {
    Bytes p(16, 0xEE), v(16, 0xEE);
    rsvp_build_protection(p.data());
    rsvp_build_pvt_protection(v.data());
    EXPECT_EQ(to_hex(p.data(), 5) + " | " + to_hex(v.data(), 5), "00 0c 25 02 ee | 00 0c be fc ee");
    for (int len = 8; len <= 16; len += 4)  // PROTECTION: 12 only; private: from 12 on
        EXPECT_EQ(rsvp_valid_protection(object(37, 2, Bytes(12, 0), len).data()) * 2 +
                      rsvp_valid_pvt_protection(object(190, 252, Bytes(12, 0), len).data()),
                  len == 12 ? 3 : 0);
    // Subobjects: WTR and HOFF of exactly 8 bytes, SNC of 12; the last may run past the Length.
    const std::pair<const char *, int> rows[] = {
        {"0001 0008 00000001", 1},          {"0002 0008 00000001", 1},
        {"0003 000c 00000000 00000000", 1}, {"0001 000c 00000000 00000000", 0},
        {"0003 0008 00000000", 0},          {"0004 0008 00000000", 0}};
    for (const auto &[text, valid] : rows) {
        SCOPED_TRACE(text);
        Bytes sub = hex(text), o = concat({object(190, 252, Bytes(8, 0)), sub});
        EXPECT_EQ(rsvp_valid_pvt_protection_subobject(sub.data()), valid);
        o[1] = uint8_t(o.size());
        EXPECT_EQ(rsvp_valid_pvt_protection(o.data()), valid);
        o[1] = 16;  // the subobject now runs past the Length: still judged by its own header
        EXPECT_EQ(rsvp_valid_pvt_protection(o.data()), valid);
    }
    EXPECT_EQ(rsvp_valid_pvt_protection_subobject(nullptr) + rsvp_valid_pvt_protection(nullptr), 0);
    Bytes o(48, 0);
    rsvp_build_pvt_protection(o.data());
    o[34] = 0xAA, o[37] = 0xBB;  // inside the future SNC words: merged, not cleared
    o[41] = 1, o[43] = 8;        // a WTR header just behind the object: the walk stops before it
    EXPECT_EQ(rsvp_add_pvt_protection_wtr(o.data(), 0x01020304) +
                  rsvp_add_pvt_protection_hoff(o.data(), 500) +
                  rsvp_add_pvt_protection_snc(o.data(), 9, 6),
              3);
    EXPECT_EQ(to_hex(o.data(), 40),
              "00 28 be fc 00 00 00 00 00 00 00 00 "
              "00 01 00 08 01 02 03 04 "               // WTR
              "00 02 00 08 00 00 01 f4 "               // HOFF 500
              "00 03 00 0c 20 00 aa 00 18 bb 00 00");  // SNC 1 (9 AND 7), 6
    const Bytes built = o;
    EXPECT_EQ(rsvp_add_pvt_protection_wtr(o.data(), 7) + rsvp_add_pvt_protection_hoff(o.data(), 7) +
                  rsvp_add_pvt_protection_snc(o.data(), 1, 1) +
                  rsvp_add_pvt_protection_wtr(nullptr, 1),
              0);
    EXPECT_EQ(o, built);
    uint8_t *sub[4] = {rsvp_extract_pvt_protection_next_subobject(o.data(), nullptr)};
    for (int i = 1; i < 4; ++i)
        sub[i] = rsvp_extract_pvt_protection_next_subobject(o.data(), sub[i - 1]);
    ASSERT_EQ(sub[0] - o.data() + (sub[1] - o.data()) * 100 + (sub[2] - o.data()) * 10000, 282012);
    EXPECT_EQ(sub[3], nullptr);
    uint32_t wtr = 0, hoff = 0;
    uint8_t m1 = 0, m2 = 0;
    auto extract_all = [&](uint8_t *w, uint8_t *h, uint8_t *s) {
        return rsvp_extract_pvt_protection_wtr(w, &wtr) +
               rsvp_extract_pvt_protection_hoff(h, &hoff) +
               rsvp_extract_pvt_protection_snc(s, &m1, &m2) +
               RSVP_PVT_PROTECTION_SNC_SUBOBJ_MODE(s, nullptr, &m2);
    };
    EXPECT_EQ(extract_all(sub[0], sub[1], sub[2]), 3);
    EXPECT_EQ(extract_all(sub[1], sub[2], sub[0]), 0);  // wrong types: outputs stay
    EXPECT_EQ(wtr + hoff + m1 * 10u + m2, 0x01020304u + 500 + 16);
    EXPECT_EQ(
        RSVP_PVT_PROTECTION_SUBOBJ_TYPE(sub[2]) * 100 + RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(sub[2]),
        312);
    RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(sub[2], 0xFF, 0xF8);  // mode1 7, mode2 0
    RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(sub[0], 7, 7);        // not an SNC: nothing
    EXPECT_EQ(to_hex(sub[2] + 4, 8) + " | " + to_hex(sub[0], 8),
              "e0 00 aa 00 00 bb 00 00 | 00 01 00 08 01 02 03 04");
    o[3] = 0;  // invalid object: no walk
    sub[0][1] = 9;
    EXPECT_EQ(rsvp_extract_pvt_protection_next_subobject(o.data(), nullptr), nullptr);
    EXPECT_EQ(RSVP_PVT_PROTECTION_SUBOBJ_TYPE(sub[0]) + RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(sub[0]),
              0);
    // The add grows the Length in its low byte only: 0x80fc + 8 reads 0x8004.
    Bytes big = object(190, 252, Bytes(16, 0), 0x80fc);
    ASSERT_EQ(rsvp_add_pvt_protection_hoff(big.data(), 1), 1);
    EXPECT_EQ(to_hex(big), "80 04 be fc 00 00 00 00 00 00 00 00 00 02 00 08 00 00 00 01");
}
