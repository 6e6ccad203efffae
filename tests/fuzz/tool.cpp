// Constructs a tool and calls it. Input lines: the constructor ("none", "one", "two" or "list" for the short ones; "full",
// or "usage" for a custom usage text), lines as start_up reads them after its first, "then", and calls: "WORD NUMBER TEXT"
// (tool_calls.h). Output and answers are compared as one text.
#include <memory>
#include <stdexcept>

#include "captured_output.h"
#include "fake_platform.h"
#include "target.h"
#include "tool_calls.h"

namespace {

using tool_model::Tool;
using Calls = std::vector<tool_calls::Call>;

constexpr char theEnd[] = "[the end]";

start_up_model::ToolText toolTextOf(fuzz::Input& input, std::string& kind) {
    start_up_model::ToolText text;
    kind = input.line();
    text.full = kind == "full" || kind == "usage";
    text.usage = kind == "usage" ? "[WORDS] FILE" : "";
    text.example = text.full ? "-o=b a" : "";
    fuzz::describe(text, input);
    const Kelp::Option none("", "", "", false);
    if (kind == "one" || kind == "two") {
        text.options.resize(kind == "one" ? 1 : 2, none);
    } else if (kind != "list" && !text.full) {
        text.options.clear();
    }
    return text;
}

Calls callsOf(fuzz::Input& input) {
    Calls calls;
    while (!input.isEmpty()) {
        calls.push_back(tool_calls::callOf(input.line()));
    }
    return calls;
}

const tool_calls::Step* stepOf(const tool_calls::Call& call) {
    const auto* const found = std::find_if(std::begin(tool_calls::steps), std::end(tool_calls::steps),
                                           [&](const tool_calls::Step& step) { return step.word == call.word; });
    return found == std::end(tool_calls::steps) ? nullptr : found;
}

/// Returns the expected output. Removes calls after the end, unknown ones, and those that would open files elsewhere.
std::string expected(const start_up_model::ToolText& text, Calls& calls) {
    std::string screen = start_up_model::screen(text);
    if (screen != "[running]") {
        calls.clear();
        return screen;
    }
    Tool model = tool_model::constructed(text);
    std::string all;
    Calls made;
    for (const tool_calls::Call& call : calls) {
        const bool elsewhere = call.opensFile() && start_up_model::namesFileElsewhere(model);
        if (stepOf(call) != nullptr && !elsewhere) {
            made.push_back(call);
            const std::string answer = stepOf(call)->expected(model, call);
            all += answer;
            if (answer.size() >= sizeof theEnd - 1 && answer.substr(answer.size() - (sizeof theEnd - 1)) == theEnd) {
                break;
            }
        }
    }
    calls = made;
    return all;
}

std::unique_ptr<CommandLineTool> construct(const std::string& kind, start_up_model::ToolText& text) {
    Arguments line(text.tokens);
    const std::string about = "Does a job";
    if (text.full) {
        return std::make_unique<CommandLineTool>(line.argc(), line.argv(), about, text.usage, text.example,
                                                 "Made for tests", text.options, text.arguments);
    }
    if (kind == "one") {
        return std::make_unique<CommandLineTool>(line.argc(), line.argv(), about, text.options[0]);
    }
    if (kind == "two") {
        return std::make_unique<CommandLineTool>(line.argc(), line.argv(), about, text.options[0], text.options[1]);
    }
    if (kind == "list") {
        return std::make_unique<CommandLineTool>(line.argc(), line.argv(), about, text.options);
    }
    return std::make_unique<CommandLineTool>(line.argc(), line.argv(), about);
}

void make(CommandLineTool& tool, const tool_calls::Call& call) {
    try {
        stepOf(call)->run(tool, call);
    } catch (const std::out_of_range&) {
        std::cout << "[out of range]";
    }
}

/// Returns the output.
std::string run(const std::string& kind, start_up_model::ToolText& text, const Calls& calls) {
    const CapturedOutput output;
    try {
        const auto tool = construct(kind, text);
        for (const tool_calls::Call& call : calls) {
            make(*tool, call);
        }
    } catch (const fuzz::ProcessEnds&) {
        std::cout << theEnd;
    } catch (const std::out_of_range&) {
        std::cout << "[out of range]";
    }
    return output.text();
}

}  // namespace

void fuzz::tool(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    std::string kind;
    start_up_model::ToolText text = toolTextOf(input, kind);
    if (start_up_model::opensAFileElsewhere(text)) {
        return;
    }
    resetPlatform();
    Calls calls = callsOf(input);
    const std::string screen = expected(text, calls);
    expectSame("screen", run(kind, text, calls), screen);
    fake_platform::reset();
}
