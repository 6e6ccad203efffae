#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "arguments.h"
#include "captured_output.h"
#include "option_reader_model.h"

namespace {

namespace model = option_reader_model;
using model::Found;
using model::Names;
using model::Strings;

Kelp::OptionReader readerOf(const Strings& tokens) {
    Arguments line(tokens);
    return {line.argc(), line.argv()};
}

// Construction, tokens and verbose mode.

TEST(OptionReader, CopiesEveryToken) {
    Strings tokens{"left over"};
    {
        Arguments line{"C:\\x\\tool.exe", "-v", "", "in.txt"};
        Kelp::OptionReader reader(line.argc(), line.argv());
        line.argv()[3][0] = 'X';
        reader.getOptions(tokens);
        EXPECT_EQ(reader.getNameTool(), "C:\\x\\tool.exe");
    }
    EXPECT_EQ(tokens, (Strings{"C:\\x\\tool.exe", "-v", "", "in.txt"}));
}

TEST(OptionReader, CopiesTokensWhereverTheyLie) {
    char block[] = "tool\0-v\0\0in.txt\0-o=x";
    char elsewhere[] = "elsewhere";
    char* const adjacent[] = {block, block + 5, block + 8, block + 9, block + 16};
    const Strings expected{"tool", "-v", "", "in.txt", "-o=x"};
    // Each token in turn lies elsewhere, then none.
    for (std::size_t odd = 0; odd <= 5; ++odd) {
        char* argv[5];
        std::copy(std::begin(adjacent), std::end(adjacent), argv);
        Strings tokens = expected;
        if (odd < 5) {
            argv[odd] = elsewhere;
            tokens[odd] = "elsewhere";
        }
        Strings copies;
        Kelp::OptionReader(5, argv).getOptions(copies);
        EXPECT_EQ(copies, tokens) << odd;
    }
    char* swapped[] = {block, block + 8, block + 5};
    Strings copies;
    Kelp::OptionReader(3, swapped).getOptions(copies);
    EXPECT_EQ(copies, (Strings{"tool", "", "-v"}));
}

TEST(OptionReader, ReadsNothingFromAnEmptyCommandLine) {
    for (const int argc : {0, -1, INT_MIN}) {
        Kelp::OptionReader reader(argc, nullptr);
        Strings tokens{"left over"};
        reader.getOptions(tokens);
        EXPECT_TRUE(tokens.empty()) << argc;
        EXPECT_EQ(reader.getNameTool(), "") << argc;
        EXPECT_EQ(reader.hasOption("-v", "--verbose", 0), 0) << argc;
    }
}

TEST(OptionReader, RefusesNullElements) {
    char tool[] = "tool";
    char* nullAtEnd[] = {tool, nullptr};
    const auto message = [](int argc, char** argv) -> std::string {
        try {
            const Kelp::OptionReader reader(argc, argv);
        } catch (const std::logic_error& error) {
            return error.what();
        }
        return "accepted";
    };
    EXPECT_EQ(message(2, nullAtEnd), "basic_string: construction from null is not valid");
    EXPECT_EQ(message(1, nullptr), "basic_string: construction from null is not valid");
    EXPECT_EQ(message(1, nullAtEnd), "accepted");
}

TEST(OptionReader, StartsQuiet) {
    Kelp::OptionReader reader = readerOf({"tool", "-v", "--verbose"});
    EXPECT_FALSE(reader.getVerbose());
    reader.setVerbose(true);
    EXPECT_TRUE(reader.getVerbose());
    Kelp::OptionReader copy(reader);
    const Kelp::OptionReader moved(std::move(copy));
    EXPECT_TRUE(moved.getVerbose());
    EXPECT_EQ(moved.hasOption("-v", "", 0), 1);
    reader.setVerbose(false);
    EXPECT_FALSE(reader.getVerbose());
}

// hasOption.

TEST(OptionReader, FindsOptionsByTheirWholeToken) {
    const Kelp::OptionReader reader = readerOf({"-x", "-O", "in.txt", "--Out", "-o=5", "-o"});
    const struct {
        const char* shortFlag;
        const char* longFlag;
        int start;
        int position;
    } cases[] = {
        {"-o", "--out", 0, 1}, {"-o", "--out", 1, 1},       {"-o", "--out", 2, 3},    {"-o", "--out", 4, 5},
        {"-o", "--out", 5, 5}, {"-o", "--out", 6, 0},       {"--out", "-o", 2, 3},    {"-x", "--x", 0, 0},
        {"-x", "--x", 1, 0},   {"-o=5", "-o=", 0, 4},       {"-o=", "-o=6", 0, 0},    {"IN.TXT", "", 0, 2},
        {"", "", 0, 0},        {"-o", "--out", -1, 0},      {"--ou", "--outp", 0, 0}, {"-o", "--out", INT_MIN, 0},
        {"", "-O", 0, 1},      {"-o", "--out", INT_MAX, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(reader.hasOption(c.shortFlag, c.longFlag, c.start), c.position)
            << c.shortFlag << " " << c.longFlag << " from " << c.start;
        EXPECT_EQ(reader.hasOption(Kelp::Option(c.shortFlag, c.longFlag, "", true), c.start), c.position)
            << c.shortFlag << " " << c.longFlag << " from " << c.start;
    }
}

TEST(OptionReader, AMatchAtTheProgramPathHidesLaterOnes) {
    const Kelp::OptionReader reader = readerOf({"-v", "-v"});
    EXPECT_EQ(reader.hasOption("-v", "--verbose", 0), 0);
    EXPECT_EQ(reader.hasOption("-v", "--verbose", 1), 1);
}

// getValue.

TEST(OptionReader, ReadsNamesUpToTheirFirstNul) {
    Kelp::OptionReader reader = readerOf({"tool", "-o=5"});
    std::string value;
    EXPECT_EQ(reader.getValue(std::string("-o\0x", 4), "", value, 1), 2);
    EXPECT_EQ(reader.getValue(std::string("\0-o", 3), "", value, 1), 0);
    EXPECT_EQ(reader.getValue({}, "-o", value, 1), 2);
    EXPECT_EQ(reader.getValue(nullptr, nullptr, value, 1), 0);
}

TEST(OptionReader, ReadsTheValueAfterTheFirstEqualsSign) {
    const struct {
        const char* token;
        const char* shortFlag;
        const char* longFlag;
        int next;
        const char* value;
    } cases[] = {
        {"-o=5", "-o", "--out", 2, "5"},
        {"-O=5", "-o", "--out", 2, "5"},
        {"--out=a.txt", "-o", "--out", 2, "a.txt"},
        {"--out=a.txt", "-x", "--out", 0, "before"},
        {"-o", "-o", "--out", 2, ""},
        {"-o=", "-o", "--out", 2, ""},
        {"-o=a=b", "-o", "--out", 2, "a=b"},
        {"-o= a ", "-o", "--out", 2, " a "},
        {"-nfoo", "-n", "", 2, ""},
        {"-nfoo=1", "-N", "", 2, "1"},
        {"--n", "-n", "", 2, ""},
        {"--nothing=x", "-n", "", 2, "x"},
        {"--=x", "-=", "", 2, "x"},
        {"--", "-", "", 2, ""},
        {"-", "-", "", 2, ""},
        {"--", "--", "", 0, "before"},
        {"---a=1", "--", "", 2, "1"},
        {"-o=5", "", "-O", 2, "5"},
        {"-o=5", "o", "--o", 0, "before"},
        {"o=5", "o=", "o", 0, "before"},
        {"", "", "", 0, "before"},
        {"-=", "-=", "", 2, ""},
        {"-=x", "-=", "", 2, "x"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.token) + " for " + c.shortFlag + " " + c.longFlag);
        Kelp::OptionReader reader = readerOf({"tool", c.token});
        std::string value = "before";
        EXPECT_EQ(reader.getValue(c.shortFlag, c.longFlag, value, 1), c.next);
        EXPECT_EQ(value, c.value);
        value = "before";
        EXPECT_EQ(reader.getValue(std::string(c.shortFlag), std::string(c.longFlag), value, 1), c.next);
        EXPECT_EQ(value, c.value);
    }
}

TEST(OptionReader, CollectsRepeatedValuesFromTheReturnedPosition) {
    Kelp::OptionReader reader = readerOf({"tool", "-i=a", "x", "--Input=b", "-i"});
    Strings values;
    std::string value;
    Strings positions;
    for (int next = reader.getValue("-i", "--input", value, 0); next != 0;
         next = reader.getValue("-i", "--input", value, next)) {
        values.push_back(value);
        positions.push_back(std::to_string(next));
    }
    EXPECT_EQ(values, (Strings{"a", "b", ""}));
    EXPECT_EQ(positions, (Strings{"2", "4", "5"}));
    EXPECT_EQ(reader.getValue("-i", "--input", value, -1), 0);
    EXPECT_EQ(reader.getValue("-i", "--input", value, 5), 0);
}

TEST(OptionReader, ReadsATextIntoTheMemoryOfItsTarget) {
    Kelp::OptionReader reader = readerOf({"tool", "-n=a text of some length", "-n"});
    std::string value(100, 'x');
    const char* const memory = value.data();
    EXPECT_EQ(reader.getValue("-n", "--number", value, 1), 2);
    EXPECT_EQ(value, "a text of some length");
    EXPECT_EQ(reader.getValue("-n", "--number", value, 2), 3);
    EXPECT_EQ(value, "");
    EXPECT_EQ(value.data(), memory);
}

TEST(OptionReader, SearchesTheProgramPathForValuesToo) {
    Kelp::OptionReader reader = readerOf({"-i=a"});
    std::string value;
    EXPECT_EQ(reader.getValue("-i", "", value, 0), 1);
    EXPECT_EQ(value, "a");
}

TEST(OptionReader, ConvertsValuesToTheTypeOfTheTarget) {
    Kelp::OptionReader reader =
        readerOf({"tool", "-n=12abc", "-r=2.5", "-f=no", "-c=xyz", "-s=depth:3", "-e", "-p=a/b"});
    int number = 0;
    double ratio = 0;
    bool flag = false;
    char letter = 0;
    Kelp::StringDouble pair;
    std::filesystem::path path;
    EXPECT_EQ(reader.getValue("-n", "", number, 0), 2);
    EXPECT_EQ(reader.getValue("-r", "", ratio, 0), 3);
    EXPECT_EQ(reader.getValue("-f", "", flag, 0), 4);
    EXPECT_EQ(reader.getValue("-c", "", letter, 0), 5);
    EXPECT_EQ(reader.getValue("-s", "", pair, 0), 6);
    EXPECT_EQ(reader.getValue("-p", "", path, 0), 8);
    EXPECT_EQ(number, 12);
    EXPECT_EQ(ratio, 2.5);
    EXPECT_TRUE(flag);
    EXPECT_EQ(letter, 'x');
    EXPECT_EQ(pair.label, "depth");
    EXPECT_EQ(pair.value, 3.0);
    EXPECT_EQ(path, std::filesystem::path("a/b"));

    EXPECT_EQ(reader.getValue("-e", "", number, 0), 7) << "a flag without a value leaves the number unchanged";
    EXPECT_EQ(number, 12);
}

/// A tool's own type whose conversion refuses every text.
struct Refusing {};
struct Refused {
    std::string text;
};

[[noreturn]] void stringToValue(Refusing& /*target*/, const std::string& text) {
    throw Refused{text};
}

TEST(OptionReaderExceptions, OfAConversionReachTheCaller) {
    Kelp::OptionReader reader = readerOf({"tool", "-n=5"});
    Refusing value;
    try {
        reader.getValue("-n", "--number", value, 1);
        FAIL() << "nothing was thrown";
    } catch (const Refused& refused) {
        EXPECT_EQ(refused.text, "5");
    }
    EXPECT_EQ(reader.getValue("-x", "--other", value, 1), 0) << "nothing is converted";
}

// Positional arguments.

TEST(OptionReaderArguments, FindsTheFirstPositionalArgument) {
    const struct {
        Strings tokens;
        int start;
        int position;
        const char* argument;
    } cases[] = {
        {{"tool", "-v", "in.txt"}, 0, 2, "in.txt"},
        {{"tool", "-v", "in.txt"}, 1, 2, "in.txt"},
        {{"tool", "-v", "in.txt"}, 2, 2, "in.txt"},
        {{"tool", "-v", "in.txt"}, 3, 0, "before"},
        {{"tool", "-v", "in.txt"}, -1, 0, "before"},
        {{"tool", "-v", "in.txt"}, INT_MIN, 0, "before"},
        {{"tool", "-v", "in.txt"}, INT_MAX, 0, "before"},
        {{"tool"}, 0, 0, "before"},
        {{"tool", "-5"}, 0, 0, "before"},
        {{"tool", "--", "-"}, 0, 0, "before"},
        {{"tool", "-o", "a.txt"}, 0, 2, "a.txt"},
        {{"tool", "-x", "", "a"}, 0, 2, ""},
        {{"tool", "/?"}, 0, 1, "/?"},
        {{}, 0, 0, "before"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.tokens));
        const Kelp::OptionReader reader = readerOf(c.tokens);
        std::string argument = "before";
        EXPECT_EQ(reader.getFirstArgument(argument, c.start), c.position) << "from " << c.start;
        EXPECT_EQ(argument, c.argument) << "from " << c.start;
    }
}

