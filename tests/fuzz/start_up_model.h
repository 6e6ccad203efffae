#ifndef KELPLIB_TESTS_FUZZ_START_UP_MODEL_H
#define KELPLIB_TESTS_FUZZ_START_UP_MODEL_H

#include <kelplib/CommandLineTool.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "input.h"
#include "option_reader_model.h"

/// Builds the output of a starting tool, and how the start ends, in the simplest way.
namespace start_up_model {

using option_reader_model::Names;

/// A tool's description and its command line.
struct ToolText {
    bool full = false;
    std::string usage;
    std::string example;
    std::vector<Kelp::Option> options;
    std::vector<Kelp::Argument> arguments;
    std::vector<std::string> tokens;
};

/// Sets name to the program path after its last backslash, without ".exe". Without a backslash, name is the whole path.
/// \returns false if that part is shorter than ".exe"; the tool then throws std::out_of_range
inline bool toolName(const ToolText& tool, std::string& name) {
    name = tool.tokens.empty() ? "" : tool.tokens[0];
    const std::size_t backslash = name.rfind('\\');
    if (backslash == std::string::npos) {
        return true;
    }
    name = name.substr(backslash + 1);
    if (name.size() < 4) {
        return false;
    }
    if (plainLower(name.substr(name.size() - 4)) == ".exe") {
        name.resize(name.size() - 4);
    }
    return true;
}

/// Returns the registered options: the first with each short flag, sorted by it, ignoring case.
inline std::vector<Kelp::Option> registered(const ToolText& tool) {
    std::vector<Kelp::Option> options;
    for (const Kelp::Option& option : tool.options) {
        const auto same = [&](const Kelp::Option& other) {
            return plainLower(other.shortFlag) == plainLower(option.shortFlag);
        };
        if (std::none_of(options.begin(), options.end(), same)) {
            options.push_back(option);
        }
    }
    std::sort(options.begin(), options.end(), [](const Kelp::Option& left, const Kelp::Option& right) {
        return plainLower(left.shortFlag) < plainLower(right.shortFlag);
    });
    return options;
}

/// Returns the usage line of a tool that does not define one.
inline std::string madeUsage(const ToolText& tool) {
    std::string text = "[OPTIONS] ";
    for (const Kelp::Argument& argument : tool.full ? tool.arguments : std::vector<Kelp::Argument>()) {
        text += argument.name + (argument.repeated ? "... " : " ");
    }
    return text;
}

inline std::string helpScreen(const ToolText& tool, const std::string& name) {
    std::string text = "\x1b[36mDoes a job\x1b[0m\n\x1b[36mUsage:\x1b[0m\n  " + name + " ";
    text += tool.usage.empty() ? madeUsage(tool) : tool.usage;
    text += "\n\n\x1b[36mOptions:\x1b[0m\n";
    for (const Kelp::Option& option : registered(tool)) {
        text += "  \x1b[34m" + option.shortFlag + ", " + option.longFlag + ":\x1b[0m " + option.description + "\n\n";
    }
    text += "\n\x1b[36mArguments:\x1b[0m\n";
    for (const Kelp::Argument& argument : tool.full ? tool.arguments : std::vector<Kelp::Argument>()) {
        text += "  \x1b[34m" + argument.name + ":\x1b[0m text\n\n";
    }
    return text + "\n\x1b[36mExample:\x1b[0m\n  \x1b[34m" + name + "\x1b[0m " + tool.example + "\n";
}

/// Ends early if the program path has no tool name.
inline std::string banner(const ToolText& tool) {
    const std::string rule = "\x1b[34m####################################\x1b[0m\n";
    std::string name;
    if (!toolName(tool, name)) {
        return "\n" + rule + "[out of range]";
    }
    const std::string header =
        tool.full ? "Made for tests" : "     Copyright (c) 2026 The kelplib authors, MIT licence";
    return "\n" + rule + "\x1b[37m\t" + name + "\x1b[0m\n\x1b[37m" + header + "\x1b[0m\n" + rule + "\n";
}

/// Returns banner, help screen and end mark. Ends inside the banner if the program path has no tool name.
inline std::string usageScreen(const ToolText& tool) {
    std::string name;
    return toolName(tool, name) ? banner(tool) + helpScreen(tool, name) + "[the end]" : banner(tool);
}

inline bool has(const ToolText& tool, const char* longFlag, const char* shortFlag) {
    return option_reader_model::option(tool.tokens, {shortFlag, longFlag}, 0).first != 0;
}

inline bool asksForHelp(const ToolText& tool) {
    return has(tool, "--help", "-h") || has(tool, "/help", "/h") || has(tool, "/?", "/?");
}

inline bool isVerbose(const ToolText& tool) {
    return has(tool, "--verbose", "-v");
}

inline int hasOption(const ToolText& tool, const std::string& shortFlag, int start) {
    for (const Kelp::Option& option : registered(tool)) {
        if (plainLower(option.shortFlag) == plainLower(shortFlag)) {
            // Tokens are C strings, so names count up to their first NUL.
            return option_reader_model::option(
                       tool.tokens, {fuzz::untilNul(option.shortFlag), fuzz::untilNul(option.longFlag)}, start)
                .first;
        }
    }
    return 0;
}

inline std::string firstArgument(const ToolText& tool, bool& found) {
    int position = 0;
    const std::vector<std::string> arguments = option_reader_model::arguments(tool.tokens, 0, position);
    found = !arguments.empty();
    return found ? arguments.front() : "";
}

/// Returns whether the first argument names a file in another folder. Opening one might block or have side effects.
inline bool namesFileElsewhere(const ToolText& tool) {
    bool found = false;
    return firstArgument(tool, found).find_first_of("/\\:") != std::string::npos;
}

inline bool opensAFileElsewhere(const ToolText& tool) {
    return tool.full && namesFileElsewhere(tool);
}

/// Returns the output of the file check, empty if the check passes.
inline std::string fileComplaint(const ToolText& tool) {
    bool found = false;
    const std::string name = firstArgument(tool, found);
    if (!found) {
        return "\n\x1b[31mFile missing, please insert the name of the file.\x1b[0m\n\n";
    }
    if (name == "." || name.find('*') != std::string::npos) {
        return "";
    }
    std::FILE* const file = std::fopen(name.c_str(), "r");
    const bool opened = file != nullptr && std::fclose(file) == 0;
    return opened ? "" : "File " + name + " doesn't exist. Please insert a valid file name.\n";
}

/// Returns the key of the first flag that no option has, empty if there is none.
inline std::string invalidFlag(const ToolText& tool) {
    for (const std::string& token : tool.tokens) {
        std::string key = token.size() < 2 ? token : token.substr(0, 2);
        if (key == "--") {
            key = std::string("-") + (token.size() > 2 ? token[2] : '\0');
        }
        const auto accepts = [&](const Kelp::Option& option) {
            return plainLower(option.shortFlag) == plainLower(key);
        };
        if (token.rfind('-', 0) == 0 && std::none_of(tool.options.begin(), tool.options.end(), accepts)) {
            return key;
        }
    }
    return "";
}

inline std::string screen(const ToolText& tool) {
    if (tool.full && !fileComplaint(tool).empty()) {
        return fileComplaint(tool) + usageScreen(tool);
    }
    if (asksForHelp(tool)) {
        return usageScreen(tool);
    }
    const std::string flag = invalidFlag(tool);
    return flag.empty() ? "[running]" : "Invalid flag " + flag + ". List of valid flags: \n" + usageScreen(tool);
}

}  // namespace start_up_model

#endif
