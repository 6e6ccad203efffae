// The functions of the shared library that read the environment or standard input: waiting_tool COMMAND [WORD...].
// Standard output carries what is under test, standard error the results of calls and the seconds that they took.
#include <kelplib/Kelp.h>
#include <kelplib/KelpProgress.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "arguments.h"
#include "commands.h"
#include "scoped_variable.h"

namespace {

using Words = std::vector<std::string>;

/// Prints the level: at first, after K_VERBOSITY has changed, and after it is gone.
void verbosity(const Words& /*words*/) {
    std::cout << Kelp::verbosity() << "\n";
    {
        const ScopedVariable changed("K_VERBOSITY", "7");
        std::cout << Kelp::verbosity() << "\n";
    }
    const ScopedVariable gone("K_VERBOSITY", std::nullopt);
    std::cout << Kelp::verbosity() << "\n";
}

/// Reads the integer of -n. The first word is the start position, the others are the command line.
void integer(const Words& words) {
    Arguments line(Words(words.begin() + 1, words.end()));
    int value = 77;
    const int result = Kelp::getIntFlag(line.argc(), line.argv(), "-n", value, std::stoi(words.at(0)));
    static_cast<void>(std::fprintf(stderr, "%d %d\n", result, value));
}

/// Waits once per word, for that number of seconds.
void wait(const Words& words) {
    for (const std::string& word : words) {
        const double start = KELP_time_stamp();
        Kelp::waitOrPressKey(static_cast<unsigned int>(std::stoul(word)), "first line");
        static_cast<void>(std::fprintf(stderr, "%.6f\n", KELP_time_stamp() - start));
    }
}

constexpr Command<const Words&> commands[] = {{"verbosity", verbosity}, {"integer", integer}, {"wait", wait}};

}  // namespace

int main(int argc, char** argv) {
    return runCommand(commands, argc > 1 ? argv[1] : "", Words(argv + std::min(argc, 2), argv + argc));
}
