#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <climits>
#include <stdexcept>

#include "arguments.h"

namespace {

using Strings = std::vector<std::string>;

Kelp::OptionReader readerOf(const Strings& tokens) {
    Arguments line(tokens);
    return {line.argc(), line.argv()};
}

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
        Kelp::OptionReader reader = readerOf({"tool", c.token});
        std::string value = "before";
        EXPECT_EQ(reader.getValue(c.shortFlag, c.longFlag, value, 1), c.next) << c.token;
        EXPECT_EQ(value, c.value) << c.token;
        value = "before";
        EXPECT_EQ(reader.getValue(std::string(c.shortFlag), std::string(c.longFlag), value, 1), c.next) << c.token;
        EXPECT_EQ(value, c.value) << c.token;
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

TEST(OptionReader, LooksForValuesAtTheProgramPathToo) {
    Kelp::OptionReader reader = readerOf({"-i=a"});
    std::string value;
    EXPECT_EQ(reader.getValue("-i", "", value, 0), 1);
    EXPECT_EQ(value, "a");
}

TEST(OptionReader, ConvertsValuesByTheTypeOfTheTarget) {
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

    EXPECT_EQ(reader.getValue("-e", "", number, 0), 7) << "a flag without a value keeps the number";
    EXPECT_EQ(number, 12);
}

}  // namespace
