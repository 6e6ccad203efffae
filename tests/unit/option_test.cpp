#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <iostream>
#include <limits>
#include <sstream>
#include <type_traits>

#include "captured_output.h"
#include "locale_facets.h"
#include "scoped_locale.h"

namespace {

using namespace std::string_literals;

static_assert(!std::is_polymorphic_v<Kelp::Option> && !std::is_polymorphic_v<Kelp::Argument>);

template <class Record>
std::string printed(const Record& record, std::size_t width, std::size_t lineWidth) {
    const CapturedOutput output;
    record.printIndented(width, lineWidth);
    return output.text();
}

TEST(Option, StoresItsFourValuesInOrder) {
    for (const bool marker : {false, true}) {
        const Kelp::Option option("-n", "--number", "count", marker);
        EXPECT_EQ(option.shortFlag, "-n");
        EXPECT_EQ(option.longFlag, "--number");
        EXPECT_EQ(option.description, "count");
        EXPECT_EQ(option.marker, marker);
    }
}

TEST(Option, TakesStringsAsItTakesLiterals) {
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

TEST(Option, OfNothingIsEmpty) {
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

TEST(Option, PrintsItsBlockWhateverTheWidths) {
    constexpr std::size_t huge = std::numeric_limits<std::size_t>::max();
    for (const OptionCase& each : optionCases()) {
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

TEST(Option, IsWrittenAlikeUnderEveryLocale) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    const Kelp::Option option("-1", "--1000000", "1.5 or 1,5", true);
    EXPECT_EQ(std::to_string(option), "-1, --1000000:\t1.5 or 1,5");
    EXPECT_EQ(printed(option, 1000000, 1000000), "  \x1B[34m-1, --1000000:\x1B[0m 1.5 or 1,5\n\n");
}

TEST(Argument, PrintsItsBlockWhateverTheWidths) {
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
        EXPECT_EQ(printed(each.argument, 12, 79), each.block);
        EXPECT_EQ(printed(each.argument, 0, 0), each.block);
        EXPECT_EQ(printed(each.argument, 100, 5), each.block);
    }
}

/// Counts flushes, and accepts no characters when told so.
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

}  // namespace
