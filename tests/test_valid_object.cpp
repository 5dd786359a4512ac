#include <gtest/gtest.h>

#include <set>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

// Walks every Class-Num: exactly the known classes reach a validator (answering 0 or 1, never
// 2); every other class answers 2 for a well-formed header. A Length of 0 or 6 fails before
// the class is looked at.
TEST(ValidObject, ExactlyTheKnownClassesReachAValidator) {
    const std::set<unsigned> known = {1,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,
                                      13,  14,  15,  16,  19,  20,  21,  22,  23,  24,  25,
                                      34,  35,  36,  37,  50,  64,  65,  66,  67,  129, 130,
                                      131, 190, 196, 197, 199, 203, 207, 208, 232, 235};
    EXPECT_EQ(rsvp_valid_object(nullptr), 0u);
    for (unsigned cls = 0; cls < 256; ++cls) {
        SCOPED_TRACE(cls);
        Bytes b = object(static_cast<uint8_t>(cls), 0, Bytes(60, 0xFF));
        EXPECT_EQ(rsvp_valid_object(b.data()) != 2u, known.count(cls) == 1);
        for (int len : {0, 6})
            EXPECT_EQ(rsvp_valid_object(object(uint8_t(cls), 0, Bytes(8, 0), len).data()), 0u);
    }
}
