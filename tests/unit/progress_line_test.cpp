#include "console/progress_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string line(double value, double total, int width, const char* label, double startTime = 0.0, double now = 0.0,
                 std::size_t room = 400) {
    char buffer[400];
    Kelp::BoundedText text(buffer, room);
    Kelp::appendProgressLine(text, value, total, width, label, startTime, now);
    return std::string(text.view());
}

// Without the time.

TEST(ProgressLine, ShowsLabelPercentageAndBar) {
    const struct {
        double value;
        double total;
        int width;
        const char* label;
        const char* expected;
    } cases[] = {
        {5, 100, 20, "Reading", "Reading  5.0% #                  |"},
        {50, 100, 20, "x", "x 50.0% ##########         |"},
        {0, 100, 20, "x", "x  0.0%                    |"},
        {52, 100, 20, "x", "x 52.0% ###########         |"},
        {100, 100, 20, "x", "x100.0% #####################"},
        {250, 100, 4, "x", "x100.0% ###########"},
        {5, 100, 0, "", "  5.0% |"},
        {5, 10, 1, "two words %s\n", "two words %s\n 50.0% #|"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(line(c.value, c.total, c.width, c.label), c.expected)
            << c.value << " of " << c.total << " in " << c.width;
    }
}

TEST(ProgressLine, ChoosesItsFormatByTheRatio) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {
        {0.0, "x  0.0% |"},    {0.05, "x  5.0% #|"},
        {0.09, "x  9.0% #|"},  {0.09999999999999999, "x  10.0% #|"},
        {0.1, "x 10.0% #|"},   {0.10000000000000002, "x 10.0% #|"},
        {0.999, "x 99.9% #|"}, {0.9999999999999999, "x 100.0% #|"},
        {1.0, "x100.0% ##"},   {1.0000000000000002, "x100.0% ###"},
        {2.0, "x100.0% ###"},  {2.5, "x100.0% ####"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(line(c.value, 1.0, 1, "x"), c.expected) << std::to_string(c.value);
    }
}

TEST(ProgressLine, RoundsThePercentageToTenths) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {
        {0.25, "  0.2% |"},  {6.25, "  6.2% |"},   {18.75, " 18.8% |"}, {31.25, " 31.2% |"},  {43.75, " 43.8% |"},
        {9.949, "  9.9% |"}, {9.951, "  10.0% |"}, {99.94, " 99.9% |"}, {99.96, " 100.0% |"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(line(c.value, 100.0, 0, ""), c.expected) << c.value;
    }
}

TEST(ProgressLine, ShowsEveryRatio) {
    const std::string marks(392, '#');
    const std::string blanks(392, ' ');
    const struct {
        double value;
        double total;
        std::string expected;
    } cases[] = {
        {-0.0, 10.0, "x  -0.0%    |"},
        {0.0, -10.0, "x  -0.0%    |"},
        {5.0, -10.0, "x  -50.0%      |"},
        {5.0, infinity, "x  0.0%    |"},
        {5.0, -infinity, "x  -0.0%    |"},
        {4.9e-324, 1.0, "x  0.0% #   |"},
        {4.9e-324, 4.9e-324, "x100.0% #####"},
        {0.0, 4.9e-324, "x  0.0%    |"},
        {1e308, 1e308, "x100.0% #####"},
        {5e307, 1e308, "x 50.0% ## |"},
        // Infinite, not a number or huge: the bar fills the rest of the line.
        {5.0, 0.0, "x100.0% " + marks},
        {0.0, 0.0, "x100.0% " + blanks},
        {5.0, notANumber, "x100.0% " + blanks},
        {notANumber, 5.0, "x100.0% " + blanks},
        {infinity, 5.0, "x100.0% " + marks},
        {infinity, infinity, "x100.0% " + blanks},
        {1.0, 4.9e-324, "x100.0% " + marks},
        {1e308, 1.0, "x100.0% " + marks},
        {infinity, -1.0, ("x  -inf% " + blanks).substr(0, 400)},
        {5.0, -0.0, ("x  -inf% " + blanks).substr(0, 400)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(line(c.value, c.total, 4, "x"), c.expected) << c.value << " of " << c.total;
    }
}

TEST(ProgressLine, ShowsAllDigitsOfAHugePercentage) {
    const std::string digits =
        "10000000000000000109790636294404554174049230967731184633681068290315758540491149153716332897849468889906124966"
        "97211725156115902837431400883283070091981460460312716645029330271856974896995885590433383844661650011784268976"
        "26212945177628091195786707458122783970171784415105291802893207873272974885715430223118336";
    ASSERT_EQ(digits.size(), 309U);
    // The ratio is -1e306.
    EXPECT_EQ(line(1e306, -1.0, 0, "x"), "x  -" + digits + ".0% |");
}

TEST(ProgressLine, IsCutWhereItsRoomEnds) {
    const std::string whole = "Reading  5.0% #                  | time left: 19 mins  ";
    for (std::size_t room = 0; room <= whole.size() + 1; ++room) {
        EXPECT_EQ(line(5, 100, 20, "Reading", 1000.0, 1047.5, room), whole.substr(0, room)) << room;
    }
}

// The time left and the time spent.

std::string timedLine(double value, double startTime, double now) {
    return line(value, 2.0, 4, "x", startTime, now);
}

/// Half of the work is done: the estimate is the elapsed time times 0.85.
std::string halfway(double startTime, double now) {
    return timedLine(1.0, startTime, now);
}

std::string finished(double startTime, double now) {
    return timedLine(2.0, startTime, now);
}

TEST(ProgressLineTime, ShowsTheTimeLeft) {
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
    EXPECT_EQ(timedLine(0.0, 1000.0, 1010.0), "x  0.0%    | time left: -2147483648 secs  ");
    EXPECT_EQ(timedLine(0.0, 1000.0, 1000.0), "x  0.0%    | time left: -2147483648 secs  ");
    EXPECT_EQ(timedLine(0.0, 1000.0, 990.0), "x  0.0%    | time left: -2147483648 secs  ");
}

TEST(ProgressLineTime, IsCautiousAtTheBeginning) {
    EXPECT_EQ(timedLine(0.02, 1000.0, 1000.2), "x  1.0% #   | time left: 26 secs  ");   // 19.8 s * 1.34 = 26.5
    EXPECT_EQ(timedLine(0.5, 1000.0, 1010.1), "x 25.0% #  | time left: 33 secs  ");     // 30.3 s * 1.10 = 33.3
    EXPECT_EQ(timedLine(1.98, 1000.0, 10950.0), "x 99.0% ####| time left: 36 secs  ");  // 100.5 s * 0.36 = 36.2
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

TEST(ProgressLineTime, AcceptsInfiniteTimesAndNotANumber) {
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
    // C libraries print not a number differently. The unit is the largest one.
    const std::string end = " hours ";
    const std::string text = finished(1000.0, notANumber);
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
}

}  // namespace
