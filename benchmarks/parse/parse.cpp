// Reading a command line: kelplib beside other libraries, and one look at every byte as the floor.

#include <deque>
#include <functional>

#include "../support/measure.h"
#include "parsers.h"

namespace {

constexpr std::size_t optionCount = KELPLIB_BENCHMARK_OPTIONS;

/// The floor: one pass over argv, byte by byte.
unsigned long sumOfBytes(const CommandLine& line) {
    unsigned long sum = 0;
    for (int i = 0; i < line.argc(); ++i) {
        for (const char* byte = line.argv()[i]; *byte != '\0'; ++byte) {
            sum += static_cast<unsigned char>(*byte);
        }
    }
    return sum;
}

std::string nameFor(const std::string& library, std::size_t tokens) {
    return "parse/" + std::to_string(optionCount) + "/" + std::to_string(tokens) + "/" + library;
}

void addFloor(std::size_t tokens, const CommandLine& line) {
    measure(
        nameFor("pass", tokens), tokens, [&line] { return sumOfBytes(line); },
        [](unsigned long sum) { return sum > 0; });
}

void addParser(const std::string& library, std::size_t tokens, const Answer& expected,
               const std::function<Answer()>& parse) {
    measure(nameFor(library, tokens), tokens, parse, [&expected](const Answer& answer) { return answer == expected; });
}

void addOthers(std::size_t tokens, const CommandLine& line, const Answer& first, const Answer& last) {
    addParser("getopt_long", tokens, first, [&line] { return parsers::getoptLong(line, optionCount); });
    addParser("CLI11", tokens, first, [&line] { return parsers::cli11(line, optionCount); });
    addParser("cxxopts", tokens, first, [&line] { return parsers::cxxopts(line, optionCount); });
    // Takes quadratic time: half a minute for 100,000 tokens.
    if (tokens <= 10000) {
        addParser("Boost.Program_options", tokens, first,
                  [&line] { return parsers::boostProgramOptions(line, optionCount); });
    }
    addParser("TCLAP", tokens, first, [&line] { return parsers::tclap(line, optionCount); });
    addParser("gflags", tokens, last, [&line] { return parsers::gflags(line); });
    addParser("Abseil flags", tokens, last, [&line] { return parsers::abseil(line); });
}

/// Everything that is measured with one number of tokens.
struct Row {
    explicit Row(std::size_t count)
        : tokens(count),
          own(optionCount, tokens, Spelling::firstByte),
          others(optionCount, tokens, Spelling::word),
          options(parsers::kelplibOptions(optionCount)),
          first(own.first()),
          last(own.last()) {}

    void add() {
        addFloor(tokens, own);
        addParser("kelplib", tokens, first, [this] { return parsers::kelplib(own, options); });
        addOthers(tokens, others, first, last);
    }

    std::size_t tokens;
    CommandLine own;
    CommandLine others;
    std::vector<Kelp::Option> options;
    Answer first;
    Answer last;
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
    for (const std::size_t tokens : {10, 100, 1000, 10000, 100000}) {
        // Every option is to stand on the line.
        if (tokens >= optionCount) {
            rows.emplace_back(tokens);
        }
    }
    for (Row& row : rows) {
        row.add();
    }
    for (const std::size_t bytes : {1000, 10000, 100000, 1000000}) {
        addLongValue(bytes);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
