// Writes the seed corpus (objects made with the library's builders) into a directory.
#include <cstdio>
#include <string>

#include "fuzz_registry.hpp"

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds DIR\n");
        return 2;
    }
    int n = 0;
    for (const rsvp_fuzz::Bytes &seed : rsvp_fuzz::all_seeds()) {
        const std::string path = std::string(argv[1]) + "/seed-" + std::to_string(n++);
        std::FILE *f = std::fopen(path.c_str(), "wb");
        if (!f || std::fwrite(seed.data(), 1, seed.size(), f) != seed.size()) {
            std::perror(path.c_str());
            return 1;
        }
        std::fclose(f);
    }
    std::printf("%d seeds written to %s\n", n, argv[1]);
    return 0;
}
