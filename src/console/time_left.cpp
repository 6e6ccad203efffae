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

}  // namespace Kelp
