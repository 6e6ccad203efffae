#ifndef COMMON_PRINTABLE_H
#define COMMON_PRINTABLE_H

#include <string>

namespace common {

/// A text as a terminal may get it: each control character, and each byte that is not UTF-8, becomes \xNN. Names of files
/// go through this, and messages that hold one; what other programs read, as selected lines, does not.
std::string printable(const std::string& text);

}  // namespace common

#endif
