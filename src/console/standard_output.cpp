#include "console/standard_output.h"

#include <cstdio>

namespace Kelp {

int writeAtOnce(std::string_view text) {
    const bool whole = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    const int flushed = std::fflush(stdout);
    return whole ? flushed : EOF;
}

}  // namespace Kelp
