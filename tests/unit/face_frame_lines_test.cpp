#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "console/face_frame.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string runningFrame(const Kelp::FaceState& state) {
    char buffer[Kelp::frameCapacity];
    Kelp::BoundedText frame(buffer, sizeof buffer);
    Kelp::appendRunningFrame(frame, state, false);
    return std::string(frame.view());
}

std::string finishedFrame(const Kelp::FaceState& state) {
    char buffer[Kelp::frameCapacity];
    Kelp::BoundedText frame(buffer, sizeof buffer);
    Kelp::appendFinishedFrame(frame, state, "   /  ^ ^  \\\n");
    return std::string(frame.view());
}

/// One of a frame's lines, from 0, without the line end.
std::string lineOf(const std::string& frame, int number) {
    std::size_t begin = 0;
    for (int i = 0; i < number; ++i) {
        begin = frame.find('\n', begin) + 1;
    }
    return frame.substr(begin, frame.find('\n', begin) - begin);
}

/// What follows the middle row of a running face.
std::string bar(double value, double total, int width) {
    return lineOf(runningFrame({value, total, width, "", 1000.0, 1000.0}), 3).substr(12);
}

/// What follows the chin.
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

/// A bar without an end is cut: "filled" repeats from the end of `begin` on, and nothing else follows.
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

TEST(FaceFrameLines, ABarWithoutAnEndIsCutAndTheRowsStay) {
    const std::string longest(128, 'x');
    expectCutBar("0.4 counts as 0", {0.1, 0.4, 10, "x", 1.0, 1.0}, "        25.0% #", '#');
    expectCutBar("nothing of 0.4", {0.0, 0.4, 10, "x", 1.0, 1.0}, "        0.0%  ", ' ');
    expectCutBar("just below 0.5", {0.1, 0.49999999999999994, 10, "x", 1.0, 1.0}, "        20.0% #", '#');
    expectCutBar("width 0 of 0.4", {0.1, 0.4, 0, "x", 1.0, 1.0}, "        25.0%  ", ' ');
    expectCutBar("-0.4 counts as -0", {0.1, -0.4, 10, "x", 1.0, 1.0}, "        -25.0%  ", ' ');
    expectCutBar("largest width", {1.0, 2.0, 2147483647, longest, 1.0, 1.0}, "        50.0% #", '#');
    expectCutBar("minus infinity", {-infinity, 2.0, 10, longest, 1.0, 1.0}, "        -inf%  ", ' ');
}

TEST(FaceFrameLines, ShowsAllDigitsOfAHugePercentage) {
    // The ratio is -1e306, the bar shows it behind all its digits.
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
        // At the half: as long again as it took, times 0.85.
        EXPECT_EQ(time(runningFrame({1.0, 2.0, 4, "", 1000.0, 1000.0 + c.elapsed})), c.expected) << c.elapsed;
    }
    EXPECT_EQ(time(runningFrame({0.0, 2.0, 4, "", 1000.0, 1010.0})), "         time remaining: -2147483648 secs      ");
    EXPECT_EQ(time(runningFrame({2.0, 200.0, 4, "", 1000.0, 1001.0})), "         time remaining: 2 mins      ");
}

TEST(FaceFrameLines, TellsTheTimeSpent) {
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

TEST(FaceFrameLines, TellsTheTimeWhateverTheStart) {
    EXPECT_EQ(time(finishedFrame({1.0, 1.0, 4, "", 0.0, 1000.0})), "         time spent:  16 mins      ");
    EXPECT_EQ(time(finishedFrame({1.0, 1.0, 4, "", -10.0, 10.0})), "         time spent:  20 secs      ");
    EXPECT_EQ(time(runningFrame({1.0, 2.0, 4, "", 0.0, 10.0})), "         time remaining: 8 secs      ");
    EXPECT_EQ(time(runningFrame({1.0, 2.0, 4, "", -10.0, 0.0})), "         time remaining: 8 secs      ");
}

}  // namespace
