#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

Bytes obj8(uint8_t cls) {
    return object(cls, 1, hex("01 02 03 04"));
}
Bytes null4() {
    return object(0, 0, {});
}

}  // namespace

TEST(ObjectHeader, BuildAndAccessors) {
    Bytes b(8, 0xEE);
    rsvp_build_object(b.data(), 20, 1, 0x0104);
    EXPECT_EQ(to_hex(b), "01 04 14 01 ee ee ee ee");  // the body is left alone
    EXPECT_EQ(RSVP_OBJECT_LENGTH(b.data()), 0x104);
    EXPECT_EQ(RSVP_OBJECT_CLASS(b.data()), 20u);
    EXPECT_EQ(RSVP_OBJECT_C_TYPE(b.data()), 1u);
    RSVP_SET_OBJECT_LENGTH(b.data(), 12);
    RSVP_OBJECT_SET_CLASS(b.data(), 207);
    RSVP_OBJECT_SET_C_TYPE(b.data(), 7);
    EXPECT_EQ(to_hex(b.data(), 4), "00 0c cf 07");
    EXPECT_EQ(rsvp_next_object(b.data()), b.data() + 12);

    EXPECT_EQ(RSVP_OBJECT_LENGTH(nullptr), 0);
    EXPECT_EQ(RSVP_OBJECT_CLASS(nullptr), 0u);
    EXPECT_EQ(RSVP_OBJECT_C_TYPE(nullptr), 0u);
    RSVP_SET_OBJECT_LENGTH(nullptr, 4);
    RSVP_OBJECT_SET_CLASS(nullptr, 1);
    RSVP_OBJECT_SET_C_TYPE(nullptr, 1);
}

// Each row walks one step from the start of a run: the object found (as an offset, -1 for
// null) and the remaining count afterwards.
TEST(NextNonnull, OneStep) {
    Bytes bad6 = concat({obj8(1), obj8(2), Bytes(4, 0)});
    bad6[9] = 6;  // second object's Length: not a multiple of 4
    Bytes past = concat({obj8(1), obj8(2), Bytes(4, 0)});
    past[9] = 16;  // second object reaches past the run
    Bytes zero = concat({obj8(1), obj8(2), Bytes(4, 0)});
    zero[9] = 0;
    struct Row {
        const char *name;
        Bytes run;
        uint32_t remaining;
        int found;
        uint32_t remaining_after;
    } rows[] = {
        {"a run of one object", obj8(1), 8, -1, 0},
        {"null objects are skipped", concat({obj8(1), null4(), obj8(3)}), 20, 12, 8},
        {"the start is stepped over even when null", concat({null4(), obj8(1)}), 12, 4, 8},
        {"trailing nulls end the walk", concat({obj8(1), null4(), null4(), Bytes(2, 0)}), 18, -1,
         2},
        {"Length 6 ends the walk", bad6, 20, -1, 12},
        {"Length past the run ends the walk", past, 20, -1, 12},
        {"Length 0 ends the walk", zero, 20, -1, 12},
        {"a malformed start is not stepped over", object(1, 1, hex("00 00"), 6), 6, -1, 6},
    };
    for (Row &r : rows) {
        SCOPED_TRACE(r.name);
        HeapBytes run = heap_copy(r.run);
        uint32_t rem = r.remaining;
        uint8_t *got = rsvp_next_nonnull_object(run.data(), &rem);
        EXPECT_EQ(got, r.found < 0 ? nullptr : run.data() + r.found);
        EXPECT_EQ(rem, r.remaining_after);
    }
}

TEST(NextNonnull, RemainingBelowHeaderTouchesNothing) {
    for (uint32_t r = 0; r < 4; ++r) {
        uint32_t rem = r;
        HeapBytes run = heap_copy(Bytes(r, 0));  // any read of the object would be caught
        EXPECT_EQ(rsvp_next_nonnull_object(run.data(), &rem), nullptr);
        EXPECT_EQ(rem, r);
    }
    uint32_t rem = 8;
    EXPECT_EQ(rsvp_next_nonnull_object(nullptr, &rem), nullptr);
    Bytes b = obj8(1);
    EXPECT_EQ(rsvp_next_nonnull_object(b.data(), nullptr), nullptr);
}

