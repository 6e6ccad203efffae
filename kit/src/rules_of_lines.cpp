#include <algorithm>
#include <set>

#include "ascii_case.h"
#include "rules.h"
#include "shell_words.h"

namespace Kelpkit::rules {

namespace {

bool isFlag(std::string_view word) {
    return !word.empty() && word[0] == '-';
}

std::string_view formOf(std::string_view flag) {
    return flag.substr(0, flag.find('='));
}

bool hasValue(std::string_view flag) {
    return flag.find('=') != std::string_view::npos;
}

/// Whether the tool answers a word with its help screen or its version, whatever else is on the command line.
bool isAnswered(const Tool& tool, std::string_view word) {
    constexpr std::string_view helpForms[] = {"-h", "--help", "/h", "/help", "/?"};
    constexpr std::string_view versionForm = "--version";
    if (std::any_of(std::begin(helpForms), std::end(helpForms),
                    [&](auto form) { return equalIgnoringCase(word, form); })) {
        return true;
    }
    const Option* const option = findOption(tool, versionForm);
    return !tool.version.empty() && !word.empty() &&
           (equalIgnoringCase(word, versionForm) || (option != nullptr && equalIgnoringCase(word, option->shortForm)));
}

/// Returns whether the option exists and the flag has a value exactly if the option takes one. `option` is null if no option has
/// this name.
bool fits(const Option* option, std::string_view flag) {
    return option != nullptr && option->takesValue.value_or(hasValue(flag)) == hasValue(flag);
}

/// Splits a usage line at blanks and brackets, and at "|" except in a value: "-m=fast|exact".
std::vector<std::string> usageWords(const std::string& usage) {
    std::vector<std::string> words(1);
    for (const char character : usage) {
        const bool separates = character == '|'
                                   ? !hasValue(words.back())
                                   : std::string_view(" \t[](){},").find(character) != std::string_view::npos;
        if (separates) {
            words.emplace_back();
        } else {
            words.back() += character;
        }
    }
    return words;
}

/// Whether a usage line contains a name, not only as a part of another one.
bool mentions(const std::string& usage, const std::string& name) {
    for (std::size_t at = usage.find(name); at != std::string::npos; at = usage.find(name, at + 1)) {
        const std::size_t end = at + name.size();
        if ((at == 0 || !isWordCharacter(usage[at - 1])) && (end == usage.size() || !isWordCharacter(usage[end]))) {
            return true;
        }
    }
    return false;
}

/// Returns a usage line without the options that have a value, which do not name arguments.
std::string withoutValues(const std::string& usage) {
    std::string rest;
    for (const std::string& word : usageWords(usage)) {
        rest += hasValue(word) ? " " : word + " ";
    }
    return rest;
}

std::string withoutDots(std::string word) {
    const std::size_t end = word.find("...");
    return end == std::string::npos ? word : word.substr(0, end);
}

/// Returns the first word of an example that the tool refuses, and collects the positional arguments before it.
const std::string* firstRefused(const Tool& tool, const std::vector<std::string>& words,
                                std::vector<std::string>& positionals) {
    std::set<const Option*> used;
    for (const std::string& word : words) {
        if (!isFlag(word)) {
            positionals.push_back(word);
            continue;
        }
        const Option* const option = findOption(tool, formOf(word));
        if (!fits(option, word) || !used.insert(option).second) {
            return &word;
        }
    }
    return nullptr;
}

void checkNumber(const Tool& tool, const std::vector<std::string>& positionals, std::vector<Finding>& findings) {
    const std::size_t known = tool.arguments.size();
    const std::size_t required = known - std::min(known, tool.optionalArguments);
    if (positionals.size() < required) {
        findings.push_back({Id::exampleRefused, tool.arguments[positionals.size()].name});
    } else if (positionals.size() > known && (known == 0 || !tool.arguments.back().repeated)) {
        findings.push_back({Id::exampleRefused, positionals[known]});
    }
}

}  // namespace

void checkUsage(const Tool& tool, std::vector<Finding>& findings) {
    if (tool.usage.empty()) {
        return;
    }
    for (const std::string& word : usageWords(tool.usage)) {
        const std::string flag = withoutDots(word);
        if (flag != "-" && isFlag(flag) && !isAnswered(tool, flag) && !fits(findOption(tool, formOf(flag)), flag)) {
            findings.push_back({Id::usageNames, flag});
        }
    }
    for (const Argument& argument : tool.arguments) {
        if (!mentions(withoutValues(tool.usage), argument.name)) {
            findings.push_back({Id::usageNames, argument.name});
        }
    }
}

void checkExample(const Tool& tool, std::vector<Finding>& findings) {
    if (tool.example.empty()) {
        return;
    }
    const std::vector<std::string> words = shellWords(tool.example);
    if (std::any_of(words.begin(), words.end(), [&](const std::string& word) { return isAnswered(tool, word); })) {
        return;
    }
    std::vector<std::string> positionals;
    const std::string* const refused = firstRefused(tool, words, positionals);
    if (refused != nullptr) {
        findings.push_back({Id::exampleRefused, *refused});
    } else {
        checkNumber(tool, positionals, findings);
    }
}

}  // namespace Kelpkit::rules
