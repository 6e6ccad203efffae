#ifndef KELPLIB_TESTS_FUZZ_TOOL_INPUT_H
#define KELPLIB_TESTS_FUZZ_TOOL_INPUT_H

#include <string>

#include "check.h"
#include "fake_platform.h"
#include "input.h"
#include "start_up_model.h"

namespace fuzz {

/// Thrown where the process would end.
struct ProcessEnds {};

/// Resets the platform. The pause after the help screen, after which the process would end, throws ProcessEnds.
inline void resetPlatform() {
    fake_platform::reset();
    fake_platform::state().onSleep = [](unsigned int milliseconds) {
        expectSame("pause", milliseconds, 500U);
        throw ProcessEnds();
    };
}

/// Reads an option from "short,long,text". With fewer than two commas, the text up to the first is the short flag.
inline Kelp::Option optionOf(const std::string& text) {
    const std::size_t first = text.find(',');
    const std::size_t second = first == std::string::npos ? first : text.find(',', first + 1);
    if (second == std::string::npos) {
        return {text.substr(0, first), "", "", false};
    }
    const std::string description = text.substr(second + 1);
    return {text.substr(0, first), text.substr(first + 1, second - first - 1), description, description.empty()};
}

/// Reads the tool's options ("+short,long,text"), arguments (":name", ":name...") and tokens (any other line), up to the
/// line "then" or the end.
inline void describe(start_up_model::ToolText& tool, Input& input) {
    while (!input.isEmpty()) {
        const std::string line = input.line();
        if (line == "then") {
            return;
        }
        if (line.rfind('+', 0) == 0) {
            tool.options.push_back(optionOf(line.substr(1)));
        } else if (line.rfind(':', 0) == 0) {
            const bool repeated = line.size() > 3 && line.substr(line.size() - 3) == "...";
            tool.arguments.emplace_back(line.substr(1, line.size() - (repeated ? 4 : 1)), "text", repeated);
        } else {
            tool.tokens.push_back(untilNul(line));
        }
    }
}

}  // namespace fuzz

#endif
