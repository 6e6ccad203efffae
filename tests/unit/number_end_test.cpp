#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

#include "convert/number_reading.h"

/// Where reading a number stops: whoever reads a list goes on from there.
namespace {

struct Case {
    std::string_view text;
    std::ptrdiff_t real;
    std::ptrdiff_t integer;
};

constexpr Case cases[] = {
    {"", 0, 0},     {"x", 0, 0},        {"-", 1, 1},   {"+x", 1, 1},      {"-inf", 1, 1},     {"7", 1, 1},
    {"12:3", 2, 2}, {"12,3", 2, 2},     {"-12", 3, 3}, {"+12 ", 3, 3},    {"1.5", 3, 1},      {"1.5.5", 3, 1},
    {".5", 2, 0},   {"-.5,", 3, 1},     {".", 1, 0},   {"1.e5x", 4, 1},   {"-1.5e3:2", 6, 2}, {"1E+05,", 5, 1},
    {"1e", 2, 1},   {"1e+", 3, 1},      {"1ex", 2, 1}, {"12.5e-x", 6, 2}, {"1e400,1", 5, 1},  {"-1e-400:", 7, 2},
    {"0x10", 1, 1}, {"0012.50 ", 7, 4},
};

template <class T>
std::ptrdiff_t endOf(std::string_view text) {
    const char* position = text.data();
    T number = 0;
    Kelp::readClassic(number, position, text.data() + text.size());
    return position - text.data();
}

TEST(NumberEnd, LiesBehindAllThatWasTaken) {
    for (const Case& each : cases) {
        EXPECT_EQ(endOf<double>(each.text), each.real) << each.text;
        EXPECT_EQ(endOf<float>(each.text), each.real) << each.text;
        EXPECT_EQ(endOf<int>(each.text), each.integer) << each.text;
        EXPECT_EQ(endOf<unsigned long long>(each.text), each.integer) << each.text;
    }
}

// Where from_chars reads no real numbers.
TEST(NumberEnd, IsLeftAloneByTheReaderThatReadsNothingAtOnce) {
    const std::string_view text = "1.5";
    const char* position = text.data();
    double number = 9.5;
    EXPECT_FALSE(Kelp::readAtOnce(number, position, text.data() + text.size(), 0L));
    EXPECT_EQ(position, text.data());
    EXPECT_EQ(number, 9.5);
}

}  // namespace
