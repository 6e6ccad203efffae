#ifndef KELPLIB_TESTS_FUZZ_TOOL_CALLS_H
#define KELPLIB_TESTS_FUZZ_TOOL_CALLS_H

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <sstream>

#include "arguments.h"
#include "check.h"
#include "input.h"
#include "tool_input.h"
#include "tool_model.h"

/// The calls of a started tool: each prints its answers, and a second function returns the expected output.
namespace tool_calls {

using tool_model::Tool;

struct Call {
    std::string word;
    int number = 0;
    std::string text;

    /// Returns the words of the text as a command line.
    std::vector<std::string> tokens() const {
        std::istringstream stream(fuzz::untilNul(text));
        return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
    }

    bool opensFile() const {
        return word == "check-file" || (word == "init" && !noFileCheck());
    }

    /// Returns the argument for init.
    bool noFileCheck() const {
        return number == 0;
    }
};

inline Call callOf(const std::string& line) {
    const std::size_t first = std::min(line.find(' '), line.size());
    const std::size_t second = std::min(line.find(' ', first + 1), line.size());
    Call call{line.substr(0, first), 0, second < line.size() ? line.substr(second + 1) : ""};
    const long number = std::strtol(line.substr(first, second - first).c_str(), nullptr, 10);
    call.number = static_cast<int>(std::clamp<long>(number, INT_MIN, INT_MAX));
    return call;
}

inline void init(CommandLineTool& tool, const Call& call) {
    Arguments line(call.tokens());
    tool.init(line.argc(), line.argv(), call.noFileCheck());
}

inline void registerBoth(CommandLineTool& tool, const Kelp::Option& option) {
    std::vector<Kelp::Option> both{option, Kelp::Option(option.longFlag, option.shortFlag, "mirrored", true)};
    tool.registerOptions(both);
}

inline void expectBothRegistered(Tool& model, const Kelp::Option& option) {
    model.options.push_back(option);
    model.options.emplace_back(option.longFlag, option.shortFlag, "mirrored", true);
}

inline void firstArgument(const CommandLineTool& tool, const Call& call) {
    std::string text = "before";
    const int position = tool.getFirstArgument(text, call.number);
    std::cout << position << ":" << text << "\n";
}

/// Calls both forms; only the first prints a trace.
inline void arguments(const CommandLineTool& tool, const Call& call) {
    std::vector<std::string> texts{"before"};
    const int count = tool.getArguments(texts, call.number);
    fuzz::expectSame("getArguments", static_cast<std::size_t>(count), texts.size());
    std::list<std::string> list{"before"};
    fuzz::expectSame("getArguments of a list", tool.getArguments(list, call.number), count);
    std::cout << tool_model::listed(texts) << tool_model::listed({list.begin(), list.end()});
}

inline void outputFiles(CommandLineTool& tool, const Call& call) {
    std::vector<FilePath> files{FilePath()};
    const auto show = [&] {
        std::vector<std::string> texts;
        texts.reserve(files.size());
        for (const FilePath& file : files) {
            texts.push_back(file.getPath() + "|" + file.getName());
        }
        std::cout << tool_model::listed(texts);
    };
    try {
        const int count = tool.getOutFiles(files, call.number);
        fuzz::expectSame("getOutFiles", static_cast<std::size_t>(count), files.size());
    } catch (const std::out_of_range&) {
        show();
        throw;
    }
    show();
}

inline void outputFile(CommandLineTool& tool) {
    FilePath file;
    file.setName("before");
    const bool found = tool.getOutFile(file);
    std::cout << file.getPath() << "|" << file.getName() << (found ? " yes\n" : " no\n");
}

/// Calls functions that change nothing and always return the same.
inline void idle(CommandLineTool& tool) {
    int argc = 7;
    char** argv = nullptr;
    tool.addCommonOptions();
    tool.readArgvFromFile(argc, argv);
    std::cout << argc << (argv == nullptr) << tool.checkSpace(FilePath()) << "\n";
}

struct Step {
    const char* word;
    void (*run)(CommandLineTool& tool, const Call& call);
    std::string (*expected)(Tool& model, const Call& call);
};

using fuzz::optionOf;
using Text = std::string;

inline constexpr Step steps[] = {
    {"register", [](CommandLineTool& tool, const Call& call) { tool.registerOption(optionOf(call.text)); },
     [](Tool& model, const Call& call) {
         model.options.push_back(optionOf(call.text));
         return Text();
     }},
    {"both", [](CommandLineTool& tool, const Call& call) { registerBoth(tool, optionOf(call.text)); },
     [](Tool& model, const Call& call) {
         expectBothRegistered(model, optionOf(call.text));
         return Text();
     }},
    {"has",
     [](CommandLineTool& tool, const Call& call) { std::cout << tool.hasOption(call.text, call.number) << "\n"; },
     [](Tool& model, const Call& call) {
         return std::to_string(start_up_model::hasOption(model, call.text, call.number)) + "\n";
     }},
    {"first", [](CommandLineTool& tool, const Call& call) { firstArgument(tool, call); },
     [](Tool& model, const Call& call) { return tool_model::firstArgument(model, call.number); }},
    {"arguments", [](CommandLineTool& tool, const Call& call) { arguments(tool, call); },
     [](Tool& model, const Call& call) {
         const std::string list = tool_model::arguments(model, call.number);
         return (model.verbose ? "getFiles()\n" : "") + list + list;
     }},
    {"files", outputFiles, [](Tool& model, const Call&) { return tool_model::outputFiles(model); }},
    {"file", [](CommandLineTool& tool, const Call&) { outputFile(tool); },
     [](Tool& model, const Call&) { return tool_model::outputFile(model); }},
    {"options", [](CommandLineTool& tool, const Call&) { std::cout << tool_model::options(tool.getOptions()); },
     [](Tool& model, const Call&) { return tool_model::options(model.given); }},
    {"print", [](CommandLineTool& tool, const Call& call) { tool.print(call.text); },
     [](Tool& model, const Call& call) { return model.verbose ? call.text + "\n" : ""; }},
    {"verbose", [](CommandLineTool& tool, const Call&) { std::cout << tool.isVerbose() << "\n"; },
     [](Tool& model, const Call&) { return Text(model.verbose ? "1\n" : "0\n"); }},
    {"name", [](CommandLineTool& tool, const Call&) { std::cout << tool.getToolName() << "\n"; },
     [](Tool& model, const Call&) { return tool_model::name(model); }},
    {"example", [](CommandLineTool& tool, const Call& call) { tool.addExampleText(call.text); },
     [](Tool& model, const Call& call) {
         model.example = call.text;
         return Text();
     }},
    {"idle", [](CommandLineTool& tool, const Call&) { idle(tool); }, [](Tool&, const Call&) { return Text("711\n"); }},
    {"banner", [](CommandLineTool& tool, const Call&) { tool.printHeader(); },
     [](Tool& model, const Call&) { return start_up_model::banner(model); }},
    {"help", [](CommandLineTool& tool, const Call&) { tool.help(); },
     [](Tool& model, const Call&) { return tool_model::help(model); }},
    {"usage", [](CommandLineTool& tool, const Call&) { tool.printUsage(); },
     [](Tool& model, const Call&) { return start_up_model::usageScreen(model); }},
    {"check-file", [](CommandLineTool& tool, const Call&) { tool.checkMandatoryArgs(); },
     [](Tool& model, const Call&) { return tool_model::fileCheck(model); }},
    {"check-help", [](CommandLineTool& tool, const Call&) { tool.checkForHelp(); },
     [](Tool& model, const Call&) { return tool_model::helpCheck(model); }},
    {"check-verbose", [](CommandLineTool& tool, const Call&) { tool.checkForVerbose(); },
     [](Tool& model, const Call&) {
         tool_model::verboseCheck(model);
         return Text();
     }},
    {"check-flags", [](CommandLineTool& tool, const Call&) { tool.checkForInvalidFlags(); },
     [](Tool& model, const Call&) { return tool_model::flagCheck(model); }},
    {"init", init,
     [](Tool& model, const Call& call) { return tool_model::init(model, call.tokens(), call.noFileCheck()); }},
};

}  // namespace tool_calls

#endif
