#include "console/bar_body.h"

#include <cmath>

#include "util/truncation.h"

namespace Kelp {

namespace {

/// The number of marks for the filled part of a bar: rounded up, at most `room`.
std::size_t marks(double filled, std::size_t room) {
    if (!(filled > 0.0)) {
        return 0;
    }
    return filled < static_cast<double>(room) ? static_cast<std::size_t>(std::ceil(filled)) : room;
}

}  // namespace

void appendBarBody(BoundedText& line, int width, double ratio) {
    const double filled = width * ratio;
    line.append('#', marks(filled, line.room()));
    const long long blanks = static_cast<long long>(width) - 1 - truncateToInt(filled);
    if (blanks > 0) {
        line.append(' ', static_cast<std::size_t>(blanks));
    }
}

}  // namespace Kelp
