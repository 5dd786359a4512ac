// LABEL_REQUEST and the labels: the requested payload (an Ethertype, or the GMPLS encoding,
// switching type and G-PID with their names), and every label in decimal and hex. Words of a
// generalized label are also shown as a SONET/SDH time slot (S, U, K, L, M), since only the
// LSP's encoding type says what they mean.
#include <vector>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

struct Name {
    unsigned value;
    const char *name;
};

template <size_t N>
const char *lookup(const Name (&table)[N], unsigned value) {
    for (const Name &n : table)
        if (n.value == value) return n.name;
    return nullptr;
}

const Name kEthertypes[] = {
    {RSVP_L3PID_IPV4, "IPv4"}, {RSVP_L3PID_IPV6, "IPv6"}, {RSVP_L3PID_MPLS, "MPLS"}};

// LSP encoding types, switching types and G-PIDs of GMPLS signalling; values without a name
// are reserved or assigned later.
const Name kEncodings[] = {{1, "Packet"},          {2, "Ethernet"},
                           {3, "ANSI/ETSI PDH"},   {5, "SDH ITU-T G.707 / SONET ANSI T1.105"},
                           {7, "Digital Wrapper"}, {8, "Lambda (photonic)"},
                           {9, "Fiber"},           {11, "FiberChannel"}};

const Name kSwitching[] = {
    {1, "Packet-Switch Capable-1 (PSC-1)"}, {2, "Packet-Switch Capable-2 (PSC-2)"},
    {3, "Packet-Switch Capable-3 (PSC-3)"}, {4, "Packet-Switch Capable-4 (PSC-4)"},
    {51, "Layer-2 Switch Capable (L2SC)"},  {100, "Time-Division-Multiplex Capable (TDM)"},
    {150, "Lambda-Switch Capable (LSC)"},   {200, "Fiber-Switch Capable (FSC)"}};

const Name kGpids[] = {{0, "Unknown"},
                       {5, "Asynchronous mapping of E4"},
                       {6, "Asynchronous mapping of DS3/T3"},
                       {7, "Asynchronous mapping of E3"},
                       {8, "Bit synchronous mapping of E3"},
                       {9, "Byte synchronous mapping of E3"},
                       {10, "Asynchronous mapping of DS2/T2"},
                       {11, "Bit synchronous mapping of DS2/T2"},
                       {13, "Asynchronous mapping of E1"},
                       {14, "Byte synchronous mapping of E1"},
                       {15, "Byte synchronous mapping of 31 * DS0"},
                       {16, "Asynchronous mapping of DS1/T1"},
                       {17, "Bit synchronous mapping of DS1/T1"},
                       {18, "Byte synchronous mapping of DS1/T1"},
                       {19, "VC-11 in VC-12"},
                       {22, "DS1 SF Asynchronous"},
                       {23, "DS1 ESF Asynchronous"},
                       {24, "DS3 M23 Asynchronous"},
                       {25, "DS3 C-Bit Parity Asynchronous"},
                       {26, "VT/LOVC"},
                       {27, "STS SPE/HOVC"},
                       {28, "POS - No Scrambling, 16 bit CRC"},
                       {29, "POS - No Scrambling, 32 bit CRC"},
                       {30, "POS - Scrambling, 16 bit CRC"},
                       {31, "POS - Scrambling, 32 bit CRC"},
                       {32, "ATM mapping"},
                       {33, "Ethernet"},
                       {34, "SONET/SDH"},
                       {36, "Digital Wrapper"},
                       {37, "Lambda"},
                       {38, "ANSI/ETSI PDH"},
                       {40, "Link Access Protocol SDH (LAPS - X.85 and X.86)"},
                       {41, "FDDI"},
                       {42, "DQDB (ETSI ETS 300 216)"},
                       {43, "FiberChannel-3 (Services)"},
                       {44, "HDLC"},
                       {45, "Ethernet V2/DIX (only)"},
                       {46, "Ethernet 802.3 (only)"}};

