// rsvpdump's output sink: decoders describe what they find as named fields, and the sink
// renders them either as indented text lines or as JSON, so that no decoder knows the output
// format and the two outputs cannot drift apart.
//
// A decoder opens a line, then alternates text (shown only in the text output) and keyed
// values (shown in both):
//
//     out.line().text("refresh period ").u("refresh_ms", period).text(" ms");
//
// prints "      refresh period 30000 ms" as text and adds "refresh_ms":30000 to the JSON
// members of the object. Keys are lower_snake_case and unique within the JSON object they
// land in; something that repeats (hops, labels, TLVs, nested objects) goes in a list:
//
//     out.open_list("hops");
//     for (each hop) {
//         out.open_item();
//         out.line().text("hop ").u("index", n).text(": ").addr("address", a);
//         out.close();
//     }
//     out.close();
//
// In text, lists and items print nothing of their own; nest() indents the text lines of what
// follows until the matching close(), and is an ordinary JSON object member in JSON.
// Everything is appended to an internal buffer that the caller writes out between messages;
// no call allocates once the buffer has grown to the size of the largest message.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace rsvpdump {

class Out {
  public:
    enum class Format { kText, kJson };

    explicit Out(Format format = Format::kText);

    bool json() const { return json_; }

    // ---- Text lines -------------------------------------------------------------------------
    // Ends the open line (if any) and starts a new one at the current indentation.
    Out &line() {
        if (!json_) start_line();
        return *this;
    }
    // Text only: ignored in JSON.
    Out &text(std::string_view s) {
        if (!json_) put(s.data(), s.size());
        return *this;
    }
    __attribute__((format(printf, 2, 3))) Out &textf(const char *fmt, ...);

    // ---- Keyed values: the text form at the current place in the line, and a JSON member --
    // Decimal number.
    Out &u(const char *k, uint64_t v) {
        if (json_) key(k);
        append_u(v);
        return *this;
    }
    Out &i(const char *key, int64_t v);
    // Text "0x" and at least `digits` hex digits; JSON a number.
    Out &hex(const char *key, uint64_t v, int digits = 0);
    // Text as given (control and non-ASCII bytes escaped as \xNN); JSON a string.
    Out &str(const char *key, std::string_view v);
    // A name from the program's own tables (printable ASCII, no quote or backslash), shown as
    // it is; JSON a string.
    Out &name(const char *k, std::string_view v) {
        if (json_) return json_name(k, v);
        put(v.data(), v.size());
        return *this;
    }
    // Dotted quad of a wire-order IPv4 address; JSON a string.
    Out &addr(const char *key, uint32_t wire_order);
    // Text form of a 16-byte IPv6 address; JSON a string.
    Out &addr6(const char *key, const uint8_t *address);
    // Text "0x" and two hex digits a byte; JSON the same digits as a string (no "0x").
    Out &bytes(const char *key, const uint8_t *p, size_t n);
    // Text: the bytes as hex lines of 16 ("0x0010:  0a00 0001 ..."), each a new line at the
    // current indentation; JSON the digits as one string.
    Out &hexdump(const char *key, const uint8_t *p, size_t n);
    // Capture time: text the local time of day, as capture tools show it ("22:27:13.504618");
    // JSON the seconds since the epoch, as a number with six decimals.
    Out &timestamp(const char *key, int64_t sec, uint32_t usec);
    // JSON true/false; nothing in text (the decoder says it in words where it matters).
    Out &flag(const char *key, bool v);

    // ---- Structure -------------------------------------------------------------------------
    // A JSON object member under key; in text, the lines inside are indented one step.
    Out &nest(const char *key);
    // A JSON array under key; in text, nothing.
    Out &open_list(const char *key);
    // A JSON object as the next element of the open list; in text, nothing.
    Out &open_item() {
        if (json_) json_open('{', nullptr);
        scopes_.emplace_back(Scope::kObject, false);
        return *this;
    }
    // Closes the innermost nest, list or item (a nest also ends the open text line; a list
    // or an item leaves it open, so items may share one line).
    Out &close() {
        // Lists and items print nothing in text: the common case needs no call.
        if (!json_ && !scopes_.empty() && scopes_.back().first != Scope::kNest)
            scopes_.pop_back();
        else
            close_scope();
        return *this;
    }

    // Top-level framing for the caller that prints messages: a JSON object per message,
    // one per output line; in text, nothing.
    void begin_record();
    void end_record();

    // Text indentation of new lines, in spaces.
    void set_indent(int spaces) { indent_ = spaces; }
    int indent() const { return indent_; }

    // The rendered bytes so far; write() sends them to f and empties the buffer.
    std::string_view buffer() const { return {data_.get(), size_}; }
    void write(std::FILE *f);
    // Drops what was rendered and any open structure (the caller starts afresh).
    void clear();

  private:
    enum class Scope : uint8_t { kObject, kList, kNest };
    // The output buffer: room(n) makes room for n more bytes and points at it.
    char *room(size_t n) {
        if (cap_ - size_ < n) grow(n);
        return data_.get() + size_;
    }
    void put(const char *p, size_t n) {
        std::memcpy(room(n), p, n);
        size_ += n;
    }
    void put(char c) {
        *room(1) = c;
        ++size_;
    }
    void grow(size_t n);
    void end_line();
    void start_line();
    Out &json_name(const char *k, std::string_view v);
    void json_open(char bracket, const char *k);
    void close_scope();
    void key(const char *k);  // JSON: separator and "k":
    void json_string(std::string_view s);
    void text_escaped(std::string_view s);
    void append_u(uint64_t v) {
        if (v < 10) {  // most numbers shown are small
            put(static_cast<char>('0' + v));
            return;
        }
        append_big(v);
    }
    void append_big(uint64_t v);
    void append_hex(uint64_t v, int digits);
    void append_addr(uint32_t wire_order);
    void append_micro(uint32_t usec);

    bool json_;
    bool line_open_ = false;
    int indent_ = 6;
    std::unique_ptr<char[]> data_;
    size_t size_ = 0;
    size_t cap_ = 0;
    // JSON: per open scope, whether it already holds a member (so the next needs a comma).
    std::vector<std::pair<Scope, bool>> scopes_;
    // The local-time text of the last second shown, which most packets share.
    int64_t cached_sec_ = -1;
    char cached_time_[16] = {};
};

}  // namespace rsvpdump
