#include <gtest/gtest.h>

#include "convert/real_reading.h"
#include "digest.h"
#include "number_types.h"
#include "scoped_locale.h"
#include "test_locale.h"

namespace {

// Where from_chars reads real numbers, convertReal is from_chars and convertWithC only stands in for it. Elsewhere the two
// are one function, and the digest of from_chars's results is what it is held to.

Kelp::RealText realText(const std::string& text) {
    return Kelp::findReal(text.data(), text.data() + text.size());
}

template <class T>
std::uint64_t bitsWithC(const std::string& text) {
    return bitsOf(Kelp::convertWithC<T>(realText(text)));
}

template <class T>
std::uint64_t bitsWithFromChars(const std::string& text) {
    return bitsOf(Kelp::convertReal<T>(realText(text), 0));
}

/// Texts of real numbers, the same row on every system.
class RealTexts {
public:
    std::string next() {
        const std::string digits = below(2) == 0 ? anyDigits() : digitsNextToAPowerOfTwo();
        return below(3) == 0 ? digits : digits + "e" + std::to_string(static_cast<int>(below(700)) - 350);
    }

private:
    std::uint64_t below(std::uint64_t bound) {
        state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return (mixed ^ (mixed >> 31U)) % bound;
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

    std::uint64_t state = 1;
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

TEST(RealReadingFallback, GivesInfinityForWhatIsTooLarge) {
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

// Some C libraries read long texts just below a power of two as entirely different numbers (the first of these as one
// around -1e295). The library does not pass their results on where it has from_chars; here they need only be the C
// library's own, and right where that one is right about the first.
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
