#ifndef KELPKIT_PROGRAMS_SCREEN_TEXT_H
#define KELPKIT_PROGRAMS_SCREEN_TEXT_H

#include <string>
#include <string_view>

namespace Kelpkit::programs {

/// Returns the text with LF at the line ends.
/// \throws ScreenError  unless all are LF or all are CRLF
std::string withPlainLineEnds(std::string_view text);

/// \throws ScreenError  for a NUL byte, and for a character above ASCII that is not UTF-8 or a control character
void requirePrintable(std::string_view text);

}  // namespace Kelpkit::programs

#endif
