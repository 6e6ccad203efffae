#include "scenario.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "arguments.h"
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

std::vector<Scenario> allScenarios() {
    std::vector<Scenario> all = helpScreens();
    for (const auto& scenarios : {checkScreens(), progressScreens(), startUpScreens()}) {
        all.insert(all.end(), scenarios.begin(), scenarios.end());
    }
    return all;
}

}  // namespace

void startSmallTool(std::vector<std::string> tokens) {
    Arguments line(std::move(tokens));
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job",
                               Kelp::Option("-o", "--output", "the result", false),
                               Kelp::Option("-v", "--verbose", "tells more", false));
    std::cout << "[running]\n";
}

void startFullTool(std::vector<std::string> tokens, const std::string& usage) {
    Arguments line(std::move(tokens));
    Options options{{"-o", "--output", "the result", false},
                    {"-Number", "", "how many", true},
                    {"-v", "--verbose", "tells more", false}};
    Positionals arguments{{"input", "what is read", false}, {"more", "", true}};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job", usage, "-o=b a", "\tMade for tests", options,
                               arguments);
    std::cout << "[running]\n";
}

/// Without arguments: the names of all scenarios. With one: plays it. Standard output has its own buffer here, beside that
/// of the C library through which the pause tells of itself: text that was not flushed before the pause comes out too late.
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
