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
// Everything is appended to an internal buffer that the caller writes out once per message;
// no call allocates once the buffer has grown to the size of the largest message.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
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
    Out &line();
    // Text only: ignored in JSON.
    Out &text(std::string_view s);
    __attribute__((format(printf, 2, 3))) Out &textf(const char *fmt, ...);

    // ---- Keyed values: the text form at the current place in the line, and a JSON member --
    // Decimal number.
    Out &u(const char *key, uint64_t v);
    Out &i(const char *key, int64_t v);
    // Text "0x" and at least `digits` hex digits; JSON a number.
    Out &hex(const char *key, uint64_t v, int digits = 0);
    // Text as given (control and non-ASCII bytes escaped as \xNN); JSON a string.
    Out &str(const char *key, std::string_view v);
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
    Out &open_item();
    // Closes the innermost nest, list or item (a nest also ends the open text line; a list
    // or an item leaves it open, so items may share one line).
    Out &close();

    // Top-level framing for the caller that prints messages: a JSON object per message,
    // one per output line; in text, nothing.
    void begin_record();
    void end_record();

    // Text indentation of new lines, in spaces.
    void set_indent(int spaces) { indent_ = spaces; }
    int indent() const { return indent_; }

    // The rendered bytes so far; write() sends them to f and empties the buffer.
    const std::string &buffer() const { return buf_; }
    void write(std::FILE *f);
    // Drops what was rendered and any open structure (the caller starts afresh).
    void clear();

  private:
    enum class Scope : uint8_t { kObject, kList, kNest };
    void end_line();
    void key(const char *k);  // JSON: separator and "k":
    void json_string(std::string_view s);
    void text_escaped(std::string_view s);
    void append_u(uint64_t v);
    void append_hex(uint64_t v, int digits);
    void append_addr(uint32_t wire_order);

    bool json_;
    bool line_open_ = false;
    int indent_ = 6;
    std::string buf_;
    // JSON: per open scope, whether it already holds a member (so the next needs a comma).
    std::vector<std::pair<Scope, bool>> scopes_;
    // The local-time text of the last second shown, which most packets share.
    int64_t cached_sec_ = -1;
    char cached_time_[16] = {};
};

}  // namespace rsvpdump
