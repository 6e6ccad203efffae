// The shared library under more load than any tool puts on it: load_tool COMMAND NUMBER. Prints the results.
#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "arguments.h"
#include "commands.h"

namespace {

using Strings = std::vector<std::string>;

void printNumber(const char* name, std::size_t number) {
    std::printf("%s %zu\n", name, number);
}

std::vector<Kelp::Option>& options() {
    static std::vector<Kelp::Option> all{{"-i", "--input", "an input", true}, {"-o", "--output", "an output", true}};
    return all;
}

/// Reads a command line of `count` tokens after the program path: inputs, outputs and arguments in turn.
void tokens(std::size_t count) {
    Strings texts{"tool"};
    for (std::size_t i = 0; i < count; ++i) {
        texts.push_back((i % 4 == 0 ? "--input=" : i % 4 == 1 ? "-o=/folder/" : "argument") + std::to_string(i));
    }
    Arguments line(std::move(texts));
    CommandLineTool tool(line.argc(), line.argv(), "Takes much.", options());
    Strings arguments;
    printNumber("arguments", static_cast<std::size_t>(tool.getArguments(arguments, 0)));
    std::vector<FilePath> files;
    printNumber("outputs", static_cast<std::size_t>(tool.getOutFiles(files, 0)));
    Kelp::OptionReader reader(line.argc(), line.argv());
    std::size_t inputs = 0;
    int next = 1;
    for (unsigned int value = 0; (next = reader.getValue("-i", "", value, next)) != 0; ++inputs) {
    }
    printNumber("inputs", inputs);
    Strings values;
    printNumber("scanned", static_cast<std::size_t>(Kelp::getMultiStringFlag(line.argc(), line.argv(), "-o", values)));
    printNumber("scanned arguments", Kelp::getAllArguments(line.argc(), line.argv()).size());
}

template <class T>
T read(Kelp::OptionReader& reader) {
    T value{};
    reader.getValue("-n", "", value, 1);
    return value;
}

/// Reads a value of `size` characters as text, as one number and as lists with 100 characters per item.
void value(std::size_t size) {
    std::string text(size, '1');
    for (std::size_t i = 99; i < size; i += 100) {
        text[i] = ':';
    }
    Arguments line{"tool", "-n=" + text};
    Kelp::OptionReader reader(line.argc(), line.argv());
    printNumber("text", read<std::string>(reader).size());
    printNumber("numbers", read<std::vector<int>>(reader).size());
    printNumber("different numbers", read<std::set<double>>(reader).size());
    printNumber("pieces", Kelp::split(text, ':').size());
    printNumber("limit", read<unsigned int>(reader));
}

void report(CommandLineTool& tool, std::size_t thread, std::size_t calls) {
    const std::string label = "thread " + std::to_string(thread);
    for (std::size_t i = 0; i < calls; ++i) {
        tool.progress(static_cast<double>(thread), label, 100);
    }
}

/// Reports progress `calls` times from each of 16 threads, through one tool.
void threads(std::size_t calls) {
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "Reports.");
    tool.initProgress(16.0, "", 100);
    KELP_GlobalProgress.smile = 0;
    KELP_GlobalProgress.start_time = 0.0;
    KELP_GlobalProgress.width = 16;
    std::vector<std::thread> all;
    for (std::size_t i = 0; i < 16; ++i) {
        all.emplace_back(report, std::ref(tool), i, calls);
    }
    for (std::thread& thread : all) {
        thread.join();
    }
}

/// Creates `count` tools, one after the other, and queries each.
void tools(std::size_t count) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < count; ++i) {
        Arguments line{"tool", "-i=1", "-o=/folder/a name that is long enough to be allocated", "argument"};
        CommandLineTool tool(line.argc(), line.argv(), "Is one of many.", options());
        FilePath file;
        Strings arguments;
        found += tool.getOutFile(file) && tool.getArguments(arguments, 0) == 1 ? 1U : 0U;
    }
    printNumber("tools", found);
}

constexpr Command<std::size_t> commands[] = {
    {"tokens", tokens}, {"value", value}, {"threads", threads}, {"tools", tools}};

}  // namespace

int main(int argc, char** argv) {
    return runCommand(commands, argc == 3 ? argv[1] : "",
                      static_cast<std::size_t>(std::strtoull(argc == 3 ? argv[2] : "", nullptr, 10)));
}
