#include <kelpkit/CommandLine.h>
#include <kelplib/FilePath.h>

namespace Kelpkit {

namespace {

bool isDelimiter(char character) {
    return character == '/' || character == '\\';
}

/// Whether a FilePath would be empty, because it takes the text for absolute and finds no folder in it.
bool isDriveAndName(const std::string& text) {
    return text.find(':', 1) == 1 && text.find_first_of("/\\") == std::string::npos;
}

bool isExistingFolder(const std::string& name) {
    const auto path = readValue(name, Type<std::filesystem::path>{});
    std::error_code ignored;
    return path && std::filesystem::is_directory(path.value(), ignored);
}

/// Completes the name as a FilePath does, which throws for a single character.
std::string completed(const std::string& text) {
    FilePath path(text.size() == 1 ? "any" : text);
    if (text.size() == 1) {
        path.setName(text);
    }
    return path.filePath();
}

/// Returns why the text cannot name an output file; an empty text if it can.
std::string problemOf(const std::string& text) {
    if (!readValue(text, Type<std::filesystem::path>{})) {
        return "not " + readValue(text, Type<std::filesystem::path>{}).expectation();
    }
    if (isDriveAndName(text)) {
        return "begins like a drive; write the folder before the name";
    }
    return isDelimiter(text.back()) || isExistingFolder(completed(text)) ? "is a folder, not a file" : "";
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
