#include "command_line/flag_key.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

TEST(FlagKey, IsADashAndOneLetter) {
    const struct {
        std::string token;
        std::string key;
    } cases[] = {
        {"-", "-"},    {"-o", "-o"},       {"-O", "-O"},        {"-out", "-o"},         {"-o=x", "-o"}, {"-=", "-="},
        {"--o", "-o"}, {"--output", "-o"}, {"--O=x", "-O"},     {"--=x", "-="},         {"---", "--"},  {"---x", "--"},
        {"-5", "-5"},  {"--", "-\0"s},     {"--\xFF", "-\xFF"}, {"-\xC3\xA4", "-\xC3"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::flagKey(c.token), c.key) << c.token;
    }
}

TEST(TokenMark, IsTheLetterOfAFlagOrMarksAnArgument) {
    const struct {
        const char* token;
        char mark;
    } cases[] = {
        {"-o", 'o'},        {"-O", 'o'},       {"-out", 'o'},  {"--out=x", 'o'}, {"--O", 'o'},  {"-5", '5'},
        {"-", '\0'},        {"--", '\0'},      {"---", '-'},   {"---x", '-'},    {"-=", '='},   {"--=x", '='},
        {"--\xFF", '\xFF'}, {"-\xC4", '\xC4'}, {"-A", 'a'},    {"-Z", 'z'},      {"-[", '['},   {"-@", '@'},
        {"", 'A'},          {"a", 'A'},        {"o-", 'A'},    {" -o", 'A'},     {"\xC4", 'A'}, {"=", 'A'},
        {"/", 'S'},         {"/?", 'S'},       {"/help", 'S'}, {"//", 'S'},      {"\\?", 'A'},  {".", 'A'},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::tokenMark(c.token), c.mark) << c.token;
    }
}

TEST(TokenMark, OfAKeyEqualsThatOfItsTokens) {
    const struct {
        const char* name;
        char mark;
    } cases[] = {
        {"-o", 'o'}, {"-O", 'o'}, {"-", '\0'}, {"--", '-'},  {"-=", '='},       {"-\xC4", '\xC4'}, {nullptr, 'N'},
        {"", 'N'},   {"o", 'N'},  {"/h", 'N'}, {"-op", 'N'}, {"--output", 'N'}, {"--o", 'N'},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::keyMark(c.name), c.mark) << (c.name == nullptr ? "null" : c.name);
    }
}

TEST(TokenMark, IsFoundAtOrAfterAPosition) {
    const std::string marks = "AoAnoS";
    constexpr std::size_t none = std::string::npos;
    const struct {
        char one;
        char other;
        std::size_t from;
        std::size_t position;
    } cases[] = {
        {'o', 'o', 0, 1},    {'o', 'o', 1, 1},    {'o', 'o', 2, 4},       {'o', 'o', 4, 4},       {'o', 'o', 5, none},
        {'n', 'o', 0, 1},    {'n', 'o', 2, 3},    {'o', 'n', 2, 3},       {'n', 'o', 4, 4},       {'n', 'o', 5, none},
        {'A', 'S', 0, 0},    {'A', 'S', 3, 5},    {'S', 'A', 3, 5},       {'A', 'S', 6, none},    {'A', 'S', 7, none},
        {'x', 'x', 0, none}, {'x', 'y', 0, none}, {'o', 'n', none, none}, {'o', 'o', none, none},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::findMark(marks, c.one, c.other, c.from), c.position) << c.one << c.other << " from " << c.from;
    }
    EXPECT_EQ(Kelp::findMark("", 'A', 'A', 0), none);
    EXPECT_EQ(Kelp::findMark("", 'A', 'S', 0), none);
}

}  // namespace
