#ifndef KELPLIB_CONSOLE_TIME_LEFT_H
#define KELPLIB_CONSOLE_TIME_LEFT_H

#include <string_view>

namespace Kelp {

/// The unit in which a time is shown.
struct TimeUnit {
    double limit;      ///< the unit serves times below this many seconds
    int seconds;       ///< how many seconds it stands for
    double perSecond;  ///< its part of one second
    std::string_view name;
};

/// The unit for a time in seconds. Not a number counts as the longest.
const TimeUnit& unitFor(double seconds);

/// Estimates the whole seconds that are left after `elapsedSeconds` of work brought it to `percent`: what is left at the
/// same pace, times a factor that falls from 1.35 at the beginning to 0.35 at the end, because the beginning tells little.
/// INT_MIN when there is no estimate (at 0 percent).
int estimateLeftSeconds(double startTime, double now, double percent);

}  // namespace Kelp

#endif
