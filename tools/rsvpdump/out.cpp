#include "out.hpp"

#include <arpa/inet.h>

#include <algorithm>
#include <array>
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
constexpr int kMicroDigits = 6;
constexpr size_t kInitialBuffer = 1 << 17;
constexpr size_t kMaxDecimal = 20;
constexpr size_t kSpaceWord = 8;  // digits of the largest 64-bit number, and a sign

// The decimal text of every byte value, for addresses: its length, then up to three digits.
constexpr auto kOctets = [] {
    std::array<std::array<char, 4>, 256> t{};
    for (unsigned v = 0; v < t.size(); ++v) {
        const unsigned digits = v >= 100 ? 3 : v >= 10 ? 2 : 1;
        t[v][0] = static_cast<char>(digits);
        for (unsigned k = digits, rest = v; k > 0; --k, rest /= 10)
            t[v][k] = static_cast<char>('0' + rest % 10);
    }
    return t;
}();

bool needs_escape(unsigned char c) {
    return c < 0x20 || c >= 0x7f || c == '\\';
}

}  // namespace

Out::Out(Format format) : json_(format == Format::kJson) {
    grow(kInitialBuffer);
    scopes_.reserve(16);
}

void Out::grow(size_t n) {
    const size_t cap = std::max(cap_ * 2, size_ + n);
    std::unique_ptr<char[]> bigger(new char[cap]);
    if (size_) std::memcpy(bigger.get(), data_.get(), size_);
    data_ = std::move(bigger);
    cap_ = cap;
}

void Out::end_line() {
    if (line_open_) put('\n');
    line_open_ = false;
}

void Out::start_line() {
    end_line();
    // Whole words of spaces (indents are short), the last one spilling into the room.
    const auto n = static_cast<size_t>(indent_);
    char *p = room(n + kSpaceWord);
    for (size_t k = 0; k < n; k += kSpaceWord)
        std::memcpy(p + k, "        ", kSpaceWord);
    size_ += n;
    line_open_ = true;
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
        put(tmp, static_cast<size_t>(n));
    } else {
        va_start(ap, fmt);
        std::vsnprintf(room(static_cast<size_t>(n) + 1), static_cast<size_t>(n) + 1, fmt, ap);
        va_end(ap);
        size_ += static_cast<size_t>(n);
    }
    return *this;
}

void Out::key(const char *k) {
    if (!scopes_.empty()) {
        if (scopes_.back().second) put(',');
        scopes_.back().second = true;
    }
    if (k) {  // keys are lower_snake_case: nothing to escape
        put('"');
        put(k, std::strlen(k));
        put("\":", 2);
    }
}

void Out::json_string(std::string_view s) {
    put('"');
    for (const char ch : s) {
        const auto c = static_cast<unsigned char>(ch);
        if (c == '"' || c == '\\') {
            put('\\');
            put(ch);
        } else if (c < 0x20 || c >= 0x7f) {
            // Bytes from the wire are not UTF-8: each one outside printable ASCII is its own
            // code point, so the string stays valid JSON and the byte value is kept.
            const char esc[] = {'\\', 'u', '0', '0', kHexDigits[c >> 4], kHexDigits[c & 0xf]};
            put(esc, sizeof esc);
        } else {
            put(ch);
        }
    }
    put('"');
}

void Out::text_escaped(std::string_view s) {
    size_t clean = 0;  // the run of bytes before the first to escape goes in one piece
    while (clean < s.size() && !needs_escape(static_cast<unsigned char>(s[clean])))
        ++clean;
    put(s.data(), clean);
    for (size_t i = clean; i < s.size(); ++i) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (needs_escape(c)) {
            const char esc[] = {'\\', 'x', kHexDigits[c >> 4], kHexDigits[c & 0xf]};
            put(esc, sizeof esc);
        } else {
            put(s[i]);
        }
    }
}

void Out::append_big(uint64_t v) {
    char *p = room(kMaxDecimal);
    size_ += static_cast<size_t>(std::to_chars(p, p + kMaxDecimal, v).ptr - p);
}

void Out::append_hex(uint64_t v, int digits) {
    char tmp[16];
    int n = 0;
    do {
        tmp[n++] = kHexDigits[v & 0xf];
        v >>= 4;
    } while (v != 0);
    const int width = std::max(n, digits);
    char *p = room(static_cast<size_t>(width));
    for (int k = n; k < width; ++k)
        *p++ = '0';
    while (n > 0)
        *p++ = tmp[--n];
    size_ += static_cast<size_t>(width);
}

