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

/* ======================================================================================
 * SESSION (Class-Num 1). Addresses and the Extended Tunnel ID cross in wire order; ports,
 * Tunnel IDs and the P2MP ID in host order.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_SESSION_IPV4 = 1,
    RSVP_CTYPE_SESSION_IPV6 = 2,
    RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV4 = 7,
    RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV6 = 8,
    RSVP_CTYPE_SESSION_UNI_IPV4 = 9,
    RSVP_CTYPE_SESSION_P2MP_LSP_IPV4 = 13,
    RSVP_CTYPE_SESSION_P2MP_LSP_IPV6 = 14
};
/* Object lengths of the IPv4 kinds. */
enum { RSVP_SESSION_IPV4_LEN = 12, RSVP_SESSION_TUNNEL_IPV4_LEN = 16 };
/* Protocol Ids for which an IPv4 session may name a destination port. */
enum { RSVP_IP_PROTOCOL_TCP = 6, RSVP_IP_PROTOCOL_UDP = 17 };

/* Writes a 12-byte IPv4 SESSION (C-Type 1); the port is converted to network order. */
RSVP_API void rsvp_build_session_ipv4(uint8_t *obj, uint32_t dest_addr, uint8_t protocol,
                                      uint8_t flags, uint16_t port);
/* Writes a 16-byte LSP_TUNNEL_IPv4 SESSION (C-Type 7), reserved field 0. */
RSVP_API void rsvp_build_session_lsp_tunnel_ipv4(uint8_t *obj, uint32_t end_point,
                                                 uint16_t tunnel_id, uint32_t ext_tunnel_id);
/* Writes a 16-byte P2MP LSP IPv4 SESSION (C-Type 13); the P2MP ID is a host-order number. */
RSVP_API void rsvp_build_session_p2mp_lsp_ipv4(uint8_t *obj, uint32_t p2mp_id, uint16_t tunnel_id,
                                               uint32_t ext_tunnel_id);
/* Writes a 16-byte UNI IPv4 SESSION (C-Type 9), reserved field 0. */
RSVP_API void rsvp_build_session_uni_ipv4(uint8_t *obj, uint32_t dest_addr, uint16_t tunnel_id,
                                          uint32_t ext_tunnel_id);
/* 1 and the fields of a valid C-Type 1 SESSION; 0 with the outputs untouched otherwise. */
RSVP_API int rsvp_extract_session_ipv4(uint8_t *obj, uint32_t *dest_addr, uint8_t *protocol,
                                       uint16_t *port);
/* 1 and the fields of a valid C-Type 7 SESSION; 0 with the outputs untouched otherwise. */
RSVP_API int rsvp_extract_session_lsp_tunnel_ipv4(uint8_t *obj, uint32_t *end_point,
                                                  uint16_t *tunnel_id, uint32_t *ext_tunnel_id);
/* 1 and the fields of a valid C-Type 13 SESSION; 0 with the outputs untouched otherwise. */
RSVP_API int rsvp_extract_session_p2mp_lsp_ipv4(uint8_t *obj, uint32_t *p2mp_id,
                                                uint16_t *tunnel_id, uint32_t *ext_tunnel_id);
/* 1 and the fields of a valid C-Type 9 SESSION; 0 with the outputs untouched otherwise. */
RSVP_API int rsvp_extract_session_uni_ipv4(uint8_t *obj, uint32_t *dest_addr, uint16_t *tunnel_id,
                                           uint32_t *ext_tunnel_id);
/* 1 for a valid IPv4 SESSION of C-Type 1, 7, 9 or 13; 0 otherwise (and for NULL). Tunnel and
 * UNI sessions whose Extended Tunnel ID equals their end point address are invalid. */
RSVP_API int rsvp_valid_session_ipv4(uint8_t *obj);
/* Address at offset 4 of a C-Type 1, 7 or 9 SESSION, wire order; 0 otherwise. */
RSVP_API uint32_t rsvp_session_gen_ipv4_dst(uint8_t *obj);
/* Port or Tunnel ID of a C-Type 1, 7, 9 or 13 SESSION, host order; 0 otherwise. */
RSVP_API uint16_t rsvp_session_gen_ipv4_port(uint8_t *obj);
/* Extended Tunnel ID of a C-Type 7, 9 or 13 SESSION, wire order; 0 otherwise. */
RSVP_API uint32_t rsvp_session_gen_ipv4_ext_id(uint8_t *obj);
/* P2MP ID of a C-Type 13 SESSION, host order; 0 otherwise. */
RSVP_API uint32_t rsvp_session_gen_p2mp_id(uint8_t *obj);
/* Protocol Id of a C-Type 1 SESSION; 0 otherwise. */
RSVP_API uint8_t rsvp_session_gen_ipv4_protocol(uint8_t *obj);
/* Flags byte of a C-Type 1 SESSION; 0 otherwise. */
RSVP_API uint8_t rsvp_session_gen_ipv4_flags(uint8_t *obj);
/* As rsvp_session_gen_ipv4_dst. */
RSVP_API uint32_t RSVP_SESSION_DESTINATION(uint8_t *obj);
/* As rsvp_session_gen_ipv4_port. */
RSVP_API uint16_t RSVP_SESSION_PORT(uint8_t *obj);
/* As rsvp_session_gen_ipv4_ext_id. */
RSVP_API uint32_t RSVP_SESSION_EXT_TUNNEL_ID(uint8_t *obj);
/* As rsvp_session_gen_p2mp_id. */
RSVP_API uint32_t RSVP_SESSION_P2MP_ID(uint8_t *obj);
/* As rsvp_session_gen_ipv4_protocol. */
RSVP_API uint8_t RSVP_SESSION_PROTOCOL(uint8_t *obj);
/* As rsvp_session_gen_ipv4_flags. */
RSVP_API uint8_t RSVP_SESSION_FLAGS(uint8_t *obj);
/* C-Type predicates (the Class-Num is not looked at): 1 or 0, and 0 for NULL. */
/* C-Type 1. */
RSVP_API int rsvp_ip_ipv4_session(uint8_t *obj);
/* C-Type 7. */
RSVP_API int rsvp_tunnel_ipv4_session(uint8_t *obj);
/* C-Type 9. */
RSVP_API int rsvp_uni_ipv4_session(uint8_t *obj);
/* C-Type 13. */
RSVP_API int rsvp_p2mp_lsp_ipv4_session(uint8_t *obj);
/* C-Types 1, 7, 9 and 13. */
RSVP_API int rsvp_session_gen_is_family_ipv4(uint8_t *obj);
/* C-Types 2, 8 and 14. */
RSVP_API int rsvp_session_gen_is_family_ipv6(uint8_t *obj);
/* C-Types 7 and 13 (a UNI session is not counted as a tunnel). */
RSVP_API int rsvp_session_gen_ipv4_is_tunnel(uint8_t *obj);
/* C-Types 8 and 14. */
RSVP_API int rsvp_session_gen_ipv6_is_tunnel(uint8_t *obj);
/* C-Types 7, 13, 8 and 14. */
RSVP_API int rsvp_session_gen_is_family_tunnel(uint8_t *obj);
/* Total order of sessions: -1, 0 or 1 (a NULL session has C-Type 0). A zero port of an IPv4
 * session, and a zero Extended Tunnel ID of the other kinds, match any value. */
RSVP_API int rsvp_compare_sessions(uint8_t *a, uint8_t *b);

/* ---- RSVP_HOP (class 3): IPv4 and IF_ID with its TLVs ---- */
enum {
    RSVP_CTYPE_RSVP_HOP_IPV4 = 1,
    RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4 = 3,
    /* Both hop C-Types: address at offset 4, logical interface handle at 8, TLVs from 12. */
    RSVP_HOP_IPV4_LEN = 12,
    RSVP_HOP_IF_ID_TLV_OFFSET = 12,
    /* IF_ID TLV: 16-bit type, 16-bit length (header included), value. */
    RSVP_HOP_IF_ID_TLV_HDR_LEN = 4,
    RSVP_HOP_IF_ID_TLV_IPV4 = 1,          /* IPv4 interface address */
    RSVP_HOP_IF_ID_TLV_INDEX = 3,         /* interface index, forward and reverse */
    RSVP_HOP_IF_ID_TLV_COMPONENT_FWD = 4, /* component interface, forward */
    RSVP_HOP_IF_ID_TLV_COMPONENT_REV = 5, /* component interface, reverse */
    RSVP_HOP_IF_ID_TLV_IPV4_LEN = 8,      /* address */
    RSVP_HOP_IF_ID_TLV_INDEX_LEN = 12,    /* address and interface ID (types 3, 4, 5) */
    /* Kinds reported by rsvp_get_gmpls_hop_if_id_tlv. */
    RSVP_HOP_IF_ID_KIND_NONE = 0,
    RSVP_HOP_IF_ID_KIND_IPV4 = 1,
    RSVP_HOP_IF_ID_KIND_INDEX = 2
};

/* First interface TLV of an IF_ID RSVP_HOP, as found by rsvp_get_gmpls_hop_if_id_tlv. */
typedef struct rsvp_hop_if_id_tlv_info {
    uint32_t kind;    /* RSVP_HOP_IF_ID_KIND_* */
    uint32_t address; /* wire order */
    uint32_t if_id;   /* host order; only for RSVP_HOP_IF_ID_KIND_INDEX */
} rsvp_hop_if_id_tlv_info;

/* Writes an IPv4 RSVP_HOP (Length 12); returns obj. */
RSVP_API uint8_t *rsvp_build_hop_ipv4(uint8_t *obj, uint32_t neighbor, uint32_t lih);
/* 1 and both outputs for a valid IPv4 hop; 0, outputs untouched, for invalid or null args. */
RSVP_API int rsvp_extract_hop_ipv4(uint8_t *obj, uint32_t *neighbor, uint32_t *lih);
/* 1 for class 3, C-Type 1, Length 12 and a non-zero neighbor address, else 0. */
RSVP_API int rsvp_valid_hop_ipv4(uint8_t *obj);
/* Class validator of RSVP_HOP: the IPv4 (C-Type 1) or IF_ID (C-Type 3) verdict; else 0. */
RSVP_API int rsvp_valid_hop(uint8_t *obj);
/* Neighbor address (wire order) of a valid object; 0 otherwise. Twin of RSVP_HOP_NEIGHBOR. */
RSVP_API uint32_t RSVP_HOP_IPV4_NEIGHBOR(uint8_t *obj);
/* Neighbor address (wire order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_HOP_NEIGHBOR(uint8_t *obj);
/* Stores the neighbor address unconverted in a valid object; nothing otherwise. */
RSVP_API void RSVP_HOP_IPV4_SET_NEIGHBOR(uint8_t *obj, uint32_t neighbor);
/* Stores the neighbor address unconverted in a valid object; nothing otherwise. */
RSVP_API void RSVP_HOP_SET_NEIGHBOR(uint8_t *obj, uint32_t neighbor);
/* Logical interface handle (host order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_HOP_IPV4_LIF_HANDLE(uint8_t *obj);
/* Logical interface handle (host order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_HOP_LIF_HANDLE(uint8_t *obj);
/* Stores the logical interface handle in a valid object; nothing otherwise. */
RSVP_API void RSVP_HOP_IPV4_SET_LIF_HANDLE(uint8_t *obj, uint32_t lih);
/* Stores the logical interface handle in a valid object; nothing otherwise. */
RSVP_API void RSVP_HOP_SET_LIF_HANDLE(uint8_t *obj, uint32_t lih);

/* Writes the fixed part of an IF_ID RSVP_HOP (Length 12, no TLVs); returns obj. */
RSVP_API uint8_t *rsvp_build_hop_if_id(uint8_t *obj, uint32_t neighbor, uint32_t lih);
/* 1 after appending an IPv4 TLV; 0, untouched, if null, not IF_ID or a duplicate. Asserts. */
RSVP_API int rsvp_add_ipv4_intf(uint8_t *obj, uint32_t addr);
/* As rsvp_add_ipv4_intf without the class and C-Type check. */
RSVP_API int rsvp_add_ipv4_fwd_intf(uint8_t *obj, uint32_t addr);
/* 1 after appending a type-4 TLV; 0, untouched, if null or a duplicate. Asserts TLV tiling. */
RSVP_API int rsvp_add_index_fwd_intf(uint8_t *obj, uint32_t addr, uint32_t if_id);
/* As rsvp_add_index_fwd_intf, for a component-reverse TLV (type 5). */
RSVP_API int rsvp_add_index_rev_intf(uint8_t *obj, uint32_t addr, uint32_t if_id);
/* As rsvp_add_index_fwd_intf, for an interface-index TLV (type 3). */
RSVP_API int rsvp_add_index_fwd_rev_intf(uint8_t *obj, uint32_t addr, uint32_t if_id);
/* 1 for a TLV of type 1 and length 8, or of type 3, 4 or 5 and length 12; else 0. */
RSVP_API int rsvp_valid_hop_if_id_subobject(uint8_t *tlv);
/* 1 for class 3, C-Type 3 whose TLVs from offset 12 are valid, else 0. */
RSVP_API int rsvp_valid_hop_if_id(uint8_t *obj);
/* Valid TLV after prev (first for NULL), or NULL; reads a candidate at the object end. */
RSVP_API uint8_t *rsvp_extract_hop_if_id_next_subobj(uint8_t *obj, uint8_t *prev);
/* 1 and the address (wire order) for a valid IPv4 TLV; 0, output untouched, otherwise. */
RSVP_API int rsvp_extract_ipv4_subobj(uint8_t *tlv, uint32_t *addr);
/* The same as rsvp_extract_ipv4_subobj. */
RSVP_API int rsvp_extract_ipv4_fwd_rev_intf_subobj(uint8_t *tlv, uint32_t *addr);
/* 1, address (wire) and interface ID (host) of a valid type 3/4/5 TLV; 0, untouched, else. */
RSVP_API int rsvp_extract_comp_index_fwd_rev_intf_subobj(uint8_t *tlv, uint32_t *addr,
                                                         uint32_t *if_id);
/* 1 and the fields of the first type-3 TLV of a valid object; 0, outputs untouched, else. */
RSVP_API int rsvp_get_gmpls_hop_if_index_tlv(uint8_t *obj, uint32_t *addr, uint32_t *if_id);
/* 1 and the address of the first IPv4 TLV of a valid object; 0, output untouched, if none. */
RSVP_API int rsvp_get_hop_if_id_ipv4_tlv(uint8_t *obj, uint32_t *addr);
/* 1 and the first type-1/3 TLV in *info; 0 else (kind set 0 first for a valid object). */
RSVP_API int rsvp_get_gmpls_hop_if_id_tlv(uint8_t *obj, rsvp_hop_if_id_tlv_info *info);
/* Pointer to offset 12 (the TLVs) of a valid object; NULL otherwise. */
RSVP_API uint8_t *RSVP_HOP_IF_ID_SUBOBJ_PTR(uint8_t *obj);
/* Neighbor address (wire order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_HOP_IF_ID_NEIGHBOR(uint8_t *obj);
/* Stores the neighbor address unconverted in any non-null object, valid or not. */
RSVP_API void RSVP_HOP_IF_ID_SET_NEIGHBOR(uint8_t *obj, uint32_t neighbor);
/* Logical interface handle (host order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_HOP_IF_ID_LIF_HANDLE(uint8_t *obj);
/* Stores the logical interface handle in a valid object; nothing otherwise. */
RSVP_API void RSVP_HOP_IF_ID_SET_LIF_HANDLE(uint8_t *obj, uint32_t lih);
/* Type (host order) of a valid TLV; 0 otherwise. */
RSVP_API uint16_t RSVP_HOP_SUBOBJ_GENERIC_TYPE(uint8_t *tlv);
/* Length (host order) of a valid TLV; 0 otherwise. */
RSVP_API uint16_t RSVP_HOP_SUBOBJ_GENERIC_LENGTH(uint8_t *tlv);

/* ---- TIME_VALUES, RESV_CONFIRM, SCOPE, STYLE and POLICY_DATA (classes 5, 15, 7, 8, 14) ---- */
enum {
    RSVP_CTYPE_TIME_VALUES = 1,
    RSVP_CTYPE_RESV_CONFIRM_IPV4 = 1,
    RSVP_CTYPE_SCOPE_IPV4 = 1,
    RSVP_CTYPE_STYLE = 1,
    RSVP_CTYPE_POLICY_DATA = 1, /* written by rsvp_build_policy; any C-Type is accepted */
    RSVP_TIME_VALUES_LEN = 8,
    RSVP_RESV_CONFIRM_IPV4_LEN = 8,
    RSVP_STYLE_LEN = 8,
    /* Reservation styles: the low 5 bits of the STYLE Option Vector. */
    RSVP_STYLE_FF = 0x0A, /* Fixed Filter */
    RSVP_STYLE_WF = 0x11, /* Wildcard Filter */
    RSVP_STYLE_SE = 0x12, /* Shared Explicit */
    RSVP_STYLE_MASK = 0x1F
};

