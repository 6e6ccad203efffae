#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <functional>
#include <limits>
#include <stdexcept>

#include "arguments.h"
#include "bit_pattern.h"
#include "captured_output.h"
#include "command_line/argv_tokens.h"
#include "flush_recorder.h"
#include "scanner_answers.h"
#include "scoped_locale.h"
#include "test_locale.h"

namespace {

namespace model = flag_scanner_model;
using model::joined;
using model::Strings;
using Steps = std::array<int, 2>;
using Times = std::array<double, 2>;

// getNextFlag.

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

TEST(NextFlag, OfTwoCharactersMatchesEveryTokenThatBeginsWithIt) {
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

// In the test's locale the byte 0xC4 is an upper-case letter and 0xE4 its lower-case form.
TEST(NextFlag, TakesLetterCaseFromTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    expectPositions({{{"tool", "-\xC4"}, "-\xE4", 1, 0}});
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    expectPositions({{{"tool", "-\xC4x"}, "-\xE4", 1, 1}, {{"tool", "-\xE4x"}, "-\xC4", 1, 1}});
}

// The help flag and positional arguments.

TEST(HelpFlag, MatchesTheShortFormByItsBeginningAndTheLongFormWhole) {
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

// Text values.

TEST(StringFlag, TakesTheTextAfterTwoCharacters) {
    const struct {
        Strings tokens;
        const char* flag;
        int start;
        int expected;
        std::string value;
    } cases[] = {
        {{"tool", "-ofile.txt"}, "-o", 1, 1, "file.txt"},
        {{"tool", "-o=file.txt"}, "-o", 1, 1, "file.txt"},
        {{"tool", "-O=file.txt"}, "-o", 1, 1, "file.txt"},
        {{"tool", "-o", "file.txt"}, "-o", 1, 1, ""},
        {{"tool", "-o="}, "-o", 1, 1, ""},
        {{"tool", "-o=="}, "-o", 1, 1, "="},
        {{"tool", "-o=a=b"}, "-o", 1, 1, "a=b"},
        {{"tool", "-oa=b"}, "-o", 1, 1, "a=b"},
        {{"tool", "-o-= x "}, "-o", 1, 1, "-= x "},
        {{"tool", "--output=file"}, "--output", 1, 1, "output=file"},
        {{"tool", "--output"}, "--output", 1, 1, "output"},
        {{"tool", "=-o=4"}, "-o", 1, 1, "o=4"},
        {{"tool", "f=4"}, "f", 1, 1, "4"},
        {{"tool", "no=4"}, "no", 1, 1, "4"},
        {{"tool", "-o=1", "-o=2"}, "-o", 2, 2, "2"},
        {{"tool", "-o=1", "-o=2"}, "-o", -1, 1, "1"},
        {{"tool", "x"}, "-o", 1, 0, "before"},
        {{"tool", "-o=1"}, "-o", 2, 0, "before"},
        {{"-o=0", "-o=1"}, "-o", 0, 0, "before"},
        {{"tool"}, "-o", 0, 0, "before"},
        {{}, "-o", 0, 0, "before"},
    };
    for (const auto& each : cases) {
        Arguments line(each.tokens);
        std::string value = "before";
        EXPECT_EQ(Kelp::getStringFlag(line.argc(), line.argv(), each.flag, value, each.start), each.expected)
            << ::testing::PrintToString(each.tokens);
        EXPECT_EQ(value, each.value) << ::testing::PrintToString(each.tokens);
    }
}

TEST(StringFlag, ThrowsForATokenOfOneCharacter) {
    for (const char* const token : {"f", "-"}) {
        Arguments line{"tool", token, "f=1"};
        std::string value = "before";
        EXPECT_THROW(Kelp::getStringFlag(line.argc(), line.argv(), token, value, 1), std::out_of_range) << token;
        EXPECT_EQ(value, "before");
        Strings values;
        EXPECT_THROW(Kelp::getMultiStringFlag(line.argc(), line.argv(), token, values), std::out_of_range) << token;
    }
}

TEST(MultiStringFlag, CollectsEveryOccurrence) {
    const struct {
        Strings tokens;
        const char* flag;
        Strings expected;
    } cases[] = {
        {{"tool", "-i=a", "x", "-I=b"}, "-i", {"a", "b"}},
        {{"tool", "-i", "x", "-i=", "-ic", "-i"}, "-i", {"", "", "c", ""}},
        {{"tool", "-i=b", "-i=a", "-i=b"}, "-i", {"b", "a", "b"}},
        {{"tool", "--input=a", "--input"}, "--input", {"input=a", "input"}},
        {{"tool", "x"}, "-i", {}},
        {{"-i=z", "-i=a"}, "-i", {}},
        {{"-i"}, "-i", {}},
        {{"tool"}, "-i", {}},
        {{}, "-i", {}},
    };
    for (const auto& each : cases) {
        Arguments line(each.tokens);
        Strings values{"before", "and", "more"};
        EXPECT_EQ(Kelp::getMultiStringFlag(line.argc(), line.argv(), each.flag, values),
                  static_cast<int>(each.expected.size()))
            << ::testing::PrintToString(each.tokens);
        EXPECT_EQ(values, each.expected) << ::testing::PrintToString(each.tokens);
    }
    Strings values{"before"};
    EXPECT_EQ(Kelp::getMultiStringFlag(-1, nullptr, "-i", values), 0);
    EXPECT_EQ(values, Strings());
}

// Integers.

struct IntCase {
    Strings tokens;
    const char* flag;
    int start;
    int expected;
    int value;
    const char* printed;  ///< "~" for every flush
};

/// Expects the texts that are printed up to verbosity 10.
class IntFlag : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_LE(Kelp::verbosity(), 10) << "K_VERBOSITY is set";
    }

    template <std::size_t count>
    static void expectInts(const IntCase (&cases)[count]) {
        for (const IntCase& each : cases) {
            Arguments line(each.tokens);
            int value = 77;
            int result = 0;
            std::string printed;
            {
                const FlushRecorder output;
                result = Kelp::getIntFlag(line.argc(), line.argv(), each.flag, value, each.start);
                printed = output.text();
            }
            EXPECT_EQ(result, each.expected) << ::testing::PrintToString(each.tokens);
            EXPECT_EQ(value, each.value) << ::testing::PrintToString(each.tokens);
            EXPECT_EQ(printed, each.printed) << ::testing::PrintToString(each.tokens);
        }
    }
};

TEST_F(IntFlag, IsTheNumberAfterTheEqualsSign) {
    expectInts({{{"tool", "-N=4"}, "-n", 1, 1, 4, ""},
                {{"tool", "x", "-n=-4"}, "-n", 1, 2, -4, ""},
                {{"tool", "-number=4"}, "-n", 1, 1, 4, ""},
                {{"tool", "--number=4"}, "--number", 1, 1, 4, ""},
                {{"tool", "=-n=4"}, "-n", 1, 1, 4, ""},
                {{"tool", "-n==4="}, "-n", 1, 1, 4, ""},
                {{"tool", "-n=12abc"}, "-n", 1, 1, 12, ""},
                {{"tool", "-n= \t+12 3"}, "-n", 1, 1, 12, ""},
                {{"tool", "-n=abc"}, "-n", 1, 1, 0, ""},
                {{"tool", "-n= "}, "-n", 1, 1, 0, ""},
                {{"tool", "-n=0x1F"}, "-n", 1, 1, 0, ""},
                {{"tool", "-n=1e3"}, "-n", 1, 1, 1, ""},
                {{"tool", "-n=2147483647"}, "-n", 1, 1, 2147483647, ""},
                {{"tool", "-n=2147483648"}, "-n", 1, 1, 2147483647, ""},
                {{"tool", "-n=-2147483648"}, "-n", 1, 1, -2147483647 - 1, ""},
                {{"tool", "-n=-2147483649"}, "-n", 1, 1, -2147483647 - 1, ""},
                {{"tool", "-n=99999999999999999999"}, "-n", 1, 1, 2147483647, ""},
                {{"tool", "-n=4", "-n=5"}, "-n", 0, 1, 4, ""},
                {{"tool", "-n=4", "-n=5"}, "-n", -1, 1, 4, ""},
                {{"tool", "-n=4", "-n=5"}, "-n", 2, 2, 5, ""}});
}

TEST_F(IntFlag, PrintsAnEmptyLineWithoutANumber) {
    expectInts({{{"tool", "-n12"}, "-n", 1, 0, 77, "\n~"},
                {{"tool", "-n"}, "-n", 1, 0, 77, "\n~"},
                {{"tool", "-n="}, "-n", 1, 0, 77, "\n~"},
                {{"tool", "-n=1=2"}, "-n", 1, 0, 77, "\n~"},
                {{"tool", "-n", "-n=4"}, "-n", 1, 0, 77, "\n~"},
                {{"tool", "x=4"}, "-n", 1, 0, 77, "\n~"},
                {{"tool"}, "-n", 1, 0, 77, "\n~"},
                {{"tool", "-n=4"}, "-n", 2, 0, 77, "\n~"},
                {{}, "-n", 1, 0, 77, "\n~"}});
}

TEST_F(IntFlag, ReadsTheProgramPathWithoutAMatchFromTheStart) {
    expectInts({{{"a=5"}, "-n", 0, 0, 5, ""},
                {{"a=5", "x"}, "-n", -3, 0, 5, ""},
                {{"-n=6", "-n=7"}, "-n", 0, 0, 6, ""},
                {{"tool", "x"}, "-n", 0, 0, 77, "\n~"},
                {{"tool", "x"}, "-n", -1, 0, 77, "\n~"},
                {{""}, "-n", 0, 0, 77, "\n~"},
                {{"a=5", "x"}, "-n", 1, 0, 77, "\n~"}});
}

TEST_F(IntFlag, ReadsTheProgramPathWithoutAnyToken) {
    Arguments line{"a=5"};
    int value = 77;
    EXPECT_EQ(Kelp::getIntFlag(0, line.argv(), "-n", value, 0), 0);
    EXPECT_EQ(value, 5);
    EXPECT_THROW(Kelp::getIntFlag(-1, line.argv(), "-n", value, -1), std::logic_error);
}

// Ranges.

template <class T>
struct RangeCase {
    Strings tokens;
    int expected;
    std::array<T, 2> range;
};

template <class T, std::size_t count>
void expectRanges(int (*scan)(int, char**, std::array<T, 2>&), const RangeCase<T> (&cases)[count]) {
    for (const RangeCase<T>& each : cases) {
        Arguments line(each.tokens);
        std::array<T, 2> range{77, 88};
        EXPECT_EQ(scan(line.argc(), line.argv(), range), each.expected) << ::testing::PrintToString(each.tokens);
        EXPECT_EQ(bitsOf(range[0]), bitsOf(each.range[0])) << ::testing::PrintToString(each.tokens) << range[0];
        EXPECT_EQ(bitsOf(range[1]), bitsOf(each.range[1])) << ::testing::PrintToString(each.tokens) << range[1];
    }
}

TEST(TimeRangeFlag, TakesBothFormsInTheOrderWritten) {
    expectRanges(Kelp::getTimeRangeFlag, {{{"tool", "-tr=0.5:12"}, 1, {0.5, 12}},
                                          {{"tool", "--timerange=1.5:3"}, 1, {1.5, 3}},
                                          {{"tool", "x", "-tr=3:1.5"}, 1, {3, 1.5}},
                                          {{"tool", "-tr=-0:-1e3"}, 1, {-0.0, -1000}},
                                          {{"tool", "-tr=:1::2:"}, 1, {1, 2}},
                                          {{"tool", "=-tr==1:2="}, 1, {1, 2}},
                                          {{"tool", "-tr= 1s: .5.5"}, 1, {1, 0.5}},
                                          {{"tool", "-tr=x: "}, 1, {0, 0}},
                                          {{"tool", "-tr=1,5:2,5"}, 1, {1, 2}}});
}

// atof reads these texts differently from the conversion of option values.
TEST(TimeRangeFlag, ReadsWhatTheCLibraryReads) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    expectRanges(Kelp::getTimeRangeFlag, {{{"tool", "-tr=inf:0x10"}, 1, {infinity, 16}},
                                          {{"tool", "-tr=1e:-1e999"}, 1, {1, -infinity}},
                                          {{"tool", "-tr=-infinity:1e+"}, 1, {-infinity, 1}}});
}

