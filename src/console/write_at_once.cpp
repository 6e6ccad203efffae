#include "console/write_at_once.h"

#include <cstdio>

namespace Kelp {

Written writeAtOnce(std::string_view text) {
    const bool taken = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    const int flushed = std::fflush(stdout);
    return {taken && flushed == 0, flushed};
}

}  // namespace Kelp
