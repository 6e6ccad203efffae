#ifndef HISTOGRAM_COUNT_H
#define HISTOGRAM_COUNT_H

#include <vector>

#include "../common/progress.h"
#include "request.h"

namespace histogram {

/// The lowest and the highest finite number of a file.
struct Extent {
    double lowest;
    double highest;
};

/// The number of fields of each kind.
struct Tally {
    std::vector<unsigned long long> bins;
    unsigned long long inside = 0;  ///< the sum of all bins
    unsigned long long below = 0;
    unsigned long long above = 0;
    unsigned long long nan = 0;
    unsigned long long texts = 0;  ///< fields that are not numbers
};

/// \throws std::runtime_error  if the file contains no finite number
/// \throws common::Interruption  if a signal asks the process to end
Extent findExtent(const Request& request, common::Progress& progress);

/// Counts the fields of the file.
/// \throws as findExtent, but an infinite number or one outside the bins is enough
Tally count(const Request& request, const std::vector<double>& edges, common::Progress& progress);

}  // namespace histogram

#endif
