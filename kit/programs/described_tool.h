#ifndef KELPKIT_PROGRAMS_DESCRIBED_TOOL_H
#define KELPKIT_PROGRAMS_DESCRIBED_TOOL_H

#include <string>
#include <vector>

#include "help_screen.h"
#include "usage_line.h"

namespace Kelpkit::programs {

struct DescribedOption {
    std::string shortForm;
    std::string longForm;
    std::string text;
    Takes takes = Takes::unknown;
    std::string valueName;             ///< "LINES" in -n=LINES and in -n=LINES|all; empty if it is not known
    std::vector<std::string> choices;  ///< of Takes::choice
};

struct DescribedArgument {
    std::string name;
    std::string text;
    bool repeated = false;
    bool optional = false;
};

/// A tool as its help screen, the maintainer's hints and the library's contract describe it. The writers of all formats start here.
struct DescribedTool {
    std::string name;
    std::string banner;
    std::string description;
    std::string usage;
    std::string example;
    std::vector<DescribedOption> options;  ///< in the order of the screen
    std::vector<DescribedArgument> arguments;
};

/// A hint of the maintainer: "l" (a switch), "n=LINES", "o=FILE:file", "d=DIR:folder", "m=fast|exact".
struct Hint {
    char letter = '\0';
    Value value;
};

/// Reads a hint. The kind after the last ":" is text, file or folder; without it, the name decides as in a usage line.
/// \throws std::runtime_error  if the text is not a hint, as with another kind in lower case, or with empty or equal choices
Hint readHint(const std::string& text);

/// Adds to a help screen what it does not say. What an option takes is decided by the first of these that says it: the hints,
/// the usage line, the example up to the first of | ; & > < and #, and the library's rules (-o names the output file; -h with
/// --help and -v with --verbose are switches). A value in either line counts more than a bare form in both, and a bare form does
/// not make a switch of -o with --out.... The value of -o is a file unless a hint or the name of the value says otherwise.
/// Arguments are repeated and optional as the usage line shows them: "[FILE...]".
/// \throws std::runtime_error  for a hint whose letter no option has, and for two hints for one option
DescribedTool describe(const HelpScreen& screen, const std::vector<Hint>& hints);

}  // namespace Kelpkit::programs

#endif
