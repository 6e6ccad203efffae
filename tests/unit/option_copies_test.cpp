#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <string>
#include <utility>
#include <vector>

namespace {

/// Longer than what a string holds without memory of its own.
const std::string longText(50, 'x');

std::vector<std::string> textsOf(const Kelp::Option& option) {
    return {option.shortFlag, option.longFlag, option.description, option.marker ? "marked" : "not marked"};
}

std::vector<std::string> textsOf(const Kelp::Argument& argument) {
    return {argument.name, argument.description, argument.repeated ? "repeated" : "once"};
}

/// Puts each record into each, itself too, copied and moved.
template <class Record>
void expectCopies(const std::vector<std::pair<Record, std::vector<std::string>>>& cases) {
    for (const auto& [from, expected] : cases) {
        for (const auto& [to, replaced] : cases) {
            const std::string name = ::testing::PrintToString(expected) + " over " + ::testing::PrintToString(replaced);
            Record copied = to;
            copied = from;
            EXPECT_EQ(textsOf(copied), expected) << name;
            EXPECT_EQ(textsOf(from), expected) << name;
            Record moved = to;
            moved = std::move(copied);
            EXPECT_EQ(textsOf(moved), expected) << name;
            const Record& same = moved;
            moved = same;
            EXPECT_EQ(textsOf(moved), expected) << name;
            const Record constructed = std::move(moved);
            EXPECT_EQ(textsOf(constructed), expected) << name;
        }
    }
}

TEST(OptionCopies, TakesEveryText) {
    expectCopies<Kelp::Option>({
        {{"-n", "--number", "count", true}, {"-n", "--number", "count", "marked"}},
        {{"-o", "--output", longText, false}, {"-o", "--output", longText, "not marked"}},
        {{"", "", "", false}, {"", "", "", "not marked"}},
    });
}

TEST(ArgumentCopies, TakesEveryText) {
    expectCopies<Kelp::Argument>({
        {{"in", "what to read", true}, {"in", "what to read", "repeated"}},
        {{longText, longText, false}, {longText, longText, "once"}},
        {{"", "", false}, {"", "", "once"}},
    });
}

}  // namespace
