#include <kelpkit/CommandLine.h>

#include <algorithm>

#include "ascii_case.h"
#include "option_forms.h"
#include "refusals.h"
#include "standard_output.h"

namespace Kelpkit {

namespace {

bool isFlag(const std::string& token) {
    return !token.empty() && token.front() == '-';
}

/// Whether the token after an option may have been meant as its value.
bool isValue(const std::string& token, const std::vector<Kelp::Option>& options) {
    if (!isFlag(token)) {
        return !token.empty();
    }
    const std::size_t firstDigit = token.compare(0, 2, "-.") == 0 ? 2 : 1;
    return token.find_first_of("0123456789") == firstDigit && findOption(formOf(token), options) == options.size();
}

/// Returns the tokens after the program path, up to a null pointer.
std::vector<std::string> tokensOf(int argc, char** argv) {
    std::vector<std::string> tokens;
    for (int i = 1; i < argc && argv[i] != nullptr; ++i) {
        tokens.emplace_back(argv[i]);
    }
    return tokens;
}

}  // namespace

void detail::refuseLimits() {
    throw std::logic_error("no number lies within the limits of an option");
}

CommandLine::CommandLine(const Definition& definition, int argc, char** argv)
    : options(definition.options), toolName(definition.name) {
    checkForms(options);
    const std::vector<std::string> tokens = tokensOf(argc, argv);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (isFlag(tokens[i])) {
            addOption(tokens[i], i + 1 < tokens.size() ? tokens[i + 1] : "", definition);
        } else {
            positionals.push_back(tokens[i]);
        }
    }
    checkCount(positionals, definition);
}

/// \param next  the token after it; empty if there is none
void CommandLine::addOption(const std::string& token, const std::string& next, const Definition& definition) {
    const std::string form = formOf(token);
    const std::size_t position = findOption(form, options);
    if (position == options.size()) {
        refuseUnknown(token, definition);
    }
    const Kelp::Option& option = options[position];
    const bool hasValue = form.size() < token.size();
    if (hasValue && !option.marker) {
        refuseValueOfSwitch(token);
    }
    if (!hasValue && option.marker) {
        refuseWithoutValue(token, isValue(next, options) ? next : "VALUE");
    }
    if (const Given* const first = find(position)) {
        refuseSecond(option, first->token, token);
    }
    flags.push_back({position, token, hasValue ? token.substr(form.size() + 1) : std::string()});
}

std::size_t CommandLine::positionOf(std::string_view flag) const {
    const std::size_t position = findOption(flag, options);
    if (position == options.size()) {
        throw std::logic_error("the tool asks for the option " + std::string(flag) + ", which it does not define");
    }
    return position;
}

const CommandLine::Given* CommandLine::find(std::size_t option) const {
    const auto found =
        std::find_if(flags.begin(), flags.end(), [option](const Given& given) { return given.option == option; });
    return found == flags.end() ? nullptr : &*found;
}

const CommandLine::Given* CommandLine::findValue(std::string_view flag) const {
    const std::size_t position = positionOf(flag);
    if (!options[position].marker) {
        throw std::logic_error("the tool asks for the value of " + std::string(flag) + ", which takes none");
    }
    return find(position);
}

bool CommandLine::has(std::string_view flag) const {
    return find(positionOf(flag)) != nullptr;
}

const std::vector<std::string>& CommandLine::arguments() const {
    return positionals;
}

bool CommandLine::isVerbose() const {
    return std::any_of(flags.begin(), flags.end(), [this](const Given& given) {
        const Kelp::Option& option = options[given.option];
        return equalIgnoringCase(option.shortFlag, "-v") || equalIgnoringCase(option.longFlag, "--verbose");
    });
}

void CommandLine::print(const std::string& text) const {
    if (isVerbose()) {
        standardOutput() << text << "\n" << std::flush;
    }
}

void CommandLine::refuse(std::string_view flag, const std::string& reason) const {
    const Given* const given = find(positionOf(flag));
    if (given == nullptr) {
        throw UsageError(std::string(flag) + ": " + reason);
    }
    refuse(*given, reason);
}

void CommandLine::refuse(const Given& given, const std::string& reason) {
    throw UsageError(shortened(given.token) + ": " + reason);
}

const std::string& CommandLine::name() const {
    return toolName;
}

}  // namespace Kelpkit
