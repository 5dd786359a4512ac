#include "out.hpp"

#include <arpa/inet.h>

#include <charconv>
#include <cstdarg>
#include <ctime>

namespace rsvpdump {

namespace {

constexpr int kNestStep = 4;
constexpr char kHexDigits[] = "0123456789abcdef";
// A hex dump line: offset, then 16 bytes in groups of two.
constexpr size_t kDumpLineBytes = 16;
constexpr size_t kDumpGroupBytes = 2;
constexpr int kDumpOffsetDigits = 4;
constexpr uint32_t kMicro = 1000000;
constexpr size_t kInitialBuffer = 1 << 16;

}  // namespace

Out::Out(Format format) : json_(format == Format::kJson) {
    buf_.reserve(kInitialBuffer);
    scopes_.reserve(16);
}

void Out::end_line() {
    if (line_open_) buf_ += '\n';
    line_open_ = false;
}

Out &Out::line() {
    if (json_) return *this;
    end_line();
    buf_.append(static_cast<size_t>(indent_), ' ');
    line_open_ = true;
    return *this;
}

Out &Out::text(std::string_view s) {
    if (!json_) buf_ += s;
    return *this;
}

Out &Out::textf(const char *fmt, ...) {
    if (json_) return *this;
    char tmp[256];
    va_list ap;
    va_start(ap, fmt);
    const int n = std::vsnprintf(tmp, sizeof tmp, fmt, ap);
    va_end(ap);
    if (n < 0) return *this;
    if (static_cast<size_t>(n) < sizeof tmp) {
        buf_.append(tmp, static_cast<size_t>(n));
    } else {
        const size_t at = buf_.size();
        buf_.resize(at + static_cast<size_t>(n) + 1);
        va_start(ap, fmt);
        std::vsnprintf(buf_.data() + at, static_cast<size_t>(n) + 1, fmt, ap);
        va_end(ap);
        buf_.pop_back();
    }
    return *this;
}

void Out::key(const char *k) {
    if (!scopes_.empty()) {
        if (scopes_.back().second) buf_ += ',';
        scopes_.back().second = true;
    }
    if (k) {  // keys are lower_snake_case: nothing to escape
        buf_ += '"';
        buf_ += k;
        buf_ += "\":";
    }
}

void Out::json_string(std::string_view s) {
    buf_ += '"';
    for (const char ch : s) {
        const auto c = static_cast<unsigned char>(ch);
        if (c == '"' || c == '\\') {
            buf_ += '\\';
            buf_ += ch;
        } else if (c < 0x20 || c >= 0x7f) {
            // Bytes from the wire are not UTF-8: each one outside printable ASCII is its own
            // code point, so the string stays valid JSON and the byte value is kept.
            buf_ += "\\u00";
            buf_ += kHexDigits[c >> 4];
            buf_ += kHexDigits[c & 0xf];
        } else {
            buf_ += ch;
        }
    }
    buf_ += '"';
}

void Out::text_escaped(std::string_view s) {
    for (const char ch : s) {
        const auto c = static_cast<unsigned char>(ch);
        if (c < 0x20 || c >= 0x7f || c == '\\') {
            buf_ += "\\x";
            buf_ += kHexDigits[c >> 4];
            buf_ += kHexDigits[c & 0xf];
        } else {
            buf_ += ch;
        }
    }
}

void Out::append_u(uint64_t v) {
    char tmp[24];
    const auto r = std::to_chars(tmp, tmp + sizeof tmp, v);
    buf_.append(tmp, static_cast<size_t>(r.ptr - tmp));
}

void Out::append_hex(uint64_t v, int digits) {
    char tmp[16];
    int n = 0;
    do {
        tmp[n++] = kHexDigits[v & 0xf];
        v >>= 4;
    } while (v != 0);
    for (; n < digits; --digits)
        buf_ += '0';
    while (n > 0)
        buf_ += tmp[--n];
}

void Out::append_addr(uint32_t wire_order) {
    const auto *b = reinterpret_cast<const uint8_t *>(&wire_order);
    for (int k = 0; k < 4; ++k) {
        if (k) buf_ += '.';
        append_u(b[k]);
    }
}

Out &Out::u(const char *k, uint64_t v) {
    if (json_) key(k);
    append_u(v);
    return *this;
}

Out &Out::i(const char *k, int64_t v) {
    if (json_) key(k);
    char tmp[24];
    const auto r = std::to_chars(tmp, tmp + sizeof tmp, v);
    buf_.append(tmp, static_cast<size_t>(r.ptr - tmp));
    return *this;
}

Out &Out::hex(const char *k, uint64_t v, int digits) {
    if (json_) return u(k, v);
    buf_ += "0x";
    append_hex(v, digits);
    return *this;
}

Out &Out::str(const char *k, std::string_view v) {
    if (json_) {
        key(k);
        json_string(v);
    } else {
        text_escaped(v);
    }
    return *this;
}

Out &Out::addr(const char *k, uint32_t wire_order) {
    if (json_) {
        key(k);
        buf_ += '"';
        append_addr(wire_order);
        buf_ += '"';
    } else {
        append_addr(wire_order);
    }
    return *this;
}

Out &Out::addr6(const char *k, const uint8_t *address) {
    char tmp[INET6_ADDRSTRLEN] = "?";
    inet_ntop(AF_INET6, address, tmp, sizeof tmp);
    if (json_) {
        key(k);
        buf_ += '"';
        buf_ += tmp;
        buf_ += '"';
    } else {
        buf_ += tmp;
    }
    return *this;
}

Out &Out::bytes(const char *k, const uint8_t *p, size_t n) {
    if (json_) {
        key(k);
        buf_ += '"';
    } else {
        buf_ += "0x";
    }
    for (size_t j = 0; j < n; ++j) {
        buf_ += kHexDigits[p[j] >> 4];
        buf_ += kHexDigits[p[j] & 0xf];
    }
    if (json_) buf_ += '"';
    return *this;
}

Out &Out::hexdump(const char *k, const uint8_t *p, size_t n) {
    if (json_) return bytes(k, p, n);
    for (size_t at = 0; at < n; at += kDumpLineBytes) {
        line().text("0x");
        append_hex(at, kDumpOffsetDigits);
        buf_ += ':';
        for (size_t j = at; j < n && j < at + kDumpLineBytes; ++j) {
            if ((j - at) % kDumpGroupBytes == 0) buf_ += ' ';
            if (j == at) buf_ += ' ';
            buf_ += kHexDigits[p[j] >> 4];
            buf_ += kHexDigits[p[j] & 0xf];
        }
    }
    return *this;
}

Out &Out::timestamp(const char *k, int64_t sec, uint32_t usec) {
    char tmp[24];
    if (json_) {
        key(k);
        append_u(static_cast<uint64_t>(sec < 0 ? 0 : sec));
        const auto r = std::to_chars(tmp, tmp + sizeof tmp, usec % kMicro + kMicro);
        buf_ += '.';
        buf_.append(tmp + 1, static_cast<size_t>(r.ptr - tmp - 1));  // six digits, zero-padded
        return *this;
    }
    if (sec != cached_sec_) {
        const time_t t = static_cast<time_t>(sec);
        struct tm tm {};
        if (!localtime_r(&t, &tm)) tm = {};
        std::snprintf(cached_time_, sizeof cached_time_, "%02d:%02d:%02d", tm.tm_hour, tm.tm_min,
                      tm.tm_sec);
        cached_sec_ = sec;
    }
    buf_ += cached_time_;
    const auto r = std::to_chars(tmp, tmp + sizeof tmp, usec % kMicro + kMicro);
    buf_ += '.';
    buf_.append(tmp + 1, static_cast<size_t>(r.ptr - tmp - 1));
    return *this;
}

Out &Out::flag(const char *k, bool v) {
    if (json_) {
        key(k);
        buf_ += v ? "true" : "false";
    }
    return *this;
}

Out &Out::nest(const char *k) {
    if (json_) {
        key(k);
        buf_ += '{';
    } else {
        end_line();
        indent_ += kNestStep;
    }
    scopes_.emplace_back(Scope::kNest, false);
    return *this;
}

Out &Out::open_list(const char *k) {
    if (json_) {
        key(k);
        buf_ += '[';
    }
    scopes_.emplace_back(Scope::kList, false);
    return *this;
}

Out &Out::open_item() {
    if (json_) {
        key(nullptr);
        buf_ += '{';
    }
    scopes_.emplace_back(Scope::kObject, false);
    return *this;
}

Out &Out::close() {
    if (scopes_.empty()) return *this;
    const Scope s = scopes_.back().first;
    scopes_.pop_back();
    if (json_) {
        buf_ += s == Scope::kList ? ']' : '}';
    } else if (s == Scope::kNest) {
        end_line();
        indent_ -= kNestStep;
    }
    return *this;
}

void Out::begin_record() {
    if (!json_) return;
    buf_ += '{';
    scopes_.emplace_back(Scope::kObject, false);
}

void Out::end_record() {
    while (!scopes_.empty())
        close();
    if (json_)
        buf_ += '\n';
    else
        end_line();
}

void Out::write(std::FILE *f) {
    end_line();
    if (!buf_.empty()) std::fwrite(buf_.data(), 1, buf_.size(), f);
    buf_.clear();
}

void Out::clear() {
    buf_.clear();
    scopes_.clear();
    line_open_ = false;
}

}  // namespace rsvpdump
