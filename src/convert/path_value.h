#ifndef KELPLIB_CONVERT_PATH_VALUE_H
#define KELPLIB_CONVERT_PATH_VALUE_H

#include <string>

namespace Kelp {

/// Whether UTF-8 text contains the encoding of a surrogate code point (bytes ED A0..BF xx), which is ill-formed but accepted
/// by some converters to UTF-16. ED is always the first byte of a character, so well-formed text never matches.
bool containsEncodedSurrogate(const std::string& text);

}  // namespace Kelp

#endif
