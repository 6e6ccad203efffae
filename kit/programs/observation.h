#ifndef KELPKIT_PROGRAMS_OBSERVATION_H
#define KELPKIT_PROGRAMS_OBSERVATION_H

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "help_screen.h"
#include "rules.h"

namespace Kelpkit::programs {

struct ObservedArgument {
    std::string name;
    std::string text;
    bool repeated = false;
};

/// A CommandLineTool in a run of a tool.
struct ObservedTool {
    std::string process;
    bool isFull = false;                      ///< whether the full constructor was called
    bool ownsCommandLine = false;             ///< whether the constructor was handed the command line of the program
    bool isOfKit = false;                     ///< whether the kit called the constructor
    std::vector<HelpScreen::Option> options;  ///< all that were registered before the command line was checked
    std::vector<ObservedArgument> arguments;
    std::vector<HelpScreen::Option> lateOptions;  ///< registered after it
    std::vector<std::string> names;               ///< that it was asked for
    std::map<std::string, bool> takesValue;       ///< in a tool of the kit, by the short forms in lower case
    bool asksVerbose = false;
    bool asksOutput = false;
};

/// A query of an OptionReader.
struct ReaderQuery {
    std::string process;
    bool isValue = false;  ///< whether it was a query of a value
    std::vector<std::string> names;
};

/// What the observer has reported.
struct Observation {
    std::vector<ObservedTool> tools;
    std::vector<ReaderQuery> queries;
    bool isWhole = true;  ///< whether the report consists of events
};

/// Reads a report up to the first text that is not an event; see observer_report.h.
Observation readReport(std::string_view report);

/// Returns whether a tool asks for options, also for verbose mode and output files, or registers them late.
bool asksForOptions(const Observation& observation);

/// Returns what happened in the processes that constructed a tool with the options and arguments of a help screen, not in
/// other programs that they have started.
Observation ofScreen(const Observation& observation, const HelpScreen& screen);

/// Returns the last tool with the options and arguments of a help screen; it asks for what any of them does.
std::optional<ObservedTool> findTool(const Observation& observation, const HelpScreen& screen);

/// Appends the findings that only a run shows, each once.
void checkObservation(const ObservedTool& tool, const Observation& observation, std::vector<rules::Finding>& findings);

}  // namespace Kelpkit::programs

#endif
