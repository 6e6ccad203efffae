// The system's own platform layer, one call or one short sequence of calls per run: platform_tool WHAT [NUMBER...].
// Standard output carries what is under test; what a call of it returned goes to standard error.
#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace {

using Numbers = std::vector<unsigned int>;
namespace platform = Kelp::platform;

void printLines(const std::string& words, unsigned int count) {
    for (unsigned int i = 1; i <= count; ++i) {
        std::cout << words << " line " << i << "\n";
    }
}

/// The clock's own reading.
void now(const Numbers&) {
    std::printf("%.9f\n", platform::monotonicSeconds());
}

/// How often the clock went back and forth between readings, for as many milliseconds. Whoever sleeps in between is not
/// interrupted for long.
void watch(const Numbers& numbers) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(numbers.at(0));
    unsigned int rises = 0;
    unsigned int falls = 0;
    double last = platform::monotonicSeconds();
    while (std::chrono::steady_clock::now() < end) {
        platform::sleepMilliseconds(1);
        const double next = platform::monotonicSeconds();
        rises += next > last ? 1U : 0U;
        falls += next < last ? 1U : 0U;
        last = next;
    }
    std::printf("%u rises, %u falls\n", rises, falls);
}

/// How many seconds a sleep took by the clock.
void sleep(const Numbers& numbers) {
    const double start = platform::monotonicSeconds();
    platform::sleepMilliseconds(numbers.at(0));
    std::printf("%.9f\n", platform::monotonicSeconds() - start);
}

void directory(const Numbers&) {
    std::cout << "<" << platform::currentDirectory() << ">\n";
}

/// Straight out and with nothing else: std::cerr would flush std::cout first.
void tellResult(int result) {
    static_cast<void>(std::fprintf(stderr, "%d\n", result));
}

/// A move up by the number, with unwritten text of both kinds in one buffer.
void rewind(const Numbers& numbers) {
    std::printf("stdio ");
    std::cout << "stream ";
    tellResult(platform::rewindCursor(numbers.at(0)));
}

/// The same with a buffer for each.
void rewindTwoBuffers(const Numbers& numbers) {
    std::ios::sync_with_stdio(false);
    rewind(numbers);
}

/// A mark left where a move up by the first number leads to, from below as many lines as the second number.
void mark(const Numbers& numbers) {
    printLines("filler", numbers.at(1));
    std::cout << "abc";
    tellResult(platform::rewindCursor(numbers.at(0)));
    std::cout << "X" << std::flush;
}

/// A move up by the first number, from below as many lines as the second number, and a long time without a word.
void hold(const Numbers& numbers) {
    printLines("filler", numbers.at(1));
    tellResult(platform::rewindCursor(numbers.at(0)));
    platform::sleepMilliseconds(60000);
}

/// Frames of three lines, each drawn over the last one, below as many lines as the number.
void animate(const Numbers& numbers) {
    printLines("filler", numbers.at(0));
    for (const char* frame : {"first", "again", "third", "final"}) {
        std::cout << frame << " frame, top\n" << frame << " frame, middle\n" << frame << " frame, bottom\n";
        if (std::string(frame) != "final") {
            tellResult(platform::rewindCursor(3));
        }
    }
    std::cout << "all drawn" << std::endl;
}

struct Command {
    const char* name;
    std::size_t numbers;
    void (*run)(const Numbers&);
};

constexpr Command commands[] = {
    {"now", 0, now},       {"watch", 1, watch},
    {"sleep", 1, sleep},   {"directory", 0, directory},
    {"rewind", 1, rewind}, {"rewind-two-buffers", 1, rewindTwoBuffers},
    {"mark", 2, mark},     {"animate", 1, animate},
    {"hold", 2, hold},
};

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    Numbers numbers;
    for (std::size_t i = 1; i < words.size(); ++i) {
        numbers.push_back(static_cast<unsigned int>(std::stoul(words[i])));
    }
    for (const Command& command : commands) {
        if (!words.empty() && words[0] == command.name && numbers.size() == command.numbers) {
            command.run(numbers);
            return 0;
        }
    }
    std::cerr << "platform_tool: no such call\n";
    return 2;
}
