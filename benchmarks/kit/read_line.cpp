// The kit's strict reading of command lines. Of those in parse/parse.cpp it reads the ones that contain each option once, because
// the kit refuses an option that is repeated.

#include <kelpkit/CommandLine.h>

#include <algorithm>
#include <deque>
#include <memory>

#include "../parse/parsers.h"
#include "../support/measure.h"

namespace {

constexpr std::size_t tokensOfAllLines = 1000;

std::deque<CommandLine> linesOf(std::size_t options) {
    std::deque<CommandLine> lines;
    for (unsigned i = 0; i < tokensOfAllLines / options; ++i) {
        lines.emplace_back(options, options, Spelling::firstByte, i);
    }
    return lines;
}

Answer readWithKit(const CommandLine& line, const Kelpkit::Definition& definition) {
    const Kelpkit::CommandLine read(definition, line.argc(), line.argv());
    Answer answer;
    answer.values.resize(definition.options.size());
    std::size_t i = 0;
    for (const std::size_t number : registrationOrder(definition.options.size())) {
        answer.values[number] = read.value<std::string>(definition.options[i].longFlag).value_or("");
        ++i;
    }
    answer.positionals = read.arguments();
    return answer;
}

/// Measures read(line) for all lines.
template <class Read>
void add(const std::string& name, const std::deque<CommandLine>& lines, std::size_t options, Read read) {
    measure(
        "line/" + std::to_string(options) + "/" + name, lines.size() * options,
        [&lines, read] {
            for (const CommandLine& line : lines) {
                auto answer = read(line);
                benchmark::DoNotOptimize(answer);
            }
            return 0;
        },
        [&lines, read](int /*zero*/) {
            return std::all_of(lines.begin(), lines.end(),
                               [&read](const CommandLine& line) { return read(line) == line.first(); });
        });
}

}  // namespace

int main(int argc, char** argv) {
    std::deque<std::deque<CommandLine>> lines;
    for (const std::size_t options : {std::size_t{10}, std::size_t{100}}) {
        const std::deque<CommandLine>& some = lines.emplace_back(linesOf(options));
        const Kelpkit::Definition definition{"tool", "Measures", parsers::kelplibOptions(options)};
        add("kit", some, options, [definition](const CommandLine& line) { return readWithKit(line, definition); });
        add("kelplib", some, options,
            [list = std::make_shared<std::vector<Kelp::Option>>(definition.options)](const CommandLine& line) {
                return parsers::kelplib(line, *list);
            });
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