/* Writes TIME_VALUES (Length 8) with the refresh period in ms; returns obj. */
RSVP_API uint8_t *rsvp_build_refresh(uint8_t *obj, uint32_t period_ms);
/* 1 for class 5, C-Type 1, Length 8, else 0. */
RSVP_API int rsvp_valid_refresh(uint8_t *obj);
/* Refresh period (ms, host order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_REFRESH_TIME(uint8_t *obj);

/* Writes RESV_CONFIRM IPv4 (Length 8) with the receiver address; returns obj. */
RSVP_API uint8_t *rsvp_build_confirm_ipv4(uint8_t *obj, uint32_t receiver);
/* 1 for class 15, C-Type 1, Length 8, else 0. */
RSVP_API int rsvp_valid_confirm_ipv4(uint8_t *obj);
/* 1 and the receiver address (wire order) of a valid object; 0, output untouched, else. */
RSVP_API int rsvp_extract_confirm_ipv4(uint8_t *obj, uint32_t *receiver);
/* Receiver address (wire order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_CONFIRM_ADDR(uint8_t *obj);

/* Writes the header of an empty SCOPE IPv4 list (Length 4, not yet valid); returns obj. */
RSVP_API uint8_t *rsvp_build_scope_ipv4(uint8_t *obj);
/* Appends addr unless the list already holds it; nothing for a null or malformed object. */
RSVP_API void rsvp_add_scope_ipv4(uint8_t *obj, uint32_t addr);
/* 1 for class 7, C-Type 1 and Length above 4, else 0. */
RSVP_API int rsvp_valid_scope_ipv4(uint8_t *obj);
/* Address at index (wire order), unbounded by the Length; 0 if invalid or index < 0. */
RSVP_API uint32_t RSVP_SCOPE_IPV4_ADDR(uint8_t *obj, int32_t index);

/* Writes STYLE (Length 8): the style if it is FF, WF or SE, else a zero word; returns obj. */
RSVP_API uint8_t *rsvp_build_style(uint8_t *obj, uint8_t style);
/* 1 for class 8, C-Type 1, Length 8 and style FF, WF or SE, else 0. */
RSVP_API int rsvp_valid_style(uint8_t *obj);
/* 1 and the style of a valid object; 0, and the output set to 0, otherwise. */
RSVP_API int rsvp_extract_style(uint8_t *obj, uint8_t *style);
/* 1 for explicit sender selection (bit 1 of the Option Vector), 0 for wildcard; unchecked. */
RSVP_API int rsvp_style_explicit(uint8_t *obj);
/* Style (low 5 bits of the Option Vector) of a valid object; 0 otherwise. */
RSVP_API uint8_t RSVP_STYLE_RESERVATION_TYPE(uint8_t *obj);
/* Rewrites the flags and Option Vector word as style AND 31 in a valid object; else nothing. */
RSVP_API void RSVP_STYLE_SET_RESERVATION_TYPE(uint8_t *obj, uint8_t style);

/* Writes POLICY_DATA around a zero-padded copy of data; returns the data inside obj. */
RSVP_API uint8_t *rsvp_build_policy(uint8_t *obj, const uint8_t *data, uint32_t data_len);
/* 1 for class 14 with a Length of at least 4 and a multiple of 4 (any C-Type), else 0. */
RSVP_API int rsvp_valid_policy(uint8_t *obj);
/* 1, pointer to the data in obj and its length (Length - 4); 0, outputs untouched, else. */
RSVP_API int rsvp_extract_policy(uint8_t *obj, uint8_t **data, uint16_t *data_len);

/* ---- ERROR_SPEC (class 6) ---- */
enum { RSVP_CTYPE_ERROR_SPEC_IPV4 = 1, RSVP_ERROR_SPEC_IPV4_LEN = 12 };

/* Writes ERROR_SPEC IPv4 (Length 12); returns obj. */
RSVP_API uint8_t *rsvp_build_error_ipv4(uint8_t *obj, uint32_t node, uint8_t flags, uint8_t code,
                                        uint16_t value);
/* 1 for class 6, C-Type 1, Length 12, else 0; no field value is checked. */
RSVP_API int rsvp_valid_error_ipv4(uint8_t *obj);
/* 1 and all four fields (node in wire order) if valid; 0, outputs untouched, else. */
RSVP_API int rsvp_extract_error_ipv4(uint8_t *obj, uint32_t *node, uint8_t *flags, uint8_t *code,
                                     uint16_t *value);
/* Error node address (wire order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_ERROR_NODE(uint8_t *obj);
/* Flags of a valid object; 0 otherwise. */
RSVP_API uint8_t RSVP_ERROR_FLAGS(uint8_t *obj);
/* Error code of a valid object; 0 otherwise. */
RSVP_API uint8_t RSVP_ERROR_CODE(uint8_t *obj);
/* Stores the error code in a valid object; nothing otherwise. */
RSVP_API void RSVP_SET_ERROR_CODE(uint8_t *obj, uint8_t code);
/* Error value (host order) of a valid object; 0 otherwise. */
RSVP_API uint16_t RSVP_ERROR_VALUE(uint8_t *obj);
/* -1/0/1 by node (host order), code, value, flags; invalid counts as 0, a lone null first. */
RSVP_API int rsvp_compare_errors(uint8_t *a, uint8_t *b);

/* ======================================================================================
 * SENDER_TEMPLATE (Class-Num 11) and FILTER_SPEC (Class-Num 10): one layout per C-Type.
 * Addresses cross in wire order; ports, LSP IDs and Sub-Group IDs in host order.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_SENDER_TEMPLATE_IPV4 = 1,
    RSVP_CTYPE_SENDER_TEMPLATE_LSP_TUNNEL_IPV4 = 7,
    RSVP_CTYPE_SENDER_TEMPLATE_P2MP_LSP_TUNNEL_IPV4 = 12,
    RSVP_CTYPE_FILTER_SPEC_IPV4 = 1,
    RSVP_CTYPE_FILTER_SPEC_LSP_TUNNEL_IPV4 = 7,
    RSVP_CTYPE_FILTER_SPEC_P2MP_LSP_TUNNEL_IPV4 = 12
};
/* Object lengths: C-Types 1 and 7, and C-Type 12. */
enum { RSVP_SENDER_IPV4_LEN = 12, RSVP_SENDER_P2MP_IPV4_LEN = 20 };

/* Writes a 12-byte IPv4 SENDER_TEMPLATE (C-Type 1). */
RSVP_API void rsvp_build_template_ipv4(uint8_t *obj, uint32_t source, uint16_t port);
/* Writes a 12-byte LSP_TUNNEL_IPv4 SENDER_TEMPLATE (C-Type 7). */
RSVP_API void rsvp_build_template_lsp_tunnel_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id);
/* Writes a 20-byte P2MP LSP_TUNNEL_IPv4 SENDER_TEMPLATE (C-Type 12). */
RSVP_API void rsvp_build_template_lsp_p2mp_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id,
                                                uint32_t sg_originator, uint16_t sg_id);
/* Writes a 12-byte IPv4 FILTER_SPEC (C-Type 1). */
RSVP_API void rsvp_build_filter_ipv4(uint8_t *obj, uint32_t source, uint16_t port);
/* Writes a 12-byte LSP_TUNNEL_IPv4 FILTER_SPEC (C-Type 7). */
RSVP_API void rsvp_build_filter_lsp_tunnel_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id);
/* Writes a 20-byte P2MP LSP_TUNNEL_IPv4 FILTER_SPEC (C-Type 12). */
RSVP_API void rsvp_build_filter_lsp_p2mp_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id,
                                              uint32_t sg_originator, uint16_t sg_id);
/* 1 and the fields of a valid C-Type 1 SENDER_TEMPLATE; 0 with the outputs untouched. */
RSVP_API int rsvp_extract_template_ipv4(uint8_t *obj, uint32_t *source, uint16_t *port);
/* 1 and the fields of a valid C-Type 7 SENDER_TEMPLATE; 0 with the outputs untouched. */
RSVP_API int rsvp_extract_template_lsp_tunnel_ipv4(uint8_t *obj, uint32_t *sender,
                                                   uint16_t *lsp_id);
/* 1 and the fields of a valid C-Type 12 SENDER_TEMPLATE; 0 with the outputs untouched. */
RSVP_API int rsvp_extract_template_lsp_p2mp_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id,
                                                 uint32_t *sg_originator, uint16_t *sg_id);
/* 1 and the fields of a valid C-Type 1 FILTER_SPEC; 0 with the outputs untouched. */
RSVP_API int rsvp_extract_filter_ipv4(uint8_t *obj, uint32_t *source, uint16_t *port);
/* 1 and the fields of a valid C-Type 7 FILTER_SPEC; 0 with the outputs untouched. */
RSVP_API int rsvp_extract_filter_lsp_tunnel_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id);
/* 1 and the fields of a valid C-Type 12 FILTER_SPEC; 0 with the outputs untouched. */
RSVP_API int rsvp_extract_filter_lsp_p2mp_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id,
                                               uint32_t *sg_originator, uint16_t *sg_id);
/* 1 for a SENDER_TEMPLATE of C-Type 1 or 7 (Length 12) or 12 (Length 20) whose sender address
 * is neither 0 nor multicast; 0 otherwise (and for NULL). */
RSVP_API int rsvp_valid_template_gen_ipv4(uint8_t *obj);
/* 1 for a FILTER_SPEC of C-Type 1 or 7 (Length 12) or 12 (Length 20), whatever its address;
 * 0 otherwise (and for NULL). */
RSVP_API int rsvp_valid_filter_gen_ipv4(uint8_t *obj);
/* The accessors below act only when rsvp_valid_object answers 1 for the object (either
 * class); otherwise readers answer 0 and writers leave the object untouched. The P2MP ones
 * do not check the C-Type: on a 12-byte object they reach past its end. */
/* Sender address at offset 4, wire order. */
RSVP_API uint32_t RSVP_TEMPLATE_SOURCE(uint8_t *obj);
/* Stores the sender address (wire order) at offset 4. */
RSVP_API void RSVP_TEMPLATE_SET_SOURCE(uint8_t *obj, uint32_t source);
/* Port or LSP ID at offset 10, host order. */
RSVP_API uint16_t RSVP_TEMPLATE_PORT(uint8_t *obj);
/* Sub-Group Originator ID at offset 12, wire order. */
RSVP_API uint32_t RSVP_TEMPLATE_P2MP_SG_ORIGIN(uint8_t *obj);
/* Stores the Sub-Group Originator ID (wire order) at offset 12. */
RSVP_API void RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(uint8_t *obj, uint32_t sg_originator);
/* Sub-Group ID at offset 18, host order. */
RSVP_API uint16_t RSVP_TEMPLATE_P2MP_SG_ID(uint8_t *obj);
/* Twin of RSVP_TEMPLATE_SOURCE. */
RSVP_API uint32_t RSVP_FILTER_SOURCE(uint8_t *obj);
/* Twin of RSVP_TEMPLATE_SET_SOURCE. */
RSVP_API void RSVP_FILTER_SET_SOURCE(uint8_t *obj, uint32_t source);
/* Twin of RSVP_TEMPLATE_PORT. */
RSVP_API uint16_t RSVP_FILTER_PORT(uint8_t *obj);
/* Twin of RSVP_TEMPLATE_P2MP_SG_ORIGIN. */
RSVP_API uint32_t RSVP_FILTER_P2MP_SG_ORIGIN(uint8_t *obj);
/* Twin of RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN. */
RSVP_API void RSVP_FILTER_SET_P2MP_SG_ORIGIN(uint8_t *obj, uint32_t sg_originator);
/* Twin of RSVP_TEMPLATE_P2MP_SG_ID. */
RSVP_API uint16_t RSVP_FILTER_P2MP_SG_ID(uint8_t *obj);
/* Total order of senders: -1, 0 or 1; a NULL object sorts first. Fields of an object that
 * rsvp_valid_object rejects count as 0. */
RSVP_API int rsvp_compare_templates(uint8_t *a, uint8_t *b);
/* Twin of rsvp_compare_templates. */
RSVP_API int rsvp_compare_filters(uint8_t *a, uint8_t *b);

/* ---- INTEGRITY and CHALLENGE (classes 4 and 64) ---- */
enum {
    RSVP_CTYPE_INTEGRITY = 1,
    RSVP_CTYPE_CHALLENGE = 1,
    RSVP_INTEGRITY_KEY_ID_LEN = 6,
    RSVP_INTEGRITY_DIGEST_OFFSET = 20, /* also the Length without a digest */
    RSVP_INTEGRITY_MIN_DIGEST_LEN = 4,
    RSVP_INTEGRITY_MAX_DIGEST_LEN = 20,
    RSVP_INTEGRITY_MIN_LEN = 24,
    RSVP_INTEGRITY_MAX_LEN = 40,
    RSVP_CHALLENGE_COOKIE_LEN = 8,
    RSVP_CHALLENGE_LEN = 20
};

/* 1 for class 4, C-Type 1 and a Length of 24 to 40 in whole words, else 0. */
RSVP_API int rsvp_valid_integrity(uint8_t *obj);
/* 1 after writing the non-null parts, in stages; 0 on a bad length, earlier parts kept. */
RSVP_API int rsvp_build_integrity(uint8_t *obj, const uint8_t *flags, const uint8_t *key_id,
                                  const uint64_t *seq, const uint8_t *digest,
                                  const uint32_t *digest_len);
/* 1 and each non-null output (digest: room for 20) if valid; 0, outputs untouched, else. */
RSVP_API int rsvp_extract_integrity(uint8_t *obj, uint8_t *flags, uint8_t *key_id, uint64_t *seq,
                                    uint8_t *digest);
/* Pointer to the digest (offset 20) of a valid object; NULL otherwise. */
RSVP_API uint8_t *RSVP_INTEGRITY_DIGEST_PTR(uint8_t *obj);
/* Digest length (Length - 20) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_INTEGRITY_DIGEST_LEN(uint8_t *obj);
/* 1 for class 64, C-Type 1, Length 20, else 0. */
RSVP_API int rsvp_valid_challenge(uint8_t *obj);
/* 1 after writing header, key id and cookie (bytes 4-5 left as they are); 0 for null obj. */
RSVP_API int rsvp_build_challenge(uint8_t *obj, const uint8_t *key_id, const uint8_t *cookie);
/* 1 and each non-null output of a valid object; 0, outputs untouched, otherwise. */
RSVP_API int rsvp_extract_challenge(uint8_t *obj, uint8_t *key_id, uint8_t *cookie);
/* Pointer to the key id (offset 6) of a valid object; NULL otherwise. */
RSVP_API uint8_t *RSVP_CHALLENGE_KEY_ID_PTR(uint8_t *obj);
/* Pointer to the cookie (offset 12) of a valid object; NULL otherwise. */
RSVP_API uint8_t *RSVP_CHALLENGE_COOKIE_PTR(uint8_t *obj);

/* ---- Intserv body and SENDER_TSPEC (class 12, C-Type 2) ---- */
/* Intserv body (RFC 2210) of SENDER_TSPEC, FLOWSPEC and ADSPEC C-Type 2: floats on the wire,
 * signed 64-bit integers here (converted by ieee_to_int64 / int64_to_ieee), lengths inside the
 * body in 32-bit words. (C-Types 4 and 5 of classes 9 and 12: GMPLS traffic parameters.) */
enum { RSVP_CTYPE_SENDER_TSPEC_INTSERV = 2, RSVP_CTYPE_FLOWSPEC_INTSERV = 2 };
/* Service numbers on the wire. */
enum {
    RSVP_INTSRV_SERVICE_GENERAL = 1,
    RSVP_INTSRV_SERVICE_GUARANTEED = 2,
    RSVP_INTSRV_SERVICE_CONTROLLED_LOAD = 5,
    RSVP_INTSRV_SERVICE_QUALITATIVE = 6
};
/* Parameter ids. */
enum {
    RSVP_INTSRV_PARAM_NUMBER_OF_IS_HOPS = 4,
    RSVP_INTSRV_PARAM_AVAILABLE_PATH_BANDWIDTH = 6,
    RSVP_INTSRV_PARAM_MINIMUM_PATH_LATENCY = 8,
    RSVP_INTSRV_PARAM_PATH_MTU = 10,
    RSVP_INTSRV_PARAM_TOKEN_BUCKET_TSPEC = 127,
    RSVP_INTSRV_PARAM_QUALITATIVE_MAX_UNIT = 128,
    RSVP_INTSRV_PARAM_GUARANTEED_RSPEC = 130,
    RSVP_INTSRV_PARAM_CTOT = 133,
    RSVP_INTSRV_PARAM_DTOT = 134,
    RSVP_INTSRV_PARAM_CSUM = 135,
    RSVP_INTSRV_PARAM_DSUM = 136
};
/* +infinity as a single float: recognised only as this raw wire word. */
enum { RSVP_INTSRV_INFINITY_BITS = 0x7f800000 };
/* Sizes in bytes: a single-word parameter, the SENDER_TSPEC C-Type 2 as built. */
enum { RSVP_INTSRV_PARAM_LEN = 8, RSVP_SENDER_TSPEC_INTSERV_LEN = 36 };

