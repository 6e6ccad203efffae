#include "observation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "observer_report.h"

namespace {

using Kelpkit::programs::field;
using Kelpkit::programs::findTool;
using Kelpkit::programs::HelpScreen;
using Kelpkit::programs::Observation;
using Kelpkit::programs::readReport;

std::string event(const std::vector<std::string>& fields) {
    std::string text;
    for (const std::string& each : fields) {
        text += field(each);
    }
    return field(text);
}

const std::string report =
    event({"tool", "1", "full", "own"}) + event({"option", "1", "-n", "--number", "how many", "marked"}) +
    event({"option", "1", "-N", "--name", "", "not"}) + event({"argument", "1", "FILE", "a text", "repeated"}) +
    event({"late", "1", "-q", "--quick", "fast"}) + event({"asks", "1", "-n"}) + event({"verbose", "1"}) +
    event({"output", "1"}) + event({"token", "-n", "--number"}) + event({"value", "-n", ""});

TEST(Observation, ReadsAReport) {
    const Observation read = readReport(report + event({"tool", "1", "short", "other"}));
    ASSERT_EQ(read.tools.size(), 2U);
    const auto& tool = read.tools.front();
    EXPECT_TRUE(tool.isFull && tool.ownsCommandLine && tool.asksVerbose && tool.asksOutput);
    ASSERT_EQ(tool.options.size(), 2U);
    EXPECT_EQ(tool.options[1].longForm, "--name");
    ASSERT_EQ(tool.arguments.size(), 1U);
    EXPECT_TRUE(tool.arguments[0].repeated);
    ASSERT_EQ(tool.lateOptions.size(), 1U);
    EXPECT_EQ(tool.lateOptions[0].text, "fast");
    EXPECT_EQ(tool.names, std::vector<std::string>{"-n"});
    EXPECT_FALSE(read.tools[1].isFull || read.tools[1].ownsCommandLine || read.tools[1].asksVerbose);
    EXPECT_FALSE(tool.isOfKit);
    EXPECT_TRUE(tool.takesValue.empty());
    ASSERT_EQ(read.queries.size(), 2U);
    EXPECT_FALSE(read.queries[0].isValue);
    EXPECT_TRUE(read.queries[1].isValue);
}

TEST(Observation, OnlyTheKitSaysWhatOptionsTake) {
    const auto toolOf = [](const std::string& constructor, const std::string& owner) {
        return readReport(event({"tool", "1", constructor, owner}) + event({"option", "1", "-N", "", "", "marked"}) +
                          event({"option", "1", "-q", "", "", "not"}) + event({"option", "1", "-n", "", "", "not"}))
            .tools.front();
    };
    EXPECT_EQ(toolOf("full", "kit").takesValue, (std::map<std::string, bool>{{"-n", true}, {"-q", false}}));
    EXPECT_TRUE(toolOf("full", "kit").isOfKit);
    for (const auto& [constructor, owner] : {std::pair("short", "kit"), {"full", "own"}, {"full", "other"}}) {
        EXPECT_TRUE(toolOf(constructor, owner).takesValue.empty());
        EXPECT_FALSE(toolOf(constructor, owner).isOfKit);
    }
}

TEST(Observation, AsksForOptions) {
    const std::string tool =
        event({"tool", "1", "full", "own"}) + event({"option", "1", "-n", "--number", "how many", "not"});
    EXPECT_FALSE(asksForOptions(readReport("")));
    EXPECT_FALSE(asksForOptions(readReport(tool)));
    for (const std::string& asking :
         {event({"late", "1", "-q", "--quick", "fast"}), event({"asks", "1", "-n"}), event({"verbose", "1"}),
          event({"output", "1"}), event({"token", "-n", ""}), event({"value", "-n", ""})}) {
        EXPECT_TRUE(asksForOptions(readReport(std::string(tool).append(asking).append(tool)))) << asking;
    }
}

TEST(Observation, TheToolsOfTheScreen) {
    const std::string same = event({"tool", "3", "full", "other"}) +
                             event({"option", "3", "-n", "--number", "how many", "not"}) +
                             event({"argument", "3", "FILE", "a text", "once"}) + event({"asks", "3", "-q"});
    const Observation read = readReport(report + event({"tool", "2", "short", "own"}) + same);
    HelpScreen screen;
    ASSERT_TRUE(findTool(read, screen));
    EXPECT_FALSE(findTool(read, screen)->isFull);
    screen.options = {{"-n", "--number", "how many"}};
    EXPECT_FALSE(findTool(read, screen));
    screen.arguments = {{"FILE", "a text"}};
    const auto tool = findTool(read, screen);
    ASSERT_TRUE(tool);
    EXPECT_TRUE(tool->isFull && tool->asksVerbose && tool->asksOutput);
    EXPECT_FALSE(tool->ownsCommandLine || tool->arguments[0].repeated);
    EXPECT_EQ(tool->names, (std::vector<std::string>{"-q", "-n"}));
    ASSERT_EQ(tool->lateOptions.size(), 1U);
    EXPECT_EQ(tool->lateOptions[0].shortForm, "-q");
    screen.options[0].text = "how few";
    EXPECT_FALSE(findTool(read, screen));
    EXPECT_FALSE(findTool({}, {}));
}

TEST(Observation, TheProcessesOfTheScreen) {
    const std::string other =
        event({"tool", "1", "short", "own"}) + event({"option", "1", "-n", "--number", "", "not"});
    const std::string mine = event({"tool", "1", "short", "own"});
    const std::string first = event({"process", "first"});
    const std::string second = event({"process", "second"});
    const Observation read =
        readReport(first + event({"token", "-a", ""}) + mine + second + other + event({"asks", "1", "-b"}) +
                   event({"value", "-c", ""}) + first + event({"asks", "1", "-d"}) + event({"value", "-e", ""}) + "x");
    const Observation its = ofScreen(read, {});
    ASSERT_EQ(its.tools.size(), 1U);
    EXPECT_EQ(its.tools[0].names, std::vector<std::string>{"-d"});
    ASSERT_EQ(its.queries.size(), 2U);
    EXPECT_EQ(its.queries[0].names[0], "-a");
    EXPECT_EQ(its.queries[1].names[0], "-e");
    EXPECT_FALSE(its.isWhole);
    HelpScreen screen;
    screen.options = {{"-q", "--quick", ""}};
    EXPECT_TRUE(ofScreen(read, screen).tools.empty());
    EXPECT_TRUE(ofScreen(read, screen).queries.empty());
}

TEST(Observation, StopsAtOtherTexts) {
    EXPECT_TRUE(readReport("").tools.empty() && readReport("").isWhole && readReport(report).isWhole);
    const std::vector<std::string> wrong{"x",
                                         ":",
                                         "1",
                                         "1:",
                                         "2:a",
                                         "0:",
                                         "-1:",
                                         "99999999999999999999999999999999999999:x",
                                         event({}),
                                         event({""}),
                                         event({"other"}),
                                         event({"tool"}),
                                         event({"process"}),
                                         event({"verbose", "2"}),
                                         event({"tool", "1", "full", "own", ""}),
                                         field("4:tool1:1"),
                                         field("4:toolx")};
    for (const std::string& text : wrong) {
        EXPECT_EQ(readReport(std::string(report).append(text).append(report)).tools.size(), 1U) << text;
        EXPECT_FALSE(readReport(report + text).isWhole) << text;
        EXPECT_TRUE(readReport(text + report).tools.empty()) << text;
    }
    for (std::size_t size = 1; size < report.size(); ++size) {
        EXPECT_LE(readReport(report.substr(0, size)).tools.size(), 1U);
    }
}

}  // namespace
