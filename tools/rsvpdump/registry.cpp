#include <array>

#include "decode.hpp"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

namespace rsvpdump {

namespace {

// Indexed by Class-Num, then by C-Type; the extra last column holds the any-C-Type decoder.
constexpr size_t kAnyColumn = 256;
using DecoderTable = std::array<std::array<Decoder, kAnyColumn + 1>, 256>;

DecoderTable &decoders() {
    static DecoderTable table{};
    return table;
}

struct ClassName {
    uint8_t class_num;
    const char *name;
};

constexpr ClassName kClassNames[] = {
    {RSVP_CLASS_NULL, "NULL"},
    {RSVP_CLASS_SESSION, "SESSION"},
    {RSVP_CLASS_RSVP_HOP, "RSVP_HOP"},
    {RSVP_CLASS_INTEGRITY, "INTEGRITY"},
    {RSVP_CLASS_TIME_VALUES, "TIME_VALUES"},
    {RSVP_CLASS_ERROR_SPEC, "ERROR_SPEC"},
    {RSVP_CLASS_SCOPE, "SCOPE"},
    {RSVP_CLASS_STYLE, "STYLE"},
    {RSVP_CLASS_FLOWSPEC, "FLOWSPEC"},
    {RSVP_CLASS_FILTER_SPEC, "FILTER_SPEC"},
    {RSVP_CLASS_SENDER_TEMPLATE, "SENDER_TEMPLATE"},
    {RSVP_CLASS_SENDER_TSPEC, "SENDER_TSPEC"},
    {RSVP_CLASS_ADSPEC, "ADSPEC"},
    {RSVP_CLASS_POLICY_DATA, "POLICY_DATA"},
    {RSVP_CLASS_RESV_CONFIRM, "RESV_CONFIRM"},
    {RSVP_CLASS_LABEL, "LABEL"},
    {RSVP_CLASS_LABEL_REQUEST, "LABEL_REQUEST"},
    {RSVP_CLASS_EXPLICIT_ROUTE, "EXPLICIT_ROUTE"},
    {RSVP_CLASS_RECORD_ROUTE, "RECORD_ROUTE"},
    {RSVP_CLASS_HELLO, "HELLO"},
    {RSVP_CLASS_MESSAGE_ID, "MESSAGE_ID"},
    {RSVP_CLASS_MESSAGE_ID_ACK, "MESSAGE_ID_ACK"},
    {RSVP_CLASS_MESSAGE_ID_LIST, "MESSAGE_ID_LIST"},
    {RSVP_CLASS_RECOVERY_LABEL, "RECOVERY_LABEL"},
    {RSVP_CLASS_UPSTREAM_LABEL, "UPSTREAM_LABEL"},
    {RSVP_CLASS_LABEL_SET, "LABEL_SET"},
    {RSVP_CLASS_PROTECTION, "PROTECTION"},
    {RSVP_CLASS_S2L_SUB_LSP, "S2L_SUB_LSP"},
    {RSVP_CLASS_CHALLENGE, "CHALLENGE"},
    {RSVP_CLASS_DIFFSERV, "DIFFSERV"},
    {RSVP_CLASS_CLASSTYPE, "CLASSTYPE"},
    {RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES, "LSP_REQUIRED_ATTRIBUTES"},
    {RSVP_CLASS_SUGGESTED_LABEL, "SUGGESTED_LABEL"},
    {RSVP_CLASS_ACCEPTABLE_LABEL_SET, "ACCEPTABLE_LABEL_SET"},
    {RSVP_CLASS_RESTART_CAP, "RESTART_CAP"},
    {RSVP_CLASS_PVT_PROTECTION, "PVT_PROTECTION"},
    {RSVP_CLASS_ADMIN_STATUS, "ADMIN_STATUS"},
    {RSVP_CLASS_LSP_ATTRIBUTES, "LSP_ATTRIBUTES"},
    {RSVP_CLASS_ASSOCIATION, "ASSOCIATION"},
    {RSVP_CLASS_REVERSE_LSP, "REVERSE_LSP"},
    {RSVP_CLASS_SESSION_ATTRIBUTE, "SESSION_ATTRIBUTE"},
    {RSVP_CLASS_GENERALIZED_UNI, "GENERALIZED_UNI"},
    {RSVP_CLASS_EXCLUDE_ROUTE, "EXCLUDE_ROUTE"},
    {RSVP_CLASS_LSP_WRAP_LABEL, "LSP_WRAP_LABEL"},
};

}  // namespace

bool register_decoder(uint8_t class_num, int c_type, Decoder decode) {
    decoders()[class_num][c_type == kAnyCType ? kAnyColumn : static_cast<uint8_t>(c_type)] = decode;
    return true;
}

Decoder find_decoder(uint8_t class_num, uint8_t c_type) {
    const auto &row = decoders()[class_num];
    return row[c_type] ? row[c_type] : row[kAnyColumn];
}

const char *class_name(uint8_t class_num) {
    for (const ClassName &c : kClassNames)
        if (c.class_num == class_num) return c.name;
    return nullptr;
}

const char *intserv_service_name(unsigned service) {
    switch (service) {
        case RSVP_INTSRV_SERVICE_GENERAL:
            return "general";
        case RSVP_INTSRV_SERVICE_GUARANTEED:
            return "Guaranteed";
        case RSVP_INTSRV_SERVICE_CONTROLLED_LOAD:
            return "Controlled-Load";
        case RSVP_INTSRV_SERVICE_QUALITATIVE:
            return "qualitative";
        default:
            return "unknown";
    }
}

std::string addr(uint32_t wire_order) {
    return inet_ntoa_r(wire_order);
}

std::string hex_bytes(const uint8_t *p, size_t n) {
    std::string s = "0x";
    char buf[3];
    for (size_t i = 0; i < n; ++i) {
        std::snprintf(buf, sizeof buf, "%02x", p[i]);
        s += buf;
    }
    return s;
}

}  // namespace rsvpdump
