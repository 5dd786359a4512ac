// HELLO (class 22) and RESTART_CAP (class 131): two 12-byte objects of the Hello exchange, each
// a header and two 32-bit words. The library keeps no neighbour state; the caller does.
//
//   OBJECT       CLASS C-TYPE                LENGTH  OFFSET SIZE FIELD
//   HELLO        22    1 REQUEST, 2 ACK      12      4      4    source instance
//                                                    8      4    destination instance
//   RESTART_CAP  131   1 (any on receipt)    12      4      4    restart time
//                                                    8      4    recovery time
//
// Deliberately asymmetric: the HELLO validator checks the C-Type, the RESTART_CAP validator
// does not. The extractors do not validate at all: they read the fixed offsets of whatever
// they are given, so the caller validates first.
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kFirstOffset = 4;
constexpr unsigned kSecondOffset = 8;
constexpr unsigned kWordLen = 4;
constexpr uint16_t kLen = RSVP_HELLO_LEN;
static_assert(kSecondOffset + kWordLen == kLen && kLen == RSVP_RESTART_CAP_LEN);

void build_two_words(uint8_t *buffer, uint8_t class_num, uint8_t c_type, uint32_t first,
                     uint32_t second) {
    put_obj_hdr(buffer, class_num, c_type, kLen);
    wire::store_be32(buffer + kFirstOffset, first);
    wire::store_be32(buffer + kSecondOffset, second);
}

int extract_word(uint8_t *obj, unsigned offset, uint32_t *out) {
    if (!obj || !out) return 0;
    *out = wire::load_be32(obj + offset);
    return 1;
}

}  // namespace

extern "C" {

void rsvp_build_hello_request(uint8_t *buffer, uint32_t source_instance,
                              uint32_t destination_instance) {
    build_two_words(buffer, RSVP_CLASS_HELLO, RSVP_CTYPE_HELLO_REQUEST, source_instance,
                    destination_instance);
}

void rsvp_build_hello_ack(uint8_t *buffer, uint32_t source_instance,
                          uint32_t destination_instance) {
    build_two_words(buffer, RSVP_CLASS_HELLO, RSVP_CTYPE_HELLO_ACK, source_instance,
                    destination_instance);
}

int rsvp_valid_hello(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_HELLO) return 0;
    const uint8_t c_type = obj_ctype(obj);
    if (c_type != RSVP_CTYPE_HELLO_REQUEST && c_type != RSVP_CTYPE_HELLO_ACK) return 0;
    return obj_length(obj) == kLen;
}

int rsvp_extract_hello_src_instance(uint8_t *obj, uint32_t *source_instance) {
    return extract_word(obj, kFirstOffset, source_instance);
}

int rsvp_extract_hello_dst_instance(uint8_t *obj, uint32_t *destination_instance) {
    return extract_word(obj, kSecondOffset, destination_instance);
}

int rsvp_extract_hello_msg_type(uint8_t *obj, uint8_t *msg_type) {
    if (!obj || !msg_type) return 0;
    *msg_type = obj_ctype(obj);
    return 1;
}

void rsvp_build_restart_cap(uint8_t *buffer, uint32_t restart_time, uint32_t recovery_time) {
    build_two_words(buffer, RSVP_CLASS_RESTART_CAP, RSVP_CTYPE_RESTART_CAP, restart_time,
                    recovery_time);
}

// Any C-Type is accepted on receipt, though the builder writes 1.
int rsvp_valid_restart_cap(uint8_t *obj) {
    return obj && obj_class(obj) == RSVP_CLASS_RESTART_CAP && obj_length(obj) == kLen;
}

int rsvp_extract_restart_cap_restart_time(uint8_t *obj, uint32_t *restart_time) {
    return extract_word(obj, kFirstOffset, restart_time);
}

int rsvp_extract_restart_cap_recovery_time(uint8_t *obj, uint32_t *recovery_time) {
    return extract_word(obj, kSecondOffset, recovery_time);
}

}  // extern "C"
