// INTEGRITY (class 4) and CHALLENGE (class 64), C-Type 1: the layout of the cryptographic
// authentication objects. The caller computes digests and keeps keys and sequence numbers;
// nothing here holds key material.
//
// INTEGRITY:
//   OFFSET SIZE FIELD
//   0      4    object header: Length 20 + digest length (24 to 40), class 4, C-Type 1
//   4      1    flags
//   5      1    reserved (0)
//   6      6    key identifier (opaque)
//   12     8    sequence number (most significant byte first)
//   20     4-20 keyed message digest, whole words
//
// CHALLENGE:
//   OFFSET SIZE FIELD
//   0      4    object header: Length 20, class 64, C-Type 1
//   4      2    reserved (0; not written by the builder)
//   6      6    key identifier
//   12     8    challenge cookie (opaque)
#include <cstring>

#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kFlagsOffset = 4;
constexpr unsigned kReservedOffset = 5;
constexpr unsigned kKeyIdOffset = 6;
constexpr unsigned kSeqOffset = 12;
constexpr unsigned kCookieOffset = 12;
constexpr unsigned kDigestOffset = RSVP_INTEGRITY_DIGEST_OFFSET;
static_assert(kKeyIdOffset + RSVP_INTEGRITY_KEY_ID_LEN == kSeqOffset);
static_assert(kSeqOffset + sizeof(uint64_t) == kDigestOffset);
static_assert(kCookieOffset + RSVP_CHALLENGE_COOKIE_LEN == RSVP_CHALLENGE_LEN);
static_assert(kDigestOffset + RSVP_INTEGRITY_MIN_DIGEST_LEN == RSVP_INTEGRITY_MIN_LEN);
static_assert(kDigestOffset + RSVP_INTEGRITY_MAX_DIGEST_LEN == RSVP_INTEGRITY_MAX_LEN);

bool digest_len_ok(long len) {
    return len >= RSVP_INTEGRITY_MIN_DIGEST_LEN && len <= RSVP_INTEGRITY_MAX_DIGEST_LEN &&
           len % kObjAlign == 0;
}

}  // namespace

extern "C" {

int rsvp_valid_integrity(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_INTEGRITY, RSVP_CTYPE_INTEGRITY)) return 0;
    return digest_len_ok(static_cast<long>(obj_length(obj)) - kDigestOffset);
}

// Callable in stages: first the header (digest_len) and the fields, later the digest into
// the same object, its length then taken from the header already written.
int rsvp_build_integrity(uint8_t *obj, const uint8_t *flags, const uint8_t *key_id,
                         const uint64_t *seq, const uint8_t *digest, const uint32_t *digest_len) {
    if (!obj) return 0;
    if (digest_len) {
        if (!digest_len_ok(*digest_len)) return 0;
        put_obj_hdr(obj, RSVP_CLASS_INTEGRITY, RSVP_CTYPE_INTEGRITY,
                    static_cast<uint16_t>(*digest_len + kDigestOffset));
        obj[kReservedOffset] = 0;
    }
    if (flags) obj[kFlagsOffset] = *flags;
    if (key_id) std::memcpy(obj + kKeyIdOffset, key_id, RSVP_INTEGRITY_KEY_ID_LEN);
    if (seq) wire::store_be64(obj + kSeqOffset, *seq);
    if (!digest) return 1;
    // The object as it now stands decides the digest length; a failure here keeps what the
    // steps above wrote.
    const long have = rsvp_valid_object(obj) == RSVP_OBJECT_VALID
                          ? static_cast<long>(obj_length(obj)) - kDigestOffset
                          : 0;
    if (!digest_len_ok(have) || (digest_len && have != static_cast<long>(*digest_len))) return 0;
    std::memcpy(obj + kDigestOffset, digest, static_cast<size_t>(have));
    return 1;
}

int rsvp_extract_integrity(uint8_t *obj, uint8_t *flags, uint8_t *key_id, uint64_t *seq,
                           uint8_t *digest) {
    if (!rsvp_valid_integrity(obj)) return 0;
    if (flags) *flags = obj[kFlagsOffset];
    if (key_id) std::memcpy(key_id, obj + kKeyIdOffset, RSVP_INTEGRITY_KEY_ID_LEN);
    if (seq) *seq = wire::load_be64(obj + kSeqOffset);
    if (digest) std::memcpy(digest, obj + kDigestOffset, obj_length(obj) - kDigestOffset);
    return 1;
}

uint8_t *RSVP_INTEGRITY_DIGEST_PTR(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID ? obj + kDigestOffset : nullptr;
}

uint32_t RSVP_INTEGRITY_DIGEST_LEN(uint8_t *obj) {
    return valid_holds(obj, kDigestOffset) ? obj_length(obj) - kDigestOffset : 0;
}

int rsvp_valid_challenge(uint8_t *obj) {
    return obj && obj_is(obj, RSVP_CLASS_CHALLENGE, RSVP_CTYPE_CHALLENGE) &&
           obj_length(obj) == RSVP_CHALLENGE_LEN;
}

int rsvp_build_challenge(uint8_t *obj, const uint8_t *key_id, const uint8_t *cookie) {
    if (!obj) return 0;
    // The reserved bytes 4-5 are left as they are: the caller passes a zeroed buffer.
    put_obj_hdr(obj, RSVP_CLASS_CHALLENGE, RSVP_CTYPE_CHALLENGE, RSVP_CHALLENGE_LEN);
    if (key_id) std::memcpy(obj + kKeyIdOffset, key_id, RSVP_INTEGRITY_KEY_ID_LEN);
    if (cookie) std::memcpy(obj + kCookieOffset, cookie, RSVP_CHALLENGE_COOKIE_LEN);
    return 1;
}

int rsvp_extract_challenge(uint8_t *obj, uint8_t *key_id, uint8_t *cookie) {
    if (!rsvp_valid_challenge(obj)) return 0;
    if (key_id) std::memcpy(key_id, obj + kKeyIdOffset, RSVP_INTEGRITY_KEY_ID_LEN);
    if (cookie) std::memcpy(cookie, obj + kCookieOffset, RSVP_CHALLENGE_COOKIE_LEN);
    return 1;
}

uint8_t *RSVP_CHALLENGE_KEY_ID_PTR(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID ? obj + kKeyIdOffset : nullptr;
}

uint8_t *RSVP_CHALLENGE_COOKIE_PTR(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID ? obj + kCookieOffset : nullptr;
}

}  // extern "C"
