// Writes the seed corpus (objects made with the library's builders) into a directory.
#include <cstdio>

#include "fuzz_registry.hpp"
#include "replay.hpp"

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds DIR\n");
        return 2;
    }
    return rsvp_fuzz::write_seeds(rsvp_fuzz::all_seeds(), argv[1]);
}
