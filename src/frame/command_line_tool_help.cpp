#include <kelplib/CommandLineTool.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "platform/platform.h"
#include "util/ascii_fold.h"
#include "util/escape_sequences.h"

namespace {

// Colour numbers of the screens, as getColoredString takes them.
constexpr int blue = 34;
constexpr int cyan = 36;
constexpr int white = 37;

constexpr char rule[] = "####################################";
static_assert(sizeof rule - 1 == 36, "the banner's rule is 36 characters wide");

constexpr std::size_t lineWidth = 79;
constexpr unsigned int pauseMilliseconds = 500;

}  // namespace

std::string CommandLineTool::getToolName() const {
    std::string path = reader.getNameTool();
    const std::size_t separator = path.rfind('\\');
    if (separator == std::string::npos) {
        return path;
    }
    const std::string extension = ".exe";
    std::string base = path.substr(separator + 1);
    if (base.size() < extension.size()) {
        throw std::out_of_range("basic_string::substr");
    }
    const std::size_t stem = base.size() - extension.size();
    return Kelp::equalIgnoringAsciiCase(base.c_str() + stem, extension.c_str()) ? base.substr(0, stem) : base;
}

void CommandLineTool::printHeader() const {
    std::cout << std::endl;
    std::cout << getColoredString(rule, blue) << std::endl;
    std::cout << getColoredString("\t" + getToolName(), white) << std::endl;
    std::cout << getColoredString(header, white) << std::endl;
    std::cout << getColoredString(rule, blue) << std::endl;
    std::cout << std::endl;
}

void CommandLineTool::help() const {
    const auto printHeading = [](const char* heading) { std::cout << getColoredString(heading, cyan) << std::endl; };

    std::cout << getColoredString(description, cyan) << std::endl;
    printHeading("Usage:");
    if (!usage.empty()) {
        std::cout << "  " << getToolName() << " " << usage << std::endl;
    } else {
        std::cout << "  " << getToolName() << " [OPTIONS] ";
        for (const Kelp::Argument& argument : argumentList) {
            std::cout << argument.name << (argument.repeated ? "..." : "") << " ";
        }
        std::cout << std::endl;
    }
    std::cout << "\n";
    printHeading("Options:");
    for (const auto& [key, option] : options) {
        option.printIndented(optionWidth, lineWidth);
    }
    std::cout << "\n";
    printHeading("Arguments:");
    for (const Kelp::Argument& argument : argumentList) {
        argument.printIndented(optionWidth, lineWidth);
    }
    std::cout << "\n";
    printHeading("Example:");
    std::cout << "  " << Kelp::escape::blue << getToolName() << Kelp::escape::reset << " " << example << std::endl;

    // The pause keeps a console that closes with the process readable. A reader at the other end of a pipe has the whole
    // screen before it begins.
    std::cout.flush();
    Kelp::platform::sleepMilliseconds(pauseMilliseconds);
    std::exit(0);
}

void CommandLineTool::printUsage() const {
    printHeader();
    help();
}

void CommandLineTool::addExampleText(const std::string& text) {
    example = text;
}

void CommandLineTool::print(std::string text) const {
    if (reader.getVerbose()) {
        std::cout << text << std::endl;
    }
}
