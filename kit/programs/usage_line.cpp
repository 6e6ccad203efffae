#include "usage_line.h"

#include <kelpkit/CommandLine.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "ascii_case.h"

namespace Kelpkit::programs {

namespace {

constexpr std::array<std::pair<const char*, Takes>, 5> kinds{{{"file", Takes::file},
                                                              {"path", Takes::file},
                                                              {"folder", Takes::folder},
                                                              {"directory", Takes::folder},
                                                              {"dir", Takes::folder}}};
constexpr std::string_view repetition = "...";
constexpr std::string_view separators = " \t\r\n[](){}";

Takes kindOf(const std::string& name) {
    for (const auto& [word, kind] : kinds) {
        if (equalIgnoringCase(name, word)) {
            return kind;
        }
    }
    return Takes::text;
}

/// Returns the pieces of a text between "|", without empty ones.
std::vector<std::string> alternatives(const std::string& text) {
    std::vector<std::string> pieces(1);
    for (const char character : text + "|") {
        if (character != '|') {
            pieces.back() += character;
        } else if (!pieces.back().empty()) {
            pieces.emplace_back();
        }
    }
    pieces.pop_back();
    return pieces;
}

/// Whether a text is written like the name of a value, as in LINES.
bool isInUpperCase(const std::string& text) {
    const auto isUpper = [](char each) { return each >= 'A' && each <= 'Z'; };
    return std::any_of(text.begin(), text.end(), isUpper) &&
           std::none_of(text.begin(), text.end(), [](char each) { return each >= 'a' && each <= 'z'; });
}

bool isFlag(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::string withoutAngles(const std::string& text) {
    const bool has = text.size() > 2 && text.front() == '<' && text.back() == '>';
    return has ? text.substr(1, text.size() - 2) : text;
}

/// Reads a usage line word by word.
class UsageReader {
public:
    void add(char character, char next) {
        if (!separates(character, next)) {
            word += character;
            return;
        }
        const bool endsValue = character == ']' && endsOptionalValue();
        endWord();
        if (character == '[') {
            ++depth;
        } else if (character == ']' && !endsValue && depth > 0) {
            --depth;
        }
    }
    UsageLine take() {
        endWord();
        return std::move(line);
    }

private:
    bool isInValue() const {
        return word.find('=') != std::string::npos;
    }
    /// Whether the word is the beginning of -n[=LINES].
    bool endsOptionalValue() const {
        return word.find("[=") != std::string::npos;
    }
    /// Values may contain "," and "|".
    bool separates(char character, char next) const {
        if (character == '|') {
            return !isInValue() || next == '-';
        }
        if (character == '[' && next == '=') {
            return false;  // -n[=LINES]
        }
        return character == ',' ? !isInValue() : separators.find(character) != std::string_view::npos;
    }
    void endWord() {
        const bool repeated = endsWith(word, repetition);
        word.resize(word.size() - (repeated ? repetition.size() : 0));
        if (isFlag(word)) {
            addOption();
        } else if (!word.empty()) {
            lastArgument = &line.arguments[word];
            lastArgument->optional = lastArgument->optional && depth > 0;
        }
        if (repeated && lastArgument != nullptr) {
            lastArgument->repeated = true;  // also by "..." after a bracket
        }
        word.clear();
    }
    void addOption() {
        const std::size_t equals = word.find('=');
        std::string form = word.substr(0, equals);
        if (form.back() == '[') {
            form.pop_back();
        }
        line.options.try_emplace(lowerCase(form), equals == std::string::npos ? Value{Takes::nothing, "", {}}
                                                                              : valueOf(word.substr(equals + 1)));
        lastArgument = nullptr;
    }

    UsageLine line;
    std::string word;
    std::size_t depth = 0;
    UsageLine::Argument* lastArgument = nullptr;
};

}  // namespace

Value valueOf(const std::string& text) {
    const std::vector<std::string> pieces = alternatives(text);
    if (pieces.size() > 1 && !std::all_of(pieces.begin(), pieces.end(), isInUpperCase)) {
        return {Takes::choice, "", pieces};
    }
    const std::string name = withoutAngles(text);
    return {kindOf(name), name, {}};
}

UsageLine readUsage(const std::string& usage) {
    UsageReader reader;
    for (std::size_t i = 0; i < usage.size(); ++i) {
        reader.add(usage[i], i + 1 < usage.size() ? usage[i + 1] : '\0');
    }
    return reader.take();
}

}  // namespace Kelpkit::programs
