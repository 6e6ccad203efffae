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

/// What the fields of a file are.
struct Tally {
    std::vector<unsigned long long> bins;
    unsigned long long inside = 0;  ///< all bins together
    unsigned long long below = 0;
    unsigned long long above = 0;
    unsigned long long nan = 0;
    unsigned long long texts = 0;  ///< fields that are no number
};

/// \throws std::runtime_error  for a file without numbers
/// \throws common::Interruption  when somebody wants the process to end
Extent findExtent(const Request& request, common::Progress& progress);

/// Counts the fields of the file.
/// \throws as findExtent; numbers outside the bins are numbers
Tally count(const Request& request, const std::vector<double>& edges, common::Progress& progress);

}  // namespace histogram

#endif
