#include <kelplib/Kelp.h>

#include <cstdlib>

#include "util/leading_int.h"

int Kelp::verbosity() {
    static const int level = [] {
        const char* const text = std::getenv("K_VERBOSITY");
        return text == nullptr ? 0 : leadingInt(text);
    }();
    return level;
}
