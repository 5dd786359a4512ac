// REVERSE_LSP: the validator, the sum of lengths and the contents accessors on every class-203
// object (the unsupported-class test also on its raw body); and every valid object of any class
// carried in a fresh container: alone it must validate, twice it must not (the second copy has
// the class and C-Type of the first).
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise_container(const Object &o) {
    keep(rsvp_valid_reverse_lsp(o.obj) + rsvp_compute_reverse_lsp_sub_objs_len(o.obj));
    keep(rsvp_reverse_lsp_subs_inc_unsupported(o.obj + RSVP_OBJ_HDR_LEN,
                                               static_cast<uint16_t>(o.length - RSVP_OBJ_HDR_LEN)));
    uint8_t *first = nullptr;
    uint16_t length = 0;
    if (rsvp_get_reverse_lsp_subobjs(o.obj, &first, &length))
        keep(rsvp_reverse_lsp_subs_inc_unsupported(first, length));
}

void carry(const Object &o) {
    // Room for two copies, and for the reads past the second that its own validator makes.
    const size_t needed = RSVP_OBJ_HDR_LEN + 2u * o.length;
    if (needed > UINT16_MAX) return;
    Scratch c{std::make_unique<uint8_t[]>(needed + deliberate_read_room(o.obj, o.length)), needed};
    rsvp_build_reverse_lsp(c.data());
    if (rsvp_add_reverse_lsp_subobj(c.data(), o.obj) != 1) std::abort();
    // Where the verdict reads behind the object, other bytes stand there in the container.
    if (o.room) {
        keep(rsvp_valid_reverse_lsp(c.data()) + rsvp_add_reverse_lsp_subobj(c.data(), o.obj));
        return;
    }
    if (rsvp_valid_reverse_lsp(c.data()) != 1) std::abort();
    if (rsvp_add_reverse_lsp_subobj(c.data(), o.obj) != 1) std::abort();
    if (rsvp_valid_reverse_lsp(c.data()) != 0) std::abort();
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num == RSVP_CLASS_REVERSE_LSP) exercise_container(o);
        if (o.verdict == RSVP_OBJECT_VALID)
            carry(o);
        else
            keep(rsvp_add_reverse_lsp_subobj(o.obj, o.obj));  // refused: nothing written
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes ero(12), tspec(36), rev(64);
    rsvp_build_explicit_route(ero.data());
    rsvp_add_explicit_route_ipv4(ero.data(), 0, 0x0100000a, 32);
    rsvp_build_tspec(tspec.data(), 1250000, 1250000, 1250000, 0, 1500);
    rsvp_build_reverse_lsp(rev.data());
    rsvp_add_reverse_lsp_subobj(rev.data(), ero.data());
    rsvp_add_reverse_lsp_subobj(rev.data(), tspec.data());
    rev.resize(RSVP_OBJECT_LENGTH(rev.data()));
    out.push_back(rev);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
