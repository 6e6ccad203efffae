#include "util/ascii_fold.h"

#include <gtest/gtest.h>

#include "scoped_locale.h"
#include "test_locale.h"

namespace {

using Kelp::equalIgnoringAsciiCase;

TEST(AsciiFold, TreatsLettersOfBothCasesAsEqual) {
    EXPECT_TRUE(equalIgnoringAsciiCase("", ""));
    EXPECT_TRUE(equalIgnoringAsciiCase("abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    EXPECT_TRUE(equalIgnoringAsciiCase("--OutPut=1", "--oUTpUT=1"));
}

TEST(AsciiFold, KeepsTheNeighboursOfTheLettersApart) {
    EXPECT_FALSE(equalIgnoringAsciiCase("@", "`"));
    EXPECT_FALSE(equalIgnoringAsciiCase("[", "{"));
    EXPECT_FALSE(equalIgnoringAsciiCase("\xC4", "\xE4"));
}

TEST(AsciiFold, ComparesWholeTexts) {
    EXPECT_FALSE(equalIgnoringAsciiCase("-a", "-ab"));
    EXPECT_FALSE(equalIgnoringAsciiCase("-ab", "-a"));
    EXPECT_FALSE(equalIgnoringAsciiCase("", "a"));
    EXPECT_FALSE(equalIgnoringAsciiCase("-a", "-b"));
}

TEST(AsciiFold, IsTheSameInEveryCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    EXPECT_FALSE(equalIgnoringAsciiCase("\xC4", "\xE4"));
    EXPECT_TRUE(equalIgnoringAsciiCase("-A\xC4", "-a\xC4"));
}

}  // namespace
