// Accessors handed a valid object of another class too short for their field read and write
// nothing behind it, and answer as for an invalid object. Each is tried on every short object of
// every known class that validates, in a heap buffer of exactly its Length. Accessors that take
// any non-null pointer unvalidated, or a subobject, TLV, fragment or parameter, are not here.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

struct Accessor {
    const char *name;
    uint64_t (*call)(uint8_t *);  // the getter's answer
    unsigned field_end;           // the field ends here (0: a pointer is returned, nothing read)
    std::vector<uint8_t> own;     // classes on which it reaches past a short object on purpose
    unsigned reach = 0;           // ... and how far
    void (*set)(uint8_t *) = nullptr;  // the setter of the same field, if any
};

template <typename T>
uint64_t u(T v) {
    return static_cast<uint64_t>(v);
}
uint64_t p(const uint8_t *ptr) {
    return ptr != nullptr;
}
const std::vector<uint8_t> kSender = {RSVP_CLASS_FILTER_SPEC, RSVP_CLASS_SENDER_TEMPLATE};
constexpr uint32_t kValue = 0x55555555;

// clang-format off
const Accessor kAccessors[] = {
    {"RSVP_HOP_IPV4_NEIGHBOR", [](uint8_t *o) { return u(RSVP_HOP_IPV4_NEIGHBOR(o)); }, 8, {}, 0, [](uint8_t *o) { RSVP_HOP_IPV4_SET_NEIGHBOR(o, kValue); }},
    {"RSVP_HOP_NEIGHBOR", [](uint8_t *o) { return u(RSVP_HOP_NEIGHBOR(o)); }, 8, {}, 0, [](uint8_t *o) { RSVP_HOP_SET_NEIGHBOR(o, kValue); }},
    {"RSVP_HOP_IPV4_LIF_HANDLE", [](uint8_t *o) { return u(RSVP_HOP_IPV4_LIF_HANDLE(o)); }, 12, {}, 0, [](uint8_t *o) { RSVP_HOP_IPV4_SET_LIF_HANDLE(o, kValue); }},
    {"RSVP_HOP_LIF_HANDLE", [](uint8_t *o) { return u(RSVP_HOP_LIF_HANDLE(o)); }, 12, {}, 0, [](uint8_t *o) { RSVP_HOP_SET_LIF_HANDLE(o, kValue); }},
    {"RSVP_HOP_IF_ID_SUBOBJ_PTR", [](uint8_t *o) { return p(RSVP_HOP_IF_ID_SUBOBJ_PTR(o)); }, 0, {}},
    {"RSVP_HOP_IF_ID_NEIGHBOR", [](uint8_t *o) { return u(RSVP_HOP_IF_ID_NEIGHBOR(o)); }, 8, {}},
    {"RSVP_HOP_IF_ID_LIF_HANDLE", [](uint8_t *o) { return u(RSVP_HOP_IF_ID_LIF_HANDLE(o)); }, 12, {}, 0, [](uint8_t *o) { RSVP_HOP_IF_ID_SET_LIF_HANDLE(o, kValue); }},
    {"RSVP_REFRESH_TIME", [](uint8_t *o) { return u(RSVP_REFRESH_TIME(o)); }, 8, {}},
    {"RSVP_CONFIRM_ADDR", [](uint8_t *o) { return u(RSVP_CONFIRM_ADDR(o)); }, 8, {}},
    {"RSVP_SCOPE_IPV4_ADDR", [](uint8_t *o) { return u(RSVP_SCOPE_IPV4_ADDR(o, 0)); }, 8, {}},
    {"RSVP_STYLE_RESERVATION_TYPE", [](uint8_t *o) { return u(RSVP_STYLE_RESERVATION_TYPE(o)); }, 8, {}, 0, [](uint8_t *o) { RSVP_STYLE_SET_RESERVATION_TYPE(o, 0x12); }},
    {"RSVP_ERROR_NODE", [](uint8_t *o) { return u(RSVP_ERROR_NODE(o)); }, 8, {}},
    {"RSVP_ERROR_FLAGS", [](uint8_t *o) { return u(RSVP_ERROR_FLAGS(o)); }, 9, {}},
    {"RSVP_ERROR_CODE", [](uint8_t *o) { return u(RSVP_ERROR_CODE(o)); }, 10, {}, 0, [](uint8_t *o) { RSVP_SET_ERROR_CODE(o, 0x55); }},
    {"RSVP_ERROR_VALUE", [](uint8_t *o) { return u(RSVP_ERROR_VALUE(o)); }, 12, {}},
    {"RSVP_SESSION_DESTINATION", [](uint8_t *o) { return u(RSVP_SESSION_DESTINATION(o)); }, 8, {}},
    {"RSVP_SESSION_P2MP_ID", [](uint8_t *o) { return u(RSVP_SESSION_P2MP_ID(o)); }, 8, {}},
    {"RSVP_SESSION_PROTOCOL", [](uint8_t *o) { return u(RSVP_SESSION_PROTOCOL(o)); }, 9, {}},
    {"RSVP_SESSION_FLAGS", [](uint8_t *o) { return u(RSVP_SESSION_FLAGS(o)); }, 10, {}},
    {"RSVP_SESSION_PORT", [](uint8_t *o) { return u(RSVP_SESSION_PORT(o)); }, 12, {}},
    {"RSVP_SESSION_EXT_TUNNEL_ID", [](uint8_t *o) { return u(RSVP_SESSION_EXT_TUNNEL_ID(o)); }, 16, {}},
    {"RSVP_TEMPLATE_SOURCE", [](uint8_t *o) { return u(RSVP_TEMPLATE_SOURCE(o)); }, 8, {}, 0, [](uint8_t *o) { RSVP_TEMPLATE_SET_SOURCE(o, kValue); }},
    {"RSVP_TEMPLATE_PORT", [](uint8_t *o) { return u(RSVP_TEMPLATE_PORT(o)); }, 12, {}},
    {"RSVP_TEMPLATE_P2MP_SG_ORIGIN", [](uint8_t *o) { return u(RSVP_TEMPLATE_P2MP_SG_ORIGIN(o)); }, 16, kSender, 20, [](uint8_t *o) { RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(o, kValue); }},
    {"RSVP_TEMPLATE_P2MP_SG_ID", [](uint8_t *o) { return u(RSVP_TEMPLATE_P2MP_SG_ID(o)); }, 20, kSender, 20},
    {"RSVP_FILTER_SOURCE", [](uint8_t *o) { return u(RSVP_FILTER_SOURCE(o)); }, 8, {}, 0, [](uint8_t *o) { RSVP_FILTER_SET_SOURCE(o, kValue); }},
    {"RSVP_FILTER_PORT", [](uint8_t *o) { return u(RSVP_FILTER_PORT(o)); }, 12, {}},
    {"RSVP_FILTER_P2MP_SG_ORIGIN", [](uint8_t *o) { return u(RSVP_FILTER_P2MP_SG_ORIGIN(o)); }, 16, kSender, 20, [](uint8_t *o) { RSVP_FILTER_SET_P2MP_SG_ORIGIN(o, kValue); }},
    {"RSVP_FILTER_P2MP_SG_ID", [](uint8_t *o) { return u(RSVP_FILTER_P2MP_SG_ID(o)); }, 20, kSender, 20},
    {"RSVP_INTEGRITY_DIGEST_PTR", [](uint8_t *o) { return p(RSVP_INTEGRITY_DIGEST_PTR(o)); }, 0, {}},
    {"RSVP_INTEGRITY_DIGEST_LEN", [](uint8_t *o) { return u(RSVP_INTEGRITY_DIGEST_LEN(o)); }, RSVP_INTEGRITY_DIGEST_OFFSET + 1, {}},
    {"RSVP_CHALLENGE_KEY_ID_PTR", [](uint8_t *o) { return p(RSVP_CHALLENGE_KEY_ID_PTR(o)); }, 0, {}},
    {"RSVP_CHALLENGE_COOKIE_PTR", [](uint8_t *o) { return p(RSVP_CHALLENGE_COOKIE_PTR(o)); }, 0, {}},
    {"RSVP_TSPEC_HEADER_VERSION", [](uint8_t *o) { return u(RSVP_TSPEC_HEADER_VERSION(o)); }, 6, {}},
    {"RSVP_TSPEC_HEADER_LENGTH", [](uint8_t *o) { return u(RSVP_TSPEC_HEADER_LENGTH(o)); }, 8, {}},
    {"RSVP_TSPEC_FRAGMENTS_PTR", [](uint8_t *o) { return p(RSVP_TSPEC_FRAGMENTS_PTR(o, 0)); }, 0, {}},
    {"RSVP_ADSPEC_HDR_VERSION", [](uint8_t *o) { return u(RSVP_ADSPEC_HDR_VERSION(o)); }, 6, {}},
    {"RSVP_ADSPEC_HDR_LENGTH", [](uint8_t *o) { return u(RSVP_ADSPEC_HDR_LENGTH(o)); }, 8, {}, 0, [](uint8_t *o) { RSVP_ADSPEC_HDR_SET_LENGTH(o, 0x5555); }},
    {"RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR", [](uint8_t *o) { return p(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(o)); }, 0, {}},
    {"RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR", [](uint8_t *o) { return p(RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(o, 0)); }, 0, {}},
    {"RSVP_ADSPEC_NUMBER_IS_HOPS_VAL", [](uint8_t *o) { return u(RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(o)); }, 20, {}},
    {"RSVP_ADSPEC_BANDWIDTH_VAL", [](uint8_t *o) { return u(RSVP_ADSPEC_BANDWIDTH_VAL(o)); }, 28, {}},
    {"RSVP_ADSPEC_LATENCY_VAL", [](uint8_t *o) { return u(RSVP_ADSPEC_LATENCY_VAL(o)); }, 36, {}},
    {"RSVP_ERO_FIRST_SUBOBJ", [](uint8_t *o) { return p(RSVP_ERO_FIRST_SUBOBJ(o)); }, 0, {}},
};
// clang-format on