/* Builds the 36-byte SENDER_TSPEC C-Type 2 (service 1, token bucket r b p m M); no result. */
RSVP_API void rsvp_build_tspec(uint8_t *obj, int64_t rate, int64_t depth, int64_t peak,
                               uint32_t min_unit, uint32_t max_unit);
/* 1 for a well-formed SENDER_TSPEC C-Type 2, else 0. */
RSVP_API int rsvp_valid_tspec(uint8_t *obj);
/* 1 for a valid SENDER_TSPEC of C-Type 2, 4 (16 bytes) or 5 (G.709), else 0. */
RSVP_API int rsvp_valid_gen_tspec(uint8_t *obj);
/* 1 after writing r b p m M of the service-1 fragment (all 0 without one); 0 and outputs
 * untouched when the object is invalid. */
RSVP_API int rsvp_extract_tspec(uint8_t *obj, int64_t *rate_out, int64_t *depth_out,
                                int64_t *peak_out, uint32_t *min_unit_out, uint32_t *max_unit_out);
/* Token bucket rate r of the service-1 fragment; 0 without one. Does not validate. */
RSVP_API int64_t rsvp_get_average_rate(uint8_t *obj);
/* Token bucket depth b of the service-1 fragment; 0 without one. Does not validate. */
RSVP_API int64_t rsvp_get_maximum_burst(uint8_t *obj);
/* Peak rate p of the service-1 fragment; 0 without one. Does not validate. */
RSVP_API int64_t rsvp_get_peak_rate(uint8_t *obj);
/* Minimum policed unit m of the service-1 fragment; 0 without one. Does not validate. */
RSVP_API uint32_t rsvp_get_min_unit(uint8_t *obj);
/* Maximum packet size M of the service-1 fragment; 0 without one. Does not validate. */
RSVP_API uint32_t rsvp_get_max_unit(uint8_t *obj);
/* First service fragment of the service number in the Intserv body, or NULL (null object,
 * overall length 0, no such fragment). Checks nothing against the object length. */
RSVP_API uint8_t *rsvp_find_intsrv_service(uint8_t *obj, uint8_t service_number);
/* Writes an 8-byte single-word parameter holding the float bits as given; no result. */
RSVP_API void rsvp_build_intsrv_real_object(uint8_t *param, uint8_t param_id, uint32_t value);
/* Writes an 8-byte single-word parameter holding the integer; no result. */
RSVP_API void rsvp_build_intsrv_integer_object(uint8_t *param, uint8_t param_id, uint32_t value);
/* Version nibble of the Intserv body; 0 unless rsvp_valid_object accepts the object. */
RSVP_API uint8_t RSVP_TSPEC_HEADER_VERSION(uint8_t *obj);
/* Overall length (words) of the Intserv body; 0 unless rsvp_valid_object accepts it. */
RSVP_API uint16_t RSVP_TSPEC_HEADER_LENGTH(uint8_t *obj);
/* obj + 8 + offset; NULL unless rsvp_valid_object accepts the object. */
RSVP_API uint8_t *RSVP_TSPEC_FRAGMENTS_PTR(uint8_t *obj, uint32_t offset);
/* Service number of a fragment header; 0 for NULL. */
RSVP_API uint8_t RSVP_INTSRV_SERVICE_ID(uint8_t *frag);
/* Service data length (words) of a fragment header; 0 for NULL. */
RSVP_API uint16_t RSVP_INTSRV_SERVICE_LENGTH(uint8_t *frag);
/* Token bucket parameter id (fragment +4); 0 for NULL. */
RSVP_API uint8_t RSVP_TOKEN_BUCKET_FRAG_PARAM_ID(uint8_t *frag);
/* Token bucket parameter flags (fragment +5); 0 for NULL. */
RSVP_API uint8_t RSVP_TOKEN_BUCKET_FRAG_FLAGS(uint8_t *frag);
/* Token bucket parameter length in words (fragment +6); 0 for NULL. */
RSVP_API uint16_t RSVP_TOKEN_BUCKET_FRAG_PARAM_LEN(uint8_t *frag);
/* Token bucket rate r (fragment +8), converted; 0 for NULL. */
RSVP_API int64_t RSVP_TOKEN_BUCKET_FRAG_RATE(uint8_t *frag);
/* Token bucket depth b (fragment +12), converted; 0 for NULL. */
RSVP_API int64_t RSVP_TOKEN_BUCKET_FRAG_DEPTH(uint8_t *frag);
/* Peak rate p (fragment +16), converted; 0 for NULL. */
RSVP_API int64_t RSVP_TOKEN_BUCKET_FRAG_PEAK(uint8_t *frag);
/* Minimum policed unit m (fragment +20); 0 for NULL. */
RSVP_API uint32_t RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(uint8_t *frag);
/* Maximum packet size M (fragment +24); 0 for NULL. */
RSVP_API uint32_t RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(uint8_t *frag);
/* Parameter id of a qualitative fragment (+4); 0 for NULL. */
RSVP_API uint8_t RSVP_TSPEC_QUAL_FRAG_PARAM_ID(uint8_t *frag);
/* Parameter flags of a qualitative fragment (+5); 0 for NULL. */
RSVP_API uint8_t RSVP_TSPEC_QUAL_FRAG_FLAGS(uint8_t *frag);
/* Parameter length (words) of a qualitative fragment (+6); 0 for NULL. */
RSVP_API uint16_t RSVP_TSPEC_QUAL_FRAG_PARAM_LEN(uint8_t *frag);
/* Maximum packet size M of a qualitative fragment (+8); 0 for NULL. */
RSVP_API uint32_t RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(uint8_t *frag);
/* Parameter id (byte 0); 0 for NULL. */
RSVP_API uint8_t RSVP_INTSRV_INTEGER_OBJECT_PARAM_ID(uint8_t *param);
/* Parameter flags (byte 1); 0 for NULL. */
RSVP_API uint8_t RSVP_INTSRV_INTEGER_OBJECT_FLAGS(uint8_t *param);
/* Parameter length in words (bytes 2-3); 0 for NULL. */
RSVP_API uint16_t RSVP_INTSRV_INTEGER_OBJECT_LENGTH(uint8_t *param);
/* Value word of a single-word parameter; 0 for NULL. */
RSVP_API uint32_t RSVP_INTSRV_INTEGER_OBJECT_VALUE(uint8_t *param);
/* Value word of a single-word parameter (same as RSVP_INTSRV_INTEGER_OBJECT_VALUE). */
RSVP_API uint32_t RSVP_INTSRV_INTEGER_VAL(uint8_t *param);
/* Writes the value word; nothing for NULL. */
RSVP_API void RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(uint8_t *param, uint32_t value);
/* Raw float bits of a single-word parameter (no conversion); 0 for NULL. */
RSVP_API uint32_t RSVP_INTSRV_REAL_OBJECT_VALUE(uint8_t *param);
/* Writes raw float bits into the value word; nothing for NULL. */
RSVP_API void RSVP_INTSRV_REAL_OBJECT_SET_VALUE(uint8_t *param, uint32_t bits);

/* ---- FLOWSPEC (class 9, C-Type 2) and flowspec merging ---- */
/* FLOWSPEC C-Type 2. The QoS codes of the interface differ from the wire service numbers:
 * Guaranteed 3 (wire 2), Controlled-Load 5 (wire 5), qualitative 6 (wire 6). */
enum { RSVP_QOS_GUARANTEED = 3, RSVP_QOS_CONTROLLED_LOAD = 5, RSVP_QOS_QUALITATIVE = 6 };
/* Object lengths as built; the merge needs room for the longest. */
enum {
    RSVP_FLOWSPEC_GUARANTEED_LEN = 48,
    RSVP_FLOWSPEC_CONTROLLED_LOAD_LEN = 36,
    RSVP_FLOWSPEC_MAX_LEN = 48
};
/* Minimum policed unit reported for a flowspec without one. */
enum { RSVP_FLOWSPEC_NO_MIN_UNIT = 65535 };

/* Builds a Guaranteed (code 3, 48 bytes) or Controlled-Load (code 5, 36 bytes) FLOWSPEC;
 * any other code writes only a zero object length. No result. */
RSVP_API void rsvp_build_flowspec(uint8_t *obj, uint8_t qos_service, int64_t max_burst,
                                  int64_t average_rate, uint32_t min_unit, uint32_t max_unit,
                                  int64_t peak_rate, int64_t requested_rate, uint32_t slack);
/* 1 for a well-formed FLOWSPEC C-Type 2 (service 2, 5, or 6 unexamined), else 0. */
RSVP_API int rsvp_valid_flowspec(uint8_t *obj);
/* 1 for a valid FLOWSPEC of C-Type 2, 4 (16 bytes) or 5 (G.709), else 0. */
RSVP_API int rsvp_valid_gen_flowspec(uint8_t *obj);
/* 1 after writing every field through the getters; 0 and outputs untouched when invalid. */
RSVP_API int rsvp_extract_flowspec(uint8_t *obj, uint8_t *qos_service_out, int64_t *max_burst_out,
                                   int64_t *average_rate_out, uint32_t *min_unit_out,
                                   uint32_t *max_unit_out, int64_t *peak_rate_out,
                                   int64_t *requested_rate_out, uint32_t *slack_out);
/* QoS code 3, 5 or 6 of wire service 2, 5 or 6; 0 otherwise, for NULL or C-Type not 2. */
RSVP_API uint8_t rsvp_get_flow_qos_service(uint8_t *obj);
/* Token bucket rate r (service 1, 2, 5); 0 otherwise. Does not validate. */
RSVP_API int64_t rsvp_get_flow_average_rate(uint8_t *obj);
/* Token bucket depth b (service 1, 2, 5); 0 otherwise. Does not validate. */
RSVP_API int64_t rsvp_get_flow_maximum_burst(uint8_t *obj);
/* Peak rate p (service 1, 2, 5); 0 otherwise. Does not validate. */
RSVP_API int64_t rsvp_get_flow_peak_rate(uint8_t *obj);
/* Minimum policed unit m (service 2, 5); 65535 for NULL or another service, 0 for C-Type not
 * 2. Does not validate. */
RSVP_API uint32_t rsvp_get_flow_min_unit(uint8_t *obj);
/* Maximum packet size M (service 1, 2, 5); 0 otherwise. Does not validate. */
RSVP_API uint32_t rsvp_get_flow_max_unit(uint8_t *obj);
/* RSpec rate R (service 2) or token bucket rate r (service 1, 5); 0 otherwise. */
RSVP_API int64_t rsvp_get_flow_requested_rate(uint8_t *obj);
/* Slack term S (service 2); 0 otherwise. Does not validate. */
RSVP_API uint32_t rsvp_get_flow_slack(uint8_t *obj);
/* -1, 0, 1 as a's average rate is below, equal to, above b's (unsigned 64-bit). */
RSVP_API int rsvp_compare_flowspecs(uint8_t *a, uint8_t *b);
/* -1, 0, 1 as the SENDER_TSPEC's rate is below, equal to, above the flowspec's (unsigned). */
RSVP_API int rsvp_compare_tspec_with_flowspec(uint8_t *tspec, uint8_t *flowspec);
/* Merges other into target (least upper bound); 0 when target stays as it was, else 1 (also,
 * without a write, when the merged service cannot be built). target needs 48 bytes. */
RSVP_API int rsvp_merge_flowspecs(uint8_t *other, uint8_t *target);
/* Copies r, b, p of the SENDER_TSPEC into the FLOWSPEC as raw words; 1 on success or when the
 * flowspec's service has none, 0 (nothing written) on any failed precondition. */
RSVP_API int rsvp_copy_flowspec_rate_from_tspec(uint8_t *flowspec, uint8_t *tspec);
/* Version nibble of the Intserv body; 0 for NULL. */
RSVP_API uint8_t RSVP_FLOWSPEC_HEADER_VERSION(uint8_t *obj);
/* Overall length in words; 0 for NULL. */
RSVP_API uint16_t RSVP_FLOWSPEC_HEADER_LENGTH(uint8_t *obj);
/* obj + 8 + offset; NULL for NULL. */
RSVP_API uint8_t *RSVP_FLOWSPEC_FRAGMENTS_PTR(uint8_t *obj, uint32_t offset);
/* The Guaranteed fragment itself (its token bucket starts at +4). */
RSVP_API uint8_t *RSVP_GTD_BUCKET_PTR(uint8_t *frag);
/* The Controlled-Load fragment itself (its token bucket starts at +4). */
RSVP_API uint8_t *RSVP_CLOAD_BUCKET_PTR(uint8_t *frag);
/* RSpec parameter id (Guaranteed fragment +28); 0 for NULL. */
RSVP_API uint8_t RSVP_FLOWSPEC_RSPEC_PARAM_ID(uint8_t *frag);
/* RSpec parameter flags (Guaranteed fragment +29); 0 for NULL. */
RSVP_API uint8_t RSVP_FLOWSPEC_RSPEC_FLAGS(uint8_t *frag);
/* RSpec parameter length in words (Guaranteed fragment +30); 0 for NULL. */
RSVP_API uint16_t RSVP_FLOWSPEC_RSPEC_PARAM_LEN(uint8_t *frag);
/* RSpec rate R (Guaranteed fragment +32), converted; 0 for NULL. */
RSVP_API int64_t RSVP_FLOWSPEC_RSPEC_REQ_RATE(uint8_t *frag);
/* Slack term S (Guaranteed fragment +36); 0 for NULL. */
RSVP_API uint32_t RSVP_FLOWSPEC_RSPEC_SLACK(uint8_t *frag);

/* ---- ADSPEC (class 13) ---- */
/* ADSPEC C-Type 2: the Intserv body of path characterisation, a general parameters fragment
 * (service 1) then optional Guaranteed and Controlled-Load fragments. */
enum { RSVP_CTYPE_ADSPEC_INTSERV = 2 };
/* Service selection of rsvp_build_adspec_baseline (any other value: general fragment only). */
enum {
    RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL = 0,
    RSVP_ADSPEC_BASELINE_GUARANTEED = 1,
    RSVP_ADSPEC_BASELINE_CONTROLLED_LOAD = 2,
    RSVP_ADSPEC_BASELINE_GENERAL_ONLY = 3
};
/* Object lengths: with the general fragment only, and the longest baseline. */
enum { RSVP_ADSPEC_GENERAL_ONLY_LEN = 44, RSVP_ADSPEC_BASELINE_MAX_LEN = 84 };
/* Path MTU of a baseline: not yet limited by any hop. */
#define RSVP_ADSPEC_PATH_MTU_UNLIMITED 0xffffffffu

/* Writes a baseline ADSPEC (84, 80, 48 or 44 bytes by services); returns the Controlled-Load
 * fragment when one was written, else the byte just past the last fragment. */
RSVP_API uint8_t *rsvp_build_adspec_baseline(uint8_t *obj, uint32_t services);
/* 1 for a well-formed ADSPEC C-Type 2 with at least one fragment after the general one. */
RSVP_API int rsvp_valid_adspec(uint8_t *obj);
/* 1 and the Guaranteed fragment (at 44, or 48 behind a Controlled-Load one) in *fragment_out;
 * 0 with NULL stored when absent; 0 and *fragment_out untouched when the object is invalid. */
RSVP_API int rsvp_adspec_extract_gtd_frag(uint8_t *obj, uint8_t **fragment_out);
/* 1 and the Controlled-Load fragment (at 44, or 80 behind a Guaranteed one) in *fragment_out;
 * 0 with NULL stored when absent; 0 and *fragment_out untouched when the object is invalid. */
RSVP_API int rsvp_adspec_extract_cl_frag(uint8_t *obj, uint8_t **fragment_out);
/* 1 when a fragment of the QoS code (3 or 5) is found by the ADSPEC's fragment step; 0 for
 * any other code, a null object or no match. Does not validate. */
