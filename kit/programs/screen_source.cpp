#include "screen_source.h"

#include <kelpkit/Files.h>

#include <algorithm>
#include <cerrno>
#include <fstream>

#include "ascii_case.h"
#include "tool_process.h"

namespace Kelpkit::programs {

namespace {

/// Returns the name of a program's file without its folder and ".exe".
std::string plainName(const std::string& program) {
    std::string name = pathOf(program).filename().u8string();
    const std::string extension = ".exe";
    if (name.size() > extension.size() && lowerCase(name).substr(name.size() - extension.size()) == extension) {
        name.resize(name.size() - extension.size());
    }
    return name;
}

bool isCommandName(const std::string& name) {
    const auto isPlain = [](char each) {
        return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') || (each >= '0' && each <= '9') ||
               static_cast<unsigned char>(each) >= 0x80 ||
               std::string_view("-_.+").find(each) != std::string_view::npos;
    };
    return !name.empty() && name.front() != '-' && name.front() != '.' &&
           std::all_of(name.begin(), name.end(), isPlain) && printable(name) == name;
}

void requireCommandName(const std::string& name) {
    if (!isCommandName(name)) {
        throw std::runtime_error("\"" + name + "\" is not the name of a command; -n=NAME gives another");
    }
}

/// Refuses a pipe, which may never end.
void requireFile(const std::string& name) {
    requireNoFolder(name);
    std::error_code ignored;
    if (std::filesystem::is_other(std::filesystem::status(pathOf(name), ignored))) {
        throw std::runtime_error(name + " is not a regular file");
    }
}

std::string readFile(const std::string& name) {
    requireFile(name);
    errno = 0;
    std::ifstream input(pathOf(name), std::ios::binary);
    std::string text(RunLimits().bytes + 1, '\0');
    text.resize(static_cast<std::size_t>(input.read(text.data(), static_cast<std::streamsize>(text.size())).gcount()));
    if (!input.eof() && text.size() <= RunLimits().bytes) {
        failOnStream("cannot read " + name);
    }
    if (text.size() > RunLimits().bytes) {
        throw std::runtime_error(name + " has more than " + std::to_string(RunLimits().bytes) + " bytes");
    }
    return isVisibleForm(text) ? textOfVisibleForm(text) : text;
}

HelpScreen readSavedScreen(const std::string& file, const std::optional<std::string>& name) {
    HelpScreen screen = parse(readFile(file));
    screen.name = name.value_or(screen.name);
    requireCommandName(screen.name);
    return screen;
}

HelpScreen askTool(const std::string& program, const std::string& name) {
    requireCommandName(name);
    HelpScreen screen = parse(readHelp(program, name));
    if (screen.name != name) {
        throw std::runtime_error(program + " calls itself \"" + screen.name + "\" instead of \"" + name + "\"");
    }
    return screen;
}

}  // namespace

std::string definedName(const std::string& program) {
    return parse(readHelp(program, "-")).name;
}

HelpScreen readScreen(const std::string& source, bool isSaved, const std::optional<std::string>& name) {
    try {
        return isSaved ? readSavedScreen(source, name) : askTool(source, name ? *name : plainName(source));
    } catch (const ScreenError& error) {
        throw std::runtime_error(source + ": not a kelplib help screen: " + error.what());
    }
}

}  // namespace Kelpkit::programs
