/*
 * librsvp object codec: build, validate, extract and compare RSVP messages and objects.
 *
 * Every function works on caller-owned buffers in network byte order and keeps no state.
 * Conventions shared by all families:
 *  - validators answer 1 (valid) or 0 (invalid), and 0 for a null object;
 *  - extractors answer 1 after writing their outputs, or 0 and leave the outputs untouched;
 *  - orderings answer -1, 0 or 1; equality tests answer 0 for equal, 1 for different;
 *  - walkers answer the next element or NULL;
 *  - getters answer 0 (or NULL) for a null or invalid object, and setters then do nothing;
 *  - IPv4 addresses cross this interface exactly as they lie on the wire (uint32_t in wire
 *    order); every other multi-byte number crosses in host order;
 *  - builders and add/insert functions never check buffer capacity: the caller sizes the
 *    buffer. Broken caller preconditions named per function stop the process.
 */
#ifndef RSVP_OBJECT_LIB_H
#define RSVP_OBJECT_LIB_H

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
 * Class-Nums known to the library.
 * ====================================================================================== */
enum {
    RSVP_CLASS_NULL = 0,
    RSVP_CLASS_SESSION = 1,
    RSVP_CLASS_RSVP_HOP = 3,
    RSVP_CLASS_INTEGRITY = 4,
    RSVP_CLASS_TIME_VALUES = 5,
    RSVP_CLASS_ERROR_SPEC = 6,
    RSVP_CLASS_SCOPE = 7,
    RSVP_CLASS_STYLE = 8,
    RSVP_CLASS_FLOWSPEC = 9,
    RSVP_CLASS_FILTER_SPEC = 10,
    RSVP_CLASS_SENDER_TEMPLATE = 11,
    RSVP_CLASS_SENDER_TSPEC = 12,
    RSVP_CLASS_ADSPEC = 13,
    RSVP_CLASS_POLICY_DATA = 14,
    RSVP_CLASS_RESV_CONFIRM = 15,
    RSVP_CLASS_LABEL = 16,
    RSVP_CLASS_LABEL_REQUEST = 19,
    RSVP_CLASS_EXPLICIT_ROUTE = 20,
    RSVP_CLASS_RECORD_ROUTE = 21,
    RSVP_CLASS_HELLO = 22,
    RSVP_CLASS_MESSAGE_ID = 23,
    RSVP_CLASS_MESSAGE_ID_ACK = 24,
    RSVP_CLASS_MESSAGE_ID_LIST = 25,
    RSVP_CLASS_RECOVERY_LABEL = 34,
    RSVP_CLASS_UPSTREAM_LABEL = 35,
    RSVP_CLASS_LABEL_SET = 36,
    RSVP_CLASS_PROTECTION = 37,
    RSVP_CLASS_S2L_SUB_LSP = 50,
    RSVP_CLASS_CHALLENGE = 64,
    RSVP_CLASS_DIFFSERV = 65,
    RSVP_CLASS_CLASSTYPE = 66,
    RSVP_CLASS_LSP_REQUIRED_ATTRIBUTES = 67,
    RSVP_CLASS_SUGGESTED_LABEL = 129,
    RSVP_CLASS_ACCEPTABLE_LABEL_SET = 130,
    RSVP_CLASS_RESTART_CAP = 131,
    RSVP_CLASS_PVT_PROTECTION = 190,
    RSVP_CLASS_ADMIN_STATUS = 196,
    RSVP_CLASS_LSP_ATTRIBUTES = 197,
    RSVP_CLASS_ASSOCIATION = 199,
    RSVP_CLASS_REVERSE_LSP = 203,
    RSVP_CLASS_SESSION_ATTRIBUTE = 207,
    RSVP_CLASS_GENERALIZED_UNI = 208,
    RSVP_CLASS_EXCLUDE_ROUTE = 232,
    RSVP_CLASS_LSP_WRAP_LABEL = 235,
    /* The highest Class-Num the dispatch table covers. */
    RSVP_CLASS_MAX = 235
};

/* Results of rsvp_valid_object. */
enum { RSVP_OBJECT_INVALID = 0, RSVP_OBJECT_VALID = 1, RSVP_OBJECT_UNKNOWN_CLASS = 2 };

/* ======================================================================================
 * Common message header (8 bytes).
 * ====================================================================================== */
enum { RSVP_MSG_HDR_LEN = 8, RSVP_MSG_VERSION = 1, RSVP_MSG_CKSUM_OFFSET = 2 };

/* Writes an 8-byte common header: version 1, the low 4 bits of flags, checksum 0. */
RSVP_API void rsvp_build_msg_hdr(uint8_t msg_type, uint8_t send_ttl, uint16_t length, uint8_t flags,
                                 uint8_t *hdr);
