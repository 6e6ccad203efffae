#include <CLI/CLI.hpp>

#include "parsers.h"

namespace parsers {

Answer cli11(const CommandLine& line, std::size_t options) {
    CLI::App app("Measures");
    Answer answer;
    answer.values.resize(options);
    for (const std::size_t i : registrationOrder(options)) {
        app.add_option("--" + nameOf(i, Spelling::word), answer.values[i], "one of many options")
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeFirst);
    }
    app.add_option("files", answer.positionals, "files");
    app.parse(line.argc(), line.argv());
    return answer;
}

}  // namespace parsers
