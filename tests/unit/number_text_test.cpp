#include "convert/number_text.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "bit_pattern.h"
#include "number_text_model.h"
#include "random_bits.h"

namespace {

using number_text_model::expectedText;
using number_text_model::read;

/// Returns the text of a number, or the whole buffer if it was written past its room.
std::string textOf(double number) {
    std::string buffer(Kelp::numberTextRoom + 8, '~');
    const auto length = static_cast<std::size_t>(Kelp::writeNumberText(buffer.data(), number) - buffer.data());
    const bool kept = buffer.find_first_not_of('~', Kelp::numberTextRoom) == std::string::npos;
    return kept ? buffer.substr(0, length) : buffer;
}

// Typed-out texts.

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

TEST(NumberText, IsExactAtTheLimitsOfItsOwnDigits) {
    expectTexts({
        {0x1p-63, "1.0842021724855044e-19"},
        {std::nextafter(0x1p-63, 0.0), "1.0842021724855043e-19"},
        {std::nextafter(0x1p-63, 1.0), "1.0842021724855047e-19"},
        {-0x1.fffffffffffffp-1, "-0.9999999999999999"},
        {0x1.0000000000001p+0, "1.0000000000000002"},
        {4503599627370495.5, "4503599627370495.5"},
        {4503599627370494.5, "4503599627370494.5"},
        {9007199254740991.0, "9007199254740991"},
        {9007199254740993.0, "9007199254740992"},
        {9007199254740994.0, "9007199254740994"},
        // A power of two: the interval is half as wide below it.
        {0x1p-44, "5.684341886080802e-14"},
        // Halfway between two texts: the even digit.
        {1125899906842624.25, "1125899906842624.2"},
        {1125899906842624.75, "1125899906842624.8"},
    });
}

TEST(NumberText, DropsZerosAtTheEnd) {
    expectTexts({
        {3.1415, "3.1415"},
        {100000.0001, "100000.0001"},
        {0.0005, "5e-04"},
        {0.00051, "0.00051"},
        {0.000051, "5.1e-05"},
        {0.123456789, "0.123456789"},
        {12345678.12345678, "12345678.12345678"},
        {123456789.12345679, "123456789.12345679"},
        {1e-19, "1e-19"},
        {1e-12, "1e-12"},
        {1.00000001e-12, "1.00000001e-12"},
    });
}

TEST(NumberText, OfInfinityAndNotANumberIsAWord) {
    expectTexts({
        {std::numeric_limits<double>::infinity(), "inf"},
        {-std::numeric_limits<double>::infinity(), "-inf"},
        {std::copysign(NAN, 1.0), "nan"},
        {std::copysign(NAN, -1.0), "-nan"},
    });
}

// The whole range of double, compared with both notations made in the simplest way.

void expectExact(double number) {
    const std::string text = textOf(number);
    ASSERT_EQ(bitsOf(read(text)), bitsOf(number)) << text;
    ASSERT_EQ(text, expectedText(number));
}

void expectExactBeside(double number) {
    ASSERT_NO_FATAL_FAILURE(expectExact(std::nextafter(number, 0.0)));
    ASSERT_NO_FATAL_FAILURE(expectExact(std::nextafter(number, 1e300)));
}

// Doubles are denser just below a power of two than above it. Fewer digits than the rounded ones may therefore read back
// (two to the power of -1017 has one digit less).
TEST(NumberTextExhaustive, IsShortestForPowersOfTwo) {
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double number = std::ldexp(1.0, exponent);
        const std::string text = textOf(number);
        ASSERT_EQ(bitsOf(read(text)), bitsOf(number)) << text;
        ASSERT_LE(text.size(), expectedText(number).size()) << text;
        const std::string negativeText = textOf(-number);
        ASSERT_EQ(negativeText, "-" + text);
        ASSERT_NO_FATAL_FAILURE(expectExactBeside(number)) << "two to the power of " << exponent;
    }
}

TEST(NumberTextExhaustive, IsShortestForPowersOfTen) {
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const double number = read("1e" + std::to_string(exponent));
        ASSERT_NO_FATAL_FAILURE(expectExact(number));
        ASSERT_NO_FATAL_FAILURE(expectExact(-number));
        ASSERT_NO_FATAL_FAILURE(expectExactBeside(number));
    }
}

TEST(NumberTextExhaustive, IsShortestForIntegersAndTheirThousandths) {
    for (int i = 0; i <= 20000; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectExact(i));
        ASSERT_NO_FATAL_FAILURE(expectExact(100.0 * i));
        ASSERT_NO_FATAL_FAILURE(expectExact(i / 1000.0));
    }
}

double numberOfBits(std::uint64_t bits) {
    double number = 0.0;
    static_assert(sizeof number == sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

TEST(NumberTextExhaustive, IsShortestForRandomBits) {
    RandomBits random{0};
    for (int i = 0; i < 100000; ++i) {
        const double number = numberOfBits(random.next());
        if (std::isfinite(number)) {
            ASSERT_NO_FATAL_FAILURE(expectExact(number));
        }
    }
}

TEST(NumberTextExhaustive, IsShortestForSubnormalNumbers) {
    constexpr std::uint64_t fraction = 0xFFFFFFFFFFFFFU;
    for (std::uint64_t bits = 0; bits <= 2000; ++bits) {
        ASSERT_NO_FATAL_FAILURE(expectExact(numberOfBits(bits)));
        ASSERT_NO_FATAL_FAILURE(expectExact(numberOfBits(fraction - bits)));
    }
    RandomBits random{0};
    for (int i = 0; i < 10000; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectExact(numberOfBits(random.next() & fraction)));
    }
}

TEST(NumberTextExhaustive, IsShortestForThousandths) {
    for (int thousandths = 1; thousandths <= 20000; ++thousandths) {
        ASSERT_NO_FATAL_FAILURE(expectExact(thousandths / 1000.0));
        ASSERT_NO_FATAL_FAILURE(expectExactBeside(thousandths / 1000.0)) << thousandths;
    }
    for (const double whole : {99999.0, 100000.0, 4294967296.0, 123456789012.0, 999999999999.0, 1000000000000.0}) {
        for (int thousandths = -1000; thousandths <= 1000; ++thousandths) {
            const double number = whole + thousandths / 1000.0;
            ASSERT_NO_FATAL_FAILURE(expectExact(number));
            ASSERT_NO_FATAL_FAILURE(expectExactBeside(number)) << std::to_string(number);
        }
    }
}

TEST(NumberTextExhaustive, IsShortestForWholeNumbers) {
    for (int digits = 1; digits <= 99; ++digits) {
        double number = digits;
        for (int zeros = 0; zeros <= 20; ++zeros) {
            ASSERT_NO_FATAL_FAILURE(expectExact(number));
            ASSERT_NO_FATAL_FAILURE(expectExact(number + 1.0));
            number *= 10.0;
        }
    }
}

}  // namespace
