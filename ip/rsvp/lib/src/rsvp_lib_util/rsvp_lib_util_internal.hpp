// Internals shared by the text unit's files.
#pragma once

#include <cstddef>

// Bounded formatter: nothing for a null buffer or a size of 0; otherwise vsnprintf, then a 0
// into the last byte whatever the length.
void rsvp_lib_util_format(char *buffer, size_t size, const char *format, ...)
    __attribute__((format(printf, 3, 4)));

namespace rsvp::text {

// The answer to anything that cannot be named.
inline constexpr const char *kUnknown = "Unknown";
// The source path that the unit's diagnostics on standard error carry.
inline constexpr const char *kDiagnosticPath = "ip/rsvp/lib/src/rsvp_lib_util";

}  // namespace rsvp::text
