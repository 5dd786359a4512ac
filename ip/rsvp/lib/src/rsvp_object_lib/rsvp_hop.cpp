// RSVP_HOP (class 3): the IPv4 hop (C-Type 1) and the IPv4 IF_ID hop (C-Type 3), which adds
// interface-identification TLVs behind the same fixed part.
//
//   OFFSET SIZE FIELD
//   0      4    object header: Length 12 (IPv4) or 12 + TLVs (IF_ID), class 3, C-Type 1 or 3
//   4      4    next/previous hop address (wire order)
//   8      4    Logical Interface Handle
//   12     ...  IF_ID only: TLVs, packed
//
// IF_ID TLV:
//   OFFSET SIZE FIELD
//   0      2    type: 1 IPv4 address, 3 interface index, 4/5 component forward/reverse
//   2      2    length, header included: 8 for type 1, 12 for types 3, 4, 5
//   4      4    IPv4 address (wire order)
//   8      4    interface ID (types 3, 4, 5)
#include "rsvp_assert.hpp"
#include "rsvp_valid_field.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kNeighborOffset = 4;
constexpr unsigned kLihOffset = 8;
constexpr unsigned kFieldLen = 4;
constexpr unsigned kTlvOffset = RSVP_HOP_IF_ID_TLV_OFFSET;
static_assert(kLihOffset + kFieldLen == RSVP_HOP_IPV4_LEN);
static_assert(kTlvOffset == RSVP_HOP_IPV4_LEN);

constexpr unsigned kTlvTypeOffset = 0;
constexpr unsigned kTlvLengthOffset = 2;
constexpr unsigned kTlvAddrOffset = 4;
constexpr unsigned kTlvIfIdOffset = 8;
static_assert(kTlvAddrOffset + kFieldLen == RSVP_HOP_IF_ID_TLV_IPV4_LEN);
static_assert(kTlvIfIdOffset + kFieldLen == RSVP_HOP_IF_ID_TLV_INDEX_LEN);

uint16_t tlv_type(const uint8_t *tlv) {
    return wire::load_be16(tlv + kTlvTypeOffset);
}
uint16_t tlv_length(const uint8_t *tlv) {
    return wire::load_be16(tlv + kTlvLengthOffset);
}

bool is_index_type(uint16_t type) {
    return type == RSVP_HOP_IF_ID_TLV_INDEX || type == RSVP_HOP_IF_ID_TLV_COMPONENT_FWD ||
           type == RSVP_HOP_IF_ID_TLV_COMPONENT_REV;
}

// Each known type has exactly one length; IPv6 (type 2) and all others are refused.
bool valid_tlv(const uint8_t *tlv) {
    if (!tlv) return false;
    const uint16_t length = tlv_length(tlv);
    if (length < RSVP_HOP_IF_ID_TLV_HDR_LEN) return false;
    const uint16_t type = tlv_type(tlv);
    if (type == RSVP_HOP_IF_ID_TLV_IPV4) return length == RSVP_HOP_IF_ID_TLV_IPV4_LEN;
    return is_index_type(type) && length == RSVP_HOP_IF_ID_TLV_INDEX_LEN;
}

// The plain and IPv4 accessor names are twins: both hop C-Types keep the address at offset 4
// and the handle at offset 8.
uint32_t get_neighbor(uint8_t *obj) {
    return valid_holds(obj, kNeighborOffset + kFieldLen) ? wire::load_raw32(obj + kNeighborOffset)
                                                         : 0;
}
void set_neighbor(uint8_t *obj, uint32_t neighbor) {
    if (valid_holds(obj, kNeighborOffset + kFieldLen))
        wire::store_raw32(obj + kNeighborOffset, neighbor);
}
uint32_t get_lif_handle(uint8_t *obj) {
    return valid_holds(obj, kLihOffset + kFieldLen) ? wire::load_be32(obj + kLihOffset) : 0;
}
void set_lif_handle(uint8_t *obj, uint32_t lih) {
    if (valid_holds(obj, kLihOffset + kFieldLen)) wire::store_be32(obj + kLihOffset, lih);
}

