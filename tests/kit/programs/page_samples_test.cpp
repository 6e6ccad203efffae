#include "page_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>

#include "checked_tool.h"
#include "screen_source.h"

namespace {

using namespace Kelpkit::programs;
using page_samples::Definition;

/// Returns the help screen of a tool without the kit.
/// \param end  of the usage line that is made of the arguments: a blank by the library, nothing by the kit
HelpScreen screenOf(const Definition& tool, const std::string& end) {
    HelpScreen screen{tool.name, tool.banner, tool.description, tool.usage, {}, {}, tool.example};
    for (const Kelp::Option& option : tool.options) {
        screen.options.push_back({option.shortFlag, option.longFlag, option.description});
    }
    std::string usage = "[OPTIONS]";
    for (const Kelp::Argument& argument : tool.arguments) {
        screen.arguments.push_back({argument.name, argument.description});
        usage += " " + argument.name + (argument.repeated ? "..." : "");
    }
    screen.usage = tool.usage.empty() ? usage + end : tool.usage;
    return screen;
}

/// Returns what kelp-check, which knows nothing of the kit, finds instead of what report() does.
std::string expected(const std::string& rule, const std::string& reported) {
    if (rule == "version-letter") {
        return "";  // A tool of the kit may answer --version, so the screen alone does not tell.
    }
    if (rule == "short-name") {
        return lineOf(Kelpkit::rules::Finding{Kelpkit::rules::Id::shortName, "cmp"}) + "\n";
    }
    return rule == "long-letter" ? "error" + reported.substr(reported.find(' ')) : reported;
}

/// Returns the findings of kelp-check for a saved screen, but for what only a definition says.
std::string findings(const Definition& tool, const std::string& end = " ") {
    const std::string file = testing::TempDir() + "kelp_page_sample_" + std::to_string(std::random_device()());
    std::ofstream(file, std::ios::binary) << render(screenOf(tool, end));
    const HelpScreen screen = readScreen(file, true, std::nullopt);
    std::filesystem::remove(file);
    std::string text;
    for (const Kelpkit::rules::Finding& finding : Kelpkit::rules::check(checkedTool(screen, {}, nullptr))) {
        text += finding.rule == Kelpkit::rules::Id::valueUnknown ? "" : lineOf(finding) + "\n";
    }
    return text;
}

TEST(KelpCheck, FindsInScreensWhatReportFindsInDefinitions) {
    for (const page_samples::PageSample& each : page_samples::pageSamples) {
        Definition sample = page_samples::pageTool.second;
        each.sample(sample);
        EXPECT_EQ(findings(sample), expected(each.rule, report(sample))) << each.rule;
        EXPECT_EQ(findings(sample, ""), findings(sample)) << each.rule;
        Definition neighbour = page_samples::pageTool.second;
        each.neighbour(neighbour);
        EXPECT_EQ(findings(neighbour), "") << each.rule;
    }
}

}  // namespace
