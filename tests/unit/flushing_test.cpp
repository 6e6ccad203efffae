#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include "arguments.h"
#include "fake_platform.h"
#include "flush_recorder.h"

/// Flushes, shown as "~". The reader of a pipe sees a line once it is flushed, before the tool's own later output.
namespace {

struct Paused {};

class Flushing : public testing::Test {
protected:
    Flushing() {
        fake_platform::reset();
        fake_platform::state().onSleep = [](unsigned int /*milliseconds*/) { throw Paused(); };
    }

    ~Flushing() override {
        fake_platform::reset();
    }
};

TEST_F(Flushing, FollowsEveryLineOfTheBanner) {
    Arguments line{"tool"};
    const CommandLineTool tool(line.argc(), line.argv(), "");
    const FlushRecorder output;
    tool.printHeader();
    EXPECT_EQ(output.text(),
              "\n~"
              "\033[34m####################################\033[0m\n~"
              "\033[37m\ttool\033[0m\n~"
              "\033[37m     Copyright (c) 2026 The kelplib authors, MIT licence\033[0m\n~"
              "\033[34m####################################\033[0m\n~"
              "\n~");
}

TEST_F(Flushing, FollowsTheLinesOfTheHelpScreenAndEndsIt) {
    Arguments line{"tool", "."};
    std::vector<Kelp::Option> options{{"-o", "--out", "result", false}};
    std::vector<Kelp::Argument> arguments{{"in", "input", false}};
    const CommandLineTool tool(line.argc(), line.argv(), "Job", "", "x", "", options, arguments);
    const FlushRecorder output;
    EXPECT_THROW(tool.help(), Paused);
    EXPECT_EQ(output.text(),
              "\033[36mJob\033[0m\n~"
              "\033[36mUsage:\033[0m\n~"
              "  tool [OPTIONS] in \n~"
              "\n"
              "\033[36mOptions:\033[0m\n~"
              "  \033[34m-o, --out:\033[0m result\n\n"
              "\n"
              "\033[36mArguments:\033[0m\n~"
              "  \033[34min:\033[0m input\n\n"
              "\n"
              "\033[36mExample:\033[0m\n~"
              "  \033[34mtool\033[0m x\n~~");
}

TEST_F(Flushing, FollowsTheUsageText) {
    Arguments line{"tool", "."};
    std::vector<Kelp::Option> options;
    std::vector<Kelp::Argument> arguments;
    const CommandLineTool tool(line.argc(), line.argv(), "", "FILE", "", "", options, arguments);
    const FlushRecorder output;
    EXPECT_THROW(tool.help(), Paused);
    EXPECT_NE(output.text().find("\n~  tool FILE\n~\n"), std::string::npos) << output.text();
}

TEST_F(Flushing, FollowsTraceLines) {
    Arguments line{"tool", "-v"};
    const CommandLineTool tool(line.argc(), line.argv(), "", Kelp::Option("-v", "", "", false));
    const FlushRecorder output;
    tool.print("trace");
    std::vector<std::string> arguments;
    tool.getArguments(arguments, 0);
    EXPECT_EQ(output.text(), "trace\n~getFiles()\n~");
}

TEST_F(Flushing, FollowsTheMessagesOfTheFileCheck) {
    Arguments line{"tool"};
    Arguments missing{"tool", "no such file"};
    Kelp::OptionReader reader(line.argc(), line.argv());
    Kelp::OptionReader missingReader(missing.argc(), missing.argv());
    std::string file;
    const FlushRecorder output;
    EXPECT_FALSE(reader.checkFiles(file, 0));
    EXPECT_FALSE(missingReader.checkFiles(file, 0));
    EXPECT_EQ(output.text(),
              "\n\033[31mFile missing, please insert the name of the file.\033[0m\n\n~"
              "File no such file doesn't exist. Please insert a valid file name.\n~");
}

TEST_F(Flushing, FollowsTheMessageAboutAnInvalidFlag) {
    Arguments line{"tool", "-x"};
    const FlushRecorder output;
    EXPECT_THROW(CommandLineTool(line.argc(), line.argv(), ""), Paused);
    EXPECT_EQ(output.text().rfind("Invalid flag -x. List of valid flags: \n~\n~", 0), 0U) << output.text();
}

TEST_F(Flushing, DoesNotFollowABlockOfAnOption) {
    const FlushRecorder output;
    Kelp::Option("-a", "--all", "x", false).printIndented(0, 0);
    Kelp::Argument("in", "x", false).printIndented(0, 0);
    EXPECT_EQ(output.text(), "  \033[34m-a, --all:\033[0m x\n\n  \033[34min:\033[0m x\n\n");
}

}  // namespace
