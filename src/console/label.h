#ifndef KELPLIB_CONSOLE_LABEL_H
#define KELPLIB_CONSOLE_LABEL_H

#include <cstddef>
#include <string_view>

namespace Kelp {

/// The characters that a label has room for in KELP_GlobalProgress.
inline constexpr std::size_t labelCapacity = 128;

/// Writes `text` into a label that is all zero, shortened from its middle when it has `maxLength` characters or more (6 at
/// least, 128 at most). A label of 128 characters gets no terminator.
void storeLabel(char (&label)[labelCapacity], std::string_view text, std::size_t maxLength);

/// What stands in a label, with or without a terminator.
std::string_view labelText(const char (&label)[labelCapacity]);

}  // namespace Kelp

#endif
