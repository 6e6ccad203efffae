#ifndef KELPLIB_TESTS_SCENARIO_H
#define KELPLIB_TESTS_SCENARIO_H

#include <kelplib/CommandLineTool.h>

#include <functional>
#include <string>
#include <vector>

/// One run of a tool, in a process of its own. run_screens.py compares its output with screens/NAME.txt, where NAME is the
/// scenario's name up to the first dot, so that several scenarios can have the same screen. A name that ends in
/// ".MSYSTEM=VALUE" sets that environment variable. For all others it is unset.
struct Scenario {
    std::string name;
    std::function<void()> run;
};

using Scenarios = std::vector<Scenario>;
using Tokens = std::vector<std::string>;

/// A row of a table whose scenarios differ only in their command line.
struct CommandLine {
    const char* name;
    Tokens tokens;
};

/// Appends one scenario for each row. Its run passes the row to `play`.
template <class Row, class Play>
void addRows(Scenarios& scenarios, const std::vector<Row>& rows, Play play) {
    for (const Row& row : rows) {
        scenarios.push_back({row.name, [row, play] { play(row); }});
    }
}

/// Help, checks and start-up.
Scenarios toolScreens();

/// Bars, faces and the output of verbose tools.
Scenarios progressScreens();

#endif
