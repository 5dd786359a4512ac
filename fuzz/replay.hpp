// Replaying and writing a seed corpus, shared by the fuzz entries: replay runs each seed, every
// truncation of it and a fixed set of random byte and bit edits through an entry, as an
// ordinary test (under the sanitizer build this catches reads past the end without
// libFuzzer); files named on the command line (a crash reproducer) and every file of a
// directory named there (a saved corpus) are run too.
#pragma once

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace rsvp_fuzz {

using Entry = void (*)(const uint8_t *data, size_t size);

inline std::vector<uint8_t> read_file(const std::filesystem::path &path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>((std::istreambuf_iterator<char>(in)),
                                std::istreambuf_iterator<char>());
}

// The files named, and the regular files of the directories named (sorted, so that a
// failure reproduces in the same order); a missing path is an error, not an empty corpus.
inline bool input_files(int argc, char **argv, std::vector<std::filesystem::path> &files) {
    namespace fs = std::filesystem;
    for (int i = 1; i < argc; ++i) {
        const fs::path path(argv[i]);
        if (fs::is_directory(path)) {
            std::vector<fs::path> in_dir;
            for (const fs::directory_entry &e : fs::directory_iterator(path))
                if (e.is_regular_file()) in_dir.push_back(e.path());
            std::sort(in_dir.begin(), in_dir.end());
            files.insert(files.end(), in_dir.begin(), in_dir.end());
        } else if (fs::is_regular_file(path)) {
            files.push_back(path);
        } else {
            std::fprintf(stderr, "%s: no such file or directory\n", argv[i]);
            return false;
        }
    }
    return true;
}

// Seeds up to this size are cut at every length and edited 300 times; a larger one (up to 64 KB,
// where a run costs that much more) is cut at every length up to it and at 64 lengths beyond,
// and edited 4 times, so that the replay stays quick.
constexpr size_t kSmallSeed = 4096;
constexpr size_t kLargeSeedCuts = 64;
constexpr size_t kEdits = 300, kLargeSeedEdits = 4;

inline int replay(Entry run, const std::vector<std::vector<uint8_t>> &seeds, int argc,
                  char **argv) {
    size_t runs = 0;
    std::vector<std::filesystem::path> files;
    if (!input_files(argc, argv, files)) return 1;
    for (const std::filesystem::path &f : files) {
        const std::vector<uint8_t> b = read_file(f);
        run(b.data(), b.size());
        ++runs;
    }
    std::mt19937 rng(20261122);
    for (const std::vector<uint8_t> &seed : seeds) {
        run(seed.data(), seed.size());
        ++runs;
        const size_t large = seed.size() > kSmallSeed ? seed.size() - kSmallSeed : 0;
        const size_t stride = std::max<size_t>(1, large / kLargeSeedCuts);
        for (size_t cut = 0; cut < seed.size(); cut += cut < kSmallSeed ? 1 : stride) {
            run(seed.data(), cut);  // truncations
            ++runs;
        }
        const size_t edit_runs = large ? kLargeSeedEdits : kEdits;
        for (size_t m = 0; m < edit_runs && !seed.empty(); ++m) {  // random byte and bit edits
            std::vector<uint8_t> b = seed;
            const int edits = 1 + static_cast<int>(rng() % 4);
            for (int e = 0; e < edits; ++e) {
                const size_t at = rng() % b.size();
                b[at] = (rng() & 1) ? static_cast<uint8_t>(rng()) : b[at] ^ (1u << (rng() % 8));
            }
            run(b.data(), b.size());
            ++runs;
        }
    }
    std::printf("replayed %zu inputs\n", runs);
    return 0;
}

// Writes each seed to DIR/seed-N; 0, or 1 after reporting a file that could not be written.
inline int write_seeds(const std::vector<std::vector<uint8_t>> &seeds, const char *dir) {
    int n = 0;
    for (const std::vector<uint8_t> &seed : seeds) {
        const std::string path = std::string(dir) + "/seed-" + std::to_string(n++);
        std::FILE *f = std::fopen(path.c_str(), "wb");
        if (!f || std::fwrite(seed.data(), 1, seed.size(), f) != seed.size()) {
            std::perror(path.c_str());
            if (f) std::fclose(f);
            return 1;
        }
        std::fclose(f);
    }
    std::printf("%d seeds written to %s\n", n, dir);
    return 0;
}

}  // namespace rsvp_fuzz
