// Reading a command line: kelplib, other libraries, and as the limit one pass over every byte.

#include <algorithm>
#include <deque>
#include <functional>
#include <string_view>

#include "../support/measure.h"
#include "parsers.h"

namespace {

constexpr std::size_t optionCount = KELPLIB_BENCHMARK_OPTIONS;

/// The limit: one pass over argv, byte by byte.
unsigned long sumOfBytes(const CommandLine& line) {
    unsigned long sum = 0;
    for (int i = 0; i < line.argc(); ++i) {
        for (const char* byte = line.argv()[i]; *byte != '\0'; ++byte) {
            sum += static_cast<unsigned char>(*byte);
        }
    }
    return sum;
}

/// Command lines of one size. There are many short ones, so that the branch prediction of the processor cannot learn them.
class Lines {
public:
    Lines(std::size_t tokens, Spelling spelling) {
        const std::size_t count = std::max<std::size_t>(fewestTokens / tokens, 1);
        for (unsigned i = 0; i < count; ++i) {
            lines.emplace_back(optionCount, tokens, spelling, i);
        }
    }

    /// Measures parse(line) for all lines, after comparing each result with expect(line).
    template <class Parse, class Expect>
    void measureEach(const std::string& name, std::size_t tokens, Parse parse, Expect expect) const {
        measure(
            name, tokens * lines.size(),
            [this, parse] {
                for (const CommandLine& line : lines) {
                    auto result = parse(line);
                    benchmark::DoNotOptimize(result);
                }
                return lines.size();
            },
            [this, parse, expect](std::size_t /*count*/) {
                return std::all_of(lines.begin(), lines.end(),
                                   [&](const CommandLine& line) { return parse(line) == expect(line); });
            });
    }

private:
    static constexpr std::size_t fewestTokens = 1000;

    std::deque<CommandLine> lines;
};

/// The same sum, computed in another way.
unsigned long plainSum(const CommandLine& line) {
    unsigned long sum = 0;
    for (int i = 0; i < line.argc(); ++i) {
        for (const char byte : std::string_view(line.argv()[i])) {
            sum += static_cast<unsigned char>(byte);
        }
    }
    return sum;
}

/// All measurements with one number of tokens.
class Row {
public:
    explicit Row(std::size_t count)
        : tokens(count),
          own(tokens, Spelling::firstByte),
          others(tokens, Spelling::word),
          options(parsers::kelplibOptions(optionCount)) {}

    void add() {
        own.measureEach(nameFor("pass"), tokens, sumOfBytes, plainSum);
        own.measureEach(
            nameFor("kelplib"), tokens, [this](const CommandLine& line) { return parsers::kelplib(line, options); },
            std::mem_fn(&CommandLine::first));
        addOther("getopt_long", parsers::getoptLong);
        addOther("CLI11", parsers::cli11);
        addOther("cxxopts", parsers::cxxopts);
        addOther("TCLAP", parsers::tclap);
        // Boost.Program_options takes quadratic time: half a minute for 100,000 tokens.
        if (tokens <= 10000) {
            addOther("Boost.Program_options", parsers::boostProgramOptions);
        }
        others.measureEach(nameFor("gflags"), tokens, parsers::gflags, std::mem_fn(&CommandLine::last));
        others.measureEach(nameFor("Abseil flags"), tokens, parsers::abseil, std::mem_fn(&CommandLine::last));
    }

private:
    std::string nameFor(const std::string& library) const {
        return "parse/" + std::to_string(optionCount) + "/" + std::to_string(tokens) + "/" + library;
    }

    void addOther(const std::string& library, Answer (*parse)(const CommandLine&, std::size_t)) {
        others.measureEach(
            nameFor(library), tokens, [parse](const CommandLine& line) { return parse(line, optionCount); },
            std::mem_fn(&CommandLine::first));
    }

    std::size_t tokens;
    Lines own;
    Lines others;
    std::vector<Kelp::Option> options;
};

/// One option with a long value.
void addLongValue(std::size_t bytes) {
    measure(
        "growth/value/" + std::to_string(bytes) + "/kelplib", bytes,
        [token = "--X=" + std::string(bytes, 'x')] {
            std::string program = "tool";
            std::string copy = token;
            char* argv[] = {program.data(), copy.data(), nullptr};
            std::string value;
            Kelp::OptionReader(2, argv).getValue("-x", "--x", value, 1);
            return value;
        },
        [bytes](const std::string& value) { return value.size() == bytes; });
}

}  // namespace

int main(int argc, char** argv) {
    std::deque<Row> rows;
    for (const std::size_t tokens : {10U, 100U, 1000U, 10000U, 100000U}) {
        // The line has to hold every option.
        if (tokens >= optionCount) {
            rows.emplace_back(tokens);
        }
    }
    for (Row& row : rows) {
        row.add();
    }
    for (const std::size_t bytes : {1000U, 10000U, 100000U, 1000000U}) {
        addLongValue(bytes);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
