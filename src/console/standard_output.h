#ifndef KELPLIB_CONSOLE_STANDARD_OUTPUT_H
#define KELPLIB_CONSOLE_STANDARD_OUTPUT_H

#include <string_view>

namespace Kelp {

/// What became of a text.
struct Written {
    bool whole;   ///< whether the system has taken all of it
    int flushed;  ///< the result of flushing standard output: 0, or EOF
};

/// Writes a line or a frame to standard output, whole, and flushes.
Written writeAtOnce(std::string_view text);

}  // namespace Kelp

#endif
