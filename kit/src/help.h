#ifndef KELPKIT_HELP_H
#define KELPKIT_HELP_H

#include <kelpkit/Definition.h>

#include <algorithm>

namespace Kelpkit {

/// Returns a usage line made from the arguments, the last `optional` of which may be missing: "[OPTIONS] FIRST [OTHER...]".
template <class Argument>
std::string usageFrom(const std::vector<Argument>& arguments, std::size_t optional) {
    std::string usage = "[OPTIONS]";
    const std::size_t required = arguments.size() - std::min(optional, arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string name = arguments[i].name + (arguments[i].repeated ? "..." : "");
        usage += i < required ? " " + name : " [" + name + "]";
    }
    return usage;
}

/// Whether a token asks for the help screen: "-h", "--help", "/h", "/help" or "/?", in any letter case.
bool asksForHelp(int argc, char** argv);

/// Whether a token is "--version" or the short form that is registered with it, and the tool has a version.
bool asksForVersion(const Definition& definition, int argc, char** argv);

/// Returns the usage line for the library's help screen, whose own one knows no optional arguments. Empty if that one suits the
/// tool.
std::string usageOf(const Definition& definition);

/// Prints the help screen of the library, with its pause, and ends the process with exit status 0. Shows the defined name if the
/// library cannot use the program path.
[[noreturn]] void showHelp(const Definition& definition, const std::string& programPath);

}  // namespace Kelpkit

#endif
