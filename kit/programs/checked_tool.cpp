#include "checked_tool.h"

#include <optional>
#include <set>
#include <stdexcept>
#include <string>

#include "ascii_case.h"

namespace Kelpkit::programs {

namespace {

std::optional<bool> takesValue(Takes takes) {
    return takes == Takes::unknown ? std::nullopt : std::optional(takes != Takes::nothing);
}

/// Returns the usage line that the library and the kit make of the arguments alone. The library's ends in a blank.
std::string usageWithoutOptions(const std::vector<DescribedArgument>& arguments) {
    std::string usage = "[OPTIONS]";
    for (const DescribedArgument& argument : arguments) {
        usage += " " + argument.name + (argument.repeated ? "..." : "");
    }
    return usage;
}

/// Returns how many of the last arguments are optional.
std::size_t optionalCount(const std::vector<DescribedArgument>& arguments) {
    std::size_t count = 0;
    while (count < arguments.size() && arguments[arguments.size() - 1 - count].optional) {
        ++count;
    }
    return count;
}

/// Returns what a definition says of an option; none if it is not known.
std::optional<bool> definedValue(const ObservedTool* observed, const std::string& shortForm) {
    if (observed == nullptr) {
        return std::nullopt;
    }
    const auto found = observed->takesValue.find(lowerCase(shortForm));
    return found == observed->takesValue.end() ? std::nullopt : std::optional(found->second);
}

void requireFitting(const std::vector<Hint>& hints, const ObservedTool* observed) {
    for (const Hint& hint : hints) {
        const std::string form = std::string("-") + hint.letter;
        const std::optional<bool> defined = definedValue(observed, form);
        if (defined && *defined != takesValue(hint.value.takes)) {
            throw std::runtime_error("the hint " + form.substr(1) + " does not fit " + form + ", " +
                                     (*defined ? "which takes a value" : "a switch"));
        }
    }
}

}  // namespace

rules::Tool checkedTool(const HelpScreen& screen, const std::vector<Hint>& hints, const ObservedTool* observed) {
    HelpScreen whole = screen;
    if (observed != nullptr) {
        whole.options = observed->options;
    }
    DescribedTool described = describe(whole, hints);
    requireFitting(hints, observed);
    rules::Tool tool{screen.name, screen.description, {}, {}, screen.example, screen.usage, screen.banner, "", 0};
    // A tool of the kit answers --version without showing it. Only a tool that hands its own command line to the library refuses it.
    tool.version = observed != nullptr && observed->ownsCommandLine ? "" : "?";
    std::set<std::string> letters;
    for (const DescribedOption& option : described.options) {
        const bool isDropped = !letters.insert(lowerCase(option.shortForm)).second;
        const bool isAnswered = !tool.version.empty() && equalIgnoringCase(option.longForm, "--version");
        std::optional<bool> value = takesValue(option.takes);
        if (!value && (isDropped || isAnswered)) {
            value = false;  // no finding that it is unknown
        } else if (value && !isDropped) {
            value = definedValue(observed, option.shortForm).value_or(*value);
        }
        tool.options.push_back({option.shortForm, option.longForm, option.text, value});
    }
    for (std::size_t i = 0; i < described.arguments.size(); ++i) {
        DescribedArgument& argument = described.arguments[i];
        argument.repeated = observed == nullptr ? argument.repeated : observed->arguments[i].repeated;
        tool.arguments.push_back({argument.name, argument.text, argument.repeated});
    }
    const std::string made = usageWithoutOptions(described.arguments);
    if (screen.usage == made || screen.usage == made + " ") {
        tool.usage.clear();
    }
    tool.optionalArguments = optionalCount(described.arguments);
    return tool;
}

}  // namespace Kelpkit::programs
