#ifndef KELPLIB_TESTS_FUZZ_TARGET_H
#define KELPLIB_TESTS_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>

/// The fuzz targets. A target feeds one input to the library, compares the results with a plain model, and aborts through
/// fail() (see check.h) if they differ. The target NAME is in NAME.cpp, its inputs are in corpus/NAME and corpus/NAME.tar.
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
Target kit_line;
Target documents;

}  // namespace fuzz

#endif
