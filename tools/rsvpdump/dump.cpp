// The dumper's own state: where output goes and when, input problems, and the summary.
#include <cstdarg>
#include <string>

#include "dump.hpp"
#include "reassembly.hpp"

namespace rsvpdump {

namespace {

// Output is handed to the stream in chunks of about this size (a message is never split).
constexpr size_t kFlushAt = 1 << 16;

// " 3 truncated" style items of the summary, shown only when non-zero.
void add_count(std::string &s, uint64_t n, const char *what) {
    if (n == 0) return;
    s += ", " + std::to_string(n) + " " + what;
}

}  // namespace

Dumper::Dumper(const Options &options, std::FILE *out, std::FILE *err)
    : options_(options),
      out_(out),
      err_(err),
      sink_(options.format),
      reassembler_(std::make_unique<Reassembler>(*this)) {}

Dumper::~Dumper() {
    flush();
}

void Dumper::flush() {
    sink_.write(out_);
    std::fflush(out_);
}

void Dumper::flush_message() {
    if (options_.flush_each) {
        flush();
    } else if (sink_.buffer().size() >= kFlushAt) {
        sink_.write(out_);
    }
}

void Dumper::end_input() {
    reassembler_->flush();
    if (progress_shown_) {
        std::fputs("\r\033[K", err_);  // clears the progress line
        progress_shown_ = false;
    }
    flush();
}

void Dumper::report(const char *name, const char *fmt, ...) {
    flush();  // so that the report follows the messages before it
    if (progress_shown_) {
        std::fputs("\r\033[K", err_);
        progress_shown_ = false;
    }
    std::fprintf(err_, "rsvpdump: %s: ", name);
    va_list ap;
    va_start(ap, fmt);
    std::vfprintf(err_, fmt, ap);
    va_end(ap);
    std::fputc('\n', err_);
    std::fflush(err_);
}

void Dumper::print_summary() {
    flush();
    std::string s = "rsvpdump: " + std::to_string(stats_.messages) +
                    (stats_.messages == 1 ? " message" : " messages");
    const char *sep = " (";
    for (unsigned type = 0; type < stats_.by_type.size(); ++type) {
        if (!stats_.by_type[type]) continue;
        const char *name = message_type_name(static_cast<uint8_t>(type));
        s += sep + (name ? std::string(name) : "type " + std::to_string(type)) + ": " +
             std::to_string(stats_.by_type[type]);
        sep = ", ";
    }
    if (*sep == ',') s += ")";
    add_count(s, stats_.malformed, "malformed");
    add_count(s, stats_.invalid_objects,
              stats_.invalid_objects == 1 ? "invalid object" : "invalid objects");
    add_count(s, stats_.truncated, "truncated");
    add_count(s, stats_.incomplete, "incomplete");
    add_count(s, stats_.input_errors, stats_.input_errors == 1 ? "input error" : "input errors");
    add_count(s, stats_.inputs_failed,
              stats_.inputs_failed == 1 ? "input not read" : "inputs not read");
    std::fprintf(err_, "%s\n", s.c_str());
    std::fflush(err_);
}

}  // namespace rsvpdump
