#include <kelplib/CommandLineTool.h>

#include <cstdlib>
#include <stdexcept>

#include "platform/platform.h"
#include "platform/standard_streams.h"
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
    Kelp::standardOutput() << std::endl;
    Kelp::standardOutput() << getColoredString(rule, blue) << std::endl;
    Kelp::standardOutput() << getColoredString("\t" + getToolName(), white) << std::endl;
    Kelp::standardOutput() << getColoredString(header, white) << std::endl;
    Kelp::standardOutput() << getColoredString(rule, blue) << std::endl;
    Kelp::standardOutput() << std::endl;
}

void CommandLineTool::help() const {
    const auto printHeading = [](const char* heading) {
        Kelp::standardOutput() << getColoredString(heading, cyan) << std::endl;
    };

    Kelp::standardOutput() << getColoredString(description, cyan) << std::endl;
    printHeading("Usage:");
    if (!usage.empty()) {
        Kelp::standardOutput() << "  " << getToolName() << " " << usage << std::endl;
    } else {
        Kelp::standardOutput() << "  " << getToolName() << " [OPTIONS] ";
        for (const Kelp::Argument& argument : argumentList) {
            Kelp::standardOutput() << argument.name << (argument.repeated ? "..." : "") << " ";
        }
        Kelp::standardOutput() << std::endl;
    }
    Kelp::standardOutput() << "\n";
    printHeading("Options:");
    for (const auto& [key, option] : options) {
        option.printIndented(optionWidth, lineWidth);
    }
    Kelp::standardOutput() << "\n";
    printHeading("Arguments:");
    for (const Kelp::Argument& argument : argumentList) {
        argument.printIndented(optionWidth, lineWidth);
    }
    Kelp::standardOutput() << "\n";
    printHeading("Example:");
    Kelp::standardOutput() << "  " << Kelp::escape::blue << getToolName() << Kelp::escape::reset << " " << example
                           << std::endl;

    // The pause keeps a console that closes with the process readable. A reader at the other end of a pipe has the whole
    // screen before it begins.
    Kelp::standardOutput().flush();
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
        Kelp::standardOutput() << text << std::endl;
    }
}
