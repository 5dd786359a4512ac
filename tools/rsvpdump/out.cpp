#include "out.hpp"

#include <algorithm>
#include <cinttypes>
#include <cstdarg>

namespace rsvpdump {

namespace {

constexpr int kNestStep = 4;
constexpr char kHexDigits[] = "0123456789abcdef";

}  // namespace

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
        std::string big(static_cast<size_t>(n) + 1, '\0');
        va_start(ap, fmt);
        std::vsnprintf(big.data(), big.size(), fmt, ap);
        va_end(ap);
        big.pop_back();
        buf_ += big;
    }
    return *this;
}

void Out::key(const char *k) {
    if (!scopes_.empty()) {
        if (scopes_.back().second) buf_ += ',';
        scopes_.back().second = true;
    }
    if (k) {
        json_string(k);
        buf_ += ':';
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

Out &Out::u(const char *k, uint64_t v) {
    char tmp[24];
    const int n = std::snprintf(tmp, sizeof tmp, "%" PRIu64, v);
    if (json_) key(k);
    buf_.append(tmp, static_cast<size_t>(n));
    return *this;
}

Out &Out::i(const char *k, int64_t v) {
    char tmp[24];
    const int n = std::snprintf(tmp, sizeof tmp, "%" PRId64, v);
    if (json_) key(k);
    buf_.append(tmp, static_cast<size_t>(n));
    return *this;
}

Out &Out::hex(const char *k, uint64_t v, int digits) {
    if (json_) return u(k, v);
    char tmp[24];
    const int n = std::snprintf(tmp, sizeof tmp, "0x%0*" PRIx64, digits, v);
    buf_.append(tmp, static_cast<size_t>(n));
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
    const uint8_t *b = reinterpret_cast<const uint8_t *>(&wire_order);
    char tmp[16];
    const int n = std::snprintf(tmp, sizeof tmp, "%u.%u.%u.%u", b[0], b[1], b[2], b[3]);
    if (json_) {
        key(k);
        buf_ += '"';
        buf_.append(tmp, static_cast<size_t>(n));
        buf_ += '"';
    } else {
        buf_.append(tmp, static_cast<size_t>(n));
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
    if (!json_) {
        end_line();
        return;
    }
    while (!scopes_.empty())
        close();
    buf_ += '\n';
}

void Out::line(const char *fmt, ...) {
    if (json_) return;
    line();
    char tmp[512];
    va_list ap;
    va_start(ap, fmt);
    const int n = std::vsnprintf(tmp, sizeof tmp, fmt, ap);
    va_end(ap);
    if (n > 0) buf_.append(tmp, std::min(static_cast<size_t>(n), sizeof tmp - 1));
    end_line();
}

void Out::write(std::FILE *f) {
    end_line();
    if (!buf_.empty()) std::fwrite(buf_.data(), 1, buf_.size(), f);
    buf_.clear();
}

}  // namespace rsvpdump
