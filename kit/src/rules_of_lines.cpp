#include <algorithm>
#include <optional>
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

/// Returns the argument that is missing, or the first positional one too many.
std::optional<std::string> miscounted(const Tool& tool, const std::vector<std::string>& positionals) {
    const std::size_t known = tool.arguments.size();
    const std::size_t required = known - std::min(known, tool.optionalArguments);
    if (positionals.size() < required) {
        return tool.arguments[positionals.size()].name;
    }
    const bool hasMore = positionals.size() > known && (known == 0 || !tool.arguments.back().repeated);
    return hasMore ? std::optional(positionals[known]) : std::nullopt;
}

/// Returns what a tool of the kit misses in a command line, or refuses of it.
std::optional<std::string> problemOf(const Tool& tool, const std::vector<std::string>& words) {
    if (std::any_of(words.begin(), words.end(), [&](const std::string& word) { return isAnswered(tool, word); })) {
        return std::nullopt;
    }
    std::vector<std::string> positionals;
    const std::string* const refused = firstRefused(tool, words, positionals);
    return refused == nullptr ? miscounted(tool, positionals) : *refused;
}

/// Whether the first word is the tool's name, which the help screen adds, and not an argument.
bool beginsWithName(const Tool& tool, const std::vector<std::string>& words) {
    return !words.empty() && words.front() == tool.name && !problemOf(tool, {words.begin() + 1, words.end()});
}

}  // namespace

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

bool fits(const Option* option, bool hasValue) {
    return option != nullptr && option->takesValue.value_or(hasValue) == hasValue;
}

void checkExample(const Tool& tool, std::vector<Finding>& findings) {
    const std::vector<std::string> words = shellWords(tool.example);
    const std::optional<std::string> problem = beginsWithName(tool, words) ? tool.name : problemOf(tool, words);
    if (problem && !tool.example.empty()) {
        findings.push_back({Id::exampleRefused, *problem});
    }
}

}  // namespace Kelpkit::rules