uint8_t *build_fixed(uint8_t *obj, uint8_t c_type, uint32_t neighbor, uint32_t lih) {
    put_obj_hdr(obj, RSVP_CLASS_RSVP_HOP, c_type, RSVP_HOP_IPV4_LEN);
    wire::store_raw32(obj + kNeighborOffset, neighbor);
    wire::store_be32(obj + kLihOffset, lih);
    return obj;
}

// Appends a TLV behind the existing ones, refusing a second TLV of the same type. The object
// is the caller's own: TLVs that do not end exactly at its Length break the caller's
// precondition and stop the process.
int add_tlv(uint8_t *obj, uint16_t type, uint32_t addr, uint32_t if_id) {
    auto remaining = static_cast<int16_t>(obj_length(obj) - kTlvOffset);
    uint8_t *pos = obj + kTlvOffset;
    while (remaining > 0) {
        // An invalid TLV would be stepped over by 0 bytes and never end the walk; stopping here
        // leaves remaining above 0, so the assertion below reports the broken object.
        if (!valid_tlv(pos)) break;
        if (tlv_type(pos) == type) return 0;
        const uint16_t length = tlv_length(pos);
        pos += length;
        remaining = static_cast<int16_t>(remaining - length);
    }
    RSVP_ASSERT(remaining == 0);
    const uint16_t length = type == RSVP_HOP_IF_ID_TLV_IPV4 ? RSVP_HOP_IF_ID_TLV_IPV4_LEN
                                                            : RSVP_HOP_IF_ID_TLV_INDEX_LEN;
    wire::store_be16(pos + kTlvTypeOffset, type);
    wire::store_be16(pos + kTlvLengthOffset, length);
    wire::store_raw32(pos + kTlvAddrOffset, addr);
    if (is_index_type(type)) wire::store_be32(pos + kTlvIfIdOffset, if_id);
    wire::store_be16(obj + kObjLengthOffset, static_cast<uint16_t>(obj_length(obj) + length));
    return 1;
}

// One step of rsvp_extract_hop_if_id_next_subobj over an object that has already validated.
// The candidate is refused only when it lies beyond the object end, unlike in the route
// walkers, which stop at the end.
uint8_t *step_valid(uint8_t *obj, uint8_t *prev) {
    uint8_t *candidate = obj + kTlvOffset;
    if (prev) {
        if (!valid_tlv(prev)) return nullptr;
        candidate = prev + tlv_length(prev);
    }
    if (candidate - obj > obj_length(obj)) return nullptr;
    // Deliberate: a candidate exactly at the end has its header read from behind the object.
    return valid_tlv(candidate) ? candidate : nullptr;
}

// The first TLV of one of two types (the same type twice for one), walking as the exported
// walker does, on an object that has validated: the object does not change during the walk,
// so it is not validated again at every step.
uint8_t *first_tlv_of(uint8_t *obj, uint16_t type, uint16_t other_type) {
    for (uint8_t *tlv = step_valid(obj, nullptr); tlv; tlv = step_valid(obj, tlv))
        if (tlv_type(tlv) == type || tlv_type(tlv) == other_type) return tlv;
    return nullptr;
}

uint8_t *first_tlv_of(uint8_t *obj, uint16_t type) {
    return first_tlv_of(obj, type, type);
}

}  // namespace

