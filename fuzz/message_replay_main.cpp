// Replays the seeds of the message entry, the messages of the sample files (*.hex) and every
// other file or directory named on the command line; with --write-seeds DIR [SAMPLE.hex...]
// it writes the seeds and the sample messages for the libFuzzer target instead.
#include <cstring>
#include <string>
#include <vector>

#include "message.hpp"
#include "replay.hpp"

namespace {

bool is_hex_sample(const std::string &path) {
    return path.size() > 4 && path.compare(path.size() - 4, 4, ".hex") == 0;
}

// The seeds plus the sample messages of the *.hex paths (a directory yields its *.hex files);
// other paths stay in args.
std::vector<std::vector<uint8_t>> seeds_and_samples(std::vector<char *> &args) {
    std::vector<std::vector<uint8_t>> seeds = rsvp_fuzz::message_seeds();
    std::vector<char *> rest;
    for (char *arg : args) {
        std::vector<std::string> samples;
        if (std::filesystem::is_directory(arg)) {
            for (const auto &e : std::filesystem::directory_iterator(arg))
                if (is_hex_sample(e.path().string())) samples.push_back(e.path().string());
        } else if (is_hex_sample(arg)) {
            samples.push_back(arg);
        }
        if (samples.empty()) rest.push_back(arg);
        std::sort(samples.begin(), samples.end());
        for (const std::string &s : samples)
            for (std::vector<uint8_t> &m : rsvp_fuzz::read_hex_messages(s))
                seeds.push_back(std::move(m));
    }
    args = rest;
    return seeds;
}

}  // namespace

int main(int argc, char **argv) {
    const bool write = argc >= 3 && std::strcmp(argv[1], "--write-seeds") == 0;
    std::vector<char *> args(argv + (write ? 3 : 1), argv + argc);
    const std::vector<std::vector<uint8_t>> seeds = seeds_and_samples(args);
    if (write) return rsvp_fuzz::write_seeds(seeds, argv[2]);
    args.insert(args.begin(), argv[0]);
    return rsvp_fuzz::replay(rsvp_fuzz::run_message, seeds, static_cast<int>(args.size()),
                             args.data());
}
