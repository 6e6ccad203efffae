#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>

#include "number_text_of.h"

namespace {

struct Case {
    double number;
    const char* expected;
};

template <std::size_t count>
void expectTexts(const Case (&cases)[count]) {
    for (const Case& each : cases) {
        EXPECT_EQ(textOf(each.number), each.expected) << each.number;
    }
}

TEST(NumberText, HasTheFewestDigitsThatReadBack) {
    expectTexts({
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {2.5, "2.5"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {0.30000000000000004, "0.30000000000000004"},
        {1.0 / 3.0, "0.3333333333333333"},
        {9007199254740992.0, "9007199254740992"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {2.2250738585072014e-308, "2.2250738585072014e-308"},
        {5e-324, "5e-324"},
    });
}

TEST(NumberText, DoesNotDependOnTheDirectionOfRounding) {
    for (const int mode : {FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO}) {
        std::fesetround(mode);
        const std::string below = textOf(0.09999999999999999);
        const std::string above = textOf(0.10000000000000002);
        const std::string tenth = textOf(0.1);
        std::fesetround(FE_TONEAREST);
        EXPECT_EQ(below, "0.09999999999999999") << mode;
        EXPECT_EQ(above, "0.10000000000000002") << mode;
        EXPECT_EQ(tenth, "0.1") << mode;
    }
}

TEST(NumberText, IsFixedOrScientificWhicheverIsShorter) {
    expectTexts({
        {0.01, "0.01"},
        {0.001, "0.001"},
        {0.0001, "1e-04"},
        {0.00001, "1e-05"},
        {-0.00001, "-1e-05"},
        {1.0 / 1010, "0.0009900990099009901"},
        {1.0 / 990, "0.00101010101010101"},
        {0.0012, "0.0012"},
        {0.00012, "0.00012"},
        {0.000012, "1.2e-05"},
        {100.0, "100"},
        {10000.0, "10000"},
        {100000.0, "1e+05"},
        {120000.0, "120000"},
        {1200000.0, "1200000"},
        {12000000.0, "1.2e+07"},
        {123456789.0, "123456789"},
        {1e15, "1e+15"},
        {1e20, "1e+20"},
        {1e22, "1e+22"},
        {1e100, "1e+100"},
        {1e-100, "1e-100"},
        {123456789012345678.0, "123456789012345680"},
        {1.2345678901234568e20, "123456789012345680000"},
        {1.2345678901234568e21, "1234567890123456800000"},
        {1.2345678901234568e22, "1.2345678901234568e+22"},
    });
}

TEST(NumberText, OfWhatIsNoNumberIsAWord) {
    expectTexts({
        {std::numeric_limits<double>::infinity(), "inf"},
        {-std::numeric_limits<double>::infinity(), "-inf"},
        {std::copysign(NAN, 1.0), "nan"},
        {std::copysign(NAN, -1.0), "-nan"},
    });
}

}  // namespace
