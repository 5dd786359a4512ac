#include "refresh_pair.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    rsvp_fuzz::run_refresh_pair(data, size);
    return 0;
}
