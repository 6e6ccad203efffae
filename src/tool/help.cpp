#include <kelplib/CommandLineTool.h>

#include <cstdlib>
#include <stdexcept>

#include "platform/platform.h"
#include "platform/standard_streams.h"
#include "util/ascii_fold.h"
#include "util/escape_sequences.h"

namespace {

// Graphic renditions, as getColoredString takes them.
constexpr int blue = 34;
constexpr int cyan = 36;
constexpr int white = 37;

constexpr char rule[] = "####################################";
static_assert(sizeof rule - 1 == 36, "the banner's rule is 36 characters wide");

constexpr std::size_t lineWidth = 79;
constexpr unsigned int pauseMilliseconds = 500;

void printHeading(std::ostream& out, const std::string& heading) {
    out << getColoredString(heading, cyan) << std::endl;
}

/// Prints the usage of a tool that does not describe it.
void printDefaultUsage(std::ostream& out, const std::vector<Kelp::Argument>& arguments) {
    out << " [OPTIONS] ";
    for (const Kelp::Argument& argument : arguments) {
        out << argument.name << (argument.repeated ? "..." : "") << " ";
    }
    out << std::endl;
}

/// Ends the process. A console that closes with it stays readable for half a second; a program that reads the screen from a
/// pipe gets all of it before the pause.
[[noreturn]] void endAfterPause(std::ostream& out) {
    out.flush();
    Kelp::platform::sleepMilliseconds(pauseMilliseconds);
    std::exit(0);
}

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
    std::ostream& out = Kelp::standardOutput();
    out << std::endl;
    out << getColoredString(rule, blue) << std::endl;
    out << getColoredString("\t" + getToolName(), white) << std::endl;
    out << getColoredString(header, white) << std::endl;
    out << getColoredString(rule, blue) << std::endl;
    out << std::endl;
}

void CommandLineTool::help() const {
    std::ostream& out = Kelp::standardOutput();
    printHeading(out, description);
    printHeading(out, "Usage:");
    out << "  " << getToolName();
    if (usage.empty()) {
        printDefaultUsage(out, argumentList);
    } else {
        out << " " << usage << std::endl;
    }
    out << "\n";
    printHeading(out, "Options:");
    for (const auto& [key, option] : options) {
        option.printIndented(optionWidth, lineWidth);
    }
    out << "\n";
    printHeading(out, "Arguments:");
    for (const Kelp::Argument& argument : argumentList) {
        argument.printIndented(optionWidth, lineWidth);
    }
    out << "\n";
    printHeading(out, "Example:");
    out << "  " << Kelp::escape::blue << getToolName() << Kelp::escape::reset << " " << example << std::endl;
    endAfterPause(out);
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
