// Replays rsvpdump's seed corpus (the files and directories named on the command line: the
// inputs the tests build, the bundled samples) through the fuzz target, with every truncation
// and a fixed set of byte edits of each, as an ordinary test under any compiler.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "rsvpdump_one.hpp"

int main(int argc, char **argv) {
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i) {
        if (std::filesystem::is_directory(argv[i])) {
            for (const auto &e : std::filesystem::directory_iterator(argv[i]))
                if (e.is_regular_file()) files.push_back(e.path());
        } else {
            files.emplace_back(argv[i]);
        }
    }
    std::mt19937 rng(20261124);
    size_t runs = 0;
    for (const auto &path : files) {
        std::ifstream in(path, std::ios::binary);
        const std::vector<uint8_t> seed((std::istreambuf_iterator<char>(in)),
                                        std::istreambuf_iterator<char>());
        for (size_t cut = 0; cut <= seed.size(); ++cut, ++runs)  // every truncation
            rsvpdump_fuzz_one(std::vector<uint8_t>(seed.begin(), seed.begin() + cut).data(), cut);
        for (int m = 0; m < 200 && !seed.empty(); ++m, ++runs) {  // random byte and bit edits
            std::vector<uint8_t> b = seed;
            for (int e = 1 + static_cast<int>(rng() % 4); e > 0; --e) {
                const size_t at = rng() % b.size();
                b[at] = (rng() & 1) ? static_cast<uint8_t>(rng()) : b[at] ^ (1u << (rng() % 8));
            }
            rsvpdump_fuzz_one(b.data(), b.size());
        }
    }
    std::printf("replayed %zu inputs from %zu files\n", runs, files.size());
    return files.empty() ? 1 : 0;
}
