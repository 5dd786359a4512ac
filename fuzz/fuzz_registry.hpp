// The fuzz harness: the driver walks the input as a run of objects, validates each one, and
// hands the list to every registered exerciser. Each family file registers an exerciser (what
// to call on its objects, singly and in pairs) and a seed builder (well-formed objects made
// with the library's builders, from which the fuzzer starts).
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

namespace rsvp_fuzz {

using Bytes = std::vector<uint8_t>;

// One object of the input, copied into a heap buffer of exactly its Length, so that any read
// past the object's end is caught by the address sanitizer.
struct Object {
    uint8_t *obj;
    uint16_t length;
    uint8_t class_num;
    uint8_t c_type;
    uint32_t verdict;  // rsvp_valid_object, taken on the copy
};

using Exerciser = void (*)(std::span<const Object> objects);
using SeedBuilder = void (*)(std::vector<Bytes> &seeds);

bool register_exerciser(Exerciser fn);
bool register_seeds(SeedBuilder fn);

// Runs the whole harness on one input.
void run_one(const uint8_t *data, size_t size);
// Every registered seed, each an object run.
std::vector<Bytes> all_seeds();

// An owned heap buffer holding a copy of an object plus room (zeroed) behind it: for the
// functions that grow an object in place, or that read a fixed distance past it on purpose.
struct Scratch {
    std::unique_ptr<uint8_t[]> buf;
    size_t size;
    uint8_t *data() { return buf.get(); }
};

inline Scratch scratch_copy(const Object &o, size_t room = 0) {
    Scratch s{std::make_unique<uint8_t[]>(o.length + room), o.length + room};
    std::memcpy(s.buf.get(), o.obj, o.length);
    return s;
}

// Keeps a result alive so the call is not optimised away.
template <typename T>
inline void keep(const T &v) {
    asm volatile("" : : "g"(&v) : "memory");
}

}  // namespace rsvp_fuzz

#define RSVP_FUZZ_CONCAT2(a, b) a##b
#define RSVP_FUZZ_CONCAT(a, b) RSVP_FUZZ_CONCAT2(a, b)
#define RSVP_FUZZ_EXERCISER(fn)                                                            \
    [[maybe_unused]] static const bool RSVP_FUZZ_CONCAT(rsvp_fuzz_exerciser_, __LINE__) = \
        rsvp_fuzz::register_exerciser(fn)
#define RSVP_FUZZ_SEEDS(fn)                                                           \
    [[maybe_unused]] static const bool RSVP_FUZZ_CONCAT(rsvp_fuzz_seeds_, __LINE__) = \
        rsvp_fuzz::register_seeds(fn)
