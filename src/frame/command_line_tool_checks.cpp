#include <kelplib/CommandLineTool.h>

#include <bitset>
#include <iterator>

#include "frame/token_mark.h"
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
    // Long command lines repeat few keys, so each is looked up once at most. Not those of "-" and "--", which have no letter.
    std::bitset<256> accepted;
    for (const auto& [key, option] : options) {
        if (key.size() == 2 && key.front() == '-') {
            accepted.set(static_cast<unsigned char>(key.back()));
        }
    }
    accepted.reset('\0');
    for (std::size_t i = 0; i < reader.marks.size(); ++i) {
        if (Kelp::isArgumentMark(reader.marks[i])) {
            continue;
        }
        const std::string_view token = Kelp::tokenAt(reader.tokens, reader.begins, i);
        const auto letter = static_cast<unsigned char>(Kelp::keyLetter(token.data()));
        if (accepted.test(letter)) {
            continue;
        }
        const std::string key = Kelp::flagKey(token);
        if (options.find(key) == options.end()) {
            Kelp::standardOutput() << "Invalid flag " << key << ". List of valid flags: " << std::endl;
            printUsage();
        }
        accepted.set(letter, letter != '\0');
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
    out.clear();
    reader.getArguments(out, start);
    return static_cast<int>(out.size());
}

int CommandLineTool::getArguments(std::list<std::string>& out, int start) const {
    std::vector<std::string> arguments;
    reader.getArguments(arguments, start);
    out.assign(std::make_move_iterator(arguments.begin()), std::make_move_iterator(arguments.end()));
    return static_cast<int>(out.size());
}

std::vector<Kelp::Option> CommandLineTool::getOptions() const {
    return optionList;
}
