#include "message.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace rsvp_fuzz {

namespace {

constexpr uint8_t kPathMsgType = 1;
constexpr uint8_t kSeedTtl = 255;
constexpr unsigned kFlagsMask = 0x0F;

// A failed property: abort, so that libFuzzer (or the replay test) reports the input.
void require(bool ok) {
    if (!ok) std::abort();
}

// Every header reader on the message, and each writer on a copy of the header checked back.
void exercise_header(uint8_t *msg) {
    keep(RSVP_MESSAGE_VERSION(msg) + RSVP_MESSAGE_FLAGS(msg) + RSVP_MESSAGE_TYPE(msg) +
         RSVP_MESSAGE_SENDING_TTL(msg) + RSVP_MESSAGE_CKSUM(msg) + RSVP_MESSAGE_GET_CKSUM_OFFSET());
    const uint16_t length = RSVP_MESSAGE_LENGTH(msg);
    require(RSVP_MESSAGE_OBJ_LEN(msg) ==
            (length > RSVP_MSG_HDR_LEN ? length - RSVP_MSG_HDR_LEN : 0));
    require(RSVP_MESSAGE_FIRST_OBJECT_PTR(msg) == msg + RSVP_MSG_HDR_LEN);

    // A header rebuilt from its own fields, with the input's checksum as a host and a wire value.
    uint8_t hdr[RSVP_MSG_HDR_LEN];
    const uint16_t cksum = RSVP_MESSAGE_CKSUM(msg);
    rsvp_build_msg_hdr(static_cast<uint8_t>(RSVP_MESSAGE_TYPE(msg)),
                       static_cast<uint8_t>(RSVP_MESSAGE_SENDING_TTL(msg)), cksum, msg[0], hdr);
    require(RSVP_MESSAGE_VERSION(hdr) == RSVP_MSG_VERSION &&
            RSVP_MESSAGE_FLAGS(hdr) == (msg[0] & kFlagsMask) &&
            RSVP_MESSAGE_TYPE(hdr) == RSVP_MESSAGE_TYPE(msg) &&
            RSVP_MESSAGE_SENDING_TTL(hdr) == RSVP_MESSAGE_SENDING_TTL(msg) &&
            RSVP_MESSAGE_LENGTH(hdr) == cksum && RSVP_MESSAGE_CKSUM(hdr) == 0);
    RSVP_SET_MESSAGE_LENGTH(hdr, length);
    RSVP_MESSAGE_SET_CKSUM(hdr, cksum);
    require(RSVP_MESSAGE_LENGTH(hdr) == length && RSVP_MESSAGE_CKSUM(hdr) == cksum);
    RSVP_MESSAGE_SET_CKSUM_NB(hdr, cksum);
    require(std::memcmp(hdr + RSVP_MESSAGE_GET_CKSUM_OFFSET(), &cksum, sizeof cksum) == 0);
}

// The plain walk: rsvp_next_object steps by the Length alone, so the walk checks each header
// first, as a parser must; objects are validated on copies that carry the room validators
// read behind them on purpose. It meets every object the non-null walk meets, in order.
void walk(uint8_t *body, uint32_t body_len) {
    uint32_t remaining = body_len;
    uint8_t *nonnull = body;
    for (uint8_t *obj = body; remaining >= RSVP_OBJ_HDR_LEN;) {
        const uint16_t len = RSVP_OBJECT_LENGTH(obj);
        if (len < RSVP_OBJ_HDR_LEN || len % 4 != 0 || len > remaining) break;
        size_t room = 0;
        keep(rsvp_valid_object(copy_with_room(obj, body + body_len, room).get()));
        uint8_t *next = rsvp_next_object(obj);
        require(next == obj + len);
        remaining -= len;
        if (obj != body && RSVP_OBJECT_CLASS(obj) != RSVP_CLASS_NULL) {
            uint32_t left = body_len - static_cast<uint32_t>(nonnull - body);
            nonnull = rsvp_next_nonnull_object(nonnull, &left);
            require(nonnull == obj && left == remaining + len);
        }
        obj = next;
    }
}

}  // namespace

