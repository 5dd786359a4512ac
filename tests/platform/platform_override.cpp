// A routing process may bring its own platform services. This executable links librsvp.so and
// defines ieee_to_int64 and sstrncpy itself; the dynamic linker must bind the library's own
// calls to these definitions.
#include <gtest/gtest.h>

#include <cstring>

#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

extern "C" int64_t ieee_to_int64(uint32_t ieee_bits) {
    return 4200000000LL + ieee_bits;
}

extern "C" char *sstrncpy(char *dst, const char *, size_t size) {
    if (size) std::strcpy(dst, size > 8 ? "replaced" : "");
    return dst;
}

// The library's default interface-name service copies the name with sstrncpy: the copy it
// makes must come from the replacement above.
TEST(PlatformOverride, LibraryCallsTheReplacement) {
    char name[64] = "";
    if (intf_svc_interface_name(1, name) != 0) GTEST_SKIP() << "no interface with index 1";
    EXPECT_STREQ(name, "replaced");
}

// The floats the codec reads go through ieee_to_int64: the rate of a SENDER_TSPEC comes back
// through the replacement above, as 4200000000 plus the wire bits of 1.0f.
TEST(PlatformOverride, TspecRateExtractionUsesTheReplacement) {
    uint8_t tspec[RSVP_SENDER_TSPEC_INTSERV_LEN];
    rsvp_build_tspec(tspec, 1, 2, 3, 4, 5);  // the default int64_to_ieee: 1 -> 0x3f800000
    EXPECT_EQ(rsvp_get_average_rate(tspec), 4200000000LL + 0x3f800000);
}
