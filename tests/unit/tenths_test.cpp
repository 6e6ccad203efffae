#include <gtest/gtest.h>

#include <cfenv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <string>

#include "console/bounded_text.h"
#include "scoped_locale.h"
#include "test_locale.h"

/// Numbers with one decimal, compared with printf's, whose rounding they have without its cost.
namespace {

std::string withPrintf(double number) {
    char text[400];
    const int length = std::snprintf(text, sizeof text, "%.1f", number);
    return {text, static_cast<std::size_t>(length)};
}

std::string tenths(double number) {
    char buffer[400];
    Kelp::BoundedText text(buffer, sizeof buffer);
    text.appendTenths(number);
    return std::string(text.view());
}

void expectSameBeside(double number) {
    for (const double each : {std::nextafter(number, -1e300), number, std::nextafter(number, 1e300)}) {
        ASSERT_EQ(tenths(each), withPrintf(each)) << std::to_string(each);
        ASSERT_EQ(tenths(-each), withPrintf(-each)) << std::to_string(each);
    }
}

TEST(Tenths, AreRoundedAsPrintfRounds) {
    for (int i = 0; i <= 40000; ++i) {
        // Every number halfway between two tenths, in decimal or in binary, and those in the middle.
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

TEST(Tenths, AreRoundedAsTheProgramHasAskedFor) {
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