TEST(OptionReaderArguments, AppendsEveryPositionalArgument) {
    const Kelp::OptionReader reader = readerOf({"tool", "-o", "a.txt", "", "--x", "b", "-5"});
    Strings arguments{"kept"};
    EXPECT_TRUE(reader.getArguments(arguments, 0));
    EXPECT_EQ(arguments, (Strings{"kept", "a.txt", "", "b"}));
    EXPECT_TRUE(reader.getArguments(arguments, 5));
    EXPECT_EQ(arguments, (Strings{"kept", "a.txt", "", "b", "b"}));
    for (const int start : {6, 7, INT_MAX, -1, INT_MIN}) {
        EXPECT_FALSE(reader.getArguments(arguments, start)) << start;
        EXPECT_EQ(arguments.size(), 5U) << start;
    }
    EXPECT_FALSE(readerOf({"tool"}).getArguments(arguments, 0));
    EXPECT_FALSE(readerOf({"tool", "-5"}).getArguments(arguments, 0));
    EXPECT_FALSE(readerOf({}).getArguments(arguments, 0));
    EXPECT_EQ(arguments.size(), 5U);
}

// checkFiles.

struct CheckedFile {
    bool accepted;
    std::string file;
    std::string output;
};

CheckedFile checkFiles(const Strings& tokens, int start) {
    Kelp::OptionReader reader = readerOf(tokens);
    const CapturedOutput output;
    std::string file = "before";
    const bool accepted = reader.checkFiles(file, start);
    return {accepted, file, output.text()};
}