RSVP_API int rsvp_adspec_has_qos_service(uint8_t *obj, uint8_t qos_service);
/* Version nibble of the body; 0 unless rsvp_valid_object accepts the object. */
RSVP_API uint32_t RSVP_ADSPEC_HDR_VERSION(uint8_t *obj);
/* Overall length (words); 0 unless rsvp_valid_object accepts the object. */
RSVP_API uint16_t RSVP_ADSPEC_HDR_LENGTH(uint8_t *obj);
/* Writes the overall length (words); nothing unless rsvp_valid_object accepts the object. */
RSVP_API void RSVP_ADSPEC_HDR_SET_LENGTH(uint8_t *obj, uint16_t length);
/* obj + 8, the general parameters fragment; NULL unless rsvp_valid_object accepts it. */
RSVP_API uint8_t *RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(uint8_t *obj);
/* obj + 44 + offset; NULL unless rsvp_valid_object accepts the object. */
RSVP_API uint8_t *RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(uint8_t *obj, uint32_t offset);
/* IS hop count (word at 16); 0 unless rsvp_valid_object accepts the object. */
RSVP_API uint32_t RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(uint8_t *obj);
/* Path bandwidth as raw float bits (word at 24); 0 unless rsvp_valid_object accepts it. */
RSVP_API uint32_t RSVP_ADSPEC_BANDWIDTH_VAL(uint8_t *obj);
/* Minimum path latency (word at 32); 0 unless rsvp_valid_object accepts the object. */
RSVP_API uint32_t RSVP_ADSPEC_LATENCY_VAL(uint8_t *obj);
/* Service number of a fragment header; 0 for NULL. */
RSVP_API uint32_t RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(uint8_t *frag);
/* The whole break bit byte (byte 1) of a fragment header; 0 for NULL. */
RSVP_API uint32_t RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(uint8_t *frag);
/* Stores value as it stands into byte 1 of a fragment header; nothing for NULL. */
RSVP_API void RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(uint8_t *frag, uint8_t value);
/* Service data length (words) of a fragment header; 0 for NULL. */
RSVP_API uint16_t RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(uint8_t *frag);
/* Writes the service data length (words); nothing for NULL. */
RSVP_API void RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(uint8_t *frag, uint16_t length);
/* The first parameter of a fragment (frag + 4); NULL for NULL. */
RSVP_API uint8_t *RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(uint8_t *frag);
/* The Guaranteed fragment pointer itself. */
RSVP_API uint8_t *RSVP_GTD_FRAG_HDR_PTR(uint8_t *frag);
/* The Controlled-Load fragment pointer itself. */
RSVP_API uint8_t *RSVP_CLOAD_FRAG_HDR_PTR(uint8_t *frag);
/* The Ctot parameter of a Guaranteed fragment (frag + 4); NULL for NULL. */
RSVP_API uint8_t *RSVP_GTD_CTOT_PTR(uint8_t *frag);
/* The Dtot parameter of a Guaranteed fragment (frag + 12); NULL for NULL. */
RSVP_API uint8_t *RSVP_GTD_DTOT_PTR(uint8_t *frag);
/* The Csum parameter of a Guaranteed fragment (frag + 20); NULL for NULL. */
RSVP_API uint8_t *RSVP_GTD_CSUM_PTR(uint8_t *frag);
/* The Dsum parameter of a Guaranteed fragment (frag + 28); NULL for NULL. */
RSVP_API uint8_t *RSVP_GTD_DSUM_PTR(uint8_t *frag);
/* Wire-order IPv4 address at offset 4 of an SBM LAN_NHOP_L3 object; 0 for NULL. */
RSVP_API uint32_t RSVP_SBM_LAN_NHOP_L3_IPV4_ADDR(uint8_t *obj);
/* Wire-order IPv4 address at offset 4 of an SBM DSBM address object; 0 for NULL. */
RSVP_API uint32_t RSVP_SBM_DSBM_IPV4_ADDR(uint8_t *obj);
/* Wire-order IPv4 address at offset 4 of an SBM LAN_LOOPBACK object; 0 for NULL. */
RSVP_API uint32_t RSVP_SBM_LAN_LOOPBACK_IPV4_ADDR(uint8_t *obj);

/* ---- G.709 OTN and SONET/SDH traffic parameters (classes 12 and 9, C-Types 5 and 4) ---- */

/* GMPLS traffic parameters carried by SENDER_TSPEC (class 12) and FLOWSPEC (class 9): the
 * TSPEC and FLOWSPEC forms are the same 16 bytes apart from the class. */
enum {
    RSVP_CTYPE_SENDER_TSPEC_SONET_SDH = 4,
    RSVP_CTYPE_SENDER_TSPEC_G709_OTN = 5,
    RSVP_CTYPE_FLOWSPEC_SONET_SDH = 4,
    RSVP_CTYPE_FLOWSPEC_G709_OTN = 5,
    /* Object length of both layouts, header included. */
    RSVP_GMPLS_TRAFFIC_LEN = 16,
    /* Largest requested contiguous concatenation (RCC) a SONET/SDH builder accepts. */
    RSVP_SONET_SDH_RCC_MAX = 7
};

/* Writes a 16-byte G.709 OTN SENDER_TSPEC; the signal type sits in byte 7 of its word. */
RSVP_API void rsvp_build_g709_otn_tspec(uint8_t *obj, uint8_t signal_type, uint16_t nvc,
                                        uint16_t multiplier, int64_t bit_rate);
/* 1 for a class-12, C-Type-5 object of length 16; 0 otherwise (and for null). */
RSVP_API int rsvp_valid_g709_otn_tspec(uint8_t *obj);
/* 1 after writing all four fields; 0 without writing for a null pointer or an invalid object. */
RSVP_API int rsvp_extract_g709_otn_tspec(uint8_t *obj, uint8_t *signal_type_out, uint16_t *nvc_out,
                                         uint16_t *multiplier_out, int64_t *bit_rate_out);
/* Writes a 16-byte G.709 OTN FLOWSPEC; the signal type sits in byte 7 of its word. */
RSVP_API void rsvp_build_g709_otn_flowspec(uint8_t *obj, uint8_t signal_type, uint16_t nvc,
                                           uint16_t multiplier, int64_t bit_rate);
/* 1 for a class-9, C-Type-5 object of length 16; 0 otherwise (and for null). */
RSVP_API int rsvp_valid_g709_otn_flowspec(uint8_t *obj);
/* 1 after writing all four fields; 0 without writing for a null pointer or an invalid object. */
RSVP_API int rsvp_extract_g709_otn_flowspec(uint8_t *obj, uint8_t *signal_type_out,
                                            uint16_t *nvc_out, uint16_t *multiplier_out,
                                            int64_t *bit_rate_out);

/* Writes a 16-byte SONET/SDH SENDER_TSPEC; an rcc above 7 stops the process. */
RSVP_API void rsvp_build_uni_sonet_sdh_tspec(uint8_t *obj, uint8_t signal_type, uint8_t rcc,
                                             uint16_t ncc, uint16_t nvc, uint16_t multiplier,
                                             uint32_t transparency);
/* 1 for a class-12, C-Type-4 object of length 16; 0 otherwise (and for null). */
RSVP_API int rsvp_valid_uni_sonet_sdh_tspec(uint8_t *obj);
/* 1 after writing all six fields (rcc: low 3 bits); 0 without writing for an invalid or null
 * object. The output pointers must not be null. */
RSVP_API int rsvp_extract_uni_sonet_sdh_tspec(uint8_t *obj, uint8_t *signal_type_out,
                                              uint8_t *rcc_out, uint16_t *ncc_out,
                                              uint16_t *nvc_out, uint16_t *multiplier_out,
                                              uint32_t *transparency_out);
/* Writes a 16-byte SONET/SDH FLOWSPEC; an rcc above 7 stops the process. */
RSVP_API void rsvp_build_uni_sonet_sdh_flowspec(uint8_t *obj, uint8_t signal_type, uint8_t rcc,
                                                uint16_t ncc, uint16_t nvc, uint16_t multiplier,
                                                uint32_t transparency);
/* 1 for a class-9, C-Type-4 object of length 16; 0 otherwise (and for null). */
RSVP_API int rsvp_valid_uni_sonet_sdh_flowspec(uint8_t *obj);
/* 1 after writing all six fields (rcc: low 3 bits); 0 without writing for an invalid or null
 * object. The output pointers must not be null. */
RSVP_API int rsvp_extract_uni_sonet_sdh_flowspec(uint8_t *obj, uint8_t *signal_type_out,
                                                 uint8_t *rcc_out, uint16_t *ncc_out,
                                                 uint16_t *nvc_out, uint16_t *multiplier_out,
                                                 uint32_t *transparency_out);

/* ---- EXPLICIT_ROUTE (class 20) and the route subobject header ---- */
/* Route subobjects (EXPLICIT_ROUTE, RECORD_ROUTE, EXCLUDE_ROUTE): a type byte and a length
 * byte that counts this 2-byte header. EXPLICIT_ROUTE and EXCLUDE_ROUTE put the L bit in front
 * of a 7-bit type; RECORD_ROUTE has no L bit and takes the whole first byte as the type. The
 * types and lengths below mean the same wherever the object accepts them. */
enum {
    RSVP_ROUTE_SUBOBJ_HDR_LEN = 2,
    RSVP_ROUTE_SUBOBJ_L_BIT = 0x80,
    RSVP_ROUTE_SUBOBJ_TYPE_MASK = 0x7f,
    RSVP_ROUTE_SUBOBJ_IPV4 = 1,
    RSVP_ROUTE_SUBOBJ_IPV4_LEN = 8,
    RSVP_ROUTE_SUBOBJ_IPV6 = 2,
    RSVP_ROUTE_SUBOBJ_IPV6_LEN = 20,
    RSVP_ROUTE_SUBOBJ_UNNUM = 4,
    RSVP_ROUTE_SUBOBJ_UNNUM_LEN = 12,
    RSVP_ROUTE_SUBOBJ_SRLG = 34
};
/* EXPLICIT_ROUTE (class 20). L bit set: loose hop; clear: strict hop. */
enum { RSVP_CTYPE_EXPLICIT_ROUTE_SUBOBJECTS = 1 };
enum {
    RSVP_ERO_L_BIT = RSVP_ROUTE_SUBOBJ_L_BIT,
    RSVP_ERO_SUBOBJ_IPV4_PREFIX = RSVP_ROUTE_SUBOBJ_IPV4,
    RSVP_ERO_SUBOBJ_IPV4_PREFIX_LEN = RSVP_ROUTE_SUBOBJ_IPV4_LEN,
    RSVP_ERO_SUBOBJ_IPV6_PREFIX = RSVP_ROUTE_SUBOBJ_IPV6,
    RSVP_ERO_SUBOBJ_IPV6_PREFIX_LEN = RSVP_ROUTE_SUBOBJ_IPV6_LEN,
    RSVP_ERO_SUBOBJ_UNNUM = RSVP_ROUTE_SUBOBJ_UNNUM,
    RSVP_ERO_SUBOBJ_UNNUM_LEN = RSVP_ROUTE_SUBOBJ_UNNUM_LEN,
    RSVP_ERO_SUBOBJ_AS = 32,
    RSVP_ERO_SUBOBJ_AS_LEN = 4
};

/* Writes an empty EXPLICIT_ROUTE header: Length 4, class 20, C-Type 1. */
RSVP_API void rsvp_build_explicit_route(uint8_t *obj);
/* Appends an IPv4 prefix hop (loose when loose is non-zero); 1, or 0 and nothing written for a
 * null object or a Length below 4. The caller provides 8 more bytes. */
RSVP_API int rsvp_add_explicit_route_ipv4(uint8_t *obj, int loose, uint32_t addr,
                                          uint8_t prefix_len);
/* Appends an unnumbered interface hop; 1, or 0 and nothing written for a null object or when
 * a hop to the same router ID and interface ID (loose or strict) is present. Needs 12 bytes. */
RSVP_API int rsvp_add_explicit_route_unnum(uint8_t *obj, int loose, uint32_t router_id,
                                           uint32_t if_id);
/* 1 for a subobject of type 1, 2, 4 or 32 (L bit aside) with its exact length, else 0. */
RSVP_API int rsvp_valid_explicit_route_subobject(uint8_t *sub);
/* 1 for a well-formed EXPLICIT_ROUTE (an overrunning last subobject is accepted), else 0. */
RSVP_API int rsvp_valid_explicit_route(uint8_t *obj);
/* Next valid subobject after prev (the first for NULL) of a valid route; NULL at the end. */
RSVP_API uint8_t *rsvp_extract_ero_next_subobject(uint8_t *obj, uint8_t *prev);
/* Number of strict IPv4 prefix hops (raw type byte 1); 0 for an invalid route. */
RSVP_API uint32_t rsvp_count_ero_subobject_ipv4(uint8_t *obj);
/* Number of strict unnumbered hops (raw type byte 4); 0 for an invalid route. */
RSVP_API uint32_t rsvp_count_ero_subobject_unnum(uint8_t *obj);
/* 1 after writing the address (wire order) and prefix length of a valid IPv4 prefix
 * subobject; 0 and outputs untouched otherwise. */
RSVP_API int rsvp_extract_ero_subobject_ipv4(uint8_t *sub, uint32_t *addr, uint8_t *prefix_len);
/* 1 after writing the router ID (wire order) and interface ID (host order) of a valid
 * unnumbered subobject; 0 and outputs untouched otherwise. */
RSVP_API int rsvp_extract_ero_subobject_unnum(uint8_t *sub, uint32_t *router_id, uint32_t *if_id);
/* 1 after writing the AS number of a valid AS subobject; 0 and output untouched otherwise. */
RSVP_API int rsvp_extract_ero_subobject_as(uint8_t *sub, uint16_t *as_number);
/* 0 for equal subobjects (or the same pointer); 1 for a null one or different lengths; else
 * the byte-wise comparison of the whole subobjects, L bit included. */
RSVP_API int rsvp_compare_explicit_route_subobjects(uint8_t *a, uint8_t *b);
/* Raw type byte (L bit included) of a valid subobject; 0 for an invalid one. */
RSVP_API uint8_t RSVP_ERO_GENERIC_TYPE(uint8_t *sub);
/* Length byte of a valid subobject; 0 for an invalid one. */
RSVP_API uint8_t RSVP_ERO_GENERIC_LENGTH(uint8_t *sub);
/* Writes the wire-order address into bytes 2-5 of a valid subobject; nothing otherwise. */
RSVP_API void RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX(uint8_t *sub, uint32_t addr);
/* Writes the prefix length into byte 6 of a valid subobject; nothing otherwise. */
RSVP_API void RSVP_ERO_SUBOBJ_SET_IPV4_PREFIX_LEN(uint8_t *sub, uint8_t prefix_len);
/* obj + 4 when rsvp_valid_object answers 1 for the object; NULL otherwise. */
RSVP_API uint8_t *RSVP_ERO_FIRST_SUBOBJ(uint8_t *obj);

/* ======================================================================================
 * RECORD_ROUTE (Class-Num 21): the hops a message crossed, newest first. A subobject is
 * Type (the whole first byte: there is no L bit), Length (header included), then its body.
 * ====================================================================================== */
enum { RSVP_CTYPE_RECORD_ROUTE_SUBOBJECTS = 1 };
/* Subobject types. */
enum {
    RSVP_RRO_SUBOBJ_IPV4 = RSVP_ROUTE_SUBOBJ_IPV4,
    RSVP_RRO_SUBOBJ_IPV6 = RSVP_ROUTE_SUBOBJ_IPV6,
    RSVP_RRO_SUBOBJ_LABEL = 3,
    RSVP_RRO_SUBOBJ_UNNUM = RSVP_ROUTE_SUBOBJ_UNNUM,
    RSVP_RRO_SUBOBJ_SRLG = RSVP_ROUTE_SUBOBJ_SRLG
};
/* Subobject lengths: exact for IPv4, IPv6 and unnumbered; label and SRLG subobjects are a
 * 4-byte head and one 4-byte word per label or identifier, at most 62 of them. */
enum {
    RSVP_RRO_IPV4_LEN = RSVP_ROUTE_SUBOBJ_IPV4_LEN,
    RSVP_RRO_IPV6_LEN = RSVP_ROUTE_SUBOBJ_IPV6_LEN,
    RSVP_RRO_UNNUM_LEN = RSVP_ROUTE_SUBOBJ_UNNUM_LEN,
    RSVP_RRO_LABEL_HDR_LEN = 4,
    RSVP_RRO_SRLG_HDR_LEN = 4,
    RSVP_RRO_MAX_VALUES = 62,
    RSVP_RRO_IPV4_PREFIX_LEN = 32
};
/* Flag bits of the IPv4 and unnumbered subobjects, and of the label subobject. The library
 * stores and tests whatever flags the caller gives. */
enum {
    RSVP_RRO_FLAG_LOCAL_PROT_AVAIL = 0x01,
    RSVP_RRO_FLAG_LOCAL_PROT_IN_USE = 0x02,
    RSVP_RRO_FLAG_BANDWIDTH_PROT = 0x04,
    RSVP_RRO_FLAG_NODE_PROT = 0x08,
    RSVP_RRO_LABEL_FLAG_GLOBAL = 0x01
};

/* Writes an empty RECORD_ROUTE: Length 4, Class-Num 21, C-Type 1. */
RSVP_API void rsvp_build_record_route(uint8_t *obj);
/* Inserts an IPv4 subobject (prefix length 32) at the front; obj, or NULL for a null obj.
 * The caller guarantees 8 more bytes of room. */
RSVP_API uint8_t *rsvp_insert_record_route_ipv4(uint8_t *obj, uint32_t addr, uint8_t flags);
/* Inserts an unnumbered interface subobject at the front (its reserved byte is not written);
 * obj, or NULL for a null obj. The caller guarantees 12 more bytes of room. */
RSVP_API uint8_t *rsvp_insert_record_route_unnum(uint8_t *obj, uint32_t router_id, uint32_t if_id,
                                                 uint8_t flags);
