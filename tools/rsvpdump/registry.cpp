#include <array>
#include <string_view>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace rsvpdump {

namespace {

// Indexed by Class-Num, then by C-Type; the extra last column holds the any-C-Type decoder.
constexpr size_t kAnyColumn = 256;
using DecoderTable = std::array<std::array<Decoder, kAnyColumn + 1>, 256>;

// Constant-initialised (all null) before any decoder registers itself from a static
// initialiser, and free of the guard a function-local table would check on every lookup.
constinit DecoderTable g_decoders{};

struct ClassName {
    uint8_t class_num;
    std::string_view name;
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

struct CTypeName {
    uint8_t class_num;
    uint8_t c_type;
    std::string_view name;
};

// The C-Types that the library's header names by kind, by the suffix of their constant (a
// class with a single C-Type has no kind to name).
constexpr CTypeName kCTypeNames[] = {
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_IPV4, "IPV4"},
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_IPV6, "IPV6"},
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV4, "LSP_TUNNEL_IPV4"},
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV6, "LSP_TUNNEL_IPV6"},
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_UNI_IPV4, "UNI_IPV4"},
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_P2MP_LSP_IPV4, "P2MP_LSP_IPV4"},
    {RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_P2MP_LSP_IPV6, "P2MP_LSP_IPV6"},
    {RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IPV4, "IPV4"},
    {RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4, "IF_ID_IPV4"},
    {RSVP_CLASS_ERROR_SPEC, RSVP_CTYPE_ERROR_SPEC_IPV4, "IPV4"},
    {RSVP_CLASS_SCOPE, RSVP_CTYPE_SCOPE_IPV4, "IPV4"},
    {RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV, "INTSERV"},
    {RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_SONET_SDH, "SONET_SDH"},
    {RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_G709_OTN, "G709_OTN"},
    {RSVP_CLASS_FILTER_SPEC, RSVP_CTYPE_FILTER_SPEC_IPV4, "IPV4"},
    {RSVP_CLASS_FILTER_SPEC, RSVP_CTYPE_FILTER_SPEC_LSP_TUNNEL_IPV4, "LSP_TUNNEL_IPV4"},
    {RSVP_CLASS_FILTER_SPEC, RSVP_CTYPE_FILTER_SPEC_P2MP_LSP_TUNNEL_IPV4, "P2MP_LSP_TUNNEL_IPV4"},
    {RSVP_CLASS_SENDER_TEMPLATE, RSVP_CTYPE_SENDER_TEMPLATE_IPV4, "IPV4"},
    {RSVP_CLASS_SENDER_TEMPLATE, RSVP_CTYPE_SENDER_TEMPLATE_LSP_TUNNEL_IPV4, "LSP_TUNNEL_IPV4"},
    {RSVP_CLASS_SENDER_TEMPLATE, RSVP_CTYPE_SENDER_TEMPLATE_P2MP_LSP_TUNNEL_IPV4,
     "P2MP_LSP_TUNNEL_IPV4"},
    {RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_INTSERV, "INTSERV"},
    {RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_SONET_SDH, "SONET_SDH"},
    {RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_G709_OTN, "G709_OTN"},
    {RSVP_CLASS_ADSPEC, RSVP_CTYPE_ADSPEC_INTSERV, "INTSERV"},
    {RSVP_CLASS_RESV_CONFIRM, RSVP_CTYPE_RESV_CONFIRM_IPV4, "IPV4"},
    {RSVP_CLASS_EXPLICIT_ROUTE, RSVP_CTYPE_EXPLICIT_ROUTE_SUBOBJECTS, "SUBOBJECTS"},
    {RSVP_CLASS_RECORD_ROUTE, RSVP_CTYPE_RECORD_ROUTE_SUBOBJECTS, "SUBOBJECTS"},
    {RSVP_CLASS_EXCLUDE_ROUTE, RSVP_CTYPE_EXCLUDE_ROUTE_SUBOBJECTS, "SUBOBJECTS"},
    {RSVP_CLASS_LABEL, RSVP_CTYPE_LABEL_GENERALIZED, "GENERALIZED"},
    {RSVP_CLASS_RECOVERY_LABEL, RSVP_CTYPE_RECOVERY_LABEL_GENERALIZED, "GENERALIZED"},
    {RSVP_CLASS_UPSTREAM_LABEL, RSVP_CTYPE_UPSTREAM_LABEL_GENERALIZED, "GENERALIZED"},
    {RSVP_CLASS_SUGGESTED_LABEL, RSVP_CTYPE_SUGGESTED_LABEL_GENERALIZED, "GENERALIZED"},
    {RSVP_CLASS_LABEL_REQUEST, RSVP_CTYPE_LABEL_REQUEST_GENERALIZED, "GENERALIZED"},
    {RSVP_CLASS_SESSION_ATTRIBUTE, RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL_RA, "LSP_TUNNEL_RA"},
    {RSVP_CLASS_SESSION_ATTRIBUTE, RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL, "LSP_TUNNEL"},
    {RSVP_CLASS_PROTECTION, RSVP_CTYPE_PROTECTION_END_TO_END, "END_TO_END"},
    {RSVP_CLASS_DIFFSERV, RSVP_CTYPE_DIFFSERV_E_LSP, "E_LSP"},
    {RSVP_CLASS_DIFFSERV, RSVP_CTYPE_DIFFSERV_L_LSP, "L_LSP"},
    {RSVP_CLASS_MESSAGE_ID_ACK, RSVP_CTYPE_MESSAGE_ID_ACK, "ACK"},
    {RSVP_CLASS_MESSAGE_ID_ACK, RSVP_CTYPE_MESSAGE_ID_NACK, "NACK"},
    {RSVP_CLASS_MESSAGE_ID_LIST, RSVP_CTYPE_MESSAGE_ID_LIST, "LIST"},
    {RSVP_CLASS_MESSAGE_ID_LIST, RSVP_CTYPE_MESSAGE_ID_SRC_LIST_IPV4, "SRC_LIST_IPV4"},
    {RSVP_CLASS_MESSAGE_ID_LIST, RSVP_CTYPE_MESSAGE_ID_SRC_LIST_IPV6, "SRC_LIST_IPV6"},
    {RSVP_CLASS_HELLO, RSVP_CTYPE_HELLO_REQUEST, "REQUEST"},
    {RSVP_CLASS_HELLO, RSVP_CTYPE_HELLO_ACK, "ACK"},
    {RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV4, "IPV4"},
    {RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV6, "IPV6"},
    {RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV4_EXT, "IPV4_EXT"},
    {RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV6_EXT, "IPV6_EXT"},
    {RSVP_CLASS_S2L_SUB_LSP, RSVP_CTYPE_S2L_SUB_LSP_IPV4, "IPV4"},
    {RSVP_CLASS_S2L_SUB_LSP, RSVP_CTYPE_S2L_SUB_LSP_IPV6, "IPV6"},
};

