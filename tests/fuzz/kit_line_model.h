#ifndef KELPLIB_TESTS_FUZZ_KIT_LINE_MODEL_H
#define KELPLIB_TESTS_FUZZ_KIT_LINE_MODEL_H

#include <kelpkit/CommandLine.h>
#include <algorithm>

#include <cerrno>
#include <climits>
#include <cmath>
#include <map>
#include <set>

#include "number_model.h"
#include "paths_model.h"
#include "plain_lower.h"
#include "utf16_model.h"

/// A plain model of "strict": what the kit accepts, and why it refuses the rest.
namespace kit_line_model {

using Strings = std::vector<std::string>;

// The options of the model's tool. A letter belongs to one option, so the bare library finds the same tokens.

struct Form {
    const char* text;
    char option;
};

inline const std::vector<Form>& forms() {
    static const std::vector<Form> all{{"-n", 'n'}, {"--number", 'n'}, {"-t", 't'}, {"--text", 't'},
                                       {"-l", 'l'}, {"--loud", 'l'},   {"-q", 'q'}, {"--quick", 'q'}};
    return all;
}

inline bool takesValue(char option) {
    return option == 'n' || option == 't';
}

/// Returns the option's letter; 0 if the text is no form.
inline char optionOf(const std::string& text) {
    for (const Form& form : forms()) {
        if (plainLower(text) == form.text) {
            return form.option;
        }
    }
    return 0;
}

inline std::string formOf(const std::string& token) {
    return token.substr(0, token.find('='));
}

/// How many arguments the tool takes.
struct Counts {
    std::size_t defined;
    std::size_t optional;
    bool repeated;
};

/// Returns a token as messages show it: at most 100 bytes, and then as many whole characters as fit.
inline std::string shown(const std::string& token) {
    if (token.size() <= 100) {
        return token;
    }
    std::size_t size = 100;
    for (int i = 0; i < 3 && static_cast<unsigned char>(token[size]) / 64 == 2; ++i) {
        --size;
    }
    return token.substr(0, size) + "...";
}

/// The reasons to refuse a token: whole messages, any of which may be printed.
using Reasons = Strings;

inline Reasons unknownName(const std::string& form) {
    const std::string reason = shown(form) + ": no such option";
    if (plainLower(form) == "--help") {
        return {reason};
    }
    Reasons reasons{reason, reason + "; did you mean --help?"};
    for (const Form& near : forms()) {
        reasons.push_back(reason + "; did you mean " + near.text + "?");
    }
    return reasons;
}

/// Returns "-l -q" for "-lq", and for "-ln=3" "-l -n=3"; an empty text if the letters are not such options, or not all different.
inline std::string separated(const std::string& token) {
    const std::string form = formOf(token);
    const bool hasValue = form.size() < token.size();
    std::string result;
    std::set<char> seen;
    for (std::size_t i = 1; i < form.size(); ++i) {
        const std::string flag = std::string("-") + form[i];
        const bool isLast = i + 1 == form.size();
        const char option = optionOf(flag);
        if (option == 0 || takesValue(option) != (isLast && hasValue) || !seen.insert(option).second) {
            return "";
        }
        result += flag + (isLast ? token.substr(form.size()) : " ");
    }
    return result;
}

inline Reasons unknown(const std::string& token) {
    const std::string form = formOf(token);
    if (token == "-") {
        return {"-: no such option; a file of this name is given as ./-"};
    }
    if (token == "--") {
        return {"--: no such option; a name that begins with \"-\" is given as ./-NAME"};
    }
    if (form != token && (plainLower(form) == "--help" || plainLower(form) == "-h")) {
        return {shown(token) + ": " + form + " takes no value"};
    }
    if (form.size() < 3 || form[1] == '-') {
        return unknownName(form);
    }
    if (optionOf("-" + form) != 0) {
        return {form + ": no such option; did you mean -" + form + "?"};
    }
    if (!separated(token).empty()) {
        return {shown(token) + ": one option at a time: " + shown(separated(token))};
    }
    const std::string flag = token.substr(0, 2);
    if (!takesValue(optionOf(flag))) {
        return unknownName(form);
    }
    Reasons reasons{flag + " needs its value attached: " + flag + "=" + shown(token.substr(2))};
    if (form != token) {
        // Unless the name is near another.
        const Reasons names = unknownName(form);
        reasons.insert(reasons.end(), names.begin() + 1, names.end());
    }
    return reasons;
}

/// Whether a text begins with a dash, perhaps a point, and a digit. No option of the tool does.
inline bool beginsLikeNegative(const std::string& text) {
    const std::size_t place = text.size() > 1 && text[1] == '.' ? 2 : 1;
    return text.size() > place && text[0] == '-' && text[place] >= '0' && text[place] <= '9';
}

inline Reasons missingValue(const std::string& token, const std::string& next) {
    const bool isValue = !next.empty() && (next[0] != '-' || beginsLikeNegative(next));
    return {token + " needs its value attached: " + token + "=" + (isValue ? shown(next) : "VALUE")};
}

/// An accepted command line: the tokens of its options by letter, and its arguments.
struct Line {
    std::map<char, std::string> options;
    Strings arguments;
};

/// Reads a token that begins with "-". Returns why it is refused; nothing if it is accepted.
inline Reasons addOption(Line& line, const std::string& token, const std::string& next) {
    const char option = optionOf(formOf(token));
    const bool hasValue = token.find('=') != std::string::npos;
    if (option == 0) {
        return unknown(token);
    }
    if (hasValue && !takesValue(option)) {
        return {shown(token) + ": " + formOf(token) + " takes no value"};
    }
    if (!hasValue && takesValue(option)) {
        return missingValue(token, next);
    }
    const auto [first, isNew] = line.options.emplace(option, token);
    if (!isNew) {
        return {std::string("-") + option + " is given twice: " + shown(first->second) + ", " + shown(token)};
    }
    return {};
}

inline Reasons wrongCount(const Strings& arguments, const Counts& counts) {
    const std::size_t required = counts.defined > counts.optional ? counts.defined - counts.optional : 0;
    if (arguments.size() < required) {
        return {"ARGUMENT" + std::to_string(arguments.size()) + " is missing"};
    }
    if (arguments.size() <= counts.defined || (counts.defined > 0 && counts.repeated)) {
        return {};
    }
    return {"\"" + shown(arguments[counts.defined]) +
            "\": " + (counts.defined == 0 ? "no arguments are expected" : "one argument too many")};
}

/// Reads the tokens after the program path. Returns why they are refused; nothing if they are accepted.
inline Reasons read(Line& line, const Strings& tokens, const Counts& counts) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].empty() || tokens[i][0] != '-') {
            line.arguments.push_back(tokens[i]);
            continue;
        }
        Reasons reasons = addOption(line, tokens[i], i + 1 < tokens.size() ? tokens[i + 1] : "");
        if (!reasons.empty()) {
            return reasons;
        }
    }
    return wrongCount(line.arguments, counts);
}

