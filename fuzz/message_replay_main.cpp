// Replays the seeds of the message entry, the messages of the sample files (*.hex) and of
// capture files (*.pcap), and every other file or directory named on the command line; with
// --write-seeds DIR [SAMPLE...] it writes the seeds and the sample messages for the libFuzzer
// target instead. A directory of samples or captures is searched recursively.
#include <cstring>
#include <string>
#include <vector>

#include "message.hpp"
#include "replay.hpp"

namespace {

bool ends_with(const std::string &path, const std::string &suffix) {
    return path.size() > suffix.size() &&
           path.compare(path.size() - suffix.size(), suffix.size(), suffix) == 0;
}

bool is_sample(const std::string &path) {
    return ends_with(path, ".hex") || ends_with(path, ".pcap");
}

std::vector<std::vector<uint8_t>> read_sample(const std::string &path) {
    return ends_with(path, ".hex") ? rsvp_fuzz::read_hex_messages(path)
                                   : rsvp_fuzz::read_capture_messages(path);
}

// The seeds plus the messages of the sample and capture paths (a directory yields those it
// holds); other paths stay in args.
std::vector<std::vector<uint8_t>> seeds_and_samples(std::vector<char *> &args) {
    std::vector<std::vector<uint8_t>> seeds = rsvp_fuzz::message_seeds();
    std::vector<char *> rest;
    for (char *arg : args) {
        std::vector<std::string> samples;
        if (std::filesystem::is_directory(arg)) {
            for (const auto &e : std::filesystem::recursive_directory_iterator(arg))
                if (is_sample(e.path().string())) samples.push_back(e.path().string());
        } else if (is_sample(arg)) {
            samples.push_back(arg);
        }
        if (samples.empty()) rest.push_back(arg);
        std::sort(samples.begin(), samples.end());
        for (const std::string &s : samples)
            for (std::vector<uint8_t> &m : read_sample(s))
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
