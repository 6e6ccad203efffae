#include "frame/flag_key.h"

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

}  // namespace
