#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include <cctype>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <iterator>
#include <map>
#include <stdexcept>
#include <thread>

#include "arguments.h"
#include "captured_output.h"
#include "fake_platform.h"
#include "progress_test.h"
#include "scoped_locale.h"
#include "test_locale.h"
#include "tool_inspector.h"

namespace {

using namespace std::string_literals;

using Files = std::vector<FilePath>;
using Options = std::vector<Kelp::Option>;
using Strings = std::vector<std::string>;

const Kelp::Option outputOption("-o", "--output", "", false);
const Kelp::Option verboseOption("-v", "--verbose", "", false);

/// Thrown by the pause before the process would end.
struct ProcessEnds {};

/// A tool that accepts -o and -v, or the given options only.
class Tool {
public:
    explicit Tool(const Strings& tokens)
        : line(tokens), tool(line.argc(), line.argv(), "", outputOption, verboseOption) {}

    Tool(const Strings& tokens, Options options) : line(tokens), tool(line.argc(), line.argv(), "", options) {}

    CommandLineTool* operator->() {
        return &tool;
    }

private:
    Arguments line;
    CommandLineTool tool;
};

// Construction and registration.

Strings keysOf(const CommandLineTool& tool) {
    Strings keys;
    for (const auto& entry : tool_inspector::options(tool)) {
        keys.push_back(entry.first);
    }
    return keys;
}

/// The text of the option registered under a key.
std::string textOf(const CommandLineTool& tool, const std::string& key) {
    return std::to_string(tool_inspector::options(tool).at(key));
}

TEST(CommandLineTool, StartsWithNothingRegistered) {
    Arguments line{"tool"};
    const CapturedOutput output;
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    EXPECT_TRUE(tool_inspector::options(tool).empty());
    EXPECT_EQ(tool_inspector::optionWidth(tool), 0U);
    EXPECT_EQ(tool_inspector::header(tool), "     Copyright (c) 2026 The kelplib authors, MIT licence");
    EXPECT_EQ(tool_inspector::header(tool).size(), 56U);
    EXPECT_EQ(tool_inspector::example(tool), "");
    EXPECT_TRUE(tool.getOptions().empty());
    EXPECT_TRUE(tool_inspector::argumentList(tool).empty());
    EXPECT_FALSE(tool.isVerbose());
    EXPECT_EQ(output.text(), "");
}

TEST(CommandLineTool, RegistersOneOrTwoOptions) {
    Arguments line{"tool"};
    const Kelp::Option output("-o", "--output", "first", true);
    const Kelp::Option other("-O", "--other-one", "second", false);
    const CommandLineTool one(line.argc(), line.argv(), "", output);
    EXPECT_EQ(keysOf(one), Strings{"-o"});
    EXPECT_TRUE(tool_inspector::options(one).at("-o").marker);
    EXPECT_EQ(tool_inspector::optionWidth(one), 8U);
    EXPECT_TRUE(one.getOptions().empty());

    const CommandLineTool two(line.argc(), line.argv(), "", output, other);
    EXPECT_EQ(keysOf(two), Strings{"-o"});
    EXPECT_EQ(textOf(two, "-O"), "-o, --output:\tfirst");
    EXPECT_EQ(tool_inspector::optionWidth(two), 11U) << "a dropped option widens the column too";
    EXPECT_TRUE(two.getOptions().empty());
}

TEST(CommandLineTool, RegistersAVectorWithoutKeepingIt) {
    Arguments line{"tool"};
    Options options{{"-z", "--a", "", false}, {"-A", "--longest", "", false}, {"-b", "--mid", "", false}};
    CommandLineTool tool(line.argc(), line.argv(), "", options);
    EXPECT_EQ(keysOf(tool), (Strings{"-A", "-b", "-z"}));
    EXPECT_EQ(tool_inspector::optionWidth(tool), 9U);
    EXPECT_TRUE(tool.getOptions().empty());
    EXPECT_EQ(options.size(), 3U);

    tool.registerOption({"-a", "--longer still", "dropped", false});
    EXPECT_EQ(keysOf(tool), (Strings{"-A", "-b", "-z"}));
    EXPECT_EQ(textOf(tool, "-a"), "-A, --longest:\t");
    EXPECT_EQ(tool_inspector::optionWidth(tool), 14U);

    tool.registerOption({"", "", "", false});
    EXPECT_EQ(keysOf(tool), (Strings{"", "-A", "-b", "-z"}));
    EXPECT_EQ(tool_inspector::optionWidth(tool), 14U);
}

TEST(CommandLineTool, TheFullConstructorKeepsBothLists) {
    Arguments line{"tool", "."};
    Options options{{"-x", "--eight8", "first", true}, {"-X", "--four", "second", false}, {"-b", "--mid", "", false}};
    std::vector<Kelp::Argument> arguments{{"input", "in", false}, {"outputDirectory", "out", true}};
    CommandLineTool tool(line.argc(), line.argv(), "", "usage", "example", "header", options, arguments);
    options.clear();
    arguments.clear();

    Options list = tool.getOptions();
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(std::to_string(list[0]), "-x, --eight8:\tfirst");
    EXPECT_TRUE(list[0].marker);
    EXPECT_EQ(std::to_string(list[1]), "-X, --four:\tsecond");
    EXPECT_EQ(std::to_string(list[2]), "-b, --mid:\t");
    list[0].description = "changed";
    EXPECT_EQ(tool.getOptions()[0].description, "first") << "the returned list is a copy";

    EXPECT_EQ(keysOf(tool), (Strings{"-b", "-x"}));
    ASSERT_EQ(tool_inspector::argumentList(tool).size(), 2U);
    EXPECT_EQ(tool_inspector::argumentList(tool)[1].name, "outputDirectory");
    EXPECT_TRUE(tool_inspector::argumentList(tool)[1].repeated);
    EXPECT_EQ(tool_inspector::optionWidth(tool), 15U);
    EXPECT_EQ(tool_inspector::header(tool), "header");
    EXPECT_EQ(tool_inspector::example(tool), "example");

    tool.registerOption({"-n", "--seventeen-chars", "", false});
    EXPECT_EQ(tool.getOptions().size(), 3U);
    EXPECT_EQ(tool_inspector::optionWidth(tool), 17U);
}

TEST(CommandLineTool, TheExtensionPointsChangeNothing) {
    Arguments line{"tool", "a"};
    CommandLineTool tool(line.argc(), line.argv(), "");
    const CapturedOutput output;
    int argc = line.argc();
    char** argv = line.argv();
    tool.addCommonOptions();
    tool.readArgvFromFile(argc, argv);
    EXPECT_EQ(argc, 2);
    EXPECT_EQ(argv, line.argv());
    EXPECT_TRUE(tool_inspector::options(tool).empty());
    EXPECT_EQ(output.text(), "");
}

TEST(CommandLineTool, TheLastExampleTextCounts) {
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "");
    tool.addExampleText("first");
    tool.addExampleText("second");
    EXPECT_EQ(tool_inspector::example(tool), "second");
    tool.addExampleText(tool_inspector::example(tool));
    EXPECT_EQ(tool_inspector::example(tool), "second");
}

