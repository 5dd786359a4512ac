// Message type names, session kinds and the one-line flow string, for log lines.
//
// The flow string reads a message's object run through the SESSION, S2L_SUB_LSP and
// SENDER_TEMPLATE/FILTER_SPEC accessors, which validate the object they are given, so no text
// here reads outside an object's own Length:
//
//   DEST(KIND:PORT) <- SENDER(PORT[:SG_ORIGIN:SG_ID])
//
// KIND is "LSP", "P2MP sub-LSP:P2MP_ID", "OUNI" or the protocol id; PORT is the destination
// port, or the tunnel id of an LSP session; the sender's PORT is its source port or LSP id.
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "rsvp_lib_util.h"
#include "rsvp_lib_util_internal.hpp"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

namespace {

struct MsgTypeName {
    int32_t type;
    const char *name;
};

constexpr MsgTypeName kMsgTypeNames[] = {
    {1, "Path"},
    {2, "Resv"},
    {3, "PathError"},
    {4, "ResvError"},
    {5, "PathTear"},
    {6, "ResvTear"},
    {7, "ResvConfirm"},
    {12, "Bundle"},
    {13, "Ack"},
    {15, "SummaryRefresh"},
    {20, "Hello"},
    {25, "Challenge"},
    {26, "ChallengeResponse"},
    {66, "DSBM-Willing"},
    {67, "I_AM_DSBM"},
};

char msg_type_buf[RSVP_LIB_UTIL_MSG_TYPE_BUF_LEN];
// Its own buffer, because it formats the result of rsvp_msg_type_string.
char msg_type_v2_buf[RSVP_LIB_UTIL_MSG_TYPE_BUF_LEN];
char flow_buf[RSVP_LIB_UTIL_FLOW_BUF_LEN];

// Appends pieces to the flow buffer at a running position that adds the counts the formatter
// reports, the untruncated ones included. Once they reach the buffer size there is no room
// left to offer, so appending stops there (the text stays cut at the last byte), as it does
// at a negative count.
class FlowText {
  public:
    __attribute__((format(printf, 2, 3))) void add(const char *format, ...) {
        if (stopped_) return;
        const int room = RSVP_LIB_UTIL_FLOW_BUF_LEN - pos_;
        if (room <= 0) {
            stopped_ = true;
            return;
        }
        va_list args;
        va_start(args, format);
        const int n = std::vsnprintf(flow_buf + pos_, static_cast<size_t>(room), format, args);
        va_end(args);
        if (n < 0)
            stopped_ = true;
        else
            pos_ += n;
    }

  private:
    int pos_ = 0;
    bool stopped_ = false;
};

void copy_kind(char *text, const char *kind) {
    if (!text) return;
    std::strncpy(text, kind, RSVP_LIB_UTIL_NAME_LEN);
    text[RSVP_LIB_UTIL_NAME_LEN - 1] = '\0';
}

}  // namespace

void rsvp_lib_util_format(char *buffer, size_t size, const char *format, ...) {
    if (!buffer || size == 0) return;
    va_list args;
    va_start(args, format);
    std::vsnprintf(buffer, size, format, args);
    va_end(args);
    buffer[size - 1] = '\0';
}

