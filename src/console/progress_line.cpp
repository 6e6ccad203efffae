#include "console/progress_line.h"

#include "console/bar_body.h"
#include "console/time_left.h"

namespace Kelp {

namespace {

void appendPercentage(BoundedText& line, double ratio, double percent) {
    if (ratio < 1.0) {
        // One-digit percentages line up with those of two digits.
        line.append(ratio < 0.1 ? "  " : " ");
        line.appendTenths(percent);
    } else {
        line.append("100.0");
    }
    line.append("% ");
}

/// Pads the unit's name to the longest, so that a shorter text covers the one before it.
void appendUnit(BoundedText& line, const TimeUnit& unit) {
    line.append(" ");
    line.append(unit.name);
    line.append(' ', 6 - unit.name.size());
}

void appendTimeLeft(BoundedText& line, int leftSeconds) {
    const TimeUnit& unit = unitFor(leftSeconds);
    line.append(" time left: ");
    line.append(leftSeconds / unit.seconds);
    appendUnit(line, unit);
}

void appendTimeSpent(BoundedText& line, double elapsedSeconds) {
    const TimeUnit& unit = unitFor(elapsedSeconds);
    line.append(" done in: ");
    line.appendTenths(elapsedSeconds * unit.perSecond);
    appendUnit(line, unit);
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
            appendTimeLeft(line, estimateLeftSeconds(startTime, now, percent));
        } else {
            appendTimeSpent(line, now - startTime);
        }
    }
}

}  // namespace Kelp
