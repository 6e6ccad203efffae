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

bool isKnownSwitch(const Kelp::Option& option) {
    const auto is = [&option](std::string_view shortForm, std::string_view longForm) {
        return equalIgnoringCase(option.shortFlag, shortForm) && equalIgnoringCase(option.longFlag, longForm);
    };
    return option.marker == isSwitch && (is("-h", "--help") || is("-v", "--verbose"));
}

/// Returns "NUMBER" for --number, and "VALUE" if a long form would look like something else in a usage line.
std::string valueName(const std::string& longForm) {
    constexpr std::size_t dashes = 2;
    std::string name = longForm.substr(std::min(dashes, longForm.size()));
    for (char& character : name) {
        const bool isLower = character >= 'a' && character <= 'z';
        character = static_cast<char>(isLower ? character - 'a' + 'A' : character);
    }
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_";
    if (name.empty() || name.find_first_not_of(plain) != std::string::npos) {
        return "VALUE";
    }
    return name;
}

/// Returns the options but for the known switches: "[-n=NUMBER] [-f]".
std::string shownOptions(const std::vector<Kelp::Option>& options) {
    std::string text;
    for (const Kelp::Option& option : options) {
        if (isKnownSwitch(option)) {
            continue;
        }
        text += (text.empty() ? "[" : " [") + option.shortFlag;
        if (option.marker == takesValue) {
            text += "=" + valueName(option.longFlag);
        }
        text += "]";
    }
    return text;
}

/// Returns the names of the arguments, the last `optional` of which may be missing: " FIRST [OTHER...]".
std::string shownArguments(const std::vector<Kelp::Argument>& arguments, std::size_t optional) {
    std::string text;
    const std::size_t required = arguments.size() - std::min(optional, arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string name = arguments[i].name + (arguments[i].repeated ? "..." : "");
        text += i < required ? " " + name : " [" + name + "]";
    }
    return text;
}

}  // namespace

std::size_t lengthOf(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char each) { return (static_cast<unsigned char>(each) & 0xC0U) != 0x80U; }));
}

std::string usageOf(const Definition& definition) {
    if (!definition.usage.empty()) {
        return definition.usage;
    }
    const std::string options = shownOptions(definition.options);
    const std::string arguments = shownArguments(definition.arguments, definition.optionalArguments);
    const bool fits = lengthOf("  " + definition.name + " " + options + arguments) <= screenWidth;
    return (fits && !options.empty() ? options.c_str() : "[OPTIONS]") + arguments;
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