extern "C" {

const char *rsvp_msg_type_string(int32_t type) {
    const char *name = nullptr;
    for (const MsgTypeName &m : kMsgTypeNames)
        if (m.type == type) name = m.name;
    if (name)
        rsvp_lib_util_format(msg_type_buf, sizeof msg_type_buf, "%s", name);
    else  // negative types show as their unsigned 32-bit value
        rsvp_lib_util_format(msg_type_buf, sizeof msg_type_buf, "Unknown (type %u)",
                             static_cast<uint32_t>(type));
    msg_type_buf[sizeof msg_type_buf - 1] = '\0';
    return msg_type_buf;
}

const char *rsvp_msg_type_string_v2(int32_t type, int is_sub) {
    rsvp_lib_util_format(msg_type_v2_buf, sizeof msg_type_v2_buf, "%s %smessage",
                         rsvp_msg_type_string(type), is_sub ? "sub-" : "");
    return msg_type_v2_buf;
}

int rsvp_lib_util_session_typestring(uint8_t *session, char *text, uint16_t *port_out,
                                     uint32_t *id_out) {
    const char *kind = nullptr;
    if (rsvp_tunnel_ipv4_session(session))
        kind = "IPv4_LSP";
    else if (rsvp_uni_ipv4_session(session))
        kind = "OUNI_LSP";
    else if (rsvp_p2mp_lsp_ipv4_session(session))
        kind = "P2MP_SUB_LSP";
    if (kind) {
        copy_kind(text, kind);
        if (port_out) *port_out = RSVP_SESSION_PORT(session);
        if (id_out) *id_out = RSVP_SESSION_EXT_TUNNEL_ID(session);
        return 1;
    }
    if (rsvp_ip_ipv4_session(session)) {
        copy_kind(text, "IP_IPv4");
        if (port_out) *port_out = RSVP_SESSION_PORT(session);
        if (id_out) *id_out = RSVP_SESSION_PROTOCOL(session);
        return 0;
    }
    copy_kind(text, rsvp::text::kUnknown);
    return 0;
}

const char *rsvp_lib_util_flow_str(uint8_t *objects, uint32_t length) {
    flow_buf[0] = '\0';
    if (!objects || length == 0) return flow_buf;
    uint8_t *session = rsvp_first_object_type(objects, length, RSVP_CLASS_SESSION);
    uint8_t *s2l = rsvp_first_object_type(objects, length, RSVP_CLASS_S2L_SUB_LSP);
    uint8_t *sender = rsvp_first_object_type(objects, length, RSVP_CLASS_SENDER_TEMPLATE);
    if (!sender) sender = rsvp_first_object_type(objects, length, RSVP_CLASS_FILTER_SPEC);
    FlowText out;
    if (!session) {
        out.add("NULL SESSION");
        return flow_buf;
    }

    uint32_t destination = 0;
    if (RSVP_OBJECT_C_TYPE(session) == RSVP_CTYPE_SESSION_P2MP_LSP_IPV4)
        destination = s2l ? RSVP_S2L_SUB_LSP_DESTINATION(s2l) : 0;
    else
        destination = rsvp_session_gen_ipv4_dst(session);
    out.add("%s", inet_ntoa_r(destination));

    // P2MP is tested before UNI here, the other way round from the session type string.
    if (rsvp_tunnel_ipv4_session(session)) {
        out.add("(LSP:");
    } else if (rsvp_p2mp_lsp_ipv4_session(session)) {
        out.add("(P2MP sub-LSP:");
        out.add("%u:", RSVP_SESSION_P2MP_ID(session));
    } else if (rsvp_uni_ipv4_session(session)) {
        out.add("(OUNI:");
    } else {
        out.add("(%u:", static_cast<unsigned>(RSVP_SESSION_PROTOCOL(session)));
    }
    out.add("%u) <- ", static_cast<unsigned>(RSVP_SESSION_PORT(session)));

    if (!sender) {
        out.add("Wildcard sender");
        return flow_buf;
    }
    out.add("%s(%u", inet_ntoa_r(RSVP_TEMPLATE_SOURCE(sender)),
            static_cast<unsigned>(RSVP_TEMPLATE_PORT(sender)));
    if (RSVP_OBJECT_C_TYPE(sender) == RSVP_CTYPE_SENDER_TEMPLATE_P2MP_LSP_TUNNEL_IPV4)
        out.add(":%s:%u", inet_ntoa_r(RSVP_TEMPLATE_P2MP_SG_ORIGIN(sender)),
                static_cast<unsigned>(RSVP_TEMPLATE_P2MP_SG_ID(sender)));
    out.add(")");
    return flow_buf;
}

}  // extern "C"
