#ifndef COMMON_PROGRESS_H
#define COMMON_PROGRESS_H

#include <kelplib/CommandLineTool.h>

#include <cstdint>
#include <string>

namespace common {

/// Draws the progress on a console, once the work has lasted a while. Draws nothing into a pipe or a file.
class Progress {
public:
    /// \param label  describes the work; short, because the line has to fit into 80 columns
    Progress(CommandLineTool& tool, std::string label, std::uintmax_t totalBytes);
    /// If the work has failed, moves the cursor below the last frame, so that the message comes there.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    Progress(Progress&&) = delete;
    Progress& operator=(Progress&&) = delete;

    /// Counts bytes as done.
    void advance(std::uintmax_t bytes);

    /// Draws the finished state if anything was drawn before. Call this before printing anything else.
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
