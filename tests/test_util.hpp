// Small fixtures shared by the family tests: byte vectors from hex, objects from a body,
// exact-size heap copies (so that a read past the end shows under AddressSanitizer) and
// wire-order IPv4 addresses.
#pragma once

#include <arpa/inet.h>

#include <algorithm>
#include <cctype>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

// Kept opaque to the optimiser (no inlining, no cloning for constant arguments): g++ 12 at -O2
// and -O3 sees false out-of-bounds copies in a few helpers once they meet a test's constants.
#if defined(__GNUC__) && !defined(__clang__)
#define RSVP_TEST_OPAQUE [[gnu::noipa]]
#else
#define RSVP_TEST_OPAQUE [[gnu::noinline]]
#endif

namespace rsvp_test {

using Bytes = std::vector<uint8_t>;

// "00 0c 01 07 ..." (spaces, newlines and ':' ignored) to bytes.
inline Bytes hex(const char *text) {
    std::string digits;
    for (const char *p = text; *p; ++p)
        if (std::isxdigit(static_cast<unsigned char>(*p))) digits += *p;
    Bytes out;
    for (size_t i = 0; i + 1 < digits.size(); i += 2)
        out.push_back(static_cast<uint8_t>(std::stoul(digits.substr(i, 2), nullptr, 16)));
    return out;
}

inline std::string to_hex(const uint8_t *p, size_t n) {
    std::string s;
    char buf[4];
    for (size_t i = 0; i < n; ++i) {
        std::snprintf(buf, sizeof buf, i ? " %02x" : "%02x", p[i]);
        s += buf;
    }
    return s;
}
inline std::string to_hex(const Bytes &b) {
    return to_hex(b.data(), b.size());
}

// An object with the given header fields around body; length defaults to 4 + body size.
RSVP_TEST_OPAQUE inline Bytes object(uint8_t class_num, uint8_t c_type, const Bytes &body,
                                     int length = -1) {
    const size_t len = length < 0 ? 4 + body.size() : static_cast<size_t>(length);
    // Sized once and filled in place, and kept opaque: g++ 12 sees a false out-of-bounds copy
    // when an empty body from a test goes into the 4-byte vector.
    Bytes out(4 + body.size());
    out[0] = static_cast<uint8_t>(len >> 8);
    out[1] = static_cast<uint8_t>(len);
    out[2] = class_num;
    out[3] = c_type;
    std::copy(body.begin(), body.end(), out.begin() + 4);
    return out;
}

inline Bytes concat(std::initializer_list<Bytes> parts) {
    Bytes out;
    for (const Bytes &p : parts)
        out.insert(out.end(), p.begin(), p.end());
    return out;
}

// A heap buffer holding exactly the given bytes (plus optional slack), so that any read
// beyond them is caught by the address sanitizer.
struct HeapBytes {
    std::unique_ptr<uint8_t[]> buf;
    size_t size = 0;
    uint8_t *data() { return buf.get(); }
};

inline HeapBytes heap_copy(const Bytes &b, size_t slack = 0) {
    HeapBytes h{std::make_unique<uint8_t[]>(b.size() + slack), b.size()};
    if (!b.empty()) std::memcpy(h.buf.get(), b.data(), b.size());
    return h;
}

// An IPv4 address as it crosses the interface: the four wire bytes, unconverted.
inline uint32_t ip(const char *dotted) {
    in_addr a{};
    inet_pton(AF_INET, dotted, &a);
    return a.s_addr;
}

// The object cut (or zero-padded) to len bytes, with its Length saying len.
inline Bytes cut_to(Bytes b, size_t len) {
    b.resize(len, 0);
    b[0] = static_cast<uint8_t>(len >> 8);
    b[1] = static_cast<uint8_t>(len);
    return b;
}

}  // namespace rsvp_test

// The library's assertion stops the process by its store to address 1, which faults with
// SIGSEGV; the report line comes first. In a plain build a handler states the faulting address
// and returns, so that the store faults again and kills the process. Under AddressSanitizer the
// sanitizer's SEGV handler reports the address and exits instead.
#if defined(__SANITIZE_ADDRESS__)
#define RSVP_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define RSVP_TEST_ASAN 1
#endif
#endif
namespace rsvp_test {
// The death-test pattern: the report line, then what the fault prints. Kept opaque: g++ 12 sees
// a false out-of-bounds copy in a string concatenation inlined into a test body.
RSVP_TEST_OPAQUE inline std::string fault_pattern(const std::string &report, const char *fault) {
    std::string pattern(report);
    pattern += ".*";
    pattern += fault;
    return pattern;
}
}  // namespace rsvp_test
#ifdef RSVP_TEST_ASAN
#define EXPECT_RSVP_ASSERT(statement, regex) \
    EXPECT_DEATH(statement, rsvp_test::fault_pattern(regex, "SEGV on unknown address 0x0+1 "))
#else
#include <unistd.h>
namespace rsvp_test {
inline void state_fault_address() {
    struct sigaction sa {};
    sa.sa_flags = SA_SIGINFO | SA_RESETHAND;
    sa.sa_sigaction = [](int, siginfo_t *info, void *) {
        char text[] = "fault at 0x0000000000000000\n";
        auto addr = reinterpret_cast<uintptr_t>(info->si_addr);
        for (size_t i = sizeof text - 3; addr; --i, addr >>= 4)
            text[i] = "0123456789abcdef"[addr & 15];
        if (write(STDERR_FILENO, text, sizeof text - 1) < 0) return;
    };
    sigaction(SIGSEGV, &sa, nullptr);
}
}  // namespace rsvp_test
#define EXPECT_RSVP_ASSERT(statement, regex)  \
    EXPECT_EXIT(                              \
        {                                     \
            rsvp_test::state_fault_address(); \
            statement;                        \
        },                                    \
        testing::KilledBySignal(SIGSEGV), rsvp_test::fault_pattern(regex, "fault at 0x0+1\n"))
#endif
