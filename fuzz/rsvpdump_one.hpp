// The rsvpdump fuzz target: each input is decoded as a whole input (a capture file image, hex
// text, or nothing rsvpdump recognises), and again as one captured frame of the link type
// that its first byte picks, from a heap copy of exactly its size.
#pragma once

#include <cstddef>
#include <cstdint>

void rsvpdump_fuzz_one(const uint8_t *data, size_t size);
