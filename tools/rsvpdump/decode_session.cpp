// SESSION: the destination (or tunnel end point, or P2MP ID) and the numbers that name the
// flow or LSP.
#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

using rsvpdump::addr;

void decode_ipv4(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t dest = 0;
    uint8_t protocol = 0;
    uint16_t port = 0;
    if (!rsvp_extract_session_ipv4(obj, &dest, &protocol, &port)) return;
    out.line("destination %s protocol %u port %u flags 0x%02x", addr(dest).c_str(), protocol, port,
             RSVP_SESSION_FLAGS(obj));
}

void decode_lsp_tunnel(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t end_point = 0, ext_id = 0;
    uint16_t tunnel_id = 0;
    if (!rsvp_extract_session_lsp_tunnel_ipv4(obj, &end_point, &tunnel_id, &ext_id)) return;
    out.line("tunnel end point %s tunnel ID %u extended tunnel ID %s", addr(end_point).c_str(),
             tunnel_id, addr(ext_id).c_str());
}

void decode_uni(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t dest = 0, ext_id = 0;
    uint16_t tunnel_id = 0;
    if (!rsvp_extract_session_uni_ipv4(obj, &dest, &tunnel_id, &ext_id)) return;
    out.line("UNI destination %s tunnel ID %u extended tunnel ID %s", addr(dest).c_str(), tunnel_id,
             addr(ext_id).c_str());
}

void decode_p2mp(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t p2mp_id = 0, ext_id = 0;
    uint16_t tunnel_id = 0;
    if (!rsvp_extract_session_p2mp_lsp_ipv4(obj, &p2mp_id, &tunnel_id, &ext_id)) return;
    out.line("P2MP ID %u tunnel ID %u extended tunnel ID %s", p2mp_id, tunnel_id,
             addr(ext_id).c_str());
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_IPV4, decode_ipv4);
RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_LSP_TUNNEL_IPV4, decode_lsp_tunnel);
RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_UNI_IPV4, decode_uni);
RSVPDUMP_DECODER(RSVP_CLASS_SESSION, RSVP_CTYPE_SESSION_P2MP_LSP_IPV4, decode_p2mp);
