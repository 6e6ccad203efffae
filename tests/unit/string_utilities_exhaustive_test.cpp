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
