// ADSPEC: the validator, the fixed-position fragment extractors, the service query (which does
// not validate, so every class-13 object is asked), the accessors over the object and over the
// fragments found, and the setters on scratch copies followed by a second validation. The
// fragment accessors, which read fixed offsets unchecked, also take every unit of the pool in a
// copy as long as a Guaranteed fragment's error terms.
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

// Bytes a Guaranteed fragment needs before its four error terms can be read.
constexpr unsigned kGtdFragLen = 36;
// The extractors find a fragment header at 80 at most, whatever the object's length (and the
// setters below write into it).
constexpr size_t kExtractReach = 84;
// has_qos_service reads the two word counts (bytes 6-7, 10-11), then walks from 44; since its
// position plus four times its remaining count stays put, it reads below 44 + 4 * (overall -
// general length) only.
constexpr size_t kQosHdrReach = 12;
constexpr size_t kQosWalkStart = 44;

// A copy of the object with room behind it for the deliberate reads past its end.
Scratch roomy_copy(const Object &o) {
    Scratch hdr = scratch_copy(o, kQosHdrReach);
    const uint8_t *h = hdr.data();
    const int16_t remaining = static_cast<int16_t>(((h[6] << 8) | h[7]) - ((h[10] << 8) | h[11]));
    size_t reach = kExtractReach > kQosHdrReach ? kExtractReach : kQosHdrReach;
    if (remaining > 0 && kQosWalkStart + 4u * static_cast<size_t>(remaining) > reach)
        reach = kQosWalkStart + 4u * static_cast<size_t>(remaining);
    return scratch_copy(o, reach > o.length ? reach - o.length : 0);
}

// The accessors of a fragment whose Guaranteed error terms are read only below end.
void exercise_fragment(uint8_t *frag, const uint8_t *end, bool gtd) {
    keep(RSVP_ADSPEC_FRAG_HDR_SERVICE_ID(frag) + RSVP_ADSPEC_FRAG_HDR_BREAK_BIT(frag) +
         RSVP_ADSPEC_FRAG_HDR_SERVICE_LENGTH(frag));
    keep(RSVP_ADSPEC_FRAG_HDR_FIRST_OBJECT(frag));
    keep(gtd ? RSVP_GTD_FRAG_HDR_PTR(frag) : RSVP_CLOAD_FRAG_HDR_PTR(frag));
    if (gtd && frag + kGtdFragLen <= end)
        keep(RSVP_INTSRV_INTEGER_OBJECT_VALUE(RSVP_GTD_CTOT_PTR(frag)) +
             RSVP_INTSRV_INTEGER_OBJECT_VALUE(RSVP_GTD_DTOT_PTR(frag)) +
             RSVP_INTSRV_INTEGER_OBJECT_VALUE(RSVP_GTD_CSUM_PTR(frag)) +
             RSVP_INTSRV_INTEGER_OBJECT_VALUE(RSVP_GTD_DSUM_PTR(frag)));
}

void exercise_valid(const Object &o) {
    uint8_t *a = o.obj;
    keep(RSVP_ADSPEC_HDR_VERSION(a) + RSVP_ADSPEC_HDR_LENGTH(a) +
         RSVP_ADSPEC_NUMBER_IS_HOPS_VAL(a) + RSVP_ADSPEC_BANDWIDTH_VAL(a) +
         RSVP_ADSPEC_LATENCY_VAL(a));
    keep(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(a));
    keep(RSVP_ADSPEC_HDR_GENERAL_FRAGMENTS_PTR(a, 0));
    Scratch r = roomy_copy(o);
    uint8_t *gtd = nullptr, *cl = nullptr;
    if (rsvp_adspec_extract_gtd_frag(r.data(), &gtd)) {
        exercise_fragment(gtd, r.data() + o.length, true);
        share_unit(gtd, kGtdFragLen, r.data() + r.size);
    }
    if (rsvp_adspec_extract_cl_frag(r.data(), &cl)) {
        exercise_fragment(cl, r.data() + o.length, false);
        share_unit(cl, kGtdFragLen, r.data() + r.size);
    }

    Scratch s = scratch_copy(o);
    RSVP_ADSPEC_HDR_SET_LENGTH(s.data(), static_cast<uint16_t>(RSVP_ADSPEC_HDR_LENGTH(a) + 1));
    keep(rsvp_valid_adspec(s.data()));
    // The same word counts as the original, so the same room covers the walk.
    Scratch f = roomy_copy(o);
    uint8_t *frag = nullptr;
    if (rsvp_adspec_extract_gtd_frag(f.data(), &frag) ||
        rsvp_adspec_extract_cl_frag(f.data(), &frag)) {
        RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(frag, 0x80);
        RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(frag, 0);
        keep(rsvp_valid_adspec(f.data()) +
             rsvp_adspec_has_qos_service(f.data(), RSVP_QOS_CONTROLLED_LOAD));
    }
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects) {
        if (o.length >= RSVP_OBJ_HDR_LEN + 4)
            keep(RSVP_SBM_LAN_NHOP_L3_IPV4_ADDR(o.obj) + RSVP_SBM_DSBM_IPV4_ADDR(o.obj) +
                 RSVP_SBM_LAN_LOOPBACK_IPV4_ADDR(o.obj));
        if (o.class_num != RSVP_CLASS_ADSPEC) continue;
        keep(rsvp_valid_adspec(o.obj));
        Scratch r = roomy_copy(o);
        for (uint8_t code : {RSVP_QOS_GUARANTEED, RSVP_QOS_CONTROLLED_LOAD, RSVP_QOS_QUALITATIVE})
            keep(rsvp_adspec_has_qos_service(r.data(), code));
        uint8_t *untouched = nullptr;
        keep(rsvp_adspec_extract_gtd_frag(r.data(), &untouched) +
             rsvp_adspec_extract_cl_frag(r.data(), &untouched));
        if (o.verdict == RSVP_OBJECT_VALID) exercise_valid(o);
    }
}

void exercise_units(std::span<const Bytes> units) {
    for (const Bytes &u : units) {
        Scratch c = unit_copy(u, kGtdFragLen);
        exercise_fragment(c.data(), c.data() + c.size, true);
        RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(c.data(), c.data()[0]);
        RSVP_ADSPEC_FRAG_HDR_SET_SERVICE_LENGTH(c.data(), 0);
    }
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(4 * RSVP_ADSPEC_BASELINE_MAX_LEN, 0);
    size_t at = 0;
    for (uint32_t services :
         {RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL, RSVP_ADSPEC_BASELINE_GUARANTEED,
          RSVP_ADSPEC_BASELINE_CONTROLLED_LOAD, RSVP_ADSPEC_BASELINE_GENERAL_ONLY}) {
        rsvp_build_adspec_baseline(run.data() + at, services);
        at += RSVP_OBJECT_LENGTH(run.data() + at);
    }
    run.resize(at);
    out.push_back(run);
    // A baseline whose Controlled-Load fragment carries the break bit and whose hop count and
    // bandwidth a router has updated.
    Bytes updated(RSVP_ADSPEC_BASELINE_MAX_LEN, 0);
    uint8_t *cl =
        rsvp_build_adspec_baseline(updated.data(), RSVP_ADSPEC_BASELINE_GUARANTEED_AND_CL);
    RSVP_ADSPEC_FRAG_HDR_SET_BREAK_BIT(cl, 0x80);
    RSVP_INTSRV_INTEGER_OBJECT_SET_VALUE(RSVP_ADSPEC_HDR_GENERAL_FRAG_HDR(updated.data()) + 4, 3);
    out.push_back(updated);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
