#include <gtest/gtest.h>
#include <pthread.h>

#include <string>
#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

const std::string kEro = "00 0c 14 01 01 08 0a 00 0c 02 20 00 ";  // strict 10.0.12.2/32
const std::string kTspec =                                        // Intserv token bucket, 36 bytes
    "00 24 0c 02 00 00 00 07 01 00 00 06 7f 00 00 05 49 98 96 80 "
    "49 98 96 80 7f 80 00 00 00 00 00 00 00 00 05 dc ";
const std::string kRro = "00 08 15 01 00 00 00 00 ";  // class 21, not looked at here
// POLICY_DATA accepts any C-Type: two kinds of one class.
const std::string kPol1 = "00 04 0e 01 ", kPol2 = "00 04 0e 02 ";

// Not through object(): its insert of a maybe empty body draws a GCC 12 -O2 warning.
Bytes reverse_lsp(const std::string &contents) {
    Bytes o = hex(("00 00 cb 01 " + contents).c_str());
    o[0] = static_cast<uint8_t>(o.size() >> 8);
    o[1] = static_cast<uint8_t>(o.size());
    return o;
}

}  // namespace

TEST(ReverseLsp, BuildAddValidateAndSum) {
    Bytes b(64, 0xEE);
    rsvp_build_reverse_lsp(b.data());
    // Refused, nothing written: an invalid or an unknown-class object.
    Bytes ero = hex(kEro.c_str()), tspec = hex(kTspec.c_str()), bad = hex("00 0c 14 01 03 08");
    Bytes unknown = hex("00 04 02 01");
    EXPECT_EQ(rsvp_add_reverse_lsp_subobj(b.data(), bad.data()) +
                  rsvp_add_reverse_lsp_subobj(b.data(), unknown.data()),
              0);
    ASSERT_EQ(rsvp_add_reverse_lsp_subobj(b.data(), ero.data()) +
                  rsvp_add_reverse_lsp_subobj(b.data(), tspec.data()),
              2);
    EXPECT_EQ(to_hex(b.data(), 53), to_hex(reverse_lsp(kEro + kTspec)) + " ee");
    uint8_t *first = nullptr;
    uint16_t len = 0;
    ASSERT_EQ(rsvp_get_reverse_lsp_subobjs(b.data(), &first, &len), 1);
    EXPECT_EQ(std::tuple(first, len), std::tuple(b.data() + 4, 48));
    EXPECT_EQ(rsvp_get_reverse_lsp_subobjs(b.data() + 4, &first, &len), 0);  // not a container
    // Only the next object of the same class is compared: POL/1 POL/2 POL/1 passes.
    const std::pair<std::string, int> rows[] = {
        {"", 1},
        {kEro + kTspec + kEro, 0},
        {kPol1 + kPol2 + kPol1, 1},
        {"00 04 00 00 " + kEro, 0},                     // a leading null object is not valid
        {kEro + "00 08 14 01 03 08 00 00 ", 0},         // invalid ERO (type 3)
        {kEro + "00 06 0e 01 00 00 00 00 ", 1},         // a malformed object ends the walk
        {"00 14 14 01 01 08 0a 00 0c 02 20 00 ", 0},    // longer than the container
        {to_hex(reverse_lsp(kEro)) + " " + kTspec, 1},  // nested container
        {to_hex(reverse_lsp(kEro + kEro)), 0},          // nested, with its own duplicate
    };
    for (const auto &[contents, valid] : rows) {
        SCOPED_TRACE(contents);
        HeapBytes o = heap_copy(reverse_lsp(contents));
        EXPECT_EQ(rsvp_valid_object(o.data()), static_cast<uint32_t>(valid));
    }
    for (const char *h : {"00 04 cb 02", "00 0a cb 01 00 04 0e 01 00 00", "00 04 ca 01"})
        EXPECT_EQ(rsvp_valid_reverse_lsp(hex(h).data()), 0) << h;
    // Later EROs and TSPECs are left out (16 + 36 + 8); a Length of 0 ends the walk; behind a
    // 9-byte object, one whose Length and class byte still lie inside the container counts.
    const std::pair<std::string, int> sums[] = {
        {"00 10 14 01 01 08 0a 00 0c 02 20 00 81 04 00 00 " + kEro + kTspec + kRro, 60},
        {kTspec + kEro + kTspec + "00 00 00 00 " + kRro, 36 + 12},
        {"00 09 15 01 00 00 00 00 00 00 02 15 ", 9 + 2}};
    for (const auto &[contents, sum] : sums)
        EXPECT_EQ(rsvp_compute_reverse_lsp_sub_objs_len(reverse_lsp(contents).data()), sum);
    // Run, length given, answer: the walk ends at the given length; only 0 looks at nothing,
    // a shorter one still looks at the first object.
    const std::tuple<std::string, uint16_t, int> runs[] = {
        {kEro + kTspec + kEro, 60, 0},  {kEro + kRro, 20, 1}, {kEro + kRro, 12, 0},
        {"00 04 00 00 " + kEro, 16, 1}, {kRro, 3, 1},         {kRro, 0, 0}};
    for (const auto &[run, length, unsupported] : runs) {
        HeapBytes r = heap_copy(hex(run.c_str()));
        EXPECT_EQ(rsvp_reverse_lsp_subs_inc_unsupported(r.data(), length), unsupported) << run;
    }
}

// 16,383 nested containers, the most 64 KB allow, validated on a 128 KB stack.
TEST(ReverseLsp, DeepestNestingValidatesOnASmallStack) {
    static Bytes b(65532);
    for (size_t at = 0; at < b.size(); at += 4)
        rsvp_build_object(&b[at], 203, 1, 65532 - at);
    static uint32_t verdicts;
    pthread_attr_t attr;
    pthread_t thread;
    pthread_attr_init(&attr);
    pthread_attr_setstacksize(&attr, 128 * 1024);
    auto run = [](void *) -> void * {
        verdicts = rsvp_valid_object(b.data()) * 10;
        b[65531] = 2;  // the innermost container gets C-Type 2
        verdicts += rsvp_valid_object(b.data());
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attr, run, nullptr) + pthread_join(thread, nullptr), 0);
    EXPECT_EQ(verdicts, 10u);
}
