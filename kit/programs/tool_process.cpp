#include "tool_process.h"

#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "empty_folder.h"
#include "running_tool.h"

namespace Kelpkit::programs {

namespace {

using Clock = std::chrono::steady_clock;

/// Counts the time down.
class Deadline {
public:
    Deadline(const std::string& program, std::chrono::milliseconds time)
        : program(program), time(time), end(Clock::now() + time) {}

    /// Returns the time that is left. Throws if there is none, or if a signal asked this process to end.
    std::chrono::milliseconds left() const {
        checkInterruption();
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (rest.count() <= 0) {
            std::ostringstream seconds;
            seconds << std::chrono::duration<double>(time).count();
            throw std::runtime_error(program + " did not finish within " + seconds.str() + " seconds");
        }
        return rest;
    }

private:
    const std::string& program;
    std::chrono::milliseconds time;
    Clock::time_point end;
};

/// What a tool prints.
class Prints {
public:
    explicit Prints(RunningTool& tool) : tool(tool) {}

    /// Reads for a while. Returns false at the end of standard output.
    bool read(std::chrono::milliseconds longest) {
        constexpr std::size_t most = 1000;
        const bool isOpen = tool.read(output, errors, longest);
        errors.erase(0, errors.size() - std::min(errors.size(), most));
        return isOpen;
    }

    std::string output;

    /// Reads what is left of standard error. Returns its last line that is not blank.
    std::string lastError() {
        constexpr int reads =
            300;  // 1 MiB, the largest pipe of Linux; a process that has left the group may print for ever
        for (int i = 0; i < reads; ++i) {
            read(std::chrono::milliseconds(0));
        }
        errors.erase(errors.find_last_not_of(" \r\n") + 1);
        return errors.substr(errors.rfind('\n') + 1);
    }

private:
    RunningTool& tool;
    std::string errors;  ///< the end of it
};

void waitForEnd(const RunningTool& tool, Prints& prints, const Deadline& deadline) {
    constexpr std::chrono::milliseconds pause(10);
    while (!tool.hasEnded()) {
        prints.read(std::min(pause, deadline.left()));
    }
}

}  // namespace

std::string runTool(const Run& run, const RunLimits& limits) {
    noteInterruptions();
    const Deadline deadline(run.program, limits.time);
    const EmptyFolder folder;
    std::optional<RunningTool> tool;
    try {
        tool.emplace(std::filesystem::absolute(pathOf(run.program)), run.name, run.arguments, folder.path());
    } catch (const std::system_error& error) {
        fail("cannot run " + run.program, error.code());
    }
    Prints prints(*tool);
    while (prints.output.size() <= limits.bytes && prints.read(deadline.left())) {
    }
    if (prints.output.size() > limits.bytes) {
        throw std::runtime_error(run.program + " prints more than " + std::to_string(limits.bytes) + " bytes");
    }
    waitForEnd(*tool, prints, deadline);
    if (const std::string problem = tool->finish(); !problem.empty()) {
        const std::string error = prints.lastError();
        throw std::runtime_error(run.program + " " + problem + (error.empty() ? "" : ": " + error));
    }
    return std::move(prints.output);
}

std::string readHelp(const std::string& program, const std::string& name, const RunLimits& limits) {
    return runTool({program, name, helpRequest()}, limits);
}

std::vector<std::string> helpRequest() {
    return {"--help", "."};
}

}  // namespace Kelpkit::programs
