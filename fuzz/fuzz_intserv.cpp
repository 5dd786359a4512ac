// SENDER_TSPEC and FLOWSPEC of C-Type 2: validators, extractors, getters and accessors on the
// objects that validate, the orderings and the merge on pairs of valid flowspecs, and the
// token bucket copy from each valid SENDER_TSPEC. The fragment accessors, which read fixed
// offsets unchecked, also take every unit of the pool in a copy as long as their furthest read.
//
// The SENDER_TSPEC walk deliberately follows the overall length, which may claim up to four
// times the body (words against bytes): every call on a SENDER_TSPEC gets a copy with that
// much slack. The merge writes up to 48 bytes into its target: targets get that room.
#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

// Keeps every value alive; the sum is unsigned, so that converted extremes may add up.
template <typename... T>
void keep_all(T... values) {
    keep((uint64_t{0} + ... + static_cast<uint64_t>(values)));
}

// Bytes the SENDER_TSPEC walk may read past an object of this length: the claim reaches
// 8 + 4 * (length - 8).
size_t tspec_slack(const Object &o) {
    return o.length > 8 ? 3u * (o.length - 8u) : 0;
}

bool is_intserv(const Object &o, uint8_t class_num) {
    return o.class_num == class_num && o.c_type == 2;
}

// The furthest any fragment accessor reads: the Guaranteed RSpec's slack term ends at 40.
constexpr size_t kFragReach = RSVP_FLOWSPEC_GUARANTEED_LEN - 8;

void token_bucket(uint8_t *g) {
    keep_all(RSVP_TOKEN_BUCKET_FRAG_PARAM_ID(g), RSVP_TOKEN_BUCKET_FRAG_FLAGS(g),
             RSVP_TOKEN_BUCKET_FRAG_PARAM_LEN(g), RSVP_TOKEN_BUCKET_FRAG_RATE(g),
             RSVP_TOKEN_BUCKET_FRAG_DEPTH(g), RSVP_TOKEN_BUCKET_FRAG_PEAK(g),
             RSVP_TOKEN_BUCKET_FRAG_MIN_UNIT(g), RSVP_TOKEN_BUCKET_FRAG_MAX_UNIT(g),
             RSVP_INTSRV_SERVICE_ID(g), RSVP_INTSRV_SERVICE_LENGTH(g));
}

void qualitative(uint8_t *q) {
    keep_all(RSVP_TSPEC_QUAL_FRAG_PARAM_ID(q), RSVP_TSPEC_QUAL_FRAG_FLAGS(q),
             RSVP_TSPEC_QUAL_FRAG_PARAM_LEN(q), RSVP_TSPEC_QUAL_FRAG_MAX_UNIT(q),
             RSVP_INTSRV_INTEGER_OBJECT_VALUE(q + 4));
}

void rspec(uint8_t *frag) {
    keep_all(RSVP_FLOWSPEC_RSPEC_PARAM_ID(frag), RSVP_FLOWSPEC_RSPEC_FLAGS(frag),
             RSVP_FLOWSPEC_RSPEC_PARAM_LEN(frag), RSVP_FLOWSPEC_RSPEC_REQ_RATE(frag),
             RSVP_FLOWSPEC_RSPEC_SLACK(frag),
             RSVP_TOKEN_BUCKET_FRAG_RATE(RSVP_GTD_BUCKET_PTR(frag)));
}

