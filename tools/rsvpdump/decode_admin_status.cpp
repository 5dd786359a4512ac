// ADMIN_STATUS: the R, T, A and D bits, as the extractor reads them from their network
// positions in the status word.
#include <string>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

void decode_admin_status(uint8_t *obj, rsvpdump::Out &out) {
    rsvp_admin_status_info info{};
    if (!rsvp_extract_admin_status_object(obj, &info)) return;
    out.line().text("admin status word ").bytes("status_word", obj + RSVP_OBJ_HDR_LEN, 4);
    const struct {
        uint8_t set;
        const char *letter, *key, *meaning;
    } bits[] = {{info.r, " R ", "reflect", "reflect"},
                {info.t, " T ", "testing", "testing"},
                {info.a, " A ", "admin_down", "administratively down"},
                {info.d, " D ", "deleting", "deletion in progress"}};
    std::string meanings;
    for (const auto &b : bits) {
        out.text(b.letter).u(b.key, b.set);
        if (b.set) meanings += (meanings.empty() ? " (" : ", ") + std::string(b.meaning);
    }
    out.text(meanings.empty() ? "" : meanings + ")");
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_ADMIN_STATUS, rsvpdump::kAnyCType, decode_admin_status);
