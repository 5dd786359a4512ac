// Field access behind the generic validity test.
//
// Many single-field accessors act only on an object that rsvp_valid_object accepts, whatever
// its class. A valid object of another class (or an IF_ID RSVP_HOP below 12 bytes, which
// validates as it stands) may be shorter than the field the accessor names, so the accessor
// also needs the object's Length to cover that field: nothing is read or written behind the
// object, and such a short object answers as an invalid one would (an RSVP_SET_ERROR_CODE on
// an 8-byte TIME_VALUES writes nothing).
#pragma once

#include <cstdint>

#include "rsvp_object_internal.hpp"

namespace rsvp {

// True when rsvp_valid_object answers 1 for obj and its Length reaches field_end.
inline bool valid_holds(uint8_t *obj, unsigned field_end) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID && obj_length(obj) >= field_end;
}

}  // namespace rsvp
