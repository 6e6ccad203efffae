#include <algorithm>
#include <array>

#include "ascii_case.h"
#include "numbers.h"

namespace Kelpkit {

namespace {

struct Word {
    const char* text;
    bool value;
};

constexpr std::array<Word, 8> words{{{"yes", true},
                                     {"on", true},
                                     {"true", true},
                                     {"1", true},
                                     {"no", false},
                                     {"off", false},
                                     {"false", false},
                                     {"0", false}}};

bool isAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

}  // namespace

Read<char> readValue(const std::string& text, Type<char> /*type*/) {
    if (text.size() != 1 || !isAscii(text.front())) {
        return Read<char>::expected("a single ASCII character");
    }
    return Read<char>::of(libraryValue<char>(text));
}

Read<bool> readValue(const std::string& text, Type<bool> /*type*/) {
    const std::string typed = lowerCase(text);
    const auto* const found =
        std::find_if(words.begin(), words.end(), [&typed](const Word& word) { return typed == word.text; });
    return found == words.end() ? Read<bool>::expected("one of yes, no, on, off, true, false, 1, 0")
                                : Read<bool>::of(found->value);
}

Read<std::string> readValue(const std::string& text, Type<std::string> /*type*/) {
    return Read<std::string>::of(libraryValue<std::string>(text));
}

}  // namespace Kelpkit
