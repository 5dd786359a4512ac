// SESSION: the destination (or tunnel end point, or P2MP ID) and the numbers that name the
// flow or LSP.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

// " tunnel ID 1 extended tunnel ID 10.0.0.1", shared by the LSP kinds.
void print_tunnel(uint16_t tunnel_id, uint32_t ext_id, rsvpdump::Out &out) {
    out.text(" tunnel ID ").u("tunnel_id", tunnel_id);
    out.text(" extended tunnel ID ").addr("extended_tunnel_id", ext_id);
}

void decode_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t dest = 0;
    uint8_t protocol = 0;
    uint16_t port = 0;
    if (!rsvp_extract_session_ipv4(obj, &dest, &protocol, &port)) return;
    out.line().text("destination ").addr("destination", dest);
    out.text(" protocol ").u("protocol", protocol).text(" port ").u("port", port);
    out.text(" flags ").hex("flags", RSVP_SESSION_FLAGS(obj), 2);
}

void decode_lsp_tunnel(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t end_point = 0, ext_id = 0;
    uint16_t tunnel_id = 0;
    if (!rsvp_extract_session_lsp_tunnel_ipv4(obj, &end_point, &tunnel_id, &ext_id)) return;
    out.line().text("tunnel end point ").addr("tunnel_end_point", end_point);
    print_tunnel(tunnel_id, ext_id, out);
}

void decode_uni(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t dest = 0, ext_id = 0;
    uint16_t tunnel_id = 0;
    if (!rsvp_extract_session_uni_ipv4(obj, &dest, &tunnel_id, &ext_id)) return;
    out.line().text("UNI destination ").addr("destination", dest);
    print_tunnel(tunnel_id, ext_id, out);
}

void decode_p2mp(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t p2mp_id = 0, ext_id = 0;
    uint16_t tunnel_id = 0;
    if (!rsvp_extract_session_p2mp_lsp_ipv4(obj, &p2mp_id, &tunnel_id, &ext_id)) return;
    out.line().text("P2MP ID ").u("p2mp_id", p2mp_id);
    print_tunnel(tunnel_id, ext_id, out);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_IPV4, decode_ipv4);
RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV4, decode_lsp_tunnel);
RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_UNI_IPV4, decode_uni);
RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_P2MP_LSP_IPV4, decode_p2mp);