/* Version nibble of the header; 0 for a null message. */
RSVP_API uint32_t RSVP_MESSAGE_VERSION(uint8_t *msg);
/* Flags nibble of the header; 0 for a null message. */
RSVP_API uint32_t RSVP_MESSAGE_FLAGS(uint8_t *msg);
/* Message type number; 0 for a null message. */
RSVP_API uint32_t RSVP_MESSAGE_TYPE(uint8_t *msg);
/* Checksum field in host order; 0 for a null message. */
RSVP_API uint16_t RSVP_MESSAGE_CKSUM(uint8_t *msg);
/* Stores a host-order checksum in network order; nothing for a null message. */
RSVP_API void RSVP_MESSAGE_SET_CKSUM(uint8_t *msg, uint16_t cksum);
/* Stores a checksum already in wire order, unswapped; nothing for a null message. */
RSVP_API void RSVP_MESSAGE_SET_CKSUM_NB(uint8_t *msg, uint16_t cksum);
/* Byte offset of the checksum field in the message: always 2. */
RSVP_API uint32_t RSVP_MESSAGE_GET_CKSUM_OFFSET(void);
/* Send_TTL byte; 0 for a null message. */
RSVP_API uint32_t RSVP_MESSAGE_SENDING_TTL(uint8_t *msg);
/* RSVP Length in host order; 0 for a null message. */
RSVP_API uint16_t RSVP_MESSAGE_LENGTH(uint8_t *msg);
/* Stores the RSVP Length in network order; nothing for a null message. */
RSVP_API void RSVP_SET_MESSAGE_LENGTH(uint8_t *msg, uint16_t length);
/* Object bytes behind the header: Length - 8 when Length > 8, else 0 (0 for null). */
RSVP_API uint16_t RSVP_MESSAGE_OBJ_LEN(uint8_t *msg);
/* Pointer to the first object (offset 8); NULL for a null message. */
RSVP_API uint8_t *RSVP_MESSAGE_FIRST_OBJECT_PTR(uint8_t *msg);

/* ======================================================================================
 * Object header (4 bytes), walking, copying and comparing.
 * ====================================================================================== */
enum { RSVP_OBJ_HDR_LEN = 4 };

/* Writes Length (network order), Class-Num and C-Type; nothing else, no null check. */
RSVP_API void rsvp_build_object(uint8_t *obj, uint8_t class_num, uint8_t c_type, uint16_t length);
/* Object Length in host order; 0 for a null object. */
RSVP_API uint16_t RSVP_OBJECT_LENGTH(uint8_t *obj);
/* Class-Num; 0 for a null object. */
RSVP_API uint32_t RSVP_OBJECT_CLASS(uint8_t *obj);
/* C-Type; 0 for a null object. */
RSVP_API uint32_t RSVP_OBJECT_C_TYPE(uint8_t *obj);
/* Writes the Length in network order; nothing for a null object. */
RSVP_API void RSVP_SET_OBJECT_LENGTH(uint8_t *obj, uint16_t length);
/* Writes the Class-Num; nothing for a null object. */
RSVP_API void RSVP_OBJECT_SET_CLASS(uint8_t *obj, uint8_t class_num);
/* Writes the C-Type; nothing for a null object. */
RSVP_API void RSVP_OBJECT_SET_C_TYPE(uint8_t *obj, uint8_t c_type);
/* Rewrites the Length; when shrinking by 4 or more, fills the gap with a null object. */
RSVP_API void RSVP_CHANGE_OBJECT_LENGTH(uint8_t *obj, uint16_t new_length);
/* obj + Length, unchecked. */
RSVP_API uint8_t *rsvp_next_object(uint8_t *obj);
/* Next object with a non-zero Class-Num behind obj, or NULL; keeps *remaining counting from it. */
RSVP_API uint8_t *rsvp_next_nonnull_object(uint8_t *obj, uint32_t *remaining);
/* First object of class_num in the run, or NULL at the end or at a malformed object. */
RSVP_API uint8_t *rsvp_first_object_type(uint8_t *objs, uint32_t length, uint8_t class_num);
/* First object of class_num if an object of class_before stands at or before it, else NULL. */
RSVP_API uint8_t *rsvp_first_object_type_ordered(uint8_t *objs, uint32_t length,
                                                 uint8_t class_before, uint8_t class_num);
/* Moves the whole object (Length bytes) from src to dst; nothing for a null or empty src. */
RSVP_API void rsvp_object_copy(uint8_t *dst, uint8_t *src);
/* 0 when both objects are byte-identical (or the same pointer), else 1. */
RSVP_API int rsvp_object_compare(uint8_t *lhs, uint8_t *rhs);
/* dst[i] = ntohl(src[i]) for count words; nothing for null arrays or a zero count. */
RSVP_API void RSVP_COPY_UINT32_ARRAY_NTOHL(uint32_t *dst, const uint32_t *src, uint16_t count);
/* dst[i] = htonl(src[i]) for count words; nothing for null arrays or a zero count. */
RSVP_API void RSVP_COPY_UINT32_ARRAY_HTONL(uint32_t *dst, const uint32_t *src, uint16_t count);

/* ======================================================================================
 * Validation dispatch.
 * ====================================================================================== */

/* 1 valid, 0 malformed or rejected by its class, 2 for a class the library does not know. */
RSVP_API uint32_t rsvp_valid_object(uint8_t *obj);

/* ======================================================================================
 * Object families. Each family keeps its constants, records and functions together.
 * ====================================================================================== */

/* @@family:session@@ */

/* @@family:hop@@ */

/* @@family:basic@@ */

/* @@family:error_spec@@ */

/* @@family:sender@@ */

/* @@family:integrity@@ */

/* @@family:intserv@@ */

/* @@family:flowspec@@ */

/* @@family:adspec@@ */

/* @@family:gmpls_traffic@@ */

/* @@family:explicit_route@@ */

/* @@family:record_route@@ */

/* @@family:exclude_route@@ */

#ifdef __cplusplus
}
#endif

#endif /* RSVP_OBJECT_LIB_H */
