#ifndef KELPKIT_PROGRAMS_TOOL_PROCESS_H
#define KELPKIT_PROGRAMS_TOOL_PROCESS_H

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace Kelpkit::programs {

/// What a run of a tool may take.
struct RunLimits {
    std::chrono::milliseconds time = std::chrono::seconds(10);
    std::size_t bytes = 1'000'000;
};

struct Run {
    std::string program;  ///< the name of the file; no search for it in PATH
    std::string name;     ///< what the tool sees as its program path
    std::vector<std::string> arguments;
};

/// Runs a tool and returns what it prints on standard output, to the end of file. Calls noteInterruptions().
///
/// The tool has no standard input, its standard error is read, and its current folder is a new empty one, which is removed
/// afterwards. It runs apart from the terminal; it and the processes it has started, unless they have left its process group, are
/// killed at the end.
/// \throws std::runtime_error  if it cannot be started, does not end in time with exit status 0, or prints too much. The
///                             text has the exit status, and the last line of standard error, without its beginning if it is long.
/// \throws Interruption        if a signal asked this process to end
std::string runTool(const Run& run, const RunLimits& limits = {});

/// Returns the arguments that make any tool show its help screen. The "." passes the library's check of the input file unopened.
std::vector<std::string> helpRequest();

/// Runs a tool with helpRequest().
std::string readHelp(const std::string& program, const std::string& name, const RunLimits& limits = {});

}  // namespace Kelpkit::programs

#endif
