#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "locale_facets.h"
#include "scoped_locale.h"
#include "shown_text.h"
#include "test_locale.h"

namespace {

using namespace std::string_literals;

using Strings = std::vector<std::string>;
using Doubles = std::vector<double>;
using DoublePair = std::tuple<double, double>;

constexpr double infinity = std::numeric_limits<double>::infinity();

// The library joins long texts from blocks. No number may be lost or cut where a block ends.
TEST(ValueText, OfManyNumbersIsWhole) {
    for (const int first : {0, 7, 95, 1001, 123456}) {
        Doubles values;
        std::string expected;
        for (int number = first; number < first + 700; ++number) {
            // Odd, because numbers like 100000 are shorter in scientific notation.
            const int odd = 2 * number + 1;
            values.push_back(odd);
            expected += (values.size() == 1 ? "" : ", ") + std::to_string(odd);
            ASSERT_EQ(std::to_string(values), expected) << values.size() << " numbers";
        }
    }
}

TEST(ValueText, OfManyLongNumbersIsWhole) {
    for (std::size_t shortOnes = 0; shortOnes < 30; ++shortOnes) {
        Doubles values(shortOnes, 7.0);
        std::string expected;
        for (std::size_t count = 0; count < shortOnes; ++count) {
            expected += "7, ";
        }
        values.insert(values.end(), 100, -1.7976931348623157e308);
        for (int count = 0; count < 99; ++count) {
            expected += "-1.7976931348623157e+308, ";
        }
        EXPECT_EQ(std::to_string(values), expected + "-1.7976931348623157e+308") << shortOnes << " short ones";
    }
}

TEST(ValueText, OfNumbersIsSeparatedByCommaAndBlank) {
    const struct {
        Doubles values;
        const char* expected;
    } cases[] = {
        {{}, ""},
        {{2.5}, "2.5"},
        {{1.0, 0.5, 1e-7}, "1, 0.5, 1e-07"},
        {{-0.0, 0.0}, "-0, 0"},
        {{infinity, -infinity}, "inf, -inf"},
        {{std::copysign(NAN, 1.0), std::copysign(NAN, -1.0)}, "nan, -nan"},
        {{-1.7976931348623157e308, 5e-324, 100.0}, "-1.7976931348623157e+308, 5e-324, 100"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(std::to_string(each.values), each.expected);
    }
}

TEST(ValueText, OfTextsIsSeparatedByCommaAndBlank) {
    const struct {
        Strings values;
        std::string expected;
    } cases[] = {
        {{}, ""},
        {{""}, ""},
        {{"a"}, "a"},
        {{"", ""}, ", "},
        {{"a", "", "b"}, "a, , b"},
        {{"", "a", ""}, ", a, "},
        {{"a, b", "\"c\"", " d "}, "a, b, \"c\",  d "},
        {{"a\0b"s, "\n", "\xC3\xA4"}, "a\0b, \n, \xC3\xA4"s},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(std::to_string(each.values), each.expected);
    }
}

TEST(ValueText, OfATextIsACopy) {
    for (const std::string& text : {""s, "a"s, " a, b "s, "a\0b\n"s, "\xC3\xA4\xFF"s, std::string(100000, 'x')}) {
        EXPECT_EQ(std::to_string(text), text);
    }
}

TEST(ValueText, OfALabelWithANumberIsSeparatedByCommaAndBlank) {
    const struct {
        Kelp::StringDouble value;
        std::string expected;
    } cases[] = {
        {{"", 3.0}, ", 3"},
        {{"", 0.0}, ", 0"},
        {{"depth", 2.5}, "depth, 2.5"},
        {{"a:b", -0.0}, "a:b, -0"},
        {{" a, b ", 1e20}, " a, b , 1e+20"},
        {{"x\0y"s, 1e-5}, "x\0y, 1e-05"s},
        {{"x", infinity}, "x, inf"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(std::to_string(each.value), each.expected);
    }
}

TEST(ValueText, OfAPairIsSeparatedByAColon) {
    const struct {
        DoublePair value;
        const char* expected;
    } cases[] = {
        {{2.0, 10.25}, "2:10.25"},
        {{9.0, 2.0}, "9:2"},
        {{-0.0, 0.0}, "-0:0"},
        {{1e-5, 1e20}, "1e-05:1e+20"},
        {{-infinity, std::copysign(NAN, -1.0)}, "-inf:-nan"},
        {{-1.7976931348623157e308, -2.2250738585072014e-308}, "-1.7976931348623157e+308:-2.2250738585072014e-308"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(std::to_string(each.value), each.expected);
    }
}

TEST(ValueText, ReadsBackWhereTheSeparatorsAgree) {
    DoublePair pair{7, 6};
    Kelp::stringToValue(pair, std::to_string(DoublePair(9.5, 2.25)));
    EXPECT_EQ(pair, DoublePair(2.25, 9.5));
    Strings texts;
    Kelp::stringToValue(texts, std::to_string(Strings{"a", "b"}));
    EXPECT_EQ(texts, (Strings{"a", " b"}));
    Doubles numbers;
    Kelp::stringToValue(numbers, std::to_string(Doubles{1.5, 2.5}));
    EXPECT_EQ(numbers, Doubles{1.5});
    Kelp::StringDouble labelled{"old", 9.5};
    Kelp::stringToValue(labelled, std::to_string(Kelp::StringDouble{"depth", 2.5}));
    EXPECT_EQ(labelled.label, "old");
    EXPECT_EQ(labelled.value, 9.5);
}

void expectClassicTexts() {
    EXPECT_EQ(std::to_string(Doubles{1234567.5, -0.25, 1e300}), "1234567.5, -0.25, 1e+300");
    EXPECT_EQ(std::to_string(DoublePair(1234.5, 12345678.0)), "1234.5:12345678");
    EXPECT_EQ(std::to_string(Kelp::StringDouble{"1,5", 1.5}), "1,5, 1.5");
}

TEST(ValueText, IgnoresTheGlobalLocale) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectClassicTexts();
}

TEST(ValueText, IgnoresTheLocaleOfTheCLibrary) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_ALL, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    expectClassicTexts();
}

}  // namespace
