// One call on a route or hop object of nearly 64 KB, as a hostile neighbour may send: every
// count, lookup, add and insert that walks the object internally. Each must stay linear in the
// object (well under a millisecond here), however many subobjects it holds. The caller's own
// walker loop is not timed: its per-step validation makes that loop quadratic by design.
#include <benchmark/benchmark.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "rsvp_object_lib.h"

namespace {

constexpr size_t kMaxObject = 0xFFFF;
// Room behind the object for the largest subobject an add or insert writes.
constexpr size_t kRoom = 64;

uint32_t addr_of(uint32_t n) {
    return 0x0000000a | n << 8;  // 10.x.y.0 in wire order
}

// An object buffer that an add or insert may grow, and the Length to go back to afterwards.
struct Big {
    std::vector<uint8_t> buf = std::vector<uint8_t>(kMaxObject + kRoom);
    uint8_t *obj() { return buf.data(); }
    size_t length() const { return size_t{buf[0]} << 8 | buf[1]; }
    void set_length(size_t length) {
        buf[0] = static_cast<uint8_t>(length >> 8);
        buf[1] = static_cast<uint8_t>(length);
    }
};

// Strict IPv4 prefixes and unnumbered interfaces in turn, up to 12 bytes short of 64 KB.
const Big &explicit_route() {
    static const Big big = [] {
        Big b;
        rsvp_build_explicit_route(b.obj());
        for (uint32_t n = 0;
             b.length() + RSVP_ERO_SUBOBJ_IPV4_PREFIX_LEN + RSVP_ERO_SUBOBJ_UNNUM_LEN <=
             kMaxObject - RSVP_ERO_SUBOBJ_UNNUM_LEN;
             ++n) {
            rsvp_add_explicit_route_ipv4(b.obj(), 0, addr_of(n), 32);
            rsvp_add_explicit_route_unnum(b.obj(), 0, addr_of(n), n);
        }
        return b;
    }();
    return big;
}

// IPv4 and unnumbered hops in turn, inserted at the front, none of them flagged.
const Big &record_route() {
    static const Big big = [] {
        Big b;
        rsvp_build_record_route(b.obj());
        for (uint32_t n = 0;
             b.length() + RSVP_RRO_IPV4_LEN + RSVP_RRO_UNNUM_LEN <= kMaxObject - kRoom; ++n) {
            rsvp_insert_record_route_ipv4(b.obj(), addr_of(n), 0);
            rsvp_insert_record_route_unnum(b.obj(), addr_of(n), n, 0);
        }
        return b;
    }();
    return big;
}

// A TLV written by hand: the adds refuse a second TLV of a type (the validator does not) and
// stop the process on an object above 32 KB.
size_t put_tlv(uint8_t *tlv, uint8_t type, uint8_t length, uint32_t addr) {
    tlv[1] = type;
    tlv[3] = length;
    std::memcpy(tlv + RSVP_HOP_IF_ID_TLV_HDR_LEN, &addr, sizeof addr);
    return length;
}

// Component-reverse TLVs up to `limit` bytes, and one IPv4 TLV at the very end: the lookups
// and the adds walk every TLV.
Big if_id_hop(size_t limit) {
    Big b;
    rsvp_build_hop_if_id(b.obj(), addr_of(1), 1);
    size_t length = b.length();
    while (length + RSVP_HOP_IF_ID_TLV_INDEX_LEN + RSVP_HOP_IF_ID_TLV_IPV4_LEN <= limit)
        length += put_tlv(b.obj() + length, RSVP_HOP_IF_ID_TLV_COMPONENT_REV,
                          RSVP_HOP_IF_ID_TLV_INDEX_LEN, addr_of(static_cast<uint32_t>(length)));
    length +=
        put_tlv(b.obj() + length, RSVP_HOP_IF_ID_TLV_IPV4, RSVP_HOP_IF_ID_TLV_IPV4_LEN, addr_of(2));
    b.set_length(length);
    return b;
}

const Big &lookup_hop() {
    static const Big big = if_id_hop(kMaxObject);
    return big;
}

// The adds take the TLV bytes as a signed 16-bit count and stop the process on an object whose
// TLVs run beyond 32767 bytes: they are timed on the largest object they accept.
const Big &add_hop() {
    static const Big big =
        if_id_hop(RSVP_HOP_IF_ID_TLV_OFFSET + INT16_MAX - RSVP_HOP_IF_ID_TLV_INDEX_LEN);
    return big;
}

// SRLG subobjects, up to 24 bytes short of 64 KB.
const Big &exclude_route() {
    static const Big big = [] {
        Big b;
        rsvp_build_xro(b.obj());
        for (uint32_t n = 0; b.length() + RSVP_XRO_SUBOBJ_SRLG_LEN <= kMaxObject - 24; ++n)
            rsvp_add_xro_srlg_subobj(b.obj(), 0, n);
        return b;
    }();
    return big;
}

void per_call(benchmark::State &state, const Big &big) {
    state.counters["object_bytes"] = static_cast<double>(big.length());
}

// A read-only call on a copy of the object.
template <typename Call>
void time_reader(benchmark::State &state, const Big &source, Call call) {
    Big big = source;
    for (auto _ : state)
        benchmark::DoNotOptimize(call(big.obj()));
    per_call(state, big);
}

// An add that appends behind the walk: the Length is set back after each call (the bytes
// written behind the object are overwritten by the next call alike).
template <typename Call>
void time_append(benchmark::State &state, const Big &source, Call call) {
    Big big = source;
    const size_t length = big.length();
    for (auto _ : state) {
        benchmark::DoNotOptimize(call(big.obj()));
        big.set_length(length);
        benchmark::ClobberMemory();
    }
    per_call(state, big);
}

// A front insert moves the whole route: the object is restored outside the timed region.
template <typename Call>
void time_insert(benchmark::State &state, const Big &source, Call call) {
    Big big = source;
    for (auto _ : state) {
        benchmark::DoNotOptimize(call(big.obj()));
        state.PauseTiming();
        std::memcpy(big.obj(), source.buf.data(), source.length());
        state.ResumeTiming();
    }
    per_call(state, big);
}

// Every call as one benchmark, "Hostile64k/<call>", timed in microseconds.
template <typename Fn>
void add(const char *call, Fn fn) {
    benchmark::RegisterBenchmark((std::string("Hostile64k/") + call).c_str(), fn)
        ->Unit(benchmark::kMicrosecond);
}

void reader(const char *call, const Big &(*object)(), uint32_t (*fn)(uint8_t *)) {
    add(call, [=](benchmark::State &state) { time_reader(state, object(), fn); });
}
void reader(const char *call, const Big &(*object)(), int (*fn)(uint8_t *)) {
    add(call, [=](benchmark::State &state) { time_reader(state, object(), fn); });
}
template <typename Call>
void appender(const char *call, const Big &(*object)(), Call fn) {
    add(call, [=](benchmark::State &state) { time_append(state, object(), fn); });
}
template <typename Call>
void inserter(const char *call, Call fn) {
    add(call, [=](benchmark::State &state) { time_insert(state, record_route(), fn); });
}

const uint32_t kOneValue = 16;

const bool registered = [] {
    reader("EroValid", explicit_route, rsvp_valid_explicit_route);
    reader("EroCountIpv4", explicit_route, rsvp_count_ero_subobject_ipv4);
    reader("EroCountUnnum", explicit_route, rsvp_count_ero_subobject_unnum);
    appender("EroAddIpv4", explicit_route,
             [](uint8_t *o) { return rsvp_add_explicit_route_ipv4(o, 1, addr_of(7), 24); });
    appender("EroAddUnnum", explicit_route,
             [](uint8_t *o) { return rsvp_add_explicit_route_unnum(o, 1, addr_of(7), 0xFFFFFF); });

    reader("RroValid", record_route, rsvp_valid_record_route);
    add("RroNextFromLast", [](benchmark::State &state) {
        // One walker step from the last subobject: the walker validates the object once.
        time_reader(state, record_route(), [](uint8_t *o) {
            return rsvp_extract_rro_next_subobject(o,
                                                   o + record_route().length() - RSVP_RRO_IPV4_LEN);
        });
    });
    reader("RroCountIpv4", record_route, rsvp_count_rro_subobject_ipv4);
    reader("RroCountUnnum", record_route, rsvp_count_rro_subobject_unnum);
    add("RroCheckIpv4Flags", [](benchmark::State &state) {
        time_reader(state, record_route(), [](uint8_t *o) {
            return rsvp_rro_check_ipv4_flags(o, RSVP_RRO_FLAG_NODE_PROT);
        });
    });
    add("RroCheckUnnumFlags", [](benchmark::State &state) {
        time_reader(state, record_route(), [](uint8_t *o) {
            return rsvp_rro_check_unnum_flags(o, RSVP_RRO_FLAG_NODE_PROT);
        });
    });
    inserter("RroInsertIpv4",
             [](uint8_t *o) { return rsvp_insert_record_route_ipv4(o, addr_of(7), 0); });
    inserter("RroInsertUnnum",
             [](uint8_t *o) { return rsvp_insert_record_route_unnum(o, addr_of(7), 7, 0); });
    inserter("RroInsertLabel",
             [](uint8_t *o) { return rsvp_insert_record_route_label(o, &kOneValue, 1, 2, 0); });
    inserter("RroInsertSrlg",
             [](uint8_t *o) { return rsvp_insert_record_route_srlg(o, &kOneValue, 1); });

    reader("HopIfIdValid", lookup_hop, rsvp_valid_hop_if_id);
    add("HopGetIndexTlv", [](benchmark::State &state) {
        time_reader(state, lookup_hop(), [](uint8_t *o) {
            uint32_t addr = 0, if_id = 0;
            return rsvp_get_gmpls_hop_if_index_tlv(o, &addr, &if_id);
        });
    });
    add("HopGetIpv4Tlv", [](benchmark::State &state) {
        time_reader(state, lookup_hop(), [](uint8_t *o) {
            uint32_t addr = 0;
            return rsvp_get_hop_if_id_ipv4_tlv(o, &addr);
        });
    });
    add("HopGetIfIdTlv", [](benchmark::State &state) {
        time_reader(state, lookup_hop(), [](uint8_t *o) {
            rsvp_hop_if_id_tlv_info info{};
            return rsvp_get_gmpls_hop_if_id_tlv(o, &info);
        });
    });
    // On the 32 KB object: the IPv4 TLV at the end is found; types 4 and 3 are not, and are
    // appended.
    appender("HopAddIpv4Found", add_hop,
             [](uint8_t *o) { return rsvp_add_ipv4_intf(o, addr_of(3)); });
    appender("HopAddIpv4FwdFound", add_hop,
             [](uint8_t *o) { return rsvp_add_ipv4_fwd_intf(o, addr_of(3)); });
    appender("HopAddIndexFwd", add_hop,
             [](uint8_t *o) { return rsvp_add_index_fwd_intf(o, addr_of(3), 3); });
    appender("HopAddIndexFwdRev", add_hop,
             [](uint8_t *o) { return rsvp_add_index_fwd_rev_intf(o, addr_of(3), 3); });

    reader("XroValid", exclude_route, rsvp_valid_xro);
    reader("XroCount", exclude_route, rsvp_xro_subobj_count);
    appender("XroAddIpv4", exclude_route,
             [](uint8_t *o) { return rsvp_add_xro_ipv4_subobj(o, 1, addr_of(7), 24, 0); });
    appender("XroAddUnnum", exclude_route,
             [](uint8_t *o) { return rsvp_add_xro_unnum_ifid_subobj(o, 1, 0, addr_of(7), 7); });
    appender("XroAddSrlg", exclude_route,
             [](uint8_t *o) { return rsvp_add_xro_srlg_subobj(o, 1, 7); });
    appender("XroAddLsp", exclude_route, [](uint8_t *o) {
        return rsvp_add_xro_lsp_subobj(o, 0, 0, 0, 1, 2, addr_of(1), addr_of(2), addr_of(3));
    });
    return true;
}();

}  // namespace
