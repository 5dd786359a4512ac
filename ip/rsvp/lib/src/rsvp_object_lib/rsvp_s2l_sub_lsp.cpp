// S2L_SUB_LSP (class 50), one leaf of a point-to-multipoint LSP, and the LSP wrap label
// (class 235): two small fixed objects of the P2MP and bidirectional LSP signalling.
//
//   OBJECT             C-TYPE LENGTH  OFFSET SIZE FIELD
//   S2L_SUB_LSP IPv4   1      8       4      4    destination (wire order)
//   S2L_SUB_LSP IPv6   2      20      4      16   destination (wire order)
//   LSP wrap label     1      8       4      4    label (network order)
//
// Only the IPv4 leaf has a builder and an extractor; the IPv6 leaf validates.
#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kValueOffset = 4;  // destination or label
constexpr unsigned kValueLen = 4;
static_assert(kValueOffset + kValueLen == RSVP_S2L_SUB_LSP_IPV4_LEN);
static_assert(kValueOffset + kValueLen == RSVP_LSP_WRAP_LABEL_LEN);

}  // namespace

extern "C" {

void rsvp_build_s2l_sub_lsp_ipv4(uint8_t *obj, uint32_t destination) {
    if (!obj) return;
    put_obj_hdr(obj, RSVP_CLASS_S2L_SUB_LSP, RSVP_CTYPE_S2L_SUB_LSP_IPV4,
                RSVP_S2L_SUB_LSP_IPV4_LEN);
    wire::store_raw32(obj + kValueOffset, destination);
}

int rsvp_valid_gen_s2l_sub_lsp(uint8_t *obj) {
    if (!obj || obj_class(obj) != RSVP_CLASS_S2L_SUB_LSP) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_S2L_SUB_LSP_IPV4:
            return obj_length(obj) == RSVP_S2L_SUB_LSP_IPV4_LEN;
        case RSVP_CTYPE_S2L_SUB_LSP_IPV6:
            return obj_length(obj) == RSVP_S2L_SUB_LSP_IPV6_LEN;
        default:
            return 0;
    }
}

int rsvp_extract_s2l_sub_lsp_ipv4(uint8_t *obj, uint32_t *destination) {
    if (!destination || !rsvp_valid_gen_s2l_sub_lsp(obj) ||
        obj_ctype(obj) != RSVP_CTYPE_S2L_SUB_LSP_IPV4)
        return 0;
    *destination = wire::load_raw32(obj + kValueOffset);
    return 1;
}

uint32_t RSVP_S2L_SUB_LSP_DESTINATION(uint8_t *obj) {
    return valid_holds(obj, kValueOffset + kValueLen) ? wire::load_raw32(obj + kValueOffset) : 0;
}

int rsvp_build_lsp_wrap_label(uint8_t *obj, const uint32_t *label) {
    if (!obj || !label) return 0;
    put_obj_hdr(obj, RSVP_CLASS_LSP_WRAP_LABEL, RSVP_CTYPE_LSP_WRAP_LABEL, RSVP_LSP_WRAP_LABEL_LEN);
    wire::store_be32(obj + kValueOffset, *label);
    return 1;
}

int rsvp_valid_lsp_wrap_label(uint8_t *obj) {
    return obj && obj_is(obj, RSVP_CLASS_LSP_WRAP_LABEL, RSVP_CTYPE_LSP_WRAP_LABEL) &&
           obj_length(obj) == RSVP_LSP_WRAP_LABEL_LEN;
}

// The count is that of the generalized label extractors: the one label the object carries.
int rsvp_extract_lsp_wrap_label(uint8_t *obj, uint32_t *label, uint16_t *count) {
    if (!label || !count || !rsvp_valid_lsp_wrap_label(obj)) return 0;
    *label = wire::load_be32(obj + kValueOffset);
    *count = 1;
    return 1;
}

}  // extern "C"
