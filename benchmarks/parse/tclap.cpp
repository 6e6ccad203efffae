#include <tclap/CmdLine.h>

#include <memory>

#include "parsers.h"

namespace parsers {

Answer tclap(const CommandLine& line, std::size_t options) {
    using Text = TCLAP::MultiArg<std::string>;
    TCLAP::CmdLine parser("Measures", '=', "1.0");
    std::vector<std::unique_ptr<Text>> arguments;
    arguments.resize(options);
    for (const std::size_t i : registrationOrder(options)) {
        arguments[i] = std::make_unique<Text>("", nameOf(i, Spelling::word), "one of many options", false, "text");
        parser.add(*arguments[i]);
    }
    TCLAP::UnlabeledMultiArg<std::string> files("files", "files", false, "file");
    parser.add(files);
    parser.parse(line.argc(), line.argv());
    Answer answer;
    for (const auto& argument : arguments) {
        answer.values.push_back(argument->getValue().empty() ? std::string() : argument->getValue().front());
    }
    answer.positionals = files.getValue();
    return answer;
}

}  // namespace parsers
