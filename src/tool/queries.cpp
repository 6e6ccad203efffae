#include <kelplib/CommandLineTool.h>

#include <iterator>

#include "platform/standard_streams.h"

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
