#ifndef KELPLIB_TESTS_FUZZ_DOCUMENTS_MODEL_H
#define KELPLIB_TESTS_FUZZ_DOCUMENTS_MODEL_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"

/// Readers of the documents that kelp-doc writes, as strict as needed: what they do not know, they refuse.
namespace documents_model {

using Strings = std::vector<std::string>;

inline Strings linesOf(const std::string& text) {
    Strings lines(1);
    for (const char character : text) {
        if (character == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += character;
        }
    }
    return lines;
}

/// Reads JSON of objects, arrays, strings, truth values and whole numbers, and keeps the strings that are not names of members.
class JsonReader {
public:
    explicit JsonReader(std::string_view text) : text(text) {}

    Strings read() {
        do {
            if (wantsValue) {
                value();
            } else {
                next();
            }
        } while (wantsValue || !open.empty());
        blanks();
        require(position == text.size());
        return strings;
    }

private:
    char current() const {
        return position < text.size() ? text[position] : '\0';
    }
    void require(bool condition) const {
        if (!condition) {
            fuzz::fail("no JSON at " + fuzz::described(text.substr(position)) + "\nof " + fuzz::described(text));
        }
    }
    void blanks() {
        while (current() == ' ' || current() == '\n') {
            ++position;
        }
    }
    bool skip(std::string_view part) {
        blanks();
        const bool isHere = text.substr(position, part.size()) == part;
        position += isHere ? part.size() : 0;
        return isHere;
    }
    /// Reads a value or, of an object or array, its beginning.
    void value() {
        if (!open.empty() && open.back() == '}') {
            string();
            require(skip(":"));
        }
        blanks();
        wantsValue = false;
        if (current() == '"') {
            strings.push_back(string());
        } else if (skip("{")) {
            begin('}');
        } else if (skip("[")) {
            begin(']');
        } else {
            require(skip("true") || skip("false") || skip("1"));
        }
    }
    void begin(char end) {
        open += end;
        blanks();
        wantsValue = current() != end;
    }
    /// Reads what follows a value.
    void next() {
        wantsValue = skip(",");
        if (!wantsValue) {
            require(skip(open.substr(open.size() - 1)));
            open.pop_back();
        }
    }
    std::string string() {
        require(skip("\""));
        std::string result;
        while (current() != '"') {
            require(static_cast<unsigned char>(current()) >= ' ');
            result += current() == '\\' ? escaped() : current();
            ++position;
        }
        ++position;
        return result;
    }
    char escaped() {
        ++position;
        if (current() == '"' || current() == '\\') {
            return current();
        }
        constexpr std::string_view digits = "0123456789abcdef";
        require(text.substr(position, 3) == "u00" && position + 4 < text.size());
        position += 4;
        const std::size_t high = digits.find(text[position - 1]);
        const std::size_t low = digits.find(text[position]);
        require(high < 8 && low < 16);
        return static_cast<char>(high * 16 + low);
    }

    std::string_view text;
    std::size_t position = 0;
    std::string open;  ///< the ends of the objects and arrays that are open
    bool wantsValue = true;
    Strings strings;
};

/// A script without its quoted words.
struct Script {
    Strings words;       ///< the texts between ' and ', without escapes
    std::string around;  ///< all else; each quoted word is a Q, and so are several in a row
};

/// Reads the quoted words of bash and zsh: '...', and $'...' with escapes: a backslash before ', a backslash and three octal digits.
/// Words of fish are '...' with the first two escapes.
class ScriptReader {
public:
    ScriptReader(std::string_view text, bool isFish) : text(text), isFish(isFish) {}

    Script read() {
        while (position < text.size()) {
            const bool isEscaped = isFish || text[position] == '$';
            const std::size_t opening = position + (text.substr(position, 2) == "$'" && !isFish ? 1 : 0);
            if (text[opening] == '\'') {
                position = opening + 1;
                script.words.push_back(word(isEscaped));
                addQ();
            } else {
                script.around += text[position++];
            }
        }
        return script;
    }

private:
    std::string word(bool hasEscapes) {
        std::string result;
        for (; position < text.size() && text[position] != '\''; ++position) {
            result += hasEscapes && text[position] == '\\' ? escaped() : text[position];
        }
        if (position++ >= text.size()) {
            fuzz::fail("an open quote in " + fuzz::described(text));
        }
        return result;
    }
    char escaped() {
        const char next = position + 1 < text.size() ? text[position + 1] : '\0';
        if (next == '\'' || next == '\\') {
            ++position;
            return next;
        }
        if (isFish) {
            return '\\';
        }
        int value = 0;
        for (int i = 0; i < 3; ++i) {
            const char digit = ++position < text.size() ? text[position] : '\0';
            if (digit < '0' || digit > '7') {
                fuzz::fail("an unknown escape in " + fuzz::described(text));
            }
            value = value * 8 + (digit - '0');
        }
        return static_cast<char>(value);
    }
    void addQ() {
        for (const std::string_view before : {"", "\"$flag\""}) {
            const std::string again = "Q " + std::string(before);
            const std::string& around = script.around;
            if (around.size() >= again.size() && around.substr(around.size() - again.size()) == again) {
                script.around.resize(around.size() - again.size());
            }
        }
        script.around += 'Q';
    }

    std::string_view text;
    bool isFish;
    std::size_t position = 0;
    Script script;
};

/// The headings and items of a page in Markdown, and the blocks of code.
struct Page {
    Strings headings;
    std::size_t items = 0;
    std::size_t paragraphs = 0;
    std::size_t blocks = 0;
};

inline Page readPage(const std::string& text) {
    Page page;
    std::string fence;
    for (const std::string& line : linesOf(text)) {
        const std::string run = line.substr(0, std::min(line.find_first_not_of('`'), line.size()));
        if (!fence.empty()) {
            fence = run.size() >= fence.size() && run == line ? "" : fence;
        } else if (run.size() >= 3 && run == line) {
            fence = run;
            ++page.blocks;
        } else if (line.front() == '#') {
            page.headings.push_back(line);
        } else if (line.substr(0, 2) == "- ") {
            ++page.items;
        } else if (!line.empty()) {
            ++page.paragraphs;
        }
    }
    if (!fence.empty()) {
        fuzz::fail("an open block of code in " + fuzz::described(text));
    }
    return page;
}

}  // namespace documents_model

#endif
