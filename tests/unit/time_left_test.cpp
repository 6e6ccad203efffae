#include "console/time_left.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "util/truncation.h"

namespace {

constexpr int leastInt = -2147483647 - 1;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Units.

TEST(TimeLeft, ChoosesTheUnitOfATime) {
    const struct {
        double seconds;
        const char* name;
        int secondsPerUnit;
    } cases[] = {
        {-infinity, "secs", 1},
        {-2147483648.0, "secs", 1},
        {-1.0, "secs", 1},
        {0.0, "secs", 1},
        {59.0, "secs", 1},
        {59.99, "secs", 1},
        {59.99999999999999, "secs", 1},
        {60.0, "mins", 60},
        {60.00000000000001, "mins", 60},
        {3599.0, "mins", 60},
        {3599.9, "mins", 60},
        {3599.9999999999995, "mins", 60},
        {3600.0, "hours", 3600},
        {3600.0000000000005, "hours", 3600},
        {2147483647.0, "hours", 3600},
        {1e308, "hours", 3600},
        {infinity, "hours", 3600},
        {notANumber, "hours", 3600},
    };
    for (const auto& c : cases) {
        const Kelp::TimeUnit& unit = Kelp::unitFor(c.seconds);
        EXPECT_EQ(unit.name, c.name) << std::to_string(c.seconds);
        EXPECT_EQ(unit.seconds, c.secondsPerUnit) << std::to_string(c.seconds);
    }
}

TEST(TimeLeft, ConvertsTimesWithFractions) {
    EXPECT_EQ(1.5 * Kelp::unitFor(1.5).perSecond, 1.5);
    EXPECT_EQ(90.0 * Kelp::unitFor(90.0).perSecond, 1.5);
    EXPECT_EQ(5400.0 * Kelp::unitFor(5400.0).perSecond, 1.5);
}

// Estimates.

/// A moment of some work: the seconds since its start, the progress in percent, and the estimated seconds left.
struct Moment {
    double elapsed;
    double percent;
    int left;
};

void expectEstimates(const std::vector<Moment>& moments) {
    for (const Moment& m : moments) {
        EXPECT_EQ(Kelp::estimateLeftSeconds(1000.0, 1000.0 + m.elapsed, m.percent), m.left)
            << m.elapsed << " s for " << m.percent << " %";
    }
}

TEST(TimeLeft, CautionFallsFromTheBeginningToTheEnd) {
    expectEstimates({
        {0.0078125, 0.0078125, 134},  // 100 s in all, nearly all of it left, times 1.3499...
        {1.0, 1.0, 132},              // 99 s * 1.34 = 132.66
        {10.0, 10.0, 112},            // 90 s * 1.25 = 112.5
        {101.0, 25.0, 333},           // 303 s * 1.10 = 333.3
        {71.0, 35.0, 131},            // 131.86 s * 1.00
        {101.0, 50.0, 85},            // 101 s * 0.85 = 85.85
        {301.0, 75.0, 60},            // 100.33 s * 0.60 = 60.2
        {9950.0, 99.0, 36},           // 100.50 s * 0.36 = 36.18
        {100.0, 100.0, 0},            // 0 s * 0.35
        {100.0, 200.0, 32},           // -50 s * -0.65 = 32.5
    });
}

TEST(TimeLeft, IsExactAtTheBoundariesOfTheUnits) {
    // Half of the work is done: the estimate is the elapsed time times 0.85.
    expectEstimates({
        {1.0, 50.0, 0},        // 0.85
        {2.0, 50.0, 1},        // 1.70
        {69.0, 50.0, 58},      // 58.65
        {70.0, 50.0, 59},      // 59.50
        {71.0, 50.0, 60},      // 60.35
        {147.5, 50.0, 125},    // 125.375
        {4234.0, 50.0, 3598},  // 3598.90
        {4235.0, 50.0, 3599},  // 3599.75
        {4236.0, 50.0, 3600},  // 3600.60
    });
}

TEST(TimeLeft, RoundsTowardsZero) {
    expectEstimates({
        {-1.0, 50.0, 0},       // -0.85
        {-2.0, 50.0, -1},      // -1.70
        {-70.0, 50.0, -59},    // the clock went back
        {101.0, -50.0, -560},  // -303 s * 1.85 = -560.55
    });
}

TEST(TimeLeft, IsTheLeastIntWithoutAnEstimate) {
    const struct {
        double start;
        double now;
        double percent;
    } cases[] = {
        {1000.0, 1010.0, 0.0},                              // nothing done in 10 s
        {1000.0, 1010.0, -0.0},     {1000.0, 1000.0, 0.0},  // nothing done in no time
        {1000.0, 990.0, 0.0},       {1000.0, 1010.0, 4.9e-324},  {1000.0, 1010.0, notANumber},
        {1000.0, 1010.0, infinity}, {1000.0, 1010.0, -infinity}, {1.0, 1e300, 50.0},
        {1e300, 1.0, 50.0},         {-1e308, 1e308, 50.0},  // the difference does not fit a double
        {infinity, 1000.0, 50.0},   {-infinity, 1000.0, 50.0},   {notANumber, 1000.0, 50.0},
        {1000.0, notANumber, 50.0}, {1000.0, infinity, 50.0},    {0.0, 2526451351.0, 50.0},  // * 0.85 = 2147483648.35
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::estimateLeftSeconds(c.start, c.now, c.percent), leastInt)
            << c.start << " to " << c.now << " for " << c.percent << " %";
    }
}

