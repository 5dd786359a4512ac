// One RSVP message: the header line (where and when it was seen, the datagram that carried it,
// the common header and the checksum verdict), then one line per object with the library's
// verdict and the fields its decoder states, or its bytes when the library does not accept
// it. A message cut short by the capture shows every object that fits, then a truncation mark.
#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "decode.hpp"
#include "dump.hpp"
#include "rsvp_lib_util.h"
#include "rsvp_object_lib.h"

namespace rsvpdump {

namespace {

constexpr int kHeaderIndent = 0;
constexpr int kObjectIndent = 2;
constexpr int kBytesIndent = 6;
// A few validators deliberately read behind the object they check (the SENDER_TSPEC word
// count may claim up to four times the body; the IF_ID hop walk looks at the header at the
// object's end), so the message is decoded from a copy with zeroed room behind it.
constexpr size_t kRoomFactor = 4;
constexpr size_t kRoomExtra = 16;
constexpr uint16_t kAllOnes = 0xffff;
constexpr unsigned kWordLen = 4;  // object lengths count whole words
constexpr char kUnknownTypeName[] = "Unknown";
constexpr size_t kTypeCount = 256;  // the 8-bit message type

// Path (1), Resv, PathErr, ResvErr, PathTear and ResvTear (6) belong to one flow and are shown
// with the flow string of a daemon's log lines.
constexpr uint8_t kFirstFlowType = 1, kLastFlowType = 6;
bool has_flow(uint8_t type) {
    return type >= kFirstFlowType && type <= kLastFlowType;
}

// The flow string reads the SESSION, S2L_SUB_LSP and sender or filter objects at their fixed
// offsets, so it is shown only when each of them that the message holds is valid. Its text
// depends on those objects alone.
constexpr uint8_t kFlowClasses[] = {RSVP_CLASS_SESSION, RSVP_CLASS_S2L_SUB_LSP,
                                    RSVP_CLASS_SENDER_TEMPLATE, RSVP_CLASS_FILTER_SPEC};

// Formatting a flow string costs about a microsecond, and a capture carries the same flows again
// with every refresh: the texts are kept in a direct-mapped table keyed on the bytes of the
// objects they are made from (the first of each flow class, each behind a byte saying whether
// the message holds one).
class FlowCache {
  public:
    // The flow string of the object run, or nullptr when one of its objects is not valid.
    const char *flow(uint8_t *objects, uint32_t length) {
        // One walk finds what rsvp_first_object_type would find for each class: the first
        // object of the class, stopping at an object that is not walkable.
        uint8_t *found[std::size(kFlowClasses)] = {};
        uint32_t left = length;
        for (uint8_t *cur = length >= RSVP_OBJ_HDR_LEN ? objects : nullptr; cur;
             cur = rsvp_next_nonnull_object(cur, &left)) {
            const uint16_t obj_len = RSVP_OBJECT_LENGTH(cur);
            if (obj_len < RSVP_OBJ_HDR_LEN || obj_len % kWordLen != 0 || obj_len > left) break;
            for (size_t i = 0; i < std::size(kFlowClasses); ++i)
                if (!found[i] && RSVP_OBJECT_CLASS(cur) == kFlowClasses[i]) found[i] = cur;
        }
        for (uint8_t *obj : found)
            if (obj && rsvp_valid_object(obj) != RSVP_OBJECT_VALID) return nullptr;
        uint8_t key[kMaxKey];
        size_t key_len = 0;
        for (uint8_t *obj : found) {
            const size_t obj_len = obj ? RSVP_OBJECT_LENGTH(obj) : 0;
            if (key_len + 1 + obj_len > kMaxKey) return rsvp_lib_util_flow_str(objects, length);
            key[key_len++] = obj != nullptr;
            if (obj_len) std::memcpy(key + key_len, obj, obj_len);
            key_len += obj_len;
        }
        Slot &slot = slots_[hash(key, key_len) % slots_.size()];
        if (slot.key_len != key_len || std::memcmp(slot.key, key, key_len) != 0) {
            std::memcpy(slot.key, key, key_len);
            slot.key_len = key_len;
            std::strncpy(slot.text, rsvp_lib_util_flow_str(objects, length), sizeof slot.text - 1);
            slot.text[sizeof slot.text - 1] = '\0';
        }
        return slot.text;
    }

