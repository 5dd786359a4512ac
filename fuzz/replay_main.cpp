// Replays the seed corpus and a fixed set of mutations of it through the fuzz harness, as an
// ordinary test: under the sanitizer build this catches reads past the end without libFuzzer.
// Files named on the command line (a crash reproducer, a saved corpus) are replayed too.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz_registry.hpp"

int main(int argc, char **argv) {
    size_t runs = 0;
    for (int i = 1; i < argc; ++i) {
        std::ifstream in(argv[i], std::ios::binary);
        rsvp_fuzz::Bytes b((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        rsvp_fuzz::run_one(b.data(), b.size());
        ++runs;
    }
    std::mt19937 rng(20261122);
    for (const rsvp_fuzz::Bytes &seed : rsvp_fuzz::all_seeds()) {
        rsvp_fuzz::run_one(seed.data(), seed.size());
        ++runs;
        for (size_t cut = 0; cut < seed.size(); ++cut) {  // every truncation
            rsvp_fuzz::run_one(seed.data(), cut);
            ++runs;
        }
        for (int m = 0; m < 300 && !seed.empty(); ++m) {  // random byte and bit edits
            rsvp_fuzz::Bytes b = seed;
            const int edits = 1 + static_cast<int>(rng() % 4);
            for (int e = 0; e < edits; ++e) {
                const size_t at = rng() % b.size();
                b[at] = (rng() & 1) ? static_cast<uint8_t>(rng()) : b[at] ^ (1u << (rng() % 8));
            }
            rsvp_fuzz::run_one(b.data(), b.size());
            ++runs;
        }
    }
    std::printf("replayed %zu inputs\n", runs);
    return 0;
}
