#include "shell_words.h"

#include <algorithm>
#include <utility>

namespace Kelpkit {

namespace {

/// Collects the words of a line, character by character.
class Words {
public:
    void add(char character) {
        word += character;
        inWord = true;
    }
    void beginQuotes() {
        inWord = true;
    }
    void end() {
        if (inWord) {
            words.push_back(std::move(word));
        }
        word.clear();
        inWord = false;
    }
    /// Drops the number in front of a redirection.
    void dropNumber() {
        if (std::all_of(word.begin(), word.end(), [](char each) { return each >= '0' && each <= '9'; })) {
            inWord = false;
        }
    }
    bool isInWord() const {
        return inWord;
    }
    std::vector<std::string> take() {
        end();
        return std::move(words);
    }

private:
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
};

/// Adds a quoted text. Returns the position of its closing quote, or the end of the line.
std::size_t addQuoted(Words& words, std::string_view line, std::size_t opening) {
    const char quote = line[opening];
    words.beginQuotes();
    std::size_t i = opening + 1;
    for (; i < line.size() && line[i] != quote; ++i) {
        if (quote == '"' && line[i] == '\\' && i + 1 < line.size()) {
            ++i;
        }
        words.add(line[i]);
    }
    return i;
}

}  // namespace

std::vector<std::string> shellWords(std::string_view line) {
    Words words;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char character = line[i];
        if (character == '\'' || character == '"') {
            i = addQuoted(words, line, i);
        } else if (character == '\\' && i + 1 < line.size()) {
            words.add(line[++i]);
        } else if (character == ' ' || character == '\t') {
            words.end();
        } else if (character == '>' || character == '<') {
            words.dropNumber();
            break;
        } else if (character == '|' || character == ';' || character == '&' ||
                   (character == '#' && !words.isInWord())) {
            break;
        } else {
            words.add(character);
        }
    }
    return words.take();
}

}  // namespace Kelpkit