// Texts of each type, under the classic locale.

/// Returns the pieces between separators, with the empty ones.
inline Strings pieces(const std::string& text, char separator) {
    Strings all{""};
    for (const char c : text) {
        if (c == separator) {
            all.emplace_back();
        } else {
            all.back() += c;
        }
    }
    return all;
}

inline bool isWholeForm(const std::string& text, bool isSigned) {
    std::size_t i = !text.empty() && (text[0] == '+' || (isSigned && text[0] == '-')) ? 1 : 0;
    const std::size_t begin = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
        ++i;
    }
    return i > begin && i == text.size();
}

/// Reads a whole number with the C library.
template <class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
std::optional<T> number(const std::string& text) {
    if (!isWholeForm(text, std::is_signed_v<T>)) {
        return std::nullopt;
    }
    errno = 0;
    if constexpr (std::is_signed_v<T>) {
        const long long value = std::strtoll(text.c_str(), nullptr, 10);
        const bool fits = value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
        return errno == 0 && fits ? std::optional<T>(static_cast<T>(value)) : std::nullopt;
    } else {
        const unsigned long long value = std::strtoull(text.c_str(), nullptr, 10);
        return errno == 0 && value <= std::numeric_limits<T>::max() ? std::optional<T>(static_cast<T>(value))
                                                                    : std::nullopt;
    }
}

