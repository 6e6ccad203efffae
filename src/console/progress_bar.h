#ifndef KELPLIB_CONSOLE_PROGRESS_BAR_H
#define KELPLIB_CONSOLE_PROGRESS_BAR_H

#include <string_view>

namespace Kelp {

/// Draws the progress bar as KELP_progress does. The label needs no terminator.
int drawProgressBar(double value, double total, int width, std::string_view label, double startTime);

}  // namespace Kelp

#endif
