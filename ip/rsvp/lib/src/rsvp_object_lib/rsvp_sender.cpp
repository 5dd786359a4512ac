// SENDER_TEMPLATE (Class-Num 11, in Path messages) and FILTER_SPEC (Class-Num 10, in Resv
// messages): the twins that name a sender. One implementation serves both classes.
//
//   OFFSET SIZE FIELD                    C-Type 1 IPv4   C-Type 7 LSP_TUNNEL   C-Type 12 P2MP
//   0      4    object header            Length 12       Length 12             Length 20
//   4      4    sender address           source          tunnel sender         tunnel sender
//   8      2    reserved, written 0
//   10     2    port / LSP ID            source port     LSP ID                LSP ID
//   12     4    Sub-Group Originator ID  -               -                     originator
//   16     2    reserved, written 0      -               -
//   18     2    Sub-Group ID             -               -                     Sub-Group ID
//
// Addresses (sender, Sub-Group Originator ID) cross the interface as they lie on the wire;
// ports, LSP IDs and Sub-Group IDs cross in host order. The twins differ in one deliberate
// point only: the SENDER_TEMPLATE validator refuses a zero or multicast sender address, the
// FILTER_SPEC validator does not look at the address.
#include "rsvp_object_internal.hpp"

using namespace rsvp;