TEST(TimeRangeFlag, IsUnchangedWithoutTwoNumbers) {
    for (const char* const token :
         {"-tr", "-tr=", "-tr=1", "-tr=1:", "-tr=:2", "-tr=:", "-tr=1:2:3", "-tr=1:2=3", "-tr1:2", "-tr:1:2", "-TR=1:2",
          "-t=1:2", "--tr=1:2", "-timerange=1:2", "--TimeRange=1:2", "--timerange", "--timerange=1", "x"}) {
        expectRanges(Kelp::getTimeRangeFlag, {{{"tool", token}, 0, {77, 88}}});
    }
    expectRanges(Kelp::getTimeRangeFlag, {{{"tool"}, 0, {77, 88}}, {{}, 0, {77, 88}}, {{"-tr=1:2"}, 0, {77, 88}}});
}

TEST(TimeRangeFlag, TriesTheLongFormAfterTheFirstShortOne) {
    expectRanges(Kelp::getTimeRangeFlag, {{{"tool", "-tr=1", "-tr=1:2"}, 0, {77, 88}},
                                          {{"tool", "-tr=1:2:3", "--timerange=4:5"}, 1, {4, 5}},
                                          {{"tool", "--timerange=4:5", "-tr=1:2"}, 1, {1, 2}},
                                          {{"tool", "--timerange=4", "-tr=1:2"}, 1, {1, 2}},
                                          {{"tool", "--timerange=4", "--timerange=4:5"}, 0, {77, 88}},
                                          {{"-tr=0:1", "-tr=1:2"}, 0, {77, 88}},
                                          {{"-tr=0:1", "--timerange=4:5"}, 1, {4, 5}},
                                          {{"--timerange=0:1", "--timerange=4:5"}, 0, {77, 88}}});
}

