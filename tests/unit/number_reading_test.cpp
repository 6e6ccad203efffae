#include "convert/number_reading.h"

#include <gtest/gtest.h>

#include "number_types.h"

namespace {

using namespace std::string_view_literals;

struct SharedCase {
    std::string_view text;
    int expected;
};

// What all six types read alike.
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

// What the integer types read and the real ones read otherwise.
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

}  // namespace
