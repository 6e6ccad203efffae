#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <string>

#include "all_texts.h"
#include "locale_facets.h"
#include "pieces_of.h"
#include "scoped_locale.h"
#include "shown_text.h"
#include "test_locale.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using Strings = std::vector<std::string>;

// Cutting.

struct SplitCase {
    std::string text;
    char delimiter;
    Strings pieces;
};

const std::vector<SplitCase>& splitCases() {
    static const std::vector<SplitCase> cases{
        {"", ',', {}},
        {",", ',', {}},
        {";;", ';', {}},
        {"x", ';', {"x"}},
        {"a,b", ',', {"a", "b"}},
        {"a,,b,", ',', {"a", "b"}},
        {",,a,b", ',', {"a", "b"}},
        {"a;b", ',', {"a;b"}},
        {" , ,", ',', {" ", " "}},
        {" a , b ", ',', {" a ", " b "}},
        {"a\nb\r\n", ',', {"a\nb\r\n"}},
        {"a\nb\r\n", '\n', {"a", "b\r"}},
        {"a\0b\0\0c\0"s, '\0', {"a", "b", "c"}},
        {"a\0b,\0"s, ',', {"a\0b"s, "\0"s}},
        {"a\xFF\xFE\xFFz", '\xFF', {"a", "\xFE", "z"}},
        {"\xC3\xA4", '\xA4', {"\xC3"}},
        {std::string(100000, ','), ',', {}},
        {std::string(100000, 'x') + "," + std::string(100000, 'y'),
         ',',
         {std::string(100000, 'x'), std::string(100000, 'y')}},
    };
    return cases;
}

TEST(StringUtilities, SplitDropsEmptyPieces) {
    for (const SplitCase& each : splitCases()) {
        EXPECT_EQ(Kelp::split(each.text, each.delimiter), each.pieces) << shown(each.text);
    }
}

TEST(StringUtilities, FirstTokenIsTheFirstPiece) {
    for (const SplitCase& each : splitCases()) {
        const std::string expected = each.pieces.empty() ? "" : each.pieces.front();
        EXPECT_EQ(Kelp::getFirstToken(each.text, each.delimiter), expected) << shown(each.text);
    }
    EXPECT_EQ(Kelp::getFirstToken("", ','), "");
    EXPECT_EQ(Kelp::getFirstToken(",,a,b", ','), "a");
    EXPECT_EQ(Kelp::getFirstToken(" ", ','), " ");
}

