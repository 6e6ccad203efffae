#include <algorithm>
#include <array>

#include "help_screen.h"

namespace Kelpkit::programs {

namespace {

struct Escape {
    char character;
    char letter;  ///< after the backslash
};
constexpr std::array<Escape, 4> escapes{{{'\033', 'e'}, {'\t', 't'}, {'\r', 'r'}, {'\\', '\\'}}};
constexpr std::string_view digits = "0123456789abcdef";

std::string visible(char character) {
    const auto* const found = std::find_if(escapes.begin(), escapes.end(),
                                           [character](const Escape& each) { return each.character == character; });
    if (found != escapes.end()) {
        return {'\\', found->letter};
    }
    const auto byte = static_cast<unsigned char>(character);
    if (byte < ' ' || byte == 0x7f) {
        return {'\\', 'x', digits[byte / 16U], digits[byte % 16U]};
    }
    return {character};
}

/// Appends the character that begins with the backslash at `position`. Returns the position of its last character, or npos if
/// there is no such character.
std::size_t addEscaped(std::string& text, std::string_view line, std::size_t position) {
    const char letter = position + 1 < line.size() ? line[position + 1] : '\0';
    const auto* const found =
        std::find_if(escapes.begin(), escapes.end(), [letter](const Escape& each) { return each.letter == letter; });
    if (found != escapes.end()) {
        text += found->character;
        return position + 1;
    }
    if (letter != 'x' || position + 3 >= line.size()) {
        return std::string_view::npos;
    }
    const std::size_t high = digits.find(line[position + 2]);
    const std::size_t low = digits.find(line[position + 3]);
    if (high == std::string_view::npos || low == std::string_view::npos) {
        return std::string_view::npos;
    }
    text += static_cast<char>(high * 16 + low);
    return position + 3;
}

/// Appends a line without its "$".
void addLine(std::string& text, std::string_view line, std::size_t number) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\') {
            text += line[i];
            continue;
        }
        i = addEscaped(text, line, i);
        if (i == std::string_view::npos) {
            throw ScreenError("line " + std::to_string(number) + R"(: expected \e, \t, \r, \\ or \xNN)");
        }
    }
    text += '\n';
}

}  // namespace

std::string visibleScreen(const HelpScreen& screen) {
    std::string text;
    for (const char character : render(screen)) {
        text += character == '\n' ? "$\n" : visible(character);
    }
    return text;
}

bool isVisibleForm(std::string_view text) {
    return !text.empty() && text.front() == '$';
}

std::string textOfVisibleForm(std::string_view text) {
    std::string result;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        if (end == std::string_view::npos || line.empty() || line.back() != '$') {
            throw ScreenError("line " + std::to_string(number) + ": expected $ at the end");
        }
        line.remove_suffix(1);
        addLine(result, line, number);
        text.remove_prefix(end + 1);
    }
    return result;
}

}  // namespace Kelpkit::programs