TEST(StepRangeFlag, TakesBothFormsInTheOrderWritten) {
    expectRanges(Kelp::getStepRangeFlag,
                 {{{"tool", "-sr=10:2"}, 1, {10, 2}},
                  {{"tool", "--steprange=-1:+3"}, 1, {-1, 3}},
                  {{"tool", "-sr=1.9:2e3"}, 1, {1, 2}},
                  {{"tool", "-sr=x: "}, 1, {0, 0}},
                  {{"tool", "-sr=2147483648:-2147483649"}, 1, {2147483647, -2147483647 - 1}},
                  {{"tool", "-sr=9223372036854775808:-9223372036854775809"}, 1, {2147483647, -2147483647 - 1}},
                  {{"tool", "-sr=1:2:3", "--steprange=4:5"}, 1, {4, 5}},
                  {{"tool", "--steprange=4:5", "-sr=1:2"}, 1, {1, 2}}});
}

TEST(StepRangeFlag, IsUnchangedWithoutTwoNumbers) {
    for (const char* const token : {"-sr", "-sr=", "-sr=1", "-sr=1:", "-sr=1:2:3", "-sr=1:2=3", "-SR=1:2", "-s=1:2",
                                    "--StepRange=1:2", "--steprange=1", "-tr=1:2", "--timerange=1:2"}) {
        expectRanges(Kelp::getStepRangeFlag, {{{"tool", token}, 0, {77, 88}}});
    }
    expectRanges(Kelp::getStepRangeFlag,
                 {{{"tool", "-sr=1", "-sr=1:2"}, 0, {77, 88}}, {{}, 0, {77, 88}}, {{"-sr=1:2"}, 0, {77, 88}}});
}

