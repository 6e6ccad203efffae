#ifndef KELPKIT_RULES_H
#define KELPKIT_RULES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// \file
/// The rules for a tool's options, arguments and texts, whether they come from its definition or from its help screen, and for what
/// a run of the tool shows.

namespace Kelpkit::rules {

struct Option {
    std::string shortForm;
    std::string longForm;
    std::string text;
    std::optional<bool> takesValue;  ///< none if it is not known
};

struct Argument {
    std::string name;
    std::string text;
    bool repeated;
};

/// What the rules see of a tool.
struct Tool {
    std::string name;
    std::string description;
    std::vector<Option> options;
    std::vector<Argument> arguments;
    std::string example;
    std::string usage;  ///< empty if it is made from the rest
    std::string banner;
    std::string version;
    std::size_t optionalArguments = 0;
};

/// With an error, what the definition promises cannot work; a warning misleads; a note only asks for a second look.
enum class Severity { error, warning, note };

/// In the order of the table.
enum class Id {
    sameLetter,
    shortForm,
    longLetter,
    longForm,
    emptyLong,
    helpTaken,
    noHelp,
    verboseTaken,
    versionLetter,
    noVerbose,
    outputLetter,
    noOutput,
    askedByLongName,
    askedUnregistered,
    lateOption,
    fileDemanded,
    digit,
    valueUnknown,
    usageNames,
    exampleRefused,
    nameTwice,
    argumentName,
    repeatedNotLast,
    noExample,
    noDescription,
    emptyText,
    controlCharacter,
    tooLong,
    fileName,
    shortName,
    otherName,
};
inline constexpr std::size_t count = static_cast<std::size_t>(Id::otherName) + 1;

struct Rule {
    Id id;
    Severity severity;
    std::string_view name;
    std::string_view consequence;  ///< what happens to the user
    std::string_view cure;
};

/// Returns the rules as a table, indexed by Id.
const Rule (&table())[count];

std::string_view nameOf(Severity severity);

struct Finding {
    Id rule;
    std::string subject;  ///< the flag, the argument or the text that it is about; may be empty
};

Severity severityOf(const Finding& finding);

/// Returns the finding as a line: "error same-letter -n: CONSEQUENCE; CURE". The subject is made printable().
std::string lineOf(const Finding& finding, Severity severity);
std::string lineOf(const Finding& finding);

/// Returns all findings: those of the options in their order, then those of the lines and the texts.
std::vector<Finding> check(const Tool& tool);

/// \name The parts of check()
/// Each appends its findings.
/// @{
void checkOptions(const Tool& tool, std::vector<Finding>& findings);
void checkUsage(const Tool& tool, std::vector<Finding>& findings);
void checkExample(const Tool& tool, std::vector<Finding>& findings);
void checkArguments(const Tool& tool, std::vector<Finding>& findings);
void checkTexts(const Tool& tool, std::vector<Finding>& findings);
void checkName(const Tool& tool, std::vector<Finding>& findings);
/// @}

/// Returns the option with a short or long form, in any letter case; null if there is none.
const Option* findOption(const Tool& tool, std::string_view flag);

/// Whether a text has neither control characters nor bytes that are not UTF-8.
bool isPrintable(const std::string& text);

/// Whether a character may be in the name of an argument: an ASCII letter or digit, "-" or "_".
bool isWordCharacter(char character);

/// Whether a text can be read as the name of an argument: a letter, then word characters.
bool isArgumentName(std::string_view name);

/// Whether the tool answers a word with its help screen or its version, whatever else is on the command line.
bool isAnswered(const Tool& tool, std::string_view word);

/// Whether an option exists and takes a value exactly if it is written with one. `option` is null if no option has the name.
bool fits(const Option* option, bool hasValue);

/// Returns the form of an option that names it in findings.
const std::string& nameOf(const Option& option);

}  // namespace Kelpkit::rules

#endif
