#include "rules.h"

#include <kelpkit/Files.h>

#include <algorithm>

#include "ascii_case.h"

namespace Kelpkit::rules {

namespace {

constexpr std::string_view severities[] = {"error", "warning", "note"};

// The table follows the enumeration Id. docs/kit-rules.md repeats it.
constexpr Rule allRules[count] = {
    {Id::sameLetter, Severity::error, "same-letter", "an earlier option has this letter, so this one cannot be used",
     "choose another letter"},
    {Id::shortForm, Severity::error, "short-form", "the library refuses every command line with this short form",
     R"(use "-" and one ASCII letter)"},
    {Id::longLetter, Severity::error, "long-letter",
     "a tool without the kit reads this long form as the option of its first letter",
     "let both forms begin with the same letter"},
    {Id::longForm, Severity::error, "long-form", "no command line can contain this long form",
     R"(use "--" and a name without blanks and "=")"},
    {Id::emptyLong, Severity::warning, "empty-long",
     "the help screen shows an empty long form, and the library takes an empty argument for the option",
     "give it a long form"},
    {Id::helpTaken, Severity::error, "help-taken", "the tool answers with its help screen instead",
     "keep -h and --help for the help, as a switch"},
    {Id::noHelp, Severity::warning, "no-help", "the help screen does not list the option that shows it",
     "list the option -h, --help"},
    {Id::verboseTaken, Severity::warning, "verbose-taken", "the option also switches verbose mode on",
     "keep -v and --verbose for verbose mode, as a switch"},
    {Id::versionLetter, Severity::warning, "version-letter",
     "letter case does not matter, so the short form counts as -v, the flag of verbose mode",
     "leave --version to a definition's version, or use another name"},
    {Id::noVerbose, Severity::error, "no-verbose", "the tool has verbose texts, but the library refuses -v",
     "list the option -v, --verbose"},
    {Id::outputLetter, Severity::warning, "output-letter", "users expect -o to name the output file",
     "keep -o for --output with a value, and choose another letter"},
    {Id::noOutput, Severity::error, "no-output",
     "the tool asks for output files, but the library refuses -o and prints an error", "list the option -o, --output"},
    {Id::askedByLongName, Severity::error, "asked-by-long-name",
     "the tool asks for this name, which the library never finds", "ask for the short form, such as -n"},
    {Id::askedUnregistered, Severity::error, "asked-unregistered",
     "the tool asks for this option, but the library refuses it", "list the option, or do not ask for it"},
    {Id::lateOption, Severity::error, "late-option",
     "the tool registers this option after the constructor, which refuses it", "pass it to the constructor"},
    {Id::fileDemanded, Severity::error, "file-demanded",
     "the library demands an input file, which the help screen does not mention",
     "describe the file as an argument, or use a constructor without arguments"},
    {Id::digit, Severity::note, "digit", "the option looks like a negative number", "use a letter"},
    {Id::valueUnknown, Severity::warning, "value-unknown",
     "nothing says whether the option takes a value, so users and completions have to guess",
     "show it in the usage or example line"},
    {Id::usageNames, Severity::warning, "usage-names", "the usage line does not fit the options and arguments",
     "correct the usage line, or leave it empty"},
    {Id::exampleRefused, Severity::warning, "example-refused", "a tool of the kit refuses this example",
     "correct the example"},
    {Id::nameTwice, Severity::warning, "name-twice", "the help screen shows two arguments of this name",
     "rename one of them"},
    {Id::argumentName, Severity::warning, "argument-name", "the usage line cannot be read with this name",
     R"(use letters, digits, "-" and "_", a letter first)"},
    {Id::repeatedNotLast, Severity::error, "repeated-not-last",
     "the usage line promises several of these arguments, but only the last one can be repeated", "move it to the end"},
    {Id::noExample, Severity::warning, "no-example", "the help screen ends with an empty example", "add an example"},
    {Id::noDescription, Severity::warning, "no-description", "the help screen does not say what the tool does",
     "add a description"},
    {Id::emptyText, Severity::warning, "empty-text", "the help screen does not say what it means", "describe it"},
    {Id::controlCharacter, Severity::warning, "control-character",
     "a control character, or a byte that is not UTF-8, disturbs the help screen", "use one line of plain text"},
    {Id::tooLong, Severity::note, "too-long", "the line of the help screen does not fit into 80 columns",
     "shorten the text"},
    {Id::fileName, Severity::warning, "file-name", "not every system allows a file of this name",
     R"(use letters, digits, "-", "_", "+" and ".", a letter or digit first, and no device name of Windows)"},
    {Id::shortName, Severity::note, "short-name",
     "on Windows a tool without the kit cannot show its help screen when it is started by its path without .exe",
     "use at least four letters"},
    {Id::otherName, Severity::warning, "other-name", "the messages of the tool show this name, not that of the program",
     "give the definition the name of the program"},
};

constexpr bool followsEnumeration() {
    for (std::size_t i = 0; i < count; ++i) {
        if (static_cast<std::size_t>(allRules[i].id) != i) {
            return false;
        }
    }
    return true;
}
static_assert(followsEnumeration());

}  // namespace

const Rule (&table())[count] {
    return allRules;
}

std::string_view nameOf(Severity severity) {
    return severities[static_cast<std::size_t>(severity)];
}

Severity severityOf(const Finding& finding) {
    return allRules[static_cast<std::size_t>(finding.rule)].severity;
}

std::string lineOf(const Finding& finding, Severity severity) {
    const Rule& rule = allRules[static_cast<std::size_t>(finding.rule)];
    std::string line(nameOf(severity));
    line.append(" ").append(rule.name);
    if (!finding.subject.empty()) {
        line.append(" ").append(printable(finding.subject));
    }
    return line.append(": ").append(rule.consequence).append("; ").append(rule.cure);
}

std::string lineOf(const Finding& finding) {
    return lineOf(finding, severityOf(finding));
}

std::vector<Finding> check(const Tool& tool) {
    std::vector<Finding> findings;
    checkOptions(tool, findings);
    checkArguments(tool, findings);
    checkUsage(tool, findings);
    checkExample(tool, findings);
    checkTexts(tool, findings);
    checkName(tool, findings);
    return findings;
}

const Option* findOption(const Tool& tool, std::string_view flag) {
    const auto found = std::find_if(tool.options.begin(), tool.options.end(), [flag](const Option& option) {
        return equalIgnoringCase(option.shortForm, flag) || equalIgnoringCase(option.longForm, flag);
    });
    return found == tool.options.end() ? nullptr : &*found;
}

bool isPrintable(const std::string& text) {
    return printable(text) == text;
}

const std::string& nameOf(const Option& option) {
    return option.shortForm.empty() ? option.longForm : option.shortForm;
}

}  // namespace Kelpkit::rules
