// The object builders on arguments drawn from the input: each object of the run lends the words
// of its body as arguments, every builder writes into a zeroed buffer, and the result is
// validated in an exact-size copy (with the room validators read behind it on purpose). The
// builders whose objects validate whatever the field values are checked to answer 1, and the
// fields of a few are read back.
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

constexpr size_t kBuildRoom = RSVP_ADSPEC_BASELINE_MAX_LEN;  // the largest built object
constexpr size_t kArgWords = 6;

void require(bool ok) {
    if (!ok) std::abort();
}

struct Args {
    uint32_t w[kArgWords] = {};
    uint16_t h(size_t i) const { return static_cast<uint16_t>(w[i]); }
    uint8_t b(size_t i) const { return static_cast<uint8_t>(w[i]); }
    int64_t s(size_t i) const { return static_cast<int32_t>(w[i]); }
};

Args args_of(const Object &o) {
    Args a;
    for (size_t i = 0; i < kArgWords; ++i)
        a.w[i] = body_word(o, i);
    return a;
}

// The built object's verdict, taken on an exact-size copy (in place when shorter than a
// header: a flowspec of an unknown service is a bare zero Length).
uint32_t verdict(uint8_t *built) {
    const uint16_t length = RSVP_OBJECT_LENGTH(built);
    if (length < RSVP_OBJ_HDR_LEN) return rsvp_valid_object(built);
    const uint8_t *end = built + length;
    size_t room = 0;
    return rsvp_valid_object(copy_with_room(built, end, room).get());
}

template <typename Build>
uint32_t build(Build fn) {
    uint8_t buf[kBuildRoom] = {};
    fn(buf);
    return verdict(buf);
}

void exercise_one(const Args &a) {
    // Field values are not checked by these validators.
    require(build([&](uint8_t *p) { rsvp_build_confirm_ipv4(p, a.w[0]); }) == RSVP_OBJECT_VALID);
    require(build([&](uint8_t *p) { rsvp_build_refresh(p, a.w[0]); }) == RSVP_OBJECT_VALID);
    require(build([&](uint8_t *p) { rsvp_build_error_ipv4(p, a.w[0], a.b(1), a.b(2), a.h(3)); }) ==
            RSVP_OBJECT_VALID);
    const uint8_t style = a.b(1);
    const bool known = style == RSVP_STYLE_FF || style == RSVP_STYLE_WF || style == RSVP_STYLE_SE;
    require((build([&](uint8_t *p) { rsvp_build_style(p, style); }) == RSVP_OBJECT_VALID) == known);

    uint8_t buf[kBuildRoom] = {};
    uint32_t node = 0;
    uint8_t flags = 0, code = 0;
    uint16_t value = 0;
    rsvp_build_error_ipv4(buf, a.w[0], a.b(1), a.b(2), a.h(3));
    require(rsvp_extract_error_ipv4(buf, &node, &flags, &code, &value) == 1 && node == a.w[0] &&
            flags == a.b(1) && code == a.b(2) && value == a.h(3));
    uint32_t neighbor = 0, lih = 0;
    rsvp_build_hop_ipv4(buf, a.w[0], a.w[1]);
    if (rsvp_extract_hop_ipv4(buf, &neighbor, &lih)) require(neighbor == a.w[0] && lih == a.w[1]);

    keep(build([&](uint8_t *p) { rsvp_build_hop_ipv4(p, a.w[0], a.w[1]); }) +
         build([&](uint8_t *p) { rsvp_build_hop_if_id(p, a.w[0], a.w[1]); }) +
         build([&](uint8_t *p) { rsvp_build_scope_ipv4(p); }) +
         build([&](uint8_t *p) { rsvp_build_session_ipv4(p, a.w[0], a.b(1), a.b(2), a.h(3)); }) +
         build([&](uint8_t *p) { rsvp_build_session_lsp_tunnel_ipv4(p, a.w[0], a.h(1), a.w[2]); }) +
         build([&](uint8_t *p) { rsvp_build_session_p2mp_lsp_ipv4(p, a.w[0], a.h(1), a.w[2]); }) +
         build([&](uint8_t *p) { rsvp_build_session_uni_ipv4(p, a.w[0], a.h(1), a.w[2]); }) +
         build([&](uint8_t *p) { rsvp_build_filter_ipv4(p, a.w[0], a.h(1)); }) +
         build([&](uint8_t *p) { rsvp_build_filter_lsp_tunnel_ipv4(p, a.w[0], a.h(1)); }) +
         build([&](uint8_t *p) {
             rsvp_build_filter_lsp_p2mp_ipv4(p, a.w[0], a.h(1), a.w[2], a.h(3));
         }) +
         build([&](uint8_t *p) { rsvp_build_template_ipv4(p, a.w[0], a.h(1)); }) +
         build([&](uint8_t *p) { rsvp_build_template_lsp_tunnel_ipv4(p, a.w[0], a.h(1)); }) +
         build([&](uint8_t *p) {
             rsvp_build_template_lsp_p2mp_ipv4(p, a.w[0], a.h(1), a.w[2], a.h(3));
         }) +
         build([&](uint8_t *p) { rsvp_build_tspec(p, a.s(0), a.s(1), a.s(2), a.w[3], a.w[4]); }) +
         build([&](uint8_t *p) {
             rsvp_build_flowspec(p, a.b(5), a.s(0), a.s(1), a.w[2], a.w[3], a.s(4), a.s(5), a.w[0]);
         }) +
         build([&](uint8_t *p) { rsvp_build_adspec_baseline(p, a.w[0] % 4); }) +
         build([&](uint8_t *p) { rsvp_build_explicit_route(p); }) +
         build([&](uint8_t *p) { rsvp_build_record_route(p); }) +
         build([&](uint8_t *p) { rsvp_build_xro(p); }) +
         build([&](uint8_t *p) { rsvp_build_gen_uni_attr(p); }));

    // A header of any class and C-Type, a Length that fits the buffer.
    rsvp_build_object(buf, a.b(0), a.b(1), static_cast<uint16_t>(a.w[2] % (kBuildRoom / 4) * 4));
    keep(verdict(buf));
    uint8_t param[8] = {};
    rsvp_build_intsrv_integer_object(param, a.b(0), a.w[1]);
    require(RSVP_INTSRV_INTEGER_OBJECT_VALUE(param) == a.w[1]);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects)
        exercise_one(args_of(o));
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
