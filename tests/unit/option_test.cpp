#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <iostream>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

#include "all_texts.h"
#include "captured_output.h"
#include "locale_facets.h"
#include "scoped_locale.h"
#include "shown_text.h"
#include "test_locale.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// Members.

TEST(Option, StoresItsFourValuesInOrder) {
    for (const bool marker : {false, true}) {
        const Kelp::Option option("-n", "--number", "count", marker);
        EXPECT_EQ(option.shortFlag, "-n");
        EXPECT_EQ(option.longFlag, "--number");
        EXPECT_EQ(option.description, "count");
        EXPECT_EQ(option.marker, marker);
    }
}

TEST(Option, TakesStringsAsWellAsLiterals) {
    const Kelp::Option option("-n"s, "--number"s, "a\0b"s, true);
    EXPECT_EQ(option.shortFlag, "-n");
    EXPECT_EQ(option.longFlag, "--number");
    EXPECT_EQ(option.description, "a\0b"s);
    EXPECT_TRUE(option.marker);
    const Kelp::Option mixed("-n", "--number"s, "count", false);
    EXPECT_EQ(std::to_string(mixed), "-n, --number:\tcount");
    const Kelp::Argument argument("in"s, "a\0b"s, true);
    EXPECT_EQ(argument.name, "in");
    EXPECT_EQ(argument.description, "a\0b"s);
    EXPECT_TRUE(argument.repeated);
}

TEST(Option, MayBeEmpty) {
    EXPECT_EQ(std::to_string(Kelp::Option({}, {}, {}, false)), ", :\t");
    EXPECT_EQ(std::to_string(Kelp::Option("-a", nullptr, "b", false)), "-a, :\tb");
    const Kelp::Argument argument({}, {}, false);
    EXPECT_EQ(argument.name, "");
    EXPECT_EQ(argument.description, "");
}

TEST(Option, IsCopiedWithItsMarker) {
    Kelp::Option original("-n", "--number", "count", true);
    const Kelp::Option copy = original;
    original = Kelp::Option("", "", "", false);
    EXPECT_EQ(copy.shortFlag, "-n");
    EXPECT_EQ(copy.longFlag, "--number");
    EXPECT_EQ(copy.description, "count");
    EXPECT_TRUE(copy.marker);
    EXPECT_EQ(original.shortFlag, "");
    EXPECT_FALSE(original.marker);
}

TEST(Argument, StoresItsThreeValuesInOrder) {
    for (const bool repeated : {false, true}) {
        const Kelp::Argument argument("file", "what to read", repeated);
        const Kelp::Argument copy = argument;
        EXPECT_EQ(copy.name, "file");
        EXPECT_EQ(copy.description, "what to read");
        EXPECT_EQ(copy.repeated, repeated);
    }
}

// Copies and moves.

/// Too long for the buffer inside a string object.
const std::string longText(50, 'x');

std::vector<std::string> textsOf(const Kelp::Option& option) {
    return {option.shortFlag, option.longFlag, option.description, option.marker ? "marked" : "not marked"};
}

std::vector<std::string> textsOf(const Kelp::Argument& argument) {
    return {argument.name, argument.description, argument.repeated ? "repeated" : "once"};
}

