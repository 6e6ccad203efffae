#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <utility>

#include "arguments.h"

namespace {

using Strings = std::vector<std::string>;

Kelp::OptionReader readerOf(const Strings& tokens) {
    Arguments line(tokens);
    return {line.argc(), line.argv()};
}

Strings tokensOf(Kelp::OptionReader reader) {
    Strings tokens;
    reader.getOptions(tokens);
    return tokens;
}

const Strings few = {"tool", "-n=5"};
const Strings many = {"tool", "-o=a", "a token of more than a few characters", "", "-v", "in.txt"};

TEST(OptionReaderCopies, HoldTheSameTokens) {
    for (const Strings& tokens : {few, many, Strings()}) {
        const Kelp::OptionReader original = readerOf(tokens);
        Kelp::OptionReader copy(original);
        copy.setVerbose(true);
        EXPECT_FALSE(original.getVerbose());
        EXPECT_EQ(tokensOf(copy), tokens);
        EXPECT_EQ(tokensOf(original), tokens);
    }
}

TEST(OptionReaderCopies, ReplaceLongerAndShorterOnes) {
    Kelp::OptionReader reader = readerOf(few);
    const Kelp::OptionReader longer = readerOf(many);
    reader.setVerbose(true);
    reader = longer;
    EXPECT_EQ(tokensOf(reader), many);
    EXPECT_FALSE(reader.getVerbose());
    reader = readerOf(few);
    EXPECT_EQ(tokensOf(reader), few);
    Kelp::OptionReader& same = reader;
    reader = same;
    EXPECT_EQ(tokensOf(reader), few);
    reader = readerOf({});
    EXPECT_EQ(tokensOf(reader), Strings());
}

TEST(OptionReaderCopies, LeaveNothingWhereTheyAreMovedFrom) {
    Kelp::OptionReader reader = readerOf(many);
    const Kelp::OptionReader taken(std::move(reader));
    EXPECT_EQ(tokensOf(taken), many);
    // A reader that is moved from has no tokens, and every question an answer. NOLINTBEGIN(bugprone-use-after-move)
    std::string text = "before";
    Strings arguments;
    EXPECT_EQ(reader.hasOption("-v", "-o", 0), 0);
    EXPECT_EQ(reader.getValue("-o", "", text, 0), 0);
    EXPECT_EQ(reader.getFirstArgument(text, 0), 0);
    EXPECT_FALSE(reader.getArguments(arguments, 0));
    EXPECT_EQ(reader.getNameTool(), "");
    EXPECT_EQ(text, "before");
    EXPECT_EQ(tokensOf(reader), Strings());
    // NOLINTEND(bugprone-use-after-move)
}

}  // namespace
