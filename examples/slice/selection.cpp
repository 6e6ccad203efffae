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

/// Goes through one file and tells of each line whether it is wanted.
class Selector {
public:
    Selector(const Request& theRequest, Found& theFound) : request(theRequest), found(theFound) {}

    /// \param line  the next line, or its beginning; none is asked for once isDone() is true
    bool wants(std::string_view line) {
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

    /// Whether no line after this one can be wanted.
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
        // Both times may be off by their last digit; the difference shows that, and 0.3 would not be 0.3.
        slack = 2 * std::numeric_limits<double>::epsilon() * std::max(std::abs(time), std::abs(firstTime));
        return time - firstTime;
    }

    bool isInside(double time) {
        found.earliest = found.timed == 0 ? time : std::min(found.earliest, time);
        found.latest = found.timed == 0 ? time : std::max(found.latest, time);
        ++found.timed;
        return time >= request.times[0] - slack && time <= request.times[1] + slack;
    }

    const Request& request;
    Found& found;
    unsigned long long step = 0;
    bool hasFirst = false;
    double firstTime = 0.0;
    double slack = 0.0;
    bool inside = false;
};

bool isEnough(const Request& request, const Found& found) {
    return request.mostLines != 0 && found.written == static_cast<unsigned long long>(request.mostLines);
}

void selectFrom(const std::string& name, const Request& request, Output& output, Found& found) {
    Lines lines(name, output.isBinary() ? std::ios::binary : std::ios::openmode());
    Selector selector(request, found);
    bool wanted = false;
    Piece piece;
    while (!isEnough(request, found) && lines.next(piece)) {
        common::checkInterruption();
        if (piece.first) {
            wanted = selector.wants(piece.text);
        }
        if (wanted) {
            output.write(piece.text);
        }
        if (wanted && piece.last) {
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
        return "there is no line to choose from";
    }
    if (!request.byTime) {
        return "no such line; the longest file ends with line " + std::to_string(found.longest);
    }
    if (found.timed == 0) {
        return "no line begins with a time; -sr selects lines by their numbers";
    }
    return "no time lies in the range; all of them lie in " +
           std::to_string(std::make_tuple(found.earliest, found.latest));
}

}  // namespace slice
