#include <gtest/gtest.h>

#include <tuple>

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
// Objects of classes 1, 2 and 3 with the second one's Length byte replaced.
Bytes second_length(uint8_t len) {
    Bytes b = concat({obj8(1), obj8(2), obj8(3)});
    b[9] = len;
    return b;
}

}  // namespace

TEST(ObjectHeader, BuildAccessorsAndLengthChange) {
    Bytes b(8, 0xEE);
    rsvp_build_object(b.data(), 20, 1, 0x0104);
    EXPECT_EQ(to_hex(b), "01 04 14 01 ee ee ee ee");  // the body is left alone
    EXPECT_EQ(std::tuple(RSVP_OBJECT_LENGTH(b.data()), RSVP_OBJECT_CLASS(b.data()),
                         RSVP_OBJECT_C_TYPE(b.data())),
              std::tuple(0x104, 20u, 1u));
    RSVP_SET_OBJECT_LENGTH(b.data(), 12);
    RSVP_OBJECT_SET_CLASS(b.data(), 207);
    RSVP_OBJECT_SET_C_TYPE(b.data(), 7);
    EXPECT_EQ(to_hex(b.data(), 4), "00 0c cf 07");
    EXPECT_EQ(rsvp_next_object(b.data()), b.data() + 12);

    EXPECT_EQ(
        RSVP_OBJECT_LENGTH(nullptr) + RSVP_OBJECT_CLASS(nullptr) + RSVP_OBJECT_C_TYPE(nullptr), 0u);
    RSVP_SET_OBJECT_LENGTH(nullptr, 4);
    RSVP_OBJECT_SET_CLASS(nullptr, 1);
    RSVP_OBJECT_SET_C_TYPE(nullptr, 1);

    // A 24-byte object shrunk or grown: its first four bytes and its last eight, which were 0xee.
    const std::tuple<uint16_t, const char *, const char *> rows[] = {
        {16, "00 10 14 01", "00 08 00 00 ee ee ee ee"},
        {22, "00 16 14 01", "ee ee ee ee ee ee ee ee"},
        {30, "00 1e 14 01", "ee ee ee ee ee ee ee ee"},
        // A gap of 6: the filler is written even though the walk will reject it.
        {18, "00 12 14 01", "ee ee 00 06 00 00 ee ee"},
        // From 24 to 0: a filler of 24 at offset 0 overwrites the header again.
        {0, "00 18 00 00", "ee ee ee ee ee ee ee ee"},
    };
    for (const auto &[to, head, tail] : rows) {
        SCOPED_TRACE(to);
        Bytes o(24, 0);
        rsvp_build_object(o.data(), 20, 1, 24);
        std::fill(o.begin() + 16, o.end(), 0xEE);
        RSVP_CHANGE_OBJECT_LENGTH(o.data(), to);
        EXPECT_EQ(to_hex(o), to_hex(concat({hex(head), Bytes(12, 0), hex(tail)})));
    }
    RSVP_CHANGE_OBJECT_LENGTH(nullptr, 8);
}

