#ifndef KELPLIB_TESTS_FUZZ_TARGET_H
#define KELPLIB_TESTS_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>

/// What is fuzzed. A target feeds the library with one input, compares all that comes out with a plain model of its own, and
/// ends the process through fail() (see check.h) where the two differ. Each has a source of its name and inputs in
/// corpus/NAME.
namespace fuzz {

using Target = void(const std::uint8_t* data, std::size_t size);

Target reader;
Target start_up;
Target tool;
Target scanners;
Target scalars;
Target localized;
Target collections;
Target number_text;
Target paths;
Target strings;
Target labels;
Target progress;
Target install_location;

}  // namespace fuzz

#endif
