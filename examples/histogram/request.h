#ifndef HISTOGRAM_REQUEST_H
#define HISTOGRAM_REQUEST_H

#include <kelplib/CommandLineTool.h>

#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace histogram {

/// The values of one command line.
struct Request {
    std::string file;
    std::optional<std::tuple<double, double>> range;  ///< finite, in ascending order, not empty
    std::vector<double> edges;                        ///< at least two, ascending; empty if not given
    std::set<int> columns;                            ///< counted from 1; empty means all
    int bins = 10;
    std::string output;  ///< the full path; empty if not given
    bool overwrite = false;
};

/// Returns the options of the tool.
std::vector<Kelp::Option> acceptedOptions();

/// Reads a command line that has passed the checks of the library, and makes the checks that the library leaves to its tools.
/// \throws std::runtime_error  with the message for the user
Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool);

}  // namespace histogram

#endif
