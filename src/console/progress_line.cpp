#include "console/progress_line.h"

#include "console/bar_body.h"
#include "console/time_left.h"

namespace Kelp {

namespace {

constexpr std::size_t unitWidth = 6;

void appendPercentage(BoundedText& line, double ratio, double percent) {
    if (ratio < 1.0) {
        // Aligns percentages below 10 with the others.
        line.append(ratio < 0.1 ? "  " : " ");
        line.appendTenths(percent);
    } else {
        line.append("100.0");
    }
    line.append("% ");
}

}  // namespace

void appendProgressLine(BoundedText& line, double value, double total, int width, std::string_view label,
                        double startTime, double now) {
    const double ratio = value / total;
    const double percent = 100.0 * ratio;
    const bool running = ratio < 1.0;
    line.append(label);
    appendPercentage(line, ratio, percent);
    appendBarBody(line, width, ratio);
    line.append(running ? "|" : "#");
    if (startTime > 0.0) {
        if (running) {
            line.append(" time left: ");
            appendWholeTime(line, estimateLeftSeconds(startTime, now, percent), unitWidth);
        } else {
            line.append(" done in: ");
            appendTimeInTenths(line, now - startTime, unitWidth);
        }
    }
}

}  // namespace Kelp