TEST(CommandLineTool, RefusesNullElements) {
    char name[] = "tool";
    char* tokens[] = {name, nullptr};
    EXPECT_THROW(CommandLineTool(2, tokens, ""), std::logic_error);

    CommandLineTool tool(1, tokens, "");
    EXPECT_THROW(tool.init(2, tokens, true), std::logic_error);
    EXPECT_NO_THROW(tool.init(0, nullptr, true));
}

TEST(CommandLineTool, StartsWithoutAnyToken) {
    const CapturedOutput output;
    const CommandLineTool tool(0, nullptr, "");
    EXPECT_EQ(tool.getToolName(), "");
    EXPECT_EQ(output.text(), "");
}

// The check of flags.

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

TEST(CommandLineToolChecks, AcceptsEitherLetterCaseAgainAndAgain) {
    const CapturedOutput output;
    const Tool tool({"tool", "-O", "-O", "-o", "--O", "-V", "-v"});
    EXPECT_EQ(output.text(), "");
}

/// The first line, with its line break, that a tool with one option prints about its command line.
std::string firstLinePrinted(const Strings& tokens, const std::string& registered) {
    fake_platform::state().onSleep = [](unsigned int) { throw ProcessEnds(); };
    const CapturedOutput output;
    Arguments line(tokens);
    try {
        const CommandLineTool tool(line.argc(), line.argv(), "", Kelp::Option(registered, ""s, ""s, false));
    } catch (const ProcessEnds&) {
    }
    fake_platform::reset();
    const std::string text = output.text();
    const std::size_t end = text.find('\n');
    return end == std::string::npos ? text : text.substr(0, end + 1);
}

