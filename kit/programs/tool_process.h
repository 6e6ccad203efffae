#ifndef KELPKIT_PROGRAMS_TOOL_PROCESS_H
#define KELPKIT_PROGRAMS_TOOL_PROCESS_H

#include <chrono>
#include <cstddef>
#include <string>

namespace Kelpkit::programs {

/// What a run of a tool may take.
struct RunLimits {
    std::chrono::milliseconds time = std::chrono::seconds(10);
    std::size_t bytes = 1'000'000;
};

/// Runs `PROGRAM --help .` and returns what it prints on standard output, to the end of file. The "." passes the library's check
/// of the input file unopened. Calls noteInterruptions().
///
/// The tool sees `name` as its program path. It has no standard input, its standard error is dropped, and its current folder is a
/// new empty one, which is removed afterwards. It runs apart from the terminal; it and the processes it has started, unless they
/// have left its process group, are killed at the end.
/// \param program  the name of the file; no search for it in PATH
/// \throws std::runtime_error  if it cannot be started, does not end in time with exit status 0, or prints too much
/// \throws Interruption        if a signal asked this process to end
std::string readHelp(const std::string& program, const std::string& name, const RunLimits& limits = {});

}  // namespace Kelpkit::programs

#endif
