#include <gtest/gtest.h>

#include <set>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(ValidObject, HeaderChecksComeFirst) {
    EXPECT_EQ(rsvp_valid_object(nullptr), 0u);
    Bytes zero = object(1, 1, Bytes(8, 0), 0);
    EXPECT_EQ(rsvp_valid_object(zero.data()), 0u);
    // Length 6 fails before the class is looked at, even for an unknown class.
    for (uint8_t cls : {1, 2, 0, 236}) {
        SCOPED_TRACE(cls);
        Bytes six = object(cls, 1, hex("00 00"), 6);
        EXPECT_EQ(rsvp_valid_object(six.data()), 0u);
    }
}

// Every Class-Num the library does not know answers 2, whatever the body; a well-formed
// header of any length that is a multiple of 4 reaches that answer.
TEST(ValidObject, UnknownClassesAnswerTwoForAnyWellFormedLength) {
    const std::set<unsigned> known = {1,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,
                                      13,  14,  15,  16,  19,  20,  21,  22,  23,  24,  25,
                                      34,  35,  36,  37,  50,  64,  65,  66,  67,  129, 130,
                                      131, 190, 196, 197, 199, 203, 207, 208, 232, 235};
    for (unsigned cls = 0; cls < 256; ++cls) {
        if (known.count(cls)) continue;
        SCOPED_TRACE(cls);
        for (uint16_t len : {4, 8, 64}) {
            HeapBytes b = heap_copy(object(static_cast<uint8_t>(cls), 0, Bytes(len - 4, 0xFF)));
            EXPECT_EQ(rsvp_valid_object(b.data()), 2u);
        }
    }
}

// A known class is judged by its validator: a SESSION of C-Type 2 is rejected (0), while an
// object of the unknown class 2 is passed on (2); a well-formed object of each family passes.
TEST(ValidObject, KnownClassesReachTheirValidator) {
    Bytes session_ctype2 = object(RSVP_CLASS_SESSION, 2, Bytes(36, 0));
    EXPECT_EQ(rsvp_valid_object(session_ctype2.data()), 0u);
    Bytes style_ff = object(RSVP_CLASS_STYLE, 1, hex("00 00 00 0a"));
    EXPECT_EQ(rsvp_valid_object(style_ff.data()), 1u);
    Bytes time_values = object(RSVP_CLASS_TIME_VALUES, 1, hex("00 00 75 30"));
    EXPECT_EQ(rsvp_valid_object(time_values.data()), 1u);
    time_values[3] = 2;  // C-Type 2
    EXPECT_EQ(rsvp_valid_object(time_values.data()), 0u);
}
