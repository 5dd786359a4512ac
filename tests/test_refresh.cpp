#include <gtest/gtest.h>

#include <string>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// A Path body: INTEGRITY, MESSAGE_ID, SESSION, TIME_VALUES. Two copies differ only in the
// INTEGRITY sequence and digest and the MESSAGE_ID epoch and identifier.
Bytes path(uint8_t copy) {
    Bytes b(36 + 12 + 16 + 8);
    uint8_t *p = b.data();
    const uint8_t key_id[RSVP_INTEGRITY_KEY_ID_LEN] = {0, 0, 0, 0, 0, 1}, digest[16] = {copy};
    const uint64_t seq = copy;
    const uint32_t digest_len = sizeof digest;
    rsvp_build_integrity(p, nullptr, key_id, &seq, digest, &digest_len);
    rsvp_build_message_id(p += 36, 100 + copy, 5 + copy, RSVP_MESSAGE_ID_FLAG_ACK_DESIRED);
    rsvp_build_session_lsp_tunnel_ipv4(p += 12, ip("10.0.0.3"), 1, ip("10.0.0.1"));
    rsvp_build_refresh(p += 16, 30000);
    return b;
}

// A run by letter: I M S T the objects of the first copy in that order, J and N the
// INTEGRITY and MESSAGE_ID of the second copy, Z a null object.
HeapBytes run(const char *letters) {
    static const Bytes first = path(1), second = path(2);
    static const size_t at[] = {0, 36, 48, 64, 72};
    Bytes out;
    for (const char *c = letters; *c; ++c) {
        const size_t k = std::string("IMSTJN").find(*c) % 4;
        const Bytes &from = *c == 'J' || *c == 'N' ? second : first;
        out = concat({out, *c == 'Z' ? object(0, 0, {})
                                     : Bytes(from.begin() + at[k], from.begin() + at[k + 1])});
    }
    return heap_copy(out);
}

// A length below 0 takes the whole run.
int classify(const char *a, const char *b, int len_a = -1, int len_b = -1) {
    HeapBytes ra = run(a), rb = run(b);
    return rsvp_objects_is_not_refresh(ra.data(), len_a < 0 ? ra.size : len_a, rb.data(),
                                       len_b < 0 ? rb.size : len_b);
}

}  // namespace

// Only a leading INTEGRITY, then a leading MESSAGE_ID, are left out of the byte comparison.
TEST(Refresh, SkipsOnlyLeadingIntegrityThenMessageId) {
    const struct {
        const char *a, *b;
        int trigger;
    } rows[] = {{"MST", "NST", 0},   {"IMST", "ST", 0},   {"M", "N", 0},       {"SMT", "SNT", 1},
                {"MIST", "NJST", 1}, {"IIST", "JJST", 1}, {"IMMS", "JNNS", 1}, {"ST", "STZ", 1}};
    for (const auto &r : rows) {
        SCOPED_TRACE(std::string(r.a) + " vs " + r.b);
        EXPECT_EQ(classify(r.a, r.b), r.trigger);
        EXPECT_EQ(classify(r.b, r.a), r.trigger);
    }
    // A skipped object longer than its run is a trigger, however alike the bytes; the header
    // is examined even where the run holds fewer than four bytes.
    EXPECT_EQ(
        classify("IST", "IST", 20, 20) + classify("MT", "MT", 8, 8) + classify("I", "T", 0, 0), 3);
    HeapBytes a = heap_copy(Bytes(40, 0));
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 40, a.data(), 8), 0);  // the same run
    EXPECT_EQ(rsvp_objects_is_not_refresh(a.data(), 40, nullptr, 40) +
                  rsvp_objects_is_not_refresh(nullptr, 40, a.data(), 40),
              2);
}