extern "C" {

uint8_t *rsvp_build_hop_ipv4(uint8_t *obj, uint32_t neighbor, uint32_t lih) {
    return build_fixed(obj, RSVP_CTYPE_RSVP_HOP_IPV4, neighbor, lih);
}

int rsvp_valid_hop_ipv4(uint8_t *obj) {
    return obj && obj_is(obj, RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IPV4) &&
           obj_length(obj) == RSVP_HOP_IPV4_LEN && wire::load_raw32(obj + kNeighborOffset) != 0;
}

int rsvp_extract_hop_ipv4(uint8_t *obj, uint32_t *neighbor, uint32_t *lih) {
    if (!neighbor || !lih || !rsvp_valid_hop_ipv4(obj)) return 0;
    *neighbor = wire::load_raw32(obj + kNeighborOffset);
    *lih = wire::load_be32(obj + kLihOffset);
    return 1;
}

int rsvp_valid_hop(uint8_t *obj) {
    if (!obj) return 0;
    switch (obj_ctype(obj)) {
        case RSVP_CTYPE_RSVP_HOP_IPV4:
            return rsvp_valid_hop_ipv4(obj);
        case RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4:
            return rsvp_valid_hop_if_id(obj);
        default:
            return 0;
    }
}

uint32_t RSVP_HOP_IPV4_NEIGHBOR(uint8_t *obj) {
    return get_neighbor(obj);
}
uint32_t RSVP_HOP_NEIGHBOR(uint8_t *obj) {
    return get_neighbor(obj);
}
void RSVP_HOP_IPV4_SET_NEIGHBOR(uint8_t *obj, uint32_t neighbor) {
    set_neighbor(obj, neighbor);
}
void RSVP_HOP_SET_NEIGHBOR(uint8_t *obj, uint32_t neighbor) {
    set_neighbor(obj, neighbor);
}
uint32_t RSVP_HOP_IPV4_LIF_HANDLE(uint8_t *obj) {
    return get_lif_handle(obj);
}
uint32_t RSVP_HOP_LIF_HANDLE(uint8_t *obj) {
    return get_lif_handle(obj);
}
void RSVP_HOP_IPV4_SET_LIF_HANDLE(uint8_t *obj, uint32_t lih) {
    set_lif_handle(obj, lih);
}
void RSVP_HOP_SET_LIF_HANDLE(uint8_t *obj, uint32_t lih) {
    set_lif_handle(obj, lih);
}

// ---- IF_ID ---------------------------------------------------------------------------------

uint8_t *rsvp_build_hop_if_id(uint8_t *obj, uint32_t neighbor, uint32_t lih) {
    return build_fixed(obj, RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4, neighbor, lih);
}

int rsvp_add_ipv4_intf(uint8_t *obj, uint32_t addr) {
    if (!obj || !obj_is(obj, RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4)) return 0;
    return add_tlv(obj, RSVP_HOP_IF_ID_TLV_IPV4, addr, 0);
}

int rsvp_add_ipv4_fwd_intf(uint8_t *obj, uint32_t addr) {
    return obj ? add_tlv(obj, RSVP_HOP_IF_ID_TLV_IPV4, addr, 0) : 0;
}

int rsvp_add_index_fwd_intf(uint8_t *obj, uint32_t addr, uint32_t if_id) {
    return obj ? add_tlv(obj, RSVP_HOP_IF_ID_TLV_COMPONENT_FWD, addr, if_id) : 0;
}

int rsvp_add_index_rev_intf(uint8_t *obj, uint32_t addr, uint32_t if_id) {
    return obj ? add_tlv(obj, RSVP_HOP_IF_ID_TLV_COMPONENT_REV, addr, if_id) : 0;
}

int rsvp_add_index_fwd_rev_intf(uint8_t *obj, uint32_t addr, uint32_t if_id) {
    return obj ? add_tlv(obj, RSVP_HOP_IF_ID_TLV_INDEX, addr, if_id) : 0;
}

int rsvp_valid_hop_if_id_subobject(uint8_t *tlv) {
    return valid_tlv(tlv);
}

int rsvp_valid_hop_if_id(uint8_t *obj) {
    if (!obj || !obj_is(obj, RSVP_CLASS_RSVP_HOP, RSVP_CTYPE_RSVP_HOP_IF_ID_IPV4)) return 0;
    // An object no longer than the fixed part (even one shorter) is accepted as it stands.
    int remaining = static_cast<int>(obj_length(obj)) - static_cast<int>(kTlvOffset);
    const uint8_t *pos = obj + kTlvOffset;
    while (remaining > 0) {
        // Deliberately not bounded by the object: a last TLV that runs past the end (its header
        // included, for a Length that is not a whole number of words) is not detected.
        if (!valid_tlv(pos)) return 0;
        const uint16_t length = tlv_length(pos);
        pos += length;
        remaining -= length;
    }
    return 1;
}

uint8_t *rsvp_extract_hop_if_id_next_subobj(uint8_t *obj, uint8_t *prev) {
    return rsvp_valid_hop_if_id(obj) ? step_valid(obj, prev) : nullptr;
}

int rsvp_extract_ipv4_subobj(uint8_t *tlv, uint32_t *addr) {
    if (!addr || !valid_tlv(tlv) || tlv_type(tlv) != RSVP_HOP_IF_ID_TLV_IPV4) return 0;
    *addr = wire::load_raw32(tlv + kTlvAddrOffset);
    return 1;
}

int rsvp_extract_ipv4_fwd_rev_intf_subobj(uint8_t *tlv, uint32_t *addr) {
    return rsvp_extract_ipv4_subobj(tlv, addr);
}

int rsvp_extract_comp_index_fwd_rev_intf_subobj(uint8_t *tlv, uint32_t *addr, uint32_t *if_id) {
    if (!addr || !if_id || !valid_tlv(tlv) || !is_index_type(tlv_type(tlv))) return 0;
    *addr = wire::load_raw32(tlv + kTlvAddrOffset);
    *if_id = wire::load_be32(tlv + kTlvIfIdOffset);
    return 1;
}

int rsvp_get_gmpls_hop_if_index_tlv(uint8_t *obj, uint32_t *addr, uint32_t *if_id) {
    if (!addr || !rsvp_valid_hop_if_id(obj)) return 0;
    return rsvp_extract_comp_index_fwd_rev_intf_subobj(first_tlv_of(obj, RSVP_HOP_IF_ID_TLV_INDEX),
                                                       addr, if_id);
}

int rsvp_get_hop_if_id_ipv4_tlv(uint8_t *obj, uint32_t *addr) {
    if (!addr || !rsvp_valid_hop_if_id(obj)) return 0;
    return rsvp_extract_ipv4_subobj(first_tlv_of(obj, RSVP_HOP_IF_ID_TLV_IPV4), addr);
}

int rsvp_get_gmpls_hop_if_id_tlv(uint8_t *obj, rsvp_hop_if_id_tlv_info *info) {
    if (!info || !rsvp_valid_hop_if_id(obj)) return 0;
    info->kind = RSVP_HOP_IF_ID_KIND_NONE;
    uint8_t *tlv = first_tlv_of(obj, RSVP_HOP_IF_ID_TLV_IPV4, RSVP_HOP_IF_ID_TLV_INDEX);
    if (!tlv) return 0;
    // The walk returns only valid TLVs, so the extraction of either type succeeds.
    if (tlv_type(tlv) == RSVP_HOP_IF_ID_TLV_IPV4) {
        rsvp_extract_ipv4_subobj(tlv, &info->address);
        info->kind = RSVP_HOP_IF_ID_KIND_IPV4;
    } else {
        rsvp_extract_comp_index_fwd_rev_intf_subobj(tlv, &info->address, &info->if_id);
        info->kind = RSVP_HOP_IF_ID_KIND_INDEX;
    }
    return 1;
}

uint8_t *RSVP_HOP_IF_ID_SUBOBJ_PTR(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID ? obj + kTlvOffset : nullptr;
}

uint32_t RSVP_HOP_IF_ID_NEIGHBOR(uint8_t *obj) {
    return get_neighbor(obj);
}

// Unlike every other setter here, the write is not gated by the object's validity.
void RSVP_HOP_IF_ID_SET_NEIGHBOR(uint8_t *obj, uint32_t neighbor) {
    if (obj) wire::store_raw32(obj + kNeighborOffset, neighbor);
}

uint32_t RSVP_HOP_IF_ID_LIF_HANDLE(uint8_t *obj) {
    return get_lif_handle(obj);
}

void RSVP_HOP_IF_ID_SET_LIF_HANDLE(uint8_t *obj, uint32_t lih) {
    set_lif_handle(obj, lih);
}

uint16_t RSVP_HOP_SUBOBJ_GENERIC_TYPE(uint8_t *tlv) {
    return valid_tlv(tlv) ? tlv_type(tlv) : 0;
}

uint16_t RSVP_HOP_SUBOBJ_GENERIC_LENGTH(uint8_t *tlv) {
    return valid_tlv(tlv) ? tlv_length(tlv) : 0;
}

}  // extern "C"
