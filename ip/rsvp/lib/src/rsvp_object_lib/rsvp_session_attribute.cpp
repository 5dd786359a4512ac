// SESSION_ATTRIBUTE (Class-Num 207): priorities, flags and name of a traffic-engineered LSP.
//
//   C-Type 7 LSP_TUNNEL (built here)         C-Type 1 LSP_TUNNEL_RA (read only)
//   OFFSET SIZE FIELD                        OFFSET SIZE FIELD
//   0      4    object header                0      4    object header
//   4      1    setup priority (0..7)        4      4    Exclude-any mask
//   5      1    holding priority (0..7)      8      4    Include-any mask
//   6      1    flags                        12     4    Include-all mask
//   7      1    name length                  16     1    setup priority (0..7)
//   8      n    name, then zero padding      17     1    holding priority (0..7)
//                                            18     1    flags
//                                            19     1    name length
//                                            20     n    name, then zero padding
//
// Two rules are kept exactly as peers and callers know them. The builder sizes the object as
// if it had the 20-byte C-Type 1 head, so every built object ends with 12 zero bytes beyond the
// padded name (an empty name builds 20 bytes). The validator does not reject a name length
// that overruns the object: it clamps the byte in place to the room that is left.
#include <cstring>

#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr uint8_t kClass = RSVP_CLASS_SESSION_ATTRIBUTE;
constexpr uint8_t kTunnel = RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL;
constexpr uint8_t kTunnelRa = RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL_RA;
constexpr uint8_t kPriorityMax = RSVP_SESSION_ATTRIBUTE_PRIORITY_MAX;
constexpr unsigned kBuildOverhead = RSVP_SESSION_ATTRIBUTE_BUILD_OVERHEAD;

// Where the four one-byte fields and the name start; the masks exist in C-Type 1 only.
struct Layout {
    unsigned setup;  // then holding, flags, name length, name
    unsigned min_len;
};
constexpr unsigned kHoldingStep = 1, kFlagsStep = 2, kNameLenStep = 3, kNameStep = 4;
constexpr Layout kTunnelLayout{4, RSVP_SESSION_ATTRIBUTE_MIN_LEN};
constexpr Layout kTunnelRaLayout{16, RSVP_SESSION_ATTRIBUTE_RA_MIN_LEN};
static_assert(kTunnelLayout.setup + kNameStep == kTunnelLayout.min_len &&
              kTunnelRaLayout.setup + kNameStep == kTunnelRaLayout.min_len);
constexpr unsigned kExcludeAnyOffset = 4, kIncludeAnyOffset = 8, kIncludeAllOffset = 12;

// The layout of a C-Type this family handles, or nullptr.
const Layout *layout_of(const uint8_t *obj) {
    switch (obj_ctype(obj)) {
        case kTunnel:
            return &kTunnelLayout;
        case kTunnelRa:
            return &kTunnelRaLayout;
        default:
            return nullptr;
    }
}

template <typename T>
void put_out(T *out, T value) {
    if (out) *out = value;
}

}  // namespace

extern "C" {

void rsvp_build_session_attribute(uint8_t *obj, uint8_t setup_priority, uint8_t holding_priority,
                                  uint8_t flags, uint8_t name_length, const char *name) {
    unsigned length = name_length + kBuildOverhead;
    if (length % kObjAlign != 0) length = length - length % kObjAlign + kObjAlign;
    std::memset(obj, 0, length);
    put_obj_hdr(obj, kClass, kTunnel, static_cast<uint16_t>(length));
    const unsigned at = kTunnelLayout.setup;
    obj[at] = setup_priority;
    obj[at + kHoldingStep] = holding_priority;
    obj[at + kFlagsStep] = flags;
    obj[at + kNameLenStep] = name_length;
    if (name_length != 0) std::memcpy(obj + at + kNameStep, name, name_length);
}

int rsvp_valid_session_attribute(uint8_t *obj) {
    if (!obj || obj_class(obj) != kClass) return 0;
    const uint16_t length = obj_length(obj);
    if (length % kObjAlign != 0) return 0;
    const Layout *l = layout_of(obj);
    if (!l || length < l->min_len) return 0;
    if (obj[l->setup] > kPriorityMax || obj[l->setup + kHoldingStep] > kPriorityMax) return 0;
    // The repair: a name length that does not fit is cut to the room behind the head.
    const unsigned room = length - l->min_len;
    if (obj[l->setup + kNameLenStep] >= room)
        obj[l->setup + kNameLenStep] = static_cast<uint8_t>(room);
    return 1;
}

int rsvp_extract_session_attribute(uint8_t *obj, uint8_t *setup_priority, uint8_t *holding_priority,
                                   uint8_t *flags, uint8_t *name_length, const char **name,
                                   uint32_t *exclude_any, uint32_t *include_any,
                                   uint32_t *include_all) {
    if (!rsvp_valid_session_attribute(obj)) return 0;
    const Layout *l = layout_of(obj);
    const bool ra = l == &kTunnelRaLayout;
    put_out(setup_priority, obj[l->setup]);
    put_out(holding_priority, obj[l->setup + kHoldingStep]);
    put_out(flags, obj[l->setup + kFlagsStep]);
    put_out(name_length, obj[l->setup + kNameLenStep]);
    put_out(name, reinterpret_cast<const char *>(obj + l->setup + kNameStep));
    put_out(exclude_any, ra ? wire::load_be32(obj + kExcludeAnyOffset) : 0u);
    put_out(include_any, ra ? wire::load_be32(obj + kIncludeAnyOffset) : 0u);
    put_out(include_all, ra ? wire::load_be32(obj + kIncludeAllOffset) : 0u);
    return 1;
}

// Not validated: the flags byte of the C-Type's layout is read as it stands, even behind a
// C-Type 1 object shorter than 19 bytes (deliberate read).
int rsvp_session_attribute_protected(uint8_t *obj) {
    if (!obj) return 0;
    const Layout *l = layout_of(obj);
    return l ? obj[l->setup + kFlagsStep] & RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION : 0;
}

uint32_t RSVP_SESSION_ATTRIBUTE_FLAGS(uint8_t *obj) {
    uint8_t flags = 0;
    if (rsvp_valid_object(obj) == RSVP_OBJECT_VALID)
        rsvp_extract_session_attribute(obj, nullptr, nullptr, &flags, nullptr, nullptr, nullptr,
                                       nullptr, nullptr);
    return flags;
}

// Any valid object of C-Type 7 or 1 takes the write, whatever its class, as long as its Length
// covers the flags byte.
void RSVP_SESSION_ATTRIBUTE_SET_FLAGS(uint8_t *obj, uint8_t flags) {
    if (!obj) return;
    const Layout *l = layout_of(obj);
    if (l && valid_holds(obj, l->setup + kFlagsStep + 1)) obj[l->setup + kFlagsStep] = flags;
}

}  // extern "C"