TEST(OptionReaderArguments, ReportsAMissingFileArgument) {
    const std::pair<Strings, int> cases[] = {{{"tool"}, 0}, {{"tool", "-h"}, 0}, {{}, 0}, {{"tool", "."}, 2}};
    for (const auto& [tokens, start] : cases) {
        SCOPED_TRACE(::testing::PrintToString(tokens));
        const CheckedFile checked = checkFiles(tokens, start);
        EXPECT_FALSE(checked.accepted);
        EXPECT_EQ(checked.file, "before");
        EXPECT_EQ(checked.output, "\n\033[31mFile missing, please insert the name of the file.\033[0m\n\n");
    }
}

TEST(OptionReaderArguments, ChecksThatTheFileExists) {
    const struct {
        const char* argument;
        bool accepted;
        const char* output;
    } cases[] = {
        {"no such file", false, "File no such file doesn't exist. Please insert a valid file name.\n"},
        {"", false, "File  doesn't exist. Please insert a valid file name.\n"},
        {".no such file", false, "File .no such file doesn't exist. Please insert a valid file name.\n"},
        {"no such file.", false, "File no such file. doesn't exist. Please insert a valid file name.\n"},
        {"no/such/..", false, "File no/such/.. doesn't exist. Please insert a valid file name.\n"},
        {"no such ?", false, "File no such ? doesn't exist. Please insert a valid file name.\n"},
        {"x", false, "File x doesn't exist. Please insert a valid file name.\n"},
        {"/x", false, "File /x doesn't exist. Please insert a valid file name.\n"},
        // The current directory and patterns are not opened.
        {".", true, ""},
        {"*", true, ""},
        {"*.txt", true, ""},
        {"no/such/folder/*", true, ""},
        {"a*b", true, ""},
    };
    for (const auto& c : cases) {
        for (const Strings& tokens : {Strings{"tool", c.argument}, Strings{"tool", "-x", c.argument, "."}}) {
            SCOPED_TRACE(::testing::PrintToString(tokens));
            const CheckedFile checked = checkFiles(tokens, 0);
            EXPECT_EQ(checked.accepted, c.accepted);
            EXPECT_EQ(checked.file, c.argument);
            EXPECT_EQ(checked.output, c.output);
        }
    }
}

