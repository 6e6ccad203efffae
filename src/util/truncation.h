#ifndef KELPLIB_UTIL_TRUNCATION_H
#define KELPLIB_UTIL_TRUNCATION_H

#include <climits>

namespace Kelp {

/// Cuts the fraction off. What no int can hold (too large, infinite, not a number) gives INT_MIN, as an x86-64 processor's
/// own conversion does; C++ leaves it undefined.
constexpr int truncateToInt(double value) {
    return value > INT_MIN - 1.0 && value < INT_MAX + 1.0 ? static_cast<int>(value) : INT_MIN;
}

}  // namespace Kelp

#endif
