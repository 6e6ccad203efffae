#include "described_tool.h"

#include <kelpkit/CommandLine.h>
#include <kelpkit/Files.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "ascii_case.h"
#include "shell_words.h"

namespace Kelpkit::programs {

namespace {

using Values = std::map<std::string, Value>;  ///< by the forms of options in lower case

constexpr std::array<std::pair<const char*, Takes>, 3> kinds{
    {{"text", Takes::text}, {"file", Takes::file}, {"folder", Takes::folder}}};

bool isInLowerCase(const std::string& word) {
    return std::all_of(word.begin(), word.end(), [](char each) { return each >= 'a' && each <= 'z'; });
}

/// Whether the pieces between "|" differ and none is empty.
bool hasDistinctPieces(const std::string& text) {
    std::set<std::string> pieces;
    std::istringstream stream(text + "|");
    for (std::string piece; std::getline(stream, piece, '|');) {
        if (piece.empty() || !pieces.insert(piece).second) {
            return false;
        }
    }
    return true;
}

/// Returns the value that a hint describes, or none if the text describes no value.
std::optional<Value> hintedValue(const std::string& text) {
    const std::size_t colon = text.rfind(':');
    const std::string word = colon == std::string::npos ? "-" : text.substr(colon + 1);
    const auto* const kind =
        std::find_if(kinds.begin(), kinds.end(), [&word](const auto& each) { return each.first == word; });
    const std::string name = kind == kinds.end() ? text : text.substr(0, colon);
    if ((kind == kinds.end() && isInLowerCase(word)) || !hasDistinctPieces(name)) {
        return std::nullopt;
    }
    return kind == kinds.end() ? valueOf(name) : Value{kind->second, name, {}};
}

bool isLetter(char character) {
    return character > ' ' && character < '\x7f' && character != '-' && character != '=';
}

Values valuesOf(const HelpScreen& screen, const std::vector<Hint>& hints) {
    Values values;
    for (const Hint& hint : hints) {
        const std::string form = lowerCase(std::string("-") + hint.letter);
        const auto hasForm = [&form](const HelpScreen::Option& each) { return lowerCase(each.shortForm) == form; };
        if (std::none_of(screen.options.begin(), screen.options.end(), hasForm)) {
            throw std::runtime_error("the hint " + std::string(1, hint.letter) + " fits no option of " + screen.name);
        }
        if (!values.emplace(form, hint.value).second) {
            throw std::runtime_error("two hints for " + form);
        }
    }
    return values;
}

/// Whether what one place says of an option counts more than what an earlier one says: a value more than a bare form.
bool saysMore(const Value& value, const Value& earlier) {
    return value.takes != Takes::nothing && (earlier.takes == Takes::nothing || earlier.takes == Takes::unknown);
}

void add(Values& values, const std::string& form, const Value& value) {
    const auto [place, isNew] = values.try_emplace(lowerCase(form), value);
    if (!isNew && saysMore(value, place->second)) {
        place->second = value;
    }
}

Values valuesIn(const UsageLine& usage) {
    Values values;
    for (const UsageLine::Option& option : usage.options) {
        add(values, option.form, option.value);
    }
    return values;
}

bool isNumber(const std::string& word) {
    return !word.empty() && word[0] >= '0' && word[0] <= '9' &&
           word.find_first_not_of("0123456789.") == std::string::npos;
}

/// Returns what an example shows. "-n 3" says nothing of -n.
Values valuesIn(const std::string& example) {
    Values values;
    const std::vector<std::string> words = shellWords(example);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isBare = words[i].find('=') == std::string::npos;
        const bool hasNumber = isBare && i + 1 < words.size() && isNumber(words[i + 1]);
        if (words[i].size() > 1 && words[i].front() == '-' && !hasNumber) {
            add(values, words[i].substr(0, words[i].find('=')), {isBare ? Takes::nothing : Takes::text, "", {}});
        }
    }
    return values;
}

/// Returns what some places say of an option, of which the first counts most.
const Value* find(const std::vector<Values>& places, const HelpScreen::Option& option) {
    const Value* value = nullptr;
    for (const Values& values : places) {
        for (const std::string& form : {lowerCase(option.shortForm), lowerCase(option.longForm)}) {
            const auto found = values.find(form);
            if (found != values.end() && (value == nullptr || saysMore(found->second, *value))) {
                value = &found->second;
            }
        }
    }
    return value;
}

bool isOutput(const HelpScreen::Option& option) {
    return lowerCase(option.shortForm) == "-o";
}

/// Returns what the library's rules say of an option.
Value ruledValue(const HelpScreen::Option& option) {
    const std::string shortForm = lowerCase(option.shortForm);
    const std::string longForm = lowerCase(option.longForm);
    if ((shortForm == "-h" && longForm == "--help") || (shortForm == "-v" && longForm == "--verbose")) {
        return {Takes::nothing, "", {}};
    }
    return {isOutput(option) ? Takes::text : Takes::unknown, "", {}};
}

DescribedOption described(const HelpScreen::Option& option, const Value& value) {
    return {option.shortForm, option.longForm, option.text, value.takes, value.name, value.choices};
}

/// Returns the value of an output option as a file, unless its name says something else.
Value asOutput(Value value) {
    if (value.takes == Takes::text) {
        value.takes = Takes::file;
        value.name = value.name.empty() ? "FILE" : value.name;
    }
    return value;
}

/// Returns what the screen and the library's rules say of an option.
Value shownValue(const HelpScreen::Option& option, const std::vector<Values>& places) {
    const Value* const shown = find(places, option);
    const bool isRuled = isOutput(option) && lowerCase(option.longForm).rfind("--out", 0) == 0;
    const bool isKnown =
        shown != nullptr && shown->takes != Takes::unknown && (shown->takes != Takes::nothing || !isRuled);
    const Value value = isKnown ? *shown : ruledValue(option);
    return isOutput(option) ? asOutput(value) : value;
}

}  // namespace

Hint readHint(const std::string& text) {
    const bool hasValue = text.size() > 2 && text[1] == '=';
    const std::optional<Value> value = hasValue ? hintedValue(text.substr(2)) : Value{Takes::nothing, "", {}};
    if (text.empty() || !isLetter(text.front()) || (text.size() > 1 && !hasValue) || !value ||
        printable(text) != text) {
        throw std::runtime_error("\"" + text +
                                 "\" is not a hint; write l, n=LINES, o=FILE:file, d=DIR:folder or m=fast|exact");
    }
    return {text.front(), *value};
}

DescribedTool describe(const HelpScreen& screen, const std::vector<Hint>& hints) {
    const std::vector<Values> hinted{valuesOf(screen, hints)};
    std::set<std::string> names;
    for (const HelpScreen::Argument& argument : screen.arguments) {
        names.insert(argument.name);
    }
    const UsageLine usage = readUsage(screen.usage, names);
    const std::vector<Values> shown{valuesIn(usage), valuesIn(screen.example)};
    DescribedTool tool{screen.name, screen.banner, screen.description, screen.usage, screen.example, {}, {}};
    for (const HelpScreen::Option& option : screen.options) {
        const Value* const hint = find(hinted, option);
        tool.options.push_back(described(option, hint == nullptr ? shownValue(option, shown) : *hint));
    }
    for (const HelpScreen::Argument& argument : screen.arguments) {
        const auto found = usage.arguments.find(argument.name);
        const bool isShown = found != usage.arguments.end();
        tool.arguments.push_back(
            {argument.name, argument.text, isShown && found->second.repeated, isShown && found->second.optional});
    }
    return tool;
}

}  // namespace Kelpkit::programs
