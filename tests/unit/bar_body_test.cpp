#include "console/bar_body.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace {

constexpr int leastInt = -2147483647 - 1;
constexpr int mostInt = 2147483647;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Returns what appendBarBody appends to a "[" in a line with room for `room` more characters.
std::string body(int width, double ratio, std::size_t room = 30) {
    char buffer[200];
    std::fill(std::begin(buffer), std::end(buffer), '~');
    Kelp::BoundedText line(buffer, room + 1);
    line.append("[");
    Kelp::appendBarBody(line, width, ratio);
    EXPECT_EQ(buffer[room + 1], '~') << width << " * " << ratio << ": wrote past the end of the line";
    return std::string(line.view().substr(1));
}

TEST(BarBody, MarksEveryStartedCharacterAndPadsToOneLessThanTheWidth) {
    const struct {
        int width;
        double ratio;
        const char* expected;
    } cases[] = {
        {20, 0.05, "#                  "},
        {20, 0.5, "##########         "},
        {10, 0.0, "         "},
        {10, -0.0, "         "},
        {10, 4.9e-324, "#         "},
        {10, 0.01, "#         "},
        {10, 0.0999, "#         "},
        {10, 0.1, "#        "},
        {10, 0.10000000000000002, "##        "},
        {10, 0.15, "##        "},
        {10, 0.5, "#####    "},
        {10, 0.55, "######    "},
        {10, 0.85, "######### "},
        {10, 0.9, "#########"},
        {10, 0.95, "##########"},
        {10, 0.9999999999999999, "##########"},
        {10, 1.0, "##########"},
        {37, 0.25, "##########                           "},
        {3, 0.5, "## "},
        {2, 0.5, "#"},
        {2, 0.25, "# "},
        {2, 0.0, " "},
        {1, 0.0, ""},
        {1, 0.5, "#"},
        {1, 1.0, "#"},
        {0, 0.0, ""},
        {0, 0.5, ""},
        {0, 1.0, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(body(c.width, c.ratio, 100), c.expected) << c.width << " * " << c.ratio;
    }
}

TEST(BarBody, GrowsBeyondItsWidthAboveTheWhole) {
    const struct {
        int width;
        double ratio;
        const char* expected;
    } cases[] = {
        {10, 1.25, "#############"},
        {10, 2.0, "####################"},
        {4, 1.0000000000000002, "#####"},
        {1, 2.5, "###"},
        {0, 1e308, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(body(c.width, c.ratio), c.expected) << c.width << " * " << c.ratio;
    }
}

TEST(BarBody, PadsMoreForNegativeProgress) {
    const struct {
        int width;
        double ratio;
        const char* expected;
    } cases[] = {
        {10, -0.05, "         "},      // -0.5, cut to 0: nine blanks
        {10, -0.5, "              "},  // -5: fourteen
        {10, -0.55, "              "},
        {1, -3.0, "   "},
        {0, -3.0, ""},
        {-1, 0.5, ""},
        {-5, 0.5, ""},      // -2 is not below -6
        {-5, 1.0, ""},      // -5 is not below -6
        {-5, 1.2, ""},      // -6 is not below -6
        {-5, 1.4, " "},     // -7
        {-5, 2.0, "    "},  // -10
        {-5, -1.0, "#####"},
        {-5, -0.5, "###"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(body(c.width, c.ratio), c.expected) << c.width << " * " << c.ratio;
    }
}

TEST(BarBody, FillsTheLineWhenItIsEndless) {
    const std::string marks = "##############################";
    const std::string blanks = "                              ";
    const struct {
        int width;
        double ratio;
        std::string expected;
    } cases[] = {
        {10, infinity, marks},
        {10, -infinity, blanks},
        {10, notANumber, blanks},
        {0, infinity, blanks},
        {0, notANumber, blanks},
        {-10, infinity, blanks},
        {-10, -infinity, marks},
        {1, infinity, marks},
        {10, 1e308, marks},
        {10, -1e308, blanks},
        {10, 3.0, marks},
        {10, 3.1, marks},
        {31, 1.0, marks},
        {31, 0.0, blanks},
        {32, 0.0, blanks},
        {mostInt, 1.0, marks},
        {mostInt, 0.0, blanks},
        {mostInt, 1e-9, "###                           "},
        {mostInt, -1.0, blanks},
        {mostInt, infinity, marks},
        {mostInt, notANumber, blanks},
        {leastInt, -1.0, marks},
        {leastInt, -infinity, marks},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(body(c.width, c.ratio), c.expected) << c.width << " * " << c.ratio;
    }
}

TEST(BarBody, IsEmptyForTheLeastWidth) {
    for (const double ratio : {0.0, -0.0, 4.9e-324, 0.5, 1.0, 2.0, 1e308, infinity, notANumber}) {
        EXPECT_EQ(body(leastInt, ratio), "") << ratio;
    }
}

TEST(BarBody, IsCutWhereTheLineEnds) {
    const std::string whole = "######    ";
    for (std::size_t room = 0; room <= 12; ++room) {
        EXPECT_EQ(body(10, 0.55, room), whole.substr(0, room)) << room;
    }
}

/// Builds the body by counting marks and blanks one by one.
std::string countedBody(int width, double filled) {
    std::string text;
    if (filled > 0.0) {
        text += '#';
        for (int k = 1; filled > k; ++k) {
            text += '#';
        }
    }
    for (int whole = static_cast<int>(filled); whole < width - 1; ++whole) {
        text += ' ';
    }
    return text;
}

TEST(BarBody, AgreesWithCountingOneByOne) {
    for (int width = -20; width <= 50; ++width) {
        for (int eighths = -16; eighths <= 24; ++eighths) {
            const double ratio = eighths / 8.0;
            EXPECT_EQ(body(width, ratio, 190), countedBody(width, width * ratio)) << width << " * " << ratio;
        }
    }
}

}  // namespace
