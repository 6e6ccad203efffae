#ifndef KELPLIB_CONVERT_NUMBER_TEXT_H
#define KELPLIB_CONVERT_NUMBER_TEXT_H

#include <cstddef>

namespace Kelp {

/// No number's text is longer.
inline constexpr std::size_t longestNumberText = 24;

/// Writes the shortest digits that read back to the same double, in fixed or scientific notation, whichever is shorter,
/// fixed on a tie. No locale plays a part. "inf", "-inf", "nan" and "-nan" for what is no number.
/// \param begin  has room for longestNumberText characters
/// \returns the end of what was written; no terminator follows
char* writeNumberText(char* begin, double number);

}  // namespace Kelp

#endif
