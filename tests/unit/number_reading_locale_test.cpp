#include <gtest/gtest.h>

#include "convert/number_reading.h"
#include "locale_facets.h"
#include "number_types.h"
#include "scoped_locale.h"
#include "test_locale.h"

namespace {

template <class T>
class NumberReadingUnderALocale : public ::testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(std::locale(), std::locale::classic());
        expectNumbers<T>({{" 5.0", 99, 5}, {"_7", 99, 0}});
    }
};

TYPED_TEST_SUITE(NumberReadingUnderALocale, NumberTypes, NumberTypeNames);

TYPED_TEST(NumberReadingUnderALocale, TakesItsDecimalPoint) {
    const ScopedGlobalLocale scope(new Punctuation(""));
    expectNumbers<TypeParam>({{"7,0", 99, 7},
                              {" 7,", 99, 7},
                              {"7.9", 99, 7},
                              {"+7", 99, 7},
                              {"1.000", 99, 1},
                              {"", 99, 99},
                              {" ", 99, 99},
                              {"x", 99, 0}});
}

TYPED_TEST(NumberReadingUnderALocale, TakesItsGroupsRightOrWrong) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectNumbers<TypeParam>({{"12.345", 99, 12345},
                              {"12345", 99, 12345},
                              {"12.34", 99, 1234},
                              {"1.2345", 99, 12345},
                              {"1.23.45", 99, 12345},
                              {"12.345,0", 99, 12345},
                              {"1.23,0", 99, 123}});
}

TYPED_TEST(NumberReadingUnderALocale, SkipsItsBlanks) {
    const ScopedGlobalLocale scope(new UnderscoreBlank);
    expectNumbers<TypeParam>(
        {{"__7", 99, 7}, {"7_8", 99, 7}, {" 7", 99, 0}, {"_ 7", 99, 0}, {"_", 99, 99}, {" ", 99, 0}});
}

TYPED_TEST(NumberReadingUnderALocale, CallsItsNumberReader) {
    const ScopedGlobalLocale scope(new SeventySeven);
    expectNumbers<TypeParam>({{"5", 99, 77}, {"x", 99, 77}, {" x", 99, 77}, {"", 99, 99}, {" ", 99, 99}});
}

TYPED_TEST(NumberReadingUnderALocale, ReadsAlikeUnderACopyOfTheClassicOne) {
    const ScopedGlobalLocale scope(new std::numpunct<char>);
    ASSERT_NE(std::locale(), std::locale::classic());
    expectNumbers<TypeParam>({{"7", 99, 7},
                              {" \t\n\v\f\r+7 ", 99, 7},
                              {"7.0", 99, 7},
                              {"1,5", 99, 1},
                              {"5 6", 99, 5},
                              {"-", 99, 0},
                              {"+-5", 99, 0},
                              {"x", 99, 0},
                              {"", 99, 99},
                              {"  ", 99, 99}});
}

// What some libraries' own streams read otherwise.
TYPED_TEST(NumberReadingUnderALocale, StopsWhereTheNumberStops) {
    const ScopedGlobalLocale scope(new std::numpunct<char>);
    expectNumbers<TypeParam>({{"12abc", 99, 12}, {"0x1F", 99, 0}, {"1p3", 99, 1}, {"7f", 99, 7}});
    expectNumbers<TypeParam>({{"inf", 99, 0}, {"nan", 99, 0}, {"-infinity", 99, 0}});
}

TEST(RealReadingUnderALocale, TakesDecimalPointAndGroups) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectNumbers<double>({{"1,5", 99, 1.5},
                           {"-,5", 99, -0.5},
                           {"1,5e2", 99, 150.0},
                           {"1.234,5", 99, 1234.5},
                           {"12.34,5", 99, 1234.5},
                           {"-1.234.567,25e-2", 99, -12345.6725}});
    expectNumbers<float>({{"1,5", 99, 1.5F}, {"1.234,5", 99, 1234.5F}, {"12.34,5", 99, 1234.5F}});
    Kelp::StringDouble pair{"old", 99.0};
    Kelp::stringToValue(pair, "depth:1.234,5");
    EXPECT_EQ(pair.label, "depth");
    EXPECT_EQ(pair.value, 1234.5);
}

