#include "convert/number_reading.h"

#include <gtest/gtest.h>

#include <cfenv>

#include "digest.h"
#include "number_types.h"
#include "random_bits.h"
#include "scoped_locale.h"
#include "test_locale.h"

namespace {

using namespace std::string_view_literals;

// Form.

struct RealCase {
    std::string_view text;
    double expected;
    float expectedFloat;
};

template <std::size_t count>
void expectReals(const RealCase (&cases)[count]) {
    for (const RealCase& each : cases) {
        expectNumbers<double>({{each.text, 99, each.expected}});
        expectNumbers<float>({{each.text, 99, each.expectedFloat}});
    }
}

TEST(RealReading, ReadsDigitsAroundOnePoint) {
    constexpr RealCase cases[] = {
        {"1.", 1.0, 1.0F},
        {".5", 0.5, 0.5F},
        {"+.5", 0.5, 0.5F},
        {"-.5", -0.5, -0.5F},
        {"00.50", 0.5, 0.5F},
        {"4.9", 4.9, 4.9F},
        {" -4.9", -4.9, -4.9F},
        {"2.50000", 2.5, 2.5F},
        {"\t 2.5 \n", 2.5, 2.5F},
        {"12.75abc", 12.75, 12.75F},
        {"1,5", 1.0, 1.0F},
        {"1.2.3", 1.2, 1.2F},
        {"1.5.", 1.5, 1.5F},
        {"1.5-2", 1.5, 1.5F},
        {"1.5+2", 1.5, 1.5F},
        {"1.5 2.5", 1.5, 1.5F},
        {"1.5f", 1.5, 1.5F},
        {"1.5d3", 1.5, 1.5F},
        {"1.5p3", 1.5, 1.5F},
        {"1.\0005"sv, 1.0, 1.0F},
        {"1.5\0009"sv, 1.5, 1.5F},
        {"1. 5", 1.0, 1.0F},
        {"1 .5", 1.0, 1.0F},
        {"123456.75", 123456.75, 123456.75F},
        {"-1234567", -1234567.0, -1234567.0F},
    };
    expectReals(cases);
}

TEST(RealReading, ReadsExponents) {
    constexpr RealCase cases[] = {
        {"1e5", 100000.0, 100000.0F},
        {"1E5", 100000.0, 100000.0F},
        {"1.e5", 100000.0, 100000.0F},
        {".5e1", 5.0, 5.0F},
        {"1e+5", 100000.0, 100000.0F},
        {"-1.5e3", -1500.0, -1500.0F},
        {"1e-5", 0.00001, 0.00001F},
        {"-1e-2", -0.01, -0.01F},
        {"1e05", 100000.0, 100000.0F},
        {"1E+05", 100000.0, 100000.0F},
        {"1e-0005", 0.00001, 0.00001F},
        {"7e0", 7.0, 7.0F},
        {"7e00", 7.0, 7.0F},
        {"7e+0", 7.0, 7.0F},
        {"7e-0", 7.0, 7.0F},
        {"1e5e5", 100000.0, 100000.0F},
        {"1e5.5", 100000.0, 100000.0F},
        {"1e5x", 100000.0, 100000.0F},
        {"1e5+5", 100000.0, 100000.0F},
        {"1e5-", 100000.0, 100000.0F},
        {"1e5 6", 100000.0, 100000.0F},
        {"1e5\0006"sv, 100000.0, 100000.0F},
    };
    expectReals(cases);
}

TEST(RealReading, GivesZeroForAnExponentWithoutDigits) {
    constexpr RealCase cases[] = {
        {"1e", 0.0, 0.0F},        {"1E", 0.0, 0.0F},     {"1e+", 0.0, 0.0F},  {"1e-", 0.0, 0.0F},
        {"-1e", 0.0, 0.0F},       {"-1.5E-", 0.0, 0.0F}, {"1e x", 0.0, 0.0F}, {"1e 5", 0.0, 0.0F},
        {"12.5e+ 5", 0.0, 0.0F},  {"1ee5", 0.0, 0.0F},   {"1e.5", 0.0, 0.0F}, {"1e++5", 0.0, 0.0F},
        {"1e+-5", 0.0, 0.0F},     {"1exp", 0.0, 0.0F},   {"1.e", 0.0, 0.0F},  {".5e", 0.0, 0.0F},
        {"1e\0005"sv, 0.0, 0.0F}, {"-.", 0.0, 0.0F},     {"-", 0.0, 0.0F},    {"-x", 0.0, 0.0F},
    };
    expectReals(cases);
}

TEST(RealReading, KeepsTheSignOfZero) {
    constexpr RealCase cases[] = {
        {"-0", -0.0, -0.0F},   {"-0.0", -0.0, -0.0F},    {"-.0", -0.0, -0.0F}, {"-0x1p3", -0.0, -0.0F},
        {"-0,5", -0.0, -0.0F}, {"-0e-5", -0.0, -0.0F},   {"+0.0", 0.0, 0.0F},  {"0e5", 0.0, 0.0F},
        {"0x1p3", 0.0, 0.0F},  {"0x.8", 0.0, 0.0F},      {"0.x", 0.0, 0.0F},   {"-inf", 0.0, 0.0F},
        {"-nan", 0.0, 0.0F},   {"-infinity", 0.0, 0.0F},
    };
    expectReals(cases);
}

constexpr double largest = 0x1.fffffffffffffp+1023;
constexpr float largestFloat = 0x1.fffffep+127F;

TEST(RealReading, ClampsExponentsOfAnySize) {
    constexpr RealCase cases[] = {
        {"1e400", largest, largestFloat},
        {"-1e400", -largest, -largestFloat},
        {"1e99999999999999999999", largest, largestFloat},
        {"-1e99999999999999999999", -largest, -largestFloat},
        {"1e2147483647", largest, largestFloat},
        {"1e2147483648", largest, largestFloat},
        {"1e4294967296", largest, largestFloat},
        {"1e9223372036854775808", largest, largestFloat},
        {"1e18446744073709551616", largest, largestFloat},
        {"1e18446744073709551621", largest, largestFloat},
        {"1e400abc", largest, largestFloat},
        {"1e-400", 0.0, 0.0F},
        {"-1e-400", -0.0, -0.0F},
        {"1e-99999999999999999999", 0.0, 0.0F},
        {"-1e-99999999999999999999", -0.0, -0.0F},
        {"1e-2147483648", 0.0, 0.0F},
        {"1e-2147483649", 0.0, 0.0F},
        {"1e-4294967296", 0.0, 0.0F},
        {"1e-18446744073709551616", 0.0, 0.0F},
        {"0e99999999999999999999", 0.0, 0.0F},
        {"-0.000e99999999999999999999", -0.0, -0.0F},
        {"1e300", 1e300, largestFloat},
        {"-1e300", -1e300, -largestFloat},
        {"1e-300", 1e-300, 0.0F},
        {"-1e-300", -1e-300, -0.0F},
    };
    expectReals(cases);
}

TEST(RealReading, BalancesLongDigitsWithLongExponents) {
    const std::string zeros(100000, '0');
    const std::string point = "0." + zeros;
    expectReals({
        {"1" + zeros, largest, largestFloat},
        {"-1" + zeros, -largest, -largestFloat},
        {"1" + zeros + "abc", largest, largestFloat},
        {"-1" + zeros + ".5x", -largest, -largestFloat},
        {point + "7", 0.0, 0.0F},
        {"-" + point + "7", -0.0, -0.0F},
        {"7" + zeros + "e-100000", 7.0, 7.0F},
        {point + "7e100001", 7.0, 7.0F},
        {"-" + point + "7e100002", -70.0, -70.0F},
        {zeros + ".5" + zeros, 0.5, 0.5F},
        {"0." + std::string(100000, '3'), 0x1.5555555555555p-2, 0x1.555556p-2F},
        {std::string(100000, '9') + "e-99999", 10.0, 10.0F},
    });
}

// Rounding.

struct RoundingCase {
    std::string_view text;
    std::uint64_t bits;
};

template <class T, std::size_t count>
void expectBits(const RoundingCase (&cases)[count]) {
    for (const RoundingCase& each : cases) {
        EXPECT_EQ(bitsOf(readOver<T>(99, each.text)), each.bits)
            << shown(each.text) << std::hex << " is 0x" << each.bits;
    }
}

TEST(RealRounding, DoublesNextToPowersOfTwo) {
    constexpr RoundingCase cases[] = {
        {"9007199254740991", 0x433FFFFFFFFFFFFF},
        {"9007199254740992", 0x4340000000000000},
        {"9007199254740993", 0x4340000000000000},
        {"9007199254740993.0000000000000000000000000000001", 0x4340000000000001},
        {"9007199254740994", 0x4340000000000001},
        {"9007199254740994.9999999999999999999999999999999", 0x4340000000000001},
        {"9007199254740995", 0x4340000000000002},
        {"4503599627370495.5", 0x432FFFFFFFFFFFFF},
        {"4503599627370496.5", 0x4330000000000000},
        {"4503599627370497.5", 0x4330000000000002},
        {"9223372036854775295", 0x43DFFFFFFFFFFFFF},
        {"9223372036854775296", 0x43E0000000000000},
        {"18446744073709550591", 0x43EFFFFFFFFFFFFF},
        {"18446744073709550592", 0x43F0000000000000},
        {"18446744073709551615", 0x43F0000000000000},
        {"0.49999999999999994", 0x3FDFFFFFFFFFFFFF},
        {"0.49999999999999997", 0x3FDFFFFFFFFFFFFF},
        {"0.49999999999999998", 0x3FE0000000000000},
        {"0.99999999999999994", 0x3FEFFFFFFFFFFFFF},
        {"0.99999999999999995", 0x3FF0000000000000},
        {"1.0000000000000001", 0x3FF0000000000000},
        {"1.0000000000000002", 0x3FF0000000000001},
        {"1.9999999999999998", 0x3FFFFFFFFFFFFFFF},
        {"1.9999999999999999", 0x4000000000000000},
        {"3.9999999999999997", 0x400FFFFFFFFFFFFF},
        {"3.9999999999999998", 0x4010000000000000},
        {"1.1102230246251564e-16", 0x3C9FFFFFFFFFFFFF},
        {"1.1102230246251565e-16", 0x3CA0000000000000},
        {"6.1035156249999993e-05", 0x3F0FFFFFFFFFFFFF},
        {"8.988465674311579e307", 0x7FDFFFFFFFFFFFFF},
        {"8.9884656743115795e307", 0x7FE0000000000000},
        {"1.491668146240041e-154", 0x1FFFFFFFFFFFFFFE},
        {"1.4916681462400413e-154", 0x2000000000000000},
    };
    expectBits<double>(cases);
}

TEST(RealRounding, DoublesThatAreHardToRound) {
    constexpr RoundingCase cases[] = {
        {"0.1", 0x3FB999999999999A},
        {"0.3", 0x3FD3333333333333},
        {"-123456789012345678", 0xC37B69B4BA630F35},
        {"1.2345678901234568e20", 0x441AC53A7E04BCDA},
        {"3.14159265358979323846264338327950288", 0x400921FB54442D18},
        {"1e22", 0x4480F0CF064DD592},
        {"1e23", 0x44B52D02C7E14AF6},
        {"6929495644600919.5", 0x43389E56EE5E7A58},
        {"62.5364939768271845828", 0x404F44ABD5AA7CA4},
        {"8.10109172351e-10", 0x3E0BD5CBAEF0FD0C},
        {"9007199254740993e-10", 0x412B7CDFD9D7BDBC},
        {"1.424047269444608806127245604493291532849e-306", 0x006FFFFFFFFFFFFF},
        {"1.194577431684120098794946149581726129879e-299", 0x01DFFFFFFFFFFFFF},
    };
    expectBits<double>(cases);
}

TEST(RealRounding, DoublesAtTheEndsOfTheirRange) {
    constexpr RoundingCase cases[] = {
        {"1.7976931348623156e308", 0x7FEFFFFFFFFFFFFE},
        {"1.7976931348623157e308", 0x7FEFFFFFFFFFFFFF},
        {"1.79769313486231580793e308", 0x7FEFFFFFFFFFFFFF},
        {"1.79769313486231580794e308", 0x7FEFFFFFFFFFFFFF},
        {"1.7976931348623159e308", 0x7FEFFFFFFFFFFFFF},
        {"-1.7976931348623159e308", 0xFFEFFFFFFFFFFFFF},
        {"1e308", 0x7FE1CCF385EBC8A0},
        {"1e309", 0x7FEFFFFFFFFFFFFF},
        {"2.2250738585072014e-308", 0x0010000000000000},
        {"2.2250738585072012e-308", 0x0010000000000000},
        {"2.2250738585072011e-308", 0x000FFFFFFFFFFFFF},
        {"2.2250738585072004e-308", 0x000FFFFFFFFFFFFE},
        {"7.4109846876186982e-324", 0x0000000000000002},
        {"7.4109846876186981e-324", 0x0000000000000001},
        {"4.9406564584124654e-324", 0x0000000000000001},
        {"2.47032822920623272089e-324", 0x0000000000000001},
        {"2.47032822920623272088e-324", 0x0000000000000000},
        {"-2.47032822920623272089e-324", 0x8000000000000001},
        {"-2.47032822920623272088e-324", 0x8000000000000000},
    };
    expectBits<double>(cases);
}

TEST(RealRounding, FloatsAtTheEndsOfTheirRange) {
    constexpr RoundingCase cases[] = {
        {"3.4028232635611926e38", 0x7F7FFFFE},
        {"3.4028234663852886e38", 0x7F7FFFFF},
        {"340282356779733661637539395458142568447", 0x7F7FFFFF},
        {"340282356779733661637539395458142568448", 0x7F7FFFFF},
        {"3.4028236e38", 0x7F7FFFFF},
        {"-3.4028236e38", 0xFF7FFFFF},
        {"1e38", 0x7E967699},
        {"1e39", 0x7F7FFFFF},
        {"1.1754943508222875e-38", 0x00800000},
        {"1.1754942807573643e-38", 0x00800000},
        {"1.1754942807573642e-38", 0x007FFFFF},
        {"2.1019476964872257e-45", 0x00000002},
        {"1.4012984643248171e-45", 0x00000001},
        {"7.006492321624086e-46", 0x00000001},
        {"7.006492321624085e-46", 0x00000000},
        {"-7.006492321624086e-46", 0x80000001},
        {"-7.006492321624085e-46", 0x80000000},
    };
    expectBits<float>(cases);
}

// Each text is next to the midpoint of two floats. Rounded to double first, it would become the midpoint itself, and then
// the even neighbour: the marked cases would be one bit off.
TEST(RealRounding, FloatsNextToMidpoints) {
    constexpr RoundingCase cases[] = {
        {"1.000000059604644775390625", 0x3F800000},
        {"1.000000059604644775390625000000001", 0x3F800001},  // not 0x3F800000
        {"1.000000059604644775390624999999", 0x3F800000},
        {"1.000000178813934326171875", 0x3F800002},
        {"1.000000178813934326171875000000001", 0x3F800002},
        {"1.000000178813934326171874999999", 0x3F800001},  // not 0x3F800002
        {"16777217", 0x4B800000},
        {"16777217.0000000001", 0x4B800001},   // not 0x4B800000
        {"-16777217.0000000001", 0xCB800001},  // not 0xCB800000
        {"16777218.9999999999", 0x4B800001},   // not 0x4B800002
        {"16777219", 0x4B800002},
        {"8388608.500000001", 0x4B000001},
        {"8388609.499999999999999", 0x4B000001},                 // not 0x4B000002
        {"2.0000001192092896", 0x40000001},                      // not 0x40000000
        {"18014399583223809", 0x5A800001},                       // not 0x5A800000
        {"9007199791611905", 0x5A000001},                        // not 0x5A000000
        {"0.500000029802322387695312500000001", 0x3F000001},     // not 0x3F000000
        {"7.00649232162408535461864791644959e-46", 0x00000001},  // not 0x00000000
        {"7.00649232162408535461864791644958e-46", 0x00000000},
        {"2.10194769648722560638559437493487e-45", 0x00000001},  // not 0x00000002
        {"2.10194769648722560638559437493488e-45", 0x00000002},
    };
    expectBits<float>(cases);
}

TEST(RealRounding, ConsidersTheLastOfManyDigits) {
    const std::string zeros(100000, '0');
    const std::string doubleMidpoint = "1.00000000000000011102230246251565404236316680908203125";
    const std::string floatMidpoint = "1.000000059604644775390625";
    expectBits<double>(
        {{doubleMidpoint + zeros, 0x3FF0000000000000}, {doubleMidpoint + zeros + "1", 0x3FF0000000000001}});
    expectBits<float>({{floatMidpoint + zeros, 0x3F800000}, {floatMidpoint + zeros + "1", 0x3F800001}});
}

TEST(RealRounding, TooSmallNumbersAreNotClampedInAnyRoundingMode) {
    for (const int mode : {FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO, FE_TONEAREST}) {
        std::fesetround(mode);
        const auto small = readOver<double>(99, "1e-400");
        const auto smallSingle = readOver<float>(99, "1e-400");
        std::fesetround(FE_TONEAREST);
        EXPECT_LT(small, 1e-323) << mode;
        EXPECT_LT(smallSingle, 1e-44F) << mode;
    }
}

// The fallback to the C library's conversion.

// convertReal calls from_chars where the standard library has it for real numbers. Elsewhere it is convertWithC, and the
// digests check that it gives the results of from_chars.

Kelp::RealText realText(const std::string& text) {
    return Kelp::findReal(text.data(), text.data() + text.size());
}

template <class T>
std::uint64_t bitsWithC(const std::string& text) {
    return bitsOf(Kelp::convertWithC<T>(realText(text)));
}

template <class T>
std::uint64_t bitsWithFromChars(const std::string& text) {
    return bitsOf(Kelp::convertReal<T>(realText(text)));
}

/// A sequence of texts of real numbers, the same on every system.
class RealTexts {
public:
    std::string next() {
        const std::string digits = below(2) == 0 ? anyDigits() : digitsNextToAPowerOfTwo();
        return below(3) == 0 ? digits : digits + "e" + std::to_string(static_cast<int>(below(700)) - 350);
    }

private:
    std::uint64_t below(std::uint64_t bound) {
        return random.next() % bound;
    }

