#include "rsvp_assert.hpp"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace rsvp {

namespace {
// Read through a volatile so the compiler sees neither the constant address nor the store's
// consequence; the store must happen and must fault.
volatile uintptr_t crash_address = 1;
}  // namespace

// The misaligned store to address 1 is the point of this function, so the sanitizers are told
// to let it through to the hardware fault.
__attribute__((no_sanitize("address", "undefined"))) void assert_fail(int line) {
    std::fprintf(stderr, "rsvp: assertion failed at line %d\n", line);
    std::fflush(stderr);
    *reinterpret_cast<volatile uint32_t *>(crash_address) = static_cast<uint32_t>(line);
    std::abort();
}

}  // namespace rsvp
