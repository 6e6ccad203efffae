#ifndef KELPLIB_CONVERT_NUMBER_TEXT_H
#define KELPLIB_CONVERT_NUMBER_TEXT_H

#include <cstddef>

namespace Kelp {

/// The length of the longest text of a number.
inline constexpr std::size_t longestNumberText = 24;

/// Writes the shortest digits that read back to the same double, in fixed or scientific notation, whichever is shorter (fixed
/// on a tie), in any locale. Infinities and NaNs become "inf", "-inf", "nan" and "-nan".
/// \param position  has room for longestNumberText characters
/// \returns the end of the text, which has no terminator
char* writeNumberText(char* position, double number);

}  // namespace Kelp

#endif
