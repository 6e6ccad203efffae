// A tool that does not look for signals, for interruption_test.py:
//
//     interruption_tool read FILE     writes a file and waits for the input
//     interruption_tool compute FILE   writes a file and computes
//     interruption_tool thread FILE   writes a file, and a thread waits for the reader of standard output
//     interruption_tool write FILE    writes a file, a little at a time
//     interruption_tool wait FILE     notes signals and waits for the input without an output file
//     interruption_tool count FILE    counts the lines of standard input
//
// The first four write the file "result". They and the fifth print "ready".

#include <kelpkit/Tool.h>

#include <chrono>
#include <fstream>
#include <iostream>
#include <thread>

namespace {

using namespace std::chrono_literals;

void readFile(const std::string& name) {
    std::ifstream input(name);
    std::string line;
    std::getline(input, line);
}

void compute() {
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (std::chrono::steady_clock::now() < end) {
    }
}

void waitForThread() {
    std::thread writer([] { std::cout << std::string(1'000'000, 'x') << std::flush; });
    writer.join();
}

void writeLittle(std::ostream& output) {
    while (true) {
        output << "a little";
        std::this_thread::sleep_for(1ms);
    }
}

int countLines() {
    Kelpkit::noteInterruptions();
    Kelpkit::NewFile output(std::nullopt);
    std::size_t count = 0;
    for (std::string line; std::getline(std::cin, line);) {
        ++count;
    }
    output.stream() << "lines: " << count << '\n';
    output.publish();
    return EXIT_SUCCESS;
}

int work(Kelpkit::CommandLine& line) {
    const std::string how = line.arguments().front();
    if (how == "count") {
        return countLines();
    }
    if (how == "wait") {
        Kelpkit::noteInterruptions();
        std::cout << "ready" << std::endl;
        readFile(line.arguments().back());
        return EXIT_SUCCESS;
    }
    Kelpkit::NewFile output("result");
    output.stream() << "unfinished" << std::flush;
    std::cout << "ready" << std::endl;
    if (how == "read") {
        readFile(line.arguments().back());
    } else if (how == "compute") {
        compute();
    } else if (how == "write") {
        writeLittle(output.stream());
    } else {
        waitForThread();
    }
    output.publish();
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{"interruption_tool",
                                   "Does not look for signals.",
                                   {},
                                   {{"HOW", "what it does", false}, {"FILE", "its input", false}}};
    return Kelpkit::run(tool, argc, argv, work);
}