TEST(OptionReaderArguments, AcceptsAFileThatCanBeOpened) {
    const std::string name = "option_reader_test.tmp";
    std::ofstream(name) << "x";
    const CheckedFile checked = checkFiles({"no such tool", "-v", name, "no such file"}, 0);
    const CheckedFile later = checkFiles({"tool", "no such file", name}, 2);
    std::remove(name.c_str());
    EXPECT_TRUE(checked.accepted);
    EXPECT_EQ(checked.file, name);
    EXPECT_EQ(checked.output, "");
    EXPECT_TRUE(later.accepted);
}

// Copies and moves.

Strings tokensOf(Kelp::OptionReader reader) {
    Strings tokens;
    reader.getOptions(tokens);
    return tokens;
}

const Strings shortLine = {"tool", "-n=5"};
const Strings longLine = {"tool", "-o=a", "a token of more than a few characters", "", "-v", "in.txt"};

TEST(OptionReaderCopies, HoldTheSameTokens) {
    for (const Strings& tokens : {shortLine, longLine, Strings()}) {
        const Kelp::OptionReader original = readerOf(tokens);
        Kelp::OptionReader copy(original);
        copy.setVerbose(true);
        EXPECT_FALSE(original.getVerbose());
        EXPECT_EQ(tokensOf(copy), tokens);
        EXPECT_EQ(tokensOf(original), tokens);
    }
}

