#ifndef SLICE_SELECTION_H
#define SLICE_SELECTION_H

#include <string>

#include "output.h"
#include "request.h"

namespace slice {

/// What the inputs held.
struct Found {
    unsigned long long written = 0;  ///< lines
    unsigned long long timed = 0;    ///< lines that begin with a time
    double earliest = 0.0;           ///< of those
    double latest = 0.0;
    unsigned long long longest = 0;  ///< lines of the longest file
};

/// Writes the lines that the request asks for.
/// \throws common::Interruption  when somebody wants the process to end
Found selectLines(const Request& request, Output& output);

/// A line that tells the user why nothing was written.
std::string reasonForNothing(const Request& request, const Found& found);

}  // namespace slice

#endif
