#ifndef KELPLIB_CONSOLE_LABEL_H
#define KELPLIB_CONSOLE_LABEL_H

#include <cstddef>
#include <string_view>

namespace Kelp {

/// The size of the label field of KELP_GlobalProgress, in characters.
inline constexpr std::size_t labelCapacity = 128;

/// Stores `text` in a label that consists of zeros. A text of `maxLength` or more characters loses its middle, with "..." in
/// its place. A label of 128 characters has no terminator.
/// \param maxLength  6 to 128; lower values count as 6, higher ones as 128
void storeLabel(char (&label)[labelCapacity], std::string_view text, std::size_t maxLength);

/// Returns the text of a label, which may lack a terminator.
std::string_view labelText(const char (&label)[labelCapacity]);

}  // namespace Kelp

#endif
