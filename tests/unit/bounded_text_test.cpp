#include "console/bounded_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include "scoped_locale.h"
#include "test_locale.h"

namespace {

/// A bounded text at the beginning of an array filled with "~".
class Bounded {
public:
    explicit Bounded(std::size_t size) : capacity(size), text(array.data(), size) {
        array.fill('~');
    }

    Kelp::BoundedText* operator->() {
        return &text;
    }

    std::string view() const {
        return std::string(text.view());
    }

    /// Returns whether nothing was written past the capacity.
    bool keptItsBounds() const {
        return std::string(array.data() + capacity, array.size() - capacity) ==
               std::string(array.size() - capacity, '~');
    }

private:
    std::size_t capacity;
    std::array<char, 400> array{};
    Kelp::BoundedText text;
};

TEST(BoundedText, IsEmptyAtFirst) {
    const Bounded none(0);
    EXPECT_EQ(none.view(), "");
    Bounded some(5);
    EXPECT_EQ(some.view(), "");
    EXPECT_EQ(some->room(), 5U);
}

TEST(BoundedText, CutsATextThatDoesNotFit) {
    const struct {
        std::size_t capacity;
        const char* first;
        const char* second;
        const char* expected;
    } cases[] = {
        {0, "", "", ""},         {0, "a", "b", ""},
        {1, "a", "b", "a"},      {1, "", "bc", "b"},
        {3, "ab", "c", "abc"},   {3, "ab", "cd", "abc"},
        {3, "abc", "d", "abc"},  {3, "abcd", "e", "abc"},
        {4, "abc", "d", "abcd"}, {5, "abc", "d", "abcd"},
        {3, "ab", "", "ab"},     {9, "a\nb", "\r\\", "a\nb\r\\"},
        {2, "", "ab", "ab"},     {6, "ab", "cdefg", "abcdef"},
    };
    for (const auto& c : cases) {
        Bounded text(c.capacity);
        text->append(c.first);
        text->append(c.second);
        EXPECT_EQ(text.view(), c.expected) << c.first << "+" << c.second << " in " << c.capacity;
        EXPECT_EQ(text->room(), c.capacity - std::string(c.expected).size()) << c.first << "+" << c.second;
        EXPECT_TRUE(text.keptItsBounds()) << c.first << "+" << c.second << " in " << c.capacity;
    }
}

TEST(BoundedText, KeepsNulCharacters) {
    Bounded text(4);
    text->append(std::string_view("a\0b", 3));
    EXPECT_EQ(text.view(), std::string("a\0b", 3));
}

TEST(BoundedText, CutsARepeatedCharacter) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
    const struct {
        std::size_t capacity;
        std::size_t count;
        const char* expected;
    } cases[] = {
        {0, 0, ""},     {0, 1, ""},     {0, most, ""},     {4, 0, "<"},           {4, 1, "<#"},   {4, 2, "<##"},
        {4, 3, "<###"}, {4, 4, "<###"}, {4, most, "<###"}, {4, most - 1, "<###"}, {1, most, "<"}, {2, most, "<#"},
    };
    for (const auto& c : cases) {
        Bounded text(c.capacity);
        text->append("<");
        text->append('#', c.count);
        EXPECT_EQ(text.view(), c.expected) << c.count << " in " << c.capacity;
        EXPECT_TRUE(text.keptItsBounds()) << c.count << " in " << c.capacity;
    }
}

TEST(BoundedText, WritesWholeNumbers) {
    const struct {
        int number;
        std::size_t capacity;
        const char* expected;
    } cases[] = {
        {0, 20, "0"},
        {7, 20, "7"},
        {-7, 20, "-7"},
        {2147483647, 20, "2147483647"},
        {-2147483647 - 1, 20, "-2147483648"},
        {-2147483647 - 1, 11, "-2147483648"},
        {-2147483647 - 1, 10, "-214748364"},
        {12, 1, "1"},
        {12, 0, ""},
    };
    for (const auto& c : cases) {
        Bounded text(c.capacity);
        text->append(c.number);
        EXPECT_EQ(text.view(), c.expected) << c.number << " in " << c.capacity;
        EXPECT_TRUE(text.keptItsBounds()) << c.number << " in " << c.capacity;
    }
}

