#ifndef HISTOGRAM_REPORT_H
#define HISTOGRAM_REPORT_H

#include <vector>

#include "../common/new_files.h"
#include "count.h"
#include "request.h"

namespace histogram {

/// Writes a table of bins and counts, with tabs between, as the only file.
void writeTable(common::NewFiles& files, const std::vector<double>& edges, const Tally& tally);

/// Prints the bins as bars, within 80 columns, and a line on what was counted and what was not.
/// \throws common::Interruption  when nobody reads standard output any more
void print(const Request& request, const std::vector<double>& edges, const Tally& tally);

}  // namespace histogram

#endif
