// The operations whose instructions guard.py counts. Each runs twice, and callgrind counts the second run. guard.py starts this
// program under callgrind with --instr-atstart=no.

#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>

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

/// Steps through all flags of a line. Returns their number.
int everyFlag(const CommandLine& line) {
    int found = 0;
    for (std::size_t option = 0; option < 10; ++option) {
        const std::string flag = "--" + nameOf(option, Spelling::firstByte);
        for (int next = 0; (next = Kelp::getNextFlag(line.argc(), line.argv(), flag, next + 1)) != 0;) {
            ++found;
        }
    }
    return found;
}

void countParse() {
    std::vector<Kelp::Option> options = parsers::kelplibOptions(10);
    const CommandLine shortLine(10, 10, Spelling::firstByte, 1);
    count(
        "short line", [&] { return parsers::kelplib(shortLine, options); },
        [&shortLine](const Answer& answer) { return answer == shortLine.first(); });
    const CommandLine line(10, 1000, Spelling::firstByte, 1);
    count(
        "next flag", [&line] { return everyFlag(line); }, [](int found) { return found == 500; });
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
        "digits", [value = std::vector<double>{12.345678901234567}] { return std::to_string(value); },
        [](const std::string& written) { return written == "12.345678901234567"; });
    count(
        "text", [&values] { return std::to_string(values); },
        [](const std::string& written) { return written.size() > 100000; });
}

void countIntegers() {
    std::string text;
    std::vector<int> values;
    for (int i = 0; i < 10000; ++i) {
        values.push_back(100 * i);
        text += std::to_string(values.back()) + ":";
    }
    count(
        "ints",
        [&text] {
            std::vector<int> list;
            Kelp::stringToValue(list, text);
            return list;
        },
        [&values](const std::vector<int>& list) { return list == values; });
    std::string commas = text;
    std::replace(commas.begin(), commas.end(), ':', ',');
    count(
        "set",
        [commas] {
            std::set<int> set;
            Kelp::stringToValue(set, commas);
            return set;
        },
        [&values](const std::set<int>& set) {
            return std::equal(set.begin(), set.end(), values.begin(), values.end());
        });
    count(
        "split", [&text] { return Kelp::split(text, ':'); },
        [&values](const std::vector<std::string>& pieces) { return pieces.size() == values.size(); });
    count(
        "delimiters", [delimiters = std::string(10000, ':')] { return Kelp::split(delimiters, ':'); },
        [](const std::vector<std::string>& pieces) { return pieces.empty(); });
    count(
        "first token", [&text] { return Kelp::getFirstToken(text, ':'); },
        [](const std::string& token) { return token == "0"; });
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
    countIntegers();
    countRedraw();
    countPath();
}
