#include "util/truncation.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

constexpr int leastInt = -2147483647 - 1;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

static_assert(Kelp::truncateToInt(-7.9) == -7, "ready while the program is compiled");

TEST(Truncation, CutsTheFractionOffAndMakesTheLeastIntOfWhatDoesNotFit) {
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
        // The largest int: one less, the value, with fractions up to the last double below the next whole number.
        {2147483646.0, 2147483646},
        {2147483646.9999998, 2147483646},
        {2147483647.0, 2147483647},
        {2147483647.5, 2147483647},
        {2147483647.9999998, 2147483647},
        {2147483648.0, leastInt},
        {2147483649.0, leastInt},
        {4294967296.0, leastInt},
        // The least int.
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
