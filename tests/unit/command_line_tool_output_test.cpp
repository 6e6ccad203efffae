#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include <stdexcept>

#include "arguments.h"
#include "captured_output.h"
#include "fake_platform.h"

namespace {

using Strings = std::vector<std::string>;
using Files = std::vector<FilePath>;

const Kelp::Option outputOption("-o", "--output", "", false);
const Kelp::Option verboseOption("-v", "--verbose", "", false);

constexpr char notRegistered[] = "ERROR: no argument found: -o\n";

/// A tool that stands in /home/u and accepts -o and -v, or only what it is given.
class Tool {
public:
    explicit Tool(const Strings& tokens, std::vector<Kelp::Option> options = {outputOption, verboseOption})
        : line(tokens), tool(line.argc(), line.argv(), "", options) {}

    CommandLineTool* operator->() {
        return &tool;
    }

private:
    Arguments line;
    CommandLineTool tool;
};

/// Every file as "folder|name".
Strings partsOf(const Files& files) {
    Strings all;
    for (const FilePath& file : files) {
        all.push_back(file.getPath() + "|" + file.getName());
    }
    return all;
}

TEST(CommandLineToolOutput, CollectsTheValuesOfTheOutputOption) {
    const struct {
        Strings tokens;
        Strings files;
    } cases[] = {
        {{"tool"}, {}},
        {{"tool", "in.txt", "-v"}, {}},
        {{"tool", "-o=a.txt"}, {"/home/u/|a.txt"}},
        {{"tool", "-o=a.txt", "-o=b.txt"}, {"/home/u/|a.txt", "/home/u/|b.txt"}},
        {{"tool", "-o=b.txt", "in", "-v", "-O=a.txt", "in"}, {"/home/u/|b.txt", "/home/u/|a.txt"}},
        {{"tool", "-o=same", "-o=same"}, {"/home/u/|same", "/home/u/|same"}},
        // By its first letter alone.
        {{"tool", "--out=c.txt"}, {"/home/u/|c.txt"}},
        {{"tool", "--output=c.txt", "--OOPS=dd", "-off=ee"}, {"/home/u/|c.txt", "/home/u/|dd", "/home/u/|ee"}},
        // The value stands behind the first "=", never in the next token.
        {{"tool", "-o", "a.txt"}, {"/home/u/|"}},
        {{"tool", "-o="}, {"/home/u/|"}},
        {{"tool", "-o=ab", "-o", "-o=cd"}, {"/home/u/|ab", "/home/u/|", "/home/u/|cd"}},
        {{"tool", "-o=a=b"}, {"/home/u/|a=b"}},
        {{"tool", "-o=sub/a.txt", "-o=sub\\b.txt"}, {"/home/u/sub/|a.txt", "/home/u/sub/|b.txt"}},
        {{"tool", "-o=/abs/a.txt", "-o=C:\\b.txt", "-o=C:c"}, {"/abs/|a.txt", "C:\\|b.txt", "|"}},
        // Not the option.
        {{"tool", "o=a.txt", "/o=a.txt", "a-o=b", ""}, {}},
        // The search begins at the program path.
        {{"-o=tool"}, {"/home/u/|tool"}},
        {{"-o=tool", "-o=a.txt"}, {"/home/u/|tool", "/home/u/|a.txt"}},
        {{}, {}},
    };
    for (const auto& c : cases) {
        const std::string name = c.tokens.empty() ? "no tokens" : ::testing::PrintToString(c.tokens);
        Tool tool(c.tokens);
        for (const int start : {0, 1, 5, -1, 2147483647, -2147483647 - 1}) {
            Files files{FilePath("/left/over")};
            const CapturedOutput output;
            EXPECT_EQ(tool->getOutFiles(files, start), static_cast<int>(c.files.size())) << name << " from " << start;
            EXPECT_EQ(partsOf(files), c.files) << name << " from " << start;
            EXPECT_EQ(output.text(), "") << name << " from " << start;
        }
    }
}

TEST(CommandLineToolOutput, HandsOutTheFirstFile) {
    FilePath file("/left/over");
    EXPECT_TRUE(Tool({"tool", "-o=a.txt", "-o=b.txt"})->getOutFile(file));
    EXPECT_EQ(partsOf({file}), Strings{"/home/u/|a.txt"});
    EXPECT_TRUE(Tool({"tool", "-o"})->getOutFile(file));
    EXPECT_EQ(partsOf({file}), Strings{"/home/u/|"});
}

TEST(CommandLineToolOutput, LeavesTheFileAloneWhenThereIsNone) {
    const CapturedOutput output;
    FilePath file("/left/over");
    EXPECT_FALSE(Tool({"tool", "a.txt"})->getOutFile(file));
    EXPECT_EQ(partsOf({file}), Strings{"/left/|over"});
    EXPECT_EQ(output.text(), "");
}

TEST(CommandLineToolOutput, ThrowsForANameOfOneCharacter) {
    Tool tool({"tool", "-o=ab", "-o=/", "-o=x", "-o=cd"});
    Files files{FilePath("/left/over")};
    EXPECT_THROW(tool->getOutFiles(files, 0), std::out_of_range);
    EXPECT_EQ(partsOf(files), (Strings{"/home/u/|ab", "/|"}));
    FilePath file("/left/over");
    EXPECT_THROW(tool->getOutFile(file), std::out_of_range) << "though the first one is fine";
    EXPECT_EQ(partsOf({file}), Strings{"/left/|over"});
}

TEST(CommandLineToolOutput, TellsThatNoSuchOptionIsRegistered) {
    const std::vector<Kelp::Option> others[] = {
        {},
        {verboseOption},
        {Kelp::Option("--output", "-o", "", false), verboseOption},
        {Kelp::Option("o", "output", "", false)},
        {Kelp::Option("-out", "--output", "", false)},
    };
    for (const auto& options : others) {
        Tool without({"tool", "a.txt"}, options);
        for (int call = 0; call < 2; ++call) {
            const CapturedOutput output;
            Files files{FilePath("/left/over")};
            EXPECT_EQ(without->getOutFiles(files, 0), 0) << call;
            EXPECT_TRUE(files.empty()) << call;
            EXPECT_EQ(output.text(), notRegistered) << call;
        }
        const CapturedOutput output;
        FilePath file("/left/over");
        EXPECT_FALSE(without->getOutFile(file));
        EXPECT_EQ(partsOf({file}), Strings{"/left/|over"});
        EXPECT_EQ(output.text(), notRegistered);
    }
}

TEST(CommandLineToolOutput, LooksForBothFormsOfTheRegisteredOption) {
    Files files;
    Tool capital({"tool", "-o=ab", "-O=cd"}, {Kelp::Option("-O", "--Output", "", false)});
    EXPECT_EQ(capital->getOutFiles(files, 0), 2);
    EXPECT_EQ(partsOf(files), (Strings{"/home/u/|ab", "/home/u/|cd"}));

    // A long form of two characters can equal a token's key; any other cannot.
    Tool shortLong({"tool", "-t=ab", "-o=cd", "--target=ef"},
                   {Kelp::Option("-o", "-t", "", false), Kelp::Option("-t", "", "", false)});
    EXPECT_EQ(shortLong->getOutFiles(files, 0), 3);
    EXPECT_EQ(partsOf(files), (Strings{"/home/u/|ab", "/home/u/|cd", "/home/u/|ef"}));
    Tool otherLong({"tool", "--target=ab", "-o=cd"},
                   {Kelp::Option("-o", "--target", "", false), Kelp::Option("-t", "", "", false)});
    EXPECT_EQ(otherLong->getOutFiles(files, 0), 1);
    EXPECT_EQ(partsOf(files), Strings{"/home/u/|cd"});
}

TEST(CommandLineToolOutput, KnowsAnOptionRegisteredLate) {
    Arguments line{"tool", "-v"};
    CommandLineTool tool(line.argc(), line.argv(), "", verboseOption);
    const CapturedOutput output;
    Files files;
    EXPECT_EQ(tool.getOutFiles(files, 0), 0);
    EXPECT_EQ(output.text(), notRegistered) << "the same in verbose mode";
    tool.registerOption(outputOption);
    EXPECT_EQ(tool.getOutFiles(files, 0), 0);
    EXPECT_EQ(output.text(), notRegistered) << "once registered, its absence is no error";
}

TEST(CommandLineToolOutput, AlwaysHasSpace) {
    Arguments line{"tool"};
    const CommandLineTool tool(line.argc(), line.argv(), "");
    const CapturedOutput output;
    EXPECT_TRUE(tool.checkSpace(FilePath()));
    EXPECT_TRUE(tool.checkSpace(FilePath("/")));
    EXPECT_TRUE(tool.checkSpace(FilePath("/no/such/folder/file")));
    EXPECT_EQ(output.text(), "");
}

}  // namespace
