#include <kelpkit/Files.h>

#include <algorithm>
#include <array>

#include "unprintable.h"

namespace Kelpkit {

namespace {

struct Bytes {
    unsigned char from;
    unsigned char to;
};

/// The first two bytes and the number of bytes of a character.
struct Form {
    Bytes first;
    Bytes second;
    std::size_t size;
};

/// The printable characters in UTF-8 above ASCII: no control characters (below U+00A0), no surrogates, nothing beyond U+10FFFF.
constexpr std::array<Form, 9> forms{{{{0xC2, 0xC2}, {0xA0, 0xBF}, 2},
                                     {{0xC3, 0xDF}, {0x80, 0xBF}, 2},
                                     {{0xE0, 0xE0}, {0xA0, 0xBF}, 3},
                                     {{0xE1, 0xEC}, {0x80, 0xBF}, 3},
                                     {{0xED, 0xED}, {0x80, 0x9F}, 3},
                                     {{0xEE, 0xEF}, {0x80, 0xBF}, 3},
                                     {{0xF0, 0xF0}, {0x90, 0xBF}, 4},
                                     {{0xF1, 0xF3}, {0x80, 0xBF}, 4},
                                     {{0xF4, 0xF4}, {0x80, 0x8F}, 4}}};
constexpr Bytes ascii{0x20, 0x7E};
constexpr Bytes continuation{0x80, 0xBF};

bool isIn(const Bytes& bytes, char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= bytes.from && byte <= bytes.to;
}

bool hasForm(std::string_view text, const Form& form) {
    if (text.size() < form.size || !isIn(form.first, text[0]) || !isIn(form.second, text[1])) {
        return false;
    }
    const std::string_view rest = text.substr(2, form.size - 2);
    return std::all_of(rest.begin(), rest.end(), [](char byte) { return isIn(continuation, byte); });
}

/// Returns the size of the printable character at the beginning of the text; 0 if there is none.
std::size_t printableSize(std::string_view text) {
    if (isIn(ascii, text.front())) {
        return 1;
    }
    const auto* const form =
        std::find_if(forms.begin(), forms.end(), [text](const Form& candidate) { return hasForm(text, candidate); });
    return form == forms.end() ? 0 : form->size;
}

std::string escaped(char character) {
    constexpr char digits[] = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(character);
    return {'\\', 'x', digits[byte >> 4U], digits[byte & 15U]};
}

}  // namespace

std::string replaceUnprintable(std::string_view text, std::string (*replacement)(char byte)) {
    std::string result;
    while (!text.empty()) {
        const std::size_t size = printableSize(text);
        result += size == 0 ? replacement(text.front()) : std::string(text.substr(0, size));
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return result;
}

std::string printable(std::string_view text) {
    return replaceUnprintable(text, escaped);
}

}  // namespace Kelpkit
