// INTEGRITY and CHALLENGE: extractors and pointer getters on valid objects, and a rebuild of
// each from its extracted fields on a scratch copy, in one go and in stages.
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise_integrity(const Object &o) {
    uint8_t flags = 0, key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {};
    uint8_t digest[RSVP_INTEGRITY_MAX_DIGEST_LEN] = {};
    uint64_t seq = 0;
    keep(rsvp_extract_integrity(o.obj, &flags, key_id, &seq, digest));
    const uint32_t digest_len = RSVP_INTEGRITY_DIGEST_LEN(o.obj);
    keep(RSVP_INTEGRITY_DIGEST_PTR(o.obj));
    Scratch s = scratch_copy(o);
    if (!rsvp_build_integrity(s.data(), &flags, key_id, &seq, digest, &digest_len)) std::abort();
    keep(rsvp_build_integrity(s.data(), nullptr, nullptr, nullptr, digest, nullptr));
    keep(rsvp_build_integrity(s.data(), nullptr, nullptr, nullptr, o.obj, nullptr));
}

void exercise_challenge(const Object &o) {
    uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {}, cookie[RSVP_CHALLENGE_COOKIE_LEN] = {};
    keep(rsvp_extract_challenge(o.obj, key_id, cookie));
    keep(RSVP_CHALLENGE_KEY_ID_PTR(o.obj));
    keep(RSVP_CHALLENGE_COOKIE_PTR(o.obj));
    Scratch s = scratch_copy(o);
    keep(rsvp_build_challenge(s.data(), key_id, cookie));
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.verdict == RSVP_OBJECT_VALID) keep(RSVP_INTEGRITY_DIGEST_LEN(o.obj));
        if (o.class_num == RSVP_CLASS_INTEGRITY) {
            keep(rsvp_valid_integrity(o.obj));
            if (o.verdict == RSVP_OBJECT_VALID) exercise_integrity(o);
        } else if (o.class_num == RSVP_CLASS_CHALLENGE) {
            keep(rsvp_valid_challenge(o.obj));
            if (o.verdict == RSVP_OBJECT_VALID) exercise_challenge(o);
        }
    }
}

void seeds(std::vector<Bytes> &out) {
    const uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {1, 2, 3, 4, 5, 6};
    const uint8_t digest[RSVP_INTEGRITY_MAX_DIGEST_LEN] = {0xd0, 0xd1, 0xd2, 0xd3, 0xd4};
    const uint8_t flags = 1;
    const uint64_t seq = 0x0102030405060708ull;
    Bytes run(RSVP_INTEGRITY_MAX_LEN + RSVP_INTEGRITY_MIN_LEN + RSVP_CHALLENGE_LEN, 0);
    uint32_t len = RSVP_INTEGRITY_MAX_DIGEST_LEN;
    rsvp_build_integrity(run.data(), &flags, key_id, &seq, digest, &len);
    len = RSVP_INTEGRITY_MIN_DIGEST_LEN;
    rsvp_build_integrity(run.data() + RSVP_INTEGRITY_MAX_LEN, nullptr, key_id, &seq, nullptr, &len);
    rsvp_build_integrity(run.data() + RSVP_INTEGRITY_MAX_LEN, nullptr, nullptr, nullptr, digest,
                         nullptr);
    rsvp_build_challenge(run.data() + RSVP_INTEGRITY_MAX_LEN + RSVP_INTEGRITY_MIN_LEN, key_id,
                         digest);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