/// Reads a real number with the C library. A model only if number_model::exactCLibrary is true.
template <class T, std::enable_if_t<std::is_floating_point_v<T>, int> = 0>
std::optional<T> number(const std::string& text) {
    if (text.empty() || number_model::realPart(text) != text) {
        return std::nullopt;
    }
    // A long double has the precision of a double. (valgrind 3.19 does not see that an infinite one is infinite.)
    std::conditional_t<std::is_same_v<T, float>, float, double> value = 0;
    if constexpr (std::is_same_v<T, float>) {
        value = std::strtof(text.c_str(), nullptr);
    } else {
        value = std::strtod(text.c_str(), nullptr);
    }
    return std::isinf(value) ? std::nullopt : std::optional<T>(value);
}

template <class T>
bool isNumber(const std::string& text) {
    return number<T>(text).has_value();
}

template <class T>
bool areNumbers(const std::string& text, char separator) {
    const Strings all = pieces(text, separator);
    return std::all_of(all.begin(), all.end(), isNumber<T>);
}

template <class T>
bool isRange(const std::string& text) {
    const Strings ends = pieces(text, ':');
    return ends.size() == 2 && areNumbers<T>(text, ':') && *number<T>(ends[0]) <= *number<T>(ends[1]);
}

inline bool isTriple(const std::string& text) {
    return pieces(text, ':').size() == 3 && areNumbers<unsigned int>(text, ':');
}

inline bool isLabelled(const std::string& text) {
    const Strings parts = pieces(text, ':');
    return parts.size() == 2 && !parts[0].empty() && isNumber<double>(parts[1]);
}

inline bool areTexts(const std::string& text) {
    const Strings all = pieces(text, ',');
    return std::none_of(all.begin(), all.end(), [](const std::string& piece) { return piece.empty(); });
}

inline bool isCharacter(const std::string& text) {
    return text.size() == 1 && static_cast<unsigned char>(text[0]) < 0x80;
}

inline bool isAny(const std::string& /*text*/) {
    return true;
}

inline bool isPath(const std::string& text) {
    return !text.empty() && utf16_model::nativePath(text).has_value();
}

/// Returns "yes", "no", or nothing.
inline std::string truth(const std::string& text) {
    const std::string word = plainLower(text);
    if (word == "yes" || word == "on" || word == "true" || word == "1") {
        return "yes";
    }
    return word == "no" || word == "off" || word == "false" || word == "0" ? "no" : "";
}

constexpr bool onWindows = std::filesystem::path::preferred_separator == '\\';

/// Returns the name completed with the current directory, also if it is a single character. Only Windows uses the fake one.
inline std::string outputName(const std::string& text, const std::string& directory) {
    if (!onWindows) {
        return text.front() == '/' ? text : (std::filesystem::current_path() / "").string() + text;
    }
    const paths_model::Model model = paths_model::modelOf(text, directory);
    return model.folder + model.name;
}

inline bool isOutputFile(const std::string& text, const std::string& directory) {
    if (!isPath(text) || text.back() == '/' || (onWindows && text.back() == '\\')) {
        return false;
    }
    if (onWindows && text.size() > 1 && text[1] == ':' && text.find('/') == std::string::npos &&
        text.find('\\') == std::string::npos) {
        return false;
    }

    std::error_code ignored;
    return !std::filesystem::is_directory(std::filesystem::path(*utf16_model::nativePath(outputName(text, directory))),
                                          ignored);
}

}  // namespace kit_line_model

#endif
