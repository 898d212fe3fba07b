// The entry of every target: one run of its function over an input. A fatal alert that the function does not
// take is a fault, as the exception that nobody catches.
#include "support.h"

void FUZZ_TARGET(fuzzing::input& in);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    fuzzing::input in(data, size);
    FUZZ_TARGET(in);
    return 0;
}
