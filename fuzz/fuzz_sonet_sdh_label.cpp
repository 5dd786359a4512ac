// SONET/SDH labels: both validators on every object, the extractor at every index from 1 (an
// index of 0 stops the process by design), and the add on a copy with room for one word, which
// must refuse the object's first word and grow the object by the new one, and on a fresh object.
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr unsigned kWordLen = 4;
constexpr uint32_t kNibble = RSVP_SONET_SDH_NIBBLE_LIMIT - 1;

void check(bool ok) {
    if (!ok) std::abort();
}

struct Set {
    uint8_t class_num;
    void (*build)(uint8_t *);
    int (*add)(uint8_t *, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t);
    int (*valid)(uint8_t *);
    int (*extract)(uint8_t *, uint32_t, uint32_t *, uint32_t *, uint32_t *, uint32_t *, uint32_t *);
};
const Set kSets[] = {
    {RSVP_CLASS_LABEL, rsvp_build_gen_label_sonet_sdh, rsvp_add_gen_label_sonet_sdh,
     rsvp_valid_gen_label_sonet_sdh, rsvp_extract_gen_label_sonet_sdh},
    {RSVP_CLASS_UPSTREAM_LABEL, rsvp_build_upstream_label_sonet_sdh,
     rsvp_add_upstream_label_sonet_sdh, rsvp_valid_upstream_label_sonet_sdh,
     rsvp_extract_upstream_label_sonet_sdh}};

void exercise_set(const Object &o, const Set &set) {
    const unsigned n = (o.length - RSVP_OBJ_HDR_LEN) / kWordLen;
    uint32_t s = 0, u = 0, k = 0, l = 0, m = 0;
    for (unsigned i = 1; i <= n; ++i)
        check(set.extract(o.obj, i, &s, &u, &k, &l, &m) == (set.valid(o.obj) && i < n));
    // The add takes any object; the first word present is refused, a new word lands at the end.
    Scratch c = scratch_copy(o, kWordLen);
    if (n > 0) {
        const uint8_t *w = o.obj + RSVP_OBJ_HDR_LEN;
        check(set.add(c.data(), static_cast<uint16_t>(w[0] << 8 | w[1]), w[2] >> 4, w[2] & kNibble,
                      w[3] >> 4, w[3] & kNibble) == 0);
    }
    const uint32_t nu = o.length & kNibble, nk = o.class_num & kNibble;
    const int added = set.add(c.data(), static_cast<uint16_t>(o.length), nu, nk, 0, 1);
    check(RSVP_OBJECT_LENGTH(c.data()) == static_cast<uint16_t>(o.length + (added ? kWordLen : 0)));
    // A fresh object takes the same word.
    Bytes fresh(RSVP_OBJ_HDR_LEN + kWordLen);
    set.build(fresh.data());
    check(set.valid(fresh.data()) && set.add(fresh.data(), o.length, nu, nk, 0, 1) == 1);
    if (added && n > 0 && set.valid(c.data())) {
        check(set.extract(c.data(), n, &s, &u, &k, &l, &m) == 1);
        check(s == o.length && u == nu && k == nk && l == 0 && m == 1);
    }
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects)
        for (const Set &set : kSets)
            exercise_set(o, set);
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(12 + 8, 0);
    kSets[0].build(run.data());
    kSets[0].add(run.data(), 1, 1, 1, 1, 1);
    kSets[0].add(run.data(), 1, 1, 1, 1, 2);
    kSets[1].build(run.data() + 12);
    kSets[1].add(run.data() + 12, 3, 2, 1, 0, 15);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
