// Field access behind the generic validity test.
//
// Many single-field accessors act on any object that rsvp_valid_object accepts, whatever its
// class: the dispatch goes by Class-Num, and the accessor then reads or writes its fixed
// offset. A valid object that is shorter than that offset (one of another class, or an IF_ID
// RSVP_HOP below 12 bytes, which validates as it stands) is reached past its end on purpose:
// the caller named the field.
#pragma once

#include <cstdint>

#include "rsvp_object_internal.hpp"

namespace rsvp {

// True when rsvp_valid_object answers exactly 1 for obj (0 for null, invalid or unknown).
inline bool valid_any(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID;
}

}  // namespace rsvp
