// REVERSE_LSP (class 203, C-Type 1): the objects that describe the reverse direction of an
// associated bidirectional LSP, carried whole.
//
//   OFFSET SIZE FIELD
//   0      4    object header (Length, Class-Num 203, C-Type 1)
//   4      ...  complete RSVP objects, each with its own object header
//
// The contents a peer is expected to send are SENDER_TSPEC and EXPLICIT_ROUTE; the validator
// accepts any object that validates on its own, and rsvp_reverse_lsp_subs_inc_unsupported
// tells the caller whether anything else is inside.
//
// The contained objects are walked as a message body is (rsvp_next_nonnull_object): null
// objects are skipped, and a malformed object ends the walk. A REVERSE_LSP may hold another,
// which must validate in turn.
#include <array>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr uint8_t kClass = RSVP_CLASS_REVERSE_LSP;
constexpr uint8_t kCType = RSVP_CTYPE_REVERSE_LSP;

// Calls visit(object, remaining) on each contained object in walk order, remaining counting
// from that object to the container end; false as soon as visit answers false.
template <typename Visit>
bool walk_contents(uint8_t *container, Visit visit) {
    uint32_t remaining = obj_length(container) - kObjHdrLen;
    for (uint8_t *o = obj_body(container); o; o = rsvp_next_nonnull_object(o, &remaining))
        if (!visit(o, remaining)) return false;
    return true;
}

// Lengths and the duplicate rule. A contained object is refused when the next object of its
// class in the walk has the same C-Type; only that next one counts, so ERO/1, ERO/2, ERO/1 is
// accepted. Remembering the last C-Type seen per class answers that in one pass.
bool contents_shaped(uint8_t *container) {
    constexpr unsigned kClasses = 256, kBitsPerWord = 32;
    std::array<uint32_t, kClasses / kBitsPerWord> seen{};
    std::array<uint8_t, kClasses> last_ctype;  // read only where seen is set
    return walk_contents(container, [&](uint8_t *o, uint32_t remaining) {
        const uint16_t length = obj_length(o);
        if (length < kObjHdrLen || length > remaining) return false;
        const uint8_t cls = obj_class(o);
        const uint32_t bit = 1u << (cls % kBitsPerWord);
        uint32_t &word = seen[cls / kBitsPerWord];
        if ((word & bit) && last_ctype[cls] == obj_ctype(o)) return false;
        word |= bit;
        last_ctype[cls] = obj_ctype(o);
        return true;
    });
}

// What rsvp_valid_object demands of a REVERSE_LSP before its contents are looked at.
bool container_header_ok(const uint8_t *obj) {
    const uint16_t length = obj_length(obj);
    return obj_is(obj, kClass, kCType) && length >= kObjHdrLen && length % kObjAlign == 0;
}

// The contents of a container whose header is sound: shaped, and every contained object valid
// as rsvp_valid_object would answer. The duplicate rule leaves room for one contained
// REVERSE_LSP at most (a second would follow the first with the same class and C-Type), so
// that one is taken on by this loop rather than through rsvp_valid_object: a hostile 64 KB
// object nested 16,382 deep needs no more stack than a flat one, for the same verdict.
bool contents_ok(uint8_t *container) {
    while (obj_length(container) > kObjHdrLen) {
        if (!contents_shaped(container)) return false;
        uint8_t *inner = nullptr;
        const bool others_ok = walk_contents(container, [&](uint8_t *o, uint32_t) {
            if (obj_class(o) != kClass) return rsvp_valid_object(o) == RSVP_OBJECT_VALID;
            inner = o;
            return container_header_ok(o);
        });
        if (!others_ok || !inner) return others_ok;
        container = inner;
    }
    return true;
}

}  // namespace

extern "C" {

void rsvp_build_reverse_lsp(uint8_t *obj) {
    if (obj) put_obj_hdr(obj, kClass, kCType, kObjHdrLen);
}

int rsvp_add_reverse_lsp_subobj(uint8_t *reverse_lsp, uint8_t *obj) {
    if (!reverse_lsp || !obj || rsvp_valid_object(obj) != RSVP_OBJECT_VALID) return 0;
    const uint16_t length = obj_length(reverse_lsp);
    const uint16_t added = obj_length(obj);
    rsvp_object_copy(reverse_lsp + length, obj);  // overlap-safe
    wire::store_be16(reverse_lsp + kObjLengthOffset, static_cast<uint16_t>(length + added));
    return 1;
}

int rsvp_valid_reverse_lsp(uint8_t *obj) {
    return obj && container_header_ok(obj) && contents_ok(obj);
}

int rsvp_get_reverse_lsp_subobjs(uint8_t *obj, uint8_t **first, uint16_t *length) {
    if (!first || !length || !rsvp_valid_reverse_lsp(obj)) return 0;
    *first = obj_body(obj);
    *length = static_cast<uint16_t>(obj_length(obj) - kObjHdrLen);
    return 1;
}

uint16_t rsvp_compute_reverse_lsp_sub_objs_len(uint8_t *obj) {
    if (!obj) return 0;
    const uint16_t length = obj_length(obj);
    if (length <= kObjHdrLen) return 0;
    // Later EXPLICIT_ROUTE and SENDER_TSPEC objects are left out of the sum on purpose.
    bool ero_seen = false, tspec_seen = false;
    uint16_t sum = 0;
    // The walk follows the Lengths alone; it stops where no header fits before the end, and at
    // a Length of 0, which would never advance.
    for (unsigned pos = kObjHdrLen; pos + kObjHdrLen <= length;) {
        const uint16_t sub_len = obj_length(obj + pos);
        if (sub_len == 0) break;
        const uint8_t cls = obj_class(obj + pos);
        bool *once = cls == RSVP_CLASS_EXPLICIT_ROUTE ? &ero_seen
                     : cls == RSVP_CLASS_SENDER_TSPEC ? &tspec_seen
                                                      : nullptr;
        if (!once || !*once) sum = static_cast<uint16_t>(sum + sub_len);
        if (once) *once = true;
        pos += sub_len;
    }
    return sum;
}

int rsvp_reverse_lsp_subs_inc_unsupported(uint8_t *first, uint16_t length) {
    // A run shorter than a header holds no object to look at.
    if (!first || length < kObjHdrLen) return 0;
    uint32_t remaining = length;
    // The first object of the run is looked at too, whatever its class (a null filler counts).
    for (uint8_t *o = first; o; o = rsvp_next_nonnull_object(o, &remaining)) {
        const uint8_t cls = obj_class(o);
        if (cls != RSVP_CLASS_SENDER_TSPEC && cls != RSVP_CLASS_EXPLICIT_ROUTE) return 1;
    }
    return 0;
}

}  // extern "C"
