#ifndef KELPLIB_CONVERT_NUMBER_TEXT_H
#define KELPLIB_CONVERT_NUMBER_TEXT_H

#include <cstddef>

namespace Kelp {

/// The room that writing a number needs: more than the longest text, of 24 characters, because digits are written in blocks.
inline constexpr std::size_t numberTextRoom = 40;

/// Writes the shortest digits that read back to the same double, in fixed or scientific notation, whichever is shorter (fixed
/// on a tie), in any locale. Infinities and NaNs become "inf", "-inf", "nan" and "-nan".
/// \param position  has room for numberTextRoom characters; those after the text may change
/// \returns the end of the text, which has no terminator
char* writeNumberText(char* position, double number);

}  // namespace Kelp

#endif
