#ifndef KELPLIB_CONSOLE_STANDARD_OUTPUT_H
#define KELPLIB_CONSOLE_STANDARD_OUTPUT_H

#include <string_view>

namespace Kelp {

/// Writes a line or a frame to standard output, whole, and flushes.
/// \returns 0, or EOF when it could not be written
int writeAtOnce(std::string_view text);

}  // namespace Kelp

#endif