// The check looks a flag up by its key alone: a dash and one character, or the dash of a flag without a character.
TEST(CommandLineToolFlags, AreRefusedUnlessTheirWholeKeyIsRegistered) {
    const struct {
        std::string registered;
        Strings tokens;
        std::string printed;
    } cases[] = {
        {"-o", {"tool", "-o"}, ""},
        {"-o", {"tool", "-a"}, "Invalid flag -a. List of valid flags: \n"},
        {"xo", {"tool", "-o"}, "Invalid flag -o. List of valid flags: \n"},
        {"/o", {"tool", "-o"}, "Invalid flag -o. List of valid flags: \n"},
        {".o", {"tool", "-o"}, "Invalid flag -o. List of valid flags: \n"},
        {"o", {"tool", "-o"}, "Invalid flag -o. List of valid flags: \n"},
        {"", {"tool", "-o"}, "Invalid flag -o. List of valid flags: \n"},
        {"-ao", {"tool", "-o"}, "Invalid flag -o. List of valid flags: \n"},
        {"-ao", {"tool", "-ao"}, "Invalid flag -a. List of valid flags: \n"},
        {"--o", {"tool", "--o"}, "Invalid flag -o. List of valid flags: \n"},
        {"-", {"tool", "-"}, ""},
        {"-", {"tool", "-", "-"}, ""},
        {"-", {"tool", "--"}, "Invalid flag -\0. List of valid flags: \n"s},
        {"-", {"tool", "---"}, "Invalid flag --. List of valid flags: \n"},
        {"-\0"s, {"tool", "--"}, ""},
        {"-\0"s, {"tool", "-"}, "Invalid flag -. List of valid flags: \n"},
        {"-", {"tool", "-", "--"}, "Invalid flag -\0. List of valid flags: \n"s},
        {"-\0"s, {"tool", "--", "-"}, "Invalid flag -. List of valid flags: \n"},
        {"-\xFF", {"tool", "-\xFF"}, ""},
        {"-\xFF", {"tool", "-\xFE"}, "Invalid flag -\xFE. List of valid flags: \n"},
        {"--", {"tool", "---"}, ""},
        {"--", {"tool", "---", "---x", "---"}, ""},
        {"--", {"tool", "--"}, "Invalid flag -\0. List of valid flags: \n"s},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(firstLinePrinted(c.tokens, c.registered), c.printed)
            << ::testing::PrintToString(c.tokens) << " with " << ::testing::PrintToString(c.registered)
            << " registered";
    }
}

// In the test's locale of Linux, tolower leaves the capitals of ASCII alone.
TEST(CommandLineToolFlags, TakeLetterCaseFromTheCLocale) {
    if (testLocaleName() == nullptr) {
        GTEST_SKIP() << "KELPLIB_TEST_LOCALE is not set";
    }
    const ScopedCLocale scope(LC_CTYPE, testLocaleName());
    ASSERT_TRUE(scope.isValid());
    if (std::tolower('O') == 'o') {
        GTEST_SKIP() << "the locale does convert ASCII letters";
    }
    EXPECT_EQ(firstLinePrinted({"tool", "-o", "-o"}, "-o"), "");
    EXPECT_EQ(firstLinePrinted({"tool", "-O", "-O"}, "-O"), "");
    EXPECT_EQ(firstLinePrinted({"tool", "-o", "-O"}, "-o"), "Invalid flag -O. List of valid flags: \n");
    EXPECT_EQ(firstLinePrinted({"tool", "-O", "-o"}, "-O"), "Invalid flag -o. List of valid flags: \n");
    EXPECT_EQ(firstLinePrinted({"tool", "-a", "-A"}, "-a"), "Invalid flag -A. List of valid flags: \n");
    EXPECT_EQ(firstLinePrinted({"tool", "-z", "-Z"}, "-z"), "Invalid flag -Z. List of valid flags: \n");
    EXPECT_EQ(firstLinePrinted({"tool", "-\xE4", "-\xC4"}, "-\xC4"), "");
}

// Verbose mode.

TEST(CommandLineToolChecks, VerboseModeNeedsAWholeToken) {
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
        EXPECT_EQ(Tool(c.tokens)->isVerbose(), c.verbose) << ::testing::PrintToString(c.tokens);
    }
}