TEST(FirstObjectType, FindsAndStops) {
    HeapBytes run = heap_copy(concat({null4(), obj8(1), null4(), obj8(3), obj8(3)}));
    const uint32_t len = 32;
    EXPECT_EQ(rsvp_first_object_type(run.data(), len, 3), run.data() + 16);
    EXPECT_EQ(rsvp_first_object_type(run.data(), len, 1), run.data() + 4);
    EXPECT_EQ(rsvp_first_object_type(run.data(), len, 0), run.data());  // only a leading null
    EXPECT_EQ(rsvp_first_object_type(run.data(), len, 9), nullptr);
    EXPECT_EQ(rsvp_first_object_type(run.data(), 3, 0), nullptr);
    EXPECT_EQ(rsvp_first_object_type(nullptr, len, 1), nullptr);
    // The run is cut inside the second class-3 object: the first is still found, not past it.
    EXPECT_EQ(rsvp_first_object_type(run.data(), 20, 3), nullptr);
    EXPECT_EQ(rsvp_first_object_type(run.data(), 24, 3), run.data() + 16);
    HeapBytes later = heap_copy(concat({obj8(1), null4(), obj8(2)}));  // a null not in front
    EXPECT_EQ(rsvp_first_object_type(later.data(), 20, 0), nullptr);
}

TEST(FirstObjectType, MalformedObjectBeforeTheClassEndsTheSearch) {
    Bytes b = concat({obj8(1), obj8(2), obj8(3)});
    b[9] = 7;  // second object Length 7
    HeapBytes run = heap_copy(b);
    EXPECT_EQ(rsvp_first_object_type(run.data(), 24, 3), nullptr);
    EXPECT_EQ(rsvp_first_object_type(run.data(), 24, 1), run.data());
    b[1] = 7;  // the first object itself malformed
    HeapBytes run2 = heap_copy(b);
    EXPECT_EQ(rsvp_first_object_type(run2.data(), 24, 1), nullptr);
}

TEST(FirstObjectTypeOrdered, Rules) {
    // SESSION(1) 6 5 6: the first 6 stands before 5, so nothing is found.
    HeapBytes run = heap_copy(concat({obj8(1), obj8(6), obj8(5), obj8(6)}));
    EXPECT_EQ(rsvp_first_object_type_ordered(run.data(), 32, 5, 6), nullptr);
    // SESSION(1) 5 6: found.
    HeapBytes run2 = heap_copy(concat({obj8(1), obj8(5), null4(), obj8(6)}));
    EXPECT_EQ(rsvp_first_object_type_ordered(run2.data(), 28, 5, 6), run2.data() + 20);
    // The same class for both: the object itself counts as its own predecessor.
    EXPECT_EQ(rsvp_first_object_type_ordered(run2.data(), 28, 6, 6), run2.data() + 20);
    // class_before absent.
    EXPECT_EQ(rsvp_first_object_type_ordered(run2.data(), 28, 9, 6), nullptr);
    EXPECT_EQ(rsvp_first_object_type_ordered(nullptr, 28, 5, 6), nullptr);
    EXPECT_EQ(rsvp_first_object_type_ordered(run2.data(), 3, 5, 6), nullptr);
}