/* Inserts a label subobject at the front; obj, or NULL (nothing changed) for a null obj or
 * labels, or a count of 0. A count above 62 corrupts the object: its length byte wraps. */
RSVP_API uint8_t *rsvp_insert_record_route_label(uint8_t *obj, const uint32_t *labels,
                                                 uint16_t count, uint8_t c_type, uint8_t flags);
/* Inserts an SRLG subobject at the front (identifiers written only for a non-null array);
 * obj, or NULL (nothing changed) for a null obj or a count above 62. Only objects of up to
 * 255 bytes are moved correctly: the move uses the low 8 bits of the object Length. */
RSVP_API uint8_t *rsvp_insert_record_route_srlg(uint8_t *obj, const uint32_t *srlgs, uint8_t count);
/* 1 for a well-formed RECORD_ROUTE subobject, 0 otherwise (and for NULL). */
RSVP_API int valid_record_route_subobject(uint8_t *sub);
/* 1 for a well-formed RECORD_ROUTE whose subobjects end exactly at its end, else 0. */
RSVP_API int rsvp_valid_record_route(uint8_t *obj);
/* The subobject after prev (the first for a NULL prev) of a valid RECORD_ROUTE, or NULL. */
RSVP_API uint8_t *rsvp_extract_rro_next_subobject(uint8_t *obj, uint8_t *prev);
/* Number of IPv4 subobjects of a valid RECORD_ROUTE; 0 for an invalid one. */
RSVP_API uint32_t rsvp_count_rro_subobject_ipv4(uint8_t *obj);
/* Number of unnumbered interface subobjects of a valid RECORD_ROUTE; 0 for an invalid one. */
RSVP_API uint32_t rsvp_count_rro_subobject_unnum(uint8_t *obj);
/* 1 and the address (wire order), prefix length and flags of a valid IPv4 subobject; 0 with
 * the outputs untouched otherwise (and when an output pointer is NULL). */
RSVP_API int rsvp_extract_rro_subobject_ipv4(uint8_t *sub, uint32_t *addr, uint8_t *prefix_len,
                                             uint8_t *flags);
/* 1 and the router ID (wire order), interface ID (host order) and flags of a valid unnumbered
 * subobject; 0 with the outputs untouched otherwise (and when an output pointer is NULL). */
RSVP_API int rsvp_extract_rro_subobject_unnum(uint8_t *sub, uint32_t *router_id, uint32_t *if_id,
                                              uint8_t *flags);
/* Number of labels in a valid label subobject; 0 for anything else. */
RSVP_API uint8_t rsvp_extract_rro_subobject_label_count(uint8_t *sub);
/* 1, the count, the labels (host order, into the array *labels points to, room for 62),
 * then flags and C-Type of a valid label subobject; 0 with nothing written for anything else
 * or any NULL pointer. Note the order: flags before C-Type, unlike the insert function. */
RSVP_API int rsvp_extract_rro_subobject_label(uint8_t *sub, uint32_t **labels, uint8_t *count,
                                              uint8_t *flags, uint8_t *c_type);
/* Number of SRLG identifiers in a valid SRLG subobject; 0 for anything else. */
RSVP_API uint8_t rsvp_extract_rro_subobject_srlg_count(uint8_t *sub);
/* 1, the count and the identifiers (host order, room for 62) of a valid SRLG subobject; 0 with
 * nothing written for anything else or a NULL pointer. */
RSVP_API int rsvp_extract_rro_subobject_srlg(uint8_t *sub, uint32_t *srlgs, uint8_t *count);
/* 1 if some IPv4 subobject has every bit of mask in its flags; 0 otherwise. The object is not
 * validated: a last hop is read whole, up to 7 bytes behind the object end. */
RSVP_API int rsvp_rro_check_ipv4_flags(uint8_t *obj, uint8_t mask);
/* 1 if some unnumbered subobject has every bit of mask in its flags; 0 otherwise. The object
 * is not validated: a last hop is read whole, up to 2 bytes behind the object end. */
RSVP_API int rsvp_rro_check_unnum_flags(uint8_t *obj, uint8_t mask);
/* Type byte of a valid RECORD_ROUTE subobject; 0 for an invalid one. */
RSVP_API uint8_t RSVP_RRO_GENERIC_TYPE(uint8_t *sub);
/* Length byte of a valid RECORD_ROUTE subobject; 0 for an invalid one. */
RSVP_API uint8_t RSVP_RRO_GENERIC_LENGTH(uint8_t *sub);

/* ---- EXCLUDE_ROUTE (class 232) ---- */
/* EXCLUDE_ROUTE (class 232). The L bit is 0 or 1 at this interface, 0x80 on the wire. The
 * unnumbered interface subobject is type 6 in this object. */
enum { RSVP_CTYPE_EXCLUDE_ROUTE_SUBOBJECTS = 1 };
enum {
    RSVP_XRO_L_BIT = RSVP_ROUTE_SUBOBJ_L_BIT,
    RSVP_XRO_SUBOBJ_IPV4_PREFIX = RSVP_ROUTE_SUBOBJ_IPV4,
    RSVP_XRO_SUBOBJ_IPV4_PREFIX_LEN = RSVP_ROUTE_SUBOBJ_IPV4_LEN,
    RSVP_XRO_SUBOBJ_UNNUM = 6,
    RSVP_XRO_SUBOBJ_UNNUM_LEN = RSVP_ROUTE_SUBOBJ_UNNUM_LEN,
    RSVP_XRO_SUBOBJ_SRLG = RSVP_ROUTE_SUBOBJ_SRLG,
    RSVP_XRO_SUBOBJ_SRLG_LEN = 8,
    RSVP_XRO_SUBOBJ_LSP = 36,
    RSVP_XRO_SUBOBJ_LSP_LEN = 24
};

/* Writes an empty EXCLUDE_ROUTE header: Length 4, class 232, C-Type 1. */
RSVP_API void rsvp_build_xro(uint8_t *obj);
/* Appends an IPv4 prefix subobject (type 1); 1, or 0 and nothing written when the object is
 * null, shorter than 4 or its subobjects do not end exactly at its end. Needs 8 bytes. */
RSVP_API int rsvp_add_xro_ipv4_subobj(uint8_t *obj, uint8_t l_bit, uint32_t addr,
                                      uint8_t prefix_len, uint8_t attr);
/* Appends an unnumbered interface subobject (type 6); 1, or 0 and nothing written as for the
 * IPv4 append. Needs 12 bytes. */
RSVP_API int rsvp_add_xro_unnum_ifid_subobj(uint8_t *obj, uint8_t l_bit, uint8_t attr,
                                            uint32_t router_id, uint32_t if_id);
/* Appends an SRLG subobject (type 34); 1, or 0 and nothing written as for the IPv4 append.
 * Needs 8 bytes. */
RSVP_API int rsvp_add_xro_srlg_subobj(uint8_t *obj, uint8_t l_bit, uint32_t srlg);
/* Appends an LSP subobject (type 36; addresses and extended tunnel ID in wire order); 1, or 0
 * and nothing written as for the IPv4 append. Needs 24 bytes. */
RSVP_API int rsvp_add_xro_lsp_subobj(uint8_t *obj, uint8_t l_bit, uint8_t attr, uint8_t flags,
                                     uint16_t tunnel_id, uint16_t lsp_id, uint32_t sender,
                                     uint32_t endpoint, uint32_t ext_tunnel_id);
/* Reads an IPv4 prefix subobject without checking it, through each non-null output; 1, or 0
 * for a null subobject. */
RSVP_API int rsvp_extract_xro_ipv4_subobj(uint8_t *sub, uint8_t *l_bit, uint32_t *addr,
                                          uint8_t *prefix_len, uint8_t *attr);
/* Reads an unnumbered interface subobject without checking it, through each non-null output;
 * 1, or 0 for a null subobject. */
RSVP_API int rsvp_extract_xro_unnum_ifid_subobj(uint8_t *sub, uint8_t *l_bit, uint8_t *attr,
                                                uint32_t *router_id, uint32_t *if_id);
/* Reads an SRLG subobject without checking it, through each non-null output; 1, or 0 for a
 * null subobject. */
RSVP_API int rsvp_extract_xro_srlg_subobj(uint8_t *sub, uint8_t *l_bit, uint32_t *srlg);
/* Reads an LSP subobject without checking it, through each non-null output; 1, or 0 for a
 * null subobject. */
RSVP_API int rsvp_extract_xro_lsp_subobj(uint8_t *sub, uint8_t *l_bit, uint8_t *attr,
                                         uint8_t *flags, uint16_t *tunnel_id, uint16_t *lsp_id,
                                         uint32_t *sender, uint32_t *endpoint,
                                         uint32_t *ext_tunnel_id);
/* Next subobject after prev (the first for NULL) that ends inside the object; NULL otherwise.
 * The subobject is not validated; its length byte is read even 1-2 bytes behind the object. */
RSVP_API uint8_t *rsvp_get_xro_next_sub_hdr(uint8_t *obj, uint8_t *prev);
/* 1 for an EXCLUDE_ROUTE whose subobjects are all of a known type and length, else 0. */
RSVP_API int rsvp_valid_xro(uint8_t *obj);
/* Number of subobjects of a valid EXCLUDE_ROUTE; 0 for an invalid one. */
RSVP_API uint32_t rsvp_xro_subobj_count(uint8_t *obj);
/* Length byte of a subobject; 0 for NULL. */
RSVP_API uint8_t RSVP_XRO_SUB_LEN(uint8_t *sub);
/* 1 when the subobject's L bit is set, else 0 (also for NULL). */
RSVP_API uint8_t RSVP_XRO_SUB_LBIT(uint8_t *sub);
/* Type of a subobject, L bit masked off; 0 for NULL. */
RSVP_API uint8_t RSVP_XRO_SUB_TYPE(uint8_t *sub);

/* ======================================================================================
 * LABEL_REQUEST (class 19) and labels: LABEL (16), RECOVERY_LABEL (34), UPSTREAM_LABEL (35),
 * SUGGESTED_LABEL (129). Labels, L3PIDs and G-PIDs cross in host order. A generalized label
 * is any number of 32-bit words; classes 16, 34, 35, 129 and 235 (the LSP wrap label) may
 * carry one, and the generalized functions refuse every other class.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_LABEL = 1,
    RSVP_CTYPE_LABEL_GENERALIZED = 2,
    RSVP_CTYPE_RECOVERY_LABEL_GENERALIZED = 2,
    RSVP_CTYPE_UPSTREAM_LABEL_GENERALIZED = 2,
    RSVP_CTYPE_SUGGESTED_LABEL_GENERALIZED = 2,
    RSVP_CTYPE_LABEL_REQUEST = 1, /* without label range */
    RSVP_CTYPE_LABEL_REQUEST_GENERALIZED = 4,
    /* Object lengths of the plain LABEL and of both LABEL_REQUEST kinds. */
    RSVP_LABEL_LEN = 8,
    RSVP_LABEL_REQUEST_LEN = 8,
    /* Layer-3 protocol identifiers (Ethertypes) of a plain LABEL_REQUEST. */
    RSVP_L3PID_IPV4 = 0x0800,
    RSVP_L3PID_IPV6 = 0x86DD,
    RSVP_L3PID_MPLS = 0x8847,
    /* RSVP_LABEL_TOP_LABEL's answer for no label: one above the largest 20-bit MPLS label. */
    RSVP_LABEL_NO_LABEL = 0x100001
};

/* Writes a generalized label (C-Type 2, Length 4 + 4 x count) of class_num; 1, or 0 with
 * nothing written for a null obj or labels, a count of 0 or a class that carries none. */
RSVP_API int rsvp_generalized_label_build(uint8_t *obj, const uint32_t *labels, uint16_t count,
                                          uint8_t class_num);
/* 1 when obj is of class_num, a class that carries generalized labels, C-Type 2, Length >= 4
 * (not necessarily a multiple of 4); 0 otherwise. */
RSVP_API int rsvp_generalized_label_valid(uint8_t *obj, uint8_t class_num);
/* 1, *count = (Length - 4) / 4 and that many words (host order) into the array *labels points
 * to; 0 with nothing written for a null pointer or an object that fails the validator above. */
RSVP_API int rsvp_generalized_label_extract(uint8_t *obj, uint32_t **labels, uint16_t *count,
                                            uint8_t class_num);
/* rsvp_generalized_label_build for class 16 (LABEL). */
RSVP_API int rsvp_build_generalized_label(uint8_t *obj, const uint32_t *labels, uint16_t count);
/* rsvp_generalized_label_valid for class 16 (LABEL). */
RSVP_API int rsvp_valid_generalized_label(uint8_t *obj);
/* rsvp_generalized_label_extract for class 16 (LABEL). */
RSVP_API int rsvp_extract_generalized_label(uint8_t *obj, uint32_t **labels, uint16_t *count);
/* rsvp_generalized_label_build for class 35 (UPSTREAM_LABEL). */
RSVP_API int rsvp_build_upstream_label(uint8_t *obj, const uint32_t *labels, uint16_t count);
/* rsvp_generalized_label_valid for class 35 (UPSTREAM_LABEL). */
RSVP_API int rsvp_valid_upstream_label(uint8_t *obj);
/* rsvp_generalized_label_extract for class 35 (UPSTREAM_LABEL). */
RSVP_API int rsvp_extract_upstream_label(uint8_t *obj, uint32_t **labels, uint16_t *count);
/* rsvp_generalized_label_build for class 129 (SUGGESTED_LABEL). */
RSVP_API int rsvp_build_suggested_label(uint8_t *obj, const uint32_t *labels, uint16_t count);
/* rsvp_generalized_label_valid for class 129 (SUGGESTED_LABEL). */
RSVP_API int rsvp_valid_suggested_label(uint8_t *obj);
/* rsvp_generalized_label_extract for class 129 (SUGGESTED_LABEL). */
RSVP_API int rsvp_extract_suggested_label(uint8_t *obj, uint32_t **labels, uint16_t *count);
/* rsvp_generalized_label_build for class 34 (RECOVERY_LABEL). */
RSVP_API int rsvp_build_recovery_label(uint8_t *obj, const uint32_t *labels, uint16_t count);
/* rsvp_generalized_label_valid for class 34 (RECOVERY_LABEL). */
RSVP_API int rsvp_valid_recovery_label(uint8_t *obj);
/* rsvp_generalized_label_extract for class 34 (RECOVERY_LABEL). */
RSVP_API int rsvp_extract_recovery_label(uint8_t *obj, uint32_t **labels, uint16_t *count);

/* Writes a plain LABEL (class 16, C-Type 1, Length 8); returns obj. */
RSVP_API uint8_t *rsvp_build_label(uint8_t *obj, uint32_t label);
/* 1 for a class-16 object of Length 8, whatever its C-Type; 0 otherwise. */
RSVP_API int rsvp_valid_label(uint8_t *obj);
/* 1 and the label of an object rsvp_valid_label accepts; 0 with *label untouched otherwise. */
RSVP_API int rsvp_extract_label(uint8_t *obj, uint32_t *label);
/* Overwrites bytes 4-7 with the label, header and Length unchecked; nothing for a null obj. */
RSVP_API void rsvp_set_current_label(uint8_t *obj, uint32_t label);
/* The class-16 validator: C-Type 1 at Length 8, or a generalized LABEL; 0 for other C-Types. */
RSVP_API int rsvp_valid_gen_label(uint8_t *obj);
/* Writes a plain LABEL_REQUEST (class 19, C-Type 1, Length 8, reserved 0). */
RSVP_API void rsvp_build_label_request(uint8_t *obj, uint16_t l3pid);
/* 1 for a class-19 object of Length 8, whatever its C-Type; 0 otherwise. */
RSVP_API int rsvp_valid_label_request(uint8_t *obj);
/* 1 and the L3PID of an object rsvp_valid_label_request accepts; 0, *l3pid untouched, else. */
RSVP_API int rsvp_extract_label_request(uint8_t *obj, uint16_t *l3pid);
/* Writes a generalized LABEL_REQUEST (class 19, C-Type 4, Length 8). */
RSVP_API void rsvp_build_gen_label_req(uint8_t *obj, uint8_t encoding_type, uint8_t switching_type,
                                       uint16_t gpid);
/* 1 for a class-19, C-Type-4 object of Length 8; 0 otherwise. */
RSVP_API int rsvp_valid_gen_label_req(uint8_t *obj);
/* 1 and the three fields of a valid generalized LABEL_REQUEST; 0 with them untouched else. */
RSVP_API int rsvp_extract_gen_label_req(uint8_t *obj, uint8_t *encoding_type,
                                        uint8_t *switching_type, uint16_t *gpid);
/* The class-19 validator: C-Type 1 or 4 at Length 8; 0 for other C-Types. */
RSVP_API int rsvp_valid_gen_label_request(uint8_t *obj);
/* 1 when the C-Type is 1 (a packet-switched LSP's request), class and Length unread; else 0. */
RSVP_API int rsvp_lsp_packet_switched(uint8_t *obj);
/* Label bytes: 4 for C-Type 1, Length - 4 (when above 0) for C-Type 2, 0 otherwise and for
 * null. The class is not looked at. */