TEST(TimeLeft, FitsUpToTheLargestInt) {
    EXPECT_EQ(Kelp::estimateLeftSeconds(0.0, 2526451350.0, 50.0), 2147483647);  // 2147483647.5
    EXPECT_EQ(Kelp::estimateLeftSeconds(0.0, 2526451349.0, 50.0), 2147483646);  // 2147483646.65
    EXPECT_EQ(Kelp::estimateLeftSeconds(1e15, 1e15, 50.0), 0);
    EXPECT_EQ(Kelp::estimateLeftSeconds(-1001.0, 0.0, 50.0), 850);  // 850.85
}

// From double to int.

static_assert(Kelp::truncateToInt(-7.9) == -7, "evaluated at compile time");

TEST(Truncation, DropsTheFractionAndGivesTheLeastIntForNumbersThatDoNotFit) {
    const struct {
        double value;
        int expected;
    } cases[] = {
        {0.0, 0},
        {-0.0, 0},
        {4.9e-324, 0},
        {0.9999999999999999, 0},
        {-0.9999999999999999, 0},
        {1.0, 1},
        {-1.0, -1},
        {1.5, 1},
        {-1.5, -1},
        {2.9999999999999996, 2},
        {-2.9999999999999996, -2},
        {59.99, 59},
        // Around the largest int.
        {2147483646.0, 2147483646},
        {2147483646.9999998, 2147483646},
        {2147483647.0, 2147483647},
        {2147483647.5, 2147483647},
        {2147483647.9999998, 2147483647},
        {2147483648.0, leastInt},
        {2147483649.0, leastInt},
        {4294967296.0, leastInt},
        // Around the least int.
        {-2147483647.0, -2147483647},
        {-2147483647.9999998, -2147483647},
        {-2147483648.0, leastInt},
        {-2147483648.5, leastInt},
        {-2147483648.9999995, leastInt},
        {-2147483649.0, leastInt},
        {-4294967295.0, leastInt},
        {1e300, leastInt},
        {-1e300, leastInt},
        {infinity, leastInt},
        {-infinity, leastInt},
        {notANumber, leastInt},
        {-notANumber, leastInt},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::truncateToInt(c.value), c.expected) << std::to_string(c.value);
    }
}

}  // namespace