TEST(ChangeObjectLength, ShrinkLeavesFillerForWholeWordGaps) {
    struct Row {
        uint16_t to;
        const char *expect;
    } rows[] = {
        {16, "00 10 14 01 00 00 00 00 00 00 00 00 00 00 00 00 00 08 00 00 ee ee ee ee"},
        {22, "00 16 14 01 00 00 00 00 00 00 00 00 00 00 00 00 ee ee ee ee ee ee ee ee"},
        {30, "00 1e 14 01 00 00 00 00 00 00 00 00 00 00 00 00 ee ee ee ee ee ee ee ee"},
        {24, "00 18 14 01 00 00 00 00 00 00 00 00 00 00 00 00 ee ee ee ee ee ee ee ee"},
        // A gap of 6: the filler is written even though the walk will reject it.
        {18, "00 12 14 01 00 00 00 00 00 00 00 00 00 00 00 00 ee ee 00 06 00 00 ee ee"},
        {0, "00 00 14 01 00 00 00 00 00 00 00 00 00 00 00 00 ee ee ee ee ee ee ee ee"},
    };
    for (const Row &r : rows) {
        SCOPED_TRACE(r.to);
        Bytes b(24, 0);
        rsvp_build_object(b.data(), 20, 1, 24);
        std::fill(b.begin() + 16, b.end(), 0xEE);
        RSVP_CHANGE_OBJECT_LENGTH(b.data(), r.to);
        if (r.to == 0) {
            // From 24 to 0: a filler of 24 at offset 0 overwrites the header again.
            EXPECT_EQ(to_hex(b.data(), 4), "00 18 00 00");
        } else {
            EXPECT_EQ(to_hex(b), r.expect);
        }
    }
    RSVP_CHANGE_OBJECT_LENGTH(nullptr, 8);
}

TEST(ObjectCopy, CopiesLengthBytesAndAllowsOverlap) {
    Bytes src = obj8(7);
    Bytes dst(12, 0xCC);
    rsvp_object_copy(dst.data(), src.data());
    EXPECT_EQ(to_hex(dst), "00 08 07 01 01 02 03 04 cc cc cc cc");

    Bytes ov = concat({obj8(7), Bytes(4, 0)});
    rsvp_object_copy(ov.data() + 4, ov.data());
    EXPECT_EQ(to_hex(ov), "00 08 07 01 00 08 07 01 01 02 03 04");

    Bytes untouched(8, 0xCC);
    rsvp_object_copy(untouched.data(), nullptr);
    Bytes zero_len = object(1, 1, hex("01 02 03 04"), 0);
    rsvp_object_copy(untouched.data(), zero_len.data());
    EXPECT_EQ(to_hex(untouched), "cc cc cc cc cc cc cc cc");
}

TEST(ObjectCompare, EqualityOnly) {
    Bytes a = obj8(1), b = obj8(1), c = obj8(2);
    Bytes longer = object(1, 1, hex("01 02 03 04 00 00 00 00"));
    EXPECT_EQ(rsvp_object_compare(nullptr, nullptr), 0);
    EXPECT_EQ(rsvp_object_compare(a.data(), nullptr), 1);
    EXPECT_EQ(rsvp_object_compare(nullptr, a.data()), 1);
    EXPECT_EQ(rsvp_object_compare(a.data(), a.data()), 0);
    EXPECT_EQ(rsvp_object_compare(a.data(), b.data()), 0);
    EXPECT_EQ(rsvp_object_compare(a.data(), c.data()), 1);
    EXPECT_EQ(rsvp_object_compare(a.data(), longer.data()), 1);
    b[7] ^= 1;  // last body byte
    EXPECT_EQ(rsvp_object_compare(a.data(), b.data()), 1);
}

TEST(Uint32ArrayCopy, BothDirectionsSwap) {
    const Bytes wire = hex("01 02 03 04 a0 b0 c0 d0");
    uint32_t src[2];
    std::memcpy(src, wire.data(), 8);
    uint32_t dst[3] = {7, 7, 7};
    RSVP_COPY_UINT32_ARRAY_NTOHL(dst, src, 2);
    EXPECT_EQ(dst[0], 0x01020304u);
    EXPECT_EQ(dst[1], 0xa0b0c0d0u);
    EXPECT_EQ(dst[2], 7u);
    uint32_t back[2];
    RSVP_COPY_UINT32_ARRAY_HTONL(back, dst, 2);
    EXPECT_EQ(std::memcmp(back, wire.data(), 8), 0);

    uint32_t keep[1] = {9};
    RSVP_COPY_UINT32_ARRAY_NTOHL(keep, src, 0);
    RSVP_COPY_UINT32_ARRAY_NTOHL(keep, nullptr, 1);
    RSVP_COPY_UINT32_ARRAY_HTONL(nullptr, src, 1);
    RSVP_COPY_UINT32_ARRAY_HTONL(keep, src, 0);
    EXPECT_EQ(keep[0], 9u);
}
