// LABEL_SET and ACCEPTABLE_LABEL_SET: both validators on every object, both extractors, a
// rebuild from the extracted labels that must give back the received bytes, and the one-label
// add on a copy with room for the label.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr size_t kLabelLen = 4;

void check(bool ok) {
    if (!ok) std::abort();
}

void exercise_plain(const Object &o) {
    uint32_t *labels = nullptr;
    uint8_t count = 0, action = 0;
    uint16_t type = 0;
    if (!rsvp_extract_label_set_obj(o.obj, &labels, &count, &action, &type)) return;
    const size_t n = (o.length - RSVP_LABEL_SET_HDR_LEN) / kLabelLen;
    check(count == static_cast<uint8_t>(n));
    // Built again one label at a time; the bytes match but for the reserved bits.
    Bytes again(o.length);
    rsvp_build_label_set_obj(again.data(), action, type);
    std::vector<uint32_t> host(n);
    RSVP_COPY_LABEL_NTOHL(host.data(), labels, static_cast<uint16_t>(n));
    for (uint32_t label : host)
        rsvp_add_label_set_obj(again.data(), label);
    check(std::memcmp(again.data() + RSVP_LABEL_SET_HDR_LEN, o.obj + RSVP_LABEL_SET_HDR_LEN,
                      o.length - RSVP_LABEL_SET_HDR_LEN) == 0);
    check(rsvp_valid_label_set_obj(again.data()) == 1);
}

void exercise_32bit(const Object &o, uint16_t class_num) {
    uint8_t action = 0;
    uint32_t count = 0;
    if (!rsvp_extract_32bit_label_set_obj(o.obj, class_num, &action, &count)) return;
    std::vector<uint32_t> labels(count);
    check(rsvp_extract_32bit_label_set_obj_labels(o.obj, class_num, count + 1, labels.data()) == 0);
    check(rsvp_extract_32bit_label_set_obj_labels(o.obj, class_num, count, labels.data()) == 1);
    Bytes again(o.length);
    const uint16_t type = static_cast<uint16_t>(o.obj[6] << 8 | o.obj[7]);
    rsvp_build_32bit_label_set(again.data(), o.class_num, type, action, count, labels.data());
    check(rsvp_valid_32bit_label_set_obj(again.data(), class_num) == 1);
    check(std::memcmp(again.data() + RSVP_LABEL_SET_HDR_LEN, o.obj + RSVP_LABEL_SET_HDR_LEN,
                      o.length - RSVP_LABEL_SET_HDR_LEN) == 0);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        keep(rsvp_valid_label_set_obj(o.obj) + rsvp_valid_acceptable_label_set(o.obj) +
             rsvp_valid_32bit_label_set_obj(o.obj, o.class_num) +
             rsvp_valid_32bit_label_set_obj(o.obj, RSVP_CLASS_LABEL_SET));
        exercise_plain(o);
        exercise_32bit(o, RSVP_CLASS_LABEL_SET);
        exercise_32bit(o, RSVP_CLASS_ACCEPTABLE_LABEL_SET);
        // The add needs 4 bytes of room; it leaves objects below 8 bytes alone.
        Scratch s = scratch_copy(o, kLabelLen);
        rsvp_add_label_set_obj(s.data(), o.length);
        check(RSVP_OBJECT_LENGTH(s.data()) ==  // 16 bits: a 64 KB object's Length wraps
              static_cast<uint16_t>(o.length < RSVP_LABEL_SET_HDR_LEN ? o.length
                                                                      : o.length + kLabelLen));
    }
}

void seeds(std::vector<Bytes> &out) {
    const uint32_t labels[] = {0x00011111, 0x00011114, 16};
    Bytes run(20 + 16 + 12, 0);
    uint8_t *p = run.data();
    rsvp_build_label_set_obj(p, RSVP_LABEL_SET_INCLUSIVE_LIST, RSVP_LABEL_SET_TYPE_GENERALIZED);
    for (uint32_t label : labels)
        rsvp_add_label_set_obj(p, label);
    rsvp_build_32bit_label_set(p + 20, RSVP_CLASS_ACCEPTABLE_LABEL_SET, RSVP_LABEL_SET_TYPE_LABEL,
                               RSVP_LABEL_SET_EXCLUSIVE_RANGE, 2, labels);
    rsvp_build_32bit_label_set(p + 36, RSVP_CLASS_LABEL_SET, RSVP_LABEL_SET_TYPE_LABEL,
                               RSVP_LABEL_SET_EXCLUSIVE_LIST, 1, labels + 2);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
