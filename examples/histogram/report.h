#ifndef HISTOGRAM_REPORT_H
#define HISTOGRAM_REPORT_H

#include <vector>

#include "../common/new_files.h"
#include "count.h"
#include "request.h"

namespace histogram {

/// Writes a table of bins and counts, separated by tabs, as the only file.
void writeTable(common::NewFiles& files, const std::vector<double>& edges, const Tally& tally);

/// Prints the bins as bars within 80 columns, and a line with the sums.
/// \throws common::Interruption  if the reader of standard output has gone
void print(const Request& request, const std::vector<double>& edges, const Tally& tally);

}  // namespace histogram

#endif
