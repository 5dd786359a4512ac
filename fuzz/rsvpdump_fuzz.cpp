#include "rsvpdump_one.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    rsvpdump_fuzz_one(data, size);
    return 0;
}