RSVP_API uint16_t RSVP_LABEL_LENGTH(uint8_t *obj);
/* The label of an object rsvp_valid_label accepts; RSVP_LABEL_NO_LABEL otherwise. */
RSVP_API uint32_t RSVP_LABEL_TOP_LABEL(uint8_t *obj);
/* dst[i] = htonl(src[i]) for count labels; nothing for null arrays or a zero count. */
RSVP_API void RSVP_COPY_LABEL_HTONL(uint32_t *dst, const uint32_t *src, uint16_t count);
/* dst[i] = ntohl(src[i]) for count labels; nothing for null arrays or a zero count. */
RSVP_API void RSVP_COPY_LABEL_NTOHL(uint32_t *dst, const uint32_t *src, uint16_t count);
/* dst[i] = htonl(src[i]) for count SRLG identifiers; nothing for null arrays or count 0. */
RSVP_API void RSVP_COPY_SRLG_HTONL(uint32_t *dst, const uint32_t *src, uint8_t count);
/* dst[i] = ntohl(src[i]) for count SRLG identifiers; nothing for null arrays or count 0. */
RSVP_API void RSVP_COPY_SRLG_NTOHL(uint32_t *dst, const uint32_t *src, uint8_t count);

/* ======================================================================================
 * LABEL_SET (class 36) and ACCEPTABLE_LABEL_SET (class 130): an action, a label type and the
 * labels it applies to, in host order at this interface.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_LABEL_SET = 1,
    RSVP_CTYPE_ACCEPTABLE_LABEL_SET = 1,
    /* Length of the object without labels. */
    RSVP_LABEL_SET_HDR_LEN = 8,
    /* Actions. A range carries exactly a start and an end label. */
    RSVP_LABEL_SET_INCLUSIVE_LIST = 0,
    RSVP_LABEL_SET_EXCLUSIVE_LIST = 1,
    RSVP_LABEL_SET_INCLUSIVE_RANGE = 2,
    RSVP_LABEL_SET_EXCLUSIVE_RANGE = 3,
    /* Label types (the C-Type of the LABEL the labels belong to), a 14-bit field. */
    RSVP_LABEL_SET_TYPE_LABEL = 1,
    RSVP_LABEL_SET_TYPE_GENERALIZED = 2,
    RSVP_LABEL_SET_TYPE_MASK = 0x3FFF
};

/* Writes an empty LABEL_SET (class 36, C-Type 1, Length 8), label type masked to 14 bits;
 * returns obj. */
RSVP_API uint8_t *rsvp_build_label_set_obj(uint8_t *obj, uint8_t action, uint16_t label_type);
/* Appends a label behind the last whole label and adds 4 to the Length; nothing for a null
 * obj or a Length below 8. The caller guarantees 4 bytes of room. */
RSVP_API void rsvp_add_label_set_obj(uint8_t *obj, uint32_t label);
/* The class-36 validator: C-Type 1, Length above 8 and at least 12 (lists) or 16 (ranges),
 * action 0-3, byte 7 (the low byte of the label type alone) 1 or 2; 0 otherwise. */
RSVP_API int rsvp_valid_label_set_obj(uint8_t *obj);
/* 1, a pointer to the first label (still in network order, inside obj), the count (8 bits),
 * action and 14-bit label type of a valid class-36 object; 0 with nothing written otherwise. */
RSVP_API int rsvp_extract_label_set_obj(uint8_t *obj, uint32_t **labels, uint8_t *count,
                                        uint8_t *action, uint16_t *label_type);
/* Writes a label set of class_num with count labels; nothing is checked. */
RSVP_API void rsvp_build_32bit_label_set(uint8_t *obj, uint8_t class_num, uint16_t label_type,
                                         uint8_t action, uint32_t count, const uint32_t *labels);
/* 1 for an object of class_num (36 or 130 only), C-Type 1, Length >= 9, 14-bit label type 1
 * or 2, and at least 1 label for a list or exactly 2 for a range; 0 otherwise. */
RSVP_API int rsvp_valid_32bit_label_set_obj(uint8_t *obj, uint16_t class_num);
/* The class-130 validator: rsvp_valid_32bit_label_set_obj for class 130. */
RSVP_API int rsvp_valid_acceptable_label_set(uint8_t *obj);
/* 1, the action and the label count of a valid label set of class_num; 0 with nothing
 * written otherwise (and for a null output). */
RSVP_API int rsvp_extract_32bit_label_set_obj(uint8_t *obj, uint16_t class_num, uint8_t *action,
                                              uint32_t *count);
/* 1 and the labels (host order) of a valid label set of class_num holding exactly
 * expected_count labels; 0 with nothing written otherwise (and for a null array). */
RSVP_API int rsvp_extract_32bit_label_set_obj_labels(uint8_t *obj, uint16_t class_num,
                                                     uint32_t expected_count, uint32_t *labels);

/* ======================================================================================
 * SONET/SDH labels: generalized LABEL (class 16) and UPSTREAM_LABEL (class 35) words that
 * carry a time slot as S (16 bits), U, K, L and M (4 bits each).
 * ====================================================================================== */
enum {
    RSVP_SONET_SDH_NIBBLE_LIMIT = 16, /* U, K, L and M stay below this */
    /* A word read as a host number is S << 16 | U << 12 | K << 8 | L << 4 | M. */
    RSVP_SONET_SDH_S_SHIFT = 16,
    RSVP_SONET_SDH_U_SHIFT = 12,
    RSVP_SONET_SDH_K_SHIFT = 8,
    RSVP_SONET_SDH_L_SHIFT = 4
};

/* Writes an empty generalized LABEL (class 16, C-Type 2, Length 4). */
RSVP_API void rsvp_build_gen_label_sonet_sdh(uint8_t *obj);
/* Appends the word S, U, K, L, M unless an equal word is present; 1, or 0 with nothing
 * written for a null obj, a Length below 4 or a duplicate. Class and C-Type are not checked;
 * U, K, L or M of 16 or more stops the process. The caller guarantees 4 bytes of room. */
RSVP_API int rsvp_add_gen_label_sonet_sdh(uint8_t *obj, uint16_t s, uint32_t u, uint32_t k,
                                          uint32_t l, uint32_t m);
/* 1 for a class-16 object of C-Type 2 and Length >= 4; 0 otherwise. */
RSVP_API int rsvp_valid_gen_label_sonet_sdh(uint8_t *obj);
/* 1 and the fields of word index (counted from 0, yet index 0 stops the process) of a valid
 * object; 0 with nothing written for an index past the last word or an invalid object. */
RSVP_API int rsvp_extract_gen_label_sonet_sdh(uint8_t *obj, uint32_t index, uint32_t *s,
                                              uint32_t *u, uint32_t *k, uint32_t *l, uint32_t *m);
/* Writes an empty UPSTREAM_LABEL (class 35, C-Type 2, Length 4). */
RSVP_API void rsvp_build_upstream_label_sonet_sdh(uint8_t *obj);
/* As rsvp_add_gen_label_sonet_sdh, for an UPSTREAM_LABEL. */
RSVP_API int rsvp_add_upstream_label_sonet_sdh(uint8_t *obj, uint16_t s, uint32_t u, uint32_t k,
                                               uint32_t l, uint32_t m);
/* 1 for a class-35 object of C-Type 2 and Length >= 4; 0 otherwise. */
RSVP_API int rsvp_valid_upstream_label_sonet_sdh(uint8_t *obj);
/* As rsvp_extract_gen_label_sonet_sdh, for an UPSTREAM_LABEL. */
RSVP_API int rsvp_extract_upstream_label_sonet_sdh(uint8_t *obj, uint32_t index, uint32_t *s,
                                                   uint32_t *u, uint32_t *k, uint32_t *l,
                                                   uint32_t *m);

/* ======================================================================================
 * SESSION_ATTRIBUTE (Class-Num 207): setup and holding priorities, session flags, the
 * session name and, in C-Type 1, the three resource-affinity masks. C-Type 7 is built;
 * C-Type 1 is validated and extracted only. The name is not NUL-terminated.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL_RA = 1,
    RSVP_CTYPE_SESSION_ATTRIBUTE_LSP_TUNNEL = 7
};
/* Shortest valid objects, the highest priority, and what the builder adds to the name: 20
 * bytes, so that a built object always ends with 12 zero bytes beyond the padded name. */
enum {
    RSVP_SESSION_ATTRIBUTE_MIN_LEN = 8,
    RSVP_SESSION_ATTRIBUTE_RA_MIN_LEN = 20,
    RSVP_SESSION_ATTRIBUTE_BUILD_OVERHEAD = 20,
    RSVP_SESSION_ATTRIBUTE_PRIORITY_MAX = 7
};
/* Session flags. The library interprets only local protection desired; the others are names
 * for the caller and pass through untouched. */
enum {
    RSVP_SESSION_ATTRIBUTE_FLAG_LOCAL_PROTECTION = 0x01,
    RSVP_SESSION_ATTRIBUTE_FLAG_LABEL_RECORDING = 0x02,
    RSVP_SESSION_ATTRIBUTE_FLAG_SE_STYLE = 0x04,
    RSVP_SESSION_ATTRIBUTE_FLAG_BANDWIDTH_PROTECTION = 0x08,
    RSVP_SESSION_ATTRIBUTE_FLAG_NODE_PROTECTION = 0x10,
    RSVP_SESSION_ATTRIBUTE_FLAG_PATH_REEVALUATION = 0x20
};

/* Writes a C-Type 7 object of Length name_length + 20 rounded up to a word, zero-filled, and
 * copies the name to offset 8. The buffer must hold name_length + 23 bytes. */
RSVP_API void rsvp_build_session_attribute(uint8_t *obj, uint8_t setup_priority,
                                           uint8_t holding_priority, uint8_t flags,
                                           uint8_t name_length, const char *name);
/* 1 for class 207, C-Type 7 (Length >= 8) or 1 (Length >= 20), priorities <= 7; else 0.
 * Writes into the object: a name length that does not fit is clamped to the room left. */
RSVP_API int rsvp_valid_session_attribute(uint8_t *obj);
/* 1 and the fields of a valid object (name: pointer into the object; masks in host order, 0
 * for C-Type 7); 0, outputs untouched, otherwise. Null outputs are skipped. */
RSVP_API int rsvp_extract_session_attribute(uint8_t *obj, uint8_t *setup_priority,
                                            uint8_t *holding_priority, uint8_t *flags,
                                            uint8_t *name_length, const char **name,
                                            uint32_t *exclude_any, uint32_t *include_any,
                                            uint32_t *include_all);
/* 1 when the local-protection-desired flag of a C-Type 7 or 1 object is set; 0 otherwise and
 * for NULL. The object is not validated. */
RSVP_API int rsvp_session_attribute_protected(uint8_t *obj);
/* Flags byte of a valid SESSION_ATTRIBUTE; 0 otherwise. */
RSVP_API uint32_t RSVP_SESSION_ATTRIBUTE_FLAGS(uint8_t *obj);
/* Writes the flags byte (offset 6 for C-Type 7, 18 for C-Type 1) of any object that
 * rsvp_valid_object accepts; nothing otherwise. */
RSVP_API void RSVP_SESSION_ATTRIBUTE_SET_FLAGS(uint8_t *obj, uint8_t flags);

/* ======================================================================================
 * PROTECTION (Class-Num 37, C-Type 2, Length 12) and the private protection object
 * (Class-Num 190, C-Type 252): the same 8-byte body of recovery flags; the private object
 * carries WTR, HOFF and SNC subobjects behind it (16-bit type, 16-bit length with header).
 * ====================================================================================== */
enum { RSVP_CTYPE_PROTECTION_END_TO_END = 2, RSVP_CTYPE_PVT_PROTECTION = 252 };
enum { RSVP_PROTECTION_LEN = 12, RSVP_PVT_PROTECTION_SUBOBJ_HDR_LEN = 4 };
/* Private subobject types and their exact lengths; each type appears at most once. */
enum {
    RSVP_PVT_PROTECTION_SUBOBJ_WTR = 1,
    RSVP_PVT_PROTECTION_SUBOBJ_HOFF = 2,
    RSVP_PVT_PROTECTION_SUBOBJ_SNC = 3,
    RSVP_PVT_PROTECTION_WTR_LEN = 8,
    RSVP_PVT_PROTECTION_HOFF_LEN = 8,
    RSVP_PVT_PROTECTION_SNC_LEN = 12,
    RSVP_PVT_PROTECTION_SNC_MODE_MASK = 7
};
/* Values of the 6-bit LSP flags (protection type) and link flags. */
enum {
    RSVP_PROTECTION_LSP_UNPROTECTED = 0x00,
    RSVP_PROTECTION_LSP_REROUTING = 0x01,
    RSVP_PROTECTION_LSP_REROUTING_NO_EXTRA = 0x02,
    RSVP_PROTECTION_LSP_1_N_EXTRA = 0x04,
    RSVP_PROTECTION_LSP_1_1_UNIDIR = 0x08,
    RSVP_PROTECTION_LSP_1_1_BIDIR = 0x10,
    RSVP_PROTECTION_LINK_EXTRA_TRAFFIC = 0x01,
    RSVP_PROTECTION_LINK_UNPROTECTED = 0x02,
    RSVP_PROTECTION_LINK_SHARED = 0x04,
    RSVP_PROTECTION_LINK_DEDICATED_1_1 = 0x08,
    RSVP_PROTECTION_LINK_DEDICATED_1_PLUS_1 = 0x10,
    RSVP_PROTECTION_LINK_ENHANCED = 0x20,
    RSVP_PROTECTION_FLAGS_MASK = 0x3f
};

/* Writes the header only (Length 12, class 37, C-Type 2); the caller sets or zeroes the body. */
RSVP_API void rsvp_build_protection(uint8_t *obj);
/* Writes the header only (Length 12, class 190, C-Type 252); the body is not cleared. */
RSVP_API void rsvp_build_pvt_protection(uint8_t *obj);
/* 1 for class 37, C-Type 2 and Length exactly 12; else 0. */
RSVP_API int rsvp_valid_protection(uint8_t *obj);
/* 1 for class 190, C-Type 252, Length >= 12 and valid subobjects (the last one may run past
 * the Length); else 0. */
RSVP_API int rsvp_valid_pvt_protection(uint8_t *obj);
/* Appends a WTR subobject; 1, or 0 and nothing written for an invalid object or a second
 * WTR. The Length grows in its low byte only (a carry is lost). */
RSVP_API int rsvp_add_pvt_protection_wtr(uint8_t *obj, uint32_t value);
/* Appends a HOFF subobject; as rsvp_add_pvt_protection_wtr. */
RSVP_API int rsvp_add_pvt_protection_hoff(uint8_t *obj, uint32_t value);
/* Appends an SNC subobject with the low 3 bits of each mode, merged into the bytes the buffer
 * already holds (zero it first); as rsvp_add_pvt_protection_wtr. */
RSVP_API int rsvp_add_pvt_protection_snc(uint8_t *obj, uint8_t mode1, uint8_t mode2);
/* The valid subobject after current (the first for NULL) of a valid object; NULL otherwise. */
RSVP_API uint8_t *rsvp_extract_pvt_protection_next_subobject(uint8_t *obj, uint8_t *current);
/* 1 and the value (host order) of a valid WTR subobject; 0, output untouched, otherwise. */
RSVP_API int rsvp_extract_pvt_protection_wtr(uint8_t *sub, uint32_t *value);
/* 1 and the value (host order) of a valid HOFF subobject; 0, output untouched, otherwise. */
RSVP_API int rsvp_extract_pvt_protection_hoff(uint8_t *sub, uint32_t *value);
/* 1 and both modes of a valid SNC subobject; 0, outputs untouched, otherwise. */
RSVP_API int rsvp_extract_pvt_protection_snc(uint8_t *sub, uint8_t *mode1, uint8_t *mode2);
/* 1 for a WTR or HOFF subobject of length 8 or an SNC subobject of length 12; else 0. */
RSVP_API int rsvp_valid_pvt_protection_subobject(uint8_t *sub);

/* PROTECTION accessors: getters answer 0 unless rsvp_valid_protection accepts the object;
 * setters then write nothing. Bit setters set for any non-zero value; flag-field setters keep
 * the low 6 bits and the reserved bits above them. */
