#include "selection.h"

#include <kelplib/Kelp.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>

#include "../common/interruption.h"
#include "lines.h"
#include "time_column.h"

namespace slice {

namespace {

/// Decides for each line of one file whether it is selected.
class Selector {
public:
    Selector(const Request& theRequest, Found& theFound) : request(theRequest), found(theFound) {}

    /// Whether the next line is selected. Do not call this once isDone() is true.
    /// \param line  the line, or its beginning
    bool selects(std::string_view line) {
        ++step;
        found.longest = std::max(found.longest, step);
        if (!request.byTime) {
            return step >= static_cast<unsigned long long>(request.steps[0]);
        }
        if (const std::optional<double> time = timeOf(line)) {
            inside = isInside(relative(*time));
        }
        return inside;
    }

    /// Whether no later line can be selected.
    bool isDone() const {
        return !request.byTime && step >= static_cast<unsigned long long>(request.steps[1]);
    }

private:
    double relative(double time) {
        if (!request.relative) {
            return time;
        }
        if (!hasFirst) {
            firstTime = time;
            hasFirst = true;
        }
        // Both times may be off in their last digit, and their difference shows that: 0.3 - 0.1 is not 0.2.
        tolerance = 2 * std::numeric_limits<double>::epsilon() * std::max(std::abs(time), std::abs(firstTime));
        return time - firstTime;
    }

    bool isInside(double time) {
        found.earliest = found.timed == 0 ? time : std::min(found.earliest, time);
        found.latest = found.timed == 0 ? time : std::max(found.latest, time);
        ++found.timed;
        return time >= request.times[0] - tolerance && time <= request.times[1] + tolerance;
    }

    const Request& request;
    Found& found;
    unsigned long long step = 0;
    bool hasFirst = false;
    double firstTime = 0.0;
    double tolerance = 0.0;
    bool inside = false;
};

bool isEnough(const Request& request, const Found& found) {
    return request.maxLines != 0 && found.written == static_cast<unsigned long long>(request.maxLines);
}

void selectFrom(const std::string& name, const Request& request, Output& output, Found& found) {
    Lines lines(name, output.isBinary() ? std::ios::binary : std::ios::openmode());
    Selector selector(request, found);
    bool selected = false;
    Piece piece;
    while (!isEnough(request, found) && lines.next(piece)) {
        common::checkInterruption();
        if (piece.first) {
            selected = selector.selects(piece.text);
        }
        if (selected) {
            output.write(piece.text);
        }
        if (selected && piece.last) {
            output.write("\n");
            ++found.written;
        }
        if (piece.last && selector.isDone()) {
            return;
        }
    }
}

}  // namespace

Found selectLines(const Request& request, Output& output) {
    Found found;
    for (const std::string& name : request.inputs) {
        if (isEnough(request, found)) {
            break;
        }
        selectFrom(name, request, output, found);
    }
    return found;
}

std::string reasonForNothing(const Request& request, const Found& found) {
    if (found.longest == 0) {
        return "the input has no lines";
    }
    if (!request.byTime) {
        return "no such line; the last line of the longest file is " + std::to_string(found.longest);
    }
    if (found.timed == 0) {
        return "no line begins with a time; -sr selects lines by their numbers";
    }
    return "no time is in the range; the times are in " + std::to_string(std::make_tuple(found.earliest, found.latest));
}

}  // namespace slice
