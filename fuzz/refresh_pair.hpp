// The second fuzz entry: two object runs for rsvp_objects_is_not_refresh. An input is a 16-bit
// split point (network order) followed by the bytes of both runs; the first run takes the
// split point modulo the bytes available, the second run the rest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace rsvp_fuzz {

void run_refresh_pair(const uint8_t *data, size_t size);
// Pairs of Path bodies that differ in their INTEGRITY and MESSAGE_ID objects, or elsewhere.
std::vector<std::vector<uint8_t>> refresh_pair_seeds();

}  // namespace rsvp_fuzz