TEST(BoundedText, WritesOneDecimal) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double number;
        const char* expected;
    } cases[] = {
        {0.0, "0.0"},
        {-0.0, "-0.0"},
        {4.9e-324, "0.0"},
        {-4.9e-324, "-0.0"},
        {5.0, "5.0"},
        {99.9, "99.9"},
        {100.0, "100.0"},
        {-50.0, "-50.0"},
        {0.04999999999999999, "0.0"},
        {99.94, "99.9"},
        {99.96, "100.0"},
        // Exactly halfway between two tenths, in binary too: the even one.
        {0.25, "0.2"},
        {0.75, "0.8"},
        {1.25, "1.2"},
        {6.25, "6.2"},
        {18.75, "18.8"},
        {-6.25, "-6.2"},
        {-0.75, "-0.8"},
        // The nearest double is above or below the middle.
        {0.05, "0.1"},
        {0.15, "0.1"},
        {0.35, "0.3"},
        {0.45, "0.5"},
        {12.35, "12.3"},
        {infinity, "inf"},
        {-infinity, "-inf"},
    };
    for (const auto& c : cases) {
        Bounded text(20);
        text->appendTenths(c.number);
        EXPECT_EQ(text.view(), c.expected) << std::to_string(c.number);
    }
}

TEST(BoundedText, WritesTheLargestNumberWithAllItsDigits) {
    const std::string digits =
        "179769313486231570814527423731704356798070567525844996598917476803157260780028538760589558632766878171540458953"
        "514382464234321326889464182768467546703537516986049910576551282076245490090389328944075868508455133942304583236"
        "903222948165808559332123348274797826204144723168738177180919299881250404026184124858368.0";
    ASSERT_EQ(digits.size(), 311U);
    for (const double sign : {1.0, -1.0}) {
        const std::string expected = (sign < 0.0 ? "-" : "") + digits;
        for (const std::size_t capacity : {400U, 312U, 311U, 310U, 100U, 1U, 0U}) {
            Bounded text(capacity);
            text->appendTenths(sign * std::numeric_limits<double>::max());
            EXPECT_EQ(text.view(), expected.substr(0, capacity)) << sign << " in " << capacity;
            EXPECT_TRUE(text.keptItsBounds()) << sign << " in " << capacity;
        }
    }
}

// Numbers with one decimal.

// appendTenths is meant to give the texts of printf, which are the expected ones here.

std::string withPrintf(double number) {
    char text[400];
    const int length = std::snprintf(text, sizeof text, "%.1f", number);
    return {text, static_cast<std::size_t>(length)};
}

std::string tenths(double number) {
    Bounded text(400);
    text->appendTenths(number);
    return text.view();
}

void expectSameBeside(double number) {
    for (const double each : {std::nextafter(number, -1e300), number, std::nextafter(number, 1e300)}) {
        ASSERT_EQ(tenths(each), withPrintf(each)) << std::to_string(each);
        ASSERT_EQ(tenths(-each), withPrintf(-each)) << std::to_string(each);
    }
}

TEST(Tenths, AreRoundedAsPrintfRounds) {
    for (int i = 0; i <= 40000; ++i) {
        // Includes every number halfway between two tenths, in decimal and in binary.
        ASSERT_NO_FATAL_FAILURE(expectSameBeside(i / 80.0));
        ASSERT_NO_FATAL_FAILURE(expectSameBeside(i / 300.0));
    }
}

TEST(Tenths, OfLargeNumbersAreRoundedAsPrintfRounds) {
    for (const double large : {65536.0, 9999999.0, 99999998.0, 99999999.0, 100000000.0, 2147483648.0, 1e15, 1e22}) {
        for (int i = 0; i <= 400; ++i) {
            ASSERT_NO_FATAL_FAILURE(expectSameBeside(large + i / 80.0));
        }
    }
}

TEST(Tenths, FollowTheRoundingMode) {
    for (const int mode : {FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO, FE_TONEAREST}) {
        std::fesetround(mode);
        for (int i = 0; i <= 200; ++i) {
            EXPECT_EQ(tenths(i / 16.0), withPrintf(i / 16.0)) << mode << ": " << i;
        }
        std::fesetround(FE_TONEAREST);
    }
}

TEST(Tenths, HaveTheDecimalPointOfTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale comma(LC_NUMERIC, testLocaleName());
    ASSERT_TRUE(comma.isValid());
    EXPECT_EQ(tenths(5.0), "5,0");
    EXPECT_EQ(tenths(12.34), "12,3");
    EXPECT_EQ(tenths(0.0), "0,0");
    EXPECT_EQ(tenths(1e9), "1000000000,0");
}

}  // namespace
