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

TEST(ProgressLine, ShowsLabelPercentageAndBar) {
    EXPECT_EQ(line(5, 100, 20, "Reading"), "Reading  5.0% #                  |");
    EXPECT_EQ(line(50, 100, 20, "x"), "x 50.0% ##########         |");
    EXPECT_EQ(line(0, 100, 20, "x"), "x  0.0%                    |");
    EXPECT_EQ(line(52, 100, 20, "x"), "x 52.0% ###########         |");
    EXPECT_EQ(line(100, 100, 20, "x"), "x100.0% #####################");
    EXPECT_EQ(line(250, 100, 4, "x"), "x100.0% ###########");
    EXPECT_EQ(line(5, 100, 0, ""), "  5.0% |");
    EXPECT_EQ(line(5, 10, 1, "two words %s\n"), "two words %s\n 50.0% #|");
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

TEST(ProgressLine, ShowsWhateverTheRatioIs) {
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
        // Not finite, or as good as that: the bar fills what is left of the line.
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

}  // namespace