TEST(StringUtilities, TokenizeCutsAtEveryRunOfDelimiters) {
    struct Case {
        std::string text;
        std::string delimiters;
        Strings tokens;
    };
    const Case cases[] = {
        {"", "", {}},
        {"", " ", {}},
        {" ", "", {" "}},
        {"a b", "", {"a b"}},
        {"\0"s, "", {"\0"s}},
        {"   ", " ", {}},
        {"  a  b ", " ", {"a", "b"}},
        {"a, b,,c", ", ", {"a", "b", "c"}},
        {"a, b,,c", " ,", {"a", "b", "c"}},
        {"a, b,,c", ",", {"a", " b", "c"}},
        {"a, b,,c", ",,,", {"a", " b", "c"}},
        {"abc", "xyz", {"abc"}},
        {"abc", "cba", {}},
        {"a\0b c"s, "\0"s, {"a", "b c"}},
        {"a\0b c"s, " \0"s, {"a", "b", "c"}},
        {"a\0b c"s, " ", {"a\0b"s, "c"}},
        {"a\xFFz", "\xFF", {"a", "z"}},
        {"one\ttwo\r\nthree", "\t\r\n", {"one", "two", "three"}},
        {std::string(100000, ' ') + "x", " ", {"x"}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(Kelp::Tokenize(each.text, each.delimiters), each.tokens)
            << shown(each.text) << shown(each.delimiters);
    }
}

// Lower case.

TEST(StringUtilities, ToLowerFoldsEveryByte) {
    EXPECT_EQ(Kelp::toLower(""), "");
    EXPECT_EQ(Kelp::toLower("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(Kelp::toLower("--OutPut=C:\\Dir\0\nX"s), "--output=c:\\dir\0\nx"s);
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        const std::string expected(1, static_cast<char>(byte >= 65 && byte <= 90 ? byte + 32 : byte));
        EXPECT_EQ(Kelp::toLower(text), expected) << shown(text);
    }
    const std::string unchanged = "ABC";
    EXPECT_EQ(Kelp::toLower(unchanged), "abc");
    EXPECT_EQ(unchanged, "ABC");
}

TEST(StringUtilities, ToLowerFollowsTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    EXPECT_EQ(Kelp::toLower("x\xC4\xE4y"), "x\xC4\xE4y");
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    EXPECT_EQ(Kelp::toLower("x\xC4\xE4y"), "x\xE4\xE4y");
}

// File extensions.

TEST(StringUtilities, ReplacesWhatFollowsTheLastDot) {
    const struct {
        std::string name;
        std::string withQ6;
    } cases[] = {
        {"data.txt", "data.q6"},
        {"a.b.txt", "a.b.q6"},
        {"archive.tar.gz", "archive.tar.q6"},
        {"data", "q6"},
        {"dir/data", "q6"},
        {"a..txt", "a.q6"},
        {"a...b..txt", "a.b.q6"},
        {"run.2/data", "run.q6"},
        {"run.2/data.txt", "run.2/data.q6"},
        {"C:\\run.2\\data", "C:\\run.q6"},
        {"./data", "q6"},
        {"./data.txt", "/data.q6"},
        {"../data.txt", "/data.q6"},
        {".hidden", "q6"},
        {".hidden.txt", "hidden.q6"},
        {"data.", "q6"},
        {"a.b.", "a.q6"},
        {"data.q6", "data.q6"},
        {" .txt", " .q6"},
        {"data. ", "data.q6"},
        {"a\0b.txt"s, "a\0b.q6"s},
        {"", "q6"},
        {".", "q6"},
        {"...", "q6"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Kelp::replaceToFileExtension(each.name, "q6"), each.withQ6) << shown(each.name);
        EXPECT_EQ(Kelp::replaceToQ6Extension(each.name), each.withQ6) << shown(each.name);
    }
}

TEST(StringUtilities, TakesAnyTextForTheExtension) {
    const struct {
        const char* name;
        const char* extension;
        const char* expected;
    } cases[] = {
        {"archive.tar.gz", "zip", "archive.tar.zip"},
        {"data.txt", "tar.gz", "data.tar.gz"},
        {"data.txt", ".zip", "data..zip"},
        {"data.txt", "", "data."},
        {"data", "", ""},
        {"", "", ""},
        {"", "a b", "a b"},
        {"...", "x.y", "x.y"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Kelp::replaceToFileExtension(each.name, each.extension), each.expected)
            << each.name << " with " << each.extension;
    }
}

// Numbered names.

struct NameCase {
    unsigned long long index;
    std::string base;
    unsigned int width;
    std::string expected;
};

void expectNames(const std::vector<NameCase>& cases) {
    for (const NameCase& each : cases) {
        EXPECT_EQ(Kelp::createFragmentName(each.index, each.base, each.width), each.expected)
            << each.index << " in " << each.width;
    }
}

TEST(FragmentName, HasOneDigitMoreThanItsWidth) {
    expectNames({
        {7, "part_", 3, "part_0007"},
        {42, "part_", 3, "part_0042"},
        {123, "part_", 3, "part_0123"},
        {1000, "part_", 3, "part_1000"},
        {9999, "part_", 3, "part_9999"},
        {0, "f", 2, "f000"},
        {9, "f", 2, "f009"},
        {99, "f", 2, "f099"},
        {100, "f", 2, "f100"},
        {999, "f", 2, "f999"},
        {0, "f", 0, "f0"},
        {9, "f", 0, "f9"},
        {0, "f", 1, "f00"},
        {7, "", 3, "0007"},
        {7, " a/b.", 1, " a/b.07"},
        {7, "a\0b"s, 1, "a\0b07"s},
        {5, "f", 1000, "f" + std::string(1000, '0') + "5"},
    });
}

TEST(FragmentName, WritesWiderIndicesInFull) {
    expectNames({
        {1000, "f", 2, "f1000"},
        {10000, "f", 2, "f10000"},
        {10, "f", 0, "f10"},
        {18446744073709551615ULL, "f", 0, "f18446744073709551615"},
        {18446744073709551615ULL, "f", 18, "f18446744073709551615"},
        {18446744073709551615ULL, "f", 19, "f18446744073709551615"},
    });
}

TEST(FragmentName, IsTheSameUnderEveryLocale) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    EXPECT_EQ(Kelp::createFragmentName(1234567, "f", 9), "f0001234567");
}

struct PowerCase {
    unsigned long long index;
    std::string width0;
    std::string width5;
    std::string width21;
};

void expectPowers(const std::vector<PowerCase>& cases) {
    for (const PowerCase& each : cases) {
        expectNames({
            {each.index, "", 0, each.width0},
            {each.index, "", 5, each.width5},
            {each.index, "", 21, each.width21},
        });
    }
}

TEST(FragmentName, CountsTheDigitsAroundPowersOfTen) {
    expectPowers({
        {0U, "0", "000000", "0000000000000000000000"},
        {1U, "1", "000001", "0000000000000000000001"},
        {2U, "2", "000002", "0000000000000000000002"},
        {9U, "9", "000009", "0000000000000000000009"},
        {10U, "10", "000010", "0000000000000000000010"},
        {11U, "11", "000011", "0000000000000000000011"},
        {99U, "99", "000099", "0000000000000000000099"},
        {100U, "100", "000100", "0000000000000000000100"},
        {101U, "101", "000101", "0000000000000000000101"},
        {999U, "999", "000999", "0000000000000000000999"},
        {1000U, "1000", "001000", "0000000000000000001000"},
        {1001U, "1001", "001001", "0000000000000000001001"},
        {9999U, "9999", "009999", "0000000000000000009999"},
        {10000U, "10000", "010000", "0000000000000000010000"},
        {10001U, "10001", "010001", "0000000000000000010001"},
        {99999U, "99999", "099999", "0000000000000000099999"},
        {100000U, "100000", "100000", "0000000000000000100000"},
        {100001U, "100001", "100001", "0000000000000000100001"},
        {999999U, "999999", "999999", "0000000000000000999999"},
        {1000000U, "1000000", "1000000", "0000000000000001000000"},
        {1000001U, "1000001", "1000001", "0000000000000001000001"},
        {9999999U, "9999999", "9999999", "0000000000000009999999"},
        {10000000U, "10000000", "10000000", "0000000000000010000000"},
        {10000001U, "10000001", "10000001", "0000000000000010000001"},
        {99999999U, "99999999", "99999999", "0000000000000099999999"},
        {100000000U, "100000000", "100000000", "0000000000000100000000"},
        {100000001U, "100000001", "100000001", "0000000000000100000001"},
        {999999999U, "999999999", "999999999", "0000000000000999999999"},
        {1000000000U, "1000000000", "1000000000", "0000000000001000000000"},
        {1000000001U, "1000000001", "1000000001", "0000000000001000000001"},
        {9999999999U, "9999999999", "9999999999", "0000000000009999999999"},
        {10000000000U, "10000000000", "10000000000", "0000000000010000000000"},
        {10000000001U, "10000000001", "10000000001", "0000000000010000000001"},
        {99999999999U, "99999999999", "99999999999", "0000000000099999999999"},
        {100000000000U, "100000000000", "100000000000", "0000000000100000000000"},
        {100000000001U, "100000000001", "100000000001", "0000000000100000000001"},
        {999999999999U, "999999999999", "999999999999", "0000000000999999999999"},
        {1000000000000U, "1000000000000", "1000000000000", "0000000001000000000000"},
        {1000000000001U, "1000000000001", "1000000000001", "0000000001000000000001"},
        {9999999999999U, "9999999999999", "9999999999999", "0000000009999999999999"},
        {10000000000000U, "10000000000000", "10000000000000", "0000000010000000000000"},
        {10000000000001U, "10000000000001", "10000000000001", "0000000010000000000001"},
        {99999999999999U, "99999999999999", "99999999999999", "0000000099999999999999"},
        {100000000000000U, "100000000000000", "100000000000000", "0000000100000000000000"},
        {100000000000001U, "100000000000001", "100000000000001", "0000000100000000000001"},
        {1000000000000000U, "1000000000000000", "1000000000000000", "0000001000000000000000"},
        {1000000000000001U, "1000000000000001", "1000000000000001", "0000001000000000000001"},
        {10000000000000000U, "10000000000000000", "10000000000000000", "0000010000000000000000"},
        {10000000000000001U, "10000000000000001", "10000000000000001", "0000010000000000000001"},
        {100000000000000000U, "100000000000000000", "100000000000000000", "0000100000000000000000"},
        {100000000000000001U, "100000000000000001", "100000000000000001", "0000100000000000000001"},
        {1000000000000000000U, "1000000000000000000", "1000000000000000000", "0001000000000000000000"},
        {1000000000000000001U, "1000000000000000001", "1000000000000000001", "0001000000000000000001"},
        {10000000000000000000U, "10000000000000000000", "10000000000000000000", "0010000000000000000000"},
        {10000000000000000001U, "10000000000000000001", "10000000000000000001", "0010000000000000000001"},
        {18446744073709551615U, "18446744073709551615", "18446744073709551615", "0018446744073709551615"},
    });
}

// One below these powers of ten, log10 in double gives the same as for the power itself: the name has one zero less.
TEST(FragmentName, LosesAZeroJustBelowLargePowersOfTen) {
    expectPowers({
        {999999999999999U, "999999999999999", "999999999999999", "000000999999999999999"},
        {9999999999999999U, "9999999999999999", "9999999999999999", "000009999999999999999"},
        {99999999999999999U, "99999999999999999", "99999999999999999", "000099999999999999999"},
        {999999999999999999U, "999999999999999999", "999999999999999999", "000999999999999999999"},
        {9999999999999999999U, "9999999999999999999", "9999999999999999999", "009999999999999999999"},
    });
}

// Every short text, cut.

constexpr auto letters = ";a \0"sv;
constexpr std::size_t longest = 6;

TEST(AllShortTextsToCut, SplitAsGetlineDoes) {
    for (const char delimiter : ";a \0x"sv) {
        forEachText(letters, longest, [delimiter](const std::string& text) {
            const Strings expected = piecesOf(text, delimiter);
            ASSERT_EQ(Kelp::split(text, delimiter), expected) << shown(text) << delimiter;
            ASSERT_EQ(Kelp::getFirstToken(text, delimiter), expected.empty() ? "" : expected[0])
                << shown(text) << delimiter;
        });
    }
}

TEST(AllShortTextsToCut, TokenizeAsTheModelDoes) {
    forEachText(letters, 2, [](const std::string& delimiters) {
        forEachText(letters, longest, [&delimiters](const std::string& text) {
            ASSERT_EQ(Kelp::Tokenize(text, delimiters), tokensOf(text, delimiters)) << shown(text) << shown(delimiters);
        });
    });
}

}  // namespace
