#include <algorithm>
#include <iterator>
#include <set>

#include "ascii_case.h"
#include "rules.h"
#include "usage_line.h"

namespace Kelpkit::rules {

namespace {

using Names = std::set<std::string>;

bool fits(const Tool& tool, const UsageLine::Option& shown) {
    const bool isBare = shown.value.takes == Takes::nothing;
    return shown.value.takes != Takes::unknown &&
           ((isBare && isAnswered(tool, shown.form)) || fits(findOption(tool, shown.form), !isBare));
}

/// Whether the line shows an argument as often as it can be given.
bool fits(const Tool& tool, const UsageLine::Argument& shown, const Argument& argument) {
    constexpr std::string_view groupEnds[] = {"]...", ")...", "}..."};
    const auto repeats = [&](std::string_view end) { return tool.usage.find(end) != std::string::npos; };
    return shown.repeated == argument.repeated ||
           (argument.repeated && std::any_of(std::begin(groupEnds), std::end(groupEnds), repeats));
}

/// Whether the line has alternatives outside "[" and "]". They may leave out arguments that are required otherwise.
bool hasAlternatives(const std::string& usage) {
    int depth = 0;
    for (const char character : usage) {
        depth += static_cast<int>(character == '[') - static_cast<int>(character == ']');
        if (character == '|' && depth == 0) {
            return true;
        }
    }
    return usage.find(" or ") != std::string::npos;
}

/// Returns how many of the last arguments the line shows as optional.
std::size_t optionalCount(const Tool& tool, const UsageLine& usage) {
    const auto required = std::find_if(tool.arguments.rbegin(), tool.arguments.rend(), [&](const Argument& argument) {
        const auto shown = usage.arguments.find(argument.name);
        return shown == usage.arguments.end() || !shown->second.optional;
    });
    return static_cast<std::size_t>(required - tool.arguments.rbegin());
}

/// Whether the word beside a word is another name for the same, as in "FILE|URL" and "FILE or URL".
bool isAlternative(const std::string& usage, const std::string& word) {
    std::string text;
    std::copy_if(usage.begin(), usage.end(), std::back_inserter(text),
                 [](char each) { return isWordCharacter(each) || each == '|'; });
    const auto has = [&text](const std::string& words) { return text.find(words) != std::string::npos; };
    return has("|" + word) || has(word + "|") || has("or" + word) || has(word + "or");
}

/// Whether a word is written like the name of an argument, as LINES or <lines>, but is not one.
bool isOtherName(const std::string& usage, const std::string& word) {
    const bool isLower = std::any_of(word.begin(), word.end(), [](char each) { return each >= 'a' && each <= 'z'; });
    const bool isOptions = equalIgnoringCase(word, "options") || equalIgnoringCase(word, "option");
    return isArgumentName(word) && (!isLower || usage.find("<" + word + ">") != std::string::npos) && !isOptions &&
           !isAlternative(usage, word);
}

bool beginsWithName(const Tool& tool, const Names& arguments) {
    return tool.usage.substr(0, tool.usage.find(' ')) == tool.name && arguments.count(tool.name) == 0;
}

void checkOptionsOf(const Tool& tool, const UsageLine& usage, std::vector<Finding>& findings) {
    for (const UsageLine::Option& option : usage.options) {
        if (!fits(tool, option)) {
            findings.push_back({Id::usageNames, option.form});
        }
    }
}

void checkArgumentsOf(const Tool& tool, const UsageLine& usage, std::vector<Finding>& findings) {
    const std::size_t count = tool.arguments.size();
    const std::size_t defined = std::min(tool.optionalArguments, count);
    const std::size_t shownAsOptional = hasAlternatives(tool.usage) ? defined : optionalCount(tool, usage);
    for (std::size_t i = 0; i < count; ++i) {
        const Argument& argument = tool.arguments[i];
        const auto shown = usage.arguments.find(argument.name);
        if (shown == usage.arguments.end() || !fits(tool, shown->second, argument) ||
            (i + defined >= count) != (i + shownAsOptional >= count)) {
            findings.push_back({Id::usageNames, argument.name});
        }
    }
}

/// Checks the words that are neither options nor arguments. What follows an option that does not fit may be its value.
void checkOthers(const Tool& tool, const UsageLine& usage, const Names& arguments, std::vector<Finding>& findings) {
    if (beginsWithName(tool, arguments)) {
        findings.push_back({Id::usageNames, tool.name});
    }
    const bool isCertain = std::all_of(usage.options.begin(), usage.options.end(),
                                       [&](const UsageLine::Option& option) { return fits(tool, option); });
    for (const auto& [word, shown] : usage.arguments) {
        if (isCertain && arguments.count(word) == 0 && word != tool.name && isOtherName(tool.usage, word)) {
            findings.push_back({Id::usageNames, word});
        }
    }
}

}  // namespace

void checkUsage(const Tool& tool, std::vector<Finding>& findings) {
    if (tool.usage.empty()) {
        return;
    }
    Names names;
    for (const Argument& argument : tool.arguments) {
        names.insert(argument.name);
    }
    const UsageLine usage = readUsage(tool.usage, names);
    checkOptionsOf(tool, usage, findings);
    checkArgumentsOf(tool, usage, findings);
    checkOthers(tool, usage, names, findings);
}

}  // namespace Kelpkit::rules
