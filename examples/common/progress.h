#ifndef COMMON_PROGRESS_H
#define COMMON_PROGRESS_H

#include <kelplib/CommandLineTool.h>

#include <cstdint>
#include <string>

namespace common {

/// Shows on the console how far the work is, once it has lasted long enough to be wondered about. Into a pipe or a
/// file nothing is shown: whoever reads it wants the result.
class Progress {
public:
    /// \param label  what is being done; short, because the bar's line has to fit into 80 columns
    Progress(CommandLineTool& tool, std::string label, std::uintmax_t totalBytes);
    /// Where the work has failed, what was shown stays and the line that says so comes below it.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    Progress(Progress&&) = delete;
    Progress& operator=(Progress&&) = delete;

    /// Counts bytes as done.
    void advance(std::uintmax_t bytes);

    /// Shows the finished state if anything was shown before. Call it before anything else is printed.
    void finish();

private:
    void draw();
    void leaveLines(int lines);

    CommandLineTool& tool;
    std::string label;
    std::uintmax_t total;
    std::uintmax_t done = 0;
    double nextDrawSeconds;
    bool wanted;
    bool shown = false;
};

}  // namespace common

#endif
