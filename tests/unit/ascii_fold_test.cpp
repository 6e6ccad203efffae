#include "util/ascii_fold.h"

#include <gtest/gtest.h>

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

}  // namespace
