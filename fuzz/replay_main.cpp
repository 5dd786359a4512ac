// Replays the seed corpus of the object-run harness, and files named on the command line.
#include "fuzz_registry.hpp"
#include "replay.hpp"

int main(int argc, char **argv) {
    return rsvp_fuzz::replay(rsvp_fuzz::run_one, rsvp_fuzz::all_seeds(), argc, argv);
}
