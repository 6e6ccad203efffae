#ifndef HISTOGRAM_BINS_H
#define HISTOGRAM_BINS_H

#include <cstddef>
#include <vector>

#include "request.h"

namespace histogram {

/// \file
/// Bins are told by their edges: a bin has its lower edge and not its upper one. The last one has both.

/// The edges that the command line tells; none when the numbers of the file are to tell them.
/// \throws std::runtime_error  when the range cannot be divided into so many bins
std::vector<double> requestedEdges(const Request& request);

/// The edges of so many bins of the same width around all numbers from `lowest` to `highest`.
/// \throws std::runtime_error  likewise
std::vector<double> edgesAround(double lowest, double highest, int bins);

/// The index of the bin that a number between the first and the last edge is in.
std::size_t binOf(double number, const std::vector<double>& edges);

}  // namespace histogram

#endif
