// INTEGRITY and CHALLENGE: key identifier, sequence number and digest size; the challenge
// cookie. The digest itself is not printed.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_integrity(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t flags = 0, key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {};
    uint64_t seq = 0;
    if (!rsvp_extract_integrity(obj, &flags, key_id, &seq, nullptr)) return;
    out.line().text("flags ").hex("flags", flags, 2).text(" key id ");
    out.bytes("key_id", key_id, sizeof key_id).text(" sequence number ").u("sequence", seq);
    out.text(" digest length ").u("digest_length", RSVP_INTEGRITY_DIGEST_LEN(obj));
}

void decode_challenge(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {}, cookie[RSVP_CHALLENGE_COOKIE_LEN] = {};
    if (!rsvp_extract_challenge(obj, key_id, cookie)) return;
    out.line().text("key id ").bytes("key_id", key_id, sizeof key_id);
    out.text(" cookie ").bytes("cookie", cookie, sizeof cookie);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_INTEGRITY, RSVP_CTYPE_INTEGRITY, decode_integrity);
RSVPDUMP_DECODER(RSVP_CLASS_CHALLENGE, RSVP_CTYPE_CHALLENGE, decode_challenge);
