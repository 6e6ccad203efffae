#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <climits>
#include <cstdio>
#include <fstream>

#include "arguments.h"
#include "captured_output.h"

namespace {

using Strings = std::vector<std::string>;

Kelp::OptionReader readerOf(const Strings& tokens) {
    Arguments line(tokens);
    return {line.argc(), line.argv()};
}

struct CheckedFile {
    bool accepted;
    std::string file;
    std::string output;
};

CheckedFile checkFiles(const Strings& tokens, int start = 0) {
    Kelp::OptionReader reader = readerOf(tokens);
    const CapturedOutput output;
    std::string file = "before";
    const bool accepted = reader.checkFiles(file, start);
    return {accepted, file, output.text()};
}

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
        const Kelp::OptionReader reader = readerOf(c.tokens);
        std::string argument = "before";
        EXPECT_EQ(reader.getFirstArgument(argument, c.start), c.position) << c.argument << " from " << c.start;
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

TEST(OptionReaderArguments, ToldThatTheFileIsMissing) {
    for (const Strings& tokens : {Strings{"tool"}, Strings{"tool", "-h"}, Strings{}}) {
        const CheckedFile checked = checkFiles(tokens);
        EXPECT_FALSE(checked.accepted);
        EXPECT_EQ(checked.file, "before");
        EXPECT_EQ(checked.output, "\n\033[31mFile missing, please insert the name of the file.\033[0m\n\n");
    }
    EXPECT_EQ(checkFiles({"tool", "."}, 2).output,
              "\n\033[31mFile missing, please insert the name of the file.\033[0m\n\n");
}

TEST(OptionReaderArguments, ToldThatTheFileDoesNotExist) {
    const struct {
        const char* argument;
        const char* output;
    } cases[] = {
        {"no such file", "File no such file doesn't exist. Please insert a valid file name.\n"},
        {"", "File  doesn't exist. Please insert a valid file name.\n"},
        {".no such file", "File .no such file doesn't exist. Please insert a valid file name.\n"},
        {"no such file.", "File no such file. doesn't exist. Please insert a valid file name.\n"},
        {"no/such/..", "File no/such/.. doesn't exist. Please insert a valid file name.\n"},
        {"no such ?", "File no such ? doesn't exist. Please insert a valid file name.\n"},
    };
    for (const auto& c : cases) {
        const CheckedFile checked = checkFiles({"tool", "-x", c.argument, "."});
        EXPECT_FALSE(checked.accepted) << c.argument;
        EXPECT_EQ(checked.file, c.argument);
        EXPECT_EQ(checked.output, c.output);
    }
}

TEST(OptionReaderArguments, AcceptsTheDirectoryAndPatternsUnopened) {
    for (const char* argument : {".", "*", "*.txt", "no/such/folder/*", "a*b"}) {
        const CheckedFile checked = checkFiles({"tool", argument});
        EXPECT_TRUE(checked.accepted) << argument;
        EXPECT_EQ(checked.file, argument);
        EXPECT_EQ(checked.output, "") << argument;
    }
}

TEST(OptionReaderArguments, RefusesOtherNamesOfOneCharacterThatAreNotThere) {
    EXPECT_FALSE(checkFiles({"tool", "x"}).accepted);
    EXPECT_FALSE(checkFiles({"tool", "/x"}).accepted);
}

TEST(OptionReaderArguments, AcceptsAFileThatCanBeOpened) {
    const std::string name = "option_reader_arguments_test.tmp";
    std::ofstream(name) << "x";
    const CheckedFile checked = checkFiles({"no such tool", "-v", name, "no such file"});
    const CheckedFile later = checkFiles({"tool", "no such file", name}, 2);
    std::remove(name.c_str());
    EXPECT_TRUE(checked.accepted);
    EXPECT_EQ(checked.file, name);
    EXPECT_EQ(checked.output, "");
    EXPECT_TRUE(later.accepted);
}

}  // namespace
