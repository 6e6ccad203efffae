#ifndef HISTOGRAM_BINS_H
#define HISTOGRAM_BINS_H

#include <cstddef>
#include <vector>

#include "request.h"

namespace histogram {

/// \file
/// Bins are given by their edges. A bin includes its lower edge but not its upper edge; the last bin includes both.

/// Returns the edges that the command line gives, or none if they depend on the numbers in the file.
/// \throws std::runtime_error  if the range cannot be divided into this number of bins
std::vector<double> requestedEdges(const Request& request);

/// Returns the edges of bins of equal width around all numbers from `lowest` to `highest`.
/// \throws std::runtime_error  likewise
std::vector<double> edgesAround(double lowest, double highest, int bins);

/// Returns the index of the bin of a number that lies between the first and the last edge.
std::size_t binOf(double number, const std::vector<double>& edges);

}  // namespace histogram

#endif
