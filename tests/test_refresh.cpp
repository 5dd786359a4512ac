#include <gtest/gtest.h>

#include <map>
#include <string>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// Objects by letter: I/J INTEGRITY (different sequence and digest), M/N MESSAGE_ID (different
// identifier), L a MESSAGE_ID of Length 16 (invalid), T TIME_VALUES, S STYLE, Z a null object.
Bytes run(const char *letters) {
    static const std::map<char, Bytes> kObjects = {
        {'I', object(4, 1, concat({hex("00 00 00 00 00 01"), Bytes(14, 0x11)}))},
        {'J', object(4, 1, concat({hex("00 00 00 00 00 01"), Bytes(14, 0x22)}))},
        {'M', object(23, 1, hex("01 00 00 05 00 00 00 07"))},
        {'N', object(23, 1, hex("01 00 00 06 00 00 00 08"))},
        {'L', object(23, 1, hex("01 00 00 05 00 00 00 07 00 00 00 00"))},
        {'K', object(23, 1, hex("01 00 00 05 00 00 00 07 00 00 00 01"))},
        {'T', object(5, 1, hex("00 00 75 30"))},
        {'S', object(8, 1, hex("00 00 00 0a"))},
        {'Z', object(0, 0, Bytes{})},
    };
    Bytes out;
    for (const char *c = letters; *c; ++c)
        out = concat({out, kObjects.at(*c)});
    return out;
}

int classify(const Bytes &a, const Bytes &b) {
    HeapBytes ha = heap_copy(a), hb = heap_copy(b);
    return rsvp_objects_is_not_refresh(ha.data(), static_cast<uint32_t>(a.size()), hb.data(),
                                       static_cast<uint32_t>(b.size()));
}

}  // namespace

// Only a leading INTEGRITY, then a leading MESSAGE_ID, are left out of the comparison.
TEST(Refresh, SkipsOnlyLeadingIntegrityThenMessageId) {
    const struct {
        const char *a, *b;
        int trigger;
    } rows[] = {
        {"ITS", "JTS", 0},   {"MTS", "NTS", 0},   {"IMTS", "JNTS", 0}, {"ITS", "TS", 0},
        {"IMTS", "TS", 0},   {"TMS", "TNS", 1},   {"MITS", "NJTS", 1}, {"MITS", "NITS", 0},
        {"IITS", "JJTS", 1}, {"IMMT", "JNMT", 0}, {"IMMT", "JNNT", 1}, {"LTS", "KTS", 1},
        {"TS", "ST", 1},     {"TS", "TSZ", 1},    {"TZS", "TZS", 0},   {"ZMT", "ZNT", 1},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(std::string(r.a) + " vs " + r.b);
        EXPECT_EQ(classify(run(r.a), run(r.b)), r.trigger);
        EXPECT_EQ(classify(run(r.b), run(r.a)), r.trigger);
    }
}

TEST(Refresh, NullRunsSamePointerAndOverlongObjects) {
    HeapBytes a = heap_copy(run("ITS"));
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 40, a.data(), 8), 0);
    EXPECT_EQ(rsvp_objects_is_not_refresh(nullptr, 0, nullptr, 0), 0);
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 40, nullptr, 40), 1);
    EXPECT_EQ(rsvp_objects_is_not_refresh(nullptr, 40, a.data(), 40), 1);
    // An INTEGRITY (24 bytes) or a MESSAGE_ID (12) that claims more than its run: a trigger,
    // although the bytes given are the same.
    HeapBytes b = heap_copy(run("ITS"));
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 20, b.data(), 20), 1);
    HeapBytes m = heap_copy(run("MT")), n = heap_copy(run("MT"));
    EXPECT_EQ(rsvp_objects_is_not_refresh(m.data(), 8, n.data(), 8), 1);
    EXPECT_EQ(rsvp_objects_is_not_refresh(m.data(), 12, n.data(), 12), 0);
}

// A Path sent twice: the second copy carries a new INTEGRITY sequence number and digest and a
// new MESSAGE_ID epoch and identifier, and is still a refresh. A change to any bit of any
// other byte makes it a trigger.
TEST(RefreshEndToEnd, PathSentTwiceIsARefreshUntilAnotherByteChanges) {
    auto build = [](uint64_t seq, uint8_t digest_byte, uint32_t epoch, uint32_t msg_id) {
        Bytes msg(256, 0);
        uint8_t *p = msg.data() + RSVP_MSG_HDR_LEN;
        const uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {0, 0, 0, 0, 0, 1};
        const Bytes digest(16, digest_byte);
        const uint32_t digest_len = 16;
        EXPECT_EQ(rsvp_build_integrity(p, nullptr, key_id, &seq, digest.data(), &digest_len), 1);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_message_id(p, msg_id, epoch, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_session_lsp_tunnel_ipv4(p, ip("10.0.0.3"), 1, ip("10.0.0.1"));
        p += RSVP_OBJECT_LENGTH(p);
        p += RSVP_OBJECT_LENGTH(rsvp_build_hop_ipv4(p, ip("10.0.12.1"), 0));
        p += RSVP_OBJECT_LENGTH(rsvp_build_refresh(p, 30000));
        rsvp_build_template_lsp_tunnel_ipv4(p, ip("10.0.0.1"), 1);
        p += RSVP_OBJECT_LENGTH(p);
        rsvp_build_tspec(p, 1250000, 1250000, 1250000, 0, 1500);
        p += RSVP_OBJECT_LENGTH(p);
        msg.resize(static_cast<size_t>(p - msg.data()));
        rsvp_build_msg_hdr(1, 255, static_cast<uint16_t>(msg.size()), 0, msg.data());
        return msg;
    };
    const Bytes first = build(1, 0xAA, 5, 100);
    const Bytes second = build(2, 0xBB, 6, 101);
    ASSERT_EQ(first.size(), 8u + 36 + 12 + 16 + 12 + 8 + 12 + 36);
    auto trigger = [&first](Bytes later) {
        Bytes stored = first;
        return rsvp_objects_is_not_refresh(
            RSVP_MESSAGE_FIRST_OBJECT_PTR(stored.data()), RSVP_MESSAGE_OBJ_LEN(stored.data()),
            RSVP_MESSAGE_FIRST_OBJECT_PTR(later.data()), RSVP_MESSAGE_OBJ_LEN(later.data()));
    };
    EXPECT_EQ(trigger(second), 0);
    // The bodies of the two leading objects (bytes 12..43 and 48..55) change freely; any other
    // bit, headers of those two objects included, is a trigger.
    for (size_t at = RSVP_MSG_HDR_LEN; at < second.size(); ++at) {
        const bool volatile_body = (at >= 12 && at < 44) || (at >= 48 && at < 56);
        for (int bit = 0; bit < 8; ++bit) {
            SCOPED_TRACE(testing::Message() << "byte " << at << " bit " << bit);
            Bytes later = second;
            later[at] ^= static_cast<uint8_t>(1u << bit);
            EXPECT_EQ(trigger(later), volatile_body ? 0 : 1);
        }
    }
}