// "N (name)" in text, the number and (when there is one) the name in JSON.
void named(rsvpdump::Out &out, const char *key, const char *name_key, unsigned value,
           const char *name) {
    out.u(key, value);
    if (name) out.text(" (").str(name_key, name).text(")");
}

void decode_label_request(uint8_t *obj, rsvpdump::Out &out) {
    uint16_t l3pid = 0;
    if (!rsvp_extract_label_request(obj, &l3pid)) return;
    out.line().text("label request, L3PID ").hex("l3pid", l3pid, 4);
    if (const char *name = lookup(kEthertypes, l3pid))
        out.text(" (").str("l3pid_name", name).text(")");
}

void decode_gen_label_request(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t encoding = 0, switching = 0;
    uint16_t gpid = 0;
    if (!rsvp_extract_gen_label_req(obj, &encoding, &switching, &gpid)) return;
    out.line().text("generalized label request, LSP encoding ");
    named(out, "encoding_type", "encoding_name", encoding, lookup(kEncodings, encoding));
    out.line().text("switching type ");
    named(out, "switching_type", "switching_name", switching, lookup(kSwitching, switching));
    out.line().text("G-PID ");
    named(out, "gpid", "gpid_name", gpid, lookup(kGpids, gpid));
}

void decode_label(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t label = 0;
    if (rsvp_extract_label(obj, &label))
        out.line().text("label ").u("label", label).textf(" (0x%05x)", label);
}

unsigned nibble(uint32_t word, unsigned shift) {
    return word >> shift & (RSVP_SONET_SDH_NIBBLE_LIMIT - 1);
}

// Any generalized label class: every word, and its SONET/SDH reading.
void decode_generalized(uint8_t *obj, rsvpdump::Out &out) {
    std::vector<uint32_t> words(RSVP_LABEL_LENGTH(obj) / sizeof(uint32_t) + 1);
    uint32_t *p = words.data();
    uint16_t count = 0;
    if (!rsvp_generalized_label_extract(obj, &p, &count,
                                        static_cast<uint8_t>(RSVP_OBJECT_CLASS(obj))))
        return;
    out.line().text("generalized label, ").u("count", count).text(count == 1 ? " word" : " words");
    out.open_list("labels");
    for (unsigned i = 0; i < count; ++i) {
        const uint32_t w = words[i];
        out.open_item().line().text("label ").u("index", i).text(": ").u("value", w);
        out.textf(" (0x%08x), SONET/SDH S ", w).u("s", w >> RSVP_SONET_SDH_S_SHIFT);
        out.text(" U ").u("u", nibble(w, RSVP_SONET_SDH_U_SHIFT));
        out.text(" K ").u("k", nibble(w, RSVP_SONET_SDH_K_SHIFT));
        out.text(" L ").u("l", nibble(w, RSVP_SONET_SDH_L_SHIFT));
        out.text(" M ").u("m", nibble(w, 0));
        out.close();
    }
    out.close();
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_LABEL_REQUEST, RSVP_CTYPE_LABEL_REQUEST, decode_label_request);
RSVPDUMP_DECODER(RSVP_CLASS_LABEL_REQUEST, RSVP_CTYPE_LABEL_REQUEST_GENERALIZED,
                 decode_gen_label_request);
RSVPDUMP_DECODER(RSVP_CLASS_LABEL, RSVP_CTYPE_LABEL, decode_label);
RSVPDUMP_DECODER(RSVP_CLASS_LABEL, RSVP_CTYPE_LABEL_GENERALIZED, decode_generalized);
RSVPDUMP_DECODER(RSVP_CLASS_RECOVERY_LABEL, RSVP_CTYPE_RECOVERY_LABEL_GENERALIZED,
                 decode_generalized);
RSVPDUMP_DECODER(RSVP_CLASS_UPSTREAM_LABEL, RSVP_CTYPE_UPSTREAM_LABEL_GENERALIZED,
                 decode_generalized);
RSVPDUMP_DECODER(RSVP_CLASS_SUGGESTED_LABEL, RSVP_CTYPE_SUGGESTED_LABEL_GENERALIZED,
                 decode_generalized);
