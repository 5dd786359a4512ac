// rsvpdump's decoders: one per object class, each in the file of its family.
//
// A family file defines a function that states the fields of a valid object of its class to an
// Out sink (out.hpp) and registers it with RSVPDUMP_DECODER; the message printer calls it for
// every object that rsvp_valid_object accepts, inside the object's "fields" member. Decoders use
// the library's public functions only.
#pragma once

#include <cstdint>
#include <string_view>

#include "out.hpp"

namespace rsvpdump {

using Decoder = void (*)(uint8_t *obj, Out &out);

// Matches every C-Type of a class.
inline constexpr int kAnyCType = -1;

// Registers the decoder of a class (for one C-Type, or for kAnyCType); returns true so that it
// can initialise a static. A decoder for the exact C-Type wins over one for kAnyCType.
bool register_decoder(uint8_t class_num, int c_type, Decoder decode);
Decoder find_decoder(uint8_t class_num, uint8_t c_type);

// Name of a Class-Num for the object line ("SESSION"), empty for a class without one.
std::string_view class_name(uint8_t class_num);

// Name of a C-Type of a class for the object line ("LSP_TUNNEL_IPV4"), or empty.
std::string_view c_type_name(uint8_t class_num, uint8_t c_type);

// Name of an Intserv service number ("Guaranteed", ...), "unknown" for others.
const char *intserv_service_name(unsigned service);

}  // namespace rsvpdump

#define RSVPDUMP_CONCAT2(a, b) a##b
#define RSVPDUMP_CONCAT(a, b) RSVPDUMP_CONCAT2(a, b)
#define RSVPDUMP_DECODER(class_num, c_type, fn)                                          \
    [[maybe_unused]] static const bool RSVPDUMP_CONCAT(rsvpdump_registered_, __LINE__) = \
        rsvpdump::register_decoder(class_num, c_type, fn)
