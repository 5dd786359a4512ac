// Interface names and the small address and link-id predicates.
//
// Log lines often name several interfaces at once, so rsvp_lib_util_if_name hands out slots of
// a per-thread ring instead of one buffer. The ring is allocated on a thread's first call and
// owned by a thread-specific-data key whose destructor is free, so it goes when its thread
// ends:
//
//   OFFSET SIZE   FIELD
//   0      4      next slot (0..19)
//   4      20x64  names, each terminated within its slot
//
// Failures of the per-thread storage are not fatal: a diagnostic line goes to standard error
// and the caller gets the constant "Unknown". The line numbers in the diagnostics and the
// assertions are fixed numbers that crash reports and log scrapers key on, not this file's
// lines.
#include <pthread.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "rsvp_assert.hpp"
#include "rsvp_lib_util.h"
#include "rsvp_lib_util_internal.hpp"
#include "rsvp_platform.h"

namespace {

using rsvp::text::kDiagnosticPath;
using rsvp::text::kUnknown;

constexpr int kRingSlots = 20;

struct NameRing {
    int32_t next;
    char slots[kRingSlots][RSVP_LIB_UTIL_NAME_LEN];
};
static_assert(sizeof(NameRing) == 1284, "the ring's allocation size is part of its contract");

// Source lines carried by the diagnostics and assertions.
constexpr int kLineKeyCreate = 60;
constexpr int kLineGetIfNameNull = 90;
constexpr int kLineNoKey = 167;
constexpr int kLineMalloc = 178;
constexpr int kLineSetSpecific = 186;
constexpr int kLineRingIndex = 191;
constexpr int kLineIsDummyNull = 226;
constexpr int kLineIpToInNull = 426;
constexpr int kLineIsAllNull = 509;

const char *const kAllIntfName = "All RSVP Interfaces";
const char *const kDummyIntfName = "None";

constexpr uint32_t kDummyHandle = 0;
constexpr uint32_t kAddrNone = 0;
constexpr uint32_t kAddrAllOnes = 0xFFFFFFFFu;

pthread_once_t ring_once = PTHREAD_ONCE_INIT;
pthread_key_t ring_key;
// All ones marks a key that could not be created.
constexpr pthread_key_t kInvalidKey = static_cast<pthread_key_t>(-1);

void diagnose(int line) {
    std::fprintf(stderr, "%s:%d\n", kDiagnosticPath, line);
}

void create_ring_key() {
    if (pthread_key_create(&ring_key, std::free) != 0) {
        ring_key = kInvalidKey;
        diagnose(kLineKeyCreate);
    }
}

void copy_constant(char *out, const char *text) {
    std::strncpy(out, text, RSVP_LIB_UTIL_NAME_LEN);
}

}  // namespace

extern "C" {

int rsvp_lib_util_get_if_name(uint32_t handle, uint32_t form, char *out) {
    if (!out) rsvp::assert_fail(kLineGetIfNameNull);
    if (handle == kDummyHandle) {
        copy_constant(out, kDummyIntfName);
        return 0;
    }
    char name[RSVP_LIB_UTIL_NAME_LEN] = {};
    const int status = intf_svc_interface_name(handle, name);
    if (status != 0) {
        copy_constant(out, kUnknown);
        return status;
    }
    const char *text = name;
    if (form == RSVP_LIB_UTIL_IF_NAME_DISPLAY_LONG)
        text = intf_svc_display_name(name, RSVP_INTF_DISPLAY_LONG);
    else if (form != RSVP_LIB_UTIL_IF_NAME_PLAIN)
        text = intf_svc_display_name(name, RSVP_INTF_DISPLAY_SHORT);
    if (text)
        sstrncpy(out, text, RSVP_LIB_UTIL_NAME_LEN);
    else
        copy_constant(out, kUnknown);
    out[RSVP_LIB_UTIL_NAME_LEN - 1] = '\0';
    return 0;
}

const char *rsvp_lib_util_if_name(uint32_t handle, uint32_t form) {
    if (pthread_once(&ring_once, create_ring_key) != 0 || ring_key == kInvalidKey) {
        diagnose(kLineNoKey);
        return kUnknown;
    }
    auto *ring = static_cast<NameRing *>(pthread_getspecific(ring_key));
    if (!ring) {
        ring = static_cast<NameRing *>(std::malloc(sizeof(NameRing)));
        if (!ring) {
            std::fprintf(stderr, "%s:%d malloc failure\n", kDiagnosticPath, kLineMalloc);
            return kUnknown;
        }
        std::memset(ring, 0, sizeof(NameRing));
        if (pthread_setspecific(ring_key, ring) != 0) {
            std::free(ring);
            diagnose(kLineSetSpecific);
            return kUnknown;
        }
    }
    if (ring->next < 0 || ring->next >= kRingSlots) rsvp::assert_fail(kLineRingIndex);
    char *slot = ring->slots[ring->next];
    ring->next = (ring->next + 1) % kRingSlots;
    rsvp_lib_util_get_if_name(handle, form, slot);
    return slot;
}

const char *rsvp_lib_util_get_all_if_name(void) {
    return kAllIntfName;
}

int rsvp_lib_util_is_all_intf(const char *name) {
    if (!name) rsvp::assert_fail(kLineIsAllNull);
    return std::strcmp(name, kAllIntfName) == 0;
}

int rsvp_lib_util_is_dummy_intf(const char *name) {
    if (!name) rsvp::assert_fail(kLineIsDummyNull);
    return std::strcmp(name, kDummyIntfName) == 0;
}

int rsvp_ip_valid(const rsvp_ip_addr_t *addr) {
    return addr && addr->type == RSVP_IP_ADDR_TYPE_IPV4 && addr->length == RSVP_IP_ADDR_LEN_IPV4;
}

int rsvp_ip_valid_routerid(const rsvp_ip_addr_t *addr) {
    return rsvp_ip_valid(addr) && addr->address != kAddrNone && addr->address != kAddrAllOnes;
}

int rsvp_ip_to_in(const rsvp_ip_addr_t *addr, uint32_t *out) {
    if (!out) rsvp::assert_fail(kLineIpToInNull);
    if (!rsvp_ip_valid(addr)) return 0;
    *out = addr->address;
    return 1;
}

int rsvp_lib_util_is_link_id_set(const rsvp_link_id_t *link_id) {
    return link_id->kind != RSVP_LINK_ID_NOT_SET;
}

int rsvp_lib_util_is_link_id_ipv4(const rsvp_link_id_t *link_id) {
    return link_id->kind == RSVP_LINK_ID_IPV4;
}

int rsvp_lib_util_is_link_id_unnum(const rsvp_link_id_t *link_id) {
    return link_id->kind == RSVP_LINK_ID_UNNUMBERED;
}

}  // extern "C"
