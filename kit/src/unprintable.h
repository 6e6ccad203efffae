#ifndef KELPKIT_UNPRINTABLE_H
#define KELPKIT_UNPRINTABLE_H

#include <string>
#include <string_view>

namespace Kelpkit {

/// Returns the text with a replacement for each byte that printable() escapes.
std::string replaceUnprintable(std::string_view text, std::string (*replacement)(char byte));

}  // namespace Kelpkit

#endif
