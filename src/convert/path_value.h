#ifndef KELPLIB_CONVERT_PATH_VALUE_H
#define KELPLIB_CONVERT_PATH_VALUE_H

#include <string>

namespace Kelp {

/// Whether UTF-8 text holds the three bytes of a surrogate code point (ED A0..BF xx). No character has that form, yet some
/// UTF-8 to UTF-16 converters let it through. ED is always a first byte, so no well-formed text is caught.
bool holdsEncodedSurrogate(const std::string& text);

}  // namespace Kelp

#endif
