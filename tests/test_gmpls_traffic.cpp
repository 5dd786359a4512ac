#include <gtest/gtest.h>

#include <tuple>

#include "rsvp_object_lib.h"
#include "rsvp_platform.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

Bytes g709(uint8_t cls) {
    return object(cls, 5,
                  hex("00 00 00 07"     // signal type 7 in the word's last byte
                      "01 02 03 04"     // NVC 0x0102, MT 0x0304
                      "49 98 96 80"));  // bit rate 1250000.0
}
Bytes sonet(uint8_t cls) {
    return object(cls, 4,
                  hex("06 03 00 02"     // ST 6, RCC 3, NCC 2
                      "00 04 00 01"     // NVC 4, MT 1
                      "00 00 00 09"));  // T 9
}

}  // namespace

// Both kinds on both classes: validation (exactly 16 bytes of its own class and C-Type), built
// bytes, then extraction. Failures write nothing.
TEST(GmplsTraffic, BuildAndExtract) {
    for (uint8_t cls : {RSVP_CLASS_SENDER_TSPEC, RSVP_CLASS_FLOWSPEC}) {
        SCOPED_TRACE(cls);
        const bool ts = cls == RSVP_CLASS_SENDER_TSPEC;
        const uint8_t twin = ts ? RSVP_CLASS_FLOWSPEC : RSVP_CLASS_SENDER_TSPEC;
        auto valid_g709 = ts ? rsvp_valid_g709_otn_tspec : rsvp_valid_g709_otn_flowspec;
        auto valid_sonet = ts ? rsvp_valid_uni_sonet_sdh_tspec : rsvp_valid_uni_sonet_sdh_flowspec;
        for (unsigned len : {12u, 16u, 20u})
            EXPECT_EQ(valid_g709(heap_copy(cut_to(g709(cls), len)).data()) +
                          valid_sonet(heap_copy(cut_to(sonet(cls), len)).data()),
                      len == 16 ? 2 : 0)
                << len;
        EXPECT_EQ(valid_g709(heap_copy(g709(twin)).data()) +
                      valid_g709(heap_copy(sonet(cls)).data()) +
                      valid_sonet(heap_copy(sonet(twin)).data()) +
                      valid_sonet(heap_copy(g709(cls)).data()),
                  0);
        Bytes b(16, 0xEE);
        (ts ? rsvp_build_g709_otn_tspec : rsvp_build_g709_otn_flowspec)(b.data(), 7, 0x0102, 0x0304,
                                                                        1250000);
        EXPECT_EQ(to_hex(b), to_hex(g709(cls)));
        auto extract = ts ? rsvp_extract_g709_otn_tspec : rsvp_extract_g709_otn_flowspec;
        uint8_t st = 0x55;
        uint16_t nvc = 0x5555, mt = 0x5555;
        int64_t rate = 0x55;
        HeapBytes good = heap_copy(b);
        // Another C-Type, a null object or a null output.
        EXPECT_EQ(extract(heap_copy(sonet(cls)).data(), &st, &nvc, &mt, &rate), 0);
        EXPECT_EQ(extract(nullptr, &st, &nvc, &mt, &rate), 0);
        EXPECT_EQ(extract(good.data(), nullptr, &nvc, &mt, &rate), 0);
        EXPECT_EQ(extract(good.data(), &st, nullptr, &mt, &rate), 0);
        EXPECT_EQ(extract(good.data(), &st, &nvc, nullptr, &rate), 0);
        EXPECT_EQ(extract(good.data(), &st, &nvc, &mt, nullptr), 0);
        EXPECT_EQ(std::tuple(st, nvc, mt, rate), std::tuple(0x55, 0x5555, 0x5555, 0x55));
        EXPECT_EQ(extract(good.data(), &st, &nvc, &mt, &rate), 1);
        EXPECT_EQ(std::tuple(st, nvc, mt, rate), std::tuple(7, 0x0102, 0x0304, 1250000));
        // The word's high bytes are not looked at, nor is the bit rate (+infinity here).
        b[4] = 0xAA;
        b[12] = 0x7f, b[13] = 0x80, b[14] = 0, b[15] = 0;
        EXPECT_EQ(extract(heap_copy(b).data(), &st, &nvc, &mt, &rate), 1);
        EXPECT_EQ(std::tuple(st, rate), std::tuple(7, ieee_to_int64(RSVP_INTSRV_INFINITY_BITS)));

        b.assign(16, 0xEE);
        (ts ? rsvp_build_uni_sonet_sdh_tspec : rsvp_build_uni_sonet_sdh_flowspec)(b.data(), 6, 3, 2,
                                                                                  4, 1, 9);
        EXPECT_EQ(to_hex(b), to_hex(sonet(cls)));
        auto extract_sonet =
            ts ? rsvp_extract_uni_sonet_sdh_tspec : rsvp_extract_uni_sonet_sdh_flowspec;
        b[5] = 0x0d;  // a received RCC with bits above the low three
        uint8_t rcc = 0;
        uint16_t ncc = 0;
        uint32_t t = 0;
        EXPECT_EQ(extract_sonet(heap_copy(b).data(), &st, &rcc, &ncc, &nvc, &mt, &t), 1);
        EXPECT_EQ(std::tuple(st, rcc, ncc, nvc, mt, t), std::tuple(6, 5, 2, 4, 1, 9u));
        st = rcc = 0x55;
        EXPECT_EQ(extract_sonet(nullptr, &st, &rcc, &ncc, &nvc, &mt, &t), 0);
        EXPECT_EQ(std::tuple(st, rcc, ncc, nvc, mt, t), std::tuple(0x55, 0x55, 2, 4, 1, 9u));
    }
}

TEST(SonetSdhDeathTest, RccAboveSevenIsAnAssertion) {
    Bytes b(16);
    EXPECT_RSVP_ASSERT(rsvp_build_uni_sonet_sdh_tspec(b.data(), 1, 8, 0, 0, 0, 0),
                       "assertion failed");
    EXPECT_RSVP_ASSERT(rsvp_build_uni_sonet_sdh_flowspec(b.data(), 1, 0xFF, 0, 0, 0, 0),
                       "assertion failed");
}
