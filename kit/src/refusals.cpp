#include "refusals.h"

#include <algorithm>

#include "ascii_case.h"
#include "near_miss.h"
#include "option_forms.h"

namespace Kelpkit {

namespace {

constexpr std::size_t shortSize = 2;  ///< of a short form: a dash and a character

constexpr std::size_t longestTail = 3;  ///< of a character in UTF-8, the bytes after the first

bool isTail(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// Whether run() answers the form without an option.
bool isAnswered(const std::string& form, const Definition& definition) {
    return equalIgnoringCase(form, "-h") || equalIgnoringCase(form, "--help") ||
           (!definition.version.empty() && equalIgnoringCase(form, "--version"));
}

/// Returns the forms that run() accepts.
std::vector<std::string> formsOf(const Definition& definition) {
    std::vector<std::string> forms{"--help"};
    if (!definition.version.empty()) {
        forms.emplace_back("--version");
    }
    for (const Kelp::Option& option : definition.options) {
        forms.push_back(option.shortFlag);
        forms.push_back(option.longFlag);
    }
    return forms;
}

bool isRegistered(const std::string& form, const std::vector<Kelp::Option>& options) {
    return findOption(form, options) < options.size();
}

bool takesValueAt(const std::string& form, const std::vector<Kelp::Option>& options) {
    return isRegistered(form, options) && options[findOption(form, options)].marker;
}

/// Returns "-l -v" for "-lv"; an empty text unless these are switches, each once, the last perhaps an option with a value.
std::string apart(const std::string& token, const std::vector<Kelp::Option>& options) {
    const std::string form = formOf(token);
    const std::string letters = lowerCase(form);
    std::string flags;
    for (std::size_t i = 1; i < form.size(); ++i) {
        const std::string flag = {'-', form[i]};
        const bool hasValue = i + 1 == form.size() && form.size() < token.size();
        if (!isRegistered(flag, options) || takesValueAt(flag, options) != hasValue || letters.find(letters[i]) != i) {
            return {};
        }
        flags += (i > 1 ? " " : "") + flag;
    }
    return flags + token.substr(form.size());
}

/// Returns the form that was probably meant; an empty text if there is none.
std::string meantBy(const std::string& form, const Definition& definition) {
    const std::string near = nearMiss(form, formsOf(definition));
    return equalIgnoringCase(near, form) ? "" : near;
}

[[noreturn]] void refuseName(const std::string& form, const std::string& meant) {
    throw UsageError(shortened(form) + ": no such option" + (meant.empty() ? "" : "; did you mean " + meant + "?"));
}

/// Refuses a long form with one dash, several flags in one token, and a value without "=": "-number", "-lv", "-n3".
void refuseLongToken(const std::string& token, const Definition& definition) {
    const std::vector<Kelp::Option>& options = definition.options;
    const std::string form = formOf(token);
    if (isRegistered("-" + form, options)) {
        refuseName(form, "-" + form);
    }
    const std::string flags = apart(token, options);
    if (!flags.empty()) {
        throw UsageError(shortened(token) + ": one option at a time: " + shortened(flags));
    }
    const std::string flag = token.substr(0, shortSize);
    if (takesValueAt(flag, options) && (form == token || meantBy(form, definition).empty())) {
        refuseWithoutValue(flag, token.substr(shortSize));
    }
}

}  // namespace

std::string shortened(const std::string& token) {
    constexpr std::size_t longest = 100;
    if (token.size() <= longest) {
        return token;
    }
    std::size_t end = longest;
    while (end > longest - longestTail && isTail(token[end])) {
        --end;
    }
    return token.substr(0, end) + "...";
}

void refuseUnknown(const std::string& token, const Definition& definition) {
    const std::string form = formOf(token);
    if (token == "-") {
        throw UsageError("-: no such option; a file of this name is given as ./-");
    }
    if (token == "--") {
        throw UsageError("--: no such option; a name that begins with \"-\" is given as ./-NAME");
    }
    if (form.size() < token.size() && isAnswered(form, definition)) {
        refuseValueOfSwitch(token);
    }
    if (form != "-") {
        refuseLongToken(token, definition);
    }
    refuseName(form, meantBy(form, definition));
}

void refuseWithoutValue(const std::string& flag, const std::string& value) {
    throw UsageError(flag + " needs its value attached: " + flag + "=" + shortened(value));
}

void refuseValueOfSwitch(const std::string& token) {
    throw UsageError(shortened(token) + ": " + formOf(token) + " takes no value");
}

void refuseSecond(const Kelp::Option& option, const std::string& first, const std::string& second) {
    throw UsageError(option.shortFlag + " is given twice: " + shortened(first) + ", " + shortened(second));
}

void checkCount(const std::vector<std::string>& given, const Definition& definition) {
    const std::vector<Kelp::Argument>& arguments = definition.arguments;
    const std::size_t required = arguments.size() - std::min(definition.optionalArguments, arguments.size());
    if (given.size() < required) {
        throw UsageError(arguments[given.size()].name + " is missing");
    }
    if (arguments.empty() && !given.empty()) {
        throw UsageError("\"" + shortened(given.front()) + "\": no arguments are expected");
    }
    if (given.size() > arguments.size() && !arguments.back().repeated) {
        throw UsageError("\"" + shortened(given[arguments.size()]) + "\": one argument too many");
    }
}

}  // namespace Kelpkit
