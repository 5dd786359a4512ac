// INTEGRITY and CHALLENGE: key identifier, sequence number and digest size; the challenge
// cookie. The digest itself is not printed.
#include <cinttypes>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_integrity(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t flags = 0, key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {};
    uint64_t seq = 0;
    if (!rsvp_extract_integrity(obj, &flags, key_id, &seq, nullptr)) return;
    out.line("flags 0x%02x key id %s sequence number %" PRIu64 " digest length %u", flags,
             rsvpdump::hex_bytes(key_id, sizeof key_id).c_str(), seq,
             RSVP_INTEGRITY_DIGEST_LEN(obj));
}

void decode_challenge(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {}, cookie[RSVP_CHALLENGE_COOKIE_LEN] = {};
    if (!rsvp_extract_challenge(obj, key_id, cookie)) return;
    out.line("key id %s cookie %s", rsvpdump::hex_bytes(key_id, sizeof key_id).c_str(),
             rsvpdump::hex_bytes(cookie, sizeof cookie).c_str());
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_INTEGRITY, RSVP_CTYPE_INTEGRITY, decode_integrity);
RSVPDUMP_DECODER(RSVP_CLASS_CHALLENGE, RSVP_CTYPE_CHALLENGE, decode_challenge);