void Out::append_addr(uint32_t wire_order) {
    const auto *b = reinterpret_cast<const uint8_t *>(&wire_order);
    char *p = room(sizeof "255.255.255.255");
    char *const start = p;
    for (int k = 0; k < 4; ++k) {
        if (k) *p++ = '.';
        const auto &text = kOctets[b[k]];
        std::memcpy(p, text.data() + 1, 3);  // the room allows the spare bytes
        p += text[0];
    }
    size_ += static_cast<size_t>(p - start);
}

// ".000042": the six digits of the microseconds.
void Out::append_micro(uint32_t usec) {
    char *p = room(1 + kMicroDigits);
    *p = '.';
    usec %= kMicro;
    for (int k = kMicroDigits; k > 0; --k, usec /= 10)
        p[k] = static_cast<char>('0' + usec % 10);
    size_ += 1 + kMicroDigits;
}

Out &Out::i(const char *k, int64_t v) {
    if (json_) key(k);
    char *p = room(kMaxDecimal);
    size_ += static_cast<size_t>(std::to_chars(p, p + kMaxDecimal, v).ptr - p);
    return *this;
}

Out &Out::hex(const char *k, uint64_t v, int digits) {
    if (json_) return u(k, v);
    put("0x", 2);
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

Out &Out::json_name(const char *k, std::string_view v) {
    key(k);
    put('"');
    put(v.data(), v.size());
    put('"');
    return *this;
}

Out &Out::addr(const char *k, uint32_t wire_order) {
    if (json_) {
        key(k);
        put('"');
        append_addr(wire_order);
        put('"');
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
        put('"');
        put(tmp, std::strlen(tmp));
        put('"');
    } else {
        put(tmp, std::strlen(tmp));
    }
    return *this;
}

Out &Out::bytes(const char *k, const uint8_t *p, size_t n) {
    if (json_) {
        key(k);
        put('"');
    } else {
        put("0x", 2);
    }
    char *q = room(2 * n);
    for (size_t j = 0; j < n; ++j) {
        *q++ = kHexDigits[p[j] >> 4];
        *q++ = kHexDigits[p[j] & 0xf];
    }
    size_ += 2 * n;
    if (json_) put('"');
    return *this;
}

Out &Out::hexdump(const char *k, const uint8_t *p, size_t n) {
    if (json_) return bytes(k, p, n);
    for (size_t at = 0; at < n; at += kDumpLineBytes) {
        line();
        put("0x", 2);
        append_hex(at, kDumpOffsetDigits);
        put(": ", 2);
        const size_t end = std::min(n, at + kDumpLineBytes);
        char *q = room(3 * kDumpLineBytes);
        char *const start = q;
        for (size_t j = at; j < end; ++j) {
            if ((j - at) % kDumpGroupBytes == 0) *q++ = ' ';
            *q++ = kHexDigits[p[j] >> 4];
            *q++ = kHexDigits[p[j] & 0xf];
        }
        size_ += static_cast<size_t>(q - start);
    }
    return *this;
}

Out &Out::timestamp(const char *k, int64_t sec, uint32_t usec) {
    if (json_) {
        key(k);
        append_u(static_cast<uint64_t>(sec < 0 ? 0 : sec));
        append_micro(usec);
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
    put(cached_time_, std::strlen(cached_time_));
    append_micro(usec);
    return *this;
}

Out &Out::flag(const char *k, bool v) {
    if (json_) {
        key(k);
        if (v)
            put("true", 4);
        else
            put("false", 5);
    }
    return *this;
}

Out &Out::nest(const char *k) {
    if (json_) {
        key(k);
        put('{');
    } else {
        end_line();
        indent_ += kNestStep;
    }
    scopes_.emplace_back(Scope::kNest, false);
    return *this;
}

void Out::json_open(char bracket, const char *k) {
    key(k);
    put(bracket);
}

Out &Out::open_list(const char *k) {
    if (json_) json_open('[', k);
    scopes_.emplace_back(Scope::kList, false);
    return *this;
}

void Out::close_scope() {
    if (scopes_.empty()) return;
    const Scope s = scopes_.back().first;
    scopes_.pop_back();
    if (json_) {
        put(s == Scope::kList ? ']' : '}');
    } else if (s == Scope::kNest) {
        end_line();
        indent_ -= kNestStep;
    }
}

void Out::begin_record() {
    if (!json_) return;
    put('{');
    scopes_.emplace_back(Scope::kObject, false);
}

void Out::end_record() {
    while (!scopes_.empty())
        close();
    if (json_)
        put('\n');
    else
        end_line();
}

void Out::write(std::FILE *f) {
    end_line();
    if (size_) std::fwrite(data_.get(), 1, size_, f);
    size_ = 0;
}

void Out::clear() {
    size_ = 0;
    scopes_.clear();
    line_open_ = false;
}

}  // namespace rsvpdump
