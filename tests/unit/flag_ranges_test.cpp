#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <functional>
#include <limits>
#include <stdexcept>

#include "arguments.h"
#include "bit_pattern.h"
#include "captured_output.h"
#include "util/tokens.h"

namespace {

using Strings = std::vector<std::string>;
using Steps = std::array<int, 2>;
using Times = std::array<double, 2>;

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

/// Where C's atof and the conversion of option values part.
TEST(TimeRangeFlag, ReadsWhatTheCLibraryReads) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    expectRanges(Kelp::getTimeRangeFlag, {{{"tool", "-tr=inf:0x10"}, 1, {infinity, 16}},
                                          {{"tool", "-tr=1e:-1e999"}, 1, {1, -infinity}},
                                          {{"tool", "-tr=-infinity:1e+"}, 1, {-infinity, 1}}});
}

TEST(TimeRangeFlag, IsUntouchedWithoutTwoNumbers) {
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

TEST(StepRangeFlag, IsUntouchedWithoutTwoNumbers) {
    for (const char* const token : {"-sr", "-sr=", "-sr=1", "-sr=1:", "-sr=1:2:3", "-sr=1:2=3", "-SR=1:2", "-s=1:2",
                                    "--StepRange=1:2", "--steprange=1", "-tr=1:2", "--timerange=1:2"}) {
        expectRanges(Kelp::getStepRangeFlag, {{{"tool", token}, 0, {77, 88}}});
    }
    expectRanges(Kelp::getStepRangeFlag,
                 {{{"tool", "-sr=1", "-sr=1:2"}, 0, {77, 88}}, {{}, 0, {77, 88}}, {{"-sr=1:2"}, 0, {77, 88}}});
}

constexpr char nullText[] = "basic_string: construction from null is not valid";

struct Scan {
    const char* name;
    std::function<void(int, char**)> run;
};

/// Every scanner, looking for something that the lines below do not hold before their last token.
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

TEST(FlagScanners, ThrowWhenTheyReachANullElement) {
    Arguments texts{"tool", "-x"};
    char* line[] = {texts.argv()[0], texts.argv()[1], nullptr};
    for (const Scan& scan : scans) {
        try {
            scan.run(3, line);
            ADD_FAILURE() << scan.name << " reached nothing";
        } catch (const std::logic_error& error) {
            EXPECT_STREQ(error.what(), nullText) << scan.name;
        }
        EXPECT_NO_THROW(scan.run(1, line)) << scan.name;
    }
}

TEST(FlagScanners, ThrowWithoutArgv) {
    for (const Scan& scan : scans) {
        try {
            scan.run(2, nullptr);
            ADD_FAILURE() << scan.name << " reached nothing";
        } catch (const std::logic_error& error) {
            EXPECT_STREQ(error.what(), nullText) << scan.name;
        }
    }
}

TEST(FlagScanners, LeaveANullElementBehindTheirFindAlone) {
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

TEST(FlagScanners, LookAtANullProgramPathOnlyFromTheStart) {
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

}  // namespace
