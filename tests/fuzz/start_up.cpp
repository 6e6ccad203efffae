// Starts a tool. Input lines: "full", or anything else for the short constructor; its options ("+short,long,text"), its
// arguments (":name", ":name..."), then the tokens. The whole output is compared. The pause of the help screen, after which
// the process would end, throws instead.
#include "arguments.h"
#include "captured_output.h"
#include "check.h"
#include "fake_platform.h"
#include "input.h"
#include "start_up_model.h"
#include "target.h"
#include "tool_input.h"

namespace {

using fuzz::expectSame;

/// Compares the answers of a tool that has started.
void compareTool(const CommandLineTool& tool, const start_up_model::ToolText& text) {
    expectSame("isVerbose", tool.isVerbose(), start_up_model::isVerbose(text));
    for (const Kelp::Option& option : text.options) {
        expectSame("hasOption", tool.hasOption(option.shortFlag, 0),
                   start_up_model::hasOption(text, option.shortFlag, 0));
    }
    std::list<std::string> arguments;
    tool.getArguments(arguments, 0);
    int position = 0;
    expectSame("getArguments", std::vector<std::string>(arguments.begin(), arguments.end()),
               option_reader_model::arguments(text.tokens, 0, position));
}

void start(start_up_model::ToolText& text) {
    Arguments line(text.tokens);
    if (text.full) {
        const CommandLineTool tool(line.argc(), line.argv(), "Does a job", "", text.example, "Made for tests",
                                   text.options, text.arguments);
        expectSame("getOptions", tool.getOptions().size(), text.options.size());
        compareTool(tool, text);
    } else {
        const CommandLineTool tool(line.argc(), line.argv(), "Does a job", text.options);
        compareTool(tool, text);
    }
}

/// Returns the output, and how it ends.
std::string run(start_up_model::ToolText& text) {
    const CapturedOutput output;
    std::string end = "[running]";
    try {
        start(text);
    } catch (const fuzz::ProcessEnds&) {
        end = "[the end]";
    } catch (const std::out_of_range&) {
        end = "[out of range]";
    }
    return output.text() + end;
}

}  // namespace

void fuzz::start_up(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    start_up_model::ToolText text;
    text.full = input.line() == "full";
    text.example = text.full ? "-o=b a" : "";
    describe(text, input);
    if (start_up_model::opensAFileElsewhere(text)) {
        return;
    }
    resetPlatform();
    expectSame("screen", run(text), start_up_model::screen(text));
    fake_platform::reset();
}
