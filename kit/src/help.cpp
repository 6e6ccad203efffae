#include "help.h"

#include <kelplib/CommandLineTool.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <stdexcept>

#include "ascii_case.h"

namespace Kelpkit {

namespace {

bool isAnyOf(std::string_view token, std::initializer_list<std::string_view> forms) {
    return std::any_of(forms.begin(), forms.end(),
                       [token](std::string_view form) { return equalIgnoringCase(token, form); });
}

/// Whether a token after the program path is one of these.
bool hasToken(int argc, char** argv, std::initializer_list<std::string_view> forms) {
    for (int i = 1; i < argc && argv[i] != nullptr; ++i) {
        if (isAnyOf(argv[i], forms)) {
            return true;
        }
    }
    return false;
}

/// Whether the library finds the name of the tool in the program path. It throws for paths such as C:\ab, takes a path that
/// begins with "-" for a flag, and names a tool "bin/" if the path is that of a folder.
bool hasName(std::string path) {
    if (path.empty() || path.front() == '-' || path.back() == '/') {
        return false;
    }
    std::array<char*, 1> argv{path.data()};
    try {
        return !CommandLineTool(1, argv.data(), "").getToolName().empty();
    } catch (const std::out_of_range&) {
        return false;
    }
}

}  // namespace

std::string usageOf(const Definition& definition) {
    const bool isMade = definition.usage.empty() && definition.optionalArguments > 0;
    return isMade ? usageFrom(definition.arguments, definition.optionalArguments) : definition.usage;
}

bool asksForHelp(int argc, char** argv) {
    return hasToken(argc, argv, {"-h", "--help", "/h", "/help", "/?"});
}

bool asksForVersion(const Definition& definition, int argc, char** argv) {
    constexpr std::string_view longForm = "--version";
    const auto isGiven = [&](const Kelp::Option& option) {
        return equalIgnoringCase(option.longFlag, longForm) && !option.shortFlag.empty() &&
               hasToken(argc, argv, {option.shortFlag});
    };
    const std::vector<Kelp::Option>& options = definition.options;
    return !definition.version.empty() &&
           (hasToken(argc, argv, {longForm}) || std::any_of(options.begin(), options.end(), isGiven));
}

void showHelp(const Definition& definition, const std::string& programPath) {
    std::string path = hasName(programPath) ? programPath : definition.name;
    // "." passes the library's check of the input file unopened.
    std::string file = ".";
    std::array<char*, 2> tokens{path.data(), file.data()};
    std::vector<Kelp::Option> options = definition.options;
    std::vector<Kelp::Argument> arguments = definition.arguments;
    const CommandLineTool tool(static_cast<int>(tokens.size()), tokens.data(), definition.description,
                               usageOf(definition), definition.example, definition.banner, options, arguments);
    tool.printUsage();
}

}  // namespace Kelpkit
