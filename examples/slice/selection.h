#ifndef SLICE_SELECTION_H
#define SLICE_SELECTION_H

#include <string>

#include "output.h"
#include "request.h"

namespace slice {

/// The results of a selection.
struct Found {
    unsigned long long written = 0;  ///< number of lines
    unsigned long long timed = 0;    ///< number of lines that begin with a time
    double earliest = 0.0;           ///< time of those lines
    double latest = 0.0;
    unsigned long long longest = 0;  ///< number of lines of the longest file
};

/// Writes the lines that the request selects.
/// \throws common::Interruption  if a signal asks the process to end
Found selectLines(const Request& request, Output& output);

/// Returns a message for the user that says why nothing was written.
std::string reasonForNothing(const Request& request, const Found& found);

}  // namespace slice

#endif
