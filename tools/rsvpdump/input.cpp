// Inputs: a file, standard input or a memory image, recognised by its first bytes as a pcap or
// pcapng capture (read through libpcap, record by record) or as hex text (one message a line,
// '#' starting a comment). Nothing is read ahead beyond what the format needs, so pipes work
// and memory stays flat however long the input.
#include <pcap/pcap.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <string>

#include "dump.hpp"

namespace rsvpdump {

namespace {

constexpr uint32_t kPcapMagicMicro = 0xa1b2c3d4;
constexpr uint32_t kPcapMagicNano = 0xa1b23c4d;
constexpr uint32_t kPcapMagicModified = 0xa1b2cd34;
constexpr uint32_t kPcapngSectionHeader = 0x0a0d0d0a;
constexpr uint32_t kPcapngByteOrderMagic = 0x1a2b3c4d;
constexpr size_t kPcapngByteOrderOffset = 8;
// Enough to tell the formats apart: the magic numbers, and a stretch of text for hex.
constexpr size_t kSniffLen = 512;
// From a pipe: the pcapng byte-order magic is the furthest a format needs to be told.
constexpr size_t kStreamSniffLen = kPcapngByteOrderOffset + 4;
constexpr uint64_t kProgressEvery = 4096;  // records between looks at the clock
// A hex line long enough for the largest message, its bytes spaced out, and a comment.
constexpr size_t kMaxHexLine = 1 << 18;

bool is_magic(uint32_t word, uint32_t magic) {
    return word == magic || word == __builtin_bswap32(magic);
}

enum class Format { kEmpty, kCapture, kHex, kUnknown };

Format sniff(const uint8_t *head, size_t n) {
    if (n == 0) return Format::kEmpty;
    if (n >= 4) {
        const uint32_t magic = load_be32(head);
        if (is_magic(magic, kPcapMagicMicro) || is_magic(magic, kPcapMagicNano) ||
            is_magic(magic, kPcapMagicModified))
            return Format::kCapture;
        if (magic == kPcapngSectionHeader &&
            (n < kPcapngByteOrderOffset + 4 ||
             is_magic(load_be32(head + kPcapngByteOrderOffset), kPcapngByteOrderMagic)))
            return Format::kCapture;
    }
    for (size_t i = 0; i < n; ++i)
        if (!std::isprint(head[i]) && !std::isspace(head[i])) return Format::kUnknown;
    return Format::kHex;
}

// A stream whose first bytes were read to recognise the format, replayed in front of the
// rest, so that libpcap reads the input from its start even from a pipe.
struct Peeked {
    std::FILE *src;
    uint8_t head[kSniffLen];
    size_t n = 0;
    size_t pos = 0;
    // A pipe or terminal, read unbuffered: each read returns what has come so far, so that a
    // packet is decoded as soon as it arrives instead of when a whole buffer has.
    bool stream = false;
};

ssize_t peeked_read(void *cookie, char *buf, size_t size) {
    auto *p = static_cast<Peeked *>(cookie);
    if (p->pos < p->n) {
        const size_t done = std::min(size, p->n - p->pos);
        std::memcpy(buf, p->head + p->pos, done);
        p->pos += done;
        return static_cast<ssize_t>(done);
    }
    if (p->stream) {
        ssize_t got;
        do
            got = read(fileno(p->src), buf, size);
        while (got < 0 && errno == EINTR);
        return got;
    }
    const size_t done = std::fread(buf, 1, size, p->src);
    return done == 0 && std::ferror(p->src) ? -1 : static_cast<ssize_t>(done);
}

int peeked_close(void *cookie) {
    auto *p = static_cast<Peeked *>(cookie);
    const int rc = p->src == stdin ? 0 : std::fclose(p->src);
    delete p;
    return rc;
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Hex digits in pairs, white space allowed between bytes. On failure, why (into a buffer).
bool parse_hex(const char *text, size_t len, std::vector<uint8_t> &out, char *why, size_t why_len) {
    out.clear();
    for (size_t i = 0; i < len;) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (std::isspace(c)) {
            ++i;
            continue;
        }
        const int hi = hex_digit(text[i]);
        if (hi < 0) {
            if (std::isprint(c))
                std::snprintf(why, why_len, "'%c' at column %zu is not a hex digit", c, i + 1);
            else
                std::snprintf(why, why_len, "byte 0x%02x at column %zu is not a hex digit", c,
                              i + 1);
            return false;
        }
        const int lo = i + 1 < len ? hex_digit(text[i + 1]) : -1;
        if (lo < 0) {
            std::snprintf(why, why_len, "odd hex digit at column %zu", i + 1);
            return false;
        }
        out.push_back(static_cast<uint8_t>(hi << 4 | lo));
        i += 2;
    }
    return true;
}

int64_t now_seconds() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec;
}

}  // namespace