/* S (secondary) bit. */
RSVP_API uint32_t RSVP_PROTECTION_S(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_S(uint8_t *obj, int value);
/* P (protecting) bit. */
RSVP_API uint32_t RSVP_PROTECTION_P(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_P(uint8_t *obj, int value);
/* N (notification) bit. */
RSVP_API uint32_t RSVP_PROTECTION_N(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_N(uint8_t *obj, int value);
/* O (operational) bit. */
RSVP_API uint32_t RSVP_PROTECTION_O(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_O(uint8_t *obj, int value);
/* LSP flags, 0..63. */
RSVP_API uint32_t RSVP_PROTECTION_LSP_FLAGS(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_LSP_FLAGS(uint8_t *obj, uint8_t flags);
/* Link flags, 0..63. */
RSVP_API uint32_t RSVP_PROTECTION_LINK_FLAGS(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_LINK_FLAGS(uint8_t *obj, uint8_t flags);
/* I (in-place) bit. */
RSVP_API uint32_t RSVP_PROTECTION_I(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_I(uint8_t *obj, int value);
/* R (revertive) bit. */
RSVP_API uint32_t RSVP_PROTECTION_R(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_R(uint8_t *obj, int value);
/* Segment flags, 0..63. */
RSVP_API uint32_t RSVP_PROTECTION_SEG_FLAGS(uint8_t *obj);
RSVP_API void RSVP_PROTECTION_SET_SEG_FLAGS(uint8_t *obj, uint8_t flags);

/* The same accessors for the private object: they act only when rsvp_valid_pvt_protection
 * accepts it. */
/* S (secondary) bit. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_S(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_S(uint8_t *obj, int value);
/* P (protecting) bit. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_P(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_P(uint8_t *obj, int value);
/* N (notification) bit. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_N(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_N(uint8_t *obj, int value);
/* O (operational) bit. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_O(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_O(uint8_t *obj, int value);
/* LSP flags, 0..63. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_LSP_FLAGS(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_LSP_FLAGS(uint8_t *obj, uint8_t flags);
/* Link flags, 0..63. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_LINK_FLAGS(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_LINK_FLAGS(uint8_t *obj, uint8_t flags);
/* I (in-place) bit. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_I(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_I(uint8_t *obj, int value);
/* R (revertive) bit. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_R(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_R(uint8_t *obj, int value);
/* Segment flags, 0..63. */
RSVP_API uint32_t RSVP_PVT_PROTECTION_SEG_FLAGS(uint8_t *obj);
RSVP_API void RSVP_PVT_PROTECTION_SET_SEG_FLAGS(uint8_t *obj, uint8_t flags);

/* Type (host order) of a valid private subobject; 0 otherwise. */
RSVP_API uint16_t RSVP_PVT_PROTECTION_SUBOBJ_TYPE(uint8_t *sub);
/* Length (host order) of a valid private subobject; 0 otherwise. */
RSVP_API uint16_t RSVP_PVT_PROTECTION_SUBOBJ_LENGTH(uint8_t *sub);
/* 1 and both modes of a valid SNC subobject; 0, outputs untouched, otherwise. */
RSVP_API int RSVP_PVT_PROTECTION_SNC_SUBOBJ_MODE(uint8_t *sub, uint8_t *mode1, uint8_t *mode2);
/* Merges the low 3 bits of each mode into a valid SNC subobject; nothing otherwise. */
RSVP_API void RSVP_PVT_PROTECTION_SET_SNC_SUBOBJ_MODE(uint8_t *sub, uint8_t mode1, uint8_t mode2);

/* ======================================================================================
 * LSP_ATTRIBUTES (Class-Num 197) and LSP_REQUIRED_ATTRIBUTES (67), C-Type 1: a run of TLVs
 * (16-bit type, 16-bit length with header). The Attribute Flags TLV carries flag n as the
 * interface value 1 << n, bit-reversed into the wire word.
 * ====================================================================================== */
enum { RSVP_CTYPE_LSP_ATTRIBUTES = 1 };
enum {
    RSVP_LSP_ATTR_TLV_HDR_LEN = 4,
    RSVP_LSP_ATTR_TLV_ATTRIBUTE_FLAGS = 1,
    RSVP_LSP_ATTR_ATTRIBUTE_FLAGS_TLV_LEN = 8
};
/* Attribute flags as interface values (flag n is 1 << n). */
enum {
    RSVP_LSP_ATTR_FLAG_E2E_REROUTING = 1 << 0,
    RSVP_LSP_ATTR_FLAG_BOUNDARY_REROUTING = 1 << 1,
    RSVP_LSP_ATTR_FLAG_SEGMENT_REROUTING = 1 << 2,
    RSVP_LSP_ATTR_FLAG_LSP_INTEGRITY = 1 << 3,
    RSVP_LSP_ATTR_FLAG_CONTIGUOUS_LSP = 1 << 4,
    RSVP_LSP_ATTR_FLAG_STITCHING = 1 << 5,
    RSVP_LSP_ATTR_FLAG_PRE_PLANNED = 1 << 6,
    RSVP_LSP_ATTR_FLAG_NON_PHP = 1 << 7,
    RSVP_LSP_ATTR_FLAG_OOB_MAPPING = 1 << 8,
    RSVP_LSP_ATTR_FLAG_ENTROPY_LABEL = 1 << 9
};

/* Writes an empty object (Length 4, C-Type 1): class 67 when required is non-zero, else 197. */
RSVP_API void rsvp_build_lsp_attributes(uint8_t *obj, int required);
/* 1 for class 197 or 67, C-Type 1, whose TLVs (each >= 4 bytes) end exactly at the Length;
 * else 0. */
RSVP_API int rsvp_valid_lsp_attributes(uint8_t *obj);
/* Appends an Attribute Flags TLV and grows the Length by 8; 1, or 0 and nothing written. The
 * TLV lengths already present are read unconverted, so on a little-endian host it succeeds only
 * on an empty object: add it first. Give it only objects rsvp_valid_lsp_attributes accepts. */
RSVP_API int rsvp_add_lsp_attr_attribute_flags_tlv(uint8_t *obj, uint32_t flags);
/* 1 and the bit-reversed word at TLV offset 4 (any TLV type); 0, untouched, for NULL args. */
RSVP_API int rsvp_extract_lsp_attr_attribute_flags_tlv(uint8_t *tlv, uint32_t *flags);
/* obj + 4 for a NULL current (even in an empty object: check the Length), else the TLV after
 * current inside the object; NULL at the end or for an invalid object. */
RSVP_API uint8_t *rsvp_get_lsp_attr_next_tlv(uint8_t *obj, uint8_t *current);
/* TLV type in host order; 0 for NULL. */
RSVP_API uint16_t RSVP_LSP_ATTR_TLV_TYPE(uint8_t *tlv);
/* TLV length in host order; 0 for NULL. */
RSVP_API uint16_t RSVP_LSP_ATTR_TLV_LEN(uint8_t *tlv);

/* ======================================================================================
 * DIFFSERV (Class-Num 65). E-LSP (C-Type 1): MAPnb in bits 31..28 of the word at offset 4,
 * then MAPnb entries of PHBID (bits 31..16) and EXP (bits 15..13). L-LSP (C-Type 2): PSC in
 * bits 31..16 of the word at offset 4. Bit positions are this library's, not the RFC drawing.
 * ====================================================================================== */
enum { RSVP_CTYPE_DIFFSERV_E_LSP = 1, RSVP_CTYPE_DIFFSERV_L_LSP = 2 };
enum {
    RSVP_DIFFSERV_HDR_LEN = 8,
    RSVP_DIFFSERV_MAP_ENTRY_LEN = 4,
    RSVP_DIFFSERV_MAX_MAP_ENTRIES = 8,
    RSVP_DIFFSERV_NO_EXP = 9
};

/* 1 for class 65: C-Type 1 with MAPnb <= 8 and Length 8 + 4 x MAPnb, or C-Type 2 with Length 8;
 * else 0. */
RSVP_API int rsvp_valid_diffserv(uint8_t *obj);
/* The Length the object must have for c_type: 8 + 4 x MAPnb (1), 8 (2); 0 otherwise or NULL. */
RSVP_API uint16_t rsvp_diffserv_length(uint8_t *obj, uint8_t c_type);
/* 1, MAPnb and that many entries copied unconverted (wire order); 0 for a NULL pointer. Not
 * validated: validate first, or give room for 15 entries. */
RSVP_API int rsvp_extract_diffserv_e_lsp(uint8_t *obj, uint8_t *map_count, uint32_t *entries);
/* EXP (0..7) of entry index; 9 for NULL. The index is not bounded: keep it below MAPnb of a
 * validated object. */
RSVP_API uint8_t rsvp_diffserv_get_exp(uint8_t *obj, uint8_t index);
/* PHBID of entry index; 0 for NULL. The index is not bounded, as for rsvp_diffserv_get_exp. */
RSVP_API uint16_t rsvp_diffserv_get_phbid(uint8_t *obj, uint8_t index);
/* 1 and the PSC (host order); 0, untouched, for a NULL pointer. Not validated. */
RSVP_API int rsvp_extract_diffserv_l_lsp(uint8_t *obj, uint16_t *psc);

/* ======================================================================================
 * CLASSTYPE (Class-Num 66, C-Type 1, Length 8): the DiffServ-TE class type in the low 3 bits
 * of the word at offset 4.
 * ====================================================================================== */
enum { RSVP_CTYPE_CLASSTYPE = 1 };
enum { RSVP_CLASSTYPE_LEN = 8, RSVP_CLASSTYPE_MASK = 7 };

/* Writes Length 8, class 66, C-Type 1 and class_type AND 7 (reserved bits zero). */
RSVP_API void rsvp_build_class_type(uint8_t *obj, uint8_t class_type);
/* 1 for class 66 and C-Type 1, whatever the Length; else 0. */
RSVP_API int rsvp_valid_class_type(uint8_t *obj);
/* Low 3 bits of the word at offset 4; no NULL or Length check (a 4-byte object is read past
 * its end). */
RSVP_API uint8_t rsvp_get_class_type(uint8_t *obj);

/* ======================================================================================
 * Refresh reduction: MESSAGE_ID (23), MESSAGE_ID_ACK/NACK (24), MESSAGE_ID_LIST (25), and
 * telling a refresh from a trigger. Epochs are 24-bit; identifiers cross in host order.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_MESSAGE_ID = 1,
    RSVP_CTYPE_MESSAGE_ID_ACK = 1,
    RSVP_CTYPE_MESSAGE_ID_NACK = 2,
    RSVP_CTYPE_MESSAGE_ID_LIST = 1,
    /* Accepted on receipt, never built: the source-list forms. */
    RSVP_CTYPE_MESSAGE_ID_SRC_LIST_IPV4 = 2,
    RSVP_CTYPE_MESSAGE_ID_SRC_LIST_IPV6 = 3,
    RSVP_MESSAGE_ID_LEN = 12,
    RSVP_MESSAGE_ID_LIST_HDR_LEN = 8,
    RSVP_MESSAGE_ID_FLAG_ACK_DESIRED = 0x01,
    RSVP_MESSAGE_ID_EPOCH_MAX = 0xFFFFFF
};

/* Writes MESSAGE_ID (Length 12). Stops the process for a NULL buffer or an epoch above
 * 0xFFFFFF (the header is written by then). */
RSVP_API void rsvp_build_message_id(uint8_t *buffer, uint32_t message_id, uint32_t epoch,
                                    uint8_t flags);
/* Writes MESSAGE_ID_ACK (C-Type 1, flags 0). Stops the process for a NULL buffer or an epoch
 * above 0xFFFFFF. */
RSVP_API void rsvp_build_message_id_ack(uint8_t *buffer, uint32_t message_id, uint32_t epoch);
/* Writes MESSAGE_ID_NACK (class 24, C-Type 2, flags 0); stops the process as the ACK does. */
RSVP_API void rsvp_build_message_id_nack(uint8_t *buffer, uint32_t message_id, uint32_t epoch);
/* Writes the 8-byte head of an empty MESSAGE_ID_LIST (not yet valid). Stops the process for an
 * epoch above 0xFFFFFF; the buffer is not tested for NULL. */
RSVP_API void rsvp_build_message_id_list(uint8_t *buffer, uint32_t epoch, uint8_t flags);
/* Appends an identifier behind the last whole one and grows the Length by 4, without limit;
 * nothing for a NULL object or a Length below 8. */
RSVP_API void rsvp_add_message_id_list(uint8_t *list, uint32_t message_id);
/* 1 for class 23, C-Type 1, Length 12, else 0. */
RSVP_API int rsvp_valid_message_id(uint8_t *obj);
/* 1 for class 24, C-Type 1 or 2, Length 12, else 0. */
RSVP_API int rsvp_valid_message_id_ack(uint8_t *obj);
/* 1 for class 25, C-Type 1, 2 or 3 and a Length above 8 (at least one identifier), else 0. */
RSVP_API int rsvp_valid_message_id_list(uint8_t *obj);
/* Flags byte of a valid object; 0 otherwise. */
RSVP_API uint8_t RSVP_MESSAGE_ID_FLAGS(uint8_t *obj);
/* Epoch (low 24 bits of the word at offset 4) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_MESSAGE_ID_EPOCH(uint8_t *obj);
/* Message identifier (host order) of a valid object; 0 otherwise. */
RSVP_API uint32_t RSVP_MESSAGE_ID_MSGID(uint8_t *obj);
/* Flags byte of a valid list; 0 otherwise. */
RSVP_API uint8_t RSVP_MESSAGE_ID_LIST_FLAGS(uint8_t *obj);
/* Epoch of a valid list; 0 otherwise. */
RSVP_API uint32_t RSVP_MESSAGE_ID_LIST_EPOCH(uint8_t *obj);
/* Identifier at index (host order) of a valid list, unbounded by the Length: the caller keeps
 * index below (Length - 8) / 4. 0 for an invalid object. */
RSVP_API uint32_t RSVP_MESSAGE_ID_LIST_MSGID(uint8_t *obj, uint32_t index);

/* 0 when run b repeats run a byte for byte once a leading INTEGRITY and then a leading
 * MESSAGE_ID are skipped in each; 1 for any other difference, a NULL run, or a skipped object
 * longer than its run. The same pointer twice answers 0. */
RSVP_API int rsvp_objects_is_not_refresh(uint8_t *objs_a, uint32_t len_a, uint8_t *objs_b,
                                         uint32_t len_b);

/* ======================================================================================
 * HELLO (Class-Num 22) and RESTART_CAP (Class-Num 131). Instances and times cross in host
 * order; the extractors read fixed offsets without validating: validate first.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_HELLO_REQUEST = 1,
    RSVP_CTYPE_HELLO_ACK = 2,
    RSVP_HELLO_LEN = 12,
    RSVP_CTYPE_RESTART_CAP = 1, /* written by the builder; any C-Type is accepted */
    RSVP_RESTART_CAP_LEN = 12
};

/* Writes a HELLO REQUEST (C-Type 1, Length 12); no NULL test. */
RSVP_API void rsvp_build_hello_request(uint8_t *buffer, uint32_t source_instance,
                                       uint32_t destination_instance);
/* Writes a HELLO ACK (C-Type 2, Length 12); no NULL test. */
RSVP_API void rsvp_build_hello_ack(uint8_t *buffer, uint32_t source_instance,
                                   uint32_t destination_instance);
/* 1 for class 22, C-Type 1 or 2, Length 12, else 0. */
RSVP_API int rsvp_valid_hello(uint8_t *obj);
/* 1 and the source instance (offset 4) of an object it does not check; 0, output untouched,
 * for a NULL pointer. */
RSVP_API int rsvp_extract_hello_src_instance(uint8_t *obj, uint32_t *source_instance);
/* 1 and the destination instance (offset 8), unchecked; 0, output untouched, for NULL. */
RSVP_API int rsvp_extract_hello_dst_instance(uint8_t *obj, uint32_t *destination_instance);
/* 1 and the C-Type byte (1 request, 2 ack), unchecked; 0, output untouched, for NULL. */
RSVP_API int rsvp_extract_hello_msg_type(uint8_t *obj, uint8_t *msg_type);
/* Writes a RESTART_CAP (C-Type 1, Length 12); no NULL test. */
RSVP_API void rsvp_build_restart_cap(uint8_t *buffer, uint32_t restart_time,
                                     uint32_t recovery_time);
/* 1 for class 131 and Length 12, whatever the C-Type, else 0. */
RSVP_API int rsvp_valid_restart_cap(uint8_t *obj);
/* 1 and the restart time (offset 4), unchecked; 0, output untouched, for a NULL pointer. */
RSVP_API int rsvp_extract_restart_cap_restart_time(uint8_t *obj, uint32_t *restart_time);
/* 1 and the recovery time (offset 8), unchecked; 0, output untouched, for a NULL pointer. */
RSVP_API int rsvp_extract_restart_cap_recovery_time(uint8_t *obj, uint32_t *recovery_time);

/* ======================================================================================
 * ASSOCIATION (Class-Num 199): ties an LSP to others (recovery, resource sharing,
 * bidirectional LSPs). Type and ID cross in host order; source addresses in wire order,
 * exactly as the caller hands them; the global association source and the extended IDs in
 * host order.
 * ====================================================================================== */
enum {
    RSVP_CTYPE_ASSOCIATION_IPV4 = 1,
    RSVP_CTYPE_ASSOCIATION_IPV6 = 2,
    RSVP_CTYPE_ASSOCIATION_IPV4_EXT = 3,
    RSVP_CTYPE_ASSOCIATION_IPV6_EXT = 4
};
/* Lengths: exact for the plain forms, the fixed part of the extended forms (each extended ID
 * adds 4). The IPv6 extended fixed part is reckoned as 32 bytes although its IDs start at 28,
 * so its Length counts 4 bytes behind the last ID that the builder never writes. */
enum {
    RSVP_ASSOCIATION_IPV4_LEN = 12,
    RSVP_ASSOCIATION_IPV6_LEN = 24,
    RSVP_ASSOCIATION_IPV4_EXT_LEN = 16,
    RSVP_ASSOCIATION_IPV6_EXT_LEN = 32,
    RSVP_ASSOCIATION_IPV4_EXT_IDS_OFFSET = 16,
    RSVP_ASSOCIATION_IPV6_EXT_IDS_OFFSET = 28
};
/* Association types. */
enum {
    RSVP_ASSOCIATION_TYPE_RECOVERY = 1,
    RSVP_ASSOCIATION_TYPE_RESOURCE_SHARING = 2,
    RSVP_ASSOCIATION_TYPE_DOUBLE_SIDED_BIDIR = 3,
    RSVP_ASSOCIATION_TYPE_SINGLE_SIDED_BIDIR = 4
};

/* Writes a 12-byte IPv4 ASSOCIATION; 1, or 0 for a null buffer. */
RSVP_API int rsvp_build_association_ipv4(uint8_t *obj, uint16_t type, uint16_t id, uint32_t source);
/* Writes a 24-byte IPv6 ASSOCIATION, the source words s0..s3 unconverted; 1, or 0 for NULL. */
RSVP_API int rsvp_build_association_ipv6(uint8_t *obj, uint16_t type, uint16_t id, uint32_t s0,
                                         uint32_t s1, uint32_t s2, uint32_t s3);
/* Writes an extended IPv4 ASSOCIATION of 16 + 4 x count bytes (IDs written only when ext_ids is
 * non-null); 1, or 0 and nothing written for a null buffer or a non-null ext_ids with count 0. */
RSVP_API int rsvp_build_association_ipv4_ext(uint8_t *obj, uint16_t type, uint16_t id,
                                             uint32_t source, uint32_t global_source,
                                             const uint32_t *ext_ids, uint16_t count);
/* Writes an extended IPv6 ASSOCIATION of 32 + 4 x count bytes, IDs from offset 28; bytes behind
 * the last ID are not written. 1, or 0 and nothing written as for the IPv4 form. */
RSVP_API int rsvp_build_association_ipv6_ext(uint8_t *obj, uint16_t type, uint16_t id, uint32_t s0,
                                             uint32_t s1, uint32_t s2, uint32_t s3,
                                             uint32_t global_source, const uint32_t *ext_ids,
                                             uint16_t count);
/* 1 after writing type, ID and source of an IPv4 form; 0 (nothing written) for any NULL pointer.
 * The object is not validated: its first 12 bytes are read as they stand. */
RSVP_API int rsvp_extract_association_ipv4(uint8_t *obj, uint16_t *type, uint16_t *id,
                                           uint32_t *source);
/* 1 after writing type, ID and the four source words of an IPv6 form; 0 (nothing written) for
 * any NULL pointer. The object is not validated: its first 24 bytes are read as they stand. */
RSVP_API int rsvp_extract_association_ipv6(uint8_t *obj, uint16_t *type, uint16_t *id,
                                           uint32_t *source);
/* Extended IPv4 form, not validated: 0 for a NULL pointer (ids may be NULL); else writes type,
 * ID, source, global source and *count = (Length - 16) / 4 (0 below 16), then answers 0 if
 * ids_capacity (in bytes) is below 4 x count, else copies the IDs (when ids, ids_capacity and count
 * are non-zero) and answers 1. */
RSVP_API int rsvp_extract_association_ipv4_ext(uint8_t *obj, uint16_t *type, uint16_t *id,
                                               uint32_t *source, uint32_t *global_source,
                                               uint32_t *ids, uint32_t ids_capacity,
                                               uint16_t *count);
/* Extended IPv6 form, as the IPv4 one with four source words, IDs from offset 28 and
 * *count = (Length - 32) / 4 (0 below 32). */
RSVP_API int rsvp_extract_association_ipv6_ext(uint8_t *obj, uint16_t *type, uint16_t *id,
                                               uint32_t *source, uint32_t *global_source,
                                               uint32_t *ids, uint32_t ids_capacity,
                                               uint16_t *count);
/* 1 for an ASSOCIATION of C-Type 1 to 4 that its form's validator accepts, else 0. */
RSVP_API int rsvp_valid_association(uint8_t *obj);
/* 1 for class 199, C-Type 1, Length exactly 12; else 0. */
RSVP_API int rsvp_valid_association_ipv4(uint8_t *obj);
/* 1 for class 199, C-Type 2, Length exactly 24; else 0. */
RSVP_API int rsvp_valid_association_ipv6(uint8_t *obj);
/* 1 for class 199, C-Type 3, Length at least 16 and a multiple of 4; else 0. */
RSVP_API int rsvp_valid_association_ipv4_ext(uint8_t *obj);
/* 1 for class 199, C-Type 4, Length at least 32 and a multiple of 4; else 0. */
RSVP_API int rsvp_valid_association_ipv6_ext(uint8_t *obj);
/* Bytes of extended IDs: Length - 16 when the Length exceeds 16, else 0 (0 for NULL). */
RSVP_API uint16_t rsvp_compute_association_ipv4_ext_id_len(uint8_t *obj);
/* Bytes of extended IDs: Length - 32 when the Length exceeds 32, else 0 (0 for NULL). */
RSVP_API uint16_t rsvp_compute_association_ipv6_ext_id_len(uint8_t *obj);

/* ======================================================================================
 * REVERSE_LSP (Class-Num 203): the objects of the reverse direction of a bidirectional LSP,
 * carried whole (each with its own object header) behind a 4-byte header.
 * ====================================================================================== */
enum { RSVP_CTYPE_REVERSE_LSP = 1 };

/* Writes an empty REVERSE_LSP: Length 4, class 203, C-Type 1. */
RSVP_API void rsvp_build_reverse_lsp(uint8_t *obj);
/* Appends a copy of a whole object that rsvp_valid_object accepts (answers 1) and grows the
 * container by its Length; 1, or 0 and nothing written for NULL or a rejected object. Neither
 * the container's room nor the object's class is checked. */
RSVP_API int rsvp_add_reverse_lsp_subobj(uint8_t *reverse_lsp, uint8_t *obj);
/* 1 for a REVERSE_LSP whose contained objects each answer 1 from rsvp_valid_object, where no
 * contained object is followed by a next object of its class with the same C-Type; else 0. */
RSVP_API int rsvp_valid_reverse_lsp(uint8_t *obj);
/* 1 and the first contained object and the bytes of contained objects (Length - 4) of a valid
 * REVERSE_LSP; 0 with the outputs untouched otherwise or for a NULL pointer. */
RSVP_API int rsvp_get_reverse_lsp_subobjs(uint8_t *obj, uint8_t **first, uint16_t *length);
/* Sum (modulo 65,536) of the Lengths of the contained objects, counting only the first
 * EXPLICIT_ROUTE and the first SENDER_TSPEC; 0 for NULL or a Length of 4 or less. */
RSVP_API uint16_t rsvp_compute_reverse_lsp_sub_objs_len(uint8_t *obj);
/* 1 if the run of objects holds an object of a class other than SENDER_TSPEC (12) and
 * EXPLICIT_ROUTE (20), the first object of the run included; else 0 (also for NULL). */
RSVP_API int rsvp_reverse_lsp_subs_inc_unsupported(uint8_t *first, uint16_t length);

/* ======================================================================================
 * S2L_SUB_LSP (Class-Num 50): one leaf of a point-to-multipoint LSP. The destination crosses
 * in wire order.
 * ====================================================================================== */
enum { RSVP_CTYPE_S2L_SUB_LSP_IPV4 = 1, RSVP_CTYPE_S2L_SUB_LSP_IPV6 = 2 };
enum { RSVP_S2L_SUB_LSP_IPV4_LEN = 8, RSVP_S2L_SUB_LSP_IPV6_LEN = 20 };

/* Writes an 8-byte IPv4 S2L_SUB_LSP. */
RSVP_API void rsvp_build_s2l_sub_lsp_ipv4(uint8_t *obj, uint32_t destination);
/* 1 for class 50 with C-Type 1 and Length 8 or C-Type 2 and Length 20; else 0. */
RSVP_API int rsvp_valid_gen_s2l_sub_lsp(uint8_t *obj);
/* 1 and the destination of a valid IPv4 S2L_SUB_LSP; 0 and output untouched otherwise. */
RSVP_API int rsvp_extract_s2l_sub_lsp_ipv4(uint8_t *obj, uint32_t *destination);
/* The word at offset 4, unconverted, of an object that rsvp_valid_object accepts; else 0. */
RSVP_API uint32_t RSVP_S2L_SUB_LSP_DESTINATION(uint8_t *obj);

/* ======================================================================================
 * LSP wrap label (Class-Num 235): one 32-bit label, host order at this interface.
 * ====================================================================================== */
enum { RSVP_CTYPE_LSP_WRAP_LABEL = 1, RSVP_LSP_WRAP_LABEL_LEN = 8 };

/* Writes an 8-byte wrap label object holding *label; 1, or 0 (nothing written) for NULL. */
RSVP_API int rsvp_build_lsp_wrap_label(uint8_t *obj, const uint32_t *label);
/* 1 for class 235, C-Type 1, Length exactly 8; else 0. */
RSVP_API int rsvp_valid_lsp_wrap_label(uint8_t *obj);
/* 1, the label and a count of 1 for a valid wrap label object; 0, outputs untouched, else. */
RSVP_API int rsvp_extract_lsp_wrap_label(uint8_t *obj, uint32_t *label, uint16_t *count);

/* ======================================================================================
 * ADMIN_STATUS (Class-Num 196): the administrative status bits of an LSP. The builder stores
 * the status word in host byte order while the extractor reads the bits at their network
 * positions: on a little-endian host an object built here extracts with every flag clear.
 * Write wire-correct bits with RSVP_ADMIN_STATUS_INFO_SET_FLAGS.
 * ====================================================================================== */
enum { RSVP_CTYPE_ADMIN_STATUS = 1, RSVP_ADMIN_STATUS_LEN = 8 };
/* Status word bits: Reflect, Testing, Administratively down, Deletion in progress. */
#define RSVP_ADMIN_STATUS_FLAG_R 0x80000000u
#define RSVP_ADMIN_STATUS_FLAG_T 0x00000004u
#define RSVP_ADMIN_STATUS_FLAG_A 0x00000002u
#define RSVP_ADMIN_STATUS_FLAG_D 0x00000001u

/* The four flags: 1 set, 0 clear (the builder treats every value other than 1 as clear). */
typedef struct rsvp_admin_status_info {
    uint8_t d;
    uint8_t a;
    uint8_t t;
    uint8_t r;
} rsvp_admin_status_info;

/* Writes an 8-byte ADMIN_STATUS (C-Type 1) whose status word lies in host byte order; nothing
 * for a NULL pointer. */
RSVP_API void rsvp_build_admin_status_object(uint8_t *obj, const rsvp_admin_status_info *info);
/* 1 for class 196 and Length exactly 8, whatever the C-Type; else 0. */
RSVP_API int rsvp_valid_admin_status_object(uint8_t *obj);
/* 1 and all four flags from the network-order status word of a class-196, 8-byte object; 0 and
 * the record untouched otherwise. */
RSVP_API int rsvp_extract_admin_status_object(uint8_t *obj, rsvp_admin_status_info *info);
/* Field D of the record; 0 for NULL. */
RSVP_API uint8_t RSVP_ADMIN_STATUS_INFO_D(const rsvp_admin_status_info *info);
/* Stores field D; nothing for NULL. */
RSVP_API void RSVP_ADMIN_STATUS_INFO_SET_D(rsvp_admin_status_info *info, uint8_t d);
/* Field A of the record; 0 for NULL. */
RSVP_API uint8_t RSVP_ADMIN_STATUS_INFO_A(const rsvp_admin_status_info *info);
/* Stores field A; nothing for NULL. */
RSVP_API void RSVP_ADMIN_STATUS_INFO_SET_A(rsvp_admin_status_info *info, uint8_t a);
/* Field T of the record; 0 for NULL. */
RSVP_API uint8_t RSVP_ADMIN_STATUS_INFO_T(const rsvp_admin_status_info *info);
/* Stores field T; nothing for NULL. */
RSVP_API void RSVP_ADMIN_STATUS_INFO_SET_T(rsvp_admin_status_info *info, uint8_t t);
/* Field R of the record; 0 for NULL. */
RSVP_API uint8_t RSVP_ADMIN_STATUS_INFO_R(const rsvp_admin_status_info *info);
/* Stores field R; nothing for NULL. */
RSVP_API void RSVP_ADMIN_STATUS_INFO_SET_R(rsvp_admin_status_info *info, uint8_t r);
/* Stores host-order flags into *status_word in network byte order; nothing for NULL. */
RSVP_API void RSVP_ADMIN_STATUS_INFO_SET_FLAGS(uint32_t *status_word, uint32_t flags);

/* ======================================================================================
 * GENERALIZED_UNI (Class-Num 208): UNI attributes as subobjects shaped like object headers
 * (16-bit length, type, sub-type). TNA addresses cross in wire order.
 * ====================================================================================== */
enum { RSVP_CTYPE_GENERALIZED_UNI = 1 };
enum {
    RSVP_GUA_SUBOBJ_HDR_LEN = 4,
    RSVP_GUA_SUBOBJ_SRC_TNA = 1,
    RSVP_GUA_SUBOBJ_DST_TNA = 2,
    RSVP_GUA_SUBOBJ_DIVERSITY = 3,
    RSVP_GUA_SUBOBJ_EGRESS_LABEL = 4,
    RSVP_GUA_SUBOBJ_SERVICE_LEVEL = 5,
    RSVP_GUA_SUBTYPE_IPV4 = 1,
    RSVP_GUA_TNA_IPV4_LEN = 8
};

/* Writes an empty GENERALIZED_UNI: Length 4, class 208, C-Type 1. */
RSVP_API void rsvp_build_gen_uni_attr(uint8_t *obj);
/* Appends an IPv4 source TNA (8 bytes); 1, or 0 and nothing written for NULL, a Length below 4
 * or a source TNA already present. Stops the process if the subobjects do not end exactly at
 * the object Length (a zero-length subobject included). */
RSVP_API int rsvp_add_src_tna_ipv4(uint8_t *obj, uint32_t address);
/* Appends an IPv4 destination TNA, as rsvp_add_src_tna_ipv4 does for the source. */
RSVP_API int rsvp_add_dst_tna_ipv4(uint8_t *obj, uint32_t address);
/* 1 for a subobject of type 1..5, sub-type 1, length at least 4 and a multiple of 4 (exactly 8
 * for the TNA types); else 0. */
RSVP_API int rsvp_valid_gen_uni_attr_subobject(uint8_t *sub);
/* 1 for class 208, C-Type 1 and valid subobjects that end exactly at the Length; else 0. */
RSVP_API int rsvp_valid_gen_uni_attr(uint8_t *obj);
/* The valid subobject after prev (the first for NULL) of a valid object, or NULL. A candidate
 * that starts exactly at the object end is still examined: stop when the lengths add up to the
 * object Length, or keep a zero word behind the object. */
RSVP_API uint8_t *rsvp_extract_gen_uni_attr_next_subobj(uint8_t *obj, uint8_t *prev);
/* 1 and the address (wire order) of a valid source TNA subobject; 0, output untouched, else. */
RSVP_API int rsvp_extract_src_tna_ipv4_subobj(uint8_t *sub, uint32_t *address);
/* 1 and the address (wire order) of a valid destination TNA subobject; 0, untouched, else. */
RSVP_API int rsvp_extract_dst_tna_ipv4_subobj(uint8_t *sub, uint32_t *address);
/* obj + 4 for an object that rsvp_valid_object accepts; NULL otherwise. */
RSVP_API uint8_t *RSVP_SUB_GUA_SUBOBJ_PTR(uint8_t *obj);
/* Length of a valid subobject (host order); 0 otherwise. */
RSVP_API uint16_t RSVP_SUB_GUA_LENGTH(uint8_t *sub);
/* Type of a valid subobject; 0 otherwise. */
RSVP_API uint8_t RSVP_SUB_GUA_TYPE(uint8_t *sub);
/* Word at +4 (wire order) of any valid subobject, whatever its type; 0 otherwise. A 4-byte
 * subobject has it read from the 4 bytes behind it. */
RSVP_API uint32_t RSVP_SUB_GUA_SRC_IPV4_ADDR(uint8_t *sub);
/* The same word as RSVP_SUB_GUA_SRC_IPV4_ADDR. */
RSVP_API uint32_t RSVP_SUB_GUA_DST_IPV4_ADDR(uint8_t *sub);

#ifdef __cplusplus
}
#endif

#endif /* RSVP_OBJECT_LIB_H */
