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

}  // namespace

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

    std::vector<std::unique_ptr<uint8_t[]>> owned;
    std::vector<Object> objects;
    auto take = [&](uint8_t *obj) {
        size_t room = 0;
        owned.push_back(copy_with_room(obj, run.get() + run_len, room));
        uint8_t *copy = owned.back().get();
        objects.push_back(
            Object{copy, RSVP_OBJECT_LENGTH(copy), static_cast<uint8_t>(RSVP_OBJECT_CLASS(copy)),
                   static_cast<uint8_t>(RSVP_OBJECT_C_TYPE(copy)), rsvp_valid_object(copy), room});
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
}

}  // namespace rsvp_fuzz