    std::string anyDigits() {
        std::string digits(1 + below(25), '0');
        for (char& digit : digits) {
            digit = static_cast<char>('0' + below(10));
        }
        return digits.insert(1 + below(digits.size()), 1, '.');
    }

    std::string digitsNextToAPowerOfTwo() {
        const std::uint64_t power = std::uint64_t{1} << (3 + below(60));
        const std::string whole = std::to_string(power - 4 + below(9));
        const char repeated = below(2) == 0 ? '0' : '9';
        const std::string fraction(below(9), repeated);
        return whole + "." + fraction + std::to_string(below(100));
    }

    RandomBits random{1};
};

TEST(RealReadingFallback, ReadsAsFromCharsDoes) {
    RealTexts texts;
    Digest doubles;
    Digest floats;
    for (int count = 0; count < 100000; ++count) {
        const std::string text = texts.next();
        ASSERT_EQ(bitsWithC<double>(text), bitsWithFromChars<double>(text)) << text;
        ASSERT_EQ(bitsWithC<float>(text), bitsWithFromChars<float>(text)) << text;
        doubles.add(bitsWithFromChars<double>(text));
        floats.add(bitsWithFromChars<float>(text));
    }
    EXPECT_EQ(doubles.value(), 2873225202107198U);
    EXPECT_EQ(floats.value(), 13151670269361237699U);
}

TEST(RealReadingFallback, GivesInfinityForNumbersThatAreTooLarge) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(bitsWithC<double>("1e400"), bitsOf(infinity));
    EXPECT_EQ(bitsWithFromChars<double>("1e400"), bitsOf(infinity));
    EXPECT_EQ(bitsWithC<float>("1e39"), bitsOf(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(bitsWithFromChars<float>("1e39"), bitsOf(std::numeric_limits<float>::infinity()));
    for (const char* const text : {"1e-400", "0.0e400", "2e-324"}) {
        EXPECT_EQ(bitsWithC<double>(text), 0U) << text;
        EXPECT_EQ(bitsWithFromChars<double>(text), 0U) << text;
    }
}

// strtod of mingw-w64 10.0 reads long texts just below a power of two as entirely different numbers: the first of these as
// -1.02e+295. Where strtod is right about the first, all results must be right. Elsewhere they must be those of strtod,
// which the library does not use where it has from_chars.
TEST(RealReadingFallback, AddsNothingToTheErrorsOfTheCLibrary) {
    struct Case {
        const char* text;
        std::uint64_t bits;
    };
    constexpr Case cases[] = {
        {"1.424047269444608806127245604493291532849e-306", 0x006FFFFFFFFFFFFF},
        {"2.916448807822558834948598998002261059275e-303", 0x011FFFFFFFFFFFFF},
        {"1.194577431684120098794946149581726129879e-299", 0x01DFFFFFFFFFFFFF},
    };
    const bool cLibraryIsRight = bitsOf(std::strtod(cases[0].text, nullptr)) == cases[0].bits;
    for (const Case& each : cases) {
        const std::uint64_t expected = cLibraryIsRight ? each.bits : bitsOf(std::strtod(each.text, nullptr));
        EXPECT_EQ(bitsWithC<double>(each.text), expected) << each.text;
    }
}

TEST(RealReadingFallback, UsesTheDecimalPointOfTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_NUMERIC, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    ASSERT_EQ(std::strtod("1,5", nullptr), 1.5);
    EXPECT_EQ(bitsWithC<double>("1.5"), bitsOf(1.5));
    EXPECT_EQ(bitsWithC<double>(".5e1"), bitsOf(5.0));
    EXPECT_EQ(bitsWithC<double>("12."), bitsOf(12.0));
    EXPECT_EQ(bitsWithC<double>("12"), bitsOf(12.0));
    EXPECT_EQ(bitsWithC<float>("16777217.0000000001"), 0x4B800001U);
}

}  // namespace
