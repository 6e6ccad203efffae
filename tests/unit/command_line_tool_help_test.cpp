#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include <stdexcept>

#include "arguments.h"
#include "captured_output.h"
#include "fake_platform.h"

namespace {

/// What getToolName says of a program path; the text of its exception in brackets.
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

TEST(CommandLineToolHelp, PausesOnceForHalfASecondBehindTheWholeScreen) {
    struct Paused {};
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.addExampleText("in.txt");
    fake_platform::reset();
    std::string shown;
    {
        const CapturedOutput output;
        fake_platform::state().onSleep = [&](unsigned int) {
            shown = output.text();
            throw Paused();
        };
        EXPECT_THROW(tool.help(), Paused);
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

}  // namespace