TEST(CommandLineToolChecks, VerboseModeIsNeverSwitchedOffByTheCheck) {
    Tool tool({"tool", "-v"});
    tool->checkForVerbose();
    EXPECT_TRUE(tool->isVerbose());

    Arguments quiet{"tool", "a"};
    tool->init(1, quiet.argv(), true);
    EXPECT_TRUE(tool->isVerbose()) << "init ignores a command line without arguments";
    tool->init(2, quiet.argv(), true);
    EXPECT_FALSE(tool->isVerbose()) << "a new command line starts quiet";
}

// Options and positional arguments.

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

TEST(CommandLineToolChecks, FindsOptionsRegisteredLater) {
    Arguments line{"tool", "a", "/late"};
    CommandLineTool tool(line.argc(), line.argv(), "");
    EXPECT_EQ(tool.hasOption("/l", 0), 0);
    tool.registerOption({"/l", "/late", "", false});
    EXPECT_EQ(tool.hasOption("/l", 0), 2);
}

TEST(CommandLineToolChecks, ReturnsTheFirstArgument) {
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

// The name, the banner, the help screen and trace lines.

/// The tool's name for a program path, or the text of the exception in brackets.
std::string toolName(const std::string& programPath) {
    Arguments line{programPath};
    const CommandLineTool tool(line.argc(), line.argv(), "");
    try {
        return tool.getToolName();
    } catch (const std::out_of_range& error) {
        return "[" + std::string(error.what()) + "]";
    }
}

TEST(CommandLineToolHelp, NamesTheToolAfterItsProgramPath) {
    const struct {
        const char* path;
        const char* name;
    } cases[] = {
        {"", ""},
        {"convert", "convert"},
        {"convert.exe", "convert.exe"},
        {"./bin/convert.exe", "./bin/convert.exe"},
        {"C:/tools/convert.exe", "C:/tools/convert.exe"},
        {"C:\\tools\\Convert.EXE", "Convert"},
        {"C:\\tools\\convert.exe", "convert"},
        {"C:\\tools\\convert.eXe", "convert"},
        {"C:\\tools\\convert.bin", "convert.bin"},
        {"C:\\tools\\convert", "convert"},
        {"C:\\tools\\convert.exe.exe", "convert.exe"},
        {"C:\\tools\\convert.exe/x", "convert.exe/x"},
        {"C:\\tools\\bin/convert.exe", "bin/convert"},
        {"\\convertexe", "convertexe"},
        {"\\.exe", ""},
        {"\\a.exe", "a"},
        {"\\abcd", "abcd"},
        {"\\abc", "[basic_string::substr]"},
        {"C:\\x\\ab", "[basic_string::substr]"},
        {"C:\\tools\\", "[basic_string::substr]"},
        {"\\", "[basic_string::substr]"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toolName(c.path), c.name) << c.path;
    }
}

TEST(CommandLineToolHelp, PrintsTheBanner) {
    Arguments line{"C:\\tools\\Convert.EXE"};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    const CapturedOutput output;
    tool.printHeader();
    EXPECT_EQ(output.text(),
              "\n"
              "\033[34m####################################\033[0m\n"
              "\033[37m\tConvert\033[0m\n"
              "\033[37m     Copyright (c) 2026 The kelplib authors, MIT licence\033[0m\n"
              "\033[34m####################################\033[0m\n"
              "\n");
}

TEST(CommandLineToolHelp, PausesOnceForHalfASecondAfterTheWholeScreen) {
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.addExampleText("in.txt");
    fake_platform::reset();
    std::string shown;
    {
        const CapturedOutput output;
        fake_platform::state().onSleep = [&](unsigned int) {
            shown = output.text();
            throw ProcessEnds();
        };
        EXPECT_THROW(tool.help(), ProcessEnds);
    }
    EXPECT_EQ(fake_platform::state().sleepsMilliseconds, std::vector<unsigned int>{500});
    EXPECT_EQ(shown,
              "\033[36mDoes a job\033[0m\n"
              "\033[36mUsage:\033[0m\n"
              "  tool [OPTIONS] \n"
              "\n"
              "\033[36mOptions:\033[0m\n"
              "\n"
              "\033[36mArguments:\033[0m\n"
              "\n"
              "\033[36mExample:\033[0m\n"
              "  \033[34mtool\033[0m in.txt\n");
    fake_platform::reset();
}

TEST(CommandLineToolHelp, PrintsTraceLinesInVerboseModeOnly) {
    Arguments quiet{"tool"};
    Arguments verbose{"tool", "-v"};
    const CommandLineTool quietTool(quiet.argc(), quiet.argv(), "");
    const CommandLineTool verboseTool(verbose.argc(), verbose.argv(), "", Kelp::Option("-v", "", "", false));
    const CapturedOutput output;
    quietTool.print("nothing");
    EXPECT_EQ(output.text(), "");
    verboseTool.print("something");
    verboseTool.print("");
    verboseTool.print("two\nlines");
    EXPECT_EQ(output.text(), "something\n\ntwo\nlines\n");
}

// Output files. The current directory is /home/u.

constexpr char notRegistered[] = "ERROR: no argument found: -o\n";

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
        // The first letter alone decides.
        {{"tool", "--out=c.txt"}, {"/home/u/|c.txt"}},
        {{"tool", "--output=c.txt", "--OOPS=dd", "-off=ee"}, {"/home/u/|c.txt", "/home/u/|dd", "/home/u/|ee"}},
        // The value follows the first "="; the next token is never a value.
        {{"tool", "-o", "a.txt"}, {"/home/u/|"}},
        {{"tool", "-o="}, {"/home/u/|"}},
        {{"tool", "-o=ab", "-o", "-o=cd"}, {"/home/u/|ab", "/home/u/|", "/home/u/|cd"}},
        {{"tool", "-o=a=b"}, {"/home/u/|a=b"}},
        {{"tool", "-o=sub/a.txt", "-o=sub\\b.txt"}, {"/home/u/sub/|a.txt", "/home/u/sub/|b.txt"}},
        {{"tool", "-o=/abs/a.txt", "-o=C:\\b.txt", "-o=C:c"}, {"/abs/|a.txt", "C:\\|b.txt", "|"}},
        // These are not the option.
        {{"tool", "o=a.txt", "/o=a.txt", "a-o=b", ""}, {}},
        // The search includes the program path.
        {{"-o=tool"}, {"/home/u/|tool"}},
        {{"-o=tool", "-o=a.txt"}, {"/home/u/|tool", "/home/u/|a.txt"}},
        {{}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.tokens));
        Tool tool(c.tokens);
        for (const int start : {0, 1, 5, -1, 2147483647, -2147483647 - 1}) {
            Files files{FilePath("/left/over")};
            const CapturedOutput output;
            EXPECT_EQ(tool->getOutFiles(files, start), static_cast<int>(c.files.size())) << "from " << start;
            EXPECT_EQ(partsOf(files), c.files) << "from " << start;
            EXPECT_EQ(output.text(), "") << "from " << start;
        }
    }
}

