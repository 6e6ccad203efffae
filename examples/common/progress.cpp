#include "progress.h"

#include <kelplib/KelpProgress.h>

#include <iostream>
#include <utility>

namespace common {

namespace {

constexpr double firstDrawSeconds = 0.3;
constexpr double secondsBetweenDraws = 0.1;

/// The width that the bar and the longest time after it leave of 80 columns.
constexpr unsigned long long labelWidth = 13;

constexpr int linesOfFace = 6;

bool showsFace() {
    return KELP_GlobalProgress.smile == 1;
}

/// Moving the cursor up by no lines succeeds only on a console, where it has no effect here. Where MSYSTEM is set, a terminal
/// looks like a pipe to its programs.
bool isConsole() {
    return KELP_rewind_cursor(0) > 0 || KELP_GlobalProgress.terminal_env != nullptr;
}

}  // namespace

Progress::Progress(CommandLineTool& commandLineTool, std::string labelText, std::uintmax_t totalBytes)
    : tool(commandLineTool),
      label(std::move(labelText)),
      total(totalBytes),
      nextDrawSeconds(KELP_time_stamp() + firstDrawSeconds) {
    tool.initProgress(static_cast<double>(total), label, labelWidth);
    wanted = !tool.isVerbose() && isConsole();
}

Progress::~Progress() {
    if (shown) {
        leaveLines(showsFace() ? linesOfFace : 1);
    }
}

void Progress::advance(std::uintmax_t bytes) {
    done += bytes;
    // finish() draws the last frame, after the work is done.
    if (wanted && done < total && KELP_time_stamp() >= nextDrawSeconds) {
        draw();
        nextDrawSeconds = KELP_time_stamp() + secondsBetweenDraws;
        shown = true;
    }
}

void Progress::finish() {
    if (shown) {
        draw();
        // The finished face leaves the cursor below it, the bar on its own line.
        leaveLines(showsFace() ? 0 : 1);
        shown = false;
    }
}

void Progress::draw() {
    tool.progress(static_cast<double>(done), label, labelWidth);
}

void Progress::leaveLines(int lines) {
    for (int i = 0; i < lines; ++i) {
        std::cout << '\n';
    }
    std::cout << std::flush;
}

}  // namespace common
