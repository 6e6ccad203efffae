#include "util/leading_int.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace Kelp {

int leadingInt(const char* text) {
    return static_cast<int>(std::clamp<long>(std::strtol(text, nullptr, 10), INT_MIN, INT_MAX));
}

}  // namespace Kelp
