#include <getopt.h>

#include "parsers.h"

namespace parsers {

namespace {

constexpr int firstOption = 1000;

struct Table {
    explicit Table(std::size_t options) {
        for (std::size_t i = 0; i < options; ++i) {
            names.push_back(nameOf(i, Spelling::word));
        }
        for (const std::size_t i : registrationOrder(options)) {
            entries.push_back({names[i].c_str(), required_argument, nullptr, firstOption + static_cast<int>(i)});
        }
        entries.push_back({nullptr, 0, nullptr, 0});
    }

    std::vector<std::string> names;
    std::vector<option> entries;
};

const Table& tableFor(std::size_t options) {
    static const Table few(10);
    static const Table many(100);
    return options == 10 ? few : many;
}

}  // namespace

Answer getoptLong(const CommandLine& line, std::size_t options) {
    const Table& table = tableFor(options);
    Answer answer;
    answer.values.resize(options);
    std::vector<bool> known(options);
    // optind = 0 also resets the state of the previous line. "-" returns positional arguments in order; by default getopt_long
    // moves them to the end, which takes quadratic time.
    optind = 0;
    for (int code = 0; (code = getopt_long(line.argc(), line.argv(), "-", table.entries.data(), nullptr)) != -1;) {
        if (code == 1) {
            answer.positionals.emplace_back(optarg);
        } else if (code >= firstOption && !known[static_cast<std::size_t>(code - firstOption)]) {
            known[static_cast<std::size_t>(code - firstOption)] = true;
            answer.values[static_cast<std::size_t>(code - firstOption)] = optarg;
        }
    }
    return answer;
}

}  // namespace parsers