bool Dumper::dump_path(const std::string &path) {
    if (path == "-") return dump_stream(stdin, "<stdin>");
    struct stat st {};
    if (stat(path.c_str(), &st) != 0) {
        report(path.c_str(), "cannot open: %s", std::strerror(errno));
        ++stats_.inputs_failed;
        return false;
    }
    if (S_ISDIR(st.st_mode)) {
        report(path.c_str(), "cannot read: is a directory");
        ++stats_.inputs_failed;
        return false;
    }
    std::FILE *f = std::fopen(path.c_str(), "rb");
    if (!f) {
        report(path.c_str(), "cannot open: %s", std::strerror(errno));
        ++stats_.inputs_failed;
        return false;
    }
    return dump_stream(f, path.c_str());
}

bool Dumper::dump_image(const uint8_t *data, size_t size, const char *name) {
    if (size == 0) {
        report(name, "empty input, nothing to read");
        return true;
    }
    std::FILE *f = fmemopen(const_cast<uint8_t *>(data), size, "rb");
    if (!f) {
        report(name, "cannot read: %s", std::strerror(errno));
        ++stats_.inputs_failed;
        return false;
    }
    return dump_stream(f, name);
}

bool Dumper::dump_stream(std::FILE *f, const char *name) {
    auto *peeked = new Peeked{f, {}, 0, 0};
    struct stat st {};
    const int fd = fileno(f);  // none for an image in memory
    const bool regular = fd >= 0 && fstat(fd, &st) == 0 && S_ISREG(st.st_mode);
    if (fd >= 0 && !regular) {
        peeked->stream = true;
        std::setvbuf(f, nullptr, _IONBF, 0);  // nothing read ahead behind the format's bytes
    }
    bool failed = false;
    if (peeked->stream) {
        // Enough to tell the formats apart, without waiting for a whole head of bytes.
        while (peeked->n < kStreamSniffLen) {
            const ssize_t got = read(fd, peeked->head + peeked->n, sizeof peeked->head - peeked->n);
            if (got > 0) peeked->n += static_cast<size_t>(got);
            if (got == 0 || (got < 0 && errno != EINTR)) {
                failed = got < 0;
                break;
            }
        }
    } else {
        peeked->n = std::fread(peeked->head, 1, sizeof peeked->head, f);
        failed = std::ferror(f);
    }
    if (peeked->n == 0 && failed) {
        report(name, "cannot read: %s", std::strerror(errno));
        peeked_close(peeked);
        ++stats_.inputs_failed;
        return false;
    }
    const Format format = options_.force_hex ? Format::kHex : sniff(peeked->head, peeked->n);
    if (format == Format::kEmpty || format == Format::kUnknown) {
        if (format == Format::kEmpty)
            report(name, "empty input, nothing to read");
        else
            report(name, "cannot read: neither a pcap or pcapng capture nor hex text");
        peeked_close(peeked);
        if (format == Format::kUnknown) ++stats_.inputs_failed;
        return format == Format::kEmpty;
    }
    std::FILE *replay = fopencookie(peeked, "rb", {peeked_read, nullptr, nullptr, peeked_close});
    if (!replay) {
        report(name, "cannot read: %s", std::strerror(errno));
        peeked_close(peeked);
        ++stats_.inputs_failed;
        return false;
    }
    const uint64_t size = options_.progress && regular ? st.st_size : 0;
    // Messages from a pipe go out as they are decoded, as from a live interface.
    const bool flush_each = options_.flush_each;
    options_.flush_each = flush_each || peeked->stream;
    const bool ok = format == Format::kHex ? dump_hex(replay, name)
                                           : dump_pcap(replay, name, peeked->src, size);
    end_input();
    options_.flush_each = flush_each;
    return ok;
}

