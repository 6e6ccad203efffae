#include <kelplib/CommandLineTool.h>

#include "parsers.h"

namespace parsers {

std::vector<Kelp::Option> kelplibOptions(std::size_t options) {
    std::vector<Kelp::Option> list;
    for (std::size_t i = 0; i < options; ++i) {
        list.emplace_back(std::string("-") + keyOf(i), "--" + nameOf(i, Spelling::firstByte), "one of many options",
                          true);
    }
    return list;
}

Answer kelplib(const CommandLine& line, std::vector<Kelp::Option>& options) {
    CommandLineTool tool(line.argc(), line.argv(), "Measures", options);
    Kelp::OptionReader reader(line.argc(), line.argv());
    Answer answer;
    answer.values.resize(options.size());
    for (std::size_t i = 0; i < options.size(); ++i) {
        reader.getValue(options[i].shortFlag, options[i].longFlag, answer.values[i], 1);
    }
    tool.getArguments(answer.positionals, 1);
    return answer;
}

}  // namespace parsers
