#ifndef HISTOGRAM_HISTOGRAM_H
#define HISTOGRAM_HISTOGRAM_H

#include <kelpkit/Progress.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace histogram {

/// Reads a text file once, calls `use` with each field of these columns (of all if there are none), and advances the progress
/// by the size of the file. A field that is not a number is none; one that is too large is infinite.
void forEachField(const std::string& file, const std::set<int>& columns, Kelpkit::Progress& progress,
                  const std::function<void(std::optional<double>)>& use);

/// Returns the edges of bins of equal width. A bin includes its lower edge but not its upper edge; the last bin includes both.
/// \throws std::runtime_error  if the range cannot be divided into this number of bins
std::vector<double> equalEdges(double from, double to, int bins);

/// The number of fields of each kind.
struct Tally {
    explicit Tally(std::vector<double> binEdges) : edges(std::move(binEdges)), bins(edges.size() - 1) {}

    void add(std::optional<double> field);

    std::vector<double> edges;
    std::vector<unsigned long long> bins;
    unsigned long long inside = 0;  ///< the sum of all bins
    unsigned long long below = 0;
    unsigned long long above = 0;
    unsigned long long nan = 0;
    unsigned long long texts = 0;  ///< fields that are not numbers
};

}  // namespace histogram

#endif
