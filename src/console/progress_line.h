#ifndef KELPLIB_CONSOLE_PROGRESS_LINE_H
#define KELPLIB_CONSOLE_PROGRESS_LINE_H

#include <string_view>

#include "console/bounded_text.h"

namespace Kelp {

/// Appends the line of the progress bar at the time `now`, without its carriage return.
/// \param startTime  when the work started, in seconds of the same clock; 0 or less omits the time
void appendProgressLine(BoundedText& line, double value, double total, int width, std::string_view label,
                        double startTime, double now);

}  // namespace Kelp

#endif