// Names indexed by Class-Num (and by C-Type), built at compile time, so that each object
// line costs two loads.
constexpr size_t kNamedCTypes = 16;  // the named C-Types are all below this
struct Names {
    std::array<std::string_view, 256> classes{};
    std::array<std::array<std::string_view, kNamedCTypes>, 256> c_types{};
};

constexpr Names kNames = [] {
    Names n;
    for (const ClassName &c : kClassNames)
        n.classes[c.class_num] = c.name;
    for (const CTypeName &c : kCTypeNames)
        n.c_types[c.class_num][c.c_type] = c.name;
    return n;
}();
static_assert([] {
    for (const CTypeName &c : kCTypeNames)
        if (c.c_type >= kNamedCTypes) return false;
    return true;
}());

}  // namespace

bool register_decoder(uint8_t class_num, int c_type, Decoder decode) {
    g_decoders[class_num][c_type == kAnyCType ? kAnyColumn : static_cast<uint8_t>(c_type)] = decode;
    return true;
}

Decoder find_decoder(uint8_t class_num, uint8_t c_type) {
    const auto &row = g_decoders[class_num];
    return row[c_type] ? row[c_type] : row[kAnyColumn];
}

std::string_view class_name(uint8_t class_num) {
    return kNames.classes[class_num];
}

std::string_view c_type_name(uint8_t class_num, uint8_t c_type) {
    return c_type < kNamedCTypes ? kNames.c_types[class_num][c_type] : std::string_view();
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

}  // namespace rsvpdump
