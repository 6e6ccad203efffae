#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "convert/number_pieces.h"
#include "convert/number_reading.h"

/// Where reading a number stops: whoever reads a list goes on from there.
namespace {

struct Case {
    std::string_view text;
    std::ptrdiff_t real;
    std::ptrdiff_t integer;
};

constexpr Case cases[] = {
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

TEST(NumberEnd, LiesBehindAllThatWasTaken) {
    for (const Case& each : cases) {
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

// What follows a text is not looked at, even where it would go on with the number.
TEST(NumberEnd, LiesWithinTheText) {
    for (const Case& each : cases) {
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

TEST(NumberEnd, OfAListIsThatOfItsText) {
    Kelp::NumberPieces pieces(std::string_view("1::2:::3").substr(0, 6), ':');
    int number = 99;
    ASSERT_TRUE(pieces.next());
    pieces.read(number);
    EXPECT_EQ(number, 1);
    ASSERT_TRUE(pieces.next());
    pieces.read(number);
    EXPECT_EQ(number, 2);
    EXPECT_FALSE(pieces.next());
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
