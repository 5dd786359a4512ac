// rsvpdump: prints RSVP messages given as hex, one message per line ('#' starts a comment).
//
// For each message it prints the common header and one line per object with the library's
// verdict, followed by the object's fields where a decoder knows the class. Malformed input
// (hex that does not parse, a length field that disagrees with the bytes, a broken object
// run, an object its class rejects) is reported on standard error naming the line, and the
// tool goes on; the exit status is 1 if any input was malformed, 2 on a usage error.
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "decode.hpp"
#include "pcap.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr int kExitMalformed = 1;
constexpr int kExitUsage = 2;

struct Source {
    std::string name;
    unsigned line = 0;
};

__attribute__((format(printf, 2, 3))) void report(const Source &src, const char *fmt, ...) {
    std::fflush(stdout);
    std::fprintf(stderr, "rsvpdump: %s:%u: ", src.name.c_str(), src.line);
    va_list ap;
    va_start(ap, fmt);
    std::vfprintf(stderr, fmt, ap);
    va_end(ap);
    std::fputc('\n', stderr);
    std::fflush(stderr);
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Hex digits in pairs, white space allowed between bytes. On failure, why.
bool parse_hex(const std::string &text, std::vector<uint8_t> &out, std::string &why) {
    out.clear();
    for (size_t i = 0; i < text.size();) {
        if (std::isspace(static_cast<unsigned char>(text[i]))) {
            ++i;
            continue;
        }
        const int hi = hex_digit(text[i]);
        if (hi < 0) {
            char shown[8];
            const auto c = static_cast<unsigned char>(text[i]);
            std::snprintf(shown, sizeof shown, std::isprint(c) ? "'%c'" : "byte 0x%02x", c);
            why =
                std::string(shown) + " at column " + std::to_string(i + 1) + " is not a hex digit";
            return false;
        }
        const int lo = i + 1 < text.size() ? hex_digit(text[i + 1]) : -1;
        if (lo < 0) {
            why = "odd hex digit at column " + std::to_string(i + 1);
            return false;
        }
        out.push_back(static_cast<uint8_t>(hi << 4 | lo));
        i += 2;
    }
    return true;
}

const char *verdict_text(uint32_t verdict) {
    switch (verdict) {
        case RSVP_OBJECT_VALID:
            return "valid";
        case RSVP_OBJECT_UNKNOWN_CLASS:
            return "unknown class";
        default:
            return "INVALID";
    }
}

// Prints one message; false if anything in it was malformed.
bool dump_message(const Source &src, std::vector<uint8_t> &msg) {
    if (msg.size() < RSVP_MSG_HDR_LEN) {
        report(src, "%zu bytes is shorter than the %d-byte common header", msg.size(),
               RSVP_MSG_HDR_LEN);
        return false;
    }
    const uint16_t length = RSVP_MESSAGE_LENGTH(msg.data());
    if (length != msg.size()) {
        report(src, "length field says %u bytes but the line holds %zu", length, msg.size());
        return false;
    }
    // A few validators deliberately read behind the object they check (the SENDER_TSPEC word
    // count may claim up to four times the body; the IF_ID hop walk looks at the header at
    // the object's end), so the message gets zeroed room behind it.
    msg.resize(msg.size() * 4 + 16, 0);
    uint8_t *m = msg.data();
    std::printf("%s:%u: message type %u version %u flags 0x%x ttl %u length %u\n", src.name.c_str(),
                src.line, RSVP_MESSAGE_TYPE(m), RSVP_MESSAGE_VERSION(m), RSVP_MESSAGE_FLAGS(m),
                RSVP_MESSAGE_SENDING_TTL(m), length);

    bool ok = true;
    uint8_t *first = RSVP_MESSAGE_FIRST_OBJECT_PTR(m);
    const uint32_t obj_len = RSVP_MESSAGE_OBJ_LEN(m);
    uint32_t remaining = obj_len;
    rsvpdump::Out out;
    // remaining always counts from the object to look at next to the end of the message.
    while (remaining > 0) {
        const uint32_t offset = RSVP_MSG_HDR_LEN + (obj_len - remaining);
        if (remaining < RSVP_OBJ_HDR_LEN) {
            report(src, "%u stray bytes at offset %u after the last object", remaining, offset);
            return false;
        }
        uint8_t *obj = first + (obj_len - remaining);
        const uint16_t obj_length = RSVP_OBJECT_LENGTH(obj);
        const auto cls = static_cast<uint8_t>(RSVP_OBJECT_CLASS(obj));
        if (obj_length < RSVP_OBJ_HDR_LEN || obj_length % 4 != 0 || obj_length > remaining) {
            report(src, "object at offset %u (class %u) has length %u, %s", offset, cls, obj_length,
                   obj_length > remaining ? "past the end of the message"
                                          : "not a whole number of words");
            return false;
        }
        const uint32_t verdict = rsvp_valid_object(obj);
        const char *name = rsvpdump::class_name(cls);
        std::printf("  object class %u%s%s c-type %u length %u: %s\n", cls, name ? " " : "",
                    name ? name : "", RSVP_OBJECT_C_TYPE(obj), obj_length, verdict_text(verdict));
        if (verdict == RSVP_OBJECT_INVALID && cls != RSVP_CLASS_NULL) {
            report(src, "object at offset %u (class %u c-type %u) is invalid", offset, cls,
                   RSVP_OBJECT_C_TYPE(obj));
            ok = false;
        }
        if (verdict == RSVP_OBJECT_VALID) {
            if (rsvpdump::Decoder decode =
                    rsvpdump::find_decoder(cls, static_cast<uint8_t>(RSVP_OBJECT_C_TYPE(obj))))
                decode(obj, out);
            out.write(stdout);
        }
        rsvp_next_nonnull_object(obj, &remaining);
    }
    return ok;
}

bool dump_stream(std::istream &in, const std::string &name) {
    Source src{name, 0};
    bool ok = true;
    std::string line;
    std::vector<uint8_t> msg;
    while (std::getline(in, line)) {
        ++src.line;
        if (const size_t hash = line.find('#'); hash != std::string::npos) line.resize(hash);
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        std::string why;
        if (!parse_hex(line, msg, why)) {
            report(src, "hex does not parse: %s", why.c_str());
            ok = false;
            continue;
        }
        if (!dump_message(src, msg)) ok = false;
    }
    return ok;
}

bool dump_capture(const std::string &path) {
    bool ok = true;
    std::string why;
    const bool read = rsvpdump::read_capture(
        path,
        [&](unsigned packet, std::vector<uint8_t> &msg) {
            if (!dump_message(Source{path, packet}, msg)) ok = false;
        },
        why);
    if (!read) {
        std::fprintf(stderr, "rsvpdump: %s: %s\n", path.c_str(), why.c_str());
        return false;
    }
    return ok;
}

bool is_capture(const std::string &f) {
    auto ends = [&](const char *ext) {
        const size_t n = std::strlen(ext);
        return f.size() >= n && f.compare(f.size() - n, n, ext) == 0;
    };
    return ends(".pcap") || ends(".pcapng");
}

void usage() {
    std::fprintf(stderr,
                 "usage: rsvpdump [--pcap] [FILE...]\n"
                 "Reads RSVP messages as hex, one per line ('#' starts a comment), from each\n"
                 "FILE or from standard input, and prints their header and objects. Files named\n"
                 "*.pcap or *.pcapng, or every FILE after --pcap, are read as packet captures:\n"
                 "each IPv4/IPv6 packet of protocol 46 is one message, numbered by packet.\n");
}

}  // namespace

int main(int argc, char **argv) {
    std::vector<std::string> files;
    bool captures = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "-h" || arg == "--help") {
            usage();
            return 0;
        }
        if (arg == "--pcap") {
            captures = true;
            continue;
        }
        files.push_back(arg);
    }
    if (files.empty()) files.push_back("-");
    bool ok = true;
    for (const std::string &f : files) {
        if (f != "-" && (captures || is_capture(f))) {
            ok = dump_capture(f) && ok;
            continue;
        }
        if (f == "-") {
            ok = dump_stream(std::cin, "<stdin>") && ok;
            continue;
        }
        std::ifstream in(f);
        if (!in) {
            std::fprintf(stderr, "rsvpdump: cannot open %s: %s\n", f.c_str(), std::strerror(errno));
            return kExitUsage;
        }
        ok = dump_stream(in, f) && ok;
    }
    return ok ? 0 : kExitMalformed;
}
