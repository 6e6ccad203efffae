#ifndef KELPLIB_CONVERT_NUMBER_TEXT_H
#define KELPLIB_CONVERT_NUMBER_TEXT_H

#include <string>

namespace Kelp {

/// Appends the shortest digits that read back to the same double, in fixed or scientific notation, whichever is shorter,
/// fixed on a tie. No locale plays a part. "inf", "-inf", "nan" and "-nan" for what is no number.
void appendNumberText(std::string& text, double number);

}  // namespace Kelp

#endif
