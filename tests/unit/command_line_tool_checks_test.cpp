#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include <climits>

#include "arguments.h"
#include "captured_output.h"

namespace {

using Strings = std::vector<std::string>;

const Kelp::Option verboseOption("-v", "--verbose", "", false);
const Kelp::Option outputOption("-o", "--output", "", false);

/// A tool that accepts -v and -o.
class Tool {
public:
    explicit Tool(const Strings& tokens)
        : line(tokens), tool(line.argc(), line.argv(), "", verboseOption, outputOption) {}

    CommandLineTool* operator->() {
        return &tool;
    }

private:
    Arguments line;
    CommandLineTool tool;
};

TEST(CommandLineToolChecks, AcceptsFlagsByTheirFirstLetter) {
    const CapturedOutput output;
    const Tool tool({"tool", "-o", "-O", "--output", "--oops", "-out", "-o=x", "--O=x", "-vx", "/x", "", "a", "o-x"});
    EXPECT_EQ(output.text(), "");
}

TEST(CommandLineToolChecks, AcceptsANegativeNumberWhoseKeyIsRegistered) {
    const CapturedOutput output;
    Arguments line{"tool", "-5", "-567"};
    const CommandLineTool tool(line.argc(), line.argv(), "", Kelp::Option("-5", "--five", "", false));
    EXPECT_EQ(output.text(), "");
    EXPECT_EQ(tool.hasOption("-5", 0), 1);
}

TEST(CommandLineToolChecks, AcceptsDashesThatAreRegistered) {
    const struct {
        const char* registered;
        Strings tokens;
    } cases[] = {
        {"-", {"tool", "-", "-"}},
        {"--", {"tool", "---", "---x", "---"}},
    };
    for (const auto& c : cases) {
        Arguments line(c.tokens);
        const CapturedOutput output;
        const CommandLineTool tool(line.argc(), line.argv(), "", Kelp::Option(c.registered, "", "", false));
        EXPECT_EQ(output.text(), "") << c.registered;
    }
}

TEST(CommandLineToolChecks, AcceptsEitherLetterCaseAgainAndAgain) {
    const CapturedOutput output;
    const Tool tool({"tool", "-O", "-O", "-o", "--O", "-V", "-v"});
    EXPECT_EQ(output.text(), "");
}

TEST(CommandLineToolChecks, VerboseModeIsAskedForByWholeTokens) {
    const struct {
        Strings tokens;
        bool verbose;
    } cases[] = {
        {{"tool"}, false},
        {{"tool", "-v"}, true},
        {{"tool", "-V"}, true},
        {{"tool", "--verbose"}, true},
        {{"tool", "--VERBOSE"}, true},
        {{"tool", "a", "-v"}, true},
        {{"tool", "-v=1"}, false},
        {{"tool", "-vv"}, false},
        {{"tool", "--verb"}, false},
        {{"tool", "/v"}, false},
        {{"-v", "-v"}, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Tool(c.tokens)->isVerbose(), c.verbose) << c.tokens.back();
    }
}

TEST(CommandLineToolChecks, VerboseModeIsNeverSwitchedOffByTheCheck) {
    Tool tool({"tool", "-v"});
    tool->checkForVerbose();
    EXPECT_TRUE(tool->isVerbose());

    Arguments quiet{"tool", "a"};
    tool->init(1, quiet.argv(), true);
    EXPECT_TRUE(tool->isVerbose()) << "a command line of the program path alone leaves the old one in place";
    tool->init(2, quiet.argv(), true);
    EXPECT_FALSE(tool->isVerbose()) << "a new command line starts quiet";
}

TEST(CommandLineToolChecks, FindsRegisteredOptionsOnly) {
    Tool tool({"tool", "a", "--OUTPUT", "-o", "-o=5", "--other"});
    const struct {
        const char* name;
        int start;
        int position;
    } cases[] = {
        {"-o", 0, 2},       {"-O", 0, 2}, {"-o", 2, 2}, {"-o", 3, 3}, {"-o", 4, 0}, {"-o", -1, 0},      {"-v", 0, 0},
        {"--output", 0, 0}, {"-x", 0, 0}, {"a", 0, 0},  {"", 0, 0},   {"o", 0, 0},  {"-o", INT_MAX, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(tool->hasOption(c.name, c.start), c.position) << c.name << " from " << c.start;
    }
}

TEST(CommandLineToolChecks, OptionsRegisteredLateAreFoundToo) {
    Arguments line{"tool", "a", "/late"};
    CommandLineTool tool(line.argc(), line.argv(), "");
    EXPECT_EQ(tool.hasOption("/l", 0), 0);
    tool.registerOption({"/l", "/late", "", false});
    EXPECT_EQ(tool.hasOption("/l", 0), 2);
}

TEST(CommandLineToolChecks, HandsOutTheFirstArgument) {
    Tool tool({"tool", "-o", "a.txt", "b.txt"});
    std::string argument = "before";
    EXPECT_EQ(tool->getFirstArgument(argument, 0), 2);
    EXPECT_EQ(argument, "a.txt");
    EXPECT_EQ(tool->getFirstArgument(argument, 3), 3);
    EXPECT_EQ(argument, "b.txt");
    EXPECT_EQ(tool->getFirstArgument(argument, 4), 0);
    EXPECT_EQ(tool->getFirstArgument(argument, -1), 0);
    EXPECT_EQ(argument, "b.txt");
}

TEST(CommandLineToolChecks, CollectsArgumentsIntoBothContainers) {
    const struct {
        int start;
        Strings expected;
    } cases[] = {
        {0, {"a.txt", "", "b"}},
        {1, {"a.txt", "", "b"}},
        {2, {"a.txt", "", "b"}},
        {3, {"", "b"}},
        {4, {"b"}},
        {6, {}},
        {7, {}},
        {-1, {}},
        {INT_MAX, {}},
        {INT_MIN, {}},
    };
    Tool tool({"tool", "-o", "a.txt", "", "-o=x", "b", "-v=1"});
    const CapturedOutput output;
    for (const auto& c : cases) {
        Strings strings{"left over"};
        std::list<std::string> list{"left over"};
        const int count = static_cast<int>(c.expected.size());
        EXPECT_EQ(tool->getArguments(strings, c.start), count) << c.start;
        EXPECT_EQ(tool->getArguments(list, c.start), count) << c.start;
        EXPECT_EQ(strings, c.expected) << c.start;
        EXPECT_EQ(list, std::list<std::string>(c.expected.begin(), c.expected.end())) << c.start;
    }
    EXPECT_EQ(output.text(), "");
}

TEST(CommandLineToolChecks, TracesTheVectorFormInVerboseMode) {
    Tool tool({"tool", "-v"});
    Strings strings{"left over"};
    std::list<std::string> list{"left over"};
    {
        const CapturedOutput output;
        EXPECT_EQ(tool->getArguments(strings, 0), 0);
        EXPECT_EQ(output.text(), "getFiles()\n");
    }
    {
        const CapturedOutput output;
        EXPECT_EQ(tool->getArguments(list, 0), 0);
        EXPECT_EQ(output.text(), "");
    }
    EXPECT_TRUE(strings.empty());
    EXPECT_TRUE(list.empty());
}

}  // namespace
