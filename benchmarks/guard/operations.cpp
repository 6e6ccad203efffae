// The operations whose instructions guard.py counts. Each runs twice, and callgrind counts the second run. guard.py starts this
// program under callgrind with --instr-atstart=no.

#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>

#include "../parse/parsers.h"
#include "../support/numbers.h"

namespace {

/// Counts an operation. Ends the program if the result is wrong.
template <class Operation, class IsRight>
void count(const char* name, Operation operation, IsRight isRight) {
    operation();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    const auto result = operation();
    CALLGRIND_DUMP_STATS_AT(name);
    CALLGRIND_STOP_INSTRUMENTATION;
    if (!isRight(result)) {
        std::fprintf(stderr, "wrong result: %s\n", name);
        std::exit(1);
    }
}

void countParse() {
    const CommandLine line(10, 1000, Spelling::firstByte, 1);
    std::vector<Kelp::Option> options = parsers::kelplibOptions(10);
    count(
        "parse", [&] { return parsers::kelplib(line, options); },
        [&line](const Answer& answer) { return answer == line.first(); });
}

template <class T>
void countNumber(const char* name, const std::string& text, T expected) {
    count(
        name,
        [&text] {
            T value = 0;
            Kelp::stringToValue(value, text);
            return value;
        },
        [expected](T value) { return value == expected; });
}

void countLists() {
    const std::vector<double> values = numbers(Kind::full, 10000);
    const std::string text = joined(textsOf(values, std::locale::classic()));
    const auto read = [](const std::string& from) {
        std::vector<double> list;
        Kelp::stringToValue(list, from);
        return list;
    };
    count(
        "list", [&] { return read(text); }, [&values](const std::vector<double>& list) { return list == values; });
    count(
        "text", [&values] { return std::to_string(values); },
        [](const std::string& written) { return written.size() > 100000; });
}

void countRedraw() {
    count(
        "redraw", [] { return KELP_progress(5, 10, 37, "Copying", KELP_time_stamp()); },
        [](int flushed) { return flushed == 0; });
}

void countPath() {
    const std::string name = "folder/file.txt";
    count(
        "path", [&name] { return FilePath(name).extension(); }, [](const std::string& text) { return text == "txt"; });
}

}  // namespace

int main() {
    countParse();
    countNumber("int", "123456", 123456);
    countNumber("double", "12.345678901234567", 12.345678901234567);
    countLists();
    countRedraw();
    countPath();
}
