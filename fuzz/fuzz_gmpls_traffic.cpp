// G.709 OTN and SONET/SDH traffic parameters in SENDER_TSPEC and FLOWSPEC: the validators of
// both classes on every object of the two classes, the extractors, and a rebuild from the
// extracted fields that must validate and extract to the same fields again.
#include <cstdlib>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

void check(bool ok) {
    if (!ok) std::abort();
}

void exercise_g709(const Object &o) {
    const bool tspec = o.class_num == RSVP_CLASS_SENDER_TSPEC;
    auto extract = tspec ? rsvp_extract_g709_otn_tspec : rsvp_extract_g709_otn_flowspec;
    uint8_t st = 0;
    uint16_t nvc = 0, mt = 0;
    int64_t rate = 0;
    if (!extract(o.obj, &st, &nvc, &mt, &rate)) return;
    keep(extract(o.obj, nullptr, &nvc, &mt, &rate));
    Bytes again(RSVP_GMPLS_TRAFFIC_LEN);
    (tspec ? rsvp_build_g709_otn_tspec : rsvp_build_g709_otn_flowspec)(again.data(), st, nvc, mt,
                                                                       rate);
    uint8_t st2 = 0;
    uint16_t nvc2 = 0, mt2 = 0;
    int64_t rate2 = 0;
    check(extract(again.data(), &st2, &nvc2, &mt2, &rate2) == 1);
    check(st2 == st && nvc2 == nvc && mt2 == mt);
    keep(rate2);
}

void exercise_sonet(const Object &o) {
    const bool tspec = o.class_num == RSVP_CLASS_SENDER_TSPEC;
    auto extract = tspec ? rsvp_extract_uni_sonet_sdh_tspec : rsvp_extract_uni_sonet_sdh_flowspec;
    uint8_t st = 0, rcc = 0;
    uint16_t ncc = 0, nvc = 0, mt = 0;
    uint32_t t = 0;
    if (!extract(o.obj, &st, &rcc, &ncc, &nvc, &mt, &t)) return;
    check(rcc <= RSVP_SONET_SDH_RCC_MAX);
    Bytes again(RSVP_GMPLS_TRAFFIC_LEN);
    (tspec ? rsvp_build_uni_sonet_sdh_tspec : rsvp_build_uni_sonet_sdh_flowspec)(
        again.data(), st, rcc, ncc, nvc, mt, t);
    // The rebuilt object differs from the received one at most in RCC's masked bits.
    for (unsigned i = 0; i < RSVP_GMPLS_TRAFFIC_LEN; ++i)
        check(again[i] == o.obj[i] || i == 5);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.class_num != RSVP_CLASS_SENDER_TSPEC && o.class_num != RSVP_CLASS_FLOWSPEC) continue;
        // The validators read the header alone, so every object of the two classes is asked.
        keep(rsvp_valid_g709_otn_tspec(o.obj) + rsvp_valid_g709_otn_flowspec(o.obj) +
             rsvp_valid_uni_sonet_sdh_tspec(o.obj) + rsvp_valid_uni_sonet_sdh_flowspec(o.obj));
        exercise_g709(o);
        exercise_sonet(o);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(4 * RSVP_GMPLS_TRAFFIC_LEN, 0);
    uint8_t *p = run.data();
    rsvp_build_g709_otn_tspec(p, 1, 0, 1, 311040000);
    rsvp_build_g709_otn_flowspec(p + 16, 3, 8, 2, 1250000);
    rsvp_build_uni_sonet_sdh_tspec(p + 32, 6, 0, 0, 0, 1, 0);
    rsvp_build_uni_sonet_sdh_flowspec(p + 48, 6, 5, 1, 3, 2, 0x40);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
