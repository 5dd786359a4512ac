// Hello exchange: request or acknowledgement with its two instances, and the graceful restart
// capability with its restart and recovery times.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

// Called for valid objects only: the extractors read fixed offsets without checking, and a
// valid HELLO or RESTART_CAP is exactly 12 bytes long.
void decode_hello(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t type = 0;
    uint32_t src = 0, dst = 0;
    rsvp_extract_hello_msg_type(obj, &type);
    rsvp_extract_hello_src_instance(obj, &src);
    rsvp_extract_hello_dst_instance(obj, &dst);
    out.line().text("Hello ").str("kind", type == RSVP_CTYPE_HELLO_ACK ? "ACK" : "REQUEST");
    out.text(" source instance ").hex("src_instance", src, 8);
    out.text(" destination instance ").hex("dst_instance", dst, 8);
}

void decode_restart_cap(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t restart = 0, recovery = 0;
    rsvp_extract_restart_cap_restart_time(obj, &restart);
    rsvp_extract_restart_cap_recovery_time(obj, &recovery);
    out.line().text("restart time ").u("restart_time_ms", restart).text(" ms");
    out.text(", recovery time ").u("recovery_time_ms", recovery).text(" ms");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_HELLO, rsvpdump::kAnyCType, decode_hello);
RSVPDUMP_DECODER(RSVP_CLASS_RESTART_CAP, rsvpdump::kAnyCType, decode_restart_cap);
