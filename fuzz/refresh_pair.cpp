#include "refresh_pair.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "rsvp_object_lib.h"

namespace rsvp_fuzz {

namespace {

constexpr size_t kSplitLen = 2;

// A run in a heap buffer of its length plus one zeroed object header: the classification
// examines the header of the object at the start of a run, and behind a skipped leading object,
// even where fewer than four bytes of the run are left.
struct Run {
    std::unique_ptr<uint8_t[]> buf;
    uint32_t length;
};

Run copy_run(const uint8_t *p, size_t n) {
    Run r{std::make_unique<uint8_t[]>(n + RSVP_OBJ_HDR_LEN), static_cast<uint32_t>(n)};
    if (n) std::memcpy(r.buf.get(), p, n);
    return r;
}

}  // namespace

void run_refresh_pair(const uint8_t *data, size_t size) {
    size_t split = 0;
    if (size >= kSplitLen) {
        split = (static_cast<size_t>(data[0]) << 8 | data[1]) % (size - kSplitLen + 1);
        data += kSplitLen;
        size -= kSplitLen;
    }
    Run a = copy_run(data, split);
    Run b = copy_run(data + split, size - split);
    const int ab = rsvp_objects_is_not_refresh(a.buf.get(), a.length, b.buf.get(), b.length);
    const int ba = rsvp_objects_is_not_refresh(b.buf.get(), b.length, a.buf.get(), a.length);
    // The classification treats both runs alike, so it answers the same both ways round; and a
    // run is never a trigger against itself.
    if (ab != ba || (ab != 0 && ab != 1)) std::abort();
    if (rsvp_objects_is_not_refresh(a.buf.get(), a.length, a.buf.get(), b.length) != 0)
        std::abort();
    if (rsvp_objects_is_not_refresh(nullptr, 0, b.buf.get(), b.length) != 1) std::abort();
}

std::vector<std::vector<uint8_t>> refresh_pair_seeds() {
    auto path = [](uint64_t seq, uint8_t digest_byte, uint32_t msg_id, uint32_t period) {
        std::vector<uint8_t> run(128, 0);
        uint8_t *p = run.data();
        const uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {0, 0, 0, 0, 0, 1};
        const uint8_t digest[16] = {digest_byte, digest_byte};
        const uint32_t digest_len = sizeof digest;
        rsvp_build_integrity(p, nullptr, key_id, &seq, digest, &digest_len);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_message_id(p, msg_id, 42, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_session_lsp_tunnel_ipv4(p, 0x0300000a, 1, 0x0100000a);
        p += RSVP_OBJECT_LENGTH(p);
        p += RSVP_OBJECT_LENGTH(rsvp_build_hop_ipv4(p, 0x010c000a, 0));
        p += RSVP_OBJECT_LENGTH(rsvp_build_refresh(p, period));
        rsvp_build_template_lsp_tunnel_ipv4(p, 0x0100000a, 1);
        p += RSVP_OBJECT_LENGTH(p);
        run.resize(static_cast<size_t>(p - run.data()));
        return run;
    };
    // Written out whole: GCC 12 at -O3 warns about an inlined insert behind a 2-byte vector.
    auto pair = [](const std::vector<uint8_t> &a, const std::vector<uint8_t> &b) {
        std::vector<uint8_t> in(kSplitLen + a.size() + b.size());
        in[0] = static_cast<uint8_t>(a.size() >> 8);
        in[1] = static_cast<uint8_t>(a.size());
        std::copy(a.begin(), a.end(), in.begin() + kSplitLen);
        std::copy(b.begin(), b.end(), in.begin() + static_cast<long>(kSplitLen + a.size()));
        return in;
    };
    std::vector<uint8_t> first = path(1, 0xAA, 100, 30000);
    const size_t volatile_len = RSVP_OBJECT_LENGTH(first.data()) + RSVP_MESSAGE_ID_LEN;
    const std::vector<uint8_t> bare(first.begin() + static_cast<long>(volatile_len), first.end());
    return {pair(first, path(2, 0xBB, 101, 30000)), pair(first, path(2, 0xBB, 101, 45000)),
            pair(first, bare)};
}

}  // namespace rsvp_fuzz
