// Refresh reduction: MESSAGE_ID (class 23), MESSAGE_ID_ACK and MESSAGE_ID_NACK (class 24,
// C-Types 1 and 2) and MESSAGE_ID_LIST (class 25), the identifiers a sender stamps on its
// messages and the acknowledgements and summary lists that answer them.
//
//   MESSAGE_ID, MESSAGE_ID_ACK/NACK (Length 12):
//   OFFSET SIZE FIELD
//   0      4    object header
//   4      1    flags (0x01 ACK_Desired; always 0 in ACK/NACK as built)
//   5      3    epoch (24 bits)
//   8      4    message identifier
//
//   MESSAGE_ID_LIST (Length 8 + 4n):
//   OFFSET SIZE FIELD
//   0      4    object header
//   4      1    flags
//   5      3    epoch
//   8      4n   message identifiers, in the order they were added
#include "rsvp_assert.hpp"
#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kWordOffset = 4;  // flags in the top byte, epoch below
constexpr unsigned kFlagsShift = 24;
constexpr uint32_t kEpochMask = RSVP_MESSAGE_ID_EPOCH_MAX;
constexpr unsigned kIdOffset = 8;
constexpr unsigned kIdLen = 4;
constexpr unsigned kIdEnd = kIdOffset + kIdLen;
constexpr unsigned kListHdrLen = RSVP_MESSAGE_ID_LIST_HDR_LEN;
static_assert(kIdEnd == RSVP_MESSAGE_ID_LEN && kIdOffset == kListHdrLen);

uint32_t flags_and_epoch(uint8_t flags, uint32_t epoch) {
    return static_cast<uint32_t>(flags) << kFlagsShift | epoch;
}

// The three 12-byte forms. Taken as a signed 32-bit number, an epoch that passes here is
// neither below 0 nor above the 24-bit maximum, which is the test of the ACK/NACK builders.
void build_id12(uint8_t *buffer, uint8_t class_num, uint8_t c_type, uint32_t message_id,
                uint32_t epoch, uint8_t flags) {
    RSVP_ASSERT(buffer != nullptr);
    put_obj_hdr(buffer, class_num, c_type, RSVP_MESSAGE_ID_LEN);
    RSVP_ASSERT(epoch <= RSVP_MESSAGE_ID_EPOCH_MAX);  // the header stays written
    wire::store_be32(buffer + kIdOffset, message_id);
    wire::store_be32(buffer + kWordOffset, flags_and_epoch(flags, epoch));
}

bool is_id12(const uint8_t *obj, uint8_t class_num) {
    return obj && obj_class(obj) == class_num && obj_length(obj) == RSVP_MESSAGE_ID_LEN;
}

// The flags and epoch word sits at the same place in all three classes; the getters act on any
// object that rsvp_valid_object accepts and that reaches the word.
uint32_t valid_word(uint8_t *obj) {
    return valid_holds(obj, kWordOffset + kIdLen) ? wire::load_be32(obj + kWordOffset) : 0;
}

uint8_t flags_of(uint8_t *obj) {
    return static_cast<uint8_t>(valid_word(obj) >> kFlagsShift);
}

uint32_t epoch_of(uint8_t *obj) {
    return valid_word(obj) & kEpochMask;
}

}  // namespace

