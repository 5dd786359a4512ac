/* A C99 program that includes every public header and links librsvp. */
#include <stdio.h>
#include <string.h>

#include "rsvp_lib_util.h"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

int main(void) {
    uint8_t msg[16];
    memset(msg, 0, sizeof msg);
    rsvp_build_msg_hdr(1, 64, sizeof msg, 0, msg);
    rsvp_build_object(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg), 99, 1, 8);
    if (RSVP_MESSAGE_VERSION(msg) != RSVP_MSG_VERSION || RSVP_MESSAGE_OBJ_LEN(msg) != 8) {
        fprintf(stderr, "header round trip failed\n");
        return 1;
    }
    if (rsvp_valid_object(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg)) != RSVP_OBJECT_UNKNOWN_CLASS) {
        fprintf(stderr, "unexpected verdict\n");
        return 1;
    }
    {
        rsvp_ip_addr_t addr = {RSVP_IP_ADDR_TYPE_IPV4, RSVP_IP_ADDR_LEN_IPV4, 0x0100007fu};
        if (strcmp(rsvp_msg_type_string_v2(1, 1), "Path sub-message") != 0 ||
            !rsvp_ip_valid_routerid(&addr)) {
            fprintf(stderr, "text unit failed\n");
            return 1;
        }
    }
    printf("c99 consumer ok: %s\n", inet_ntoa_r(0x0100007fu));
    return 0;
}