void run_message(const uint8_t *data, size_t size) {
    keep(RSVP_MESSAGE_LENGTH(nullptr) + RSVP_MESSAGE_OBJ_LEN(nullptr));
    keep(RSVP_MESSAGE_FIRST_OBJECT_PTR(nullptr));
    if (size < RSVP_MSG_HDR_LEN) return;
    // The datagram in an exact-size buffer: nothing may look past it.
    auto msg = std::make_unique<uint8_t[]>(size);
    std::memcpy(msg.get(), data, size);
    exercise_header(msg.get());

    // The body is what both the datagram and the RSVP Length hold.
    const uint32_t claimed = RSVP_MESSAGE_OBJ_LEN(msg.get());
    const uint32_t body_len =
        std::min<uint32_t>(claimed, static_cast<uint32_t>(size) - RSVP_MSG_HDR_LEN);
    uint8_t *body = RSVP_MESSAGE_FIRST_OBJECT_PTR(msg.get());
    walk(body, body_len);
    run_one(body, body_len);

    // A refresh of itself; a changed byte (chosen by the checksum) may make it a trigger. The
    // classification reads the header at the start of a run (and behind a skipped leading
    // object) even when fewer than four bytes are left, so both runs carry a zeroed header's room.
    auto run_copy = [&] {
        auto c = std::make_unique<uint8_t[]>(body_len + RSVP_OBJ_HDR_LEN);
        std::memcpy(c.get(), body, body_len);
        return c;
    };
    auto a = run_copy(), b = run_copy();
    auto classify = [&](uint8_t *x, uint8_t *y) {
        const int verdict = rsvp_objects_is_not_refresh(x, body_len, y, body_len);
        require(verdict == rsvp_objects_is_not_refresh(y, body_len, x, body_len));
        require(verdict == 0 || verdict == 1);
    };
    classify(a.get(), b.get());
    if (body_len) b[RSVP_MESSAGE_CKSUM(msg.get()) % body_len] ^= RSVP_MESSAGE_TYPE(msg.get()) | 1;
    classify(a.get(), b.get());
}

std::vector<std::vector<uint8_t>> message_seeds() {
    std::vector<std::vector<uint8_t>> out;
    for (const Bytes &run : all_seeds()) {
        const size_t len = std::min<size_t>(RSVP_MSG_HDR_LEN + run.size(), UINT16_MAX);
        Bytes m(RSVP_MSG_HDR_LEN);
        rsvp_build_msg_hdr(kPathMsgType, kSeedTtl, static_cast<uint16_t>(len), 0, m.data());
        m.insert(m.end(), run.begin(), run.end());
        out.push_back(std::move(m));
    }
    return out;
}

std::vector<std::vector<uint8_t>> read_hex_messages(const std::string &path) {
    std::vector<std::vector<uint8_t>> out;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        line = line.substr(0, line.find('#'));
        Bytes m;
        bool ok = true;
        std::string digits;
        for (char c : line) {
            if (std::isspace(static_cast<unsigned char>(c))) continue;
            if (!std::isxdigit(static_cast<unsigned char>(c))) ok = false;
            digits += c;
        }
        if (!ok || digits.empty() || digits.size() % 2 != 0) continue;
        for (size_t i = 0; i < digits.size(); i += 2)
            m.push_back(static_cast<uint8_t>(std::stoul(digits.substr(i, 2), nullptr, 16)));
        out.push_back(std::move(m));
    }
    return out;
}

namespace {

constexpr uint32_t kCaptureMagic = 0xa1b2c3d4, kCaptureMagicNs = 0xa1b23c4d;
constexpr size_t kCaptureHdrLen = 24, kRecordHdrLen = 16, kRecordLenAt = 8;
constexpr size_t kLinkReach = 64;  // the link headers met in captures are shorter
constexpr uint8_t kIpv4 = 4, kIpProtoRsvp = 46;
constexpr size_t kIpMinHdrLen = 20, kIpTotalLenAt = 2, kIpProtoAt = 9;

uint32_t load32(const uint8_t *p, bool swap) {
    uint32_t v;
    std::memcpy(&v, p, sizeof v);
    return swap ? __builtin_bswap32(v) : v;
}

// The RSVP payload of the first IPv4 header of protocol 46 near the start of a packet.
void take_rsvp(const uint8_t *pkt, size_t len, std::vector<std::vector<uint8_t>> &out) {
    for (size_t at = 0; at < kLinkReach && at + kIpMinHdrLen <= len; ++at) {
        const uint8_t *ip = pkt + at;
        const size_t hdr_len = size_t{ip[0] & 0x0Fu} * 4;
        const size_t total = size_t{ip[kIpTotalLenAt]} << 8 | ip[kIpTotalLenAt + 1];
        if (ip[0] >> 4 != kIpv4 || hdr_len < kIpMinHdrLen || ip[kIpProtoAt] != kIpProtoRsvp ||
            total <= hdr_len || at + total > len)
            continue;
        out.emplace_back(ip + hdr_len, ip + total);
        return;
    }
}

}  // namespace

std::vector<std::vector<uint8_t>> read_capture_messages(const std::string &path) {
    std::vector<std::vector<uint8_t>> out;
    std::ifstream in(path, std::ios::binary);
    const std::vector<uint8_t> f((std::istreambuf_iterator<char>(in)),
                                 std::istreambuf_iterator<char>());
    if (f.size() < kCaptureHdrLen) return out;
    const uint32_t magic = load32(f.data(), false);
    const bool swap = magic != kCaptureMagic && magic != kCaptureMagicNs;
    const uint32_t swapped = load32(f.data(), true);
    if (swap && swapped != kCaptureMagic && swapped != kCaptureMagicNs) return out;
    for (size_t at = kCaptureHdrLen; at + kRecordHdrLen <= f.size();) {
        const size_t caplen = load32(f.data() + at + kRecordLenAt, swap);
        at += kRecordHdrLen;
        if (caplen > f.size() - at) break;
        take_rsvp(f.data() + at, caplen, out);
        at += caplen;
    }
    return out;
}

}  // namespace rsvp_fuzz
