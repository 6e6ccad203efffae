#ifndef KELPLIB_TESTS_ALL_TEXTS_H
#define KELPLIB_TESTS_ALL_TEXTS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Calls `use` with every text of up to `maxLength` characters of `alphabet`, starting with the empty text.
template <class Use>
void forEachText(std::string_view alphabet, std::size_t maxLength, Use use) {
    for (std::size_t length = 0; length <= maxLength; ++length) {
        std::vector<std::size_t> letters(length, 0);
        std::string text(length, alphabet.front());
        std::size_t changed = 0;
        do {
            use(text);
            // Counts up: a letter that wraps around to the alphabet's first carries to the next letter.
            for (changed = 0; changed < length; ++changed) {
                letters[changed] = (letters[changed] + 1) % alphabet.size();
                text[changed] = alphabet[letters[changed]];
                if (letters[changed] != 0) {
                    break;
                }
            }
        } while (changed < length);
    }
}

#endif
