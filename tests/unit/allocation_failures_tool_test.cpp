// Every allocation of every public entry point fails once: the tool.
#include <kelplib/CommandLineTool.h>

#include <functional>

#include "arguments.h"
#include "failing_allocations.h"
#include "fake_platform.h"

namespace {

using failing_allocations::failEach;

const std::string longText(50, 'x');

Arguments& line() {
    static Arguments tokens{"tool", ".", "-o=/" + longText, "--oops=/" + longText, longText, "-v", longText};
    return tokens;
}

std::vector<Kelp::Option> someOptions() {
    return {{"-o", "--output", longText, true}, {"-v", "--verbose", longText, false}, {"-" + longText, "", "", false}};
}

/// A tool of every constructor.
std::vector<std::function<std::unique_ptr<CommandLineTool>()>> constructions() {
    static std::vector<Kelp::Option> options = someOptions();
    static std::vector<Kelp::Argument> arguments{{longText, longText, true}, {"more", longText, false}};
    static Arguments small{"tool", longText};
    return {
        [] { return std::make_unique<CommandLineTool>(small.argc(), small.argv(), longText); },
        [] { return std::make_unique<CommandLineTool>(small.argc(), small.argv(), longText, options[0]); },
        [] { return std::make_unique<CommandLineTool>(small.argc(), small.argv(), longText, options[0], options[1]); },
        [] { return std::make_unique<CommandLineTool>(line().argc(), line().argv(), longText, options); },
        [] {
            return std::make_unique<CommandLineTool>(line().argc(), line().argv(), longText, longText, longText,
                                                     longText, options, arguments);
        },
    };
}

TEST(AllocationFailures, OfConstructionsLeaveNothingBehind) {
    for (const auto& construct : constructions()) {
        failEach("construction", [&] { construct(); });
    }
}

struct ScreenShown {};

/// Shows a screen that would end the process; its pause throws.
void show(CommandLineTool& tool, void (CommandLineTool::*screen)() const) {
    try {
        (tool.*screen)();
    } catch (const ScreenShown&) {
    }
}

class AllocationFailuresOfTheTool : public testing::Test {
protected:
    using Use = std::function<void(CommandLineTool&)>;

    AllocationFailuresOfTheTool() {
        fake_platform::state().rewoundLines.reserve(100000);
        fake_platform::state().sleepsMilliseconds.reserve(100000);
        fake_platform::state().onSleep = [](unsigned int milliseconds) {
            if (milliseconds == 500) {
                throw ScreenShown();
            }
        };
    }

    ~AllocationFailuresOfTheTool() override {
        fake_platform::reset();
    }

    static void fail(const char* name, const Use& use) {
        failEach(name, constructions().back(), use, [](CommandLineTool& tool) {
            std::list<std::string> arguments;
            std::vector<FilePath> files;
            return tool.hasOption("-V", 0) == 5 && tool.getArguments(arguments, 0) == 3 && tool.isVerbose() &&
                   tool.getOutFiles(files, 0) == 2 && files[1].getName() == longText && tool.getOptions().size() == 3 &&
                   tool.getToolName() == "tool";
        });
    }
};

TEST_F(AllocationFailuresOfTheTool, LeaveItUsableAfterChanges) {
    fail("init", [](CommandLineTool& tool) { tool.init(line().argc(), line().argv(), false); });
    fail("registerOption", [](CommandLineTool& tool) {
        tool.registerOption({"-n" + longText, longText, longText, true});
    });
    fail("registerOptions", [](CommandLineTool& tool) {
        std::vector<Kelp::Option> more{{"-a" + longText, "", "", true}, {"-b" + longText, "", "", true}};
        tool.registerOptions(more);
    });
    fail("addExampleText", [](CommandLineTool& tool) { tool.addExampleText(longText + longText); });
    fail("print", [](CommandLineTool& tool) { tool.print(longText); });
}

TEST_F(AllocationFailuresOfTheTool, LeaveItUsableAfterScreens) {
    fail("printHeader", [](CommandLineTool& tool) { tool.printHeader(); });
    fail("help", [](CommandLineTool& tool) { show(tool, &CommandLineTool::help); });
    fail("printUsage", [](CommandLineTool& tool) { show(tool, &CommandLineTool::printUsage); });
}

TEST_F(AllocationFailuresOfTheTool, LeaveItUsableAfterQuestions) {
    fail("hasOption", [](CommandLineTool& tool) { tool.hasOption("-" + longText, 0); });
    fail("getFirstArgument", [](CommandLineTool& tool) {
        std::string argument;
        tool.getFirstArgument(argument, 2);
    });
    fail("getArguments", [](CommandLineTool& tool) {
        std::vector<std::string> arguments;
        tool.getArguments(arguments, 0);
    });
    fail("getArguments as a list", [](CommandLineTool& tool) {
        std::list<std::string> arguments;
        tool.getArguments(arguments, 0);
    });
    fail("getOptions", [](CommandLineTool& tool) { tool.getOptions(); });
    fail("getOutFiles", [](CommandLineTool& tool) {
        std::vector<FilePath> files;
        tool.getOutFiles(files, 0);
    });
    fail("getOutFile", [](CommandLineTool& tool) {
        FilePath file;
        tool.getOutFile(file);
    });
    fail("progress", [](CommandLineTool& tool) {
        tool.initProgress(10.0, longText, 20);
        tool.progress(1.0, longText, 20);
    });
}

}  // namespace
