#ifndef KELPKIT_PROGRESS_H
#define KELPKIT_PROGRESS_H

/// \file
/// Progress of long work on the console.

#include <cstdint>
#include <string>

namespace Kelpkit {

/// Draws the library's face while work is done, or its bar if MSYSTEM is in the environment:
///
///     Kelpkit::Progress progress(bytesInAll, "copying");
///     while (copyBlock()) {
///         progress.advance(bytesInBlock);
///     }
///     progress.finish();
///
/// Draws only on a console of at least 61 columns and 7 rows (for the bar 78 columns and 2 rows), once the work has lasted half a
/// second, and at most ten times a second. Stops while the console is too small. Draws nothing into a pipe or a file, and nothing
/// after showProgress(false). While one object exists, further ones draw nothing.
///
/// An object that may draw calls noteInterruptions(), so that Ctrl-C ends the tool with the cursor below the last frame.
///
/// Not thread-safe: only one thread at a time may use the objects. Drawing errors are ignored.
class Progress {
public:
    /// Starts the clock.
    /// \param total  the amount of work, in any unit; 0 draws nothing
    /// \param label  up to 13 bytes; of a longer label, "..." replaces the middle. Each byte that printable() escapes becomes "?"
    /// \throws std::bad_alloc
    Progress(std::uintmax_t total, const std::string& label);
    /// If the work has not been finished, moves the cursor below the last frame, so that a message can follow.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    Progress(Progress&&) = delete;
    Progress& operator=(Progress&&) = delete;

    /// Counts an amount as done; what exceeds the total is ignored. Call it for every block of the work, however small: a call
    /// that draws nothing takes some nanoseconds.
    /// \throws Interruption  if a signal has asked the process to end, see kelpkit/Interruption.h
    void advance(std::uintmax_t amount);

    /// Draws the finished state if anything was drawn before, which takes 300 ms for the face, and leaves the cursor below it.
    /// Call it before printing anything else. Nothing is drawn afterwards.
    void finish();

private:
    void lookAtClock();
    void draw();
    void leave(int lines);

    std::uintmax_t total;
    std::uintmax_t done = 0;
    std::uintmax_t drawn = 0;
    std::uint64_t lastTick = 0;
    double nextDrawSeconds;
    bool wanted;
    bool shown = false;
};

/// Switches the progress of the whole process on or off; it is on at first. Affects objects that are created afterwards. run()
/// switches it off in verbose mode, so that the display does not mix with trace lines.
void showProgress(bool on);

}  // namespace Kelpkit

#endif
