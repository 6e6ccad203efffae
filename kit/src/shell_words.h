#ifndef KELPKIT_SHELL_WORDS_H
#define KELPKIT_SHELL_WORDS_H

#include <string>
#include <string_view>
#include <vector>

namespace Kelpkit {

/// Splits the first command of a shell's line into words, without their quotes. Ends at a pipe, a redirection, a comment and at
/// ";" and "&". Expands nothing.
std::vector<std::string> shellWords(std::string_view line);

}  // namespace Kelpkit

#endif
