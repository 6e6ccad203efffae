#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include <stdexcept>

#include "arguments.h"
#include "captured_output.h"
#include "tool_inspector.h"

namespace {

using Options = std::vector<Kelp::Option>;
using Strings = std::vector<std::string>;

Strings keysOf(const CommandLineTool& tool) {
    Strings keys;
    for (const auto& entry : tool_inspector::options(tool)) {
        keys.push_back(entry.first);
    }
    return keys;
}

/// The option's text under a key that is there.
std::string registered(const CommandLineTool& tool, const std::string& key) {
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
    EXPECT_EQ(registered(two, "-O"), "-o, --output:\tfirst");
    EXPECT_EQ(tool_inspector::optionWidth(two), 11U) << "a dropped option widens the column all the same";
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
    EXPECT_EQ(registered(tool, "-a"), "-A, --longest:\t");
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
    EXPECT_EQ(tool.getOptions()[0].description, "first") << "the list handed out is a copy";

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

TEST(CommandLineTool, NullElementsComeOutAsLogicErrors) {
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

}  // namespace
