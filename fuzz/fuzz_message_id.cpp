// MESSAGE_ID, MESSAGE_ID_ACK/NACK and MESSAGE_ID_LIST: each valid object is rebuilt from what
// its getters read, and must come out byte for byte the same; the getters also run on valid
// objects of every class (a list index just past a foreign object must not read it), and the
// list add on a scratch copy of any class-25 object.
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr unsigned kIdLen = 4;
constexpr unsigned kFlagsOffset = 4;

void same_or_abort(const uint8_t *a, const uint8_t *b, size_t n) {
    if (std::memcmp(a, b, n) != 0) std::abort();
}

void exercise_id(const Object &o) {
    uint8_t built[RSVP_MESSAGE_ID_LEN];
    const uint32_t epoch = RSVP_MESSAGE_ID_EPOCH(o.obj), id = RSVP_MESSAGE_ID_MSGID(o.obj);
    if (o.class_num == RSVP_CLASS_MESSAGE_ID) {
        rsvp_build_message_id(built, id, epoch, RSVP_MESSAGE_ID_FLAGS(o.obj));
        same_or_abort(built, o.obj, sizeof built);
        return;
    }
    if (o.c_type == RSVP_CTYPE_MESSAGE_ID_NACK)
        rsvp_build_message_id_nack(built, id, epoch);
    else
        rsvp_build_message_id_ack(built, id, epoch);
    // Built with flags 0; a received ACK may carry any.
    built[kFlagsOffset] = o.obj[kFlagsOffset];
    same_or_abort(built, o.obj, sizeof built);
}

void exercise_list(const Object &o) {
    const uint32_t count = (o.length - RSVP_MESSAGE_ID_LIST_HDR_LEN) / kIdLen;
    Scratch s = scratch_copy(o);
    rsvp_build_message_id_list(s.data(), RSVP_MESSAGE_ID_LIST_EPOCH(o.obj),
                               RSVP_MESSAGE_ID_LIST_FLAGS(o.obj));
    for (uint32_t i = 0; i < count; ++i)
        rsvp_add_message_id_list(s.data(), RSVP_MESSAGE_ID_LIST_MSGID(o.obj, i));
    RSVP_OBJECT_SET_C_TYPE(s.data(), o.c_type);  // built as C-Type 1; 2 and 3 are received
    same_or_abort(s.data(), o.obj, o.length);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        switch (o.class_num) {
            case RSVP_CLASS_MESSAGE_ID:
            case RSVP_CLASS_MESSAGE_ID_ACK:
            case RSVP_CLASS_MESSAGE_ID_LIST: {
                keep(rsvp_valid_message_id(o.obj) + rsvp_valid_message_id_ack(o.obj) +
                     rsvp_valid_message_id_list(o.obj));
                Scratch s = scratch_copy(o, kIdLen);
                rsvp_add_message_id_list(s.data(), o.length);
                keep(rsvp_valid_message_id_list(s.data()));
                break;
            }
            default:
                break;
        }
        if (o.verdict != RSVP_OBJECT_VALID) continue;
        if (o.class_num == RSVP_CLASS_MESSAGE_ID || o.class_num == RSVP_CLASS_MESSAGE_ID_ACK)
            exercise_id(o);
        else if (o.class_num == RSVP_CLASS_MESSAGE_ID_LIST)
            exercise_list(o);
        Reach r = reach(o);
        keep(RSVP_MESSAGE_ID_FLAGS(r.obj) + RSVP_MESSAGE_ID_EPOCH(r.obj) +
             RSVP_MESSAGE_ID_MSGID(r.obj) + RSVP_MESSAGE_ID_LIST_FLAGS(r.obj) +
             RSVP_MESSAGE_ID_LIST_EPOCH(r.obj));
        // The first index past the object: answered 0, unread, for every class but a list.
        if (o.class_num != RSVP_CLASS_MESSAGE_ID_LIST && o.length >= RSVP_MESSAGE_ID_LIST_HDR_LEN)
            keep(RSVP_MESSAGE_ID_LIST_MSGID(o.obj,
                                            (o.length - RSVP_MESSAGE_ID_LIST_HDR_LEN) / kIdLen));
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(3 * RSVP_MESSAGE_ID_LEN + RSVP_MESSAGE_ID_LIST_HDR_LEN + 3 * kIdLen, 0);
    uint8_t *p = run.data();
    rsvp_build_message_id(p, 256, 42, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED);
    rsvp_build_message_id_ack(p + RSVP_MESSAGE_ID_LEN, 256, 42);
    rsvp_build_message_id_nack(p + 2 * RSVP_MESSAGE_ID_LEN, 255, RSVP_MESSAGE_ID_EPOCH_MAX);
    uint8_t *list = p + 3 * RSVP_MESSAGE_ID_LEN;
    rsvp_build_message_id_list(list, 42, 0);
    for (uint32_t id : {256u, 257u, 0xFFFFFFFFu})
        rsvp_add_message_id_list(list, id);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
