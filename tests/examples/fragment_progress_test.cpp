#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../examples/common/progress.h"
#include "arguments.h"
#include "fake_platform.h"
#include "progress_test.h"

namespace {

/// Half of the work is done, after 0.3 s or a little more. The first face blinks, so two frames are drawn.
constexpr char closedEyes[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  _ _  \\\n"
    "   >       <        50.0% ###################                  |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 0 secs      \n";
constexpr char openEyes[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  . .  \\\n"
    "   >       <        50.0% ###################                  |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 0 secs      \n";
constexpr char cheer[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  ^ ^  \\\n"
    "   > \\   / <       100.0%\n"
    "   \\  \\_/  /\n"
    "    \\_____/         time spent:  0 secs      \n";
constexpr char cheerWithClosedEyes[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  _ _  \\\n"
    "   > \\   / <       100.0%\n"
    "   \\  \\_/  /\n"
    "    \\_____/         time spent:  0 secs      \n";
constexpr char halfBar[] = "copying  50.0% ###################                  | time left: 0 secs  \r";
constexpr char fullBar[] = "copying 100.0% ###################################### done in: 0.5 secs  \r";

class FragmentProgress : public ProgressTest {
protected:
    /// Everything that is drawn for 100 bytes, of which one half is copied at the given time and the other, unless the
    /// work fails before that, at 1000.5 s.
    std::string drawn(double halfSeconds, bool succeeds = true, const char* flag = "file") {
        return written([&] {
            Arguments line{"fragment", flag};
            CommandLineTool tool(line.argc(), line.argv(), "", Kelp::Option("-v", "--verbose", "", false));
            clock(1000.0);
            common::Progress progress(tool, "copying ", 100);
            clock(halfSeconds);
            progress.advance(50);
            clock(1000.5);
            if (succeeds) {
                progress.advance(50);
                progress.finish();
            }
        });
    }

    const std::string wholeFace = std::string(closedEyes) + openEyes + cheer + cheerWithClosedEyes + cheer;
    const std::string wholeBar = std::string(halfBar) + fullBar + "\n";
};

TEST_F(FragmentProgress, BeginsAfterThreeTenthsOfASecond) {
    EXPECT_EQ(drawn(1000.29), "");
    EXPECT_EQ(drawn(1000.3), wholeFace);
    EXPECT_EQ(drawn(1000.31), wholeFace.substr(sizeof closedEyes - 1)) << "the blink of the run before was just now";
}

TEST_F(FragmentProgress, IsTheBarWhereMsystemIsSet) {
    const ScopedVariable terminal("MSYSTEM", "MINGW64");
    fake_platform::state().rewindResult = 0;
    EXPECT_EQ(drawn(1000.3), wholeBar);
    EXPECT_EQ(drawn(1000.29), "");
}

TEST_F(FragmentProgress, IsShownOnConsolesOnly) {
    for (const int noConsole : {0, -1}) {
        fake_platform::state().rewindResult = noConsole;
        EXPECT_EQ(drawn(1000.3), "") << noConsole;
    }
}

TEST_F(FragmentProgress, MakesRoomForTraceLines) {
    EXPECT_EQ(drawn(1000.3, true, "-v"), "");
}

TEST_F(FragmentProgress, LeavesItsLinesWhenTheWorkFails) {
    EXPECT_EQ(drawn(1000.29, false), "");
    EXPECT_EQ(drawn(1000.3, false), std::string(closedEyes) + openEyes + "\n\n\n\n\n\n");
    const ScopedVariable terminal("MSYSTEM", "MSYS");
    EXPECT_EQ(drawn(1000.3, false), std::string(halfBar) + "\n");
}

TEST_F(FragmentProgress, DrawsTenTimesASecond) {
    const ScopedVariable terminal("MSYSTEM", "MSYS");
    const std::string text = written([&] {
        Arguments line{"fragment"};
        CommandLineTool tool(line.argc(), line.argv(), "");
        clock(1000.0);
        common::Progress progress(tool, "", 10);
        for (const double now : {1000.3, 1000.39, 1000.41, 1000.5, 1000.52}) {
            clock(now);
            progress.advance(1);
        }
    });
    EXPECT_EQ(text,
              " 10.0% ####                                 | time left: 3 secs  \r"
              " 30.0% ############                         | time left: 1 secs  \r"
              " 50.0% ###################                  | time left: 0 secs  \r\n");
}

}  // namespace
