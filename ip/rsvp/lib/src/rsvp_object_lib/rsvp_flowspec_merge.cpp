// Changing a FLOWSPEC in place: merging another reservation request into it (the least upper
// bound, field by field), and taking the token bucket of a SENDER_TSPEC.
//
// The merge reads every field through the flowspec getters, so a field that a service does
// not carry counts as 0 (an absent m as 65535), and builds the result with the flowspec
// builder: the merged numbers are re-encoded through int64_to_ieee, and a target whose floats
// do not survive that round trip is rewritten even when no field grew.
#include <cstring>
#include <type_traits>

#include "rsvp_intserv.hpp"

using namespace rsvp;
using namespace rsvp::intserv;

namespace {

// Room for any object the flowspec builder writes, and then some.
constexpr size_t kMergeBufLen = 256;
static_assert(kMergeBufLen >= RSVP_FLOWSPEC_MAX_LEN);

// Token bucket words copied from a SENDER_TSPEC: r, b and p, which lie back to back.
constexpr unsigned kCopiedLen = kTbMinUnitOffset - kTbRateOffset;

// Target's value only when strictly larger (or strictly smaller), else other's: unsigned.
template <typename T, typename U = std::make_unsigned_t<T>>
T larger(T target, T other) {
    return static_cast<U>(target) > static_cast<U>(other) ? target : other;
}
template <typename T>
T smaller(T target, T other) {
    return target < other ? target : other;
}

}  // namespace

extern "C" {

int rsvp_merge_flowspecs(uint8_t *other, uint8_t *target) {
    // A null target reads as no service, every field 0 (m 65535), and differs from any merge.
    const uint8_t target_qos = rsvp_get_flow_qos_service(target);
    // Guaranteed when either side is; otherwise other's service, whatever it is.
    const uint8_t qos =
        target_qos == RSVP_QOS_GUARANTEED ? target_qos : rsvp_get_flow_qos_service(other);

    uint8_t merged[kMergeBufLen] = {};
    rsvp_build_flowspec(
        merged, qos,
        larger(rsvp_get_flow_maximum_burst(target), rsvp_get_flow_maximum_burst(other)),
        larger(rsvp_get_flow_average_rate(target), rsvp_get_flow_average_rate(other)),
        smaller(rsvp_get_flow_min_unit(target), rsvp_get_flow_min_unit(other)),
        larger(rsvp_get_flow_max_unit(target), rsvp_get_flow_max_unit(other)),
        larger(rsvp_get_flow_peak_rate(target), rsvp_get_flow_peak_rate(other)),
        larger(rsvp_get_flow_requested_rate(target), rsvp_get_flow_requested_rate(other)),
        smaller(rsvp_get_flow_slack(target), rsvp_get_flow_slack(other)));

    if (rsvp_object_compare(target, merged) == 0) return 0;
    const uint16_t merged_len = obj_length(merged);
    // An unsupported service built nothing: the answer is "changed", deliberately without a
    // write. A null target is not written either.
    if (merged_len == 0 || !target) return 1;
    std::memmove(target, merged, merged_len);
    return 1;
}

int rsvp_copy_flowspec_rate_from_tspec(uint8_t *flowspec, uint8_t *tspec) {
    if (!flowspec || !tspec || !rsvp_valid_flowspec(flowspec)) return 0;
    if (!rsvp_valid_tspec(tspec) || obj_ctype(tspec) != RSVP_CTYPE_SENDER_TSPEC_INTSERV) return 0;
    const uint8_t *frag = rsvp_find_intsrv_service(tspec, RSVP_INTSRV_SERVICE_GENERAL);
    if (!frag || obj_ctype(flowspec) != RSVP_CTYPE_FLOWSPEC_INTSERV) return 0;
    if (!carries_token_bucket(flowspec[kFirstServiceOffset]))
        return 1;  // no token bucket to take the rates (the qualitative service)
    // Raw words, no conversion; m, M, R and S stay as they are.
    std::memcpy(flowspec + kFirstFragOffset + kTbRateOffset, frag + kTbRateOffset, kCopiedLen);
    return 1;
}

}  // extern "C"
