#ifndef COMMON_PRINTABLE_H
#define COMMON_PRINTABLE_H

#include <string>

namespace common {

/// Returns the text with each control character, and each byte that is not UTF-8, escaped as \xNN. Meant for file names and
/// for messages that contain one, not for output that other programs read.
std::string printable(const std::string& text);

}  // namespace common

#endif
