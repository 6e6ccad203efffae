#include <kelplib/CommandLineTool.h>

#include "parsers.h"

namespace parsers {

std::vector<Kelp::Option> kelplibOptions(std::size_t options) {
    std::vector<Kelp::Option> list;
    for (const std::size_t i : registrationOrder(options)) {
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
    std::size_t i = 0;
    for (const std::size_t number : registrationOrder(options.size())) {
        reader.getValue(options[i].shortFlag, options[i].longFlag, answer.values[number], 1);
        ++i;
    }
    tool.getArguments(answer.positionals, 1);
    return answer;
}

}  // namespace parsers
