#include <kelplib/CommandLineTool.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "arguments.h"
#include "progress_test.h"

namespace {

constexpr char frameAtHalf[] =
    "     _____\n"
    "    /     \\         half\n"
    "   /  . .  \\\n"
    "   >       <        50.0% ###################                  |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 8 secs      \n";

class CommandLineToolProgress : public ProgressTest {
protected:
    CommandLineToolProgress()
        : quietLine{"tool"},
          verboseLine{"tool", "-v"},
          quiet(quietLine.argc(), quietLine.argv(), ""),
          verbose(verboseLine.argc(), verboseLine.argv(), "", Kelp::Option("-v", "--verbose", "", false)) {}

    /// What a report with room for 20 characters draws.
    static std::string report(CommandLineTool& tool, double value, const char* text) {
        return written([&] { tool.progress(value, text, 20); });
    }

    Arguments quietLine;
    Arguments verboseLine;
    CommandLineTool quiet;
    CommandLineTool verbose;
};

TEST_F(CommandLineToolProgress, SetsTheDisplayUp) {
    for (CommandLineTool* const tool : {&quiet, &verbose}) {
        KELP_GlobalProgress = KELP_GlobalProgressData();
        KELP_GlobalProgress.last_blink = 99.0;
        clock(1234.5);
        EXPECT_EQ(written([tool] { tool->initProgress(200.0, "abcdefghijklmnopqrstuvwxyz0123", 20); }), "");
        EXPECT_EQ(KELP_GlobalProgress.total, 200.0);
        EXPECT_EQ(KELP_GlobalProgress.width, 37);
        EXPECT_STREQ(KELP_GlobalProgress.text, "abcdefg...uvwxyz0123");
        EXPECT_EQ(KELP_GlobalProgress.start_time, 1234.5);
        EXPECT_EQ(KELP_GlobalProgress.smile, 1);
        EXPECT_EQ(KELP_GlobalProgress.terminal_env, nullptr);
        EXPECT_EQ(KELP_GlobalProgress.last_blink, 99.0);
    }
}

TEST_F(CommandLineToolProgress, SetsTheBarUpWithMsystem) {
    const ScopedVariable msystem("MSYSTEM", "MINGW64");
    for (CommandLineTool* const tool : {&quiet, &verbose}) {
        KELP_GlobalProgress = KELP_GlobalProgressData();
        tool->initProgress(200.0, "label", 20);
        EXPECT_EQ(KELP_GlobalProgress.smile, 0);
        EXPECT_EQ(KELP_GlobalProgress.terminal_env, std::getenv("MSYSTEM"));
        EXPECT_STREQ(KELP_GlobalProgress.terminal_env, "MINGW64");
    }
}

TEST_F(CommandLineToolProgress, BeginsAnew) {
    quiet.initProgress(200.0, "a longer label", 20);
    KELP_GlobalProgress.width = 5;
    KELP_GlobalProgress.smile = 3;
    clock(2000.0);
    quiet.initProgress(7.0, "b", 20);
    EXPECT_EQ(KELP_GlobalProgress.total, 7.0);
    EXPECT_EQ(KELP_GlobalProgress.width, 37);
    EXPECT_STREQ(KELP_GlobalProgress.text, "b");
    EXPECT_EQ(KELP_GlobalProgress.start_time, 2000.0);
    EXPECT_EQ(KELP_GlobalProgress.smile, 1);
    const ScopedVariable msystem("MSYSTEM", "MINGW64");
    quiet.initProgress(7.0, "b", 20);
    EXPECT_EQ(KELP_GlobalProgress.smile, 0) << "MSYSTEM is asked for every time";
}

TEST_F(CommandLineToolProgress, StoresLabelsThatFit) {
    const struct {
        std::string text;
        unsigned long long maxLength;
        std::string expected;
    } cases[] = {
        {"", 20, ""},
        {"abcdef", 3, "...def"},
        {"abcdef", 0, "...def"},
        {std::string("ab\0cd", 5), 20, "ab"},
        {std::string("abcdef\0g", 8), 6, "...def"},
        {std::string(127, 'x'), 128, std::string(127, 'x')},
        {std::string(600, 'x'), 1000, std::string(61, 'x') + "..." + std::string(64, 'x')},
        {std::string(600, 'x'), 18446744073709551615ULL, std::string(61, 'x') + "..." + std::string(64, 'x')},
    };
    for (const auto& c : cases) {
        for (const bool atSetUp : {true, false}) {
            quiet.initProgress(2.0, atSetUp ? c.text : "earlier", c.maxLength);
            if (!atSetUp) {
                written([&] { quiet.progress(1.0, c.text, c.maxLength); });
            }
            std::string field(KELP_GlobalProgress.text, sizeof KELP_GlobalProgress.text);
            std::string expected = c.expected;
            expected.resize(field.size());
            EXPECT_EQ(field, expected) << c.text << " in " << c.maxLength << (atSetUp ? " at set-up" : " later");
        }
    }
}

TEST_F(CommandLineToolProgress, DrawsTheFace) {
    quiet.initProgress(200.0, "start", 20);
    KELP_GlobalProgress.last_blink = 1008.0;
    clock(1010.0);
    EXPECT_EQ(report(quiet, 100.0, "half"), frameAtHalf);
    EXPECT_EQ(fake_platform::state().rewoundLines, std::vector<unsigned int>{6});
}

TEST_F(CommandLineToolProgress, DrawsTheBarInAnyOtherMode) {
    quiet.initProgress(200.0, "start", 20);
    clock(1010.0);
    for (const int smile : {0, 2}) {
        KELP_GlobalProgress.smile = smile;
        EXPECT_EQ(report(quiet, 100.0, "half"),
                  "half 50.0% ###################                  | time left: 8 secs  \r")
            << smile;
    }
    const ScopedVariable msystem("MSYSTEM", "MINGW64");
    quiet.initProgress(200.0, "start", 20);
    EXPECT_EQ(report(quiet, 200.0, "done"), "done100.0% ###################################### done in: 0.0 secs  \r");
    EXPECT_TRUE(fake_platform::state().rewoundLines.empty());
}

TEST_F(CommandLineToolProgress, DrawsNothingInVerboseMode) {
    verbose.initProgress(200.0, "start", 20);
    const auto before = bytesOf(KELP_GlobalProgress);
    for (const double value : {100.0, 200.0, -1.0}) {
        clock(2000.0);
        EXPECT_EQ(report(verbose, value, "half"), "") << value;
        EXPECT_EQ(bytesOf(KELP_GlobalProgress), before) << value;
    }
    KELP_GlobalProgress.smile = 0;
    EXPECT_EQ(report(verbose, -1.0, "half"), "");
    EXPECT_STREQ(KELP_GlobalProgress.text, "start");
    EXPECT_TRUE(fake_platform::state().rewoundLines.empty());
    EXPECT_TRUE(fake_platform::state().sleepsMilliseconds.empty());
}

TEST_F(CommandLineToolProgress, IsSharedByAllTools) {
    verbose.initProgress(200.0, "start", 20);
    KELP_GlobalProgress.smile = 0;
    clock(1010.0);
    EXPECT_EQ(report(quiet, 100.0, "half"), "half 50.0% ###################                  | time left: 8 secs  \r");
}

TEST_F(CommandLineToolProgress, CanBeDrivenOnAfterAReportThatDrewTheFaceOfNegativeProgress) {
    quiet.initProgress(200.0, "start", 20);
    KELP_GlobalProgress.last_blink = 1008.0;
    clock(1010.0);
    EXPECT_NE(report(quiet, -100.0, "less").find("   >   _   <        -50.0% "), std::string::npos);
    EXPECT_EQ(report(quiet, 100.0, "half"), frameAtHalf);
}

TEST_F(CommandLineToolProgress, IsUnlockedWhenDrawingThrows) {
    quiet.initProgress(200.0, "start", 20);
    fake_platform::state().onSleep = [](unsigned int) { throw std::runtime_error("in the middle of a blink"); };
    EXPECT_THROW(report(quiet, 100.0, "half"), std::runtime_error);
    fake_platform::state().onSleep = nullptr;
    clock(1010.0);
    KELP_GlobalProgress.last_blink = 1008.0;
    // A lock that is still held would stop this for ever.
    EXPECT_EQ(report(quiet, 100.0, "half"), frameAtHalf);
}

}  // namespace
