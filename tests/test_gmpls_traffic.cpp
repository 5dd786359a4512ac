#include <gtest/gtest.h>

#include "rsvp_object_lib.h"
#include "rsvp_platform.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

// Each test runs on the TSPEC and the FLOWSPEC member of a pair.
const uint8_t kClasses[] = {RSVP_CLASS_SENDER_TSPEC, RSVP_CLASS_FLOWSPEC};
bool tspec(uint8_t cls) {
    return cls == RSVP_CLASS_SENDER_TSPEC;
}

Bytes g709(uint8_t cls) {
    return object(cls, 5,
                  hex("00 00 00 07"    // signal type 7 in the word's last byte
                      "01 02 03 04"    // NVC 0x0102, MT 0x0304
                      "49 98 96 80"),  // bit rate 1250000.0
                  16);
}
Bytes sonet(uint8_t cls) {
    return object(cls, 4,
                  hex("06 03 00 02"    // ST 6, RCC 3, NCC 2
                      "00 04 00 01"    // NVC 4, MT 1
                      "00 00 00 09"),  // T 9
                  16);
}

// Cut at every length (the length field following): only 16 validates; nor does the other
// class or the other C-Type.
void expect_only_16_valid(int (*valid)(uint8_t *), const Bytes &good, const Bytes &other_class,
                          const Bytes &other_ctype) {
    for (unsigned len = 4; len <= 32; ++len) {
        SCOPED_TRACE(len);
        Bytes b = good;
        b.resize(len);
        b[1] = static_cast<uint8_t>(len);
        EXPECT_EQ(valid(heap_copy(b).data()), len == 16 ? 1 : 0);
    }
    EXPECT_EQ(valid(heap_copy(other_class).data()), 0);
    EXPECT_EQ(valid(heap_copy(other_ctype).data()), 0);
    EXPECT_EQ(valid(nullptr), 0);
}

}  // namespace

TEST(G709, BuildValidateExtract) {
    for (uint8_t cls : kClasses) {
        SCOPED_TRACE(cls);
        const uint8_t other = tspec(cls) ? RSVP_CLASS_FLOWSPEC : RSVP_CLASS_SENDER_TSPEC;
        auto build = tspec(cls) ? rsvp_build_g709_otn_tspec : rsvp_build_g709_otn_flowspec;
        auto valid = tspec(cls) ? rsvp_valid_g709_otn_tspec : rsvp_valid_g709_otn_flowspec;
        auto extract = tspec(cls) ? rsvp_extract_g709_otn_tspec : rsvp_extract_g709_otn_flowspec;
        Bytes b(16, 0xEE);
        build(b.data(), 7, 0x0102, 0x0304, 1250000);
        EXPECT_EQ(to_hex(b), to_hex(g709(cls)));
        expect_only_16_valid(valid, g709(cls), g709(other), sonet(cls));

        uint8_t st = 0x55;
        uint16_t nvc = 0x5555, mt = 0x5555;
        int64_t rate = 0x55;
        // Failures write nothing: a null object or output, another C-Type.
        HeapBytes good = heap_copy(g709(cls));
        EXPECT_EQ(extract(heap_copy(sonet(cls)).data(), &st, &nvc, &mt, &rate), 0);
        EXPECT_EQ(extract(nullptr, &st, &nvc, &mt, &rate), 0);
        EXPECT_EQ(extract(good.data(), nullptr, &nvc, &mt, &rate), 0);
        EXPECT_EQ(extract(good.data(), &st, nullptr, &mt, &rate), 0);
        EXPECT_EQ(extract(good.data(), &st, &nvc, nullptr, &rate), 0);
        EXPECT_EQ(extract(good.data(), &st, &nvc, &mt, nullptr), 0);
        EXPECT_EQ(to_hex(Bytes{st}), "55");
        EXPECT_EQ(nvc + mt + rate, 0x5555 + 0x5555 + 0x55);

        EXPECT_EQ(extract(good.data(), &st, &nvc, &mt, &rate), 1);
        EXPECT_EQ(st, 7);
        EXPECT_EQ(nvc, 0x0102);
        EXPECT_EQ(mt, 0x0304);
        EXPECT_EQ(rate, 1250000);
        // The word's high bytes are not looked at, nor is the bit rate (+infinity here).
        b[4] = 0xAA;
        b[12] = 0x7f, b[13] = 0x80, b[14] = 0, b[15] = 0;
        EXPECT_EQ(extract(heap_copy(b).data(), &st, &nvc, &mt, &rate), 1);
        EXPECT_EQ(st, 7);
        EXPECT_EQ(rate, ieee_to_int64(RSVP_INTSRV_INFINITY_BITS));
    }
}

