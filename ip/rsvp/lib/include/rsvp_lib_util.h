/*
 * librsvp text utilities: message types, session kinds, flows, labels and interface names
 * rendered as text for log lines and show commands.
 */
#ifndef RSVP_LIB_UTIL_H
#define RSVP_LIB_UTIL_H

#include <stddef.h>
#include <stdint.h>

#ifndef RSVP_API
#if defined(__GNUC__) || defined(__clang__)
#define RSVP_API __attribute__((visibility("default")))
#else
#define RSVP_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ======================================================================================
 * Message type names, session kinds and flow strings. The message-type and flow results live
 * in static buffers that the next call of the same function overwrites: not reentrant, copy a
 * result before asking for another one of the same function.
 * ====================================================================================== */
enum {
    RSVP_LIB_UTIL_MSG_TYPE_BUF_LEN = 128,
    RSVP_LIB_UTIL_FLOW_BUF_LEN = 64,
    /* Size of the caller buffers of the session type string and of the interface names. */
    RSVP_LIB_UTIL_NAME_LEN = 64
};

/* Name of the message type ("Path", ..., "Unknown (type N)" with N printed unsigned), in a
 * static 128-byte buffer; never NULL. */
RSVP_API const char *rsvp_msg_type_string(int32_t type);
/* "NAME message" or, for a non-zero is_sub, "NAME sub-message", in a second static buffer. */
RSVP_API const char *rsvp_msg_type_string_v2(int32_t type, int is_sub);
/* Kind of the SESSION into text (64 bytes, terminated): "IPv4_LSP", "OUNI_LSP",
 * "P2MP_SUB_LSP", "IP_IPv4" or "Unknown". Writes the port (tunnel id) and the extended tunnel
 * id (protocol id for IP_IPv4) to the non-NULL outputs, neither for "Unknown". 1 for the three
 * LSP kinds, 0 otherwise. */
RSVP_API int rsvp_lib_util_session_typestring(uint8_t *session, char *text, uint16_t *port_out,
                                              uint32_t *id_out);
/* "DEST(KIND:PORT) <- SENDER(PORT)" of the object run (length bytes), cut at 63 characters, in
 * a static 64-byte buffer; "NULL SESSION" without a SESSION, "" for NULL or length 0. */
RSVP_API const char *rsvp_lib_util_flow_str(uint8_t *objects, uint32_t length);

/* ======================================================================================
 * Interface names and address helpers.
 * ====================================================================================== */
enum {
    RSVP_IP_ADDR_TYPE_IPV4 = 2,
    RSVP_IP_ADDR_LEN_IPV4 = 4,
    /* Forms of rsvp_lib_util_get_if_name: the name itself, or a display form of it. */
    RSVP_LIB_UTIL_IF_NAME_PLAIN = 1,
    RSVP_LIB_UTIL_IF_NAME_DISPLAY_LONG = 2,
    /* Kinds of a link id. */
    RSVP_LINK_ID_NOT_SET = 0,
    RSVP_LINK_ID_IPV4 = 1,
    RSVP_LINK_ID_UNNUMBERED = 2
};

/* An address as the caller holds it; the IPv4 address is kept in wire order. */
typedef struct rsvp_ip_addr_t {
    uint8_t type;
    uint8_t length;
    uint32_t address;
} rsvp_ip_addr_t;

/* A link id; only its kind is read here. */
typedef struct rsvp_link_id_t {
    uint32_t kind;
    uint32_t data[4];
} rsvp_link_id_t;

/* Name of the interface handle in form (1 plain, 2 long display form, else short display form)
 * into out (64 bytes, must not be NULL): "None" for handle 0 and 0; "Unknown" and the
 * service's non-zero status when the handle has no name. */
RSVP_API int rsvp_lib_util_get_if_name(uint32_t handle, uint32_t form, char *out);
/* The same name in this thread's ring of 20 slots: valid until the thread's 20th further call
 * or its end. "Unknown" (a constant) when the per-thread storage cannot be had. */
RSVP_API const char *rsvp_lib_util_if_name(uint32_t handle, uint32_t form);
/* "All RSVP Interfaces", the name of the pseudo-interface that stands for every interface. */
RSVP_API const char *rsvp_lib_util_get_all_if_name(void);
/* 1 when name is exactly "All RSVP Interfaces", else 0; name must not be NULL. */
RSVP_API int rsvp_lib_util_is_all_intf(const char *name);
/* 1 when name is exactly "None" (the dummy interface), else 0; name must not be NULL. */
RSVP_API int rsvp_lib_util_is_dummy_intf(const char *name);
/* 1 for a non-NULL record of type 2 and length 4, else 0. */
RSVP_API int rsvp_ip_valid(const rsvp_ip_addr_t *addr);
/* 1 for a valid IPv4 record whose address is neither 0.0.0.0 nor 255.255.255.255, else 0. */
RSVP_API int rsvp_ip_valid_routerid(const rsvp_ip_addr_t *addr);
/* 1 and the address word (unchanged) into out for a valid IPv4 record; 0 and out untouched
 * otherwise. out must not be NULL. */
RSVP_API int rsvp_ip_to_in(const rsvp_ip_addr_t *addr, uint32_t *out);
/* 1 when the link id's kind is set (not 0); link_id must not be NULL. */
RSVP_API int rsvp_lib_util_is_link_id_set(const rsvp_link_id_t *link_id);
/* 1 when the link id is an IPv4 one; link_id must not be NULL. */
RSVP_API int rsvp_lib_util_is_link_id_ipv4(const rsvp_link_id_t *link_id);
/* 1 when the link id is an unnumbered one; link_id must not be NULL. */
RSVP_API int rsvp_lib_util_is_link_id_unnum(const rsvp_link_id_t *link_id);

/* ======================================================================================
 * Label and SRLG text, in two static rings of 10 slots each: a result stays intact until nine
 * further results of its ring. The rings are process-wide and unguarded.
 * ====================================================================================== */
enum {
    RSVP_LABEL_STR_SLOTS = 10,
    RSVP_LABEL_STR_LEN = 40,
    RSVP_SRLG_STR_SLOTS = 10,
    RSVP_SRLG_STR_LEN = 683
};

/* Text of a LABEL, UPSTREAM_LABEL, SUGGESTED_LABEL or RECOVERY_LABEL: "0x%08x" of a plain
 * (C-Type 1) label; "Invalid label" for a valid generalized one (kept so), or a message naming
 * what is wrong with the object. */
RSVP_API const char *rsvp_label_gen_str(uint8_t *obj);
/* "0x%08x" of the first label and " %08x" of each further one (at most five fit), in the next
 * label-ring slot; "Invalid label", ring untouched, for NULL labels or a count of 0. */
RSVP_API const char *rsvp_enc_label_gen_str(const uint32_t *labels, uint32_t count);
/* The identifiers as "%u" separated by single blanks, in the next SRLG-ring slot; "Invalid
 * SRLG list", ring untouched, for NULL or a count of 0. */
RSVP_API const char *rsvp_enc_srlg_gen_str(const uint32_t *srlgs, uint8_t count);

#ifdef __cplusplus
}
#endif

#endif /* RSVP_LIB_UTIL_H */
