#include "roff_quoting.h"

#include <kelpkit/Files.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace Kelpkit::programs {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 9> replacements{{
    {"\\", "\\e"},
    {"-", "\\-"},
    {"'", "\\(aq"},
    {"\"", "\\(dq"},
    {"`", "\\(ga"},
    {"^", "\\(ha"},
    {"~", "\\(ti"},
    // Other code points for ";" and "K": groff 1.22 and 1.23 warn about them and print nothing.
    {"\xCD\xBE", ";"},
    {"\xE2\x84\xAA", "K"},
}};
constexpr std::string_view optionalBreak = "\\:";
constexpr std::size_t columnsToBreak = 10;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Returns the characters of a text in UTF-8.
std::vector<std::string_view> charactersOf(std::string_view text) {
    std::vector<std::string_view> characters;
    while (!text.empty()) {
        std::size_t size = 1;
        while (size < text.size() && isContinuation(text[size])) {
            ++size;
        }
        characters.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return characters;
}

std::string_view quoted(std::string_view character) {
    const auto* const found = std::find_if(replacements.begin(), replacements.end(),
                                           [character](const auto& each) { return each.first == character; });
    return found == replacements.end() ? character : found->second;
}

/// Returns how many columns a character may take. Those of three bytes and more may be wide.
std::size_t columnsOf(std::string_view character) {
    return character.size() < 3 ? 1 : 2;
}

/// Whether a character belongs to the one before: the combining marks U+0300 to U+036F, and a few others.
bool isMark(std::string_view character) {
    return character.front() == '\xCC' || character.front() == '\xCD';
}

std::size_t columnsOf(const std::vector<std::string_view>& characters) {
    std::size_t columns = 0;
    for (const std::string_view character : characters) {
        columns += columnsOf(character);
    }
    return columns;
}

}  // namespace

std::string roffText(const std::string& text) {
    return roffStart(text, std::numeric_limits<std::size_t>::max());
}

std::string roffWord(const std::string& word, std::size_t longest) {
    const std::string visible = printable(word);
    const std::vector<std::string_view> characters = charactersOf(visible);
    const bool breaks = columnsOf(characters) > longest;
    std::string result;
    std::size_t columns = 0;  // since the last place for a break
    for (const std::string_view character : characters) {
        if (breaks && columns >= (isMark(character) ? 2 : 1) * columnsToBreak) {
            result += optionalBreak;
            columns = 0;
        }
        columns += columnsOf(character);
        result += quoted(character);
    }
    return result;
}

std::string roffStart(const std::string& text, std::size_t columns) {
    const std::string visible = printable(text);
    std::string result;
    std::size_t taken = 0;
    for (const std::string_view character : charactersOf(visible)) {
        taken += columnsOf(character);
        if (taken > columns) {
            break;
        }
        result += quoted(character);
    }
    return result;
}

std::size_t roffLength(const std::string& text) {
    std::size_t length = 0;
    for (const char byte : text) {
        length += isContinuation(byte) ? 0U : (isAscii(byte) ? 1U : 10U);
    }
    return length;
}

}  // namespace Kelpkit::programs
