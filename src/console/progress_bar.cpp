#include "console/progress_bar.h"

#include <kelplib/KelpProgress.h>

#include <cstdlib>

#include "console/progress_line.h"
#include "console/write_at_once.h"
#include "platform/platform.h"

namespace Kelp {

int drawProgressBar(double value, double total, int width, std::string_view label, double startTime) {
    if (value < 0.0) {
        writeAtOnce("KELP_progress() ERROR: 0.0 is not a valid progress, must be >= 0!\n");
        std::exit(0);
    }
    char buffer[512];
    // One character is reserved: a line that is cut still ends in its carriage return.
    BoundedText line(buffer, sizeof buffer - 1);
    appendProgressLine(line, value, total, width, label, startTime, platform::monotonicSeconds());
    const std::size_t length = line.view().size();
    buffer[length] = '\r';
    return writeAtOnce({buffer, length + 1}).flushed;
}

}  // namespace Kelp

int KELP_progress(double value, double total, int width, const char* text, double start_time) {
    return Kelp::drawProgressBar(value, total, width, text == nullptr ? "" : text, start_time);
}
