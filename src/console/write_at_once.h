#ifndef KELPLIB_CONSOLE_WRITE_AT_ONCE_H
#define KELPLIB_CONSOLE_WRITE_AT_ONCE_H

#include <string_view>

namespace Kelp {

/// The result of a write.
struct Written {
    bool whole;   ///< whether the system has taken the whole text
    int flushed;  ///< the result of flushing standard output: 0, or EOF
};

/// Passes a line or a frame to stdout in one call and flushes it.
Written writeAtOnce(std::string_view text);

}  // namespace Kelp

#endif
