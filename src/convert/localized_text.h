#ifndef KELPLIB_CONVERT_LOCALIZED_TEXT_H
#define KELPLIB_CONVERT_LOCALIZED_TEXT_H

#include <locale>
#include <string>
#include <string_view>

namespace Kelp {

/// Whether a locale brings a reader of numbers of its own, or other characters to write them with. What becomes of a text
/// then only a stream can tell.
bool needsStream(const std::locale& locale);

/// The number at the beginning of a text written with a locale's blanks, decimal point and grouping, as the classic locale
/// writes it. Where a separator stands without digits before it there is no number. Empty for a blank text only.
/// \param real  whether a decimal point and an exponent belong to the number
std::string classicNumber(std::string_view text, const std::locale& locale, bool real);

}  // namespace Kelp

#endif
