// Calls that do not depend on an object's family, on every object of the run whatever its class
// and verdict: the object-level accessors of the families that gate on rsvp_valid_object (on
// valid objects of every class, in their exact-size buffers, so that a short object of another
// class shows any access behind it), the flowspec getters that do not validate, the header and
// word-array helpers, the Intserv parameter accessors over the body, and the platform helpers
// fed with the object's words.
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"
#include "rsvp_platform.h"

namespace {

using namespace rsvp_fuzz;

// The flowspec getters read fixed offsets up to the slack term (44) of any C-Type 2 object.
constexpr size_t kFlowGetterReach = 48;
// The P2MP sender accessors read to offset 20 of their own classes, past a shorter valid one.
constexpr size_t kP2mpReach = 20;
// The accessors that do not validate read or write fixed offsets below 12.
constexpr size_t kUncheckedReach = 12;
constexpr size_t kParamLen = 8;  // a single-word Intserv parameter
constexpr size_t kNameLen = 16;

void require(bool ok) {
    if (!ok) std::abort();
}

void accessors(const Object &o) {
    const bool sender =
        o.class_num == RSVP_CLASS_FILTER_SPEC || o.class_num == RSVP_CLASS_SENDER_TEMPLATE;
    Scratch s = scratch_copy(o, sender && o.length < kP2mpReach ? kP2mpReach - o.length : 0);
    uint8_t *p = s.data();
    const uint32_t v = body_word(o, 0);
    keep(uint64_t{RSVP_HOP_IPV4_NEIGHBOR(p)} + RSVP_HOP_NEIGHBOR(p) + RSVP_HOP_IPV4_LIF_HANDLE(p) +
         RSVP_HOP_LIF_HANDLE(p) + RSVP_HOP_IF_ID_NEIGHBOR(p) + RSVP_HOP_IF_ID_LIF_HANDLE(p) +
         RSVP_REFRESH_TIME(p) + RSVP_CONFIRM_ADDR(p) + RSVP_SCOPE_IPV4_ADDR(p, 0) +
         RSVP_STYLE_RESERVATION_TYPE(p) + RSVP_ERROR_NODE(p) + RSVP_ERROR_FLAGS(p) +
         RSVP_ERROR_CODE(p) + RSVP_ERROR_VALUE(p) + RSVP_SESSION_DESTINATION(p) +
         RSVP_SESSION_P2MP_ID(p) + RSVP_SESSION_PROTOCOL(p) + RSVP_SESSION_FLAGS(p) +
         RSVP_SESSION_PORT(p) + RSVP_SESSION_EXT_TUNNEL_ID(p) + RSVP_TEMPLATE_SOURCE(p) +
         RSVP_TEMPLATE_PORT(p) + RSVP_TEMPLATE_P2MP_SG_ORIGIN(p) + RSVP_TEMPLATE_P2MP_SG_ID(p) +
         RSVP_FILTER_SOURCE(p) + RSVP_FILTER_PORT(p) + RSVP_FILTER_P2MP_SG_ORIGIN(p) +
         RSVP_FILTER_P2MP_SG_ID(p) + RSVP_INTEGRITY_DIGEST_LEN(p) + RSVP_TSPEC_HEADER_VERSION(p) +
         RSVP_TSPEC_HEADER_LENGTH(p) + RSVP_ADSPEC_HDR_VERSION(p) + RSVP_ADSPEC_HDR_LENGTH(p) +
         RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(p) + RSVP_ADSPEC_BANDWIDTH_VAL(p) +
         RSVP_ADSPEC_LATENCY_VAL(p) + RSVP_LABEL_LENGTH(p) + RSVP_LABEL_TOP_LABEL(p) +
         RSVP_SESSION_ATTRIBUTE_FLAGS(p) + RSVP_PROTECTION_S(p) + RSVP_PROTECTION_P(p) +
         RSVP_PROTECTION_N(p) + RSVP_PROTECTION_O(p) + RSVP_PROTECTION_LSP_FLAGS(p) +
         RSVP_PROTECTION_LINK_FLAGS(p) + RSVP_PROTECTION_I(p) + RSVP_PROTECTION_R(p) +
         RSVP_PROTECTION_SEG_FLAGS(p) + RSVP_PVT_PROTECTION_S(p) + RSVP_PVT_PROTECTION_P(p) +
         RSVP_PVT_PROTECTION_N(p) + RSVP_PVT_PROTECTION_O(p) + RSVP_PVT_PROTECTION_LSP_FLAGS(p) +
         RSVP_PVT_PROTECTION_LINK_FLAGS(p) + RSVP_PVT_PROTECTION_I(p) + RSVP_PVT_PROTECTION_R(p) +
         RSVP_PVT_PROTECTION_SEG_FLAGS(p) + RSVP_MESSAGE_ID_FLAGS(p) + RSVP_MESSAGE_ID_EPOCH(p) +
         RSVP_MESSAGE_ID_MSGID(p) + RSVP_MESSAGE_ID_LIST_FLAGS(p) + RSVP_MESSAGE_ID_LIST_EPOCH(p) +
         RSVP_S2L_SUB_LSP_DESTINATION(p));
    keep(RSVP_HOP_IF_ID_SUBOBJ_PTR(p));
    keep(RSVP_INTEGRITY_DIGEST_PTR(p));
    keep(RSVP_CHALLENGE_KEY_ID_PTR(p));
    keep(RSVP_CHALLENGE_COOKIE_PTR(p));
    keep(RSVP_TSPEC_FRAGMENTS_PTR(p, 0));
    keep(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(p));
    keep(RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(p, 0));
    keep(RSVP_ERO_FIRST_SUBOBJ(p));
    RSVP_HOP_IPV4_SET_NEIGHBOR(p, v);
    RSVP_HOP_SET_NEIGHBOR(p, v);
    RSVP_HOP_IPV4_SET_LIF_HANDLE(p, v);
    RSVP_HOP_SET_LIF_HANDLE(p, v);
    RSVP_HOP_IF_ID_SET_LIF_HANDLE(p, v);
    RSVP_STYLE_SET_RESERVATION_TYPE(p, static_cast<uint8_t>(v));
    RSVP_SET_ERROR_CODE(p, static_cast<uint8_t>(v));
    RSVP_TEMPLATE_SET_SOURCE(p, v);
    RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(p, v);
    RSVP_FILTER_SET_SOURCE(p, v);
    RSVP_FILTER_SET_P2MP_SG_ORIGIN(p, v);
    RSVP_ADSPEC_HDR_SET_LENGTH(p, static_cast<uint16_t>(v));
    // On a list the index is the caller's to bound; on any other class any index is safe.
    constexpr uint32_t kListIdsOffset = 8;
    if (o.class_num != RSVP_CLASS_MESSAGE_ID_LIST)
        keep(RSVP_MESSAGE_ID_LIST_MSGID(p, v));
    else if (o.length > kListIdsOffset)
        keep(RSVP_MESSAGE_ID_LIST_MSGID(p, v % ((o.length - kListIdsOffset) / 4)));
    keep(RSVP_SUB_GUA_SUBOBJ_PTR(p));
    using FlagSetter = void (*)(uint8_t *, int);
    using ByteSetter = void (*)(uint8_t *, uint8_t);
    static constexpr FlagSetter kFlagSetters[] = {
        RSVP_PROTECTION_SET_S,     RSVP_PROTECTION_SET_P,     RSVP_PROTECTION_SET_N,
        RSVP_PROTECTION_SET_O,     RSVP_PROTECTION_SET_I,     RSVP_PROTECTION_SET_R,
        RSVP_PVT_PROTECTION_SET_S, RSVP_PVT_PROTECTION_SET_P, RSVP_PVT_PROTECTION_SET_N,
        RSVP_PVT_PROTECTION_SET_O, RSVP_PVT_PROTECTION_SET_I, RSVP_PVT_PROTECTION_SET_R};
    static constexpr ByteSetter kByteSetters[] = {
        RSVP_SESSION_ATTRIBUTE_SET_FLAGS,  RSVP_PROTECTION_SET_LSP_FLAGS,
        RSVP_PROTECTION_SET_LINK_FLAGS,    RSVP_PROTECTION_SET_SEG_FLAGS,
        RSVP_PVT_PROTECTION_SET_LSP_FLAGS, RSVP_PVT_PROTECTION_SET_LINK_FLAGS,
        RSVP_PVT_PROTECTION_SET_SEG_FLAGS};
    // Each single-bit setter gets its own bit of the input's word.
    for (size_t i = 0; i < std::size(kFlagSetters); ++i)
        kFlagSetters[i](p, static_cast<int>(v >> i & 1));
    for (ByteSetter fn : kByteSetters)
        fn(p, static_cast<uint8_t>(v));
}

// The accessors that act on any object without validating it, on every object (their fixed
// reach padded from the input behind a shorter one).
void unchecked(const Object &o) {
    Scratch s = scratch_copy(o, o.length < kUncheckedReach ? kUncheckedReach - o.length : 0);
    uint8_t *p = s.data();
    keep(uint64_t{RSVP_FLOWSPEC_HEADER_VERSION(p)} + RSVP_FLOWSPEC_HEADER_LENGTH(p) +
         RSVP_SBM_LAN_NHOP_L3_IPV4_ADDR(p) + RSVP_SBM_DSBM_IPV4_ADDR(p) +
         RSVP_SBM_LAN_LOOPBACK_IPV4_ADDR(p) + RSVP_OBJECT_C_TYPE(p));
    keep(RSVP_FLOWSPEC_FRAGMENTS_PTR(p, o.length));
    RSVP_HOP_IF_ID_SET_NEIGHBOR(p, body_word(o, 0));
    RSVP_SET_OBJECT_LENGTH(p, o.length);
}

void flow_getters(const Object &o) {
    Scratch s = scratch_copy(o, o.length < kFlowGetterReach ? kFlowGetterReach - o.length : 0);
    uint8_t *p = s.data();
    keep(uint64_t{rsvp_get_flow_qos_service(p)} +
         static_cast<uint64_t>(rsvp_get_flow_average_rate(p)) +
         static_cast<uint64_t>(rsvp_get_flow_maximum_burst(p)) +
         static_cast<uint64_t>(rsvp_get_flow_peak_rate(p)) + rsvp_get_flow_min_unit(p) +
         rsvp_get_flow_max_unit(p) + static_cast<uint64_t>(rsvp_get_flow_requested_rate(p)) +
         rsvp_get_flow_slack(p));
}

// Header writers on a copy, read back; the words of the object through both array copies.
void framework(const Object &o) {
    Scratch s = scratch_copy(o);
    const auto class_num = static_cast<uint8_t>(body_word(o, 0));
    RSVP_OBJECT_SET_CLASS(s.data(), class_num);
    RSVP_OBJECT_SET_C_TYPE(s.data(), o.c_type);
    require(RSVP_OBJECT_CLASS(s.data()) == class_num && RSVP_OBJECT_LENGTH(s.data()) == o.length);
    require(rsvp_next_object(s.data()) == s.data() + o.length);
    size_t room = 0;  // the new class's validator may read behind the object on purpose
    keep(rsvp_valid_object(copy_with_room(s.data(), s.data() + s.size, room).get()));
    RSVP_OBJECT_SET_CLASS(nullptr, class_num);

    const uint16_t words = o.length / 4;
    std::vector<uint32_t> in(words), host(words), back(words);
    std::memcpy(in.data(), o.obj, size_t{words} * 4);
    RSVP_COPY_UINT32_ARRAY_NTOHL(host.data(), in.data(), words);
    RSVP_COPY_UINT32_ARRAY_HTONL(back.data(), host.data(), words);
    require(back == in);
    require(host[0] == (uint32_t{o.length} << 16 | uint32_t{o.class_num} << 8 | o.c_type));
}

// The body read as a single-word Intserv parameter, and one built from its words.
void intserv_param(const Object &o) {
    if (o.length >= RSVP_OBJ_HDR_LEN + kParamLen) {
        uint8_t *param = o.obj + RSVP_OBJ_HDR_LEN;
        keep(uint64_t{RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(param)} +
             RSVP_INTSRV_INTEGER_OBJECT_FLAGS(param) + RSVP_INTSRV_INTEGER_OBJECT_LENGTH(param));
        require(RSVP_INTSRV_INTEGER_VAL(param) == RSVP_INTSRV_INTEGER_OBJECT_VALUE(param));
        keep(RSVP_INTSRV_REAL_OBJECT_VALUE(param));
    }
    const uint32_t bits = body_word(o, 0);
    const auto id = static_cast<uint8_t>(o.c_type);
    uint8_t param[kParamLen] = {};
    rsvp_build_intsrv_real_object(param, id, bits);
    require(RSVP_INTSRV_REAL_OBJECT_VALUE(param) == bits &&
            RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(param) == id);
    RSVP_INTSRV_REAL_OBJECT_SET_VALUE(param, ~bits);
    require(RSVP_INTSRV_INTEGER_VAL(param) == ~bits);
    keep(RSVP_INTSRV_REAL_OBJECT_VALUE(nullptr) + RSVP_INTSRV_INTEGER_VAL(nullptr));
}

// The platform helpers: the Intserv number conversions both ways (an integer that a float holds
// exactly comes back unchanged), the dotted quad, the bounded copy.
void platform(const Object &o) {
    const uint32_t w = body_word(o, 0);
    const int64_t n = ieee_to_int64(w);
    keep(int64_to_ieee(n));
    const int64_t small = static_cast<int16_t>(w);
    require(ieee_to_int64(int64_to_ieee(small)) == small);
    keep(inet_ntoa_r(w));
    char name[kNameLen + 1] = {};
    const size_t body = size_t{o.length} - RSVP_OBJ_HDR_LEN;
    const size_t n_chars = body < kNameLen ? body : kNameLen;
    std::memcpy(name, o.obj + RSVP_OBJ_HDR_LEN, n_chars);
    char out[kNameLen / 2];
    require(sstrncpy(out, name, sizeof out) == out && std::strlen(out) < sizeof out);
    keep(intf_svc_display_name(out, static_cast<int>(w)));
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.verdict == RSVP_OBJECT_VALID) accessors(o);
        unchecked(o);
        keep(rsvp_valid_error_ipv4(o.obj));
        flow_getters(o);
        framework(o);
        intserv_param(o);
        platform(o);
    }
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
