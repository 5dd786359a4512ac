#include <algorithm>

#include "fuzz_registry.hpp"
#include "rsvp_object_lib.h"

namespace rsvp_fuzz {

namespace {

std::vector<Exerciser> &exercisers() {
    static std::vector<Exerciser> v;
    return v;
}

std::vector<SeedBuilder> &seed_builders() {
    static std::vector<SeedBuilder> v;
    return v;
}

std::vector<UnitExerciser> &unit_exercisers() {
    static std::vector<UnitExerciser> v;
    return v;
}

// The input being run and the units met in it so far.
std::span<const uint8_t> current_input;
std::vector<Bytes> unit_pool;

}  // namespace

bool register_unit_exerciser(UnitExerciser fn) {
    unit_exercisers().push_back(fn);
    return true;
}

void share_unit(const uint8_t *unit, size_t len, const uint8_t *end) {
    unit_pool.emplace_back(unit, unit + std::min<size_t>(len, static_cast<size_t>(end - unit)));
}

void fill_from_input(uint8_t *dst, size_t n, size_t from) {
    const size_t size = current_input.size();
    if (size == 0) {
        std::memset(dst, 0, n);
        return;
    }
    for (size_t i = 0; i < n;) {  // whole stretches of the input at a time
        const size_t at = (from + i) % size, take = std::min(n - i, size - at);
        std::memcpy(dst + i, current_input.data() + at, take);
        i += take;
    }
}

bool register_exerciser(Exerciser fn) {
    exercisers().push_back(fn);
    return true;
}

bool register_seeds(SeedBuilder fn) {
    seed_builders().push_back(fn);
    return true;
}

std::vector<Bytes> all_seeds() {
    std::vector<Bytes> seeds;
    for (SeedBuilder fn : seed_builders())
        fn(seeds);
    return seeds;
}

void run_one(const uint8_t *data, size_t size) {
    // The run in an exact-size buffer: the walk must not look past it.
    auto run = std::make_unique<uint8_t[]>(std::max<size_t>(size, 1));
    if (size) std::memcpy(run.get(), data, size);
    const auto run_len = static_cast<uint32_t>(size);
    current_input = std::span<const uint8_t>(run.get(), size);
    unit_pool.clear();

    std::vector<std::unique_ptr<uint8_t[]>> owned;
    std::vector<Object> objects;
    auto take = [&](uint8_t *obj) {
        const uint16_t length = RSVP_OBJECT_LENGTH(obj);
        const size_t room = deliberate_read_room(obj, length);
        const size_t end_at = static_cast<size_t>(obj - run.get()) + length;
        owned.push_back(std::make_unique<uint8_t[]>(length + room));
        uint8_t *copy = owned.back().get();
        std::memcpy(copy, obj, length);
        fill_from_input(copy + length, room, end_at);
        objects.push_back(Object{copy, length, static_cast<uint8_t>(RSVP_OBJECT_CLASS(copy)),
                                 static_cast<uint8_t>(RSVP_OBJECT_C_TYPE(copy)),
                                 rsvp_valid_object(copy), room, end_at});
    };

    // The walk never returns its starting object, so the first one is taken by hand when its
    // header is sound.
    if (run_len >= RSVP_OBJ_HDR_LEN) {
        const uint16_t first_len = RSVP_OBJECT_LENGTH(run.get());
        if (first_len >= RSVP_OBJ_HDR_LEN && first_len % 4 == 0 && first_len <= run_len)
            take(run.get());
    }
    uint32_t remaining = run_len;
    for (uint8_t *obj = rsvp_next_nonnull_object(run.get(), &remaining); obj;
         obj = rsvp_next_nonnull_object(obj, &remaining))
        take(obj);

    // Searches over the whole run, once for every class present (not per object, so that a
    // run of many objects costs linear time), and behind the first object's class.
    bool searched[UINT8_MAX + 1] = {};
    for (const Object &o : objects) {
        if (searched[o.class_num]) continue;
        searched[o.class_num] = true;
        keep(rsvp_first_object_type(run.get(), run_len, o.class_num));
        keep(rsvp_first_object_type_ordered(run.get(), run_len, objects.front().class_num,
                                            o.class_num));
    }
    keep(rsvp_first_object_type(run.get(), run_len, 0));

    for (Exerciser fn : exercisers())
        fn(objects);
    for (UnitExerciser fn : unit_exercisers())
        fn(unit_pool);
}

}  // namespace rsvp_fuzz
