#include "usage_line.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "ascii_case.h"

namespace Kelpkit {

namespace {

constexpr std::array<std::pair<const char*, Takes>, 5> kinds{{{"file", Takes::file},
                                                              {"path", Takes::file},
                                                              {"folder", Takes::folder},
                                                              {"directory", Takes::folder},
                                                              {"dir", Takes::folder}}};
constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view openings = "[({";
constexpr std::string_view closings = "])}";

bool contains(std::string_view characters, char character) {
    return characters.find(character) != std::string_view::npos;
}

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
    return word.size() > 1 && word.front() == '-' && word != "--";
}

/// Removes "..." from the end of a word. Returns whether it was there.
bool removeRepetition(std::string& word) {
    const bool isRepeated = word.size() > 2 && word.compare(word.size() - 3, 3, "...") == 0;
    word.resize(word.size() - (isRepeated ? 3 : 0));
    return isRepeated;
}

std::string withoutAngles(const std::string& text) {
    return text.size() > 2 && text.front() == '<' && text.back() == '>' ? text.substr(1, text.size() - 2) : text;
}

/// Reads a usage line word by word.
class UsageReader {
public:
    explicit UsageReader(const std::set<std::string>& arguments) : known(arguments) {}

    void add(char character, char next) {
        if (!separates(character, next)) {
            word += character;
            isInValue = isInValue || character == '=';
            return;
        }
        const bool endsValue = character == ']' && word.find("[=") != std::string::npos;  // -n[=LINES]
        const bool joinsOptions = isFlag(word) && next == '-';                            // -n|-q
        endWord();
        if (contains(openings, character)) {
            groups.push_back({mentions.size(), character == '['});
        } else if (contains(closings, character) && !endsValue && groups.size() > 1) {
            closeGroup();
        } else if (character == '|' && !joinsOptions) {
            groups.back().isOptional = true;
        }
        mayBeValue = mayBeValue && contains(blanks, character);
    }
    UsageLine take() {
        endWord();
        while (!groups.empty()) {
            closeGroup();
        }
        int depth = 0;
        for (std::size_t i = 0; i < mentions.size(); ++i) {
            depth += depthChanges[i];
            UsageLine::Argument& argument = line.arguments[mentions[i].name];
            argument.optional = argument.optional && depth > 0;
            argument.repeated = argument.repeated || mentions[i].isRepeated;
        }
        return std::move(line);
    }

private:
    struct Mention {
        std::string name;
        bool isRepeated;
    };
    struct Group {          ///< what is between brackets, or the whole line
        std::size_t first;  ///< of its mentions
        bool isOptional;
    };

    /// Values may contain "," and "|".
    bool separates(char character, char next) const {
        if (character == '|' || character == ',') {
            return !isInValue || (character == '|' && next == '-');
        }
        return contains(blanks, character) || contains(closings, character) ||
               (contains(openings, character) && (character != '[' || next != '='));
    }
    void closeGroup() {
        if (groups.back().isOptional) {
            ++depthChanges[groups.back().first];
            --depthChanges[mentions.size()];
        }
        groups.pop_back();
    }
    void endWord() {
        const bool isRepeated = removeRepetition(word);
        if (isFlag(word)) {
            addOption();
        } else if (word == "or") {
            groups.back().isOptional = true;
        } else if (!word.empty()) {
            addArgument();
        }
        if (isRepeated && isAfterArgument) {
            mentions.back().isRepeated = true;  // also by "..." after a bracket
        }
        mayBeValue = mayBeValue && (word.empty() || isFlag(word));
        word.clear();
        isInValue = false;
    }
    void addOption() {
        const std::size_t equals = word.find('=');
        const bool isBare = equals == std::string::npos;
        const std::size_t end = isBare || word[equals - 1] != '[' ? equals : equals - 1;
        line.options.push_back(
            {word.substr(0, end), isBare ? Value{Takes::nothing, "", {}} : valueOf(word.substr(equals + 1))});
        mayBeValue = isBare;
        isAfterArgument = false;
    }
    void addArgument() {
        std::string name = withoutAngles(word);
        const bool isRepeated = removeRepetition(name);  // <FILE...>
        if (mayBeValue && known.count(name) == 0 && (name != word || isInUpperCase(name))) {
            line.options.back().value.takes = Takes::unknown;
        }
        mentions.push_back({std::move(name), isRepeated});
        isAfterArgument = true;
    }

    const std::set<std::string>& known;
    UsageLine line;
    std::string word;
    bool isInValue = false;  ///< whether the word has "="
    std::vector<Group> groups{{0, false}};
    std::vector<Mention> mentions;            ///< of arguments
    std::map<std::size_t, int> depthChanges;  ///< of optional groups, before the mentions of these indices
    bool mayBeValue = false;                  ///< whether a bare option and blanks precede
    bool isAfterArgument = false;
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

UsageLine readUsage(const std::string& usage, const std::set<std::string>& arguments) {
    UsageReader reader(arguments);
    for (std::size_t i = 0; i < usage.size(); ++i) {
        reader.add(usage[i], i + 1 < usage.size() ? usage[i + 1] : '\0');
    }
    return reader.take();
}

}  // namespace Kelpkit
