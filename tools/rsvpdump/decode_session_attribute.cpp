// SESSION_ATTRIBUTE: priorities, session flags by their names, the session name as text and,
// in C-Type 1, the three affinity masks.
#include <string_view>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

struct FlagName {
    uint8_t bit;
    const char *name;
};
constexpr FlagName kFlagNames[] = {
    {RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION, "local protection desired"},
    {RSVP_SESSION_ATTRIBUTE_FLAG_LABEL_RECORDING, "label recording desired"},
    {RSVP_SESSION_ATTRIBUTE_FLAG_SE_STYLE, "SE style desired"},
    {RSVP_SESSION_ATTRIBUTE_FLAG_BANDWIDTH_PROTECTION, "bandwidth protection desired"},
    {RSVP_SESSION_ATTRIBUTE_FLAG_NODE_PROTECTION, "node protection desired"},
    {RSVP_SESSION_ATTRIBUTE_FLAG_PATH_REEVALUATION, "path re-evaluation request"},
};

void decode_session_attribute(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t setup = 0, holding = 0, flags = 0, name_length = 0;
    const char *name = nullptr;
    uint32_t exclude_any = 0, include_any = 0, include_all = 0;
    if (!rsvp_extract_session_attribute(obj, &setup, &holding, &flags, &name_length, &name,
                                        &exclude_any, &include_any, &include_all))
        return;
    out.line()
        .text("setup priority ")
        .u("setup_priority", setup)
        .text(" holding priority ")
        .u("holding_priority", holding)
        .text(" flags ")
        .hex("flags", flags, 2);
    out.flag("local_protection", rsvp_session_attribute_protected(obj) != 0);
    out.open_list("flag_names");
    bool first = true;
    for (const FlagName &f : kFlagNames) {
        if (!(flags & f.bit)) continue;
        out.open_item().text(first ? " (" : ", ").str("name", f.name);
        out.close();
        first = false;
    }
    out.close().text(first ? "" : ")");
    out.line().text("session name \"").str("name", std::string_view(name, name_length)).text("\"");
    if (RSVP_OBJECT_C_TYPE(obj) == RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL_RA)
        out.line()
            .text("affinities exclude-any ")
            .hex("exclude_any", exclude_any, 8)
            .text(" include-any ")
            .hex("include_any", include_any, 8)
            .text(" include-all ")
            .hex("include_all", include_all, 8);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SESSION_ATTRIBUTE, rsvpdump::kAnyCType, decode_session_attribute);