TEST(OptionReaderCopies, ReplaceLongerAndShorterCommandLines) {
    Kelp::OptionReader reader = readerOf(shortLine);
    const Kelp::OptionReader longer = readerOf(longLine);
    reader.setVerbose(true);
    reader = longer;
    EXPECT_EQ(tokensOf(reader), longLine);
    EXPECT_FALSE(reader.getVerbose());
    reader = readerOf(shortLine);
    EXPECT_EQ(tokensOf(reader), shortLine);
    Kelp::OptionReader& same = reader;
    reader = same;
    EXPECT_EQ(tokensOf(reader), shortLine);
    reader = readerOf({});
    EXPECT_EQ(tokensOf(reader), Strings());
}

TEST(OptionReaderCopies, LeaveAMovedFromReaderEmpty) {
    Kelp::OptionReader reader = readerOf(longLine);
    const Kelp::OptionReader taken(std::move(reader));
    EXPECT_EQ(tokensOf(taken), longLine);
    // A moved-from reader has no tokens and answers every query. NOLINTBEGIN(bugprone-use-after-move)
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

// Every command line of up to three tokens of a small vocabulary, compared with a plain model of the reader's rules.

const Strings vocabulary{"",       "-",   "--",    "---", "-o", "-O", "--o", "--out", "--OUT=a", "-o=",
                         "-o=a=b", "-ox", "-ox=1", "-v",  "-5", "a",  "/?",  "=",     "o",       "-="};

const Names namePairs[] = {{"-o", "--out"}, {"--OUT", "-O"}, {"-", "--"}, {"", "a"}, {"-=", "/?"}};

std::string described(const Strings& tokens, int start) {
    std::string text = "from " + std::to_string(start) + ":";
    for (const std::string& token : tokens) {
        text += " [" + token + "]";
    }
    return text;
}

void compareFlags(Kelp::OptionReader& reader, const Strings& tokens, int start) {
    for (const Names& names : namePairs) {
        const Found option{reader.hasOption(names.shortFlag, names.longFlag, start), ""};
        ASSERT_EQ(option, model::option(tokens, names, start))
            << described(tokens, start) << " for " << names.shortFlag;
        Found value{0, "before"};
        value.first = reader.getValue(names.shortFlag, names.longFlag, value.second, start);
        ASSERT_EQ(value, model::value(tokens, names, start)) << described(tokens, start) << " for " << names.shortFlag;
    }
}

void compareArguments(const Kelp::OptionReader& reader, const Strings& tokens, int start) {
    int position = 0;
    const Strings expected = model::arguments(tokens, start, position);
    Strings arguments;
    ASSERT_EQ(reader.getArguments(arguments, start), !expected.empty()) << described(tokens, start);
    ASSERT_EQ(arguments, expected) << described(tokens, start);
    std::string first = "before";
    ASSERT_EQ(reader.getFirstArgument(first, start), position) << described(tokens, start);
    ASSERT_EQ(first, expected.empty() ? "before" : expected.front()) << described(tokens, start);
}

void compareAll(const Strings& tokens) {
    Kelp::OptionReader reader = readerOf(tokens);
    for (const int start : {-1, 0, 1, 2, 3}) {
        ASSERT_NO_FATAL_FAILURE(compareFlags(reader, tokens, start));
        ASSERT_NO_FATAL_FAILURE(compareArguments(reader, tokens, start));
    }
}

TEST(OptionReaderExhaustive, AgreesWithTheRulesOnEveryShortCommandLine) {
    ASSERT_NO_FATAL_FAILURE(compareAll({}));
    for (const std::string& first : vocabulary) {
        ASSERT_NO_FATAL_FAILURE(compareAll({first}));
        for (const std::string& second : vocabulary) {
            ASSERT_NO_FATAL_FAILURE(compareAll({first, second}));
            for (const std::string& third : vocabulary) {
                ASSERT_NO_FATAL_FAILURE(compareAll({first, second, third}));
            }
        }
    }
}

}  // namespace
