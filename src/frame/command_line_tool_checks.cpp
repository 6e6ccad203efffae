#include <kelplib/CommandLineTool.h>

#include "frame/flag_key.h"
#include "platform/standard_streams.h"

namespace {

constexpr int fromProgramPath = 0;

template <class Container>
int collectArguments(const Kelp::OptionReader& reader, Container& out, int start) {
    out.clear();
    std::string argument;
    for (int i = reader.getFirstArgument(argument, start); i != 0; i = reader.getFirstArgument(argument, i + 1)) {
        out.push_back(argument);
    }
    return static_cast<int>(out.size());
}

}  // namespace

void CommandLineTool::checkForHelp() {
    const bool asked = reader.hasOption("--help", "-h", fromProgramPath) != 0 ||
                       reader.hasOption("/help", "/h", fromProgramPath) != 0 ||
                       reader.hasOption("/?", "/?", fromProgramPath) != 0;
    if (asked) {
        printUsage();
    }
}

void CommandLineTool::checkForVerbose() {
    if (reader.hasOption("--verbose", "-v", fromProgramPath) != 0) {
        reader.setVerbose(true);
    }
}

void CommandLineTool::checkMandatoryArgs() {
    std::string file;
    if (!reader.checkFiles(file, fromProgramPath)) {
        printUsage();
    }
}

void CommandLineTool::checkForInvalidFlags() {
    std::vector<std::string> tokens;
    reader.getOptions(tokens);
    for (const std::string& token : tokens) {
        if (!Kelp::isFlag(token)) {
            continue;
        }
        const std::string key = Kelp::flagKey(token);
        if (options.find(key) == options.end()) {
            Kelp::standardOutput() << "Invalid flag " << key << ". List of valid flags: " << std::endl;
            printUsage();
        }
    }
}

int CommandLineTool::hasOption(std::string name, int start) const {
    const auto found = options.find(name);
    return found == options.end() ? 0 : reader.hasOption(found->second, start);
}

bool CommandLineTool::isVerbose() const {
    return reader.getVerbose();
}

int CommandLineTool::getFirstArgument(std::string& out, int start) const {
    return reader.getFirstArgument(out, start);
}

int CommandLineTool::getArguments(std::vector<std::string>& out, int start) const {
    if (reader.getVerbose()) {
        Kelp::standardOutput() << "getFiles()" << std::endl;
    }
    return collectArguments(reader, out, start);
}

int CommandLineTool::getArguments(std::list<std::string>& out, int start) const {
    return collectArguments(reader, out, start);
}

std::vector<Kelp::Option> CommandLineTool::getOptions() const {
    return optionList;
}
