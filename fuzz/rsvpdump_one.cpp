#include "rsvpdump_one.hpp"

#include <pcap/dlt.h>

#include <vector>

#include "dump.hpp"

namespace {

constexpr int kLinkTypes[] = {DLT_EN10MB, DLT_LINUX_SLL, DLT_LINUX_SLL2, DLT_RAW,  DLT_NULL,
                              DLT_LOOP,   DLT_PPP,       DLT_C_HDLC,     DLT_IPV4, DLT_IPV6};
constexpr size_t kLinkCount = sizeof kLinkTypes / sizeof kLinkTypes[0];
constexpr uint8_t kJsonBit = 0x80;

}  // namespace

void rsvpdump_fuzz_one(const uint8_t *data, size_t size) {
    static std::FILE *const sink = std::fopen("/dev/null", "w");
    rsvpdump::Options options;
    if (size && (data[0] & kJsonBit)) options.format = rsvpdump::Out::Format::kJson;
    rsvpdump::Dumper dumper(options, sink, sink);
    dumper.dump_image(data, size, "fuzz");
    if (size == 0) return;
    const std::vector<uint8_t> frame(data + 1, data + size);
    rsvpdump::Origin origin;
    origin.source = "fuzz";
    dumper.dump_frame(kLinkTypes[data[0] % kLinkCount], frame.data(), frame.size(), origin);
    dumper.end_input();
}
