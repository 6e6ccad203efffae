#ifndef KELPLIB_TESTS_SCENARIO_H
#define KELPLIB_TESTS_SCENARIO_H

#include <kelplib/CommandLineTool.h>

#include <functional>
#include <string>
#include <vector>

/// One run of a tool, played by a process of its own. What it prints is compared with screens/NAME.txt, where NAME is the
/// scenario's name up to the first dot: several command lines may have one screen. A last part MSYSTEM=VALUE of the name
/// stands in the environment of its process; the others have no MSYSTEM.
struct Scenario {
    std::string name;
    std::function<void()> run;
};

std::vector<Scenario> helpScreens();
std::vector<Scenario> checkScreens();
std::vector<Scenario> progressScreens();
std::vector<Scenario> startUpScreens();

using Options = std::vector<Kelp::Option>;
using Positionals = std::vector<Kelp::Argument>;

/// Constructs a tool of two options (-o and -v) from the tokens, with the short constructor.
void startSmallTool(std::vector<std::string> tokens);

/// Constructs a tool with the full constructor. Its options are -o, -Number and -v, its arguments "input" and "more".
void startFullTool(std::vector<std::string> tokens, const std::string& usage = "");

#endif
