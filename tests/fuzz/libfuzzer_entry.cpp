// Hands libFuzzer one target: KELPLIB_FUZZ_TARGET, set by the build.
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::KELPLIB_FUZZ_TARGET(data, size);
    return 0;
}