// Each row walks one step from the start of a run (an empty run stands for null): the object
// found (as an offset, -1 for null) and the remaining count afterwards.
TEST(ObjectWalk, NextNonnullStepAndFirstObjectType) {
    const std::tuple<const char *, Bytes, uint32_t, int, uint32_t> steps[] = {
        {"null objects are skipped", concat({obj8(1), null4(), obj8(3)}), 20, 12, 8},
        {"the start is stepped over even when null", concat({null4(), obj8(1)}), 12, 4, 8},
        {"Length past the run ends the walk", second_length(16), 20, -1, 12},
        {"Length 0 ends the walk", second_length(0), 20, -1, 12},
        {"null run", {}, 8, -1, 8},
    };
    for (const auto &[name, bytes, remaining, found, remaining_after] : steps) {
        SCOPED_TRACE(name);
        HeapBytes run = heap_copy(bytes);
        uint8_t *const o = bytes.empty() ? nullptr : run.data();
        uint32_t rem = remaining;
        EXPECT_EQ(rsvp_next_nonnull_object(o, &rem), found < 0 ? nullptr : o + found);
        EXPECT_EQ(rem, remaining_after);
    }
    EXPECT_EQ(rsvp_next_nonnull_object(obj8(1).data(), nullptr), nullptr);

    // Each row searches a run of the given length (an empty run stands for null) for a class, or
    // for a class standing after class_before (-1: unordered): the offset found, -1 for null.
    const Bytes nulls = concat({null4(), obj8(1), null4(), obj8(3), obj8(3)});
    const Bytes ordered = concat({obj8(1), obj8(5), null4(), obj8(6)});
    Bytes bad_first = second_length(7);
    bad_first[1] = 7;
    const std::tuple<const char *, Bytes, uint32_t, int, uint8_t, int> searches[] = {
        {"class 3", nulls, 32, -1, 3, 16},
        {"only a leading null is class 0", nulls, 32, -1, 0, 0},
        {"a null not in front", concat({obj8(1), null4(), obj8(2)}), 20, -1, 0, -1},
        {"absent", nulls, 32, -1, 9, -1},
        {"below a header", nulls, 3, -1, 0, -1},
        {"run cut inside the object", nulls, 20, -1, 3, -1},
        {"run ends with the object", nulls, 24, -1, 3, 16},
        {"malformed object before the class", second_length(7), 24, -1, 3, -1},
        {"malformed object after the class", second_length(7), 24, -1, 1, 0},
        {"malformed first object", bad_first, 24, -1, 1, -1},
        {"null", {}, 32, -1, 1, -1},
        {"ordered: found", ordered, 28, 5, 6, 20},
        // The first 6 stands before 5, so nothing is found.
        {"ordered: the class comes first", concat({obj8(1), obj8(6), obj8(5), obj8(6)}), 32, 5, 6,
         -1},
        {"ordered: class_before absent", ordered, 28, 9, 6, -1},
    };
    for (const auto &[name, bytes, len, before, cls, found] : searches) {
        SCOPED_TRACE(name);
        HeapBytes run = heap_copy(bytes);
        uint8_t *const o = bytes.empty() ? nullptr : run.data();
        EXPECT_EQ(before < 0 ? rsvp_first_object_type(o, len, cls)
                             : rsvp_first_object_type_ordered(o, len, uint8_t(before), cls),
                  found < 0 ? nullptr : o + found);
    }
}

TEST(ObjectCopyAndCompare, CopyMovesLengthBytesCompareTellsEquality) {
    Bytes ov = concat({obj8(7), Bytes(8, 0xCC)});
    rsvp_object_copy(ov.data(), nullptr);  // no source: nothing to do
    rsvp_object_copy(ov.data() + 4, ov.data());
    EXPECT_EQ(to_hex(ov), "00 08 07 01 00 08 07 01 01 02 03 04 cc cc cc cc");

    // Compare answers equality only: 0 or 1.
    Bytes a = obj8(1), b = obj8(1), c = obj8(2);
    Bytes longer = object(1, 1, hex("01 02 03 04 00 00 00 00"));
    const auto cmp = rsvp_object_compare;
    EXPECT_EQ(std::tuple(cmp(nullptr, nullptr), cmp(a.data(), a.data()), cmp(a.data(), b.data())),
              std::tuple(0, 0, 0));
    EXPECT_EQ(std::tuple(cmp(a.data(), nullptr), cmp(nullptr, a.data()), cmp(a.data(), c.data()),
                         cmp(a.data(), longer.data())),
              std::tuple(1, 1, 1, 1));
    b[7] ^= 1;  // last body byte
    EXPECT_EQ(cmp(a.data(), b.data()), 1);
}

TEST(Uint32ArrayCopy, BothDirectionsSwap) {
    const uint32_t wire[2] = {ip("1.2.3.4"), ip("160.176.192.208")};
    uint32_t host[3] = {7, 7, 7}, back[2] = {};
    RSVP_COPY_UINT32_ARRAY_NTOHL(host, wire, 2);
    EXPECT_EQ(std::tuple(host[0], host[1], host[2]), std::tuple(0x01020304u, 0xa0b0c0d0u, 7u));
    RSVP_COPY_UINT32_ARRAY_HTONL(back, host, 2);
    EXPECT_EQ(std::tuple(back[0], back[1]), std::tuple(wire[0], wire[1]));
    RSVP_COPY_UINT32_ARRAY_NTOHL(host, nullptr, 1);  // either pointer null: nothing is copied
    RSVP_COPY_UINT32_ARRAY_NTOHL(nullptr, wire, 1);
    RSVP_COPY_UINT32_ARRAY_HTONL(back, nullptr, 1);
    RSVP_COPY_UINT32_ARRAY_HTONL(nullptr, wire, 1);
}
