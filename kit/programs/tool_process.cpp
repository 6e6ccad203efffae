#include "tool_process.h"

#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <array>
#include <stdexcept>
#include <thread>

#include "empty_folder.h"
#include "running_tool.h"

namespace Kelpkit::programs {

namespace {

using Clock = std::chrono::steady_clock;

/// Counts the time down.
class Deadline {
public:
    Deadline(const std::string& program, std::chrono::milliseconds time) : program(program), end(Clock::now() + time) {}

    /// Returns the time that is left. Throws if there is none, or if a signal asked this process to end.
    std::chrono::milliseconds left() const {
        checkInterruption();
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (rest.count() <= 0) {
            throw std::runtime_error(program + " does not end within its time");
        }
        return rest;
    }

private:
    const std::string& program;
    Clock::time_point end;
};

std::string readAll(RunningTool& tool, const Deadline& deadline, std::size_t most) {
    std::string text;
    std::array<char, 4096> buffer{};
    while (text.size() <= most) {
        const std::optional<std::size_t> count = tool.read(buffer.data(), buffer.size(), deadline.left());
        if (count == 0U) {
            break;
        }
        text.append(buffer.data(), count.value_or(0));
    }
    return text;
}

void waitForEnd(const RunningTool& tool, const Deadline& deadline) {
    constexpr std::chrono::milliseconds pause(10);
    while (!tool.hasEnded()) {
        std::this_thread::sleep_for(std::min(pause, deadline.left()));
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
    std::string text = readAll(*tool, deadline, limits.bytes);
    if (text.size() > limits.bytes) {
        throw std::runtime_error(run.program + " prints more than " + std::to_string(limits.bytes) + " bytes");
    }
    waitForEnd(*tool, deadline);
    if (const std::string problem = tool->finish(); !problem.empty()) {
        throw std::runtime_error(run.program + " " + problem);
    }
    return text;
}

std::string readHelp(const std::string& program, const std::string& name, const RunLimits& limits) {
    return runTool({program, name, helpRequest()}, limits);
}

std::vector<std::string> helpRequest() {
    return {"--help", "."};
}

}  // namespace Kelpkit::programs
