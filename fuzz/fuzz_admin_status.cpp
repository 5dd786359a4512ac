// ADMIN_STATUS: validator and extractor on every class-196 object; the record accessors on
// what was extracted; the builder and the network-order flag setter on the extracted flags.
// Built here the word lies in host order, written with the setter in network order: the
// setter's object must extract to the same flags again.
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

uint32_t word_of(const rsvp_admin_status_info &i) {
    return (RSVP_ADMIN_STATUS_INFO_R(&i) ? RSVP_ADMIN_STATUS_FLAG_R : 0) |
           (RSVP_ADMIN_STATUS_INFO_T(&i) ? RSVP_ADMIN_STATUS_FLAG_T : 0) |
           (RSVP_ADMIN_STATUS_INFO_A(&i) ? RSVP_ADMIN_STATUS_FLAG_A : 0) |
           (RSVP_ADMIN_STATUS_INFO_D(&i) ? RSVP_ADMIN_STATUS_FLAG_D : 0);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num != RSVP_CLASS_ADMIN_STATUS) continue;
        rsvp_admin_status_info info{};
        keep(rsvp_valid_admin_status_object(o.obj));
        if (!rsvp_extract_admin_status_object(o.obj, &info)) continue;
        uint8_t built[RSVP_ADMIN_STATUS_LEN];
        rsvp_build_admin_status_object(built, &info);
        uint32_t word = 0;
        RSVP_ADMIN_STATUS_INFO_SET_FLAGS(&word, word_of(info));
        std::memcpy(built + RSVP_OBJ_HDR_LEN, &word, sizeof word);
        rsvp_admin_status_info again{};
        RSVP_ADMIN_STATUS_INFO_SET_D(&again, 7);
        RSVP_ADMIN_STATUS_INFO_SET_A(&again, 7);
        RSVP_ADMIN_STATUS_INFO_SET_T(&again, 7);
        RSVP_ADMIN_STATUS_INFO_SET_R(&again, 7);
        if (!rsvp_extract_admin_status_object(built, &again) || word_of(again) != word_of(info))
            std::abort();
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(2 * RSVP_ADMIN_STATUS_LEN, 0);
    const rsvp_admin_status_info all{1, 1, 1, 1};
    rsvp_build_admin_status_object(run.data(), &all);
    rsvp_build_admin_status_object(run.data() + RSVP_ADMIN_STATUS_LEN, &all);
    RSVP_ADMIN_STATUS_INFO_SET_FLAGS(reinterpret_cast<uint32_t *>(run.data() + 12),
                                     RSVP_ADMIN_STATUS_FLAG_R | RSVP_ADMIN_STATUS_FLAG_A);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
