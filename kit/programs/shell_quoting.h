#ifndef KELPKIT_PROGRAMS_SHELL_QUOTING_H
#define KELPKIT_PROGRAMS_SHELL_QUOTING_H

#include <string>
#include <string_view>
#include <vector>

#include "described_tool.h"

/// \file
/// What the completion scripts share. A text of a tool reaches a script only through the quoting functions.

namespace Kelpkit::programs {

/// Returns a text as one word of bash or zsh. NUL bytes, which no shell can hold, are dropped.
std::string quotedForShell(std::string_view text);

/// Returns a text as one word of fish, without NUL bytes.
std::string quotedForFish(std::string_view text);

/// Returns an identifier in which every byte but ASCII letters and digits is hexadecimal: "a-b" becomes "kelp_a_2db" and "a_b"
/// becomes "kelp_a_5fb".
std::string identifierOf(std::string_view toolName);

/// Puts an identifier in place of each "ID" after "_" in a part of a script, which must not contain a text of the tool.
std::string named(std::string_view script, const std::string& identifier);

bool isControl(char character);

/// Returns a text whose control characters are blanks, fit for one row of a list.
std::string inOneRow(std::string text);

/// A word that a completion offers: a short or long form, with "=" if a value has to follow.
struct OfferedFlag {
    std::string word;
    std::string text;
    bool takesValue;
};

/// Returns all short and long forms in the order of the screen.
std::vector<OfferedFlag> offeredFlags(const DescribedTool& tool);

/// Returns whether a word that is no option may be a file.
bool takesFiles(const DescribedTool& tool);

/// An option by the first character of its name, in lower case: the library matches long forms by it.
struct OptionLetter {
    std::string letter;
    const DescribedOption* option;
};

/// Returns the letters of all options that take a value of some kind. Of equal letters the first counts, as in the library.
std::vector<OptionLetter> optionLetters(const DescribedTool& tool);

}  // namespace Kelpkit::programs

#endif
