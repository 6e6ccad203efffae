#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "../../examples/common/progress.h"
#include "../../examples/histogram/count.h"
#include "arguments.h"
#include "fake_platform.h"
#include "progress_test.h"

namespace {

/// Frames with half of the work done, after 0.3 s or a little more. The first face blinks, so it has two frames.
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

class ExampleProgress : public ProgressTest {
protected:
    /// Returns everything that is drawn for 100 bytes. One half is copied at `halfSeconds`, the other half, unless the work
    /// fails, at 1000.5 s. The work starts at 1000 s.
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

TEST_F(ExampleProgress, BeginsAfterThreeTenthsOfASecond) {
    EXPECT_EQ(drawn(1000.29), "");
    EXPECT_EQ(drawn(1000.3), wholeFace);
    EXPECT_EQ(drawn(1000.31), wholeFace.substr(sizeof closedEyes - 1)) << "the last run has just blinked";
}

TEST_F(ExampleProgress, IsTheBarWhereMsystemIsSet) {
    const ScopedVariable terminal("MSYSTEM", "MINGW64");
    fake_platform::state().rewindResult = 0;
    EXPECT_EQ(drawn(1000.3), wholeBar);
    EXPECT_EQ(drawn(1000.29), "");
}

TEST_F(ExampleProgress, IsShownOnConsolesOnly) {
    for (const int noConsole : {0, -1}) {
        fake_platform::state().rewindResult = noConsole;
        EXPECT_EQ(drawn(1000.3), "") << noConsole;
    }
}

TEST_F(ExampleProgress, IsNotShownWithTraceLines) {
    EXPECT_EQ(drawn(1000.3, true, "-v"), "");
}

TEST_F(ExampleProgress, KeepsItsLinesIfTheWorkFails) {
    EXPECT_EQ(drawn(1000.29, false), "");
    EXPECT_EQ(drawn(1000.3, false), std::string(closedEyes) + openEyes + "\n\n\n\n\n\n");
    const ScopedVariable terminal("MSYSTEM", "MSYS");
    EXPECT_EQ(drawn(1000.3, false), std::string(halfBar) + "\n");
}

TEST_F(ExampleProgress, DrawsAtMostTenTimesASecond) {
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

// Progress of a tool that reads its file twice.

/// Reads a file in two blocks of 65536 bytes.
class HistogramProgress : public ProgressTest {
protected:
    HistogramProgress() {
        request.file = "example_progress_test.txt";
        std::ofstream file(request.file, std::ios::binary);
        for (int i = 0; i < 65536; ++i) {
            file << "1 ";
        }
    }

    ~HistogramProgress() override {
        std::remove(request.file.c_str());
    }

    /// Returns what one or both of the two passes draw. The clock advances before each pass.
    std::string drawnBy(int passes) {
        return written([&] {
            Arguments line{"histogram"};
            CommandLineTool tool(line.argc(), line.argv(), "");
            clock(1000.0);
            common::Progress progress(tool, "counting ", 262144);
            clock(1000.3);
            EXPECT_EQ(histogram::findExtent(request, progress).highest, 1.0);
            if (passes == 2) {
                clock(1000.5);
                EXPECT_EQ(histogram::count(request, {0.0, 2.0}, progress).inside, 65536U);
                progress.finish();
            }
        });
    }

    const ScopedVariable terminal{"MSYSTEM", "MSYS"};
    histogram::Request request;
};

TEST_F(HistogramProgress, CountsEveryBlockOfBothPasses) {
    EXPECT_EQ(drawnBy(1), "counting  25.0% ##########                           | time left: 0 secs  \r\n");
    EXPECT_EQ(drawnBy(2),
              "counting  25.0% ##########                           | time left: 0 secs  \r"
              "counting  75.0% ############################         | time left: 0 secs  \r"
              "counting 100.0% ###################################### done in: 0.5 secs  \r\n");
}

}  // namespace
