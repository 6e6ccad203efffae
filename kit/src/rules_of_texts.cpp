#include <algorithm>
#include <set>

#include "ascii_case.h"
#include "help.h"
#include "rules.h"

namespace Kelpkit::rules {

namespace {

constexpr std::size_t shortestName = 4;

/// Names that Windows gives to devices, with any extension.
constexpr std::string_view devices[] = {"con",  "prn",  "aux",  "nul",  "com1", "com2", "com3", "com4",
                                        "com5", "com6", "com7", "com8", "com9", "lpt1", "lpt2", "lpt3",
                                        "lpt4", "lpt5", "lpt6", "lpt7", "lpt8", "lpt9"};

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isFileName(std::string_view name) {
    const auto portable = [](char each) { return isWordCharacter(each) || each == '.' || each == '+'; };
    const bool isDevice = std::any_of(std::begin(devices), std::end(devices), [name](std::string_view device) {
        return equalIgnoringCase(name.substr(0, name.find('.')), device);
    });
    return !name.empty() && std::all_of(name.begin(), name.end(), portable) && name.front() != '-' &&
           name.front() != '.' && name.front() != '_' && name.front() != '+' && name.back() != '.' && !isDevice;
}

/// Checks a text that the help screen shows on one line.
void checkLine(const std::string& before, const std::string& text, const std::string& subject,
               std::vector<Finding>& findings) {
    if (!isPrintable(text)) {
        findings.push_back({Id::controlCharacter, subject});
    } else if (!text.empty() && lengthOf(before) + lengthOf(text) > screenWidth) {
        findings.push_back({Id::tooLong, subject});
    }
}

/// Checks the text of an option or argument.
void checkEntry(const std::string& before, const std::string& text, const std::string& subject,
                std::vector<Finding>& findings) {
    if (text.empty()) {
        findings.push_back({Id::emptyText, subject});
    }
    checkLine(before, text, subject, findings);
}

}  // namespace

bool isWordCharacter(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '-' || character == '_';
}

bool isArgumentName(std::string_view name) {
    return !name.empty() && isLetter(name.front()) && std::all_of(name.begin(), name.end(), isWordCharacter);
}

void checkArguments(const Tool& tool, std::vector<Finding>& findings) {
    std::set<std::string> names;
    for (const Argument& argument : tool.arguments) {
        if (!isArgumentName(argument.name)) {
            findings.push_back({Id::argumentName, argument.name});
        }
        if (!names.insert(argument.name).second) {
            findings.push_back({Id::nameTwice, argument.name});
        }
        if (argument.repeated && &argument != &tool.arguments.back()) {
            findings.push_back({Id::repeatedNotLast, argument.name});
        }
    }
}

void checkTexts(const Tool& tool, std::vector<Finding>& findings) {
    if (tool.description.empty()) {
        findings.push_back({Id::noDescription, ""});
    }
    checkLine("", tool.description, "description", findings);
    for (const Option& option : tool.options) {
        checkEntry("  " + option.shortForm + ", " + option.longForm + ": ", option.text, nameOf(option), findings);
    }
    for (const Argument& argument : tool.arguments) {
        checkEntry("  " + argument.name + ": ", argument.text, argument.name, findings);
    }
    if (tool.example.empty()) {
        findings.push_back({Id::noExample, ""});
    }
    checkLine("  " + tool.name + " ", tool.example, "example", findings);
    // A usage line may be as long as the options demand.
    if (!isPrintable(tool.usage)) {
        findings.push_back({Id::controlCharacter, "usage"});
    }
    checkLine("", tool.banner, "banner", findings);
    checkLine(tool.name + " ", tool.version, "version", findings);
}

void checkName(const Tool& tool, std::vector<Finding>& findings) {
    if (!isFileName(tool.name)) {
        findings.push_back({Id::fileName, tool.name});
    } else if (tool.name.size() < shortestName) {
        findings.push_back({Id::shortName, tool.name});
    }
}

}  // namespace Kelpkit::rules
