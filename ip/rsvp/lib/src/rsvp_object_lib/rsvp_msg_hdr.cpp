// RSVP common message header.
//
//   OFFSET SIZE FIELD
//   0      1    Version (high nibble, always 1) | Flags (low nibble)
//   1      1    Msg Type
//   2      2    RSVP Checksum
//   4      1    Send_TTL
//   5      1    Reserved
//   6      2    RSVP Length (header included)
//   8      ...  objects
#include <cstring>

#include "rsvp_object_lib.h"
#include "rsvp_wire.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kVersionFlagsOffset = 0;
constexpr unsigned kTypeOffset = 1;
constexpr unsigned kCksumOffset = RSVP_MSG_CKSUM_OFFSET;
constexpr unsigned kTtlOffset = 4;
constexpr unsigned kLengthOffset = 6;
constexpr unsigned kHdrLen = RSVP_MSG_HDR_LEN;
constexpr uint8_t kFlagsMask = 0x0F;
constexpr uint8_t kVersionMask = 0xF0;
constexpr unsigned kVersionShift = 4;

}  // namespace

extern "C" {

void rsvp_build_msg_hdr(uint8_t msg_type, uint8_t send_ttl, uint16_t length, uint8_t flags,
                        uint8_t *hdr) {
    std::memset(hdr, 0, kHdrLen);
    hdr[kVersionFlagsOffset] =
        static_cast<uint8_t>((flags & kFlagsMask) | (RSVP_MSG_VERSION << kVersionShift));
    hdr[kTypeOffset] = msg_type;
    hdr[kTtlOffset] = send_ttl;
    wire::store_be16(hdr + kLengthOffset, length);
}

uint32_t RSVP_MESSAGE_VERSION(uint8_t *msg) {
    return msg ? (msg[kVersionFlagsOffset] & kVersionMask) >> kVersionShift : 0;
}

uint32_t RSVP_MESSAGE_FLAGS(uint8_t *msg) {
    return msg ? msg[kVersionFlagsOffset] & kFlagsMask : 0;
}

uint32_t RSVP_MESSAGE_TYPE(uint8_t *msg) {
    return msg ? msg[kTypeOffset] : 0;
}

uint16_t RSVP_MESSAGE_CKSUM(uint8_t *msg) {
    return msg ? wire::load_be16(msg + kCksumOffset) : 0;
}

void RSVP_MESSAGE_SET_CKSUM(uint8_t *msg, uint16_t cksum) {
    if (msg) wire::store_be16(msg + kCksumOffset, cksum);
}

// The caller summed the wire bytes, so its value is already in wire order.
void RSVP_MESSAGE_SET_CKSUM_NB(uint8_t *msg, uint16_t cksum) {
    if (msg) wire::store_raw16(msg + kCksumOffset, cksum);
}

uint32_t RSVP_MESSAGE_GET_CKSUM_OFFSET(void) {
    return kCksumOffset;
}

uint32_t RSVP_MESSAGE_SENDING_TTL(uint8_t *msg) {
    return msg ? msg[kTtlOffset] : 0;
}

uint16_t RSVP_MESSAGE_LENGTH(uint8_t *msg) {
    return msg ? wire::load_be16(msg + kLengthOffset) : 0;
}

void RSVP_SET_MESSAGE_LENGTH(uint8_t *msg, uint16_t length) {
    if (msg) wire::store_be16(msg + kLengthOffset, length);
}

uint16_t RSVP_MESSAGE_OBJ_LEN(uint8_t *msg) {
    if (!msg) return 0;
    uint16_t length = wire::load_be16(msg + kLengthOffset);
    return length > kHdrLen ? static_cast<uint16_t>(length - kHdrLen) : 0;
}

uint8_t *RSVP_MESSAGE_FIRST_OBJECT_PTR(uint8_t *msg) {
    return msg ? msg + kHdrLen : nullptr;
}

}  // extern "C"