extern "C" {

void rsvp_build_message_id(uint8_t *buffer, uint32_t message_id, uint32_t epoch, uint8_t flags) {
    build_id12(buffer, RSVP_CLASS_MESSAGE_ID, RSVP_CTYPE_MESSAGE_ID, message_id, epoch, flags);
}

void rsvp_build_message_id_ack(uint8_t *buffer, uint32_t message_id, uint32_t epoch) {
    build_id12(buffer, RSVP_CLASS_MESSAGE_ID_ACK, RSVP_CTYPE_MESSAGE_ID_ACK, message_id, epoch, 0);
}

void rsvp_build_message_id_nack(uint8_t *buffer, uint32_t message_id, uint32_t epoch) {
    build_id12(buffer, RSVP_CLASS_MESSAGE_ID_ACK, RSVP_CTYPE_MESSAGE_ID_NACK, message_id, epoch, 0);
}

// Unlike the three builders above, this one trusts the buffer pointer.
void rsvp_build_message_id_list(uint8_t *buffer, uint32_t epoch, uint8_t flags) {
    RSVP_ASSERT(epoch <= RSVP_MESSAGE_ID_EPOCH_MAX);
    put_obj_hdr(buffer, RSVP_CLASS_MESSAGE_ID_LIST, RSVP_CTYPE_MESSAGE_ID_LIST, kListHdrLen);
    wire::store_be32(buffer + kWordOffset, flags_and_epoch(flags, epoch));
}

// Constant time: the slot is found from the Length alone. There is no upper limit; the caller
// sizes the buffer and stops before the 16-bit Length would wrap.
void rsvp_add_message_id_list(uint8_t *list, uint32_t message_id) {
    if (!list) return;
    const uint16_t length = obj_length(list);
    if (length < kListHdrLen) return;
    const unsigned slot = kIdOffset + (length - kListHdrLen) / kIdLen * kIdLen;
    wire::store_be32(list + slot, message_id);
    wire::store_be16(list + kObjLengthOffset, static_cast<uint16_t>(length + kIdLen));
}

int rsvp_valid_message_id(uint8_t *obj) {
    return is_id12(obj, RSVP_CLASS_MESSAGE_ID) && obj_ctype(obj) == RSVP_CTYPE_MESSAGE_ID;
}

int rsvp_valid_message_id_ack(uint8_t *obj) {
    return is_id12(obj, RSVP_CLASS_MESSAGE_ID_ACK) &&
           (obj_ctype(obj) == RSVP_CTYPE_MESSAGE_ID_ACK ||
            obj_ctype(obj) == RSVP_CTYPE_MESSAGE_ID_NACK);
}

// The empty list the builder lays down is deliberately not yet valid.
int rsvp_valid_message_id_list(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_MESSAGE_ID_LIST || obj_length(obj) <= kListHdrLen)
        return 0;
    const uint8_t c_type = obj_ctype(obj);
    return c_type == RSVP_CTYPE_MESSAGE_ID_LIST || c_type == RSVP_CTYPE_MESSAGE_ID_SRC_LIST_IPV4 ||
           c_type == RSVP_CTYPE_MESSAGE_ID_SRC_LIST_IPV6;
}

uint8_t RSVP_MESSAGE_ID_FLAGS(uint8_t *obj) {
    return flags_of(obj);
}

uint32_t RSVP_MESSAGE_ID_EPOCH(uint8_t *obj) {
    return epoch_of(obj);
}

uint32_t RSVP_MESSAGE_ID_MSGID(uint8_t *obj) {
    return valid_holds(obj, kIdEnd) ? wire::load_be32(obj + kIdOffset) : 0;
}

uint8_t RSVP_MESSAGE_ID_LIST_FLAGS(uint8_t *obj) {
    return flags_of(obj);
}

uint32_t RSVP_MESSAGE_ID_LIST_EPOCH(uint8_t *obj) {
    return epoch_of(obj);
}

uint32_t RSVP_MESSAGE_ID_LIST_MSGID(uint8_t *obj, uint32_t index) {
    if (rsvp_valid_object(obj) != RSVP_OBJECT_VALID) return 0;
    const size_t at = kIdOffset + static_cast<size_t>(index) * kIdLen;
    // On a list the index is the caller's to bound (deliberate read past the Length); a valid
    // object of another class is never read past its end.
    if (obj_class(obj) != RSVP_CLASS_MESSAGE_ID_LIST && obj_length(obj) < at + kIdLen) return 0;
    return wire::load_be32(obj + at);
}

}  // extern "C"
