// ASSOCIATION: the validators and ID lengths on every class-199 object; the extractors, which
// trust their caller, on every class-199 object too, with room up to the fixed fields
// they read; each builder fed with what was extracted, which must give the object back.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace {

using namespace rsvp_fuzz;

// The extractors read at most the first 28 bytes (type, ID, IPv6 source and global source)
// and, for the extended forms, IDs that end inside the Length.
constexpr size_t kFixedReach = RSVP_ASSOCIATION_IPV6_EXT_IDS_OFFSET;

// A rebuilt valid object must equal the received one (an extended IPv6 object up to its last
// ID: the builder never writes the 4 bytes behind it).
void same_or_abort(const Object &o, const uint8_t *rebuilt, size_t compared) {
    if (std::memcmp(o.obj, rebuilt, compared) != 0) std::abort();
}

void exercise_one(const Object &o) {
    Scratch s = scratch_copy(o, o.length < kFixedReach ? kFixedReach - o.length : 0);
    uint8_t *obj = s.data();
    const int valid = rsvp_valid_association(obj);
    keep(valid + rsvp_valid_association_ipv4(obj) + rsvp_valid_association_ipv6(obj) +
         rsvp_valid_association_ipv4_ext(obj) + rsvp_valid_association_ipv6_ext(obj));
    uint16_t type = 0, id = 0, count = 0;
    uint32_t src[4] = {}, global = 0;
    std::vector<uint32_t> ids4(rsvp_compute_association_ipv4_ext_id_len(obj) / 4 + 1);
    std::vector<uint32_t> ids6(rsvp_compute_association_ipv6_ext_id_len(obj) / 4 + 1);
    const auto cap4 = static_cast<uint32_t>(ids4.size() * 4);
    const auto cap6 = static_cast<uint32_t>(ids6.size() * 4);
    keep(rsvp_extract_association_ipv4_ext(obj, &type, &id, src, &global, ids4.data(), 0, &count));
    keep(rsvp_extract_association_ipv6_ext(obj, &type, &id, src, &global, nullptr, cap6, &count));

    Scratch b = scratch_copy(o);
    std::memset(b.data(), 0, b.size);
    switch (valid ? o.c_type : 0) {
        case RSVP_CTYPE_ASSOCIATION_IPV4:
            keep(rsvp_extract_association_ipv4(obj, &type, &id, src));
            keep(rsvp_build_association_ipv4(b.data(), type, id, src[0]));
            same_or_abort(o, b.data(), o.length);
            break;
        case RSVP_CTYPE_ASSOCIATION_IPV6:
            keep(rsvp_extract_association_ipv6(obj, &type, &id, src));
            keep(rsvp_build_association_ipv6(b.data(), type, id, src[0], src[1], src[2], src[3]));
            same_or_abort(o, b.data(), o.length);
            break;
        case RSVP_CTYPE_ASSOCIATION_IPV4_EXT:
            if (!rsvp_extract_association_ipv4_ext(obj, &type, &id, src, &global, ids4.data(), cap4,
                                                   &count))
                std::abort();
            keep(rsvp_build_association_ipv4_ext(b.data(), type, id, src[0], global,
                                                 count ? ids4.data() : nullptr, count));
            same_or_abort(o, b.data(), o.length);
            break;
        case RSVP_CTYPE_ASSOCIATION_IPV6_EXT:
            if (!rsvp_extract_association_ipv6_ext(obj, &type, &id, src, &global, ids6.data(), cap6,
                                                   &count))
                std::abort();
            keep(rsvp_build_association_ipv6_ext(b.data(), type, id, src[0], src[1], src[2], src[3],
                                                 global, count ? ids6.data() : nullptr, count));
            same_or_abort(o, b.data(), o.length - 4u);
            break;
        default:  // not validated: the plain extractors read whatever lies there
            keep(rsvp_extract_association_ipv4(obj, &type, &id, src) +
                 rsvp_extract_association_ipv6(obj, &type, &id, src));
            break;
    }
    keep(type + id + src[0] + global + count);
}

void exercise(std::span<const Object> objects) {
    for (const Object &o : objects)
        if (o.class_num == RSVP_CLASS_ASSOCIATION) exercise_one(o);
}

void seeds(std::vector<Bytes> &out) {
    Bytes run(12 + 24 + 24 + 40, 0);
    uint8_t *p = run.data();
    const uint32_t ids[] = {0xa1, 0xa2};
    rsvp_build_association_ipv4(p, RSVP_ASSOCIATION_TYPE_RECOVERY, 1, 0x0100000a);
    rsvp_build_association_ipv6(p + 12, RSVP_ASSOCIATION_TYPE_RESOURCE_SHARING, 2, 0xb80d0120, 0, 0,
                                0x01000000);
    rsvp_build_association_ipv4_ext(p + 36, RSVP_ASSOCIATION_TYPE_DOUBLE_SIDED_BIDIR, 3, 0x0100000a,
                                    65001, ids, 2);
    rsvp_build_association_ipv6_ext(p + 60, RSVP_ASSOCIATION_TYPE_SINGLE_SIDED_BIDIR, 4, 0xb80d0120,
                                    0, 0, 0x01000000, 7, ids, 2);
    out.push_back(run);
}

}  // namespace

RSVP_FUZZ_EXERCISER(exercise);
RSVP_FUZZ_SEEDS(seeds);
