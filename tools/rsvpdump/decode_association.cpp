// The objects that tie LSPs together: ASSOCIATION in its four forms, REVERSE_LSP with the
// objects it carries (decoded by their own decoders, one step further in), the S2L_SUB_LSP
// leaf and the LSP wrap label.
#include <arpa/inet.h>

#include <cstring>
#include <vector>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

// Wire-order words of an IPv6 address, as text.
std::string ipv6(const uint32_t words[4]) {
    uint8_t bytes[16];
    std::memcpy(bytes, words, sizeof bytes);
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(AF_INET6, bytes, text, sizeof text) ? text : "?";
}

const char *association_type_name(uint16_t type) {
    switch (type) {
        case RSVP_ASSOCIATION_TYPE_RECOVERY:
            return "recovery";
        case RSVP_ASSOCIATION_TYPE_RESOURCE_SHARING:
            return "resource sharing";
        case RSVP_ASSOCIATION_TYPE_DOUBLE_SIDED_BIDIR:
            return "double-sided bidirectional LSP";
        case RSVP_ASSOCIATION_TYPE_SINGLE_SIDED_BIDIR:
            return "single-sided bidirectional LSP";
        default:
            return "unknown";
    }
}

void association_line(rsvpdump::Out &out, uint16_t type, uint16_t id) {
    out.line().text("association type ").u("type", type).text(" (");
    out.str("type_name", association_type_name(type)).text(") ID ").u("id", id);
}

void source_v4(rsvpdump::Out &out, uint32_t source) {
    out.text(" source ").addr("source", source);
}

void source_v6(rsvpdump::Out &out, const uint32_t source[4]) {
    out.text(" source ").str("source", ipv6(source));
}

// The extractors do not validate; the decoder runs on valid objects only, so every field they
// read lies inside the object.
void decode_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint16_t type = 0, id = 0;
    uint32_t source = 0;
    if (!rsvp_extract_association_ipv4(obj, &type, &id, &source)) return;
    association_line(out, type, id);
    source_v4(out, source);
}

void decode_ipv6(uint8_t *obj, rsvpdump::Out &out) {
    uint16_t type = 0, id = 0;
    uint32_t source[4] = {};
    if (!rsvp_extract_association_ipv6(obj, &type, &id, source)) return;
    association_line(out, type, id);
    source_v6(out, source);
}

void extended_ids(rsvpdump::Out &out, uint32_t global, const std::vector<uint32_t> &ids) {
    out.line().text("global association source ").u("global_source", global);
    out.text(ids.empty() ? ", no extended IDs" : ", extended IDs");
    out.open_list("extended_ids");
    for (uint32_t id : ids) {
        out.open_item().text(" ").hex("id", id, 8);
        out.close();
    }
    out.close();
}

void decode_ipv4_ext(uint8_t *obj, rsvpdump::Out &out) {
    uint16_t type = 0, id = 0, count = 0;
    uint32_t source = 0, global = 0;
    std::vector<uint32_t> ids(rsvp_compute_association_ipv4_ext_id_len(obj) / 4);
    if (!rsvp_extract_association_ipv4_ext(obj, &type, &id, &source, &global, ids.data(),
                                           static_cast<uint32_t>(ids.size() * 4), &count))
        return;
    association_line(out, type, id);
    source_v4(out, source);
    extended_ids(out, global, ids);
}

void decode_ipv6_ext(uint8_t *obj, rsvpdump::Out &out) {
    uint16_t type = 0, id = 0, count = 0;
    uint32_t source[4] = {}, global = 0;
    std::vector<uint32_t> ids(rsvp_compute_association_ipv6_ext_id_len(obj) / 4);
    if (!rsvp_extract_association_ipv6_ext(obj, &type, &id, source, &global, ids.data(),
                                           static_cast<uint32_t>(ids.size() * 4), &count))
        return;
    association_line(out, type, id);
    source_v6(out, source);
    extended_ids(out, global, ids);
    // The Length of this form counts 4 bytes behind the last extended ID.
    const uint16_t length = RSVP_OBJECT_LENGTH(obj);
    out.line().text("trailing bytes ").bytes("trailing", obj + length - 4, 4);
}

