// Reassembly of fragmented IP datagrams within a capture, in bounded memory: at most
// kMaxPending datagrams wait for their missing fragments, each at most kMaxDatagram bytes. A
// datagram that cannot be completed (its slot is needed, it waited too long, or the input
// ends) is reported as incomplete, never decoded.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "dump.hpp"

namespace rsvpdump {

class Reassembler {
  public:
    static constexpr size_t kMaxPending = 16;
    static constexpr size_t kMaxDatagram = 65535;
    // Capture seconds a datagram may wait for its next fragment.
    static constexpr int64_t kTimeoutSec = 30;

    explicit Reassembler(Dumper &dumper) : dumper_(dumper) {}

    // One fragment: payload bytes n at byte offset of the datagram with this identification,
    // more set on all but the last fragment, cut when the capture holds only its first n
    // bytes. Delivers the datagram once it is complete.
    void add(const IpInfo &ip, const Origin &origin, uint32_t id, uint8_t protocol, size_t offset,
             bool more, bool cut, const uint8_t *data, size_t n);
    // Reports every unfinished datagram as incomplete and forgets it.
    void flush();

  private:
    static constexpr size_t kBlock = 8;  // fragment offsets count 8-byte blocks
    struct Pending {
        bool used = false;
        IpInfo ip;      // from the first fragment seen
        Origin origin;  // of the first fragment seen
        uint32_t id = 0;
        uint8_t protocol = 0;
        uint16_t fragments = 0;
        size_t total = 0;   // known once the last fragment is seen
        size_t end = 0;     // furthest byte received
        size_t blocks = 0;  // distinct blocks received
        std::bitset<kMaxDatagram / kBlock + 1> have;
        std::vector<uint8_t> data;
    };
    Pending *find(const IpInfo &ip, uint32_t id, uint8_t protocol);
    Pending *oldest();
    Pending *slot(const Origin &origin);
    void give_up(Pending &p);

    Dumper &dumper_;
    Pending pending_[kMaxPending];
    uint64_t arrivals_ = 0;
    uint64_t order_[kMaxPending] = {};  // arrival count of each slot's first fragment
};

}  // namespace rsvpdump
