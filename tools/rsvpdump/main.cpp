// rsvpdump: prints the RSVP messages of packet captures, of hex text, or of a live interface.
//
// Exit status, as capture tools use it: 0 when every input was read (malformed messages are
// reported, not fatal), 1 with --strict when something was malformed, 2 for a usage error or
// an input that could not be opened or read (the other inputs are read all the same).
#include <getopt.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "dump.hpp"

namespace {

constexpr int kExitMalformed = 1;
constexpr int kExitUsage = 2;

void usage(std::FILE *f) {
    std::fputs(
        "usage: rsvpdump [--json] [--strict] [--hex] [-c COUNT] [FILE...]\n"
        "       rsvpdump [--json] [--strict] [-c COUNT] -i INTERFACE [EXPRESSION]\n"
        "Prints the RSVP messages of each FILE (standard input for none or '-'): a pcap or\n"
        "pcapng capture, or hex text with one message a line ('#' starts a comment); the\n"
        "format is recognised by content. With -i, captures RSVP on INTERFACE (narrowed by a\n"
        "BPF EXPRESSION if given) until interrupted.\n"
        "  -c COUNT    stop after COUNT messages\n"
        "  -i IFACE    capture live on IFACE\n"
        "  --hex       read every FILE as hex text\n"
        "  --json      one JSON object per message and line (JSON Lines)\n"
        "  --strict    exit with 1 when any message or record was malformed\n"
        "  --progress  show progress on standard error (default: when it is a terminal\n"
        "              and standard output is not)\n"
        "Exit status: 0 when every input was read, 1 (--strict) when something was\n"
        "malformed, 2 for a usage error or an input that could not be read.\n",
        f);
}

}  // namespace

int main(int argc, char **argv) {
    enum { kHex = 256, kJson, kStrict, kProgress };
    static const option kLong[] = {
        {"hex", no_argument, nullptr, kHex},       {"json", no_argument, nullptr, kJson},
        {"strict", no_argument, nullptr, kStrict}, {"progress", no_argument, nullptr, kProgress},
        {"help", no_argument, nullptr, 'h'},       {nullptr, 0, nullptr, 0}};
    rsvpdump::Options options;
    // Progress on a terminal, unless the messages themselves go there.
    options.progress = isatty(STDERR_FILENO) && !isatty(STDOUT_FILENO);
    bool strict = false;
    std::string interface;
    for (int c; (c = getopt_long(argc, argv, "c:i:h", kLong, nullptr)) != -1;) {
        switch (c) {
            case 'c': {
                char *end = nullptr;
                errno = 0;
                const unsigned long long n = std::strtoull(optarg, &end, 10);
                if (errno || end == optarg || *end || n == 0 || *optarg == '-') {
                    std::fprintf(stderr, "rsvpdump: -c needs a positive count, not '%s'\n", optarg);
                    return kExitUsage;
                }
                options.max_messages = n;
                break;
            }
            case 'i':
                interface = optarg;
                break;
            case kHex:
                options.force_hex = true;
                break;
            case kJson:
                options.format = rsvpdump::Out::Format::kJson;
                break;
            case kStrict:
                strict = true;
                break;
            case kProgress:
                options.progress = true;
                break;
            case 'h':
                usage(stdout);
                return 0;
            default:
                usage(stderr);
                return kExitUsage;
        }
    }
    std::vector<std::string> args(argv + optind, argv + argc);
    if (!interface.empty()) {  // every message as it comes, and no progress to show
        options.flush_each = true;
        options.progress = false;
    }

    rsvpdump::Dumper dumper(options, stdout, stderr);
    if (!interface.empty()) {
        std::string filter;
        for (const std::string &a : args)
            filter += (filter.empty() ? "" : " ") + a;
        dumper.dump_live(interface, filter);
    } else {
        if (args.empty()) args.push_back("-");
        for (const std::string &path : args) {
            if (dumper.limit_reached()) break;
            dumper.dump_path(path);
        }
    }
    dumper.print_summary();
    const rsvpdump::Stats &s = dumper.stats();
    if (s.inputs_failed) return kExitUsage;
    return strict && (s.malformed || s.incomplete || s.input_errors) ? kExitMalformed : 0;
}
