#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <climits>

#include "locale_facets.h"
#include "scoped_locale.h"

namespace {

using namespace std::string_literals;

void expectColors() {
    const struct {
        std::string text;
        int code;
        std::string expected;
    } cases[] = {
        {"abc", 32, "\x1B[32mabc\x1B[0m"},
        {"abc", -5, "\x1B[-5mabc\x1B[0m"},
        {"abc", 0, "\x1B[0mabc\x1B[0m"},
        {"abc", 1, "\x1B[1mabc\x1B[0m"},
        {"", 31, "\x1B[31m\x1B[0m"},
        {"", 0, "\x1B[0m\x1B[0m"},
        {" two words\n", 34, "\x1B[34m two words\n\x1B[0m"},
        {"\x1B[31mred\x1B[0m", 34, "\x1B[34m\x1B[31mred\x1B[0m\x1B[0m"},
        {"a\0b"s, 7, "\x1B[7ma\0b\x1B[0m"s},
        {"%d%s", 10, "\x1B[10m%d%s\x1B[0m"},
        {"x", 1234567, "\x1B[1234567mx\x1B[0m"},
        {"x", INT_MAX, "\x1B[2147483647mx\x1B[0m"},
        {"x", INT_MIN, "\x1B[-2147483648mx\x1B[0m"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(getColoredString(each.text, each.code), each.expected) << each.text << " in " << each.code;
    }
}

TEST(ColoredString, WrapsTheTextInTheColorAndTheReset) {
    expectColors();
}

TEST(ColoredString, WritesTheSameCodeUnderEveryLocale) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectColors();
}

TEST(ColoredString, ChangesNoArgument) {
    const std::string text = "abc";
    const int code = 32;
    EXPECT_NE(getColoredString(text, code), text);
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(code, 32);
}

}  // namespace
