#ifndef COMMON_NUMBERS_H
#define COMMON_NUMBERS_H

#include <optional>
#include <string>

/// \file
/// The library's conversions report nothing: they make 0 of "abc" and 12 of "12abc". Where a tool has to tell, it looks at
/// the text with these.

namespace common {

/// The number that the whole text is: digits with an optional sign, decimal point and exponent. None for any other text,
/// "nan", "inf" and blanks included; infinite for a number that is too large.
std::optional<double> decimalNumber(const std::string& text);

/// Whether the text is digits and nothing else, at least one.
bool isDigits(const std::string& text);

}  // namespace common

#endif
