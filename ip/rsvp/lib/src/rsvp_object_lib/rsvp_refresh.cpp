// Refresh or trigger: a later copy of a Path or Resv is a mere refresh when its objects repeat
// the stored ones byte for byte. Only the objects that legitimately change from one copy to
// the next are left out: an INTEGRITY object in first place (fresh sequence number and digest
// each time) and a MESSAGE_ID object in first place or directly behind that INTEGRITY object
// (a fresh identifier). The same objects anywhere else, null objects and padding all count,
// and so does the order of the objects.
#include <cstring>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

struct Run {
    uint8_t *start;
    uint32_t length;
};

// Steps over the leading object when `leading` accepts it; false when that object claims more
// bytes than the run holds. The header of the leading object is examined even in a run shorter
// than a header (deliberate read: the caller's pointer names an object).
bool skip_leading(Run &run, int (*leading)(uint8_t *)) {
    if (!leading(run.start)) return true;
    const uint16_t length = obj_length(run.start);
    if (length > run.length) return false;
    run.start += length;
    run.length -= length;
    return true;
}

bool skip_volatile_objects(Run &run) {
    return skip_leading(run, rsvp_valid_integrity) && skip_leading(run, rsvp_valid_message_id);
}

}  // namespace

extern "C" int rsvp_objects_is_not_refresh(uint8_t *objs_a, uint32_t len_a, uint8_t *objs_b,
                                           uint32_t len_b) {
    if (objs_a == objs_b) return 0;
    if (!objs_a || !objs_b) return 1;
    Run a{objs_a, len_a};
    Run b{objs_b, len_b};
    if (!skip_volatile_objects(a) || !skip_volatile_objects(b)) return 1;
    if (a.length != b.length) return 1;
    return std::memcmp(a.start, b.start, a.length) != 0;
}
