// Refresh reduction: message identifiers with their flags and epoch, acknowledgements, and
// every identifier of a summary list.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

// ACK_Desired is a MESSAGE_ID flag; the flags of an ACK, NACK or list are shown as received.
void decode_flags_epoch(uint8_t flags, uint32_t epoch, bool message_id, rsvpdump::Out &out) {
    out.text("flags ").hex("flags", flags, 2);
    if (message_id) {
        const bool ack_desired = (flags & RSVP_MESSAGE_ID_FLAG_ACK_DESIRED) != 0;
        out.flag("ack_desired", ack_desired).text(ack_desired ? " (ACK_Desired)" : "");
    }
    out.text(", epoch ").u("epoch", epoch);
}

void decode_message_id(uint8_t *obj, rsvpdump::Out &out) {
    out.line().text("message ID ").u("message_id", RSVP_MESSAGE_ID_MSGID(obj)).text(", ");
    decode_flags_epoch(RSVP_MESSAGE_ID_FLAGS(obj), RSVP_MESSAGE_ID_EPOCH(obj), true, out);
}

// ACK and NACK share the MESSAGE_ID layout; the getters read it from any valid object.
void decode_ack(uint8_t *obj, rsvpdump::Out &out) {
    const bool nack = RSVP_OBJECT_C_TYPE(obj) == RSVP_CTYPE_MESSAGE_ID_NACK;
    out.line().str("kind", nack ? "NACK" : "ACK").text(" of message ID ");
    out.u("message_id", RSVP_MESSAGE_ID_MSGID(obj)).text(", ");
    decode_flags_epoch(RSVP_MESSAGE_ID_FLAGS(obj), RSVP_MESSAGE_ID_EPOCH(obj), false, out);
}

void decode_list(uint8_t *obj, rsvpdump::Out &out) {
    // A valid list holds whole words, so every index below stays inside the object.
    const uint32_t count = (RSVP_OBJECT_LENGTH(obj) - RSVP_MESSAGE_ID_LIST_HDR_LEN) / 4;
    out.line();
    decode_flags_epoch(RSVP_MESSAGE_ID_LIST_FLAGS(obj), RSVP_MESSAGE_ID_LIST_EPOCH(obj), false,
                       out);
    out.text(", ").u("count", count).text(count == 1 ? " message ID:" : " message IDs:");
    out.open_list("message_ids");
    for (uint32_t i = 0; i < count; ++i) {
        out.open_item().text(" ").u("message_id", RSVP_MESSAGE_ID_LIST_MSGID(obj, i));
        out.close();
    }
    out.close();
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_MESSAGE_ID, RSVP_CTYPE_MESSAGE_ID, decode_message_id);
RSVPDUMP_DECODER(RSVP_CLASS_MESSAGE_ID_ACK, rsvpdump::kAnyCType, decode_ack);
RSVPDUMP_DECODER(RSVP_CLASS_MESSAGE_ID_LIST, rsvpdump::kAnyCType, decode_list);
