#include <cxxopts.hpp>

#include "parsers.h"

namespace parsers {

Answer cxxopts(const CommandLine& line, std::size_t options) {
    using Texts = std::vector<std::string>;
    ::cxxopts::Options parser("tool", "Measures");
    for (const std::size_t i : registrationOrder(options)) {
        parser.add_options()(nameOf(i, Spelling::word), "one of many options", ::cxxopts::value<Texts>());
    }
    parser.add_options()("files", "files", ::cxxopts::value<Texts>());
    parser.parse_positional("files");
    const ::cxxopts::ParseResult result = parser.parse(line.argc(), line.argv());
    Answer answer;
    for (std::size_t i = 0; i < options; ++i) {
        const std::string name = nameOf(i, Spelling::word);
        answer.values.push_back(result.count(name) == 0 ? std::string() : result[name].as<Texts>().front());
    }
    if (result.count("files") != 0) {
        answer.positionals = result["files"].as<Texts>();
    }
    return answer;
}

}  // namespace parsers
