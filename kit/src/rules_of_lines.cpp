#include <algorithm>
#include <set>

#include "ascii_case.h"
#include "rules.h"
#include "shell_words.h"
#include "usage_line.h"

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

/// Returns whether the option exists and is written with a value exactly if it takes one. `option` is null if no option has this
/// name.
bool fits(const Option* option, bool hasValue) {
    return option != nullptr && option->takesValue.value_or(hasValue) == hasValue;
}

bool fits(const Tool& tool, const UsageLine::Option& shown) {
    const bool isBare = shown.value.takes == Takes::nothing;
    return shown.value.takes != Takes::unknown &&
           ((isBare && isAnswered(tool, shown.form)) || fits(findOption(tool, shown.form), !isBare));
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
        if (!fits(option, hasValue(word)) || !used.insert(option).second) {
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
    std::set<std::string> names;
    for (const Argument& argument : tool.arguments) {
        names.insert(argument.name);
    }
    const UsageLine usage = readUsage(tool.usage, names);
    for (const UsageLine::Option& option : usage.options) {
        if (!fits(tool, option)) {
            findings.push_back({Id::usageNames, option.form});
        }
    }
    for (const Argument& argument : tool.arguments) {
        if (usage.arguments.count(argument.name) == 0) {
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
