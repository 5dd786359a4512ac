// The library's assertion: for broken caller preconditions only, never for received bytes.
//
// rsvp_assert_fail() stores the source line to address 1 so that the crash report carries it,
// and calls abort() should that store not fault.
#pragma once

namespace rsvp {

[[noreturn]] void assert_fail(int line);

}  // namespace rsvp

#define RSVP_ASSERT(cond)                         \
    do {                                          \
        if (!(cond)) rsvp::assert_fail(__LINE__); \
    } while (0)
