#include <kelplib/CommandLineTool.h>

#include "command_line/flag_check.h"
#include "platform/standard_streams.h"

namespace {

constexpr int fromProgramPath = 0;

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
    const std::string key = Kelp::FlagCheck::findUnknown(reader, options);
    if (!key.empty()) {
        Kelp::standardOutput() << "Invalid flag " << key << ". List of valid flags: " << std::endl;
        printUsage();
    }
}
