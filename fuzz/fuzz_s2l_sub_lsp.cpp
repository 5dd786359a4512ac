// S2L_SUB_LSP and the wrap label: the destination accessor on every valid object (with the room
// its fixed offset reaches behind a short one), validators and extractors on their classes, and
// the builders fed with what was extracted, which must give the object back.
#include <cstdlib>
#include <cstring>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.verdict == RSVP_OBJECT_VALID) keep(RSVP_S2L_SUB_LSP_DESTINATION(reach(o).obj));
        uint8_t rebuilt[RSVP_S2L_SUB_LSP_IPV4_LEN];
        uint32_t value = 0;
        uint16_t count = 0;
        if (o.class_num == RSVP_CLASS_S2L_SUB_LSP) {
            keep(rsvp_valid_gen_s2l_sub_lsp(o.obj));
            if (!rsvp_extract_s2l_sub_lsp_ipv4(o.obj, &value)) continue;
            rsvp_build_s2l_sub_lsp_ipv4(rebuilt, value);
        } else if (o.class_num == RSVP_CLASS_LSP_WRAP_LABEL) {
            keep(rsvp_valid_lsp_wrap_label(o.obj));
            if (!rsvp_extract_lsp_wrap_label(o.obj, &value, &count)) continue;
            keep(rsvp_build_lsp_wrap_label(rebuilt, &value));
        } else {
            continue;
        }
        if (std::memcmp(rebuilt, o.obj, sizeof rebuilt) != 0) std::abort();
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(8 + 20 + 8, 0);
    const uint32_t label = 0x12345;
    rsvp_build_s2l_sub_lsp_ipv4(run.data(), 0x0900000a);
    rsvp_build_object(run.data() + 8, RSVP_CLASS_S2L_SUB_LSP, RSVP_CTYPE_S2L_SUB_LSP_IPV6,
                      RSVP_S2L_SUB_LSP_IPV6_LEN);
    rsvp_build_lsp_wrap_label(run.data() + 28, &label);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
