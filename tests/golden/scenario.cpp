#include "scenario.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "fake_platform.h"

namespace {

struct OnTheStack {
    ~OnTheStack() {
        std::cout << "[the stack is unwound]\n";
    }
};

void play(const Scenario& scenario) {
    std::atexit([] { std::cout << "[exit handlers run]\n"; });
    const OnTheStack object;
    try {
        scenario.run();
    } catch (const std::exception& error) {
        std::cout << "[exception: " << error.what() << "]\n";
    }
}

Scenarios allScenarios() {
    Scenarios all = toolScreens();
    const Scenarios others = progressScreens();
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

}  // namespace

/// Prints the names of all scenarios, or plays the scenario that its argument names. std::cout has a buffer of its own here,
/// and pauses are printed through the C library: text that the library did not flush before a pause appears after it.
int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::string wanted = argc > 1 ? argv[1] : "";
    fake_platform::state().onSleep = [](unsigned int milliseconds) {
        std::printf("[pause of %u ms]\n", milliseconds);
        std::fflush(stdout);
    };
    for (const Scenario& scenario : allScenarios()) {
        if (wanted.empty()) {
            std::cout << scenario.name << "\n";
        } else if (scenario.name == wanted) {
            play(scenario);
            return 7;
        }
    }
    return wanted.empty() ? 0 : 9;
}
