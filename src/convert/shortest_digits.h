#ifndef KELPLIB_CONVERT_SHORTEST_DIGITS_H
#define KELPLIB_CONVERT_SHORTEST_DIGITS_H

#include <cstdint>

namespace Kelp {

/// A decimal number: `digits` times ten to the power of -`decimals`.
struct ShortestDigits {
    /// 16 or 17 digits; zeros at the end do not count.
    std::uint64_t digits;
    int decimals;
};

/// The numbers that shortestDigits handles: from 2^-63 up to 2^53, except powers of two.
inline constexpr double leastShortestDigits = 0x1p-63;
inline constexpr double limitOfShortestDigits = 0x1p53;

/// Returns the shortest decimal number that reads back to significand * 2^-shift, and of several the nearest.
/// \param significand  more than 2^52 and less than 2^53
/// \param shift        0 to 115
ShortestDigits shortestDigits(std::uint64_t significand, int shift);

}  // namespace Kelp

#endif
