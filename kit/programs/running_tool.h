#ifndef KELPKIT_PROGRAMS_RUNNING_TOOL_H
#define KELPKIT_PROGRAMS_RUNNING_TOOL_H

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace Kelpkit::programs {

/// A tool in a process of its own, as runTool() describes it; see running_tool_posix.cpp and
/// running_tool_windows.cpp. The destructor kills its process group.
class RunningTool {
public:
    /// Starts it.
    /// \param program    an absolute path
    /// \param arguments  on Windows without blanks and quotes
    /// \throws std::system_error  if it cannot be started
    RunningTool(const std::filesystem::path& program, const std::string& name,
                const std::vector<std::string>& arguments, const std::filesystem::path& folder);
    ~RunningTool();
    RunningTool(const RunningTool&) = delete;
    RunningTool& operator=(const RunningTool&) = delete;
    RunningTool(RunningTool&&) = delete;
    RunningTool& operator=(RunningTool&&) = delete;

    /// Appends what it has printed on standard output and standard error, up to some thousand bytes each. Waits for it up to
    /// `longest`, or less.
    /// \returns false at the end of standard output
    bool read(std::string& output, std::string& errors, std::chrono::milliseconds longest);

    bool hasEnded() const;

    /// Kills what is left of its process group, and waits for it, on Linux at most half a second. To be called once.
    /// \returns an empty text for exit status 0, otherwise for example "ended with exit status 3"
    std::string finish();

private:
    struct Handles;
    std::unique_ptr<Handles> handles;
};

}  // namespace Kelpkit::programs

#endif