  private:
    static constexpr size_t kSlots = 1024, kMaxKey = 128;
    struct Slot {
        size_t key_len = 0;  // no key is empty: it holds at least the presence bytes
        uint8_t key[kMaxKey];
        char text[RSVP_LIB_UTIL_FLOW_BUF_LEN];
    };
    // A multiplicative hash over the key's 8-byte words (the last one zero-padded).
    static size_t hash(const uint8_t *p, size_t n) {
        constexpr uint64_t kMul = 0x9e3779b97f4a7c15;
        uint64_t h = n;
        for (size_t i = 0; i < n; i += sizeof(uint64_t)) {
            uint64_t word = 0;
            std::memcpy(&word, p + i, std::min(sizeof word, n - i));
            h = (h ^ word) * kMul;
        }
        return static_cast<size_t>(h ^ (h >> 32));
    }
    std::vector<Slot> slots_ = std::vector<Slot>(kSlots);
};

// The RFC 1071 one's complement sum of a byte run (an odd last byte padded with zero). The
// sum does not depend on byte order: words are added as the host loads them, and the result,
// stored back the same way, reads as the sum of the big-endian words.
uint16_t ones_complement_sum(const uint8_t *p, size_t n) {
    uint64_t sum = 0;
    size_t i = 0;
    for (uint32_t word; i + sizeof word <= n; i += sizeof word) {
        std::memcpy(&word, p + i, sizeof word);
        sum += word;
    }
    uint16_t half = 0;
    if (i < n) {
        std::memcpy(&half, p + i, std::min<size_t>(n - i, sizeof half));
        sum += half;
        i += sizeof half;
    }
    if (i < n) {
        half = 0;
        std::memcpy(&half, p + i, 1);
        sum += half;
    }
    while (sum >> 16)
        sum = (sum & 0xffff) + (sum >> 16);
    half = static_cast<uint16_t>(sum);
    uint8_t bytes[sizeof half];
    std::memcpy(bytes, &half, sizeof half);
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

std::string_view verdict_text(uint32_t verdict) {
    switch (verdict) {
        case RSVP_OBJECT_VALID:
            return "valid";
        case RSVP_OBJECT_UNKNOWN_CLASS:
            return "unknown class";
        default:
            return "INVALID";
    }
}

// Opens the object's list item and writes its line up to the verdict.
void object_line(Out &out, uint8_t *obj, std::string_view verdict) {
    const auto cls = static_cast<uint8_t>(RSVP_OBJECT_CLASS(obj));
    const auto c_type = static_cast<uint8_t>(RSVP_OBJECT_C_TYPE(obj));
    out.set_indent(kObjectIndent);
    out.open_item().line().text("object class ").u("class", cls);
    if (const std::string_view name = class_name(cls); !name.empty())
        out.text(" ").name("class_name", name);
    out.text(" c-type ").u("c_type", c_type);
    if (const std::string_view name = c_type_name(cls, c_type); !name.empty())
        out.text(" ").name("c_type_name", name);
    out.text(" length ").u("length", RSVP_OBJECT_LENGTH(obj)).text(": ").name("verdict", verdict);
}

void bytes_lines(Out &out, const uint8_t *p, size_t n) {
    out.set_indent(kBytesIndent);
    out.hexdump("bytes", p, n);
    out.set_indent(kObjectIndent);
}

// The checksum field and its verdict; true when it is wrong. The checksum covers the whole
// message, so a message cut short cannot be checked; the sum over a sound message, its
// checksum field included, is all ones.
bool print_checksum(Out &out, uint8_t *m, size_t held, size_t length) {
    using std::string_view_literals::operator""sv;
    const uint16_t checksum = RSVP_MESSAGE_CKSUM(m);
    if (checksum == 0 || length < RSVP_MSG_HDR_LEN || held != length ||
        ones_complement_sum(m, length) == kAllOnes) {
        out.text(" checksum ").hex("checksum", checksum, 4).text(" ");
        out.name("checksum_status", checksum == 0    ? "none"sv
                                    : held == length ? "good"sv
                                                     : "unverified"sv);
        return false;
    }
    RSVP_MESSAGE_SET_CKSUM(m, 0);
    const auto want = static_cast<uint16_t>(~ones_complement_sum(m, length));
    RSVP_MESSAGE_SET_CKSUM(m, checksum);
    out.text(" [").name("checksum_status", "bad").text(" cksum ").hex("checksum", checksum, 4);
    out.text(" (->").hex("checksum_expected", want, 4).text(")]");
    return true;
}

// One line per object of a message whose common header is sound, as far as the bytes held go;
// true when anything in it is malformed.
bool print_objects(Out &out, Stats &stats, uint8_t *m, size_t held, size_t length) {
    bool malformed = false;
    uint32_t stray = 0;
    // remaining counts from the object to look at next to the end of the bytes held.
    const auto held_objects = static_cast<uint32_t>(held - RSVP_MSG_HDR_LEN);
    uint32_t remaining = held_objects;
    out.open_list("objects");
    while (remaining > 0) {
        const uint32_t offset = RSVP_MSG_HDR_LEN + (held_objects - remaining);
        if (remaining < RSVP_OBJ_HDR_LEN) {
            if (held == length) stray = remaining;  // else a header cut short by the capture
            break;
        }
        uint8_t *obj = m + offset;
        const uint16_t obj_length = RSVP_OBJECT_LENGTH(obj);
        const char *problem = obj_length < RSVP_OBJ_HDR_LEN  ? "shorter than its header"
                              : obj_length % kWordLen != 0   ? "not a whole number of words"
                              : offset + obj_length > length ? "runs past the message end"
                                                             : nullptr;
        if (!problem && obj_length > remaining) break;  // cut short by the capture
        if (problem) {
            object_line(out, obj, "malformed");
            out.text(" (").str("problem", problem).text(")");
            bytes_lines(out, obj, remaining);
            out.close();
            malformed = true;
            break;
        }
        const uint32_t verdict = rsvp_valid_object(obj);
        object_line(out, obj, verdict_text(verdict));
        if (verdict == RSVP_OBJECT_VALID) {
            if (Decoder decode = find_decoder(static_cast<uint8_t>(RSVP_OBJECT_CLASS(obj)),
                                              static_cast<uint8_t>(RSVP_OBJECT_C_TYPE(obj)))) {
                out.nest("fields");
                decode(obj, out);
                out.close();
            }
        } else {
            if (verdict == RSVP_OBJECT_INVALID) {
                ++stats.invalid_objects;
                malformed = true;
            }
            bytes_lines(out, obj, obj_length);
        }
        out.close();
        rsvp_next_nonnull_object(obj, &remaining);
    }
    out.close();
    if (stray) {
        out.line().u("stray_bytes", stray).text(" stray bytes after the last object");
        malformed = true;
    }
    return malformed;
}

}  // namespace

const char *message_type_name(uint8_t type) {
    // The library names every type, the unknown ones "Unknown (type N)": those keep their
    // number alone here. The names are formatted once, not once a message.
    static const auto names = [] {
        std::array<std::string, kTypeCount> all;
        for (size_t t = 0; t < all.size(); ++t) {
            const char *name = rsvp_msg_type_string(static_cast<int32_t>(t));
            if (std::strncmp(name, kUnknownTypeName, sizeof kUnknownTypeName - 1) != 0)
                all[t] = name;
        }
        return all;
    }();
    return names[type].empty() ? nullptr : names[type].c_str();
}

void Dumper::header_prefix(const Origin &origin, const IpInfo *ip) {
    Out &out = sink_;
    out.set_indent(kHeaderIndent);
    out.line().str("source", origin.source).text(":").u("record", origin.record).text(": ");
    if (origin.has_time) out.timestamp("time", origin.sec, origin.usec).text(" ");
    if (!ip) return;
    out.text("IP").u("ip_version", ip->version).text(" ");
    if (ip->version == 4) {
        uint32_t src, dst;
        std::memcpy(&src, ip->src, sizeof src);
        std::memcpy(&dst, ip->dst, sizeof dst);
        out.addr("src", src).text(" > ").addr("dst", dst);
    } else {
        out.addr6("src", ip->src).text(" > ").addr6("dst", ip->dst);
    }
    out.text(" ttl ").u("ip_ttl", ip->ttl);
    if (ip->udp_port) out.text(" udp ").u("udp_port", ip->udp_port);
    if (ip->fragments) {
        out.text(" (").u("fragments", ip->fragments);
        out.text(ip->fragments == 1 ? " fragment)" : " fragments)");
    }
    out.text(": ");
}

void Dumper::dump_message(const uint8_t *data, size_t captured, const Origin &origin,
                          const IpInfo *ip) {
    Out &out = sink_;
    ++stats_.messages;
    out.begin_record();
    header_prefix(origin, ip);
    if (captured < RSVP_MSG_HDR_LEN) {
        out.flag("truncated", true).text("[truncated: ").u("captured", captured);
        out.textf(" of %d bytes]", RSVP_MSG_HDR_LEN);
        ++stats_.truncated;
        ++stats_.malformed;
        out.end_record();
        flush_message();
        return;
    }

    uint8_t header[RSVP_MSG_HDR_LEN];
    std::memcpy(header, data, sizeof header);
    const size_t length = RSVP_MESSAGE_LENGTH(header);
    const size_t held = std::min(captured, std::max<size_t>(length, RSVP_MSG_HDR_LEN));
    // Decoding writes only inside the message, so the room behind it is still zero but for
    // what the previous, longer message left there.
    if (msg_.size() < held * kRoomFactor + kRoomExtra) msg_.resize(held * kRoomFactor + kRoomExtra);
    if (msg_held_ > held) std::memset(msg_.data() + held, 0, msg_held_ - held);
    std::memcpy(msg_.data(), data, held);
    msg_held_ = held;
    uint8_t *m = msg_.data();
    const uint8_t type = RSVP_MESSAGE_TYPE(m);
    ++stats_.by_type[type];

    out.text("message type ").u("type", type);
    if (const char *name = message_type_name(type)) out.text(" (").str("type_name", name).text(")");
    out.text(" version ").u("version", RSVP_MESSAGE_VERSION(m));
    out.text(" flags ").hex("flags", RSVP_MESSAGE_FLAGS(m));
    out.text(" ttl ").u("send_ttl", RSVP_MESSAGE_SENDING_TTL(m));
    out.text(" length ").u("length", length);
    bool malformed = print_checksum(out, m, held, length);

    out.set_indent(kObjectIndent);
    const auto body_held = static_cast<uint32_t>(held - RSVP_MSG_HDR_LEN);
    if (length >= RSVP_MSG_HDR_LEN && has_flow(type)) {
        static FlowCache flows;
        if (const char *flow = flows.flow(m + RSVP_MSG_HDR_LEN, body_held))
            out.line().text("flow ").str("flow", flow);
    }
    if (length < RSVP_MSG_HDR_LEN) {
        out.line().str("problem", "length shorter than the common header");
        malformed = true;
    } else {
        malformed |= print_objects(out, stats_, m, held, length);
        out.set_indent(kObjectIndent);
        if (held < length) {
            out.line().flag("truncated", true).text("[truncated: ").u("captured", captured);
            out.textf(" of %zu bytes]", length);
            ++stats_.truncated;
            malformed = true;
        } else if (captured > length) {
            out.line().u("trailing_bytes", captured - length).text(" bytes after the message end");
            malformed = true;
        }
    }
    if (malformed) ++stats_.malformed;
    out.end_record();
    flush_message();
}

}  // namespace rsvpdump