// Each nesting level indents further; a hostile object can nest thousands deep, so the
// contents of the deeper ones are not shown.
constexpr int kMaxShownDepth = 8;
int depth = 0;

void decode_reverse_lsp(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t *first = nullptr;
    uint16_t length = 0;
    if (!rsvp_get_reverse_lsp_subobjs(obj, &first, &length)) return;
    const bool unsupported = rsvp_reverse_lsp_subs_inc_unsupported(first, length) != 0;
    out.line().text("reverse LSP, ").u("contents_length", length).text(" bytes of objects");
    out.flag("unsupported", unsupported);
    if (unsupported) out.text(", some of a class other than SENDER_TSPEC and EXPLICIT_ROUTE");
    out.text(", sum of lengths ").u("sum_of_lengths", rsvp_compute_reverse_lsp_sub_objs_len(obj));
    if (length == 0) return;
    if (depth >= kMaxShownDepth) {
        out.line().text("(nested deeper than ").u("shown_depth", kMaxShownDepth).text(" levels)");
        return;
    }
    ++depth;
    out.nest("contents").open_list("objects");
    // A valid container: each object validates, and the walk covers them all.
    uint32_t remaining = length;
    for (uint8_t *o = first; o; o = rsvp_next_nonnull_object(o, &remaining)) {
        const auto cls = static_cast<uint8_t>(RSVP_OBJECT_CLASS(o));
        const auto c_type = static_cast<uint8_t>(RSVP_OBJECT_C_TYPE(o));
        out.open_item().line().text("object class ").u("class", cls);
        if (const std::string_view name = rsvpdump::class_name(cls); !name.empty())
            out.text(" ").name("class_name", name);
        out.text(" c-type ").u("c_type", c_type);
        if (const std::string_view name = rsvpdump::c_type_name(cls, c_type); !name.empty())
            out.text(" ").name("c_type_name", name);
        out.text(" length ").u("length", RSVP_OBJECT_LENGTH(o));
        if (rsvpdump::Decoder decode = rsvpdump::find_decoder(cls, c_type)) {
            out.nest("fields");
            decode(o, out);
            out.close();
        }
        out.close();
    }
    out.close().close();
    --depth;
}

void decode_s2l_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t destination = 0;
    if (rsvp_extract_s2l_sub_lsp_ipv4(obj, &destination))
        out.line().text("S2L sub-LSP destination ").addr("destination", destination);
}

// No extractor for the IPv6 leaf: the 16 address bytes are read as the layout gives them.
void decode_s2l_ipv6(uint8_t *obj, rsvpdump::Out &out) {
    if (RSVP_OBJECT_LENGTH(obj) != RSVP_S2L_SUB_LSP_IPV6_LEN) return;
    uint32_t destination[4];
    std::memcpy(destination, obj + RSVP_OBJ_HDR_LEN, sizeof destination);
    out.line().text("S2L sub-LSP destination ").str("destination", ipv6(destination));
}

void decode_wrap_label(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t label = 0;
    uint16_t count = 0;
    if (!rsvp_extract_lsp_wrap_label(obj, &label, &count)) return;
    out.line().text("wrap label ").u("label", label).textf(" (0x%05x)", label);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV4, decode_ipv4);
RSVPDUMP_DECODER(RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV6, decode_ipv6);
RSVPDUMP_DECODER(RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV4_EXT, decode_ipv4_ext);
RSVPDUMP_DECODER(RSVP_CLASS_ASSOCIATION, RSVP_CTYPE_ASSOCIATION_IPV6_EXT, decode_ipv6_ext);
RSVPDUMP_DECODER(RSVP_CLASS_REVERSE_LSP, RSVP_CTYPE_REVERSE_LSP, decode_reverse_lsp);
RSVPDUMP_DECODER(RSVP_CLASS_S2L_SUB_LSP, RSVP_CTYPE_S2L_SUB_LSP_IPV4, decode_s2l_ipv4);
RSVPDUMP_DECODER(RSVP_CLASS_S2L_SUB_LSP, RSVP_CTYPE_S2L_SUB_LSP_IPV6, decode_s2l_ipv6);
RSVPDUMP_DECODER(RSVP_CLASS_LSP_WRAP_LABEL, RSVP_CTYPE_LSP_WRAP_LABEL, decode_wrap_label);
