#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include "scoped_locale.h"
#include "shown_text.h"
#include "test_locale.h"

namespace {

using namespace std::string_literals;
using Strings = std::vector<std::string>;

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

struct ExtensionCase {
    std::string name;
    std::string withQ6;
};

TEST(StringUtilities, ReplacesWhatFollowsTheLastDot) {
    const ExtensionCase cases[] = {
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
    for (const ExtensionCase& each : cases) {
        EXPECT_EQ(Kelp::replaceToFileExtension(each.name, "q6"), each.withQ6) << shown(each.name);
        EXPECT_EQ(Kelp::replaceToQ6Extension(each.name), each.withQ6) << shown(each.name);
    }
}

TEST(StringUtilities, TakesAnyTextForTheExtension) {
    EXPECT_EQ(Kelp::replaceToFileExtension("archive.tar.gz", "zip"), "archive.tar.zip");
    EXPECT_EQ(Kelp::replaceToFileExtension("data.txt", "tar.gz"), "data.tar.gz");
    EXPECT_EQ(Kelp::replaceToFileExtension("data.txt", ".zip"), "data..zip");
    EXPECT_EQ(Kelp::replaceToFileExtension("data.txt", ""), "data.");
    EXPECT_EQ(Kelp::replaceToFileExtension("data", ""), "");
    EXPECT_EQ(Kelp::replaceToFileExtension("", ""), "");
    EXPECT_EQ(Kelp::replaceToFileExtension("", "a b"), "a b");
    EXPECT_EQ(Kelp::replaceToFileExtension("...", "x.y"), "x.y");
}

}  // namespace
