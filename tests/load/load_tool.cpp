// The shared library under more than tools ever ask of it: load_tool WHAT NUMBER. What came out is told on standard output.
#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "arguments.h"

namespace {

using Strings = std::vector<std::string>;

void tell(const char* what, std::size_t number) {
    std::printf("%s %zu\n", what, number);
}

std::vector<Kelp::Option>& options() {
    static std::vector<Kelp::Option> all{{"-i", "--input", "an input", true}, {"-o", "--output", "an output", true}};
    return all;
}

/// A command line of that many tokens behind the program path: inputs, arguments and outputs in turn.
void tokens(std::size_t count) {
    Strings texts{"tool"};
    for (std::size_t i = 0; i < count; ++i) {
        texts.push_back((i % 4 == 0 ? "--input=" : i % 4 == 1 ? "-o=/folder/" : "argument") + std::to_string(i));
    }
    Arguments line(std::move(texts));
    CommandLineTool tool(line.argc(), line.argv(), "Takes much.", options());
    Strings arguments;
    tell("arguments", static_cast<std::size_t>(tool.getArguments(arguments, 0)));
    std::vector<FilePath> files;
    tell("outputs", static_cast<std::size_t>(tool.getOutFiles(files, 0)));
    Kelp::OptionReader reader(line.argc(), line.argv());
    std::size_t inputs = 0;
    int next = 1;
    for (unsigned int value = 0; (next = reader.getValue("-i", "", value, next)) != 0; ++inputs) {
    }
    tell("inputs", inputs);
    Strings values;
    tell("scanned", static_cast<std::size_t>(Kelp::getMultiStringFlag(line.argc(), line.argv(), "-o", values)));
    tell("scanned arguments", Kelp::getAllArguments(line.argc(), line.argv()).size());
}

template <class T>
T read(Kelp::OptionReader& reader) {
    T value{};
    reader.getValue("-n", "", value, 1);
    return value;
}

/// A flag's value of that many characters, as a text, as one number, and cut into pieces of 100 characters.
void value(std::size_t size) {
    std::string text(size, '1');
    for (std::size_t i = 99; i < size; i += 100) {
        text[i] = ':';
    }
    Arguments line{"tool", "-n=" + text};
    Kelp::OptionReader reader(line.argc(), line.argv());
    tell("text", read<std::string>(reader).size());
    tell("numbers", read<std::vector<int>>(reader).size());
    tell("different numbers", read<std::set<double>>(reader).size());
    tell("pieces", Kelp::split(text, ':').size());
    tell("limit", read<unsigned int>(reader));
}

void report(CommandLineTool& tool, std::size_t thread, std::size_t calls) {
    const std::string label = "thread " + std::to_string(thread);
    for (std::size_t i = 0; i < calls; ++i) {
        tool.progress(static_cast<double>(thread), label, 100);
    }
}

/// That many reports from each of 16 threads, through one tool.
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

/// That many tools, one after the other, each asked a little.
void tools(std::size_t count) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < count; ++i) {
        Arguments line{"tool", "-i=1", "-o=/folder/a name that is long enough to be allocated", "argument"};
        CommandLineTool tool(line.argc(), line.argv(), "Is one of many.", options());
        FilePath file;
        Strings arguments;
        found += tool.getOutFile(file) && tool.getArguments(arguments, 0) == 1 ? 1U : 0U;
    }
    tell("tools", found);
}

struct Command {
    const char* name;
    void (*run)(std::size_t number);
};

constexpr Command commands[] = {{"tokens", tokens}, {"value", value}, {"threads", threads}, {"tools", tools}};

}  // namespace

int main(int argc, char** argv) {
    for (const Command& command : commands) {
        if (argc == 3 && std::string(argv[1]) == command.name) {
            command.run(static_cast<std::size_t>(std::strtoull(argv[2], nullptr, 10)));
            return 0;
        }
    }
    static_cast<void>(std::fputs("load_tool: no such call\n", stderr));
    return 2;
}