// Null elements of argv.

constexpr char nullText[] = "basic_string: construction from null is not valid";

struct Scan {
    const char* name;
    std::function<void(int, char**)> run;
};

/// Every scanner. None finds its flag in {"tool", "-x", null} before it reaches the null element.
const Scan scans[] = {
    {"getNextFlag", [](int argc, char** argv) { Kelp::getNextFlag(argc, argv, "-h", 1); }},
    {"getHelpFlag", [](int argc, char** argv) { Kelp::getHelpFlag(argc, argv); }},
    {"getStringFlag",
     [](int argc, char** argv) {
         std::string value;
         Kelp::getStringFlag(argc, argv, "-h", value, 1);
     }},
    {"getMultiStringFlag",
     [](int argc, char** argv) {
         Strings values;
         Kelp::getMultiStringFlag(argc, argv, "-x", values);
     }},
    {"getIntFlag",
     [](int argc, char** argv) {
         const CapturedOutput output;
         int value = 0;
         Kelp::getIntFlag(argc, argv, "-h", value, 1);
     }},
    {"getTimeRangeFlag",
     [](int argc, char** argv) {
         Times range{};
         Kelp::getTimeRangeFlag(argc, argv, range);
     }},
    {"getStepRangeFlag",
     [](int argc, char** argv) {
         Steps range{};
         Kelp::getStepRangeFlag(argc, argv, range);
     }},
    {"getFirstFileName", [](int argc, char** argv) { Kelp::getFirstFileName(argc, argv); }},
    {"getAllArguments", [](int argc, char** argv) { Kelp::getAllArguments(argc, argv); }},
};

