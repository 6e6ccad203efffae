#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <stdexcept>

#include "arguments.h"
#include "scoped_locale.h"
#include "shown_text.h"
#include "test_locale.h"

namespace {

using Strings = std::vector<std::string>;

struct FlagCase {
    Strings tokens;
    const char* flag;
    int start;
    int expected;
};

template <std::size_t count>
void expectPositions(const FlagCase (&cases)[count]) {
    for (const FlagCase& each : cases) {
        Arguments line(each.tokens);
        EXPECT_EQ(Kelp::getNextFlag(line.argc(), line.argv(), each.flag, each.start), each.expected)
            << each.flag << " from " << each.start << " in " << ::testing::PrintToString(each.tokens);
    }
}

TEST(NextFlag, OfTwoCharactersMatchesWhateverBeginsWithIt) {
    for (const char* const token : {"-o", "-O", "-o5", "-ofile", "-OFILE", "-o=5", "-O=", "-output", "-o-", "=-o"}) {
        expectPositions({{{"tool", token}, "-o", 1, 1}});
    }
    for (const char* const token : {"", "-", "o", "--o", "--output", "-p", "=", "/o", " -o", "x-o", "x=-o"}) {
        expectPositions({{{"tool", token}, "-o", 1, 0}});
    }
    expectPositions({{{"tool", "-n5"}, "-N", 1, 1},
                     {{"tool", "--number"}, "--", 1, 1},
                     {{"tool", "-"}, "-", 1, 1},
                     {{"tool", "--"}, "-", 1, 0},
                     {{"tool", "-=5"}, "-=", 1, 1},
                     {{"tool", "-5"}, "-5", 1, 1},
                     {{"tool", "-N=4"}, "-n", 1, 1}});
}

TEST(NextFlag, OfMoreCharactersMatchesExactlyOrBeforeAnEqualsSign) {
    for (const char* const token :
         {"--timerange", "--timerange=0:5", "--timerange=", "=--timerange", "==--timerange=1"}) {
        expectPositions({{{"tool", token}, "--timerange", 1, 1}});
    }
    for (const char* const token :
         {"--TimeRange", "--timerange5", "--timeran", "--timerange:5", "timerange", "-t", "--", "x=--timerange"}) {
        expectPositions({{{"tool", token}, "--timerange", 1, 0}});
    }
    expectPositions({{{"tool", "-TR=1:2"}, "-tr", 1, 0}, {{"tool", "-tr"}, "-tr", 1, 1}});
}

TEST(NextFlag, MatchesTokensWithoutADashExactly) {
    expectPositions({{{"tool", "file"}, "file", 1, 1},
                     {{"tool", "file=5"}, "file", 1, 1},
                     {{"tool", "=file"}, "file", 1, 1},
                     {{"tool", "File"}, "file", 1, 0},
                     {{"tool", "n"}, "n", 1, 1},
                     {{"tool", "N"}, "n", 1, 0},
                     {{"tool", "", "=", "=="}, "", 1, 0},
                     {{"tool", "=", "-x"}, "=", 1, 0}});
}

TEST(NextFlag, IsSearchedFromItsStart) {
    const Strings line{"-o=0", "-o=1", "x", "-o=3"};
    expectPositions({{line, "-o", 0, 0},
                     {line, "-o", 1, 1},
                     {line, "-o", 2, 3},
                     {line, "-o", 3, 3},
                     {line, "-o", 4, 0},
                     {line, "-o", 5, 0},
                     {line, "-o", 2147483647, 0},
                     {line, "-o", -1, 0},
                     {{"tool", "-o"}, "-o", 0, 1},
                     {{"tool", "-o"}, "-o", -1, 1},
                     {{"tool", "-o"}, "-o", -2147483647 - 1, 1},
                     {{}, "-o", 0, 0},
                     {{}, "-o", 1, 0},
                     {{"tool"}, "-o", 1, 0}});
    EXPECT_EQ(Kelp::getNextFlag(0, nullptr, "-o", 0), 0);
    EXPECT_EQ(Kelp::getNextFlag(-1, nullptr, "-o", -1), 0);
}

// The byte 0xC4 is a capital letter, 0xE4 its small one.
TEST(NextFlag, TakesLetterCaseFromTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    expectPositions({{{"tool", "-\xC4"}, "-\xE4", 1, 0}});
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    expectPositions({{{"tool", "-\xC4x"}, "-\xE4", 1, 1}, {{"tool", "-\xE4x"}, "-\xC4", 1, 1}});
}

TEST(HelpFlag, IsFoundShortByItsBeginningAndLongByItsWhole) {
    const std::pair<Strings, bool> cases[] = {
        {{"tool", "-h"}, true},
        {{"tool", "-H"}, true},
        {{"tool", "-Help"}, true},
        {{"tool", "-hist"}, true},
        {{"tool", "--help"}, true},
        {{"tool", "--help=x"}, true},
        {{"tool", "x", "-h"}, true},
        {{"tool", "x", "--help"}, true},
        {{"tool", "--HELP"}, false},
        {{"tool", "--helper"}, false},
        {{"tool", "/?"}, false},
        {{"tool", "help"}, false},
        {{"tool", "/h"}, false},
        {{"tool"}, false},
        {{}, false},
        {{"-h"}, false},
        {{"-h", "-h"}, false},
        {{"--help", "--help"}, false},
        {{"-h", "--help"}, true},
        {{"--help", "-h"}, true},
    };
    for (const auto& [tokens, expected] : cases) {
        Arguments line(tokens);
        EXPECT_EQ(Kelp::getHelpFlag(line.argc(), line.argv()), expected) << ::testing::PrintToString(tokens);
    }
}

TEST(FirstFileName, IsTheFirstTokenWithoutADash) {
    const std::pair<Strings, std::string> cases[] = {
        {{"tool", "-x", "in.txt"}, "in.txt"},
        {{"tool", "in.txt", "other.txt"}, "in.txt"},
        {{"tool", "", "in.txt"}, ""},
        {{"tool", "-x=in.txt", "-o", "out.txt"}, "out.txt"},
        {{"tool", "-5", "--", "-", " -x"}, " -x"},
        {{"tool", "-x"}, "please_provide_file_name"},
        {{"tool"}, "please_provide_file_name"},
        {{}, "please_provide_file_name"},
    };
    for (const auto& [tokens, expected] : cases) {
        Arguments line(tokens);
        EXPECT_EQ(Kelp::getFirstFileName(line.argc(), line.argv()), expected) << ::testing::PrintToString(tokens);
    }
    EXPECT_EQ(Kelp::getFirstFileName(-1, nullptr), "please_provide_file_name");
}

TEST(AllArguments, AreTheTokensWithoutADash) {
    const std::pair<Strings, Strings> cases[] = {
        {{"tool", "-x", "in.txt", "", "--", "out=1", "-"}, {"in.txt", "", "out=1"}},
        {{"tool", "b", "a", "b"}, {"b", "a", "b"}},
        {{"tool", "-x", "-5"}, {}},
        {{"tool"}, {}},
        {{}, {}},
    };
    for (const auto& [tokens, expected] : cases) {
        Arguments line(tokens);
        EXPECT_EQ(Kelp::getAllArguments(line.argc(), line.argv()), expected) << ::testing::PrintToString(tokens);
    }
    EXPECT_EQ(Kelp::getAllArguments(-1, nullptr), Strings());
}

}  // namespace
