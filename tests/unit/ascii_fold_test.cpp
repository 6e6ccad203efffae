#include "util/ascii_fold.h"

#include <gtest/gtest.h>

#include "scoped_locale.h"
#include "test_locale.h"

namespace {

using Kelp::equalIgnoringAsciiCase;

TEST(AsciiFold, IgnoresTheCaseOfAsciiLettersOnly) {
    const struct {
        const char* first;
        const char* second;
        bool equal;
    } cases[] = {
        {"", "", true},
        {"abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", true},
        {"--OutPut=1", "--oUTpUT=1", true},
        // The neighbours of the letters, and letters outside ASCII.
        {"@", "`", false},
        {"[", "{", false},
        {"\xC4", "\xE4", false},
        // Texts of different lengths, and different letters.
        {"-a", "-ab", false},
        {"-ab", "-a", false},
        {"", "a", false},
        {"-a", "-b", false},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(equalIgnoringAsciiCase(each.first, each.second), each.equal) << each.first << " and " << each.second;
    }
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