namespace {

constexpr unsigned kAddrOffset = 4;
constexpr unsigned kReservedOffset = 8;
constexpr unsigned kPortOffset = 10;  // port or LSP ID
constexpr unsigned kSgOriginOffset = 12;
constexpr unsigned kSgReservedOffset = 16;
constexpr unsigned kSgIdOffset = 18;
constexpr unsigned kAddrLen = 4;
constexpr unsigned kPortLen = 2;

constexpr uint16_t kIpv4Len = RSVP_SENDER_IPV4_LEN;
constexpr uint16_t kP2mpLen = RSVP_SENDER_P2MP_IPV4_LEN;

// The C-Type numbers are the same for both classes.
constexpr uint8_t kIpv4 = RSVP_CTYPE_SENDER_TEMPLATE_IPV4;
constexpr uint8_t kTunnel = RSVP_CTYPE_SENDER_TEMPLATE_LSP_TUNNEL_IPV4;
constexpr uint8_t kP2mp = RSVP_CTYPE_SENDER_TEMPLATE_P2MP_LSP_TUNNEL_IPV4;
static_assert(kIpv4 == RSVP_CTYPE_FILTER_SPEC_IPV4 &&
              kTunnel == RSVP_CTYPE_FILTER_SPEC_LSP_TUNNEL_IPV4 &&
              kP2mp == RSVP_CTYPE_FILTER_SPEC_P2MP_LSP_TUNNEL_IPV4);

constexpr uint8_t kTemplate = RSVP_CLASS_SENDER_TEMPLATE;
constexpr uint8_t kFilter = RSVP_CLASS_FILTER_SPEC;

// A sender address must be a unicast host: not 0, and not in 224.0.0.0/4.
constexpr uint32_t kClassDMask = 0xF0000000;
constexpr uint32_t kClassDNet = 0xE0000000;

void put_sender(uint8_t *obj, uint32_t addr, uint16_t port) {
    wire::store_raw32(obj + kAddrOffset, addr);
    wire::store_be16(obj + kReservedOffset, 0);
    wire::store_be16(obj + kPortOffset, port);
}

void build12(uint8_t *obj, uint8_t class_num, uint8_t c_type, uint32_t addr, uint16_t port) {
    put_obj_hdr(obj, class_num, c_type, kIpv4Len);
    put_sender(obj, addr, port);
}

void build_p2mp(uint8_t *obj, uint8_t class_num, uint32_t sender, uint16_t lsp_id,
                uint32_t sg_originator, uint16_t sg_id) {
    put_obj_hdr(obj, class_num, kP2mp, kP2mpLen);
    put_sender(obj, sender, lsp_id);
    wire::store_raw32(obj + kSgOriginOffset, sg_originator);
    wire::store_be16(obj + kSgReservedOffset, 0);
    wire::store_be16(obj + kSgIdOffset, sg_id);
}

bool unicast_sender(const uint8_t *obj) {
    const uint32_t addr = wire::load_be32(obj + kAddrOffset);
    return addr != 0 && (addr & kClassDMask) != kClassDNet;
}

// The class validator; check_address is set for SENDER_TEMPLATE only. The Length is checked
// before the address is read, so a short object is never read past its end.
int valid_sender(const uint8_t *obj, uint8_t class_num, bool check_address) {
    if (!obj || obj_class(obj) != class_num) return 0;
    uint16_t want;
    switch (obj_ctype(obj)) {
        case kIpv4:
        case kTunnel:
            want = kIpv4Len;
            break;
        case kP2mp:
            want = kP2mpLen;
            break;
        default:
            return 0;
    }
    if (obj_length(obj) != want) return 0;
    return !check_address || unicast_sender(obj);
}

int valid_of_class(uint8_t *obj, uint8_t class_num) {
    return class_num == kTemplate ? rsvp_valid_template_gen_ipv4(obj)
                                  : rsvp_valid_filter_gen_ipv4(obj);
}

// The extractors answer only for a valid object of their class and exactly their C-Type.
int extract12(uint8_t *obj, uint8_t class_num, uint8_t c_type, uint32_t *addr, uint16_t *port) {
    if (!obj || obj_ctype(obj) != c_type || !valid_of_class(obj, class_num)) return 0;
    *addr = wire::load_raw32(obj + kAddrOffset);
    *port = wire::load_be16(obj + kPortOffset);
    return 1;
}

int extract_p2mp(uint8_t *obj, uint8_t class_num, uint32_t *sender, uint16_t *lsp_id,
                 uint32_t *sg_originator, uint16_t *sg_id) {
    if (!obj || obj_ctype(obj) != kP2mp || !valid_of_class(obj, class_num)) return 0;
    *sender = wire::load_raw32(obj + kAddrOffset);
    *lsp_id = wire::load_be16(obj + kPortOffset);
    *sg_originator = wire::load_raw32(obj + kSgOriginOffset);
    *sg_id = wire::load_be16(obj + kSgIdOffset);
    return 1;
}

// The accessors act on whatever rsvp_valid_object accepts; dispatch goes by class, so the
// TEMPLATE and FILTER names behave alike on objects of either class.
bool accessible(uint8_t *obj) {
    return rsvp_valid_object(obj) == RSVP_OBJECT_VALID;
}

// Every SENDER_TEMPLATE or FILTER_SPEC that validates holds the sender address and the port;
// a shorter object of another class that validates is not read or written past its end there.
bool covers(const uint8_t *obj, unsigned offset, unsigned width) {
    return obj_length(obj) >= offset + width;
}

uint32_t get_raw32(uint8_t *obj, unsigned offset) {
    return accessible(obj) && covers(obj, offset, kAddrLen) ? wire::load_raw32(obj + offset) : 0;
}

uint16_t get_be16(uint8_t *obj, unsigned offset) {
    return accessible(obj) && covers(obj, offset, kPortLen) ? wire::load_be16(obj + offset) : 0;
}

void set_raw32(uint8_t *obj, unsigned offset, uint32_t value) {
    if (accessible(obj) && covers(obj, offset, kAddrLen)) wire::store_raw32(obj + offset, value);
}

// The P2MP fields lie behind the 12 bytes of a C-Type 1 or 7 object. On a SENDER_TEMPLATE or
// FILTER_SPEC the accessors check neither the C-Type nor the Length, and on such an object they
// reach past its end on purpose; an object of another class must hold the field.
bool p2mp_reachable(uint8_t *obj, unsigned offset, unsigned width) {
    if (!accessible(obj)) return false;
    return obj_class(obj) == kTemplate || obj_class(obj) == kFilter || covers(obj, offset, width);
}

uint32_t get_sg_origin(uint8_t *obj) {
    return p2mp_reachable(obj, kSgOriginOffset, kAddrLen)
               ? wire::load_raw32(obj + kSgOriginOffset)  // deliberate read
               : 0;
}

uint16_t get_sg_id(uint8_t *obj) {
    return p2mp_reachable(obj, kSgIdOffset, kPortLen)
               ? wire::load_be16(obj + kSgIdOffset)  // deliberate read
               : 0;
}

void set_sg_origin(uint8_t *obj, uint32_t sg_originator) {
    if (p2mp_reachable(obj, kSgOriginOffset, kAddrLen))
        wire::store_raw32(obj + kSgOriginOffset, sg_originator);  // deliberate write
}

// One sender's identifying fields in host order; all 0 when the object fails validation.
struct SenderKey {
    uint32_t addr = 0;
    uint16_t port = 0;
    uint32_t sg_origin = 0;
    uint16_t sg_id = 0;
};

SenderKey sender_key(uint8_t *obj) {
    SenderKey k;
    if (!accessible(obj)) return k;
    // A SENDER_TEMPLATE or FILTER_SPEC that validates covers all its fields; the Length tests
    // only matter for a shorter object of another class.
    if (covers(obj, kAddrOffset, kAddrLen)) k.addr = wire::load_be32(obj + kAddrOffset);
    if (covers(obj, kPortOffset, kPortLen)) k.port = wire::load_be16(obj + kPortOffset);
    if (obj_ctype(obj) == kP2mp && obj_length(obj) >= kP2mpLen) {
        k.sg_origin = wire::load_be32(obj + kSgOriginOffset);
        k.sg_id = wire::load_be16(obj + kSgIdOffset);
    }
    return k;
}

// No wildcard here: a port of 0 is an ordinary value, unlike in the session order.
int compare_senders(uint8_t *a, uint8_t *b) {
    if (a == b) return 0;
    if (!a) return -1;
    if (!b) return 1;
    if (int c = three_way<uint32_t>(obj_ctype(a), obj_ctype(b))) return c;
    const SenderKey ka = sender_key(a);
    const SenderKey kb = sender_key(b);
    if (int c = three_way<uint32_t>(ka.addr, kb.addr)) return c;
    if (int c = three_way<uint32_t>(ka.port, kb.port)) return c;
    if (obj_ctype(a) != kP2mp) return 0;
    if (int c = three_way<uint32_t>(ka.sg_origin, kb.sg_origin)) return c;
    return three_way<uint32_t>(ka.sg_id, kb.sg_id);
}

}  // namespace

