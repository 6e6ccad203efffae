#ifndef KELPLIB_CONSOLE_PROGRESS_LINE_H
#define KELPLIB_CONSOLE_PROGRESS_LINE_H

#include <string_view>

#include "console/bounded_text.h"

namespace Kelp {

/// Appends the line of the progress bar as it stands at the time `now`, without its carriage return.
/// \param start_time  when the work began; 0 or less: no time is shown
void appendProgressLine(BoundedText& line, double value, double total, int width, std::string_view label,
                        double startTime, double now);

}  // namespace Kelp

#endif
