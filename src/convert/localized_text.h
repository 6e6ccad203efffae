#ifndef KELPLIB_CONVERT_LOCALIZED_TEXT_H
#define KELPLIB_CONVERT_LOCALIZED_TEXT_H

#include <locale>
#include <string>
#include <string_view>

namespace Kelp {

/// Whether the program has used a locale. Until then the global locale is the classic one, and merely asking for it would set up
/// all facets, a fourth of the start of a small tool.
bool hasUsedLocales();

/// Whether only a stream can read numbers as `locale` does: its num_get facet is a replacement, or it writes numbers with
/// other characters.
bool needsStream(const std::locale& locale);

/// Rewrites the number at the start of a text, which uses the blanks, decimal point and grouping of `locale`, as the classic
/// locale writes it. A thousands separator without digits before it makes the text unreadable.
/// \param real  whether the number may have a decimal point and an exponent
/// \returns the number; a text that reads as 0 if there is none; the empty text only for a blank one
std::string classicNumber(std::string_view text, const std::locale& locale, bool real);

}  // namespace Kelp

#endif
