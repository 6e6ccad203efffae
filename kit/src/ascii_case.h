#ifndef KELPKIT_ASCII_CASE_H
#define KELPKIT_ASCII_CASE_H

#include <string>
#include <string_view>

/// \file
/// The letter case of ASCII letters, whatever the locale is.

namespace Kelpkit {

/// Returns a copy in lower case.
std::string lowerCase(std::string_view text);

bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace Kelpkit

#endif
