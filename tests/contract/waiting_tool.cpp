// The parts of the shared library that look at the environment and at standard input: waiting_tool WHAT [WORD...].
// Standard output carries what is under test; what a call returned, and how many seconds it took, goes to standard error.
#include <kelplib/Kelp.h>
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "arguments.h"
#include "scoped_variable.h"

namespace {

using Words = std::vector<std::string>;

/// The level, then the level once K_VERBOSITY has changed, then once it is gone.
void verbosity(const Words& /*words*/) {
    std::cout << Kelp::verbosity() << "\n";
    {
        const ScopedVariable changed("K_VERBOSITY", "7");
        std::cout << Kelp::verbosity() << "\n";
    }
    const ScopedVariable gone("K_VERBOSITY", std::nullopt);
    std::cout << Kelp::verbosity() << "\n";
}

/// The integer of -n, searched from the first word on in the others, the program path among them.
void integer(const Words& words) {
    Arguments line(Words(words.begin() + 1, words.end()));
    int value = 77;
    const int result = Kelp::getIntFlag(line.argc(), line.argv(), "-n", value, std::stoi(words.at(0)));
    static_cast<void>(std::fprintf(stderr, "%d %d\n", result, value));
}

/// One wait after the other, each for as many seconds as its word says.
void wait(const Words& words) {
    for (const std::string& word : words) {
        const double start = KELP_time_stamp();
        Kelp::waitOrPressKey(static_cast<unsigned int>(std::stoul(word)), "first line");
        static_cast<void>(std::fprintf(stderr, "%.6f\n", KELP_time_stamp() - start));
    }
}

struct Command {
    const char* name;
    void (*run)(const Words&);
};

constexpr Command commands[] = {{"verbosity", verbosity}, {"integer", integer}, {"wait", wait}};

}  // namespace

int main(int argc, char** argv) {
    const Words words(argv + 1, argv + argc);
    for (const Command& command : commands) {
        if (!words.empty() && words[0] == command.name) {
            command.run(Words(words.begin() + 1, words.end()));
            return 0;
        }
    }
    std::cerr << "waiting_tool: no such call\n";
    return 2;
}
