// Reading RSVP messages out of packet captures (classic pcap and pcapng).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace rsvpdump {

// Calls visit(packet_number, rsvp_bytes) for every IPv4 or IPv6 packet of IP protocol 46 in the
// capture, with the RSVP message as captured (possibly truncated). Returns false, with why,
// when the file is not a capture this reader understands.
bool read_capture(const std::string &path,
                  const std::function<void(unsigned, std::vector<uint8_t> &)> &visit,
                  std::string &why);

}  // namespace rsvpdump
