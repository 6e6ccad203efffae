#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <map>
#include <set>
#include <string_view>
#include <type_traits>

#include "all_texts.h"
#include "scoped_locale.h"
#include "shown_text.h"
#include "test_locale.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

static_assert(std::is_empty_v<ci_less> && std::is_default_constructible_v<ci_less>);

constexpr ci_less before{};

TEST(OptionOrder, FoldsCaseAndNothingElse) {
    const std::pair<std::string, std::string> smallerFirst[] = {
        {"", "-a"},         {"", "\0"s},      {"", "\x01"},
        {"-a", "-ab"},      {"-A", "-ab"},    {"-a", "-AB"},
        {"-B", "-c"},       {"-b", "-C"},     {"-A", "-b"},
        {"-b", "-z"},       {"-A", "-z"},     {"-", "--"},
        {"a", "a\0"s},      {"\0a"s, "\0b"s}, {"a\0B"s, "A\0c"s},
        {"@", "A"},         {"[", "Z"},       {"Z", "{"},
        {"[", "a"},         {"[", "A"},       {"_", "a"},
        {"_", "A"},         {"\x7F", "\x80"}, {"z", "\x80"},
        {"\x80", "\xFF"},   {"\xC4", "\xE4"}, {"\xC3\x84", "\xC3\xA4"},
        {"a\xC4", "A\xE4"}, {"9", "A"},
    };
    for (const auto& [smaller, larger] : smallerFirst) {
        EXPECT_TRUE(before(smaller, larger)) << shown(smaller) << shown(larger);
        EXPECT_FALSE(before(larger, smaller)) << shown(smaller) << shown(larger);
    }
    const std::pair<std::string, std::string> equivalent[] = {
        {"", ""},
        {"-a", "-A"},
        {"--OutPut", "--oUTpUT"},
        {"abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
        {"a\0B"s, "A\0b"s},
        {"\xC4\xFFx", "\xC4\xFFX"},
    };
    for (const auto& [one, other] : equivalent) {
        EXPECT_FALSE(before(one, other)) << shown(one) << shown(other);
        EXPECT_FALSE(before(other, one)) << shown(one) << shown(other);
    }
}

/// A letter's place in the alphabet below.
int rank(char letter) {
    switch (letter) {
        case '\0':
            return 0;
        case '-':
            return 1;
        case 'a':
        case 'A':
            return 2;
        case 'b':
            return 3;
        default:
            return 4;
    }
}

std::vector<int> ranks(const std::string& text) {
    std::vector<int> result;
    for (const char letter : text) {
        result.push_back(rank(letter));
    }
    return result;
}

std::vector<std::string> shortTexts() {
    std::vector<std::string> texts;
    forEachText("\0-aAb\xC4"sv, 3, [&texts](const std::string& text) { texts.push_back(text); });
    return texts;
}

TEST(OptionOrder, OrdersEveryTwoShortTextsByTheirFoldedLetters) {
    const std::vector<std::string> texts = shortTexts();
    for (const std::string& one : texts) {
        for (const std::string& other : texts) {
            ASSERT_EQ(before(one, other), ranks(one) < ranks(other)) << shown(one) << shown(other);
        }
    }
}

// What an ordered container relies on, for every three texts: without it the tree of a map breaks.
TEST(OptionOrder, IsAStrictWeakOrder) {
    const std::vector<std::string> texts = shortTexts();
    const std::size_t count = texts.size();
    std::vector<std::vector<bool>> less(count, std::vector<bool>(count));
    for (std::size_t a = 0; a < count; ++a) {
        for (std::size_t b = 0; b < count; ++b) {
            less[a][b] = before(texts[a], texts[b]);
        }
    }
    for (std::size_t a = 0; a < count; ++a) {
        ASSERT_FALSE(less[a][a]) << shown(texts[a]);
        for (std::size_t b = 0; b < count; ++b) {
            ASSERT_FALSE(less[a][b] && less[b][a]) << shown(texts[a]) << shown(texts[b]);
            for (std::size_t c = 0; c < count; ++c) {
                // Whoever stands before another stands before or behind any third one.
                ASSERT_TRUE(!less[a][b] || less[a][c] || less[c][b])
                    << shown(texts[a]) << shown(texts[b]) << shown(texts[c]);
            }
        }
    }
}

TEST(OptionOrder, OrdersAMapOfOptions) {
    std::map<std::string, Kelp::Option, ci_less> options;
    for (const char* const flag : {"-z", "-A", "-b", "", "-Z", "-a"}) {
        options.emplace(flag, Kelp::Option(flag, "", std::string("first ") + flag, false));
    }
    std::vector<std::string> keys;
    std::vector<std::string> descriptions;
    for (const auto& [key, option] : options) {
        keys.push_back(key);
        descriptions.push_back(option.description);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"", "-A", "-b", "-z"}));
    EXPECT_EQ(descriptions, (std::vector<std::string>{"first ", "first -A", "first -b", "first -z"}));
    EXPECT_EQ(options.count("-B"), 1U);
    EXPECT_EQ(options.find("-Z")->first, "-z");
    EXPECT_EQ(options.find("-c"), options.end());
}

TEST(OptionOrder, OrdersASet) {
    const std::set<std::string, ci_less> names{"beta", "Alpha", "ALPHA", "gamma", "Beta2", "BETA"};
    EXPECT_EQ(std::vector<std::string>(names.begin(), names.end()),
              (std::vector<std::string>{"Alpha", "beta", "Beta2", "gamma"}));
}

TEST(OptionOrder, FollowsTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    EXPECT_FALSE(before("-\xC4", "-\xE4"));
    EXPECT_FALSE(before("-\xE4", "-\xC4"));
    EXPECT_TRUE(before("-\xC4", "-\xE5"));
}

}  // namespace
