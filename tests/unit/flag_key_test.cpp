#include "frame/flag_key.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

TEST(FlagKey, TellsFlagsByTheirFirstCharacter) {
    for (const char* flag : {"-", "--", "-o", "-5", "--output=x"}) {
        EXPECT_TRUE(Kelp::isFlag(flag)) << flag;
    }
    for (const char* argument : {"", "o", "/?", "=", " -o", "o-"}) {
        EXPECT_FALSE(Kelp::isFlag(argument)) << argument;
    }
}

TEST(FlagKey, IsADashAndOneLetter) {
    const struct {
        std::string token;
        std::string key;
    } cases[] = {
        {"", ""},        {"a", "a"},          {"ab", "ab"},           {"abc", "ab"},  {"-", "-"},    {"-o", "-o"},
        {"-O", "-O"},    {"-out", "-o"},      {"-o=x", "-o"},         {"-=", "-="},   {"--o", "-o"}, {"--output", "-o"},
        {"--O=x", "-O"}, {"--=x", "-="},      {"---", "--"},          {"---x", "--"}, {"-5", "-5"},  {"/x", "/x"},
        {"--", "-\0"s},  {"--\xFF", "-\xFF"}, {"-\xC3\xA4", "-\xC3"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::flagKey(c.token), c.key) << c.token;
    }
}

}  // namespace
