#include <kelpkit/Files.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "slice.h"

namespace slice {

namespace {

/// Reads a file line by line. Lines may have any length.
class Lines {
public:
    Lines(const std::string& name, std::ios::openmode mode) : input(name, mode) {}

    /// Reads the next line, or the next part of one that is longer than the buffer. Returns false at the end of the file.
    bool next() {
        std::istream& stream = input.stream();
        isFirst = isLast;
        stream.getline(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        const auto count = static_cast<std::size_t>(stream.gcount());
        text = std::string_view(buffer.data(), stream.good() ? count - 1 : count);  // without the line end
        isLast = stream.good() || stream.eof();
        if (!isLast) {
            stream.clear();  // the buffer is full
        }
        return stream.good() || !text.empty() || !isFirst;
    }

    std::string_view text;
    bool isFirst = true;
    bool isLast = true;

private:
    Kelpkit::InputFile input;
    std::array<char, 65536> buffer;
};

/// Decides for each line of one file whether it is selected.
class Selector {
public:
    Selector(const Request& theRequest, Found& theFound) : request(theRequest), found(theFound) {}

    /// Whether the next line is selected.
    /// \param line  the line, or its beginning
    bool selects(std::string_view line) {
        found.longest = std::max(found.longest, ++step);
        if (!request.byTime) {
            return step >= static_cast<unsigned long long>(request.steps[0]);
        }
        if (const std::optional<double> time = timeOf(line)) {
            inside = isInside(*time);
        }
        return inside;
    }

    /// Whether no later line can be selected.
    bool isDone() const {
        return !request.byTime && step >= static_cast<unsigned long long>(request.steps[1]);
    }

private:
    bool isInside(double time) {
        double tolerance = 0.0;
        if (request.relative) {
            firstTime = std::isnan(firstTime) ? time : firstTime;
            // Both times may be off in their last digit, and their difference shows that: 0.3 - 0.1 is not 0.2.
            tolerance = 2 * std::numeric_limits<double>::epsilon() * std::max(std::abs(time), std::abs(firstTime));
            time -= firstTime;
        }
        found.earliest = std::min(time, found.earliest.value_or(time));
        found.latest = std::max(time, found.latest.value_or(time));
        return time >= request.times[0] - tolerance && time <= request.times[1] + tolerance;
    }

    const Request& request;
    Found& found;
    unsigned long long step = 0;
    double firstTime = std::numeric_limits<double>::quiet_NaN();  ///< not a number before the first line with a time
    bool inside = false;
};

bool isEnough(const Request& request, const Found& found) {
    return request.maxLines != 0 && found.written == static_cast<unsigned long long>(request.maxLines);
}

void selectFrom(const std::string& name, const Request& request, std::ostream& output, Found& found) {
    // On Windows standard output converts line ends.
    Lines lines(name, request.output ? std::ios::binary : std::ios::openmode());
    Selector selector(request, found);
    bool selected = false;
    while (!isEnough(request, found) && !(lines.isLast && selector.isDone()) && lines.next()) {
        selected = lines.isFirst ? selector.selects(lines.text) : selected;
        if (selected) {
            output << lines.text << (lines.isLast ? "\n" : "");
            found.written += lines.isLast ? 1 : 0;
        }
    }
}

}  // namespace

Found selectLines(const Request& request, std::ostream& output) {
    Found found;
    for (const std::string& name : request.inputs) {
        if (!isEnough(request, found)) {
            selectFrom(name, request, output, found);
        }
    }
    return found;
}

}  // namespace slice