TEST(RealReadingUnderALocale, ClampsToTheLargestFiniteValue) {
    const ScopedGlobalLocale scope(new Punctuation(""));
    expectNumbers<double>({{"1e400", 99, 0x1.fffffffffffffp+1023}, {"-1e400", 99, -0x1.fffffffffffffp+1023}});
    expectNumbers<float>({{"1e39", 99, 0x1.fffffep+127F}, {"-1e39", 99, -0x1.fffffep+127F}});
}

TEST(IntegerReadingUnderALocale, ClampsAndWraps) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectNumbers<int>({{"2.147.483.647", 99, 2147483647},
                        {"2.147.483.648", 99, 2147483647},
                        {"-2.147.483.648", 99, -2147483647 - 1},
                        {"-2.147.483.649", 99, -2147483647 - 1}});
    expectNumbers<unsigned short>({{"65.535", 99, 65535}, {"65.536", 99, 65535}, {"-1", 99, 65535}});
    expectNumbers<unsigned long long>({{"18.446.744.073.709.551.615", 99, 18446744073709551615ULL},
                                       {"18.446.744.073.709.551.616", 99, 18446744073709551615ULL},
                                       {"-1", 99, 18446744073709551615ULL}});
}

// libstdc++'s own stream stops counting the digits of a group once the number is too large, takes the next separator for one
// without digits before it, and gives 0.
TEST(IntegerReadingUnderALocale, ClampsWhateverFollowsInGroups) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectNumbers<int>({{"71.357.236.111", 99, 2147483647},
                        {"-71.357.236.111", 99, -2147483647 - 1},
                        {"71.357.236.111.000.1", 99, 2147483647}});
    expectNumbers<unsigned short>(
        {{"71.357.236.111", 99, 65535}, {"-71.357.236.111", 99, 65535}, {"65.536.000", 99, 65535}});
    expectNumbers<unsigned int>({{"71.357.236.111.000", 99, 4294967295}, {"-71.357.236.111.000", 99, 4294967295}});
    expectNumbers<unsigned long long>({{"71.357.236.111.000.000.000.000", 99, 18446744073709551615ULL},
                                       {"-71.357.236.111.000.000.000.000", 99, 18446744073709551615ULL}});
}

// The locale of the C library, which the C++ library's own does not follow.
TEST(RealReadingUnderALocale, OfTheCLibraryReadsAsEver) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_NUMERIC, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    expectNumbers<double>({{"1.5", 99, 1.5},
                           {"1,5", 99, 1.0},
                           {".5", 99, 0.5},
                           {",5", 99, 0.0},
                           {"1.234.5", 99, 1.234},
                           {"2.5e-1", 99, 0.25},
                           {"1.5e400", 99, 0x1.fffffffffffffp+1023},
                           {"-1.5e-400", 99, -0.0},
                           {"4.9406564584124654e-324", 99, 0x1p-1074}});
    expectNumbers<float>(
        {{"1.5", 99, 1.5F}, {"1,5", 99, 1.0F}, {"1.5e39", 99, 0x1.fffffep+127F}, {"1.5e-99", 99, 0.0F}});
    expectNumbers<int>({{"1.234", 99, 1}, {"1,5", 99, 1}});
}

// The locale that Linux builds make for the tests has no lower case for A to Z.
TEST(RealReadingUnderALocale, TakesAnExponentInCapitalsWhateverTheCLibraryFolds) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_ALL, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    expectNumbers<double>({{"1.5E1", 99, 15.0},
                           {"1.5E400", 99, 0x1.fffffffffffffp+1023},
                           {"-749E687", 99, -0x1.fffffffffffffp+1023},
                           {"8180.172E-850", 99, 0.0}});
    expectNumbers<float>({{"1E39", 99, 0x1.fffffep+127F}, {"-1E39", 99, -0x1.fffffep+127F}, {"9E-99", 99, 0.0F}});
}

}  // namespace