// One or two objects (two C-Types) of every class that validates at each Length from 4 to 36,
// with a body of zeros or of 0x0a bytes (an address of 10.10.10.10 where one must not be 0).
std::vector<Bytes> short_valid_objects() {
    std::map<std::pair<int, int>, int> per_class_length;
    std::vector<Bytes> found;
    for (uint8_t fill : {0x00, 0x0a})
        for (int length = 4; length <= 36; length += 4)
            for (int cls = 1; cls < 256; ++cls)
                for (int c_type = 0; c_type < 256; ++c_type) {
                    // Room behind the Length for what validators read there.
                    Bytes b(static_cast<size_t>(length) + 16, fill);
                    b[0] = 0, b[1] = static_cast<uint8_t>(length);
                    b[2] = static_cast<uint8_t>(cls), b[3] = static_cast<uint8_t>(c_type);
                    if (rsvp_valid_object(b.data()) == RSVP_OBJECT_VALID &&
                        per_class_length[{cls, length}]++ < 2)
                        found.emplace_back(b.begin(), b.begin() + length);
                }
    return found;
}

TEST(ShortObjects, AccessorsStayInsideAndAnswerAsForInvalid) {
    const std::vector<Bytes> objects = short_valid_objects();
    // At least POLICY_DATA, EXPLICIT_ROUTE, RECORD_ROUTE and the IF_ID hop validate at 4.
    ASSERT_GE(
        std::count_if(objects.begin(), objects.end(), [](const Bytes &b) { return b[1] == 4; }), 4);
    for (const Accessor &a : kAccessors)
        for (const Bytes &b : objects) {
            SCOPED_TRACE(std::string(a.name) + " on " + to_hex(b));
            const bool own = std::find(a.own.begin(), a.own.end(), b[2]) != a.own.end();
            // Where the accessor reaches on purpose, the bytes it reaches are there.
            Bytes buf = b;
            if (own && buf.size() < a.reach) buf.resize(a.reach, 0x33);
            HeapBytes h = heap_copy(buf);
            const uint64_t answer = a.call(h.data());
            if (a.set) a.set(h.data());
            if (own || b.size() >= a.field_end || a.field_end == 0) continue;
            EXPECT_EQ(answer, 0u);
            EXPECT_EQ(to_hex(h.data(), h.size), to_hex(buf));
        }
}

}  // namespace
