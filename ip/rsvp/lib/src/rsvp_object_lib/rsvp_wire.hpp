// Wire access for the codec.
//
// Every byte the library reads from or writes to a caller buffer goes through these helpers.
// They work at any byte address (the buffers come from sockets and from the middle of other
// objects, so nothing is aligned) and state the byte order explicitly: the be* pair converts
// between network order and host numbers, the raw32 pair moves four bytes exactly as they lie
// in memory, for the IPv4 addresses that cross the C interface unconverted. Nothing else in
// the sources converts byte order or lays a wider type over a buffer.
#pragma once

#include <cstdint>
#include <cstring>

namespace rsvp::wire {

inline uint8_t load8(const uint8_t *p) {
    return p[0];
}
inline void store8(uint8_t *p, uint8_t v) {
    p[0] = v;
}

inline uint16_t load_be16(const uint8_t *p) {
    return static_cast<uint16_t>((static_cast<unsigned>(p[0]) << 8) | p[1]);
}

inline uint32_t load_be32(const uint8_t *p) {
    return (static_cast<uint32_t>(p[0]) << 24) | (static_cast<uint32_t>(p[1]) << 16) |
           (static_cast<uint32_t>(p[2]) << 8) | static_cast<uint32_t>(p[3]);
}

inline uint64_t load_be64(const uint8_t *p) {
    return (static_cast<uint64_t>(load_be32(p)) << 32) | load_be32(p + 4);
}

inline void store_be16(uint8_t *p, uint16_t v) {
    p[0] = static_cast<uint8_t>(v >> 8);
    p[1] = static_cast<uint8_t>(v);
}

inline void store_be32(uint8_t *p, uint32_t v) {
    p[0] = static_cast<uint8_t>(v >> 24);
    p[1] = static_cast<uint8_t>(v >> 16);
    p[2] = static_cast<uint8_t>(v >> 8);
    p[3] = static_cast<uint8_t>(v);
}

inline void store_be64(uint8_t *p, uint64_t v) {
    store_be32(p, static_cast<uint32_t>(v >> 32));
    store_be32(p + 4, static_cast<uint32_t>(v));
}

// Four bytes as they lie in memory: a wire-order IPv4 address in, the same bits out.
inline uint32_t load_raw32(const uint8_t *p) {
    uint32_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

inline void store_raw32(uint8_t *p, uint32_t v) {
    std::memcpy(p, &v, sizeof v);
}

// The same bits as a host 16-bit number, for a value the caller already holds in wire order.
inline void store_raw16(uint8_t *p, uint16_t v) {
    std::memcpy(p, &v, sizeof v);
}

// Two bytes as they lie in memory, read as a host 16-bit number without conversion.
inline uint16_t load_raw16(const uint8_t *p) {
    uint16_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

// A word whose bytes lie in network order, read as a host number (ntohl), and the reverse
// (htonl). For the u32 array copies; on any host the two are the same permutation.
inline uint32_t net_to_host32(uint32_t v) {
    uint8_t b[4];
    std::memcpy(b, &v, sizeof b);
    return load_be32(b);
}

inline uint32_t host_to_net32(uint32_t v) {
    uint8_t b[4];
    store_be32(b, v);
    return load_raw32(b);
}

}  // namespace rsvp::wire
