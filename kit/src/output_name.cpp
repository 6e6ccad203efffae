#include "output_name.h"

#include <kelpkit/CommandLine.h>

namespace Kelpkit {

namespace {

bool isExistingFolder(const std::string& name) {
    const auto path = readValue(name, Type<std::filesystem::path>{});
    std::error_code ignored;
    return path && std::filesystem::is_directory(path.value(), ignored);
}

/// Returns why the text cannot name an output file; an empty text if it can.
std::string problemOf(const std::string& text) {
    const auto path = readValue(text, Type<std::filesystem::path>{});
    if (!path) {
        return "not " + path.expectation();
    }
    std::string problem = problemOfForm(text);
    if (problem.empty() && isExistingFolder(completed(text))) {
        problem = folderProblem;
    }
    return problem;
}

}  // namespace

std::optional<std::string> CommandLine::outputFile(std::string_view flag) const {
    const Given* const given = findValue(flag);
    if (given == nullptr) {
        return std::nullopt;
    }
    const std::string problem = problemOf(given->value);
    if (!problem.empty()) {
        refuse(*given, problem);
    }
    return completed(given->value);
}

}  // namespace Kelpkit
