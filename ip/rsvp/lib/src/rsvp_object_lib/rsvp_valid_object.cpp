// Validation dispatch: one dense table from Class-Num to the family validator.
//
// The table is built once, at compile time, from the rows below; a Class-Num without a row
// (or outside 1..235) is a class the library does not know, and its objects are answered 2
// so that the caller can apply the unknown-class rules keyed on the two high bits.
#include <array>

#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

using Validator = int (*)(uint8_t *);
using Table = std::array<Validator, RSVP_CLASS_MAX>;

// Fails the build (a non-constant expression in a consteval context) on a duplicate row or a
// Class-Num outside the table.
void duplicate_or_out_of_range_row() {}

// Filled slots are tracked apart from the pointers: with null-pointer sanitizing, g++ no longer
// takes a comparison of a function's address with null as a constant expression.
struct Rows {
    Table table{};
    std::array<bool, RSVP_CLASS_MAX> filled{};
};

consteval void put(Rows &rows, unsigned class_num, Validator validate) {
    if (class_num == 0 || class_num > RSVP_CLASS_MAX || rows.filled[class_num - 1])
        duplicate_or_out_of_range_row();
    rows.filled[class_num - 1] = true;
    rows.table[class_num - 1] = validate;
}

consteval Table build_table() {
    Rows t;
    // One row per known class, grouped by family; each family adds its rows when it lands.
    put(t, RSVP_CLASS_SESSION, rsvp_valid_session_ipv4);
    put(t, RSVP_CLASS_RSVP_HOP, rsvp_valid_hop);
    put(t, RSVP_CLASS_TIME_VALUES, rsvp_valid_refresh);
    put(t, RSVP_CLASS_SCOPE, rsvp_valid_scope_ipv4);
    put(t, RSVP_CLASS_STYLE, rsvp_valid_style);
    put(t, RSVP_CLASS_POLICY_DATA, rsvp_valid_policy);
    put(t, RSVP_CLASS_RESV_CONFIRM, rsvp_valid_confirm_ipv4);
    put(t, RSVP_CLASS_ERROR_SPEC, rsvp_valid_error_ipv4);
    put(t, RSVP_CLASS_FILTER_SPEC, rsvp_valid_filter_gen_ipv4);
    put(t, RSVP_CLASS_SENDER_TEMPLATE, rsvp_valid_template_gen_ipv4);
    put(t, RSVP_CLASS_INTEGRITY, rsvp_valid_integrity);
    put(t, RSVP_CLASS_CHALLENGE, rsvp_valid_challenge);
    put(t, RSVP_CLASS_FLOWSPEC, rsvp_valid_gen_flowspec);
    put(t, RSVP_CLASS_SENDER_TSPEC, rsvp_valid_gen_tspec);
    put(t, RSVP_CLASS_ADSPEC, rsvp_valid_adspec);
    put(t, RSVP_CLASS_EXPLICIT_ROUTE, rsvp_valid_explicit_route);
    put(t, RSVP_CLASS_RECORD_ROUTE, rsvp_valid_record_route);
    put(t, RSVP_CLASS_EXCLUDE_ROUTE, rsvp_valid_xro);
    put(t, RSVP_CLASS_LABEL, rsvp_valid_gen_label);
    put(t, RSVP_CLASS_LABEL_REQUEST, rsvp_valid_gen_label_request);
    put(t, RSVP_CLASS_RECOVERY_LABEL, rsvp_valid_recovery_label);
    put(t, RSVP_CLASS_UPSTREAM_LABEL, rsvp_valid_upstream_label);
    put(t, RSVP_CLASS_SUGGESTED_LABEL, rsvp_valid_suggested_label);
    put(t, RSVP_CLASS_LABEL_SET, rsvp_valid_label_set_obj);
    put(t, RSVP_CLASS_ACCEPTABLE_LABEL_SET, rsvp_valid_acceptable_label_set);
    put(t, RSVP_CLASS_SESSION_ATTRIBUTE, rsvp_valid_session_attribute);
    put(t, RSVP_CLASS_PROTECTION, rsvp_valid_protection);
    put(t, RSVP_CLASS_PVT_PROTECTION, rsvp_valid_pvt_protection);
    put(t, RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES, rsvp_valid_lsp_attributes);
    put(t, RSVP_CLASS_LSP_ATTRIBUTES, rsvp_valid_lsp_attributes);
    put(t, RSVP_CLASS_DIFFSERV, rsvp_valid_diffserv);
    put(t, RSVP_CLASS_CLASSTYPE, rsvp_valid_class_type);
    put(t, RSVP_CLASS_HELLO, rsvp_valid_hello);
    put(t, RSVP_CLASS_MESSAGE_ID, rsvp_valid_message_id);
    put(t, RSVP_CLASS_MESSAGE_ID_ACK, rsvp_valid_message_id_ack);
    put(t, RSVP_CLASS_MESSAGE_ID_LIST, rsvp_valid_message_id_list);
    put(t, RSVP_CLASS_RESTART_CAP, rsvp_valid_restart_cap);
    put(t, RSVP_CLASS_ASSOCIATION, rsvp_valid_association);
    put(t, RSVP_CLASS_REVERSE_LSP, rsvp_valid_reverse_lsp);
    put(t, RSVP_CLASS_S2L_SUB_LSP, rsvp_valid_gen_s2l_sub_lsp);
    put(t, RSVP_CLASS_LSP_WRAP_LABEL, rsvp_valid_lsp_wrap_label);
    put(t, RSVP_CLASS_ADMIN_STATUS, rsvp_valid_admin_status_object);
    put(t, RSVP_CLASS_GENERALIZED_UNI, rsvp_valid_gen_uni_attr);
    return t.table;
}

constexpr Table kValidators = build_table();

}  // namespace

extern "C" uint32_t rsvp_valid_object(uint8_t *obj) {
    if (!obj) return RSVP_OBJECT_INVALID;
    const uint16_t length = obj_length(obj);
    if (length == 0 || length % kObjAlign != 0) return RSVP_OBJECT_INVALID;
    const uint8_t class_num = obj_class(obj);
    if (class_num == RSVP_CLASS_NULL || class_num > RSVP_CLASS_MAX)
        return RSVP_OBJECT_UNKNOWN_CLASS;
    const Validator validate = kValidators[class_num - 1];
    if (!validate) return RSVP_OBJECT_UNKNOWN_CLASS;
    return validate(obj) ? RSVP_OBJECT_VALID : RSVP_OBJECT_INVALID;
}