void exercise_tspec(uint8_t *t, size_t size) {
    keep(rsvp_valid_tspec(t) + rsvp_valid_gen_tspec(t));
    if (!rsvp_valid_tspec(t)) return;
    int64_t r = 0, b = 0, p = 0;
    uint32_t m = 0, big_m = 0;
    keep(rsvp_extract_tspec(t, &r, &b, &p, &m, &big_m));
    keep_all(r, b, p, m, big_m);
    keep_all(rsvp_get_average_rate(t), rsvp_get_maximum_burst(t), rsvp_get_peak_rate(t),
             rsvp_get_min_unit(t), rsvp_get_max_unit(t));
    keep_all(RSVP_TSPEC_HEADER_VERSION(t), RSVP_TSPEC_HEADER_LENGTH(t));
    keep(RSVP_TSPEC_FRAGMENTS_PTR(t, 0));
    if (uint8_t *g = rsvp_find_intsrv_service(t, RSVP_INTSRV_SERVICE_GENERAL)) {
        token_bucket(g);
        share_unit(g, kFragReach, t + size);
    }
    if (uint8_t *q = rsvp_find_intsrv_service(t, RSVP_INTSRV_SERVICE_QUALITATIVE)) {
        qualitative(q);
        share_unit(q, kFragReach, t + size);
    }
}

void exercise_flowspec(uint8_t *f, size_t size) {
    keep(rsvp_valid_flowspec(f) + rsvp_valid_gen_flowspec(f));
    if (!rsvp_valid_flowspec(f)) return;
    uint8_t qos = 0;
    int64_t b = 0, r = 0, p = 0, req = 0;
    uint32_t m = 0, big_m = 0, slack = 0;
    keep(rsvp_extract_flowspec(f, &qos, &b, &r, &m, &big_m, &p, &req, &slack));
    keep_all(qos, b, r, p, req, m, big_m, slack);
    keep_all(RSVP_FLOWSPEC_HEADER_VERSION(f), RSVP_FLOWSPEC_HEADER_LENGTH(f));
    uint8_t *frag = RSVP_FLOWSPEC_FRAGMENTS_PTR(f, 0);
    if (qos == RSVP_QOS_GUARANTEED) rspec(frag);
    if (qos == RSVP_QOS_CONTROLLED_LOAD)
        keep(RSVP_TOKEN_BUCKET_FRAG_PEAK(RSVP_CLOAD_BUCKET_PTR(frag)));
    share_unit(frag, kFragReach, f + size);
}

void exercise(std::span<const Object> objects) {
    std::vector<Scratch> tspecs, flowspecs;  // the valid ones, for the pairs below
    for (const Object &o : objects) {
        if (o.class_num == RSVP_CLASS_SENDER_TSPEC) {
            Scratch t = scratch_copy(o, tspec_slack(o));
            exercise_tspec(t.data(), t.size);
            if (is_intserv(o, RSVP_CLASS_SENDER_TSPEC) && rsvp_valid_tspec(t.data()))
                tspecs.push_back(std::move(t));
        } else if (o.class_num == RSVP_CLASS_FLOWSPEC) {
            keep(rsvp_valid_gen_flowspec(o.obj));
            exercise_flowspec(o.obj, o.length + o.room);
            if (is_intserv(o, RSVP_CLASS_FLOWSPEC) && rsvp_valid_flowspec(o.obj))
                flowspecs.push_back(scratch_copy(o));
        }
    }
    // Each flowspec with itself and its successor, each tspec with one flowspec: pairs in
    // linear number, so that a 64 KB run of flowspecs stays quick.
    const size_t n = flowspecs.size();
    for (size_t i = 0; i < n; ++i) {
        Scratch &a = flowspecs[i];
        for (Scratch *b : {&a, &flowspecs[(i + 1) % n]}) {
            keep(rsvp_compare_flowspecs(a.data(), b->data()));
            // The target gets room for the largest merge result.
            Scratch target{std::make_unique<uint8_t[]>(a.size + RSVP_FLOWSPEC_MAX_LEN),
                           a.size + RSVP_FLOWSPEC_MAX_LEN};
            std::memcpy(target.data(), a.data(), a.size);
            keep(rsvp_merge_flowspecs(b->data(), target.data()));
            keep(rsvp_merge_flowspecs(target.data(), target.data()));
        }
    }
    for (size_t j = 0; j < tspecs.size() && n; ++j) {
        Scratch &t = tspecs[j], &a = flowspecs[j % n];
        keep(rsvp_compare_tspec_with_flowspec(t.data(), a.data()));
        Scratch copy{std::make_unique<uint8_t[]>(a.size), a.size};
        std::memcpy(copy.data(), a.data(), a.size);
        keep(rsvp_copy_flowspec_rate_from_tspec(copy.data(), t.data()));
        keep(rsvp_valid_flowspec(copy.data()));
    }
}