TEST(CommandLineToolOutput, ReturnsTheFirstFile) {
    FilePath file("/left/over");
    EXPECT_TRUE(Tool({"tool", "-o=a.txt", "-o=b.txt"})->getOutFile(file));
    EXPECT_EQ(partsOf({file}), Strings{"/home/u/|a.txt"});
    EXPECT_TRUE(Tool({"tool", "-o"})->getOutFile(file));
    EXPECT_EQ(partsOf({file}), Strings{"/home/u/|"});
}

TEST(CommandLineToolOutput, LeavesTheFileUnchangedWithoutTheOption) {
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
    EXPECT_THROW(tool->getOutFile(file), std::out_of_range) << "although the first file is valid";
    EXPECT_EQ(partsOf({file}), Strings{"/left/|over"});
}

TEST(CommandLineToolOutput, ReportsThatNoOutputOptionIsRegistered) {
    const Options others[] = {
        {},
        {verboseOption},
        {Kelp::Option("--output", "-o", "", false), verboseOption},
        {Kelp::Option("o", "output", "", false)},
        {Kelp::Option("-out", "--output", "", false)},
    };
    for (const Options& options : others) {
        SCOPED_TRACE(options.empty() ? "no options" : options.front().shortFlag + " " + options.front().longFlag);
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

TEST(CommandLineToolOutput, FindsAnOutputOptionRegisteredLater) {
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

// The progress display.

constexpr char frameAtHalf[] =
    "     _____\n"
    "    /     \\         half\n"
    "   /  . .  \\\n"
    "   >       <        50.0% ###################                  |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 8 secs      \n";

class CommandLineToolProgress : public ProgressTest {
protected:
    CommandLineToolProgress()
        : quietLine{"tool"},
          verboseLine{"tool", "-v"},
          quiet(quietLine.argc(), quietLine.argv(), ""),
          verbose(verboseLine.argc(), verboseLine.argv(), "", Kelp::Option("-v", "--verbose", "", false)) {}

    /// What a progress report draws, with a label of at most 20 characters.
    static std::string report(CommandLineTool& tool, double value, const char* text) {
        return written([&] { tool.progress(value, text, 20); });
    }

    Arguments quietLine;
    Arguments verboseLine;
    CommandLineTool quiet;
    CommandLineTool verbose;
};

TEST_F(CommandLineToolProgress, InitializesTheDisplay) {
    for (CommandLineTool* const tool : {&quiet, &verbose}) {
        SCOPED_TRACE(tool == &quiet ? "quiet" : "verbose");
        KELP_GlobalProgress = KELP_GlobalProgressData();
        KELP_GlobalProgress.last_blink = 99.0;
        clock(1234.5);
        EXPECT_EQ(written([tool] { tool->initProgress(200.0, "abcdefghijklmnopqrstuvwxyz0123", 20); }), "");
        EXPECT_EQ(KELP_GlobalProgress.total, 200.0);
        EXPECT_EQ(KELP_GlobalProgress.width, 37);
        EXPECT_STREQ(KELP_GlobalProgress.text, "abcdefg...uvwxyz0123");
        EXPECT_EQ(KELP_GlobalProgress.start_time, 1234.5);
        EXPECT_EQ(KELP_GlobalProgress.smile, 1);
        EXPECT_EQ(KELP_GlobalProgress.terminal_env, nullptr);
        EXPECT_EQ(KELP_GlobalProgress.last_blink, 99.0);
    }
}

TEST_F(CommandLineToolProgress, ChoosesTheBarWithMsystem) {
    const ScopedVariable msystem("MSYSTEM", "MINGW64");
    for (CommandLineTool* const tool : {&quiet, &verbose}) {
        SCOPED_TRACE(tool == &quiet ? "quiet" : "verbose");
        KELP_GlobalProgress = KELP_GlobalProgressData();
        tool->initProgress(200.0, "label", 20);
        EXPECT_EQ(KELP_GlobalProgress.smile, 0);
        EXPECT_EQ(KELP_GlobalProgress.terminal_env, std::getenv("MSYSTEM"));
        EXPECT_STREQ(KELP_GlobalProgress.terminal_env, "MINGW64");
    }
}

TEST_F(CommandLineToolProgress, StartsOver) {
    quiet.initProgress(200.0, "a longer label", 20);
    KELP_GlobalProgress.width = 5;
    KELP_GlobalProgress.smile = 3;
    clock(2000.0);
    quiet.initProgress(7.0, "b", 20);
    EXPECT_EQ(KELP_GlobalProgress.total, 7.0);
    EXPECT_EQ(KELP_GlobalProgress.width, 37);
    EXPECT_STREQ(KELP_GlobalProgress.text, "b");
    EXPECT_EQ(KELP_GlobalProgress.start_time, 2000.0);
    EXPECT_EQ(KELP_GlobalProgress.smile, 1);
    const ScopedVariable msystem("MSYSTEM", "MINGW64");
    quiet.initProgress(7.0, "b", 20);
    EXPECT_EQ(KELP_GlobalProgress.smile, 0) << "every initProgress reads MSYSTEM";
}

TEST_F(CommandLineToolProgress, StoresLabelsThatFit) {
    const struct {
        std::string text;
        unsigned long long maxLength;
        std::string expected;
    } cases[] = {
        {"", 20, ""},
        {"abcdef", 3, "...def"},
        {"abcdef", 0, "...def"},
        {std::string("ab\0cd", 5), 20, "ab"},
        {std::string("abcdef\0g", 8), 6, "...def"},
        {std::string(127, 'x'), 128, std::string(127, 'x')},
        {std::string(600, 'x'), 1000, std::string(61, 'x') + "..." + std::string(64, 'x')},
        {std::string(600, 'x'), 18446744073709551615ULL, std::string(61, 'x') + "..." + std::string(64, 'x')},
    };
    for (const auto& c : cases) {
        for (const bool atStart : {true, false}) {
            quiet.initProgress(2.0, atStart ? c.text : "earlier", c.maxLength);
            if (!atStart) {
                written([&] { quiet.progress(1.0, c.text, c.maxLength); });
            }
            std::string field(KELP_GlobalProgress.text, sizeof KELP_GlobalProgress.text);
            std::string expected = c.expected;
            expected.resize(field.size());
            EXPECT_EQ(field, expected) << c.text << " in " << c.maxLength << (atStart ? " at the start" : " later");
        }
    }
}

TEST_F(CommandLineToolProgress, DrawsTheFace) {
    quiet.initProgress(200.0, "start", 20);
    KELP_GlobalProgress.last_blink = 1008.0;
    clock(1010.0);
    EXPECT_EQ(report(quiet, 100.0, "half"), frameAtHalf);
    EXPECT_EQ(fake_platform::state().rewoundLines, std::vector<unsigned int>{6});
}

TEST_F(CommandLineToolProgress, DrawsTheBarInAnyOtherMode) {
    quiet.initProgress(200.0, "start", 20);
    clock(1010.0);
    for (const int smile : {0, 2}) {
        KELP_GlobalProgress.smile = smile;
        EXPECT_EQ(report(quiet, 100.0, "half"),
                  "half 50.0% ###################                  | time left: 8 secs  \r")
            << smile;
    }
    const ScopedVariable msystem("MSYSTEM", "MINGW64");
    quiet.initProgress(200.0, "start", 20);
    EXPECT_EQ(report(quiet, 200.0, "done"), "done100.0% ###################################### done in: 0.0 secs  \r");
    EXPECT_TRUE(fake_platform::state().rewoundLines.empty());
}

TEST_F(CommandLineToolProgress, DrawsNothingInVerboseMode) {
    verbose.initProgress(200.0, "start", 20);
    const auto before = bytesOf(KELP_GlobalProgress);
    for (const double value : {100.0, 200.0, -1.0}) {
        clock(2000.0);
        EXPECT_EQ(report(verbose, value, "half"), "") << value;
        EXPECT_EQ(bytesOf(KELP_GlobalProgress), before) << value;
    }
    KELP_GlobalProgress.smile = 0;
    EXPECT_EQ(report(verbose, -1.0, "half"), "");
    EXPECT_STREQ(KELP_GlobalProgress.text, "start");
    EXPECT_TRUE(fake_platform::state().rewoundLines.empty());
    EXPECT_TRUE(fake_platform::state().sleepsMilliseconds.empty());
}

TEST_F(CommandLineToolProgress, IsSharedByAllTools) {
    verbose.initProgress(200.0, "start", 20);
    KELP_GlobalProgress.smile = 0;
    clock(1010.0);
    EXPECT_EQ(report(quiet, 100.0, "half"), "half 50.0% ###################                  | time left: 8 secs  \r");
}

TEST_F(CommandLineToolProgress, ContinuesAfterANegativeValue) {
    quiet.initProgress(200.0, "start", 20);
    KELP_GlobalProgress.last_blink = 1008.0;
    clock(1010.0);
    EXPECT_NE(report(quiet, -100.0, "less").find("   >   _   <        -50.0% "), std::string::npos);
    EXPECT_EQ(report(quiet, 100.0, "half"), frameAtHalf);
}

TEST_F(CommandLineToolProgress, IsUnlockedWhenDrawingThrows) {
    quiet.initProgress(200.0, "start", 20);
    fake_platform::state().onSleep = [](unsigned int) { throw std::runtime_error("in the middle of a blink"); };
    EXPECT_THROW(report(quiet, 100.0, "half"), std::runtime_error);
    fake_platform::state().onSleep = nullptr;
    clock(1010.0);
    KELP_GlobalProgress.last_blink = 1008.0;
    // With the lock still held this report would never return.
    EXPECT_EQ(report(quiet, 100.0, "half"), frameAtHalf);
}

// Progress reports from several threads.

using Counts = std::map<std::string, int>;

constexpr int reportsPerThread = 50;

/// What one of the threads reports. All labels and values differ, so a mixture of two reports equals neither.
struct Report {
    double value;
    const char* label;
    const char* barAfterLabel;
    const char* faceAfterLabel;
};

constexpr Report reports[] = {
    {1.0, "a", "  5.0% #       |\r",
     "\n   /  * *  \\\n   >   _   <        5.0% #       |  \n   \\  / \\  /\n    \\_____/"},
    {3.0, "second", " 15.0% ##      |\r",
     "\n   /  * *  \\\n   >   _   <        15.0% ##      |  \n   \\  / \\  /\n    \\_____/"},
    {4.0, "the third of them", " 20.0% ##      |\r",
     "\n   /  * *  \\\n   >   _   <        20.0% ##      |  \n   \\  / \\  /\n    \\_____/"},
    {6.0, "4", " 30.0% ###     |\r",
     "\n   /  * *  \\\n   >       <        30.0% ###     |  \n   \\  ---  /\n    \\_____/"},
    {7.5, "fifth thread", " 37.5% ###    |\r",
     "\n   /  * *  \\\n   >       <        37.5% ###    |  \n   \\  ---  /\n    \\_____/"},
    {10.0, "sixth of the eight threads", " 50.0% ####   |\r",
     "\n   /  . .  \\\n   >       <        50.0% ####   |  \n   \\  ---  /\n    \\_____/"},
    {14.0, "7th", " 70.0% ######  |\r",
     "\n   /  . .  \\\n   >       <        70.0% ######  |  \n   \\  \\_/  /\n    \\_____/"},
    {19.0, "", " 95.0% ########|\r",
     "\n   /  * *  \\\n   >       <        95.0% ########|  \n   \\  \\_/  /\n    \\_____/"},
};

/// Eight threads report through one tool.
class CommandLineToolThreads : public ProgressTest {
protected:
    CommandLineToolThreads() : line{"tool"}, tool(line.argc(), line.argv(), "") {
        tool.initProgress(20.0, "not reported yet", 100);
        KELP_GlobalProgress.width = 8;
        KELP_GlobalProgress.last_blink = 1000.0;
    }

    /// What the threads draw when all of them report at the same time.
    std::string drawnByAllThreads() {
        return written([this] { reportFromAllThreads(); });
    }

    Arguments line;
    CommandLineTool tool;

private:
    void reportFromAllThreads() {
        std::vector<std::thread> threads;
        for (const Report& report : reports) {
            threads.emplace_back([this, &report] {
                for (int i = 0; i < reportsPerThread; ++i) {
                    tool.progress(report.value, report.label, 100);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
};

/// Counts the pieces of a text; each piece ends with `end`.
Counts countPieces(const std::string& text, const std::string& end) {
    Counts counts;
    std::size_t begin = 0;
    for (std::size_t found = 0; (found = text.find(end, begin)) != std::string::npos; begin = found + end.size()) {
        ++counts[text.substr(begin, found + end.size() - begin)];
    }
    ++counts["after the last piece: " + text.substr(begin)];
    return counts;
}

TEST_F(CommandLineToolThreads, DrawEveryBarWhole) {
    KELP_GlobalProgress.smile = 0;
    KELP_GlobalProgress.start_time = 0.0;
    const std::string text = drawnByAllThreads();

    Counts expected = {{"after the last piece: ", 1}};
    for (const Report& report : reports) {
        expected[std::string(report.label) + report.barAfterLabel] = reportsPerThread;
    }
    EXPECT_EQ(countPieces(text, "\r"), expected);
}

TEST_F(CommandLineToolThreads, DrawEveryFaceWhole) {
    const std::string text = drawnByAllThreads();

    Counts expected = {{"after the last piece: ", 1}};
    for (const Report& report : reports) {
        expected[std::string("     _____\n    /     \\         ") + report.label + report.faceAfterLabel +
                 "         time remaining: 0 secs      \n"] = reportsPerThread;
    }
    EXPECT_EQ(countPieces(text, " secs      \n"), expected);
    EXPECT_EQ(fake_platform::state().rewoundLines.size(), std::size(reports) * reportsPerThread);
}

TEST_F(CommandLineToolThreads, MayInitializeAgainMeanwhile) {
    std::thread initializing([this] {
        for (int i = 0; i < reportsPerThread; ++i) {
            tool.initProgress(20.0, "initialized again", 100);
        }
    });
    const std::string text = drawnByAllThreads();
    initializing.join();
    EXPECT_EQ(fake_platform::state().rewoundLines.size(), std::size(reports) * reportsPerThread);
    EXPECT_EQ(text.find("initialized again"), std::string::npos) << "every report sets its own label";
}

}  // namespace
