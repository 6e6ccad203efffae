#ifndef COMMON_NUMBERS_H
#define COMMON_NUMBERS_H

#include <optional>
#include <string>

/// \file
/// The conversions of the library report no errors: they read "abc" as 0 and "12abc" as 12. These functions check the text.

namespace common {

/// Converts digits with an optional sign, decimal point and exponent. Returns none for any other text, including "nan", "inf"
/// and blanks; infinity for a number that is too large.
std::optional<double> decimalNumber(const std::string& text);

/// Whether the text consists of one or more digits.
bool isDigits(const std::string& text);

}  // namespace common

#endif