void expectNullError(const Scan& scan, int argc, char** argv) {
    try {
        scan.run(argc, argv);
        ADD_FAILURE() << scan.name << " reached no null element";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), nullText) << scan.name;
    }
}

TEST(FlagScanners, ThrowWhenTheyReachANullElement) {
    Arguments texts{"tool", "-x"};
    char* line[] = {texts.argv()[0], texts.argv()[1], nullptr};
    for (const Scan& scan : scans) {
        expectNullError(scan, 3, line);
        EXPECT_NO_THROW(scan.run(1, line)) << scan.name;
    }
}

TEST(FlagScanners, ThrowWithoutArgv) {
    for (const Scan& scan : scans) {
        expectNullError(scan, 2, nullptr);
    }
}

TEST(FlagScanners, IgnoreANullElementAfterTheirMatch) {
    Arguments texts{"tool", "-h=1", "-tr=1:2", "-sr=1:2", "x"};
    char** const tokens = texts.argv();
    char* line[] = {tokens[0], tokens[1], tokens[2], tokens[3], tokens[4], nullptr};
    for (const Scan& scan : scans) {
        const std::string name = scan.name;
        if (name == "getMultiStringFlag" || name == "getAllArguments") {
            EXPECT_THROW(scan.run(6, line), std::logic_error) << name;
        } else {
            EXPECT_NO_THROW(scan.run(6, line)) << name;
        }
    }
}

