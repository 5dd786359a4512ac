// The counts and lookups over a route or hop object validate it once, then walk. Each is
// compared with the plain walk that validates at every step, on generated and mutated objects
// up to 64 KB: cut short, overrunning, broken, of other classes, random bytes behind the end.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>

#include "rsvp_object_lib.h"
#include "test_util.hpp"

using namespace rsvp_test;

namespace {

using Rng = std::mt19937;
unsigned pick(Rng &rng, unsigned n) {
    return std::uniform_int_distribution<unsigned>(0, n - 1)(rng);
}

struct Sub {
    unsigned type, length, size;  // size: bytes the generator lays down
};
struct Family {
    const char *name;
    int (*valid_obj)(uint8_t *), (*valid_sub)(uint8_t *);
    uint8_t *(*next)(uint8_t *, uint8_t *);
    uint32_t (*count_ipv4)(uint8_t *), (*count_unnum)(uint8_t *);  // routes only
    unsigned first;                                                // offset of the first subobject
    bool hop;  // 16-bit TLV header; a candidate exactly at the end is still looked at
    uint8_t class_num, c_type;
    std::vector<Sub> good, bad, dense;  // dense: the 64 KB object's palette
    size_t slack;                       // bytes behind the object that the walks may read
};
// clang-format off
const Family kEroFamily{"ExplicitRoute", rsvp_valid_explicit_route,
    rsvp_valid_explicit_route_subobject, rsvp_extract_ero_next_subobject,
    rsvp_count_ero_subobject_ipv4, rsvp_count_ero_subobject_unnum, 4, false, 20, 1,
    {{1, 8, 8}, {0x81, 8, 8}, {4, 12, 12}, {0x84, 12, 12}, {2, 20, 20}, {32, 4, 4}, {0xa0, 4, 4}},
    {{1, 12, 12}, {3, 8, 8}, {4, 1, 2}, {0, 0, 2}, {32, 8, 8}},
    {{32, 4, 4}, {32, 4, 4}, {32, 4, 4}, {32, 4, 4}, {1, 8, 8}, {4, 12, 12}},
    1};
const Family kRroFamily{"RecordRoute", rsvp_valid_record_route, valid_record_route_subobject,
    rsvp_extract_rro_next_subobject, rsvp_count_rro_subobject_ipv4,
    rsvp_count_rro_subobject_unnum, 4, false, 21, 1,
    {{1, 8, 8}, {4, 12, 12}, {2, 20, 20}, {3, 8, 8}, {3, 4, 4}, {34, 12, 12}, {0, 4, 4},
     {7, 8, 8}, {0x81, 4, 4}},
    {{1, 12, 12}, {4, 8, 8}, {9, 6, 6}, {1, 0, 4}, {5, 2, 2}},
    {{0, 4, 4}, {0, 4, 4}, {0, 4, 4}, {0, 4, 4}, {1, 8, 8}, {4, 12, 12}},
    1};
const Family kHopFamily{"IfIdHop", rsvp_valid_hop_if_id, rsvp_valid_hop_if_id_subobject,
    rsvp_extract_hop_if_id_next_subobj, nullptr, nullptr, 12, true, 3, 3,
    {{1, 8, 8}, {3, 12, 12}, {4, 12, 12}, {5, 12, 12}},
    {{2, 8, 8}, {4, 8, 8}, {1, 12, 12}, {0, 4, 4}, {3, 2, 4}, {1, 0, 4}},
    {{4, 12, 12}, {5, 12, 12}},
    12};
// clang-format on

uint8_t *ref_next(const Family &f, uint8_t *obj, uint8_t *prev) {
    if (!f.valid_obj(obj)) return nullptr;
    uint8_t *cand = obj + f.first;
    if (prev) {
        if (!f.valid_sub(prev)) return nullptr;
        cand = prev + (f.hop ? prev[2] << 8 | prev[3] : prev[1]);
    }
    const long off = cand - obj, end = obj[0] << 8 | obj[1];
    if (f.hop ? off > end : off >= end) return nullptr;
    return f.valid_sub(cand) ? cand : nullptr;
}

uint32_t ref_count(const Family &f, uint8_t *obj, uint8_t raw_type) {
    uint32_t n = 0;
    uint8_t *sub = nullptr;
    for (int step = 0; step < 10000 && (sub = ref_next(f, obj, sub)); ++step)
        n += sub[0] == raw_type;
    return n;
}

// The first TLV of type a or b of a valid IF_ID hop; null for an invalid hop.
uint8_t *ref_first_tlv(uint8_t *obj, unsigned a, unsigned b) {
    for (uint8_t *t = ref_next(kHopFamily, obj, nullptr); t; t = ref_next(kHopFamily, obj, t))
        if (unsigned ty = t[0] << 8 | t[1]; ty == a || ty == b) return t;
    return nullptr;
}

// rsvp_get_gmpls_hop_if_id_tlv: kind 0 once the hop validates, then the first TLV of type 1 or 3.
int ref_get_tlv(uint8_t *obj, rsvp_hop_if_id_tlv_info *info) {
    if (!rsvp_valid_hop_if_id(obj)) return 0;
    info->kind = 0;
    uint8_t *t = ref_first_tlv(obj, 1, 3);
    if (!t) return 0;
    info->kind = t[1] == 1 ? 1 : 2;
    return t[1] == 1 ? rsvp_extract_ipv4_subobj(t, &info->address)
                     : rsvp_extract_comp_index_fwd_rev_intf_subobj(t, &info->address, &info->if_id);
}

void put_sub(const Family &f, Rng &rng, const Sub &s, Bytes &out) {
    size_t at = out.size();
    for (unsigned i = 0; i < s.size; ++i)
        out.push_back(static_cast<uint8_t>(rng()));
    if (f.hop) out[at++] = 0;  // a 16-bit type and a 16-bit length
    out[at] = static_cast<uint8_t>(s.type);
    if (f.hop) out[++at] = static_cast<uint8_t>(s.length >> 8);
    out[at + 1] = static_cast<uint8_t>(s.length);
}

// About `target` bytes of subobjects, mutated: the Length cut anywhere (a last subobject then
// overruns it), bytes flipped, class or C-Type changed; with the bytes the walks read behind.
Bytes make_object(const Family &f, Rng &rng, size_t target, bool mutate = true) {
    Bytes b(f.first);
    // A few broken subobjects in a third of the objects, anywhere.
    const size_t bad_from =
        f.first + (!mutate || pick(rng, 3) ? target : pick(rng, unsigned(target) + 1));
    while (b.size() < target + f.first) {
        const auto &from = b.size() >= bad_from && b.size() < bad_from + 24 ? f.bad : f.good;
        put_sub(f, rng, from[pick(rng, static_cast<unsigned>(from.size()))], b);
    }
    size_t length = std::min<size_t>(b.size(), 0xffff);
    if (mutate && pick(rng, 3) == 0) length = pick(rng, static_cast<unsigned>(length + 1));
    for (unsigned flips = mutate && pick(rng, 4) == 0 ? 1 + pick(rng, 3) : 0; flips; --flips)
        b[pick(rng, static_cast<unsigned>(b.size()))] = static_cast<uint8_t>(rng());
    b[0] = static_cast<uint8_t>(length >> 8), b[1] = static_cast<uint8_t>(length);
    b[2] = !mutate || pick(rng, 30) ? f.class_num : static_cast<uint8_t>(rng());
    b[3] = !mutate || pick(rng, 30) ? f.c_type : static_cast<uint8_t>(rng());
    // Behind the Length: what the generator laid there, else a subobject a lookup may take.
    if (b.size() < length + f.slack)
        put_sub(f, rng, pick(rng, 2) ? Sub{1, 8, 8} : Sub{3, 12, 12}, b);
    b.resize(std::max<size_t>(length, 4) + f.slack);  // the header itself is always there
    return b;
}

// Every count and lookup (and the walker step by step) against the plain walk, exact-size buffer.
void compare(const Family &f, const Bytes &bytes, bool walk_all) {
    HeapBytes h = heap_copy(bytes);
    uint8_t *o = h.data();
    SCOPED_TRACE(to_hex(o, std::min<size_t>(bytes.size(), 48)));
    if (f.hop) {
        uint32_t a1 = 1, i1 = 2, a2 = 1, i2 = 2;
        ASSERT_EQ(rsvp_get_gmpls_hop_if_index_tlv(o, &a1, &i1),
                  rsvp_extract_comp_index_fwd_rev_intf_subobj(ref_first_tlv(o, 3, 3), &a2, &i2));
        ASSERT_EQ(rsvp_get_gmpls_hop_if_index_tlv(o, &a1, nullptr), 0);
        ASSERT_EQ(rsvp_get_hop_if_id_ipv4_tlv(o, &a1),
                  rsvp_extract_ipv4_subobj(ref_first_tlv(o, 1, 1), &a2));
        ASSERT_EQ(std::tie(a1, i1), std::tie(a2, i2));
        rsvp_hop_if_id_tlv_info t1{7, 7, 7}, t2{7, 7, 7};
        ASSERT_EQ(rsvp_get_gmpls_hop_if_id_tlv(o, &t1), ref_get_tlv(o, &t2));
        ASSERT_EQ(std::tie(t1.kind, t1.address, t1.if_id), std::tie(t2.kind, t2.address, t2.if_id));
    } else {
        ASSERT_EQ(f.count_ipv4(o), ref_count(f, o, 1));
        ASSERT_EQ(f.count_unnum(o), ref_count(f, o, 4));
    }
    if (!walk_all) return;
    // The first step, and from every position a subobject header fits in, as a caller's prev
    // may be (which includes every step of the walk).
    ASSERT_EQ(f.next(o, nullptr), ref_next(f, o, nullptr));
    for (size_t at = 0; at + (f.hop ? 4 : 2) <= bytes.size(); ++at)
        ASSERT_EQ(f.next(o, o + at), ref_next(f, o, o + at)) << "prev at " << at;
}

class WalkEquivalence : public ::testing::TestWithParam<const Family *> {};

// Small objects, every step; then a well-formed 64 KB object (routes: more subobjects than the
// counts' 10000 steps) and the same cut at 32 KB, where a last subobject may overrun the end:
// one of each, as the plain walks take a minute on them under the sanitizers.
TEST_P(WalkEquivalence, SmallObjectsEveryStepThen64K) {
    Rng rng(GetParam()->class_num);
    for (int i = 0; i < 4000; ++i)
        compare(*GetParam(), make_object(*GetParam(), rng, pick(rng, 160)), true);
    Family dense = *GetParam();
    dense.good = dense.dense;
    rng.seed(dense.class_num + 1000u);
    Bytes b = make_object(dense, rng, 0xffff - 40 - pick(rng, 400), false);
    compare(dense, b, false);
    b[0] = 0x80, b[1] = 0x04;
    b.resize(0x8004 + dense.slack);
    compare(dense, b, false);
}

INSTANTIATE_TEST_SUITE_P(Routes, WalkEquivalence,
                         ::testing::Values(&kEroFamily, &kRroFamily, &kHopFamily),
                         [](const auto &info) { return std::string(info.param->name); });

}  // namespace
