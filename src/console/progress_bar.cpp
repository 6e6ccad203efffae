#include "console/progress_bar.h"

#include <kelplib/KelpProgress.h>

#include <cstdlib>

#include "console/progress_line.h"
#include "console/standard_output.h"
#include "platform/platform.h"

namespace Kelp {

int drawProgressBar(double value, double total, int width, std::string_view label, double startTime) {
    if (value < 0.0) {
        writeAtOnce("KELP_progress() ERROR: 0.0 is not a valid progress, must be >= 0!\n");
        std::exit(0);
    }
    char buffer[512];
    // A line that is cut still ends in its carriage return.
    BoundedText line(buffer, sizeof buffer - 1);
    appendProgressLine(line, value, total, width, label, startTime, platform::monotonicSeconds());
    const std::size_t length = line.view().size();
    buffer[length] = '\r';
    return writeAtOnce({buffer, length + 1}).flushed;
}

}  // namespace Kelp

double KELP_time_stamp() {
    return Kelp::platform::monotonicSeconds();
}

void KELP_sleep(unsigned int milliseconds) {
    Kelp::platform::sleepMilliseconds(milliseconds);
}

int KELP_rewind_cursor(unsigned int lines) {
    return Kelp::platform::rewindCursor(lines);
}

int KELP_progress(double value, double total, int width, const char* text, double startTime) {
    return Kelp::drawProgressBar(value, total, width, text == nullptr ? "" : text, startTime);
}
