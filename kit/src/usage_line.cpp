#include "usage_line.h"

#include <string_view>
#include <utility>

namespace Kelpkit {

namespace {

constexpr std::string_view openings = "[({";
constexpr std::string_view closings = "])}";

bool contains(std::string_view characters, char character) {
    return characters.find(character) != std::string_view::npos;
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

/// Reads a usage line word by word.
class UsageReader {
public:
    explicit UsageReader(const std::set<std::string>& arguments) : known(arguments) {}

    void add(char character, char next) {
        if (!separates(character, next)) {
            if (closing == '\0') {
                closing = closingOf(character);
            } else if (closing == character) {
                closing = '\0';
            }
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
        between.append(contains(blanks, character) ? 0 : 1, character);
    }
    UsageLine take() {
        endWord();
        for (UsageLine::Option& option : line.options) {
            option.value = option.value.takes == Takes::text ? valueOf(option.value.name) : option.value;
        }
        while (!groups.empty()) {
            closeGroup();
        }
        int depth = 0;
        for (std::size_t i = 0; i < mentions.size(); ++i) {
            depth += depthChanges[i];
            UsageLine::Argument& argument = line.arguments[argumentOf(mentions[i].name)];
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

    /// Returns the end of the brackets or quotes that a character opens after "=", or NUL.
    char closingOf(char character) const {
        const bool isFirst = isFlag(word) && word.back() == '=';
        const std::size_t kind = isFirst ? valueOpenings.find(character) : std::string_view::npos;
        return kind == std::string_view::npos ? '\0' : valueClosings[kind];
    }
    /// Values may contain "," and "|", and anything in brackets and quotes.
    bool separates(char character, char next) const {
        if (closing != '\0' || closingOf(character) != '\0') {
            return false;
        }
        if (character == '|' || character == ',') {
            return !isInValue || (character == '|' && next == '-');
        }
        return contains(blanks, character) || contains(closings, character) ||
               (contains(openings, character) && (character != '[' || next != '='));
    }
    /// Returns the argument that a word names: NAME for NAME=TEXT.
    std::string argumentOf(const std::string& name) const {
        const std::string first = name.substr(0, name.find('='));
        return known.count(name) == 0 && known.count(first) != 0 ? first : name;
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
            between += word;
        } else if (!word.empty()) {
            addWord();
        }
        if (isRepeated && isAfterArgument) {
            mentions.back().isRepeated = true;  // also by "..." after a bracket
        }
        word.clear();
        isInValue = false;
    }
    void addOption() {
        const std::size_t equals = word.find('=');
        const bool isBare = equals == std::string::npos;
        const std::size_t end = isBare || word[equals - 1] != '[' ? equals : equals - 1;
        const std::string form = word.substr(0, end);
        const std::string value = isBare ? "" : word.substr(equals + 1);
        if (!isBare && !line.options.empty() && between == "|" &&
            line.options.back().form == form) {  // -m=fast|-m=exact
            line.options.back().value.name += '|' + value;
        } else {
            line.options.push_back({form, {isBare ? Takes::nothing : Takes::text, value, {}}});
        }
        between.clear();
        isAfterArgument = false;
    }
    /// Adds a word that is no option: the value of the option before it or an argument.
    void addWord() {
        std::string name = unwrapped(word);
        const bool isRepeated = removeRepetition(name);  // <FILE...>
        Value* const value = line.options.empty() ? nullptr : &line.options.back().value;
        if (value == nullptr || known.count(name) != 0 || between != (value->name.empty() ? "" : "|")) {
            mentions.push_back({std::move(name), isRepeated});
            isAfterArgument = true;
            between += word;
        } else if (value->name.empty()) {
            value->takes = Takes::unknown;
            between += word;
        } else {
            value->name += between + word;
            between.clear();
        }
    }

    const std::set<std::string>& known;
    UsageLine line;
    std::string word;
    std::string between;     ///< what follows the last option, without blanks
    char closing = '\0';     ///< the end of the brackets or quotes around the value
    bool isInValue = false;  ///< whether the word has "="
    std::vector<Group> groups{{0, false}};
    std::vector<Mention> mentions;            ///< of arguments
    std::map<std::size_t, int> depthChanges;  ///< of optional groups, before the mentions of these indices
    bool isAfterArgument = false;
};

}  // namespace

UsageLine readUsage(const std::string& usage, const std::set<std::string>& arguments) {
    UsageReader reader(arguments);
    for (std::size_t i = 0; i < usage.size(); ++i) {
        reader.add(usage[i], i + 1 < usage.size() ? usage[i + 1] : '\0');
    }
    return reader.take();
}

}  // namespace Kelpkit
