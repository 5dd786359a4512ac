#include <gtest/gtest.h>

#include <string>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// A run of objects by letter: I/J INTEGRITY and M/N MESSAGE_ID (the pairs differ in their
// body), Z a null object, any other letter an 8-byte object of that Class-Num.
HeapBytes run(const char *letters) {
    Bytes out;
    for (const char *c = letters; *c; ++c) {
        const uint8_t cls = *c == 'I' || *c == 'J'   ? 4
                            : *c == 'M' || *c == 'N' ? 23
                            : *c == 'Z'              ? 0
                                                     : *c;
        out = concat({out, object(cls, cls != 0, Bytes(cls == 4 ? 20 : cls == 23 ? 8 : 4, *c))});
    }
    return heap_copy(out);
}

int classify(const char *a, const char *b, uint32_t len_a = 0, uint32_t len_b = 0) {
    HeapBytes ra = run(a), rb = run(b);
    return rsvp_objects_is_not_refresh(ra.data(), len_a ? len_a : ra.size, rb.data(),
                                       len_b ? len_b : rb.size);
}

}  // namespace

// Only a leading INTEGRITY, then a leading MESSAGE_ID, are left out of the byte comparison.
TEST(Refresh, SkipsOnlyLeadingIntegrityThenMessageId) {
    const struct {
        const char *a, *b;
        int trigger;
    } rows[] = {{"MTS", "NTS", 0},   {"IMTS", "TS", 0},   {"M", "N", 0},       {"TMS", "TNS", 1},
                {"MITS", "NJTS", 1}, {"IITS", "JJTS", 1}, {"IMMT", "JNNT", 1}, {"TS", "TSZ", 1}};
    for (const auto &r : rows) {
        SCOPED_TRACE(std::string(r.a) + " vs " + r.b);
        EXPECT_EQ(classify(r.a, r.b), r.trigger);
        EXPECT_EQ(classify(r.b, r.a), r.trigger);
    }
    // A skipped object that claims more than its run is a trigger, however alike the bytes.
    EXPECT_EQ(classify("ITS", "ITS", 20, 20) + classify("MT", "MT", 8, 8), 2);
    HeapBytes a = heap_copy(Bytes(40, 0));
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 40, a.data(), 8), 0);  // the same run
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 40, nullptr, 40) +
                  rsvp_objects_is_not_refresh(nullptr, 40, a.data(), 40),
              2);
}

// A Path sent twice, with a new INTEGRITY sequence and digest and a new MESSAGE_ID epoch and
// identifier, is a refresh; a change to any other bit, those objects' headers included, is not.
TEST(RefreshEndToEnd, PathSentTwiceIsARefreshUntilAnotherBitChanges) {
    auto build = [](uint64_t seq, uint8_t digest_byte, uint32_t epoch, uint32_t msg_id) {
        Bytes msg(256, 0);
        uint8_t *p = msg.data() + RSVP_MSG_HDR_LEN;
        const uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {0, 0, 0, 0, 0, 1};
        const Bytes digest(16, digest_byte);
        const uint32_t digest_len = 16;
        rsvp_build_integrity(p, nullptr, key_id, &seq, digest.data(), &digest_len);
        rsvp_build_message_id(p += 36, msg_id, epoch, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED);
        rsvp_build_session_lsp_tunnel_ipv4(p += 12, ip("10.0.0.3"), 1, ip("10.0.0.1"));
        rsvp_build_hop_ipv4(p += 16, ip("10.0.12.1"), 0);
        rsvp_build_refresh(p += 12, 30000);
        rsvp_build_template_lsp_tunnel_ipv4(p += 8, ip("10.0.0.1"), 1);
        rsvp_build_tspec(p += 12, 1250000, 1250000, 1250000, 0, 1500);
        msg.resize(static_cast<size_t>(p + 36 - msg.data()));
        rsvp_build_msg_hdr(1, 255, static_cast<uint16_t>(msg.size()), 0, msg.data());
        return msg;
    };
    Bytes first = build(1, 0xAA, 5, 100);
    auto trigger = [&first](Bytes later) {
        return rsvp_objects_is_not_refresh(
            RSVP_MESSAGE_FIRST_OBJECT_PTR(first.data()), RSVP_MESSAGE_OBJ_LEN(first.data()),
            RSVP_MESSAGE_FIRST_OBJECT_PTR(later.data()), RSVP_MESSAGE_OBJ_LEN(later.data()));
    };
    const Bytes second = build(2, 0xBB, 6, 101);
    ASSERT_EQ(trigger(second), 0);
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
