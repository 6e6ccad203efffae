// The platform layer of this system, one call or a short sequence of calls per run: platform_tool COMMAND [NUMBER...].
// Standard output carries what is under test, standard error the results of calls.
#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "commands.h"
#include "platform/platform.h"

namespace {

using Numbers = std::vector<unsigned int>;
namespace platform = Kelp::platform;

void printLines(const std::string& words, unsigned int count) {
    for (unsigned int i = 1; i <= count; ++i) {
        std::cout << words << " line " << i << "\n";
    }
}

void now(const Numbers&) {
    std::printf("%.9f\n", platform::monotonicSeconds());
}

/// Reads the clock for the given number of milliseconds and counts how often it rose and fell. The sleep between two
/// readings keeps the system from taking the processor away.
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

/// Sleeps for the given number of milliseconds and prints how many seconds it took.
void sleep(const Numbers& numbers) {
    const double start = platform::monotonicSeconds();
    platform::sleepMilliseconds(numbers.at(0));
    std::printf("%.9f\n", platform::monotonicSeconds() - start);
}

void directory(const Numbers&) {
    std::cout << "<" << platform::currentDirectory() << ">\n";
}

/// Moves the cursor up by the given number of lines while the shared buffer of stdio and std::cout holds text of both.
void rewind(const Numbers& numbers) {
    std::printf("stdio ");
    std::cout << "stream ";
    printResult(platform::rewindCursor(numbers.at(0)));
}

/// The same, but std::cout has a buffer of its own.
void rewindTwoBuffers(const Numbers& numbers) {
    std::ios::sync_with_stdio(false);
    rewind(numbers);
}

/// Prints as many lines as the second number, moves up by the first, and prints an X there.
void mark(const Numbers& numbers) {
    printLines("filler", numbers.at(1));
    std::cout << "abc";
    printResult(platform::rewindCursor(numbers.at(0)));
    std::cout << "X" << std::flush;
}

/// Prints as many lines as the second number, moves up by the first, and stays silent for a minute.
void hold(const Numbers& numbers) {
    printLines("filler", numbers.at(1));
    printResult(platform::rewindCursor(numbers.at(0)));
    platform::sleepMilliseconds(60000);
}

/// Prints the given number of lines and draws frames of three lines below them, each over the last one.
void animate(const Numbers& numbers) {
    printLines("filler", numbers.at(0));
    for (const char* frame : {"first", "again", "third", "final"}) {
        std::cout << frame << " frame, top\n" << frame << " frame, middle\n" << frame << " frame, bottom\n";
        if (std::string(frame) != "final") {
            printResult(platform::rewindCursor(3));
        }
    }
    std::cout << "all drawn" << std::endl;
}

constexpr Command<const Numbers&> commands[] = {
    {"now", now},       {"watch", watch},
    {"sleep", sleep},   {"directory", directory},
    {"rewind", rewind}, {"rewind-two-buffers", rewindTwoBuffers},
    {"mark", mark},     {"animate", animate},
    {"hold", hold},
};

}  // namespace

int main(int argc, char** argv) {
    Numbers numbers;
    for (int i = 2; i < argc; ++i) {
        numbers.push_back(static_cast<unsigned int>(std::stoul(argv[i])));
    }
    return runCommand(commands, argc > 1 ? argv[1] : "", numbers);
}
