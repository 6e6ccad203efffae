#include "count.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <limits>
#include <stdexcept>

#include "../common/files.h"
#include "../common/interruption.h"
#include "bins.h"
#include "fields.h"

namespace histogram {

namespace {

/// The memory for the file, however large it is.
constexpr std::size_t bufferBytes = 65536;

/// Reads the file once and calls `use` with each field.
template <class Use>
void forEachField(const Request& request, common::Progress& progress, Use use) {
    errno = 0;
    std::ifstream stream(common::pathOf(request.file), std::ios::binary);
    if (!stream) {
        common::failOnStream("cannot read " + request.file);
    }
    Fields fields(request.columns);
    std::vector<char> buffer(bufferBytes);
    while (stream) {
        common::checkInterruption();
        errno = 0;
        stream.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        // libc++ reports a failed read as the end of the file (seen with 14); only errno tells the two apart.
        if (stream.bad() || (stream.eof() && errno != 0)) {
            common::failOnStream("cannot read " + request.file);
        }
        const std::streamsize count = stream.gcount();
        std::for_each(buffer.begin(), buffer.begin() + count, [&](char character) {
            if (fields.take(character)) {
                use(numberIn(fields.text()));
            }
        });
        progress.advance(static_cast<std::uintmax_t>(count));
    }
    if (fields.take('\n')) {
        use(numberIn(fields.text()));
    }
}

[[noreturn]] void refuseWithoutNumbers(const Request& request) {
    throw std::runtime_error(request.file + " contains no number" +
                             (request.columns.empty() ? "" : " in these columns"));
}

void countNumber(double number, const std::vector<double>& edges, Tally& tally) {
    if (std::isnan(number)) {
        ++tally.nan;
    } else if (number < edges.front()) {
        ++tally.below;
    } else if (number > edges.back()) {
        ++tally.above;
    } else {
        ++tally.bins[binOf(number, edges)];
        ++tally.inside;
    }
}

}  // namespace

Extent findExtent(const Request& request, common::Progress& progress) {
    Extent extent{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    forEachField(request, progress, [&extent](const std::optional<double>& number) {
        if (number && std::isfinite(*number)) {
            extent = {std::min(extent.lowest, *number), std::max(extent.highest, *number)};
        }
    });
    if (extent.lowest > extent.highest) {
        refuseWithoutNumbers(request);
    }
    return extent;
}

Tally count(const Request& request, const std::vector<double>& edges, common::Progress& progress) {
    Tally tally;
    tally.bins.resize(edges.size() - 1);
    forEachField(request, progress, [&](const std::optional<double>& number) {
        if (number) {
            countNumber(*number, edges, tally);
        } else {
            ++tally.texts;
        }
    });
    if (tally.inside + tally.below + tally.above == 0) {
        refuseWithoutNumbers(request);
    }
    return tally;
}

}  // namespace histogram
