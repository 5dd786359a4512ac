// The fuzz harness: the driver walks the input as a run of objects, validates each one, and
// hands the list to every registered exerciser. Each family file registers an exerciser (what
// to call on its objects, singly and in pairs) and a seed builder (well-formed objects made
// with the library's builders, from which the fuzzer starts).
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "rsvp_object_lib.h"

namespace rsvp_fuzz {

using Bytes = std::vector<uint8_t>;

// One object of the input, copied into a heap buffer of exactly its Length plus the room its
// validator reads behind it on purpose (deliberate_read_room), so that any other read past the
// object's end is caught by the address sanitizer. That room holds the input's bytes behind
// the object, then the input again from its start (fill_from_input): verdicts that depend on
// them are fuzzed too.
struct Object {
    uint8_t *obj;
    uint16_t length;
    uint8_t class_num;
    uint8_t c_type;
    uint32_t verdict;  // rsvp_valid_object, taken on the copy
    size_t room;       // bytes behind the object in its buffer
    size_t end_at;     // offset in the input of the byte behind the object
};

using Exerciser = void (*)(std::span<const Object> objects);
using SeedBuilder = void (*)(std::vector<Bytes> &seeds);
// Subobjects, TLVs and fragments (units): each family shares the units it meets inside its
// objects (share_unit); once every exerciser has run, each family's unit exerciser is handed
// the whole pool, its own units and every other family's alike.
using UnitExerciser = void (*)(std::span<const Bytes> units);

bool register_exerciser(Exerciser fn);
bool register_seeds(SeedBuilder fn);
bool register_unit_exerciser(UnitExerciser fn);

// Adds the unit at `unit` to the pool: its first len bytes, cut at end (its buffer's end).
void share_unit(const uint8_t *unit, size_t len, const uint8_t *end);
// Writes n bytes of the input being run, from offset `from` on and cyclically from its start
// (zeros for an empty input): what the harness puts behind an object or a unit.
void fill_from_input(uint8_t *dst, size_t n, size_t from);

// The largest seeds hold an object of up to this Length: a whole number of words that still
// fits, with the common header, in a message of the largest size, so that the fuzzer starts
// from the far end of the length range as well as from the near one.
inline constexpr size_t kLargeObjectLen = UINT16_MAX - 15;

// Runs the whole harness on one input.
void run_one(const uint8_t *data, size_t size);
// Every registered seed, each an object run.
std::vector<Bytes> all_seeds();

// An owned heap buffer holding a copy of an object plus room behind it, filled from the input
// as the object's own deliberate-read room is: the room that the functions that grow an object
// in place write into, or that a deliberate fixed-distance read reaches. No call needs zeros
// there, so results that depend on that room are fuzzed too.
struct Scratch {
    std::unique_ptr<uint8_t[]> buf;
    size_t size;
    uint8_t *data() { return buf.get(); }
};

inline size_t deliberate_read_room(const uint8_t *obj, size_t length);

// A REVERSE_LSP validates each object it carries, and those validators make their own reads
// past the contained object: the room behind the container is the furthest of them. The walk
// follows the validator's (it ends at a Length that is below 4, not whole words, or overruns).
inline size_t contents_read_room(const uint8_t *obj, size_t length) {
    size_t room = 0;
    for (size_t pos = RSVP_OBJ_HDR_LEN; pos + RSVP_OBJ_HDR_LEN <= length;) {
        const size_t sub_len = RSVP_OBJECT_LENGTH(const_cast<uint8_t *>(obj + pos));
        if (sub_len < RSVP_OBJ_HDR_LEN || sub_len % 4 != 0 || pos + sub_len > length) break;
        const size_t end = pos + sub_len + deliberate_read_room(obj + pos, sub_len);
        if (end > length + room) room = end - length;
        pos += sub_len;
    }
    return room;
}

// Two validators read past the object on purpose, so every copy of such an object carries that
// room: the SENDER_TSPEC word count may claim up to four times the body, and the
// FLOWSPEC service number at offset 8 is read even in a shorter object. A REVERSE_LSP needs
// the room of the objects it carries.
inline size_t deliberate_read_room(const uint8_t *obj, size_t length) {
    constexpr size_t kTspecHdr = 8, kFlowspecServiceEnd = 12;
    switch (RSVP_OBJECT_CLASS(const_cast<uint8_t *>(obj))) {
        case RSVP_CLASS_SENDER_TSPEC:
            return length > kTspecHdr ? 3 * (length - kTspecHdr) : 0;
        case RSVP_CLASS_FLOWSPEC:
            return length < kFlowspecServiceEnd ? kFlowspecServiceEnd - length : 0;
        case RSVP_CLASS_EXCLUDE_ROUTE:
            return RSVP_ROUTE_SUBOBJ_HDR_LEN;
        // The last private protection subobject may run past the object, by up to the
        // body of the longest subobject (SNC, 12 bytes): its extractors read it whole.
        case RSVP_CLASS_PVT_PROTECTION:
            return size_t{RSVP_PVT_PROTECTION_SNC_LEN} - RSVP_PVT_PROTECTION_SUBOBJ_HDR_LEN;
        case RSVP_CLASS_REVERSE_LSP:
            return contents_read_room(obj, length);
        default:
            return 0;
    }
}

// A copy of the object at obj (Length bytes) with its deliberate-read room taken from the bytes
// behind it up to end, zeros beyond; room receives that room's size.
inline std::unique_ptr<uint8_t[]> copy_with_room(const uint8_t *obj, const uint8_t *end,
                                                 size_t &room) {
    const size_t length = RSVP_OBJECT_LENGTH(const_cast<uint8_t *>(obj));
    room = deliberate_read_room(obj, length);
    auto copy = std::make_unique<uint8_t[]>(length + room);
    const size_t behind = static_cast<size_t>(end - obj) - length;
    std::memcpy(copy.get(), obj, length + (room < behind ? room : behind));
    return copy;
}

inline Scratch scratch_copy(const Object &o, size_t room = 0) {
    room += deliberate_read_room(o.obj, o.length);
    Scratch s{std::make_unique<uint8_t[]>(o.length + room), o.length + room};
    std::memcpy(s.buf.get(), o.obj, o.length);
    fill_from_input(s.buf.get() + o.length, room, o.end_at);
    return s;
}

// A unit in a buffer of exactly len bytes: its own bytes, then the input's from its start when
// it is shorter. A function that reads a fixed len bytes of whatever it is given gets them all,
// and a read past them is caught.
inline Scratch unit_copy(const Bytes &unit, size_t len) {
    Scratch s{std::make_unique<uint8_t[]>(len), len};
    const size_t own = std::min(len, unit.size());
    if (own) std::memcpy(s.buf.get(), unit.data(), own);
    fill_from_input(s.buf.get() + own, len - own, 0);
    return s;
}

// A unit copied as far as its header claims, for a family whose functions read no further than
// that claim: an 8-bit length at byte 1 when hdr is 2, a 16-bit one at byte 2 when hdr is 4,
// kept within [hdr, max] (a longer claim makes the unit invalid for the family's checks).
inline Scratch claimed_copy(const Bytes &unit, size_t hdr, size_t max) {
    const Scratch h = unit_copy(unit, hdr);
    const size_t claim = hdr == 2 ? h.buf[1] : size_t{h.buf[2]} << 8 | h.buf[3];
    return unit_copy(unit, std::clamp(claim, hdr, max));
}

// Accessors gated only by rsvp_valid_object work at fixed offsets below 12 on any valid object,
// reaching past a shorter one on purpose. `reach` hands them the object itself when it is 12
// bytes or longer, else a copy filled to 12 bytes from the input (which also covers the room the
// driver gives short objects whose validators read past them). Write only through a copy.
inline constexpr size_t kReachLen = 12;
struct Reach {
    Scratch copy;
    uint8_t *obj;
    bool copied() const { return copy.buf != nullptr; }
};
inline Reach reach(const Object &o) {
    if (o.length >= kReachLen) return Reach{Scratch{nullptr, 0}, o.obj};
    Scratch s = scratch_copy(o, kReachLen - o.length);
    uint8_t *p = s.data();
    return Reach{std::move(s), p};
}

// The i-th 32-bit word of the object's body as it lies in memory, 0 past its end: arguments for
// builders and add functions drawn from the input.
inline uint32_t body_word(const Object &o, size_t i) {
    uint32_t w = 0;
    const size_t at = RSVP_OBJ_HDR_LEN + sizeof w * i;
    if (at + sizeof w <= o.length) std::memcpy(&w, o.obj + at, sizeof w);
    return w;
}

// A caller's loop over an exported walker pays for the walker's validation of the whole object
// at every step: quadratic time on a 64 KB object of thousands of units. walk_units visits the
// same units in linear time: it takes the walker's answer for the first kWalkerSteps steps and
// for the step after the last unit, and in between `step` (the walker's own stepping over a
// valid object: the unit's length, the end test and the unit validator); where both are taken
// they must agree. The object must be valid and stay unchanged during the walk.
inline constexpr size_t kWalkerSteps = 64;
template <typename Walker, typename Step, typename Visit>
void walk_units(uint8_t *obj, Walker walker, Step step, Visit visit) {
    size_t n = 0;
    for (uint8_t *sub = walker(obj, nullptr), *next; sub; sub = next) {
        visit(sub);
        next = step(sub);
        if ((++n < kWalkerSteps || !next) && walker(obj, sub) != next) std::abort();
    }
}

// Keeps a result alive so the call is not optimised away.
template <typename T>
inline void keep(const T &v) {
    asm volatile("" : : "g"(&v) : "memory");
}

}  // namespace rsvp_fuzz

#define RSVP_FUZZ_CONCAT2(a, b) a##b
#define RSVP_FUZZ_CONCAT(a, b) RSVP_FUZZ_CONCAT2(a, b)
#define RSVP_FUZZ_EXERCISER(fn)                                                           \
    [[maybe_unused]] static const bool RSVP_FUZZ_CONCAT(rsvp_fuzz_exerciser_, __LINE__) = \
        rsvp_fuzz::register_exerciser(fn)
#define RSVP_FUZZ_UNITS(fn)                                                           \
    [[maybe_unused]] static const bool RSVP_FUZZ_CONCAT(rsvp_fuzz_units_, __LINE__) = \
        rsvp_fuzz::register_unit_exerciser(fn)
#define RSVP_FUZZ_SEEDS(fn)                                                           \
    [[maybe_unused]] static const bool RSVP_FUZZ_CONCAT(rsvp_fuzz_seeds_, __LINE__) = \
        rsvp_fuzz::register_seeds(fn)