// Every unit of the pool, in a copy as long as the furthest fixed read.
void exercise_units(std::span<const Bytes> units) {
    for (const Bytes &u : units) {
        Scratch c = unit_copy(u, kFragReach);
        token_bucket(c.data());
        qualitative(c.data());
        rspec(c.data());
        keep(RSVP_TOKEN_BUCKET_FRAG_PEAK(RSVP_CLOAD_BUCKET_PTR(c.data())));
    }
}

void seeds(std::vector<Bytes> &out) {
    // A Path's SENDER_TSPEC beside a Resv's Guaranteed and Controlled-Load FLOWSPECs.
    Bytes run(size_t{RSVP_SENDER_TSPEC_INTSERV_LEN} + size_t{RSVP_FLOWSPEC_GUARANTEED_LEN} +
              size_t{RSVP_FLOWSPEC_CONTROLLED_LOAD_LEN});
    uint8_t *p = run.data();
    rsvp_build_tspec(p, 1250000, 10000, 2500000, 64, 1500);
    p += RSVP_SENDER_TSPEC_INTSERV_LEN;
    rsvp_build_flowspec(p, RSVP_QOS_GUARANTEED, 10000, 1250000, 64, 1500, 2500000, 2000000, 100);
    p += RSVP_FLOWSPEC_GUARANTEED_LEN;
    rsvp_build_flowspec(p, RSVP_QOS_CONTROLLED_LOAD, 4000, 125000, 128, 1500, 250000, 0, 0);
    out.push_back(run);

    // A SENDER_TSPEC with a general and a qualitative fragment, and a qualitative FLOWSPEC.
    constexpr uint16_t kQualFragLen = 12, kBodyHdrLen = 4;
    constexpr uint16_t kTwoFragLen = RSVP_SENDER_TSPEC_INTSERV_LEN + kQualFragLen;
    constexpr uint16_t kQualFlowLen = RSVP_OBJ_HDR_LEN + kBodyHdrLen + kQualFragLen;
    Bytes two(kTwoFragLen + kQualFlowLen);
    rsvp_build_tspec(two.data(), 125000, 4000, 250000, 128, 1500);
    rsvp_build_object(two.data(), RSVP_CLASS_SENDER_TSPEC, RSVP_CTYPE_SENDER_TSPEC_INTSERV,
                      kTwoFragLen);
    uint8_t *qual = two.data() + RSVP_SENDER_TSPEC_INTSERV_LEN;
    const uint8_t qual_hdr[] = {RSVP_INTSRV_SERVICE_QUALITATIVE, 0, 0, 2};
    std::memcpy(qual, qual_hdr, sizeof qual_hdr);
    rsvp_build_intsrv_integer_object(qual + 4, RSVP_INTSRV_PARAM_QUALITATIVE_MAX_UNIT, 1500);
    two[7] = (kTwoFragLen - 8) / 4;  // overall length in words
    uint8_t *flow = two.data() + kTwoFragLen;
    rsvp_build_object(flow, RSVP_CLASS_FLOWSPEC, RSVP_CTYPE_FLOWSPEC_INTSERV, kQualFlowLen);
    flow[7] = (kQualFlowLen - 8) / 4;
    std::memcpy(flow + 8, qual, kQualFragLen);
    out.push_back(two);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_UNITS(exercise_units);
RSVP_FUZZ_SEEDS(seeds);
