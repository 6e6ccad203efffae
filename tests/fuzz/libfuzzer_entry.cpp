// Passes libFuzzer's inputs to the target that the build chooses, KELPLIB_FUZZ_TARGET.
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::KELPLIB_FUZZ_TARGET(data, size);
    return 0;
}
