#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include "all_texts.h"
#include "pieces_of.h"
#include "shown_text.h"

namespace {

using namespace std::string_view_literals;
using Strings = std::vector<std::string>;

constexpr auto letters = ";a \0"sv;
constexpr std::size_t longest = 6;

/// Tokens letter by letter: a delimiter ends the one before it.
Strings tokensOf(const std::string& text, const std::string& delimiters) {
    Strings tokens;
    std::string token;
    for (const char letter : text) {
        bool separates = false;
        for (const char delimiter : delimiters) {
            separates = separates || letter == delimiter;
        }
        if (!separates) {
            token += letter;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    if (!token.empty()) {
        tokens.push_back(token);
    }
    return tokens;
}

TEST(AllShortTextsToCut, SplitAsLinesAreRead) {
    for (const char delimiter : ";a \0x"sv) {
        forEachText(letters, longest, [delimiter](const std::string& text) {
            const Strings expected = piecesOf(text, delimiter);
            ASSERT_EQ(Kelp::split(text, delimiter), expected) << shown(text) << delimiter;
            ASSERT_EQ(Kelp::getFirstToken(text, delimiter), expected.empty() ? "" : expected[0])
                << shown(text) << delimiter;
        });
    }
}

TEST(AllShortTextsToCut, TokenizeAsLetterByLetter) {
    forEachText(letters, 2, [](const std::string& delimiters) {
        forEachText(letters, longest, [&delimiters](const std::string& text) {
            ASSERT_EQ(Kelp::Tokenize(text, delimiters), tokensOf(text, delimiters)) << shown(text) << shown(delimiters);
        });
    });
}

}  // namespace
