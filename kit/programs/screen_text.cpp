#include "screen_text.h"

#include <kelpkit/Files.h>

#include <algorithm>

#include "help_screen.h"

namespace Kelpkit::programs {

std::string withPlainLineEnds(std::string_view text) {
    std::string plain;
    const std::size_t first = text.find('\n');
    const bool windows = first != std::string_view::npos && first > 0 && text[first - 1] == '\r';
    std::size_t line = 1;
    for (const char character : text) {
        if (character == '\n') {
            if ((!plain.empty() && plain.back() == '\r') != windows) {
                throw ScreenError("line " + std::to_string(line) + ": expected a line end as in line 1");
            }
            if (windows) {
                plain.pop_back();
            }
            if (!plain.empty() && plain.back() == '\r') {
                throw ScreenError("line " + std::to_string(line) + ": expected a line end as in line 1");
            }
            ++line;
        }
        plain += character;
    }
    return plain;
}

void requirePrintable(std::string_view text) {
    std::string characters(text);
    const auto isAsciiControl = [](char each) { return (each > 0 && each < ' ') || each == '\x7f'; };
    std::replace_if(characters.begin(), characters.end(), isAsciiControl, ' ');
    const std::string escaped = printable(characters);
    const auto wrong = std::mismatch(characters.begin(), characters.end(), escaped.begin(), escaped.end()).first;
    if (wrong != characters.end()) {
        const auto lines = std::count(text.begin(), text.begin() + (wrong - characters.begin()), '\n');
        throw ScreenError("line " + std::to_string(lines + 1) + ": expected printable characters in UTF-8");
    }
}

}  // namespace Kelpkit::programs
