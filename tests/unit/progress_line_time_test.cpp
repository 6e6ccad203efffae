#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "console/progress_line.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string line(double value, double startTime, double now) {
    char buffer[400];
    Kelp::BoundedText text(buffer, sizeof buffer);
    Kelp::appendProgressLine(text, value, 2.0, 4, "x", startTime, now);
    return std::string(text.view());
}

/// Half of the work is done: as much is left as it took, times 0.85.
std::string halfway(double startTime, double now) {
    return line(1.0, startTime, now);
}

std::string finished(double startTime, double now) {
    return line(2.0, startTime, now);
}

TEST(ProgressLineTime, ShowsTheTimeLeftWhileWorkGoesOn) {
    const struct {
        double elapsed;
        const char* expected;
    } cases[] = {
        {0.0, "x 50.0% ## | time left: 0 secs  "},
        {1.0, "x 50.0% ## | time left: 0 secs  "},
        {2.0, "x 50.0% ## | time left: 1 secs  "},
        {69.0, "x 50.0% ## | time left: 58 secs  "},
        {70.0, "x 50.0% ## | time left: 59 secs  "},
        {71.0, "x 50.0% ## | time left: 1 mins  "},               // 60
        {140.5, "x 50.0% ## | time left: 1 mins  "},              // 119
        {142.0, "x 50.0% ## | time left: 2 mins  "},              // 120
        {4235.0, "x 50.0% ## | time left: 59 mins  "},            // 3599
        {4236.0, "x 50.0% ## | time left: 1 hours "},             // 3600
        {8470.0, "x 50.0% ## | time left: 1 hours "},             // 7199
        {8471.0, "x 50.0% ## | time left: 2 hours "},             // 7200
        {2526451350.0, "x 50.0% ## | time left: 596523 hours "},  // 2147483647
        {2526451355.0, "x 50.0% ## | time left: -2147483648 secs  "},
        {-70.0, "x 50.0% ## | time left: -59 secs  "},
        {-71.0, "x 50.0% ## | time left: -60 secs  "},
        {-5001.0, "x 50.0% ## | time left: -4250 secs  "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(halfway(1000.0, 1000.0 + c.elapsed), c.expected) << c.elapsed;
    }
}

TEST(ProgressLineTime, HasNoEstimateAtTheBeginning) {
    EXPECT_EQ(line(0.0, 1000.0, 1010.0), "x  0.0%    | time left: -2147483648 secs  ");
    EXPECT_EQ(line(0.0, 1000.0, 1000.0), "x  0.0%    | time left: -2147483648 secs  ");
    EXPECT_EQ(line(0.0, 1000.0, 990.0), "x  0.0%    | time left: -2147483648 secs  ");
}

TEST(ProgressLineTime, IsCautiousAtTheBeginning) {
    EXPECT_EQ(line(0.02, 1000.0, 1000.2), "x  1.0% #   | time left: 26 secs  ");   // 19.8 s * 1.34 = 26.5
    EXPECT_EQ(line(0.5, 1000.0, 1010.1), "x 25.0% #  | time left: 33 secs  ");     // 30.3 s * 1.10 = 33.3
    EXPECT_EQ(line(1.98, 1000.0, 10950.0), "x 99.0% ####| time left: 36 secs  ");  // 100.5 s * 0.36 = 36.2
}

TEST(ProgressLineTime, ShowsTheTimeSpentAtTheEnd) {
    const struct {
        double elapsed;
        const char* expected;
    } cases[] = {
        {0.0, "x100.0% ##### done in: 0.0 secs  "},     {0.25, "x100.0% ##### done in: 0.2 secs  "},
        {12.34, "x100.0% ##### done in: 12.3 secs  "},  {59.0, "x100.0% ##### done in: 59.0 secs  "},
        {59.94, "x100.0% ##### done in: 59.9 secs  "},  {59.99, "x100.0% ##### done in: 60.0 secs  "},
        {60.0, "x100.0% ##### done in: 1.0 mins  "},    {75.0, "x100.0% ##### done in: 1.2 mins  "},
        {90.0, "x100.0% ##### done in: 1.5 mins  "},    {3599.0, "x100.0% ##### done in: 60.0 mins  "},
        {3599.9, "x100.0% ##### done in: 60.0 mins  "}, {3600.0, "x100.0% ##### done in: 1.0 hours "},
        {5400.0, "x100.0% ##### done in: 1.5 hours "},  {360000.0, "x100.0% ##### done in: 100.0 hours "},
        {-5.0, "x100.0% ##### done in: -5.0 secs  "},   {-5000.0, "x100.0% ##### done in: -5000.0 secs  "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(finished(1000.0, 1000.0 + c.elapsed), c.expected) << c.elapsed;
    }
}

TEST(ProgressLineTime, IsSwitchedOffByAStartThatIsNotAboveZero) {
    for (const double start : {0.0, -0.0, -4.9e-324, -1000.0, -infinity, notANumber}) {
        EXPECT_EQ(halfway(start, 1000.0), "x 50.0% ## |") << start;
        EXPECT_EQ(finished(start, 1000.0), "x100.0% #####") << start;
    }
    EXPECT_EQ(halfway(4.9e-324, 10.0), "x 50.0% ## | time left: 8 secs  ");
    EXPECT_EQ(finished(4.9e-324, 10.0), "x100.0% ##### done in: 10.0 secs  ");
}

TEST(ProgressLineTime, SurvivesClocksThatAreNoNumber) {
    const struct {
        double start;
        double now;
        const char* left;
        const char* spent;
    } cases[] = {
        {infinity, 1000.0, " time left: -2147483648 secs  ", " done in: -inf secs  "},
        {1000.0, infinity, " time left: -2147483648 secs  ", " done in: inf hours "},
        {1000.0, -infinity, " time left: -2147483648 secs  ", " done in: -inf secs  "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(halfway(c.start, c.now), std::string("x 50.0% ## |") + c.left) << c.start << " to " << c.now;
        EXPECT_EQ(finished(c.start, c.now), std::string("x100.0% #####") + c.spent) << c.start << " to " << c.now;
    }
    EXPECT_EQ(halfway(1000.0, notANumber), "x 50.0% ## | time left: -2147483648 secs  ");
    // What printf calls not a number differs; its unit is the longest.
    const std::string end = " hours ";
    const std::string text = finished(1000.0, notANumber);
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
}

}  // namespace