bool Dumper::dump_hex(std::FILE *f, const char *name) {
    std::string line;
    std::vector<uint8_t> bytes;
    Origin origin;
    origin.source = name;
    for (bool more = true; more && !limit_reached();) {
        // One line, of which at most kMaxHexLine bytes are kept: memory stays bounded.
        line.clear();
        bool too_long = false;
        int c;
        while ((c = getc_unlocked(f)) != EOF && c != '\n') {
            if (line.size() < kMaxHexLine)
                line += static_cast<char>(c);
            else
                too_long = true;
        }
        more = c != EOF;
        if (c == EOF && line.empty()) break;
        ++origin.record;
        size_t n = line.find('#');
        if (n == std::string::npos) n = line.size();
        if (line.find_first_not_of(" \t\r\v\f") >= n) continue;
        char why[96] = "longer than any message";
        if (too_long || !parse_hex(line.data(), n, bytes, why, sizeof why)) {
            report(name, "line %llu: hex does not parse: %s",
                   static_cast<unsigned long long>(origin.record), why);
            ++stats_.input_errors;
            continue;
        }
        dump_message(bytes.data(), bytes.size(), origin, nullptr);
    }
    std::fclose(f);
    return true;
}

bool Dumper::dump_pcap(std::FILE *f, const char *name, std::FILE *src, uint64_t size) {
    char errbuf[PCAP_ERRBUF_SIZE] = "";
    pcap_t *p = pcap_fopen_offline(f, errbuf);
    if (!p) {
        report(name, "cannot read: %s", errbuf);
        std::fclose(f);
        ++stats_.inputs_failed;
        return false;
    }
    const int link = pcap_datalink(p);
    if (!link_type_supported(link)) {
        const char *link_name = pcap_datalink_val_to_name(link);
        report(name, "record 1: link type %d (%s) is not supported", link,
               link_name ? link_name : "unknown");
        pcap_close(p);
        ++stats_.inputs_failed;
        return false;
    }
    Origin origin;
    origin.source = name;
    origin.has_time = true;
    pcap_pkthdr *h = nullptr;
    const u_char *data = nullptr;
    while (!limit_reached()) {
        const int rc = pcap_next_ex(p, &h, &data);
        if (rc == PCAP_ERROR_BREAK) break;  // the end of the file
        ++origin.record;
        if (rc != 1) {
            report(name, "record %llu: %s", static_cast<unsigned long long>(origin.record),
                   pcap_geterr(p));
            ++stats_.input_errors;
            break;
        }
        origin.sec = h->ts.tv_sec;
        origin.usec = static_cast<uint32_t>(h->ts.tv_usec);
        dump_frame(link, data, h->caplen, origin);
        if (size && origin.record % kProgressEvery == 0) progress(name, origin.record, src, size);
    }
    pcap_close(p);
    return true;
}

void Dumper::progress(const char *name, uint64_t records, std::FILE *src, uint64_t size) {
    const int64_t now = now_seconds();
    if (now == last_progress_) return;
    last_progress_ = now;
    const off_t at = ftello(src);
    flush();
    std::fprintf(err_, "\rrsvpdump: %s: %llu records, %d%%", name,
                 static_cast<unsigned long long>(records),
                 at < 0 ? 0 : static_cast<int>(static_cast<uint64_t>(at) * 100 / size));
    std::fflush(err_);
    progress_shown_ = true;
}

}  // namespace rsvpdump
