#include "convert/number_reading.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "all_texts.h"
#include "convert/number_pieces.h"
#include "digest.h"
#include "locale_facets.h"
#include "number_model.h"
#include "number_types.h"
#include "scoped_locale.h"
#include "test_locale.h"

namespace {

using namespace std::string_view_literals;
using number_model::extractedOver;
using number_model::streamsStopWhereTheNumberStops;

// What all six types read in the same way.

struct SharedCase {
    std::string_view text;
    int expected;
};

constexpr SharedCase numbers[] = {
    {"0", 0},
    {"7", 7},
    {"42", 42},
    {"  42  ", 42},
    {"65535", 65535},
    {"+7", 7},
    {" \t\n\v\f\r7", 7},
    {"\t7", 7},
    {"\n7", 7},
    {"\v7", 7},
    {"\f7", 7},
    {"\r7", 7},
    {" +7\n", 7},
    {"007", 7},
    {"+0012", 12},
    {"00000000000000000000000000000000000000000000000000000000000065535", 65535},
};

constexpr SharedCase stops[] = {
    {"12abc", 12}, {"12 abc", 12}, {"5 6", 5},  {"5\t6", 5},     {"7-", 7},    {"7+1", 7},       {"7-1", 7},
    {"7 -1", 7},   {"1,5", 1},     {"1'0", 1},  {"1_0", 1},      {"7:8", 7},   {"7;8", 7},       {"7=8", 7},
    {"12%", 12},   {"0x1F", 0},    {"0X1F", 0}, {"+0x1F", 0},    {"0b11", 0},  {"0o17", 0},      {"1p3", 1},
    {"1f", 1},     {"1L", 1},      {"1u", 1},   {"7\0008"sv, 7}, {"7\0"sv, 7}, {"7\xC2\xA0", 7}, {"1\xD9\xA1", 1},
    {"3/4", 3},    {"9:", 9},      {"7.", 7},   {"7.0", 7},      {"7.0.5", 7}, {"7. 5", 7},      {"7..5", 7},
};

constexpr SharedCase unreadable[] = {
    {"abc", 0},
    {"x1", 0},
    {"-", 0},
    {"+", 0},
    {" - ", 0},
    {"+-5", 0},
    {"-+5", 0},
    {"++5", 0},
    {"--5", 0},
    {"- 5", 0},
    {"+ 5", 0},
    {"-\t5", 0},
    {"-x", 0},
    {".", 0},
    {"-.", 0},
    {"+.", 0},
    {"..5", 0},
    {". 5", 0},
    {"e5", 0},
    {".e5", 0},
    {"E", 0},
    {",5", 0},
    {"inf", 0},
    {"-inf", 0},
    {"+inf", 0},
    {"INF", 0},
    {"Infinity", 0},
    {"nan", 0},
    {"-nan", 0},
    {"NaN", 0},
    {"nan(1)", 0},
    {"true", 0},
    {"x1F", 0},
    {"/", 0},
    {"\x1F", 0},
    {"\x08\x39", 0},
    {"\x0E\x39", 0},
    {"\x7F\x39", 0},
    {"\xA0\x39", 0},
    {"\x85\x39", 0},
    {"\xC2\xA0\x39", 0},
    {"\xEF\xBB\xBF\x39", 0},
    {"\xD9\xA1", 0},
    {"\xEF\xBC\x91", 0},
    {"\0"sv, 0},
    {"\0007"sv, 0},
    {" \0"sv, 0},
    {"-\0005"sv, 0},
};

constexpr std::string_view blanks[] = {"", " ", "\t", "\n", "\v", "\f", "\r", "   ", " \t\n\v\f\r", "\r\n"};

template <class T>
class NumberReading : public ::testing::Test {
protected:
    template <std::size_t count>
    static void expectShared(const SharedCase (&cases)[count]) {
        for (const SharedCase& each : cases) {
            expectNumbers<T>({{each.text, 99, static_cast<T>(each.expected)}});
        }
    }
};

TYPED_TEST_SUITE(NumberReading, NumberTypes, NumberTypeNames);

TYPED_TEST(NumberReading, SkipsBlanksAndReadsSignAndDigits) {
    this->expectShared(numbers);
}

TYPED_TEST(NumberReading, StopsWhereTheNumberStops) {
    this->expectShared(stops);
}

TYPED_TEST(NumberReading, GivesZeroWithoutDigits) {
    this->expectShared(unreadable);
}

TYPED_TEST(NumberReading, KeepsTheOldValueWhenTheTextIsBlank) {
    for (const std::string_view text : blanks) {
        expectNumbers<TypeParam>({{text, 99, 99}, {text, 0, 0}});
    }
}

TYPED_TEST(NumberReading, SetsTheValueWhateverTheOldOneWas) {
    using Limits = std::numeric_limits<TypeParam>;
    expectNumbers<TypeParam>({{"5", Limits::max(), 5}, {"5", Limits::lowest(), 5}, {"x", Limits::max(), 0}});
}

TYPED_TEST(NumberReading, ReadsTextsOfAnyLength) {
    const std::string blank(100000, ' ');
    const std::string zeros(100000, '0');
    expectNumbers<TypeParam>({{blank, 99, 99},
                              {blank + "7", 99, 7},
                              {zeros, 99, 0},
                              {zeros + "7", 99, 7},
                              {"+" + zeros + "7", 99, 7},
                              {"7" + std::string(100000, 'x'), 99, 7},
                              {std::string(100000, 'x'), 99, 0}});
}

TYPED_TEST(NumberReading, TakesTheNearestLimitForTooManyDigits) {
    using Limits = std::numeric_limits<TypeParam>;
    const std::string nines(100000, '9');
    expectNumbers<TypeParam>({{nines, 99, Limits::max()},
                              {"+" + nines + "x", 99, Limits::max()},
                              {"-" + nines, 99, std::is_signed_v<TypeParam> ? Limits::lowest() : Limits::max()}});
}

// What the integer types read differently from the real types.

constexpr SharedCase integers[] = {
    {"4.9", 4}, {"+4.9", 4}, {"1e5", 1}, {"1E5", 1}, {"1e", 1},   {"1e+", 1},   {"9e9", 9},  {"2.", 2},
    {".5", 0},  {"-.5", 0},  {"-0", 0},  {"-00", 0}, {"-0.5", 0}, {"-0x1F", 0}, {"0.99", 0}, {"7e-1", 7},
};

template <class T>
class IntegerReading : public NumberReading<T> {};

using IntegerTypes = ::testing::Types<int, unsigned short, unsigned int, unsigned long long>;
TYPED_TEST_SUITE(IntegerReading, IntegerTypes, NumberTypeNames);

TYPED_TEST(IntegerReading, StopsAtPointAndExponent) {
    this->expectShared(integers);
}

// The limits of the integer types.

TEST(NumberReadingLimits, Int) {
    constexpr int smallest = -2147483647 - 1;
    constexpr NumberCase<int> cases[] = {
        {"2147483646", 9, 2147483646},
        {"2147483647", 9, 2147483647},
        {"2147483648", 9, 2147483647},
        {"2147483650", 9, 2147483647},
        {"+2147483647", 9, 2147483647},
        {"+2147483648", 9, 2147483647},
        {"2147483647.9", 9, 2147483647},
        {"2147483648abc", 9, 2147483647},
        {"0000000000000000000002147483646", 9, 2147483646},
        {"0000000000000000000002147483648", 9, 2147483647},
        {"4294967295", 9, 2147483647},
        {"4294967296", 9, 2147483647},
        {"4294967303", 9, 2147483647},
        {"21474836470", 9, 2147483647},
        {"99999999999", 9, 2147483647},
        {"9223372036854775807", 9, 2147483647},
        {"9223372036854775808", 9, 2147483647},
        {"18446744073709551615", 9, 2147483647},
        {"18446744073709551616", 9, 2147483647},
        {"18446744073709551623", 9, 2147483647},
        {"-1", 9, -1},
        {"  -42x", 9, -42},
        {"-2147483646", 9, -2147483646},
        {"-2147483647", 9, -2147483647},
        {"-2147483648", 9, smallest},
        {"-2147483649", 9, smallest},
        {"-2147483650", 9, smallest},
        {"-2147483648.9", 9, smallest},
        {"-0000000000000000000002147483648", 9, smallest},
        {"-4294967295", 9, smallest},
        {"-4294967296", 9, smallest},
        {"-99999999999", 9, smallest},
        {"-9223372036854775808", 9, smallest},
        {"-9223372036854775809", 9, smallest},
        {"-18446744073709551615", 9, smallest},
        {"-18446744073709551617", 9, smallest},
    };
    expectNumbers(cases);
}

TEST(NumberReadingLimits, UnsignedShort) {
    constexpr NumberCase<unsigned short> cases[] = {
        {"65534", 9, 65534},
        {"65535", 9, 65535},
        {"65536", 9, 65535},
        {"65537", 9, 65535},
        {"70000", 9, 65535},
        {"+65536x", 9, 65535},
        {"0000065536", 9, 65535},
        {"655350", 9, 65535},
        {"131073", 9, 65535},
        {"4294967295", 9, 65535},
        {"4294967297", 9, 65535},
        {"18446744073709551615", 9, 65535},
        {"18446744073709551617", 9, 65535},
        {"-1", 9, 65535},
        {" -1 ", 9, 65535},
        {"-2", 9, 65534},
        {"-65534", 9, 2},
        {"-65535", 9, 1},
        {"-65536", 9, 65535},
        {"-65537", 9, 65535},
        {"-70000", 9, 65535},
        {"-4294967295", 9, 65535},
        {"-18446744073709551615", 9, 65535},
        {"-18446744073709551617", 9, 65535},
    };
    expectNumbers(cases);
}

TEST(NumberReadingLimits, UnsignedInt) {
    constexpr NumberCase<unsigned int> cases[] = {
        {"2147483648", 9, 2147483648U},
        {"4294967294", 9, 4294967294U},
        {"4294967295", 9, 4294967295U},
        {"4294967296", 9, 4294967295U},
        {"4294967297", 9, 4294967295U},
        {"42949672950", 9, 4294967295U},
        {"8589934593", 9, 4294967295U},
        {"18446744073709551615", 9, 4294967295U},
        {"18446744073709551617", 9, 4294967295U},
        {"-1", 9, 4294967295U},
        {"-2", 9, 4294967294U},
        {"-4294967294", 9, 2U},
        {"-4294967295", 9, 1U},
        {"-4294967296", 9, 4294967295U},
        {"-4294967297", 9, 4294967295U},
        {"-18446744073709551615", 9, 4294967295U},
        {"-18446744073709551617", 9, 4294967295U},
    };
    expectNumbers(cases);
}

TEST(NumberReadingLimits, UnsignedLongLong) {
    constexpr NumberCase<unsigned long long> cases[] = {
        {"9223372036854775808", 9, 9223372036854775808ULL},
        {"18446744073709551609", 9, 18446744073709551609ULL},
        {"18446744073709551610", 9, 18446744073709551610ULL},
        {"18446744073709551614", 9, 18446744073709551614ULL},
        {"18446744073709551615", 9, 18446744073709551615ULL},
        {"18446744073709551616", 9, 18446744073709551615ULL},
        {"18446744073709551617", 9, 18446744073709551615ULL},
        {"18446744073709551620", 9, 18446744073709551615ULL},
        {"00018446744073709551616", 9, 18446744073709551615ULL},
        {"27670116110564327424", 9, 18446744073709551615ULL},
        {"36893488147419103233", 9, 18446744073709551615ULL},
        {"99999999999999999999", 9, 18446744073709551615ULL},
        {"184467440737095516150", 9, 18446744073709551615ULL},
        {"-1", 9, 18446744073709551615ULL},
        {"-2", 9, 18446744073709551614ULL},
        {"-9223372036854775808", 9, 9223372036854775808ULL},
        {"-18446744073709551614", 9, 2ULL},
        {"-18446744073709551615", 9, 1ULL},
        {"-18446744073709551616", 9, 18446744073709551615ULL},
        {"-18446744073709551617", 9, 18446744073709551615ULL},
        {"-99999999999999999999", 9, 18446744073709551615ULL},
    };
    expectNumbers(cases);
}

// Every number around the whole range of the smallest type, against plain arithmetic.
TEST(NumberReadingLimits, EveryNumberNearTheRangeOfUnsignedShort) {
    for (int number = -140000; number <= 140000; ++number) {
        const std::string text = std::to_string(number);
        int expected = number;
        if (number < -65535 || number > 65535) {
            expected = 65535;
        } else if (number < 0) {
            expected = number + 65536;
        }
        ASSERT_EQ(readOver<unsigned short>(9, text), expected) << text;
        ASSERT_EQ(readOver<int>(9, text), number) << text;
    }
}

// Where reading stops: a list continues there.

struct EndCase {
    std::string_view text;
    std::ptrdiff_t real;
    std::ptrdiff_t integer;
};

constexpr EndCase ends[] = {
    {"", 0, 0},     {"x", 0, 0},        {"-", 1, 1},    {"+x", 1, 1},      {"-inf", 1, 1},     {"7", 1, 1},
    {"12:3", 2, 2}, {"12,3", 2, 2},     {"-12", 3, 3},  {"+12 ", 3, 3},    {"1.5", 3, 1},      {"1.5.5", 3, 1},
    {".5", 2, 0},   {"-.5,", 3, 1},     {".", 1, 0},    {"1.e5x", 4, 1},   {"-1.5e3:2", 6, 2}, {"1E+05,", 5, 1},
    {"1e", 2, 1},   {"1e+", 3, 1},      {"1ex", 2, 1},  {"12.5e-x", 6, 2}, {"1e400,1", 5, 1},  {"-1e-400:", 7, 2},
    {"0x10", 1, 1}, {"0012.50 ", 7, 4}, {" \t7", 0, 0},
};

template <class T>
std::ptrdiff_t endOf(std::string_view text) {
    const char* position = text.data();
    T number = 0;
    Kelp::readClassic(number, position, text.data() + text.size());
    return position - text.data();
}

TEST(NumberEnd, FollowsTheLastCharacterRead) {
    for (const EndCase& each : ends) {
        EXPECT_EQ(endOf<double>(each.text), each.real) << each.text;
        EXPECT_EQ(endOf<float>(each.text), each.real) << each.text;
        EXPECT_EQ(endOf<int>(each.text), each.integer) << each.text;
        EXPECT_EQ(endOf<unsigned long long>(each.text), each.integer) << each.text;
    }
}

template <class T>
T valueOf(std::string_view text) {
    T number = 99;
    Kelp::NumberReader().read(number, text);
    return number;
}

std::ptrdiff_t sizeOfReal(std::string_view text) {
    const Kelp::RealText real = Kelp::findReal(text.data(), text.data() + text.size());
    return real.end - real.begin;
}

// The readers ignore what follows the text in memory, even characters that would continue the number.
TEST(NumberEnd, IsAtMostTheEndOfTheText) {
    for (const EndCase& each : ends) {
        for (std::size_t length = 0; length < each.text.size(); ++length) {
            const std::string_view cut = each.text.substr(0, length);
            const std::string alone(cut);
            EXPECT_EQ(endOf<double>(cut), endOf<double>(alone)) << each.text << " cut to " << length;
            EXPECT_EQ(endOf<int>(cut), endOf<int>(alone)) << each.text << " cut to " << length;
            EXPECT_EQ(sizeOfReal(cut), sizeOfReal(alone)) << each.text << " cut to " << length;
            EXPECT_EQ(valueOf<double>(cut), valueOf<double>(alone)) << each.text << " cut to " << length;
            EXPECT_EQ(valueOf<int>(cut), valueOf<int>(alone)) << each.text << " cut to " << length;
        }
    }
    const char* position = "-1";
    EXPECT_FALSE(Kelp::readSign(position, position));
}

TEST(NumberEnd, OfAListIsTheEndOfItsText) {
    const Kelp::NumberReader reader;
    Kelp::NumberPieces pieces(reader, std::string_view("1::2:::3").substr(0, 6), ':');
    int number = 99;
    ASSERT_TRUE(pieces.next());
    pieces.read(number);
    EXPECT_EQ(number, 1);
    ASSERT_TRUE(pieces.next());
    pieces.read(number);
    EXPECT_EQ(number, 2);
    EXPECT_FALSE(pieces.next());
}

// The overload for standard libraries whose from_chars reads no real numbers.
TEST(NumberEnd, DoesNotMoveWithoutFromChars) {
    const std::string_view text = "1.5";
    const char* position = text.data();
    static_assert(!Kelp::HasFromChars<bool>::value);
    bool number = true;
    EXPECT_FALSE(Kelp::readRealInOnePass(number, position, text.data() + text.size()));
    EXPECT_EQ(position, text.data());
    EXPECT_TRUE(number);
}

// Under another locale.

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

// libc++ 14 reads most of these texts differently with its own streams.
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

// Once a number is too large, libstdc++'s stream stops counting the digits of a group. It then takes the next separator
// for one without digits before it and gives 0.
TEST(IntegerReadingUnderALocale, ClampsWhenMoreGroupsFollow) {
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

// The global locale of the C++ library does not follow the locale of the C library.
TEST(RealReadingUnderALocale, OfTheCLibraryReadsTheSameNumbers) {
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

// The locale that Linux builds make for the tests maps no letter from A to Z to lower case.
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

// Every short text.

constexpr auto letters = "019+-.eEx a\0"sv;
constexpr std::size_t longest = 5;

/// The digest of the numbers read from all texts over 99. It is the same on every system.
template <class T>
constexpr std::uint64_t expectedDigest = 0;
template <>
constexpr std::uint64_t expectedDigest<int> = 7162669966019597780U;
template <>
constexpr std::uint64_t expectedDigest<unsigned short> = 15232543483640665292U;
template <>
constexpr std::uint64_t expectedDigest<unsigned int> = 1840244080429398812U;
template <>
constexpr std::uint64_t expectedDigest<unsigned long long> = 7162669966019597780U;
template <>
constexpr std::uint64_t expectedDigest<double> = 7621400800250876200U;
template <>
constexpr std::uint64_t expectedDigest<float> = 16700485091828929992U;

template <class T>
class AllShortTexts : public ::testing::Test {};

TYPED_TEST_SUITE(AllShortTexts, NumberTypes, NumberTypeNames);

TYPED_TEST(AllShortTexts, ReadAsAStreamReadsThemAndTheSameOnEverySystem) {
    // The streams of all standard libraries read integers in the same way.
    const bool streamsAreAModel = std::is_integral_v<TypeParam> || streamsStopWhereTheNumberStops();
    Digest digest;
    forEachText(letters, longest, [&](const std::string& text) {
        const auto actual = readOver<TypeParam>(99, text);
        digest.add(bitsOf(actual));
        if (streamsAreAModel && !this->HasFailure()) {
            EXPECT_EQ(bitsOf(actual), bitsOf(extractedOver<TypeParam>(99, text))) << shown(text);
        }
    });
    EXPECT_EQ(digest.value(), expectedDigest<TypeParam>);
}

}  // namespace
