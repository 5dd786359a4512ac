// Replays the seeds of the refresh-pair entry (and files named on the command line); with
// --write-seeds DIR it writes the seeds for the libFuzzer target instead.
#include <cstring>

#include "refresh_pair.hpp"
#include "replay.hpp"

int main(int argc, char **argv) {
    if (argc == 3 && std::strcmp(argv[1], "--write-seeds") == 0)
        return rsvp_fuzz::write_seeds(rsvp_fuzz::refresh_pair_seeds(), argv[2]);
    return rsvp_fuzz::replay(rsvp_fuzz::run_refresh_pair, rsvp_fuzz::refresh_pair_seeds(), argc,
                             argv);
}
