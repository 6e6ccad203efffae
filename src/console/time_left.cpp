#include "console/time_left.h"

#include <limits>

#include "util/truncation.h"

namespace Kelp {

namespace {

constexpr TimeUnit units[] = {
    {60.0, 1, 1.0, "secs"},
    {3600.0, 60, 1.0 / 60.0, "mins"},
    {std::numeric_limits<double>::infinity(), 3600, 1.0 / 3600.0, "hours"},
};

// inline: without it gcc 12 makes calls that cost a redraw one percent more instructions.
inline void appendName(BoundedText& text, const TimeUnit& unit, std::size_t width) {
    text.append(" ");
    text.append(unit.name);
    text.append(' ', width - unit.name.size());
}

}  // namespace

const TimeUnit& unitFor(double seconds) {
    for (const TimeUnit& unit : units) {
        if (seconds < unit.limit) {
            return unit;
        }
    }
    return units[2];
}

int estimateLeftSeconds(double startTime, double now, double percent) {
    const double elapsed = now - startTime;
    return truncateToInt((elapsed * 100.0 / percent + (startTime - now)) * (1.35 - percent * 0.01));
}

void appendWholeTime(BoundedText& text, int seconds, std::size_t nameWidth) {
    const TimeUnit& unit = unitFor(seconds);
    text.append(seconds / unit.seconds);
    appendName(text, unit, nameWidth);
}

void appendTimeInTenths(BoundedText& text, double seconds, std::size_t nameWidth) {
    const TimeUnit& unit = unitFor(seconds);
    text.appendTenths(seconds * unit.perSecond);
    appendName(text, unit, nameWidth);
}

}  // namespace Kelp
