#ifndef KELPLIB_TESTS_FUZZ_TOOL_MODEL_H
#define KELPLIB_TESTS_FUZZ_TOOL_MODEL_H

#include <string>
#include <vector>

#include "fake_platform.h"
#include "paths_model.h"
#include "start_up_model.h"

/// Builds the output and answers of a started tool in the simplest way. "[the end]" marks the end of the process,
/// "[out of range]" that std::out_of_range is thrown.
namespace tool_model {

using Strings = std::vector<std::string>;

struct Tool : start_up_model::ToolText {
    std::vector<Kelp::Option> given;  ///< passed to the full constructor
    bool verbose = false;
};

/// Returns a tool as its constructor leaves it.
inline Tool constructed(const start_up_model::ToolText& text) {
    Tool tool{text, {}, start_up_model::isVerbose(text)};
    if (text.full) {
        tool.given = text.options;
    }
    return tool;
}

inline std::string name(const Tool& tool) {
    std::string text;
    return start_up_model::toolName(tool, text) ? text + "\n" : "[out of range]";
}

inline std::string help(const Tool& tool) {
    std::string text;
    if (!start_up_model::toolName(tool, text)) {
        return "\x1b[36mDoes a job\x1b[0m\n\x1b[36mUsage:\x1b[0m\n  [out of range]";
    }
    return start_up_model::helpScreen(tool, text) + "[the end]";
}

inline std::string fileCheck(const Tool& tool) {
    const std::string complaint = start_up_model::fileComplaint(tool);
    return complaint.empty() ? "" : complaint + start_up_model::usageScreen(tool);
}

inline std::string helpCheck(const Tool& tool) {
    return start_up_model::asksForHelp(tool) ? start_up_model::usageScreen(tool) : "";
}

inline void verboseCheck(Tool& tool) {
    tool.verbose = tool.verbose || start_up_model::isVerbose(tool);
}

inline std::string flagCheck(const Tool& tool) {
    const std::string flag = start_up_model::invalidFlag(tool);
    return flag.empty() ? "" : "Invalid flag " + flag + ". List of valid flags: \n" + start_up_model::usageScreen(tool);
}

inline std::string init(Tool& tool, const Strings& tokens, bool noFileCheck) {
    std::string objection = noFileCheck || fileCheck(tool).empty() ? helpCheck(tool) : fileCheck(tool);
    if (!objection.empty()) {
        return objection;
    }
    if (tokens.size() > 1) {
        tool.tokens = tokens;
        tool.verbose = false;
    }
    verboseCheck(tool);
    return flagCheck(tool);
}

inline std::string firstArgument(const Tool& tool, int start) {
    int position = 0;
    const Strings found = option_reader_model::arguments(tool.tokens, start, position);
    return std::to_string(position) + ":" + (found.empty() ? "before" : found.front()) + "\n";
}

/// Returns each text on a line, then their number.
inline std::string listed(const Strings& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += "[" + text + "]\n";
    }
    return all + std::to_string(texts.size()) + "\n";
}

inline std::string arguments(const Tool& tool, int start) {
    int position = 0;
    return listed(option_reader_model::arguments(tool.tokens, start, position));
}

inline std::string options(const std::vector<Kelp::Option>& records) {
    Strings texts;
    for (const Kelp::Option& option : records) {
        texts.push_back(option.shortFlag + "|" + option.longFlag + "|" + option.description +
                        (option.marker ? "|marked" : "|"));
    }
    return listed(texts);
}

/// Returns the values of "-o" on the command line. Sets complaint to the error that no such option is registered, or empty.
inline Strings outputNames(const Tool& tool, std::string& complaint) {
    Strings names;
    complaint = "ERROR: no argument found: -o\n";
    for (const Kelp::Option& option : start_up_model::registered(tool)) {
        if (plainLower(option.shortFlag) == "-o") {
            complaint.clear();
            option_reader_model::Found found{0, ""};
            do {
                found = option_reader_model::value(tool.tokens, {option.shortFlag, fuzz::untilNul(option.longFlag)},
                                                   found.first);
                if (found.first != 0) {
                    names.push_back(found.second);
                }
            } while (found.first != 0);
        }
    }
    return names;
}

/// Returns the paths of the output files up to the first that throws.
inline std::string outputFiles(const Tool& tool) {
    std::string text;
    Strings files;
    for (const std::string& outputName : outputNames(tool, text)) {
        if (paths_model::absolute(outputName) == "out of range") {
            return listed(files) + "[out of range]";
        }
        const auto path = paths_model::modelOf(outputName, fake_platform::state().directory);
        files.push_back(path.folder + "|" + path.name);
    }
    return text + listed(files);
}

inline std::string outputFile(const Tool& tool) {
    std::string complaint;
    paths_model::Model path{"", "before"};
    const Strings names = outputNames(tool, complaint);
    for (const std::string& outputName : names) {
        if (paths_model::absolute(outputName) == "out of range") {
            return "[out of range]";
        }
    }
    if (!names.empty()) {
        path = paths_model::modelOf(names.front(), fake_platform::state().directory);
    }
    return complaint + path.folder + "|" + path.name + (names.empty() ? " no\n" : " yes\n");
}

}  // namespace tool_model

#endif
