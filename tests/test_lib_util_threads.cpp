// Interface names: the forms, the per-thread ring of twenty names, and the storage failures.
// This executable brings its own interface-name service, and links with the allocator and the
// thread-specific-data calls wrapped (-Wl,--wrap) so that a test can make them fail once.
#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <barrier>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "rsvp_lib_util.h"

namespace {

constexpr uint32_t kNoSuchHandle = 666;
constexpr uint32_t kNoDisplayHandle = 13;
constexpr uint32_t kLongDisplayHandle = 99;
constexpr size_t kRingBytes = 1284;

std::atomic<bool> fail_ring_malloc, fail_setspecific, fail_key_create;
std::atomic<void *> last_ring, last_freed;

}  // namespace

extern "C" {
void *__real_malloc(size_t);
void __real_free(void *);
int __real_pthread_key_create(pthread_key_t *, void (*)(void *));
int __real_pthread_setspecific(pthread_key_t, const void *);

void *__wrap_malloc(size_t size) {
    if (size == kRingBytes && fail_ring_malloc.exchange(false)) return nullptr;
    void *p = __real_malloc(size);
    if (size == kRingBytes) last_ring = p;
    return p;
}
void __wrap_free(void *p) {
    if (p && p == last_ring.load()) last_freed = p;
    __real_free(p);
}
int __wrap_pthread_key_create(pthread_key_t *key, void (*destructor)(void *)) {
    return fail_key_create.exchange(false) ? EAGAIN : __real_pthread_key_create(key, destructor);
}
int __wrap_pthread_setspecific(pthread_key_t key, const void *value) {
    return fail_setspecific.exchange(false) ? ENOMEM : __real_pthread_setspecific(key, value);
}

// The routing process's interface-name service: handle N is "ge-N".
int intf_svc_interface_name(uint32_t handle, char name[64]) {
    if (handle == kNoSuchHandle) return 7;
    std::snprintf(name, 64, "ge-%u", handle);
    return 0;
}
const char *intf_svc_display_name(const char *name, int selector) {
    thread_local char text[96];
    if (std::strcmp(name, "ge-13") == 0) return nullptr;
    if (std::strcmp(name, "ge-99") == 0)  // longer than a name slot
        std::snprintf(text, sizeof text, "%080d", 0);
    else
        std::snprintf(text, sizeof text, "%s:%s", selector ? "long" : "short", name);
    return text;
}
}  // extern "C"

namespace {

TEST(LibUtilIfName, Forms) {
    const struct {
        uint32_t handle, form;
        std::string text;
        int status;
    } rows[] = {
        {0, 1, "None", 0},
        {0, 2, "None", 0},
        {0, 5, "None", 0},
        {5, 1, "ge-5", 0},
        {5, 2, "long:ge-5", 0},
        {5, 0, "short:ge-5", 0},
        {5, 3, "short:ge-5", 0},
        {kNoSuchHandle, 1, "Unknown", 7},
        {kNoDisplayHandle, 2, "Unknown", 0},
        {kLongDisplayHandle, 0, std::string(63, '0'), 0},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.text);
        char out[64];
        std::memset(out, 'z', sizeof out);
        EXPECT_EQ(rsvp_lib_util_get_if_name(r.handle, r.form, out), r.status);
        EXPECT_EQ(std::string(out), r.text);
        EXPECT_EQ(std::string(rsvp_lib_util_if_name(r.handle, r.form)), r.text);
    }
    EXPECT_EQ(rsvp_lib_util_is_dummy_intf(rsvp_lib_util_if_name(0, 2)), 1);
}

// Each thread keeps its own twenty names, whatever the others do meanwhile; the 21st call of a
// thread reuses the slot of its first.
TEST(LibUtilIfName, EachThreadKeepsItsOwnTwentyNames) {
    constexpr int kThreads = 4, kRing = 20;
    std::barrier sync(kThreads);
    std::vector<std::thread> threads;
    std::atomic<int> bad{0};
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] {
            const char *names[kRing];
            for (int i = 0; i < kRing; ++i)
                names[i] = rsvp_lib_util_if_name(100 * (t + 1) + i, 1);
            sync.arrive_and_wait();  // every ring is full before anyone looks
            for (int i = 0; i < kRing; ++i)
                if (std::string(names[i]) != "ge-" + std::to_string(100 * (t + 1) + i)) ++bad;
            if (rsvp_lib_util_if_name(7, 1) != names[0] || std::string(names[0]) != "ge-7" ||
                std::string(names[kRing - 1]) != "ge-" + std::to_string(100 * (t + 1) + 19))
                ++bad;
        });
    for (auto &th : threads)
        th.join();
    EXPECT_EQ(bad, 0);
}

TEST(LibUtilIfName, RingIsFreedWhenItsThreadEnds) {
    last_freed = nullptr;
    void *ring = nullptr;
    std::thread([&] {
        rsvp_lib_util_if_name(1, 1);
        ring = last_ring;
    }).join();
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(last_freed.load(), ring);
}

// A storage failure answers "Unknown" with its diagnostic; the thread's next call succeeds.
TEST(LibUtilIfName, StorageFailuresAnswerUnknown) {
    const struct {
        std::atomic<bool> *fault;
        const char *diagnostic;
    } rows[] = {{&fail_ring_malloc, "ip/rsvp/lib/src/rsvp_lib_util:178 malloc failure\n"},
                {&fail_setspecific, "ip/rsvp/lib/src/rsvp_lib_util:186\n"}};
    rsvp_lib_util_if_name(1, 1);  // the key exists before the fault
    for (const auto &r : rows) {
        SCOPED_TRACE(r.diagnostic);
        std::string first, second;
        testing::internal::CaptureStderr();
        std::thread([&] {
            *r.fault = true;
            first = rsvp_lib_util_if_name(1, 1);
            second = rsvp_lib_util_if_name(1, 1);
        }).join();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), r.diagnostic);
        EXPECT_EQ(first, "Unknown");
        EXPECT_EQ(second, "ge-1");
    }
}

// A key that cannot be created leaves every call on the "Unknown" path.
TEST(LibUtilIfNameDeathTest, FailedKeyCreation) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fresh process: the key not made yet
    EXPECT_EXIT(
        {
            fail_key_create = true;
            const bool ok = std::string(rsvp_lib_util_if_name(1, 1)) == "Unknown" &&
                            std::string(rsvp_lib_util_if_name(1, 1)) == "Unknown";
            std::exit(ok ? 0 : 1);
        },
        testing::ExitedWithCode(0),
        "^ip/rsvp/lib/src/rsvp_lib_util:60\nip/rsvp/lib/src/rsvp_lib_util:167\n"
        "ip/rsvp/lib/src/rsvp_lib_util:167\n$");
}

TEST(LibUtilIfNameDeathTest, RingIndexOutOfRange) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            std::thread([] {
                rsvp_lib_util_if_name(1, 1);
                const int32_t next = 20;
                std::memcpy(last_ring.load(), &next, sizeof next);
                rsvp_lib_util_if_name(1, 1);
            }).join();
        },
        "line 191\n");
}

}  // namespace