/// Copies and moves every record over every record, itself included.
template <class Record>
void expectCopies(const std::vector<std::pair<Record, std::vector<std::string>>>& cases) {
    for (const auto& [from, expected] : cases) {
        for (const auto& [to, replaced] : cases) {
            SCOPED_TRACE(::testing::PrintToString(expected) + " over " + ::testing::PrintToString(replaced));
            Record copied = to;
            copied = from;
            EXPECT_EQ(textsOf(copied), expected);
            EXPECT_EQ(textsOf(from), expected);
            Record moved = to;
            moved = std::move(copied);
            EXPECT_EQ(textsOf(moved), expected);
            const Record& same = moved;
            moved = same;
            EXPECT_EQ(textsOf(moved), expected);
            const Record constructed = std::move(moved);
            EXPECT_EQ(textsOf(constructed), expected);
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

// Printing.

template <class Record>
std::string printed(const Record& record, std::size_t width, std::size_t lineWidth) {
    const CapturedOutput output;
    record.printIndented(width, lineWidth);
    return output.text();
}

struct OptionCase {
    Kelp::Option option;
    std::string block;
    std::string text;
};

const std::vector<OptionCase>& optionCases() {
    static const std::vector<OptionCase> cases{
        {{"-o", "--output", "output file", false},
         "  \x1B[34m-o, --output:\x1B[0m output file\n\n",
         "-o, --output:\toutput file"},
        {{"-n", "--number", "count", true}, "  \x1B[34m-n, --number:\x1B[0m count\n\n", "-n, --number:\tcount"},
        {{"", "", "", false}, "  \x1B[34m, :\x1B[0m \n\n", ", :\t"},
        {{"", "--only", "", true}, "  \x1B[34m, --only:\x1B[0m \n\n", ", --only:\t"},
        {{"-a", "", "b", false}, "  \x1B[34m-a, :\x1B[0m b\n\n", "-a, :\tb"},
        {{"-x", "--x", "two\nlines\tand %s", false},
         "  \x1B[34m-x, --x:\x1B[0m two\nlines\tand %s\n\n",
         "-x, --x:\ttwo\nlines\tand %s"},
        {{"-\0"s, "--\0"s, "a\0b"s, false}, "  \x1B[34m-\0, --\0:\x1B[0m a\0b\n\n"s, "-\0, --\0:\ta\0b"s},
        {{"-l", "--long", std::string(500, 'w'), false},
         "  \x1B[34m-l, --long:\x1B[0m " + std::string(500, 'w') + "\n\n",
         "-l, --long:\t" + std::string(500, 'w')},
    };
    return cases;
}

TEST(Option, PrintsItsBlockForAllWidths) {
    constexpr std::size_t huge = std::numeric_limits<std::size_t>::max();
    for (const OptionCase& each : optionCases()) {
        SCOPED_TRACE(shown(each.text));
        EXPECT_EQ(printed(each.option, 12, 79), each.block);
        EXPECT_EQ(printed(each.option, 0, 0), each.block);
        EXPECT_EQ(printed(each.option, 100, 5), each.block);
        EXPECT_EQ(printed(each.option, huge, huge), each.block);
    }
}

TEST(Option, HasAOneLineText) {
    for (const OptionCase& each : optionCases()) {
        EXPECT_EQ(std::to_string(each.option), each.text);
    }
}

TEST(Option, IgnoresTheGlobalLocale) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    const Kelp::Option option("-1", "--1000000", "1.5 or 1,5", true);
    EXPECT_EQ(std::to_string(option), "-1, --1000000:\t1.5 or 1,5");
    EXPECT_EQ(printed(option, 1000000, 1000000), "  \x1B[34m-1, --1000000:\x1B[0m 1.5 or 1,5\n\n");
}

TEST(Argument, PrintsItsBlockForAllWidths) {
    struct Case {
        Kelp::Argument argument;
        std::string block;
    };
    const Case cases[] = {
        {{"file", "what to read", false}, "  \x1B[34mfile:\x1B[0m what to read\n\n"},
        {{"file", "what to read", true}, "  \x1B[34mfile:\x1B[0m what to read\n\n"},
        {{"", "", false}, "  \x1B[34m:\x1B[0m \n\n"},
        {{"", "", true}, "  \x1B[34m:\x1B[0m \n\n"},
        {{"a b", std::string(500, 'w'), false}, "  \x1B[34ma b:\x1B[0m " + std::string(500, 'w') + "\n\n"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(shown(each.block));
        EXPECT_EQ(printed(each.argument, 12, 79), each.block);
        EXPECT_EQ(printed(each.argument, 0, 0), each.block);
        EXPECT_EQ(printed(each.argument, 100, 5), each.block);
    }
}

/// Replaces the buffer of std::cout. Counts flushes, and accepts no characters if refusesCharacters.
class ObservedBuffer : public std::stringbuf {
public:
    explicit ObservedBuffer(bool refusesCharacters) : refuses(refusesCharacters), original(std::cout.rdbuf(this)) {}

    ~ObservedBuffer() override {
        std::cout.rdbuf(original);
        std::cout.clear();
    }

    ObservedBuffer(const ObservedBuffer&) = delete;
    ObservedBuffer& operator=(const ObservedBuffer&) = delete;

    int flushes = 0;

protected:
    int sync() override {
        ++flushes;
        return 0;
    }
    int_type overflow(int_type character) override {
        return refuses ? traits_type::eof() : std::stringbuf::overflow(character);
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        return refuses ? 0 : std::stringbuf::xsputn(text, count);
    }

private:
    bool refuses;
    std::streambuf* original;
};

TEST(OptionAndArgument, DoNotFlush) {
    const ObservedBuffer output(false);
    Kelp::Option("-o", "--output", "output file", false).printIndented(12, 79);
    Kelp::Argument("file", "what to read", false).printIndented(12, 79);
    EXPECT_EQ(output.flushes, 0);
    EXPECT_EQ(output.str(), "  \x1B[34m-o, --output:\x1B[0m output file\n\n  \x1B[34mfile:\x1B[0m what to read\n\n");
}

TEST(OptionAndArgument, IgnoreOutputErrors) {
    const ObservedBuffer output(true);
    EXPECT_NO_THROW(Kelp::Option("-o", "--output", "output file", false).printIndented(12, 79));
    EXPECT_NO_THROW(Kelp::Argument("file", "what to read", false).printIndented(12, 79));
    EXPECT_TRUE(std::cout.bad());
}

// The order of ci_less.

constexpr ci_less before{};

TEST(OptionOrder, FoldsCaseAndNothingElse) {
    const std::pair<std::string, std::string> smallerFirst[] = {
        {"", "-a"},         {"", "\0"s},      {"", "\x01"},
        {"-a", "-ab"},      {"-A", "-ab"},    {"-a", "-AB"},
        {"-B", "-c"},       {"-b", "-C"},     {"-A", "-b"},
        {"-b", "-z"},       {"-A", "-z"},     {"-", "--"},
        {"a", "a\0"s},      {"\0a"s, "\0b"s}, {"a\0B"s, "A\0c"s},
        {"@", "A"},         {"[", "Z"},       {"Z", "{"},
        {"[", "a"},         {"[", "A"},       {"_", "a"},
        {"_", "A"},         {"\x7F", "\x80"}, {"z", "\x80"},
        {"\x80", "\xFF"},   {"\xC4", "\xE4"}, {"\xC3\x84", "\xC3\xA4"},
        {"a\xC4", "A\xE4"}, {"9", "A"},
    };
    for (const auto& [smaller, larger] : smallerFirst) {
        EXPECT_TRUE(before(smaller, larger)) << shown(smaller) << shown(larger);
        EXPECT_FALSE(before(larger, smaller)) << shown(smaller) << shown(larger);
    }
    const std::pair<std::string, std::string> equivalent[] = {
        {"", ""},
        {"-a", "-A"},
        {"--OutPut", "--oUTpUT"},
        {"abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
        {"a\0B"s, "A\0b"s},
        {"\xC4\xFFx", "\xC4\xFFX"},
    };
    for (const auto& [one, other] : equivalent) {
        EXPECT_FALSE(before(one, other)) << shown(one) << shown(other);
        EXPECT_FALSE(before(other, one)) << shown(one) << shown(other);
    }
}

/// The rank of a letter of the alphabet that shortTexts uses.
int rank(char letter) {
    switch (letter) {
        case '\0':
            return 0;
        case '-':
            return 1;
        case 'a':
        case 'A':
            return 2;
        case 'b':
            return 3;
        default:
            return 4;
    }
}

std::vector<int> ranks(const std::string& text) {
    std::vector<int> result;
    for (const char letter : text) {
        result.push_back(rank(letter));
    }
    return result;
}

std::vector<std::string> shortTexts() {
    std::vector<std::string> texts;
    forEachText("\0-aAb\xC4"sv, 3, [&texts](const std::string& text) { texts.push_back(text); });
    return texts;
}

TEST(OptionOrder, OrdersEveryTwoShortTextsByTheirFoldedLetters) {
    const std::vector<std::string> texts = shortTexts();
    for (const std::string& one : texts) {
        for (const std::string& other : texts) {
            ASSERT_EQ(before(one, other), ranks(one) < ranks(other)) << shown(one) << shown(other);
        }
    }
}

// The order that std::map and std::set need, for every three texts.
TEST(OptionOrder, IsAStrictWeakOrder) {
    const std::vector<std::string> texts = shortTexts();
    const std::size_t count = texts.size();
    std::vector<std::vector<bool>> less(count, std::vector<bool>(count));
    for (std::size_t a = 0; a < count; ++a) {
        for (std::size_t b = 0; b < count; ++b) {
            less[a][b] = before(texts[a], texts[b]);
        }
    }
    for (std::size_t a = 0; a < count; ++a) {
        ASSERT_FALSE(less[a][a]) << shown(texts[a]);
        for (std::size_t b = 0; b < count; ++b) {
            ASSERT_FALSE(less[a][b] && less[b][a]) << shown(texts[a]) << shown(texts[b]);
            for (std::size_t c = 0; c < count; ++c) {
                // If a is less than b, any third text is greater than a or less than b.
                ASSERT_TRUE(!less[a][b] || less[a][c] || less[c][b])
                    << shown(texts[a]) << shown(texts[b]) << shown(texts[c]);
            }
        }
    }
}

TEST(OptionOrder, OrdersAMapOfOptions) {
    std::map<std::string, Kelp::Option, ci_less> options;
    for (const char* const flag : {"-z", "-A", "-b", "", "-Z", "-a"}) {
        options.emplace(flag, Kelp::Option(flag, "", std::string("first ") + flag, false));
    }
    std::vector<std::string> keys;
    std::vector<std::string> descriptions;
    for (const auto& [key, option] : options) {
        keys.push_back(key);
        descriptions.push_back(option.description);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"", "-A", "-b", "-z"}));
    EXPECT_EQ(descriptions, (std::vector<std::string>{"first ", "first -A", "first -b", "first -z"}));
    EXPECT_EQ(options.count("-B"), 1U);
    EXPECT_EQ(options.find("-Z")->first, "-z");
    EXPECT_EQ(options.find("-c"), options.end());
}

TEST(OptionOrder, OrdersASet) {
    const std::set<std::string, ci_less> names{"beta", "Alpha", "ALPHA", "gamma", "Beta2", "BETA"};
    EXPECT_EQ(std::vector<std::string>(names.begin(), names.end()),
              (std::vector<std::string>{"Alpha", "beta", "Beta2", "gamma"}));
}

TEST(OptionOrder, FollowsTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    EXPECT_FALSE(before("-\xC4", "-\xE4"));
    EXPECT_FALSE(before("-\xE4", "-\xC4"));
    EXPECT_TRUE(before("-\xC4", "-\xE5"));
}

}  // namespace
