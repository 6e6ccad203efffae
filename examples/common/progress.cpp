#include "progress.h"

#include <kelplib/KelpProgress.h>

#include <iostream>
#include <utility>

namespace common {

namespace {

constexpr double firstDrawSeconds = 0.3;
constexpr double secondsBetweenDraws = 0.1;

/// The bar and the longest time behind it leave so much of 80 columns.
constexpr unsigned long long labelWidth = 13;

constexpr int linesOfFace = 6;

bool showsFace() {
    return KELP_GlobalProgress.smile == 1;
}

/// Only a console lets its cursor be moved; moving it up by no line does no harm there. A terminal with MSYSTEM looks
/// like a pipe to its programs.
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
    // The last drawing belongs to finish(): the face cheers when the work is done, not a moment before.
    if (wanted && done < total && KELP_time_stamp() >= nextDrawSeconds) {
        draw();
        nextDrawSeconds = KELP_time_stamp() + secondsBetweenDraws;
        shown = true;
    }
}

void Progress::finish() {
    if (shown) {
        draw();
        // The finished face leaves the cursor below itself, the bar on its line.
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
