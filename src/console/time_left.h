#ifndef KELPLIB_CONSOLE_TIME_LEFT_H
#define KELPLIB_CONSOLE_TIME_LEFT_H

#include <string_view>

#include "console/bounded_text.h"

namespace Kelp {

/// A unit that times are shown in.
struct TimeUnit {
    double limit;      ///< times below this many seconds are shown in the unit
    int seconds;       ///< the length of the unit
    double perSecond;  ///< the reciprocal of its length
    std::string_view name;
};

/// Returns the unit for a time in seconds, hours for a NaN.
const TimeUnit& unitFor(double seconds);

/// Estimates the whole seconds that are left when work that started at `startTime` has reached `percent` at `now`: the time
/// left at the same pace, times a factor that falls from 1.35 at 0 percent to 0.35 at 100, because an estimate from little
/// work is uncertain.
/// \returns INT_MIN where there is no estimate (0 percent)
int estimateLeftSeconds(double startTime, double now, double percent);

/// Appends a time in whole units, rounded down, and the name of the unit: "12 mins".
/// \param nameWidth  the name is padded with blanks to this length, so that the text covers a longer one of the last redraw
void appendWholeTime(BoundedText& text, int seconds, std::size_t nameWidth);

/// Appends a time with one decimal, and the name of the unit likewise: "1.5 mins".
void appendTimeInTenths(BoundedText& text, double seconds, std::size_t nameWidth);

}  // namespace Kelp

#endif
