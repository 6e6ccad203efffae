#include <boost/program_options.hpp>

#include "parsers.h"

namespace parsers {

namespace {

namespace po = boost::program_options;

using Texts = std::vector<std::string>;

struct Description {
    explicit Description(std::size_t count) : options("Measures") {
        for (const std::size_t i : registrationOrder(count)) {
            options.add_options()(nameOf(i, Spelling::word).c_str(), po::value<Texts>(), "one of many options");
        }
        options.add_options()("files", po::value<Texts>(), "files");
        positionals.add("files", -1);
    }

    po::options_description options;
    po::positional_options_description positionals;
};

const Description& descriptionFor(std::size_t options) {
    static const Description few(10);
    static const Description many(100);
    return options == 10 ? few : many;
}

}  // namespace

Answer boostProgramOptions(const CommandLine& line, std::size_t options) {
    const Description& description = descriptionFor(options);
    po::variables_map values;
    po::store(po::command_line_parser(line.argc(), line.argv())
                  .options(description.options)
                  .positional(description.positionals)
                  .run(),
              values);
    po::notify(values);
    Answer answer;
    for (std::size_t i = 0; i < options; ++i) {
        const po::variable_value& value = values[nameOf(i, Spelling::word)];
        answer.values.push_back(value.empty() ? std::string() : value.as<Texts>().front());
    }
    if (values.count("files") != 0) {
        answer.positionals = values["files"].as<Texts>();
    }
    return answer;
}

}  // namespace parsers
