#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <string>

#include "arguments.h"

namespace {

/// A type of a tool's own, whose conversion refuses every text.
struct Refusing {};
struct Refused {
    std::string text;
};

[[noreturn]] void stringToValue(Refusing& /*target*/, const std::string& text) {
    throw Refused{text};
}

TEST(OptionReaderExceptions, OfAConversionComeThrough) {
    Arguments line{"tool", "-n=5"};
    Kelp::OptionReader reader(line.argc(), line.argv());
    Refusing value;
    try {
        reader.getValue("-n", "--number", value, 1);
        FAIL() << "nothing was thrown";
    } catch (const Refused& refused) {
        EXPECT_EQ(refused.text, "5");
    }
    EXPECT_EQ(reader.getValue("-x", "--other", value, 1), 0) << "nothing is converted";
}

}  // namespace
