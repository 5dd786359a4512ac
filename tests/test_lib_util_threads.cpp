// Interface names: the forms, the per-thread ring of twenty names and its storage failures. This
// executable brings its own interface-name service ("ge-N" for handle N) and links with the
// allocator and the thread-specific-data calls wrapped (-Wl,--wrap), so a test can fail them.
#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <barrier>
#include <string>
#include <thread>

#include "rsvp_lib_util.h"

#if defined(__clang__)  // a statically linked sanitizer runtime calls some of these at start-up
#define RAW __attribute__((disable_sanitizer_instrumentation))
#else
#define RAW
#endif

namespace {
std::atomic<bool> fail_ring_malloc, fail_setspecific, fail_key_create;
std::atomic<void *> last_ring;
}  // namespace

extern "C" {
void *__real_malloc(size_t);
void *__real_calloc(size_t, size_t);
int __real_pthread_key_create(pthread_key_t *, void (*)(void *));
int __real_pthread_setspecific(pthread_key_t, const void *);
RAW void *__wrap_malloc(size_t size) {
    if (size == 1284 && fail_ring_malloc.exchange(false)) return nullptr;
    void *p = __real_malloc(size);
    if (size == 1284) last_ring = p;
    return p;
}
// An optimiser may fold the ring's malloc and zero-fill into calloc.
RAW void *__wrap_calloc(size_t n, size_t size) {
    if (n * size == 1284 && fail_ring_malloc.exchange(false)) return nullptr;
    void *p = __real_calloc(n, size);
    if (n * size == 1284) last_ring = p;
    return p;
}
RAW int __wrap_pthread_key_create(pthread_key_t *key, void (*destructor)(void *)) {
    return fail_key_create.exchange(false) ? EAGAIN : __real_pthread_key_create(key, destructor);
}
RAW int __wrap_pthread_setspecific(pthread_key_t key, const void *value) {
    return fail_setspecific.exchange(false) ? ENOMEM : __real_pthread_setspecific(key, value);
}
int intf_svc_interface_name(uint32_t handle, char name[64]) {
    return handle == 666 ? 7 : (std::snprintf(name, 64, "ge-%u", handle), 0);
}
// No display form for ge-13, one longer than a slot for ge-99.
const char *intf_svc_display_name(const char *name, int selector) {
    thread_local std::string text;
    text = std::string(name) == "ge-99" ? std::string(80, '0')
                                        : (selector ? "long:" : "short:") + std::string(name);
    return std::string(name) == "ge-13" ? nullptr : text.c_str();
}
}  // extern "C"

namespace {

TEST(LibUtilIfName, Forms) {
    const uint32_t rows[][2] = {{0, 1}, {0, 2}, {5, 1}, {5, 2}, {5, 3}, {666, 1}, {13, 2}, {99, 0}};
    std::string got;
    for (const auto &r : rows) {
        char out[64];
        got += std::to_string(rsvp_lib_util_get_if_name(r[0], r[1], out)) + out + "|";
        EXPECT_STREQ(rsvp_lib_util_if_name(r[0], r[1]), out);
    }
    EXPECT_EQ(got, "0None|0None|0ge-5|0long:ge-5|0short:ge-5|7Unknown|0Unknown|0" +
                       std::string(63, '0') + "|");
}

// Each thread keeps its own twenty names while the others fill theirs; its 21st call reuses
// the slot of its first.
TEST(LibUtilIfName, EachThreadKeepsItsOwnTwentyNames) {
    std::barrier sync(4);
    std::atomic<int> bad{0};
    std::thread threads[4];
    for (int t = 0; t < 4; ++t)
        threads[t] = std::thread([&, t] {
            const char *names[20];
            for (int i = 0; i < 20; ++i)
                names[i] = rsvp_lib_util_if_name(100 * t + 100 + i, 1);
            sync.arrive_and_wait();
            for (int i = 0; i < 20; ++i)
                bad += names[i] != "ge-" + std::to_string(100 * t + 100 + i);
            bad += rsvp_lib_util_if_name(7, 1) != names[0] || names[0] != std::string("ge-7");
        });
    for (auto &th : threads)
        th.join();
    EXPECT_EQ(bad, 0);
}

// A thread's ring is freed when it ends (watched by the sanitized builds' leak checker); a failed
// allocation or key store answers "Unknown" with its diagnostic, and the next call succeeds.
TEST(LibUtilIfName, RingLifetimeAndStorageFailures) {
    const struct {
        std::atomic<bool> *fault;
        std::string diagnostic;
    } rows[] = {{nullptr, ""},
                {&fail_ring_malloc, "ip/rsvp/lib/src/rsvp_lib_util:178 malloc failure\n"},
                {&fail_setspecific, "ip/rsvp/lib/src/rsvp_lib_util:186\n"}};
    rsvp_lib_util_if_name(1, 1);  // the key exists before any fault
    for (const auto &r : rows) {
        std::string first, second;
        testing::internal::CaptureStderr();
        std::thread([&] {
            if (r.fault) *r.fault = true;
            first = rsvp_lib_util_if_name(1, 1);
            second = rsvp_lib_util_if_name(2, 1);
        }).join();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), r.diagnostic);
        EXPECT_EQ(first + second, (r.fault ? "Unknown" : "ge-1") + std::string("ge-2"));
    }
}

TEST(LibUtilIfNameDeathTest, FailedKeyCreationAndCorruptIndex) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // fresh processes: no key made yet
    EXPECT_EXIT(
        {
            fail_key_create = true;
            rsvp_lib_util_if_name(1, 1);
            std::exit(std::string(rsvp_lib_util_if_name(1, 1)) == "Unknown" ? 0 : 1);
        },
        testing::ExitedWithCode(0),
        "^ip/rsvp/lib/src/rsvp_lib_util:60\n(ip/rsvp/lib/src/rsvp_lib_util:167\n){2}$");
    EXPECT_DEATH(
        {
            rsvp_lib_util_if_name(1, 1);
            *static_cast<int32_t *>(last_ring.load()) = 20;  // the ring's next index
            rsvp_lib_util_if_name(1, 1);
        },
        "line 191\n");
}

}  // namespace
