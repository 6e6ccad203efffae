#ifndef KELPKIT_HELP_H
#define KELPKIT_HELP_H

#include <kelpkit/Definition.h>

#include <string>
#include <string_view>

namespace Kelpkit {

/// The longest line that a console of 80 columns does not wrap.
inline constexpr std::size_t screenWidth = 79;

/// Returns the number of characters of a UTF-8 text.
std::size_t lengthOf(std::string_view text);

/// Whether a token asks for the help screen: "-h", "--help", "/h", "/help" or "/?", in any letter case.
bool asksForHelp(int argc, char** argv);

/// Whether a token is "--version" or the short form that is registered with it, and the tool has a version.
bool asksForVersion(const Definition& definition, int argc, char** argv);

/// Returns the text after the tool's name in the usage line: that of the definition, or if it has none, one that shows the options
/// and the arguments: "[-n=NUMBER] [-f] FIRST [OTHER...]". Completions and man pages learn from it which options take values. The
/// switches -h, --help and -v, --verbose, which they know, are not in it. If no other option is left, or the line is too long,
/// "[OPTIONS]" replaces the options.
std::string usageOf(const Definition& definition);

/// Prints the help screen of the library, with its pause, and ends the process with exit status 0. Shows the defined name if the
/// library cannot use the program path.
[[noreturn]] void showHelp(const Definition& definition, const std::string& programPath);

}  // namespace Kelpkit

#endif
