#ifndef KELPLIB_UTIL_TRUNCATION_H
#define KELPLIB_UTIL_TRUNCATION_H

#include <climits>

namespace Kelp {

/// Drops the fraction. A value that does not fit an int (too large, infinite, NaN), for which C++ leaves the conversion
/// undefined, gives INT_MIN, as x86-64 processors do.
constexpr int truncateToInt(double value) {
    return value > INT_MIN - 1.0 && value < INT_MAX + 1.0 ? static_cast<int>(value) : INT_MIN;
}

}  // namespace Kelp

#endif