TEST(SonetSdh, BuildValidateExtract) {
    for (uint8_t cls : kClasses) {
        SCOPED_TRACE(cls);
        const uint8_t other = tspec(cls) ? RSVP_CLASS_FLOWSPEC : RSVP_CLASS_SENDER_TSPEC;
        auto build =
            tspec(cls) ? rsvp_build_uni_sonet_sdh_tspec : rsvp_build_uni_sonet_sdh_flowspec;
        auto valid =
            tspec(cls) ? rsvp_valid_uni_sonet_sdh_tspec : rsvp_valid_uni_sonet_sdh_flowspec;
        auto extract =
            tspec(cls) ? rsvp_extract_uni_sonet_sdh_tspec : rsvp_extract_uni_sonet_sdh_flowspec;
        Bytes b(16, 0xEE);
        build(b.data(), 6, 3, 2, 4, 1, 9);
        EXPECT_EQ(to_hex(b), to_hex(sonet(cls)));
        expect_only_16_valid(valid, sonet(cls), sonet(other), g709(cls));

        b[5] = 0x0d;  // a received RCC with bits above the low three
        uint8_t st = 0, rcc = 0;
        uint16_t ncc = 0, nvc = 0, mt = 0;
        uint32_t t = 0;
        EXPECT_EQ(extract(heap_copy(b).data(), &st, &rcc, &ncc, &nvc, &mt, &t), 1);
        EXPECT_EQ(to_hex(Bytes{st, rcc}), "06 05");
        EXPECT_EQ(ncc, 2);
        EXPECT_EQ(nvc, 4);
        EXPECT_EQ(mt, 1);
        EXPECT_EQ(t, 9u);

        st = rcc = 0x55;
        EXPECT_EQ(extract(heap_copy(g709(cls)).data(), &st, &rcc, &ncc, &nvc, &mt, &t), 0);
        EXPECT_EQ(extract(nullptr, &st, &rcc, &ncc, &nvc, &mt, &t), 0);
        EXPECT_EQ(to_hex(Bytes{st, rcc}), "55 55");
        EXPECT_EQ(ncc, 2);
        EXPECT_EQ(t, 9u);
    }
}

TEST(SonetSdhDeathTest, RccAboveSevenIsAnAssertion) {
    Bytes b(16);
    EXPECT_DEATH(rsvp_build_uni_sonet_sdh_tspec(b.data(), 1, 8, 0, 0, 0, 0), "assertion failed");
    EXPECT_DEATH(rsvp_build_uni_sonet_sdh_flowspec(b.data(), 1, 0xFF, 0, 0, 0, 0),
                 "assertion failed");
}

TEST(GmplsTraffic, DispatchedThroughTheGenericValidators) {
    for (uint8_t cls : kClasses) {
        SCOPED_TRACE(cls);
        Bytes junk = sonet(cls);  // a 16-byte C-Type 4 object passes whatever its fields hold
        std::fill(junk.begin() + 4, junk.end(), 0xFF);
        Bytes long_g709 = concat({g709(cls), Bytes(4, 0)});
        long_g709[1] = 20;
        EXPECT_EQ(rsvp_valid_object(heap_copy(g709(cls)).data()), 1u);
        EXPECT_EQ(rsvp_valid_object(heap_copy(junk).data()), 1u);
        EXPECT_EQ(rsvp_valid_object(heap_copy(long_g709).data()), 0u);
    }
}