extern "C" {

void rsvp_build_template_ipv4(uint8_t *obj, uint32_t source, uint16_t port) {
    build12(obj, kTemplate, kIpv4, source, port);
}

void rsvp_build_template_lsp_tunnel_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id) {
    build12(obj, kTemplate, kTunnel, sender, lsp_id);
}

void rsvp_build_template_lsp_p2mp_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id,
                                       uint32_t sg_originator, uint16_t sg_id) {
    build_p2mp(obj, kTemplate, sender, lsp_id, sg_originator, sg_id);
}

void rsvp_build_filter_ipv4(uint8_t *obj, uint32_t source, uint16_t port) {
    build12(obj, kFilter, kIpv4, source, port);
}

void rsvp_build_filter_lsp_tunnel_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id) {
    build12(obj, kFilter, kTunnel, sender, lsp_id);
}

void rsvp_build_filter_lsp_p2mp_ipv4(uint8_t *obj, uint32_t sender, uint16_t lsp_id,
                                     uint32_t sg_originator, uint16_t sg_id) {
    build_p2mp(obj, kFilter, sender, lsp_id, sg_originator, sg_id);
}

int rsvp_valid_template_gen_ipv4(uint8_t *obj) {
    return valid_sender(obj, kTemplate, true);
}

int rsvp_valid_filter_gen_ipv4(uint8_t *obj) {
    return valid_sender(obj, kFilter, false);
}

int rsvp_extract_template_ipv4(uint8_t *obj, uint32_t *source, uint16_t *port) {
    return extract12(obj, kTemplate, kIpv4, source, port);
}

int rsvp_extract_template_lsp_tunnel_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id) {
    return extract12(obj, kTemplate, kTunnel, sender, lsp_id);
}

int rsvp_extract_template_lsp_p2mp_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id,
                                        uint32_t *sg_originator, uint16_t *sg_id) {
    return extract_p2mp(obj, kTemplate, sender, lsp_id, sg_originator, sg_id);
}

int rsvp_extract_filter_ipv4(uint8_t *obj, uint32_t *source, uint16_t *port) {
    return extract12(obj, kFilter, kIpv4, source, port);
}

int rsvp_extract_filter_lsp_tunnel_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id) {
    return extract12(obj, kFilter, kTunnel, sender, lsp_id);
}

int rsvp_extract_filter_lsp_p2mp_ipv4(uint8_t *obj, uint32_t *sender, uint16_t *lsp_id,
                                      uint32_t *sg_originator, uint16_t *sg_id) {
    return extract_p2mp(obj, kFilter, sender, lsp_id, sg_originator, sg_id);
}

uint32_t RSVP_TEMPLATE_SOURCE(uint8_t *obj) {
    return get_raw32(obj, kAddrOffset);
}

void RSVP_TEMPLATE_SET_SOURCE(uint8_t *obj, uint32_t source) {
    set_raw32(obj, kAddrOffset, source);
}

uint16_t RSVP_TEMPLATE_PORT(uint8_t *obj) {
    return get_be16(obj, kPortOffset);
}

uint32_t RSVP_TEMPLATE_P2MP_SG_ORIGIN(uint8_t *obj) {
    return get_sg_origin(obj);
}

void RSVP_TEMPLATE_SET_P2MP_SG_ORIGIN(uint8_t *obj, uint32_t sg_originator) {
    set_sg_origin(obj, sg_originator);
}

uint16_t RSVP_TEMPLATE_P2MP_SG_ID(uint8_t *obj) {
    return get_sg_id(obj);
}

uint32_t RSVP_FILTER_SOURCE(uint8_t *obj) {
    return get_raw32(obj, kAddrOffset);
}

void RSVP_FILTER_SET_SOURCE(uint8_t *obj, uint32_t source) {
    set_raw32(obj, kAddrOffset, source);
}

uint16_t RSVP_FILTER_PORT(uint8_t *obj) {
    return get_be16(obj, kPortOffset);
}

uint32_t RSVP_FILTER_P2MP_SG_ORIGIN(uint8_t *obj) {
    return get_sg_origin(obj);
}

void RSVP_FILTER_SET_P2MP_SG_ORIGIN(uint8_t *obj, uint32_t sg_originator) {
    set_sg_origin(obj, sg_originator);
}

uint16_t RSVP_FILTER_P2MP_SG_ID(uint8_t *obj) {
    return get_sg_id(obj);
}

int rsvp_compare_templates(uint8_t *a, uint8_t *b) {
    return compare_senders(a, b);
}

int rsvp_compare_filters(uint8_t *a, uint8_t *b) {
    return compare_senders(a, b);
}

}  // extern "C"
