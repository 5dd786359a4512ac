// The message entry: a whole datagram, common header first. The header is read and rewritten
// through its accessors, the body walked object by object and validated, the objects handed to
// every exerciser of the object-run harness (so each valid object meets its family's
// extractors), and the body compared for a refresh against a copy with one byte changed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace rsvp_fuzz {

void run_message(const uint8_t *data, size_t size);
// The object-run seeds, each behind a common header.
std::vector<std::vector<uint8_t>> message_seeds();
// The messages of a sample file: one per line as hex, '#' starts a comment; lines that are not
// hex are skipped.
std::vector<std::vector<uint8_t>> read_hex_messages(const std::string &path);
// The RSVP datagrams of a classic capture file (either byte order, any link type): in each
// packet, the payload of the first IPv4 header of protocol 46 within the link header's reach.
std::vector<std::vector<uint8_t>> read_capture_messages(const std::string &path);

}  // namespace rsvp_fuzz
