#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

TEST(LabelSet, BuildAddExtractAndValidatorsDiffer) {
    Bytes b(20, 0xEE), d(16, 0xEE);
    EXPECT_EQ(rsvp_build_label_set_obj(b.data(), RSVP_LABEL_SET_INCLUSIVE_LIST, 0xC101), b.data());
    rsvp_add_label_set_obj(b.data(), 16);
    rsvp_add_label_set_obj(b.data(), 0x12345678);
    rsvp_add_label_set_obj(nullptr, 1);
    // length 16, class 36, C-Type 1 | action 0, reserved 0, type 0x101 (top bits masked) | labels
    EXPECT_EQ(to_hex(b), "00 10 24 01 00 00 01 01 00 00 00 10 12 34 56 78 ee ee ee ee");
    // The 32-bit builder, for class 130: Length 16, action 3, type 2, then the same labels.
    const uint32_t in[] = {16, 0x12345678};
    rsvp_build_32bit_label_set(d.data(), 130, 2, 3, 2, in);
    EXPECT_EQ(to_hex(d), "00 10 82 01 03 00 00 02 00 00 00 10 12 34 56 78");
    b[6] = 0xC0;  // reserved bits: not read by the plain validator, masked off by its extractor
    uint32_t *labels = nullptr, n = 0, out[2] = {7, 7};
    uint8_t count = 0, action = 9, action32 = 9;
    uint16_t type = 0;
    // Refusals (plain extractor on class 130, wrong count or class, null output) write nothing.
    EXPECT_EQ(rsvp_extract_label_set_obj(d.data(), &labels, &count, &action, &type) +
                  rsvp_extract_32bit_label_set_obj_labels(d.data(), 130, 1, out) +
                  rsvp_extract_32bit_label_set_obj_labels(d.data(), 36, 2, out) +
                  rsvp_extract_32bit_label_set_obj_labels(d.data(), 130, 2, nullptr) +
                  rsvp_extract_32bit_label_set_obj(d.data(), 36, &action32, &n) +
                  rsvp_extract_32bit_label_set_obj(d.data(), 130, &action32, nullptr),
              0);
    EXPECT_EQ(out[0] + out[1] + action32 + action + n, 7u + 7 + 9 + 9);
    ASSERT_EQ(rsvp_extract_label_set_obj(b.data(), &labels, &count, &action, &type) +
                  rsvp_extract_32bit_label_set_obj(d.data(), 130, &action32, &n) +
                  rsvp_extract_32bit_label_set_obj_labels(d.data(), 130, 2, out),
              3);
    EXPECT_EQ(reinterpret_cast<uint8_t *>(labels), b.data() + 8);
    EXPECT_EQ((std::vector<uint32_t>{count, action, type, action32, n, out[1]}),
              (std::vector<uint32_t>{2, 0, 1, 3, 2, 0x12345678}));
    // An add goes behind the last whole label: Length 10 puts it at 8 and becomes 14.
    Bytes odd = object(36, 1, hex("00 00 00 01 aa bb ee ee"), 10), short_obj = hex("00 07 24 01");
    rsvp_add_label_set_obj(odd.data(), 0x01020304);
    rsvp_add_label_set_obj(short_obj.data(), 5);
    EXPECT_EQ(to_hex(odd) + " | " + to_hex(short_obj),
              "00 0e 24 01 00 00 00 01 01 02 03 04 | 00 07 24 01");
    // The plain validator reads byte 7 of the type alone and takes any number of labels from the
    // minimum; the 32-bit one masks the type to 14 bits and wants a range of exactly two labels.
    struct Row {
        uint8_t cls, ctype, action;
        uint16_t type;
        int len, plain, bits32;
    } rows[] = {
        {36, 1, 0, 1, 12, 1, 1},      {36, 1, 0, 1, 11, 0, 0},      {36, 1, 0, 1, 10, 0, 0},
        {36, 1, 1, 2, 13, 1, 1},      {36, 1, 2, 1, 16, 1, 1},      {36, 1, 3, 1, 19, 1, 1},
        {36, 1, 2, 1, 20, 1, 0},      {36, 1, 3, 1, 12, 0, 0},      {36, 1, 4, 1, 16, 0, 0},
        {36, 1, 0, 0x0101, 12, 1, 0}, {36, 1, 0, 0xC001, 12, 1, 1}, {36, 1, 0, 3, 12, 0, 0},
        {36, 1, 0, 0x0100, 12, 0, 0}, {36, 2, 0, 1, 12, 0, 0},      {130, 1, 0, 1, 12, 0, 1},
        {16, 1, 0, 1, 12, 0, 0}};
    for (const Row &r : rows) {
        SCOPED_TRACE(testing::Message() << int(r.cls) << " action " << int(r.action) << " type "
                                        << r.type << " len " << r.len);
        Bytes b =
            object(r.cls, r.ctype, {r.action, 0, uint8_t(r.type >> 8), uint8_t(r.type)}, r.len);
        b.resize(r.len, 0);  // labels 0, and nothing readable behind the Length
        HeapBytes o = heap_copy(b);
        EXPECT_EQ(rsvp_valid_label_set_obj(o.data()), r.plain);
        EXPECT_EQ(rsvp_valid_32bit_label_set_obj(o.data(), r.cls), r.bits32);
        const int by_class = r.cls == 130 ? r.bits32 : r.plain;  // whole words only
        EXPECT_EQ(rsvp_valid_object(o.data()), unsigned(r.len % 4 ? 0 : by_class));
    }
    Bytes ok = object(36, 1, hex("00 00 00 01 00 00 00 05"));
    EXPECT_EQ(rsvp_valid_32bit_label_set_obj(ok.data(), 36 + 256) +
                  rsvp_valid_32bit_label_set_obj(ok.data(), 130) +
                  rsvp_valid_acceptable_label_set(ok.data()) +
                  rsvp_valid_32bit_label_set_obj(nullptr, 36) + rsvp_valid_label_set_obj(nullptr),
              0);
}
