// ERROR_SPEC (class 6), IPv4 (C-Type 1): the node that detected an error, and what it was.
//
//   OFFSET SIZE FIELD
//   0      4    object header: Length 12, class 6, C-Type 1
//   4      4    error node address (wire order)
//   8      1    flags (not interpreted here)
//   9      1    error code
//   10     2    error value
#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kNodeOffset = 4;
constexpr unsigned kFlagsOffset = 8;
constexpr unsigned kCodeOffset = 9;
constexpr unsigned kValueOffset = 10;
constexpr unsigned kNodeEnd = kNodeOffset + 4;
constexpr unsigned kValueEnd = kValueOffset + 2;
static_assert(kValueEnd == RSVP_ERROR_SPEC_IPV4_LEN);

// The fields in the order rsvp_compare_errors weighs them: the flags come last although
// they precede code and value on the wire. A field outside a valid object's Length, and
// every field of an object rsvp_valid_object does not accept, counts as 0.
struct OrderKey {
    uint32_t node = 0;  // host order
    uint8_t code = 0;
    uint16_t value = 0;
    uint8_t flags = 0;
};

OrderKey order_key(uint8_t *obj) {
    OrderKey k;
    if (rsvp_valid_object(obj) != RSVP_OBJECT_VALID) return k;
    const uint16_t length = obj_length(obj);
    if (length >= kNodeEnd) k.node = wire::load_be32(obj + kNodeOffset);
    if (length > kFlagsOffset) k.flags = obj[kFlagsOffset];
    if (length > kCodeOffset) k.code = obj[kCodeOffset];
    if (length >= kValueEnd) k.value = wire::load_be16(obj + kValueOffset);
    return k;
}

}  // namespace

extern "C" {

uint8_t *rsvp_build_error_ipv4(uint8_t *obj, uint32_t node, uint8_t flags, uint8_t code,
                               uint16_t value) {
    put_obj_hdr(obj, RSVP_CLASS_ERROR_SPEC, RSVP_CTYPE_ERROR_SPEC_IPV4, RSVP_ERROR_SPEC_IPV4_LEN);
    wire::store_raw32(obj + kNodeOffset, node);
    obj[kFlagsOffset] = flags;
    obj[kCodeOffset] = code;
    wire::store_be16(obj + kValueOffset, value);
    return obj;
}

int rsvp_valid_error_ipv4(uint8_t *obj) {
    return obj && obj_is(obj, RSVP_CLASS_ERROR_SPEC, RSVP_CTYPE_ERROR_SPEC_IPV4) &&
           obj_length(obj) == RSVP_ERROR_SPEC_IPV4_LEN;
}

int rsvp_extract_error_ipv4(uint8_t *obj, uint32_t *node, uint8_t *flags, uint8_t *code,
                            uint16_t *value) {
    if (!rsvp_valid_error_ipv4(obj)) return 0;
    *node = wire::load_raw32(obj + kNodeOffset);
    *flags = obj[kFlagsOffset];
    *code = obj[kCodeOffset];
    *value = wire::load_be16(obj + kValueOffset);
    return 1;
}

uint32_t RSVP_ERROR_NODE(uint8_t *obj) {
    return valid_holds(obj, kNodeEnd) ? wire::load_raw32(obj + kNodeOffset) : 0;
}

uint8_t RSVP_ERROR_FLAGS(uint8_t *obj) {
    return valid_holds(obj, kFlagsOffset + 1) ? obj[kFlagsOffset] : 0;
}

uint8_t RSVP_ERROR_CODE(uint8_t *obj) {
    return valid_holds(obj, kCodeOffset + 1) ? obj[kCodeOffset] : 0;
}

void RSVP_SET_ERROR_CODE(uint8_t *obj, uint8_t code) {
    if (valid_holds(obj, kCodeOffset + 1)) obj[kCodeOffset] = code;
}

uint16_t RSVP_ERROR_VALUE(uint8_t *obj) {
    return valid_holds(obj, kValueEnd) ? wire::load_be16(obj + kValueOffset) : 0;
}

int rsvp_compare_errors(uint8_t *a, uint8_t *b) {
    if (a == b) return 0;
    if (!a) return -1;
    if (!b) return 1;
    const OrderKey ka = order_key(a);
    const OrderKey kb = order_key(b);
    if (int c = three_way(ka.node, kb.node)) return c;
    if (int c = three_way(ka.code, kb.code)) return c;
    if (int c = three_way(ka.value, kb.value)) return c;
    return three_way(ka.flags, kb.flags);
}

}  // extern "C"
