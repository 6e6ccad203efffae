#include "console/face_frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string runningFrame(const Kelp::FaceState& state, bool eyesClosed = false) {
    char buffer[Kelp::frameCapacity];
    Kelp::BoundedText frame(buffer, sizeof buffer);
    Kelp::appendRunningFrame(frame, state, eyesClosed);
    return std::string(frame.view());
}

std::string finishedFrame(const Kelp::FaceState& state, const char* eyes = "   /  ^ ^  \\\n") {
    char buffer[Kelp::frameCapacity];
    Kelp::BoundedText frame(buffer, sizeof buffer);
    Kelp::appendFinishedFrame(frame, state, eyes);
    return std::string(frame.view());
}

// Whole frames.

TEST(FaceFrame, ShowsLabelPercentageBarAndTimeLeft) {
    EXPECT_EQ(runningFrame({25.0, 200.0, 20, "Reading files", 1000.0, 1010.0}),
              "     _____\n"
              "    /     \\         Reading files\n"
              "   /  * *  \\\n"
              "   >   _   <        12.5% ###                 |  \n"
              "   \\  / \\  /\n"
              "    \\_____/         time remaining: 1 mins      \n");
    EXPECT_EQ(runningFrame({1.0, 2.0, 4, "", 1000.0, 1147.5}),
              "     _____\n"
              "    /     \\         \n"
              "   /  . .  \\\n"
              "   >       <        50.0% ## |  \n"
              "   \\  ---  /\n"
              "    \\_____/         time remaining: 2 mins      \n");
}

TEST(FaceFrame, ClosesItsEyesAndKeepsTheRest) {
    EXPECT_EQ(runningFrame({25.0, 200.0, 20, "Reading files", 1000.0, 1010.0}, true),
              "     _____\n"
              "    /     \\         Reading files\n"
              "   /  _ _  \\\n"
              "   >   _   <        12.5% ###                 |  \n"
              "   \\  / \\  /\n"
              "    \\_____/         time remaining: 1 mins      \n");
}

TEST(FaceFrame, CheersWithoutABar) {
    EXPECT_EQ(finishedFrame({200.0, 200.0, 20, "Reading files", 1000.0, 1090.0}, "   /  ^ ^  \\\n"),
              "     _____\n"
              "    /     \\         Reading files\n"
              "   /  ^ ^  \\\n"
              "   > \\   / <       100.0%\n"
              "   \\  \\_/  /\n"
              "    \\_____/         time spent:  1 mins      \n");
    EXPECT_EQ(finishedFrame({777.0, 0.5, -4, "x", 1000.0, 1000.0}, "   /  _ _  \\\n"),
              "     _____\n"
              "    /     \\         x\n"
              "   /  _ _  \\\n"
              "   > \\   / <       100.0%\n"
              "   \\  \\_/  /\n"
              "    \\_____/         time spent:  0 secs      \n");
}

TEST(FaceFrame, BrightensAsTheWorkProgresses) {
    const char* const worried = "   \\  / \\  /\n    \\_____/";
    const char* const flat = "   \\  ---  /\n    \\_____/";
    const char* const smiling = "   \\  \\_/  /\n    \\_____/";
    const struct {
        double ratio;
        const char* eyes;
        const char* middle;
        const char* percentage;
        const char* mouth;
    } cases[] = {
        {-1.0, "* *", "  _  ", "-100.0", worried},
        {4.9e-324, "* *", "  _  ", "0.0", worried},
        {0.1, "* *", "  _  ", "10.0", worried},
        {0.24999999999999997, "* *", "  _  ", "25.0", worried},
        {0.25, "* *", "     ", "25.0", flat},
        {0.25000000000000006, "* *", "     ", "25.0", flat},
        {0.39999999999999997, "* *", "     ", "40.0", flat},
        {0.4, ". .", "     ", "40.0", flat},
        {0.5999999999999999, ". .", "     ", "60.0", flat},
        {0.6, ". .", "     ", "60.0", smiling},
        {0.7999999999999999, ". .", "     ", "80.0", smiling},
        {0.8, "o o", "     ", "80.0", smiling},
        {0.8999999999999999, "o o", "     ", "90.0", smiling},
        {0.9, "* *", "     ", "90.0", smiling},
        {0.9999999999999999, "* *", "     ", "100.0", smiling},
    };
    for (const auto& c : cases) {
        for (const bool closed : {false, true}) {
            // The work starts now, so the estimate is 0 at any pace.
            const std::string frame = runningFrame({c.ratio, 1.0, 0, "label", 1000.0, 1000.0}, closed);
            EXPECT_EQ(frame, std::string("     _____\n    /     \\         label\n") + "   /  " +
                                 (closed ? "_ _" : c.eyes) + "  \\\n   > " + c.middle + " <        " + c.percentage +
                                 "% |  \n" + c.mouth + "         time remaining: 0 secs      \n")
                << std::to_string(c.ratio) << (closed ? " closed" : " open");
        }
    }
}

