// Default platform services for a POSIX host.
//
// Each is a weak definition: a routing process that defines the same name replaces it, and
// because these stay interposable the library's own calls then reach the replacement.
#include <net/if.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

#include "rsvp_platform.h"

namespace {

// IEEE-754 single layout.
constexpr uint32_t kSignBit = 0x80000000u;
constexpr unsigned kExpShift = 23;
constexpr uint32_t kExpMask = 0xFFu;
constexpr uint32_t kMantMask = 0x007FFFFFu;
constexpr uint32_t kImplicitBit = 0x00800000u;
constexpr int kExpBias = 127;
constexpr int kMantBits = 23;
constexpr int kInt64MagnitudeBits = 63;

constexpr size_t kDottedQuadLen = sizeof "255.255.255.255";

}  // namespace

extern "C" {

// Decoded by hand rather than through a float so that NaN, infinities and out-of-range values
// have defined answers: NaN is 0, anything beyond the 64-bit range saturates, and the rest is
// truncated toward zero (exact for every integer a single float can hold).
__attribute__((weak)) int64_t ieee_to_int64(uint32_t ieee_bits) {
    const bool negative = (ieee_bits & kSignBit) != 0;
    const uint32_t exp_field = (ieee_bits >> kExpShift) & kExpMask;
    const uint32_t mant = ieee_bits & kMantMask;
    constexpr int64_t kMax = std::numeric_limits<int64_t>::max();
    constexpr int64_t kMin = std::numeric_limits<int64_t>::min();

    if (exp_field == kExpMask) {
        if (mant != 0) return 0;  // NaN
        return negative ? kMin : kMax;
    }
    if (exp_field == 0) return 0;  // zero and subnormals are below 1 in magnitude

    const int exponent = static_cast<int>(exp_field) - kExpBias;  // value = 1.m * 2^exponent
    if (exponent < 0) return 0;
    if (exponent >= kInt64MagnitudeBits) {
        // Only -2^63 itself is representable at this magnitude.
        return negative ? kMin : kMax;
    }
    const uint64_t significand = mant | kImplicitBit;
    const uint64_t magnitude = exponent >= kMantBits ? significand << (exponent - kMantBits)
                                                     : significand >> (kMantBits - exponent);
    const auto value = static_cast<int64_t>(magnitude);
    return negative ? -value : value;
}

// The language's integer-to-float conversion rounds to nearest under the default mode.
__attribute__((weak)) uint32_t int64_to_ieee(int64_t value) {
    const auto f = static_cast<float>(value);
    uint32_t bits;
    std::memcpy(&bits, &f, sizeof bits);
    return bits;
}

__attribute__((weak)) char *inet_ntoa_r(uint32_t addr_wire_order) {
    thread_local char text[kDottedQuadLen];
    uint8_t b[sizeof addr_wire_order];
    std::memcpy(b, &addr_wire_order, sizeof b);
    std::snprintf(text, sizeof text, "%u.%u.%u.%u", b[0], b[1], b[2], b[3]);
    return text;
}

__attribute__((weak)) char *sstrncpy(char *dst, const char *src, size_t size) {
    if (!dst || size == 0) return dst;
    size_t n = 0;
    if (src) {
        while (n + 1 < size && src[n] != '\0')
            ++n;
        std::memcpy(dst, src, n);
    }
    dst[n] = '\0';
    return dst;
}

// Interface handles are the host's interface indexes.
__attribute__((weak)) int intf_svc_interface_name(uint32_t handle, char name[64]) {
    char ifname[IF_NAMESIZE];
    if (!name || handle == 0 || if_indextoname(handle, ifname) == nullptr) return 1;
    sstrncpy(name, ifname, 64);
    return 0;
}

__attribute__((weak)) const char *intf_svc_display_name(const char *name, int selector) {
    (void)selector;
    return name;
}

}  // extern "C"