TEST(FlagScanners, ReachANullProgramPathFromTheStartOnly) {
    Arguments texts{"x"};
    char* line[] = {nullptr, texts.argv()[0]};
    int value = 0;
    EXPECT_THROW(Kelp::tokenAt(2, line, 0), std::logic_error);
    EXPECT_THROW(Kelp::getNextFlag(2, line, "-h", 0), std::logic_error);
    EXPECT_THROW(Kelp::getHelpFlag(2, line), std::logic_error);
    EXPECT_THROW(Kelp::getIntFlag(0, line, "-h", value, 0), std::logic_error);
    EXPECT_EQ(Kelp::getNextFlag(2, line, "-h", 1), 0);
    EXPECT_EQ(Kelp::getFirstFileName(2, line), "x");
    EXPECT_EQ(Kelp::getAllArguments(2, line), Strings{"x"});
}

// Every command line of up to three tokens of a small vocabulary, compared with a plain model of the scanners' rules.

const Strings vocabulary{"",
                         "-",
                         "--",
                         "=",
                         "tool=3",
                         "-n",
                         "-N=4",
                         "-n=5=6",
                         "=-n=7x",
                         "-n12",
                         "n",
                         "n=8",
                         "--num",
                         "--num=9",
                         "--NUM=9",
                         "-tr=1:2",
                         "-tr=3:",
                         "-TR=1:2",
                         "--timerange=0.5:1e1",
                         "--timerange=1:2:3",
                         "-sr=2:1",
                         "--steprange=:7:8",
                         "-Hist",
                         "--help=x",
                         "--HELP",
                         "file"};

void compareFlag(const model::Line& line, Arguments& actual, const char* flag) {
    for (const int start : {-1, 0, 1, 2, 3}) {
        SCOPED_TRACE(start);
        ASSERT_EQ(Kelp::getNextFlag(actual.argc(), actual.argv(), flag, start), model::nextFlag(line, flag, start));
        ASSERT_EQ(scanner_answers::integer(actual, flag, start), model::intFlag(line, flag, start));
        int position = 0;
        std::string value = "before";
        ASSERT_EQ(scanner_answers::string(actual, flag, start), model::stringFlag(line, flag, start, position, value));
    }
    ASSERT_EQ(scanner_answers::strings(actual, flag), model::multiStringFlag(line, flag));
}

void compareAll(const model::Line& line) {
    Strings texts;
    for (const model::Token* const token : line) {
        texts.push_back(token->text);
    }
    SCOPED_TRACE(joined(texts));
    Arguments actual(texts);
    for (const char* const flag : {"-N", "--num", "n"}) {
        SCOPED_TRACE(flag);
        ASSERT_NO_FATAL_FAILURE(compareFlag(line, actual, flag));
    }
    ASSERT_EQ(scanner_answers::range(actual, Kelp::getTimeRangeFlag),
              model::rangeFlag(line, "-tr", "--timerange", false));
    ASSERT_EQ(scanner_answers::range(actual, Kelp::getStepRangeFlag),
              model::rangeFlag(line, "-sr", "--steprange", true));
    ASSERT_EQ(Kelp::getHelpFlag(actual.argc(), actual.argv()),
              model::nextFlag(line, "-h", 0) != 0 || model::nextFlag(line, "--help", 0) != 0);
    ASSERT_EQ(scanner_answers::positional(actual), model::positional(line));
}

TEST(FlagScannersExhaustive, AgreeWithTheRulesOnEveryShortCommandLine) {
    ASSERT_LE(Kelp::verbosity(), 10) << "K_VERBOSITY is set";
    std::vector<model::Token> tokens;
    for (const std::string& text : vocabulary) {
        tokens.push_back({text, piecesOf(text, '=')});
    }
    ASSERT_NO_FATAL_FAILURE(compareAll({}));
    for (const model::Token& first : tokens) {
        ASSERT_NO_FATAL_FAILURE(compareAll({&first}));
        for (const model::Token& second : tokens) {
            ASSERT_NO_FATAL_FAILURE(compareAll({&first, &second}));
            for (const model::Token& third : tokens) {
                ASSERT_NO_FATAL_FAILURE(compareAll({&first, &second, &third}));
            }
        }
    }
}

}  // namespace