TEST(FaceFrame, IsRunningBelowARatioOfOne) {
    const struct {
        double value;
        double total;
        bool running;
    } cases[] = {
        {0.0, 1.0, true},         {0.9999999999999999, 1.0, true},
        {1.0, 1.0, false},        {1.0000000000000002, 1.0, false},
        {-1.0, 1.0, true},        {-1.0, -1.0, false},
        {1.0, infinity, true},    {1.0, -infinity, true},
        {infinity, 1.0, false},   {-infinity, 1.0, true},
        {1.0, 0.0, false},        {-1.0, 0.0, true},
        {0.0, 0.0, false},        {notANumber, 1.0, false},
        {1.0, notANumber, false}, {infinity, infinity, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ((Kelp::FaceState{c.value, c.total, 0, "", 0.0, 0.0}.isRunning()), c.running)
            << c.value << " of " << c.total;
    }
}

// Single lines.

/// Returns one line of a frame without its line end. The first is 0.
std::string lineOf(const std::string& frame, int number) {
    std::size_t begin = 0;
    for (int i = 0; i < number; ++i) {
        begin = frame.find('\n', begin) + 1;
    }
    return frame.substr(begin, frame.find('\n', begin) - begin);
}

/// Returns the text to the right of the middle row of a running face.
std::string bar(double value, double total, int width) {
    return lineOf(runningFrame({value, total, width, "", 1000.0, 1000.0}), 3).substr(12);
}

/// Returns the text to the right of the chin.
std::string time(const std::string& frame) {
    return lineOf(frame, 5).substr(11);
}

TEST(FaceFrameLines, TheBarIsDrawnForTheRoundedTotal) {
    const struct {
        const char* name;
        double value;
        double total;
        int width;
        const char* expected;
    } cases[] = {
        {"whole total", 1.0, 4.0, 10, "        25.0% ###       |  "},
        {"whole filled part", 1.0, 2.0, 10, "        50.0% #####    |  "},
        {"nothing done", 0.0, 2.0, 10, "        0.0%          |  "},
        {"width 0", 1.0, 2.0, 0, "        50.0% |  "},
        {"width 1", 1.0, 2.0, 1, "        50.0% #|  "},
        {"2.5 counts as 3", 1.5, 2.5, 10, "        60.0% #####    |  "},
        {"2.4 counts as 2", 1.2, 2.4, 10, "        50.0% ######   |  "},
        {"3.5 counts as 4", 3.0, 3.5, 8, "        85.7% ###### |  "},
        {"0.5 counts as 1", 0.25, 0.5, 10, "        50.0% ###       |  "},
        {"-0.5 counts as -1", 0.25, -0.5, 4, "        -50.0%     |  "},
        {"1.4 counts as 1: the bar is longer than its width", 1.3125, 1.4, 4, "        93.8% ######|  "},
        {"negative value", -1.0, 2.0, 4, "        -50.0%      |  "},
        {"negative zero", -0.0, 2.0, 4, "        -0.0%    |  "},
        {"endless total", 1.0, infinity, 4, "        0.0%    |  "},
        {"least width", 1.0, 2.0, -2147483647 - 1, "        50.0% |  "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(bar(c.value, c.total, c.width), c.expected) << c.name;
    }
}

/// Expects a cut bar line: `begin`, then only `filled` characters. The other lines stay.
void expectCutBar(const char* name, const Kelp::FaceState& state, const std::string& begin, char filled) {
    const std::string frame = runningFrame(state);
    EXPECT_EQ(std::count(frame.begin(), frame.end(), '\n'), 6) << name;
    const std::string line = lineOf(frame, 3).substr(12);
    EXPECT_EQ(line.substr(0, begin.size()), begin) << name;
    EXPECT_GT(line.size(), 300U) << name;
    EXPECT_EQ(line.find_first_not_of(filled, begin.size()), std::string::npos) << name;
    EXPECT_EQ(lineOf(frame, 1), "    /     \\         " + std::string(state.label)) << name;
    EXPECT_EQ(lineOf(frame, 5).substr(0, 36), "    \\_____/         time remaining: ") << name;
    EXPECT_EQ(frame.substr(frame.size() - 12), " secs      \n") << name;
}

TEST(FaceFrameLines, AnEndlessBarIsCutAndTheRowsStay) {
    const std::string longest(128, 'x');
    const struct {
        const char* name;
        Kelp::FaceState state;
        const char* begin;
        char filled;
    } cases[] = {
        {"0.4 counts as 0", {0.1, 0.4, 10, "x", 1.0, 1.0}, "        25.0% #", '#'},
        {"nothing of 0.4", {0.0, 0.4, 10, "x", 1.0, 1.0}, "        0.0%  ", ' '},
        {"just below 0.5", {0.1, 0.49999999999999994, 10, "x", 1.0, 1.0}, "        20.0% #", '#'},
        {"width 0 of 0.4", {0.1, 0.4, 0, "x", 1.0, 1.0}, "        25.0%  ", ' '},
        {"-0.4 counts as -0", {0.1, -0.4, 10, "x", 1.0, 1.0}, "        -25.0%  ", ' '},
        {"largest width", {1.0, 2.0, 2147483647, longest, 1.0, 1.0}, "        50.0% #", '#'},
        {"minus infinity", {-infinity, 2.0, 10, longest, 1.0, 1.0}, "        -inf%  ", ' '},
    };
    for (const auto& c : cases) {
        expectCutBar(c.name, c.state, c.begin, c.filled);
    }
}

TEST(FaceFrameLines, ShowsAllDigitsOfAHugePercentage) {
    // The ratio is -1e306.
    const std::string digits =
        "10000000000000000109790636294404554174049230967731184633681068290315758540491149153716332897849468889906124966"
        "97211725156115902837431400883283070091981460460312716645029330271856974896995885590433383844661650011784268976"
        "26212945177628091195786707458122783970171784415105291802893207873272974885715430223118336";
    EXPECT_EQ(bar(1e306, -1.0, 0), "        -" + digits + ".0% |  ");
}

TEST(FaceFrameLines, EstimatesTheTimeRemaining) {
    const struct {
        double elapsed;
        const char* expected;
    } cases[] = {
        {0.0, "         time remaining: 0 secs      "},
        {2.0, "         time remaining: 1 secs      "},
        {70.0, "         time remaining: 59 secs      "},
        {71.0, "         time remaining: 1 mins      "},     // 60
        {140.5, "         time remaining: 1 mins      "},    // 119
        {147.5, "         time remaining: 2 mins      "},    // 125
        {4235.0, "         time remaining: 59 mins      "},  // 3599
        {4236.0, "         time remaining: 1 hours     "},   // 3600
        {8471.0, "         time remaining: 2 hours     "},   // 7200
        {-70.0, "         time remaining: -59 secs      "},
        {1e300, "         time remaining: -2147483648 secs      "},
        {infinity, "         time remaining: -2147483648 secs      "},
        {notANumber, "         time remaining: -2147483648 secs      "},
    };
    for (const auto& c : cases) {
        // Half of the work is done: the estimate is the elapsed time times 0.85.
        EXPECT_EQ(time(runningFrame({1.0, 2.0, 4, "", 1000.0, 1000.0 + c.elapsed})), c.expected) << c.elapsed;
    }
    EXPECT_EQ(time(runningFrame({0.0, 2.0, 4, "", 1000.0, 1010.0})), "         time remaining: -2147483648 secs      ");
    EXPECT_EQ(time(runningFrame({2.0, 200.0, 4, "", 1000.0, 1001.0})), "         time remaining: 2 mins      ");
}

TEST(FaceFrameLines, ShowsTheTimeSpent) {
    const struct {
        double elapsed;
        const char* expected;
    } cases[] = {
        {0.0, "         time spent:  0 secs      "},
        {0.99, "         time spent:  0 secs      "},
        {59.0, "         time spent:  59 secs      "},
        {59.99, "         time spent:  59 secs      "},
        {60.0, "         time spent:  1 mins      "},
        {119.99, "         time spent:  1 mins      "},
        {120.0, "         time spent:  2 mins      "},
        {3599.9, "         time spent:  59 mins      "},
        {3600.0, "         time spent:  1 hours     "},
        {7199.9, "         time spent:  1 hours     "},
        {86400.0, "         time spent:  24 hours     "},
        {-0.99, "         time spent:  0 secs      "},
        {-70.0, "         time spent:  -70 secs      "},
        {2147483647.0, "         time spent:  596523 hours     "},
        {2147483648.0, "         time spent:  -2147483648 secs      "},
        {infinity, "         time spent:  -2147483648 secs      "},
        {notANumber, "         time spent:  -2147483648 secs      "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(time(finishedFrame({1.0, 1.0, 4, "", 1000.0, 1000.0 + c.elapsed})), c.expected) << c.elapsed;
    }
}

TEST(FaceFrameLines, ShowsTheTimeForEveryStart) {
    EXPECT_EQ(time(finishedFrame({1.0, 1.0, 4, "", 0.0, 1000.0})), "         time spent:  16 mins      ");
    EXPECT_EQ(time(finishedFrame({1.0, 1.0, 4, "", -10.0, 10.0})), "         time spent:  20 secs      ");
    EXPECT_EQ(time(runningFrame({1.0, 2.0, 4, "", 0.0, 10.0})), "         time remaining: 8 secs      ");
    EXPECT_EQ(time(runningFrame({1.0, 2.0, 4, "", -10.0, 0.0})), "         time remaining: 8 secs      ");
}

}  // namespace
