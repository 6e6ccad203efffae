#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <stdexcept>

#include "arguments.h"
#include "flush_recorder.h"

namespace {

using Strings = std::vector<std::string>;

struct StringCase {
    Strings tokens;
    const char* flag;
    int start;
    int expected;
    std::string value;
};

TEST(StringFlag, TakesWhatFollowsTwoCharacters) {
    const StringCase cases[] = {
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
    for (const StringCase& each : cases) {
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

struct IntCase {
    Strings tokens;
    const char* flag;
    int start;
    int expected;
    int value;
    const char* printed;  ///< "~" for every flush
};

/// At a verbosity of 10 or less.
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

TEST_F(IntFlag, IsTheNumberBehindTheEqualsSign) {
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

TEST_F(IntFlag, ReadsTheProgramPathWhenNothingIsFoundFromTheStart) {
    expectInts({{{"a=5"}, "-n", 0, 0, 5, ""},
                {{"a=5", "x"}, "-n", -3, 0, 5, ""},
                {{"-n=6", "-n=7"}, "-n", 0, 0, 6, ""},
                {{"tool", "x"}, "-n", 0, 0, 77, "\n~"},
                {{"tool", "x"}, "-n", -1, 0, 77, "\n~"},
                {{""}, "-n", 0, 0, 77, "\n~"},
                {{"a=5", "x"}, "-n", 1, 0, 77, "\n~"}});
}

TEST_F(IntFlag, ReadsTheProgramPathBehindAnEmptyCommandLine) {
    Arguments line{"a=5"};
    int value = 77;
    EXPECT_EQ(Kelp::getIntFlag(0, line.argv(), "-n", value, 0), 0);
    EXPECT_EQ(value, 5);
    EXPECT_THROW(Kelp::getIntFlag(-1, line.argv(), "-n", value, -1), std::logic_error);
}

}  // namespace
