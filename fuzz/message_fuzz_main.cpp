#include "message.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    rsvp_fuzz::run_message(data, size);
    return 0;
}
