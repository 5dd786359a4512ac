// LABEL_REQUEST and labels: every validator, extractor and accessor on every object (they read
// nothing behind what the object's Length allows), the label write on a copy with room for its
// word, and rebuilds from the extracted fields that must give back the received bytes.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void check(bool ok) {
    if (!ok) std::abort();
}

using Extract = int (*)(uint8_t *, uint32_t **, uint16_t *);
const Extract kExtracts[] = {rsvp_extract_generalized_label, rsvp_extract_upstream_label,
                             rsvp_extract_suggested_label, rsvp_extract_recovery_label};
using Build = int (*)(uint8_t *, const uint32_t *, uint16_t);
const Build kBuilds[] = {rsvp_build_generalized_label, rsvp_build_upstream_label,
                         rsvp_build_suggested_label, rsvp_build_recovery_label};

// A generalized label read out and built again is the same object (the fuzz run only holds
// objects of whole words).
void exercise_generalized(const Object &o) {
    std::vector<uint32_t> words(o.length / 4 + 1), copy(words.size());
    uint32_t *p = words.data();
    uint16_t n = 0;
    for (size_t i = 0; i < std::size(kExtracts); ++i) {
        keep(kExtracts[i](o.obj, &p, &n) + n);
        Bytes one(RSVP_OBJ_HDR_LEN + sizeof(uint32_t));
        keep(kBuilds[i](one.data(), words.data(), 1));
    }
    keep(rsvp_generalized_label_extract(o.obj, &p, &n, RSVP_CLASS_LSP_WRAP_LABEL));
    if (!rsvp_generalized_label_extract(o.obj, &p, &n, o.class_num) || n == 0) return;
    Bytes again(o.length);
    check(rsvp_generalized_label_build(again.data(), words.data(), n, o.class_num) == 1);
    check(std::memcmp(again.data(), o.obj, o.length) == 0);
    RSVP_COPY_LABEL_HTONL(copy.data(), words.data(), n);
    RSVP_COPY_LABEL_NTOHL(copy.data(), copy.data(), n);
    RSVP_COPY_SRLG_HTONL(copy.data(), copy.data(), static_cast<uint8_t>(n));
    RSVP_COPY_SRLG_NTOHL(copy.data(), copy.data(), static_cast<uint8_t>(n));
    check(copy == words);
}

void exercise_plain(const Object &o) {
    uint32_t label = 0;
    uint16_t pid = 0;
    uint8_t enc = 0, sw = 0;
    Bytes again(RSVP_LABEL_LEN);
    if (rsvp_extract_label(o.obj, &label)) {
        check(RSVP_LABEL_TOP_LABEL(o.obj) == label);
        check(RSVP_LABEL_TOP_LABEL(rsvp_build_label(again.data(), label)) == label);
    }
    if (rsvp_extract_label_request(o.obj, &pid)) {
        rsvp_build_label_request(again.data(), pid);
        check(rsvp_valid_gen_label_request(again.data()) && rsvp_lsp_packet_switched(again.data()));
    }
    if (rsvp_extract_gen_label_req(o.obj, &enc, &sw, &pid)) {
        rsvp_build_gen_label_req(again.data(), enc, sw, pid);
        check(std::memcmp(again.data(), o.obj, RSVP_LABEL_REQUEST_LEN) == 0);
    }
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        keep(rsvp_valid_label(o.obj) + rsvp_valid_gen_label(o.obj) +
             rsvp_valid_label_request(o.obj) + rsvp_valid_gen_label_req(o.obj) +
             rsvp_valid_gen_label_request(o.obj) + rsvp_valid_generalized_label(o.obj) +
             rsvp_valid_upstream_label(o.obj) + rsvp_valid_suggested_label(o.obj) +
             rsvp_valid_recovery_label(o.obj) + rsvp_generalized_label_valid(o.obj, o.class_num) +
             rsvp_lsp_packet_switched(o.obj) + RSVP_LABEL_LENGTH(o.obj) +
             RSVP_LABEL_TOP_LABEL(o.obj));
        exercise_generalized(o);
        exercise_plain(o);
        // The label write trusts its caller for bytes 4 to 7: a copy with that room.
        Scratch s = scratch_copy(o, o.length < RSVP_LABEL_LEN ? RSVP_LABEL_LEN - o.length : 0);
        rsvp_set_current_label(s.data(), o.length);
        check(RSVP_OBJECT_LENGTH(s.data()) == o.length);
    }
}

void seeds(std::vector<Bytes> &out) {
    const uint32_t words[] = {0x00011111, 0x00011112, 16};
    Bytes run(8 * 3 + 12 + 16 + 8 + 4 * 3 + 8, 0);
    uint8_t *p = run.data();
    rsvp_build_label(p, 299776);
    rsvp_build_label_request(p + 8, RSVP_L3PID_IPV4);
    rsvp_build_gen_label_req(p + 16, 5, 100, 34);
    rsvp_build_generalized_label(p + 24, words, 2);
    rsvp_build_upstream_label(p + 36, words, 3);
    rsvp_build_suggested_label(p + 52, words, 1);
    rsvp_build_recovery_label(p + 60, words + 2, 1);
    rsvp_generalized_label_build(p + 68, words, 1, RSVP_CLASS_LSP_WRAP_LABEL);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
