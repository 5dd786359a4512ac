// rsvpdump's core, shared by the command-line tool, its tests and its fuzz target: it turns
// inputs (capture files, hex text, single frames, live captures) into decoded messages on an
// output stream, and reports input problems on an error stream.
//
//   input (input.cpp, live.cpp)  ->  frame (packet.cpp)  ->  IP datagram, reassembled when
//   fragmented (reassembly.cpp)  ->  RSVP message (message.cpp)  ->  object decoders
//
// Everything streams: one record is in memory at a time, plus a bounded set of unfinished
// fragmented datagrams.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "out.hpp"

namespace rsvpdump {

struct Options {
    Out::Format format = Out::Format::kText;
    bool force_hex = false;     // read every input as hex text, whatever it holds
    uint64_t max_messages = 0;  // stop after this many messages (0: no limit)
    bool flush_each = false;    // write each message out as soon as it is decoded
    bool progress = false;      // show a progress line on the error stream
};

// Where a record came from: the input's name and the record's number in it (packet number,
// or line number of hex text), and the capture time when there is one.
struct Origin {
    const char *source = "";
    uint64_t record = 0;
    bool has_time = false;
    int64_t sec = 0;
    uint32_t usec = 0;
};

// The IP datagram (or UDP datagram) that carried a message.
struct IpInfo {
    uint8_t version = 0;   // 4 or 6
    uint8_t ttl = 0;       // TTL or hop limit
    uint8_t src[16] = {};  // IPv4 addresses in the first four bytes, as on the wire
    uint8_t dst[16] = {};
    uint16_t udp_port = 0;   // destination port when carried over UDP, else 0
    uint16_t fragments = 0;  // number of fragments it was reassembled from, 0 if whole
};

struct Stats {
    uint64_t messages = 0;
    std::array<uint64_t, 256> by_type{};
    uint64_t malformed = 0;        // messages with any problem below, or a bad checksum
    uint64_t invalid_objects = 0;  // objects the library rejects
    uint64_t truncated = 0;        // messages cut short by the capture
    uint64_t incomplete = 0;       // fragmented datagrams never completed
    uint64_t input_errors = 0;     // records cut short, hex lines that do not parse
    uint64_t inputs_failed = 0;    // inputs that could not be opened or recognised
};

class Reassembler;

class Dumper {
  public:
    Dumper(const Options &options, std::FILE *out, std::FILE *err);
    ~Dumper();
    Dumper(const Dumper &) = delete;
    Dumper &operator=(const Dumper &) = delete;

    // Reads one input: a file name, or "-" for standard input. Its format (pcap, pcapng or
    // hex text) is recognised by content. False when it could not be opened or recognised.
    bool dump_path(const std::string &path);
    // The same for a whole input held in memory (a capture file image or hex text).
    bool dump_image(const uint8_t *data, size_t size, const char *name);
    // The same for an open stream, which it closes.
    bool dump_stream(std::FILE *f, const char *name);
    // Captures on a network interface until the message limit or a signal stops it; filter
    // is a BPF expression that further narrows the RSVP filter (may be empty).
    bool dump_live(const std::string &interface, const std::string &filter);

    // One captured frame of the given link type (a DLT_ value).
    void dump_frame(int link_type, const uint8_t *frame, size_t caplen, const Origin &origin);
    // One RSVP message (captured bytes, possibly cut short of its length), with the datagram
    // that carried it when there was one.
    void dump_message(const uint8_t *msg, size_t captured, const Origin &origin, const IpInfo *ip);

    // Ends an input: reports what is left of unfinished fragmented datagrams.
    void end_input();
    // True once the message limit is reached: the caller stops reading.
    bool limit_reached() const {
        return options_.max_messages && stats_.messages >= options_.max_messages;
    }
    const Stats &stats() const { return stats_; }
    // One line on the error stream: messages by type and the problems counted.
    void print_summary();
    // Reports an input problem on the error stream, as "rsvpdump: NAME: TEXT".
    __attribute__((format(printf, 3, 4))) void report(const char *name, const char *fmt, ...);

  private:
    friend class Reassembler;
    bool dump_hex(std::FILE *f, const char *name);
    // src is the file under f, whose position shows the progress through size bytes.
    bool dump_pcap(std::FILE *f, const char *name, std::FILE *src, uint64_t size);
    void dump_ip(const uint8_t *packet, size_t n, const Origin &origin);
    void deliver(const uint8_t *payload, size_t n, uint8_t protocol, const IpInfo &ip,
                 const Origin &origin);
    // A datagram given up: head holds its first bytes when its first fragment came.
    void report_incomplete(const IpInfo &ip, const Origin &origin, uint32_t id, uint8_t protocol,
                           size_t received, size_t total, const uint8_t *head, size_t head_n);
    void header_prefix(const Origin &origin, const IpInfo *ip);
    void flush_message();
    void flush();  // writes out what the sink holds
    void progress(const char *name, uint64_t records, std::FILE *f, uint64_t size);

    Options options_;
    std::FILE *out_;
    std::FILE *err_;
    Out sink_;
    Stats stats_;
    std::vector<uint8_t> msg_;  // the message being decoded, with zeroed room behind it
    size_t msg_held_ = 0;       // bytes of it that the last message filled
    std::unique_ptr<Reassembler> reassembler_;
    int64_t last_progress_ = 0;
    bool progress_shown_ = false;
};

// Big-endian loads from any byte address, for the headers around RSVP messages (capture
// files, link layers, IP, UDP); the messages themselves are read through the library.
inline uint16_t load_be16(const uint8_t *p) {
    return static_cast<uint16_t>(p[0] << 8 | p[1]);
}
inline uint32_t load_be32(const uint8_t *p) {
    return static_cast<uint32_t>(p[0]) << 24 | static_cast<uint32_t>(p[1]) << 16 |
           static_cast<uint32_t>(p[2]) << 8 | p[3];
}

// The name of a message type, or nullptr while the library's text unit is not there.
const char *message_type_name(uint8_t type);

// Whether frames of a link type (a DLT_ value) can be decoded.
bool link_type_supported(int link);

}  // namespace rsvpdump
