#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <filesystem>
#include <type_traits>
#include <utility>

#include "number_types.h"
#include "shown_text.h"

namespace {

using namespace std::string_literals;

TEST(ScalarValues, StringIsAnExactCopy) {
    for (const std::string& text :
         {""s, " "s, " a "s, "a"s, "\ta\r\n"s, "a\0b"s, "\0"s, "'q'"s, "\xC3\xA4\xFF"s, std::string(100000, 'x')}) {
        EXPECT_EQ(readOver<std::string>("old", text), text);
    }
}

TEST(ScalarValues, BoolIsTrueForEveryText) {
    for (const std::string& text : {""s, " "s, "false"s, "False"s, "0"s, "no"s, "off"s, "true"s, "1"s, "\0"s}) {
        EXPECT_TRUE(readOver(false, text)) << shown(text);
        EXPECT_TRUE(readOver(true, text)) << shown(text);
    }
}

TEST(ScalarValues, CharIsTheFirstCharacterOrASpace) {
    const std::pair<std::string, char> cases[] = {
        {"", ' '},  {"x", 'x'}, {"xyz", 'x'},   {" x", ' '},          {"\tx", '\t'},
        {"=", '='}, {"0", '0'}, {"\0x"s, '\0'}, {"\xC3\xA4", '\xC3'},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(readOver('o', text), expected) << shown(text);
    }
}

TEST(ScalarValues, StringDoubleTakesExactlyTwoPieces) {
    const struct {
        std::string text;
        std::string label;
        double value;
    } cases[] = {
        {"depth:2.5", "depth", 2.5},
        {"depth:-1e3", "depth", -1000.0},
        {"depth:x", "depth", 0.0},
        {"depth:2.5abc", "depth", 2.5},
        {"depth:1,5", "depth", 1.0},
        {"depth:1e400", "depth", 0x1.fffffffffffffp+1023},
        {"depth::2.5", "depth", 2.5},
        {"depth:::2.5:", "depth", 2.5},
        {":a:1", "a", 1.0},
        {":a:1:", "a", 1.0},
        {"::a::1::", "a", 1.0},
        {"depth: 2 ", "depth", 2.0},
        {" a b :1", " a b ", 1.0},
        {" :1", " ", 1.0},
        {"7:8", "7", 8.0},
        {"a:b", "a", 0.0},
        {"a\0b:2\0003"s, "a\0b"s, 2.0},
        {"a=b;c:4", "a=b;c", 4.0},
    };
    for (const auto& each : cases) {
        const auto pair = readOver<Kelp::StringDouble>({"old", 9.5}, each.text);
        EXPECT_EQ(pair.label, each.label) << shown(each.text);
        EXPECT_EQ(pair.value, each.value) << shown(each.text);
    }
}

TEST(ScalarValues, StringDoubleKeepsItsValueWhenTheSecondPieceIsBlank) {
    for (const char* const text : {"depth: ", "depth:\t", "depth:  \n", ":depth: :"}) {
        const auto pair = readOver<Kelp::StringDouble>({"old", 9.5}, text);
        EXPECT_EQ(pair.label, "depth") << shown(text);
        EXPECT_EQ(pair.value, 9.5) << shown(text);
    }
}

TEST(ScalarValues, StringDoubleStaysUntouchedForAnyOtherNumberOfPieces) {
    for (const char* const text : {"", " ", ":", "::", "abc", "2.5", "depth:", "depth::", ":2.5", ":3", "::3",
                                   ":depth:", "a:b:1", "a:1:2", "a:b:c:1", "a: : ", "a:b:1:"}) {
        const auto pair = readOver<Kelp::StringDouble>({"old", 9.5}, text);
        EXPECT_EQ(pair.label, "old") << shown(text);
        EXPECT_EQ(pair.value, 9.5) << shown(text);
    }
}

TEST(ScalarValues, StringDoubleStartsEmpty) {
    const Kelp::StringDouble pair;
    EXPECT_EQ(pair.label, "");
    EXPECT_EQ(pair.value, 0.0);
    const auto [label, value] = Kelp::StringDouble{"text first", 2.0};
    EXPECT_EQ(label, "text first");
    EXPECT_EQ(value, 2.0);
}

// The types that stringToValue accepts.

template <class T, class = void>
constexpr bool convertible = false;
template <class T>
constexpr bool convertible<T, std::void_t<decltype(Kelp::stringToValue(std::declval<T&>(), std::string()))>> = true;

static_assert(convertible<std::string> && convertible<bool> && convertible<char> && convertible<int> &&
              convertible<unsigned short> && convertible<unsigned int> && convertible<unsigned long long> &&
              convertible<double> && convertible<float> && convertible<Kelp::StringDouble> &&
              convertible<std::filesystem::path>);
static_assert(!convertible<signed char> && !convertible<unsigned char> && !convertible<wchar_t> &&
              !convertible<short> && !convertible<long> && !convertible<unsigned long> && !convertible<long long> &&
              !convertible<long double> && !convertible<const int> && !convertible<const char*> &&
              !convertible<std::wstring>);

}  // namespace
