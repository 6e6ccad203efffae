#include "mdoc_text.h"

#include <algorithm>
#include <string_view>

#include "roff_quoting.h"

namespace Kelpkit::programs {

namespace {

constexpr const char* nothing =
    "\\&";  // hides what is a macro, a request, punctuation or the end of a sentence without it
constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::string_view delimiters = ".,:;()[]?!|";
constexpr std::size_t maximumLine = 79;
constexpr std::size_t maximumSummary = 300;
// In columns. The text of an option has about 60 on a console of 80; there, two arguments of macros may follow each other.
constexpr std::size_t longestWord = 60;
constexpr std::size_t longestArgumentWord = 25;
constexpr std::size_t longestSummaryWord = 50;

bool isOneOf(std::string_view characters, char character) {
    return characters.find(character) != std::string_view::npos;
}

bool hasCapital(const std::string& word) {
    return word.front() >= 'A' && word.front() <= 'Z';
}

bool endsLikeSentence(const std::string& word) {
    const std::size_t last = word.find_last_not_of("\"')]");
    return last != std::string::npos && isOneOf(".!?", word[last]);
}

/// Whether the sentence ends with the word at a position, as it does with the last one.
bool endsSentence(const std::vector<std::string>& words, std::size_t position) {
    return position + 1 == words.size() || (endsLikeSentence(words[position]) && hasCapital(words[position + 1]));
}

std::string withoutFullStop(const std::string& word) {
    const bool hasFullStop = word.back() == '.' && (word.size() == 1 || word[word.size() - 2] != '.');
    return word.substr(0, word.size() - (hasFullStop ? 1 : 0));
}

/// Returns the words of the first sentence without its full stop.
std::vector<std::string> firstSentence(const std::vector<std::string>& words) {
    std::vector<std::string> sentence;
    for (std::size_t i = 0; i < words.size(); ++i) {
        sentence.push_back(words[i]);
        if (endsSentence(words, i)) {
            sentence.back() = withoutFullStop(words[i]);
            break;
        }
    }
    if (!sentence.empty() && sentence.back().empty()) {
        sentence.pop_back();
    }
    return sentence;
}

/// Returns what has to precede a text at the beginning of a line.
const char* before(const std::string& text) {
    return !text.empty() && text.front() == '.' ? nothing : "";
}

/// Whether mdoc takes an argument for punctuation, or may take it for a macro, such as Op, Bsx or %A.
bool isSpecial(const std::string& argument) {
    if (argument.size() == 1) {
        return isOneOf(delimiters, argument.front());
    }
    return argument.empty() || (argument.size() <= 3 && (hasCapital(argument) || argument.front() == '%'));
}

std::string macroWord(const std::string& word) {
    return (isSpecial(word) ? nothing : "") + roffWord(word, longestArgumentWord);
}

/// Returns what has to follow the last argument of a line: mandoc advises against punctuation there, and takes a character above
/// ASCII for some.
const char* after(const std::string& argument) {
    const char last = argument.empty() ? ' ' : argument.back();
    return isOneOf(delimiters, last) || static_cast<unsigned char>(last) > 0x7F ? nothing : "";
}

/// Makes lines of words, as long as they may be.
class Lines {
public:
    void add(const std::string& word) {
        const std::size_t wordLength = roffLength(word);
        if (length > 0 && length + 1 + wordLength > maximumLine) {
            end();
        }
        text += (length > 0 ? " " : "") + word;
        length += (length > 0 ? 1 : 0) + wordLength;
    }
    void end() {
        text += "\n";
        length = 0;
    }
    const std::string& all() const {
        return text;
    }

private:
    std::string text;
    std::size_t length = 0;  ///< of the last line
};

}  // namespace

std::vector<std::string> mdocWords(const std::string& text) {
    std::vector<std::string> words;
    for (std::size_t end = 0;;) {
        const std::size_t begin = text.find_first_not_of(whiteSpace, end);
        if (begin == std::string::npos) {
            return words;
        }
        end = std::min(text.find_first_of(whiteSpace, begin), text.size());
        words.push_back(text.substr(begin, end - begin));
    }
}

std::string mdocText(const std::string& text) {
    const std::vector<std::string> words = mdocWords(text);
    Lines lines;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isEnd = endsSentence(words, i);
        lines.add(before(words[i]) + roffWord(words[i], longestWord) +
                  (endsLikeSentence(words[i]) && !isEnd ? nothing : ""));
        if (isEnd) {
            lines.end();
        }
    }
    return lines.all();
}

std::string mdocLiteral(const std::string& text) {
    std::string lines;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = text.substr(begin, end - begin);
        std::replace_if(
            line.begin(), line.end(), [](char each) { return isOneOf(whiteSpace, each); }, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        lines += before(line) + roffText(line) + "\n";
        begin = end + 1;
    }
    return lines;
}

std::string mdocArgument(const std::string& text) {
    const std::vector<std::string> words = mdocWords(text);
    if (words.empty()) {
        return nothing;
    }
    std::string argument;
    for (const std::string& word : words) {
        argument += argument.empty() ? macroWord(word) : " " + roffWord(word, longestArgumentWord);
    }
    argument += text.size() > 1 ? after(argument) : "";
    return words.size() == 1 ? argument : "\"" + argument + "\"";
}

std::string mdocSummary(const std::string& text) {
    std::string line;
    for (const std::string& word : firstSentence(mdocWords(text))) {
        const std::string start = roffStart(word, longestSummaryWord);
        line += (line.empty() ? "" : " ") + std::string(isSpecial(word) ? nothing : "") + start;
        if (line.size() > maximumSummary || start != roffText(word)) {
            line += " ...";
            break;
        }
    }
    return line + after(line);
}

}  // namespace Kelpkit::programs
